#include <gtest/gtest.h>
#include <unistd.h>

#include "configd/linux/terminal.h"

namespace {
struct Case {
    const char* name;
    const char* stat;
    const char* terminal;
};
constexpr Case kCases[] = {
    {"Pseudo", "812 (login) S 1 812 812 34819 812 4194304 1", "pts/3"},
    {"PseudoBehind255", "812 (login) S 1 812 812 1083434 812", "pts/298"},
    {"Serial", "812 (login) S 1 812 812 1088 812", "ttyS0"},
    {"OtherSerial", "812 (login) S 1 812 812 52288 812", "terminal 204:64"},
    {"None", "812 (login) S 1 812 812 0 -1", ""},
    {"NameWithBlanksAndParentheses", "812 (a) S 1 2 3 1025 (b) S 1 812 812 34819 812", "pts/3"},
    {"Cut", "812 (login) S 1 812", ""},
    {"NoNumber", "812 (login) S 1 812 812 x", ""},
    {"Empty", "", ""},
};
TEST(TerminalOfAProcess, IsBehindTheLastParenthesisOfItsLine)
{
    for (const Case& each : kCases) EXPECT_EQ(device::terminal_in(each.stat), each.terminal) << each.name;
    EXPECT_EQ(device::terminal_of(-1), "") << "no such process";
}
}  // namespace
