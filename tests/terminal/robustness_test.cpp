// The console against a service that is absent, dead, hostile or silent, an operator who types noise, and a line that
// goes away. It says what failed, and it never crashes or hangs for good.
#include <chrono>
#include <gtest/gtest.h>
#include <random>

#include "service/codes.h"
#include "support/fake_service.h"
#include "support/service.h"
#include "support/terminal.h"
#include "terminal/attributes.h"

namespace {
constexpr Milliseconds kPastTheServiceTimeout{30000};
constexpr Milliseconds kAtOnce{1000};

void expect_clean_end(Terminal& t)
{
    t.type("logout\n");
    EXPECT_EQ(t.wait_exit(), 0) << t.screen().text();
    EXPECT_TRUE(same_attributes(t.attributes(), t.found()));
}

TEST(Robustness, ServiceAbsentAtTheStart)
{
    Service service;
    service.stop();
    Terminal t;
    t.until_password_asked();
    t.type("admin\n");
    EXPECT_EQ(t.until("password: "), "*****\n Error: Incorrect password.\a\n please enter your password: ");
    service.start();
    t.type("admin\n");
    EXPECT_EQ(t.until("> "), "*****\n\n Welcome!\nCommand> ");
    expect_clean_end(t);
}

TEST(Robustness, ServiceThatDoesNotAnswerIsGivenUp)
{
    Service service;
    Terminal t;
    t.log_in();
    service.suspend();
    const auto asked = std::chrono::steady_clock::now();
    t.type("set system name late\n");
    EXPECT_EQ(t.until("Command> ", kPastTheServiceTimeout),
              "set system name late\n\aThe configuration service does not answer\nCommand> ");
    EXPECT_GE(std::chrono::steady_clock::now() - asked, std::chrono::seconds(9));
    service.resume();
    t.type("set system name back\n");
    t.until("System Name: back\nCommand> ");
    expect_clean_end(t);
}

// A good service until the operator is in; from then on every read is answered badly.
struct Hostility {
    const char* name;
    Reply (*answer)(const ComParam& request);
    const char* printed;
};
Reply half(const ComParam& request)
{
    return {.bytes = plain_reply(request).bytes.substr(0, kRecordSize / 2), .disconnect = true};
}
Reply endless(const ComParam& request) { return plain_reply(request, 0, 0xffffffff); }
Reply unknown_status(const ComParam& request) { return plain_reply(request, 0xdeadbeef); }
constexpr Hostility kHostilities[] = {
    {"HalfARecord", half, "\aThe configuration service ended the connection before it answered\n"},
    {"LengthOfFourGigabytes", endless, "\aThe configuration service gave an answer that makes no sense\n"},
    {"StatusWithoutAText", unknown_status, "\aThe request failed, no reason was given\n"},
};
class HostileService : public testing::TestWithParam<Hostility> {};
TEST_P(HostileService, IsReportedAndTheConsoleGoesOn)
{
    bool loggedIn = false;
    FakeService service([&](const ComParam& request) {
        const std::uint32_t asked = record::code.get(request);
        if (loggedIn) return GetParam().answer(request);
        loggedIn = asked == code::kCheckPassword;
        return plain_reply(request);
    });
    Terminal t;
    t.log_in();
    t.type("set system name x\n");
    EXPECT_EQ(t.until("> "), std::string("set system name x\n") + GetParam().printed + "> ");
    t.type("show system\n");
    EXPECT_TRUE(t.until("\n> ").find("System log level:") != std::string::npos);
    expect_clean_end(t);
}
INSTANTIATE_TEST_SUITE_P(Answers, HostileService, testing::ValuesIn(kHostilities),
                         [](const auto& hostility) { return hostility.param.name; });

constexpr char kSuspend = '\x1a';  // at which the line throws away all that it holds

// Any byte but the suspend character and those in `but`.
std::string noise(std::size_t size, std::string_view but)
{
    std::mt19937 random(20);
    std::string bytes(size, 0);
    for (char& byte : bytes) {
        do byte = static_cast<char>(random());
        while (byte == kSuspend || but.find(byte) != but.npos);
    }
    return bytes;
}

TEST(Robustness, TakesACommandAfterAMebibyteOfNoise)
{
    Service service;
    Terminal t;
    t.log_in();
    t.send(noise(1 << 20, "lL"));  // `logout` would rightly end the session
    t.send("[A\x03\x03");          // ends an escape sequence that may be open, then whatever else is
    t.send("\r\r");
    t.type("set system name quiet\n");
    t.until("System Name: quiet\n");
    expect_clean_end(t);
}

struct LostLine {
    const char* name;
    bool controlling;  // the console gets the hang-up signal; otherwise only its next read fails
    bool loggedIn;
};
constexpr LostLine kLostLines[] = {
    {"HangUpAtThePassword", true, false},
    {"HangUpAtTheCommand", true, true},
    {"EndOfInputAtThePassword", false, false},
    {"EndOfInputAtTheCommand", false, true},
};
class LineGoesAway : public testing::TestWithParam<LostLine> {};
TEST_P(LineGoesAway, EndsAtOnce)
{
    Service service;
    Terminal t({.controlling = GetParam().controlling});
    t.until_password_asked();
    if (GetParam().loggedIn) {
        t.type("admin\n");
        t.until("Command> ");
        t.type("show sys");
        t.until("show sys");
    }
    t.hang_up();
    EXPECT_TRUE(t.process().wait_exit(kAtOnce).has_value());
}
INSTANTIATE_TEST_SUITE_P(Lines, LineGoesAway, testing::ValuesIn(kLostLines),
                         [](const auto& lost) { return lost.param.name; });

}  // namespace
