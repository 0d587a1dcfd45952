// Commands that arrive faster than they are carried out: nothing is lost and nothing runs together, in either mode.
#include <gtest/gtest.h>

#include "support/service.h"
#include "support/terminal.h"

namespace {
struct Paste {
    const char* name;
    std::vector<std::string> console;
    std::size_t bytes;        // a line's queue holds 4096
    int bytesPerSecond;       // 0: at once
    const char* before = "";  // a line that goes ahead of them
};
void PrintTo(const Paste& paste, std::ostream* out) { *out << paste.name; }
constexpr std::size_t kMuch = 65536, kSome = 16384, kLittle = 3072;
constexpr int kBaud115200 = 11520, kBaud9600 = 960;
const std::vector<std::string> kSmart, kNormal{ROUTER_NORMAL_CONSOLE};
const Paste kPastes[] = {
    {"AtOnceSmart", kSmart, kMuch, 0},
    {"AtOnceNormal", kNormal, kMuch, 0},
    {"BehindAPing", kSmart, kLittle * 2, 0, "ping 127.0.0.1\r"},
    {"At115200Smart", kSmart, kSome, kBaud115200},
    {"At115200Normal", kNormal, kSome, kBaud115200},
    {"At9600Smart", kSmart, kLittle, kBaud9600},
    {"At9600Normal", kNormal, kLittle, kBaud9600},
};

class PastedCommands : public testing::TestWithParam<Paste> {};
TEST_P(PastedCommands, AllRunInOrder)
{
    Service service;
    Terminal t({.command = GetParam().console});
    if (GetParam().console.empty())
        t.log_in();
    else
        t.until("Command> ");

    std::string typed, printed;
    for (int i = 0; typed.size() < GetParam().bytes; ++i) {
        const std::string value = std::to_string(i) + " of those who are called when it is dark";
        const std::string line = "set system contact \"" + value + '"';
        typed += line + '\r';
        printed += line + "\nSystem contact: " + value + "\nCommand> ";
    }
    t.send(GetParam().before);
    if (GetParam().bytesPerSecond)
        t.send_paced(typed, GetParam().bytesPerSecond);
    else
        t.send(typed);
    t.type("logout\n");
    if (*GetParam().before) t.until("Command> ");
    EXPECT_EQ(t.until("logout\n", kPatience * 4), printed + "logout\n");
    EXPECT_EQ(t.wait_exit(), 0);
}
INSTANTIATE_TEST_SUITE_P(Lines, PastedCommands, testing::ValuesIn(kPastes), [](const auto& c) { return c.param.name; });
}  // namespace
