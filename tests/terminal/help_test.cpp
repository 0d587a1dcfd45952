// The help command, read to its end as an operator does: every category, page by page.
#include <algorithm>
#include <sstream>

#include "terminal/dialogue_session.h"

namespace {
constexpr std::size_t kPageLines = 22;
constexpr char kAnyKey[] = "Press any key to continue...";
const std::string kQuestion = " please enter a selection number [1..8] for more detail information: ";

class Help : public DialogueSession {
protected:
    Help()
    {
        t.type("help\n");
        t.until(kQuestion);
    }
    // What the selection lists, each page read and a key pressed for the next one.
    std::vector<std::string> select(int selection, std::size_t commands)
    {
        const std::string number = std::to_string(selection);
        t.type(number + '\n');
        t.until(number + "\n\n");
        std::vector<std::string> listed;
        for (;;) {
            const bool isFull = commands - listed.size() >= kPageLines;
            std::istringstream page(t.until(isFull ? kAnyKey : kQuestion));
            for (std::string line; std::getline(page, line);)
                if (line.starts_with("    ")) listed.push_back(line.substr(4));
            if (!isFull) return listed;
            EXPECT_EQ(listed.size() % kPageLines, 0u);
            t.type("k");
        }
    }
};

struct Category {
    int selection;
    std::size_t commands;
    const char* one;  // of them
};
// clang-format off
constexpr Category kCategories[] = {
    {1, 27, "save config"},
    {2, 16, "add ip route <destination IP> <destination netmask> <gateway address/interface name> <hop counts>"},
    {3,  6, "set mac filter mode <MAC filter mode, disabled/grant/deny>"},
    {4,  8, "add dhcp static <IP address> <MAC address, XX-XX-XX-XX-XX-XX>"},
    {5,  9, "show snmp"},
    {6, 14, "show log table <facility>"},
    {7, 14, "change password"},
    {8,  1, "show snmp statistics"},
};
// clang-format on
TEST_F(Help, ReadsEveryCategoryPageByPage)
{
    for (const Category& each : kCategories) {
        const auto listed = select(each.selection, each.commands);
        EXPECT_EQ(listed.size(), each.commands) << each.selection;
        EXPECT_NE(std::ranges::find(listed, each.one), listed.end()) << each.selection;
    }
    play({"", kPrompt});
}

}  // namespace
