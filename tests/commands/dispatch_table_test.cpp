#include <gtest/gtest.h>

#include "cli/help_topic.h"
#include "cli/tables.h"
#include "support/written.h"

namespace {
TEST(DispatchTable, ACommandWithoutAnActionSaysSo)
{
    struct Case {
        std::uint32_t cmdId;
        Action action;
        const char* screen;
    };
    constexpr char kNoRecord[] = "Command dispatch entry not found\n", kNull[] = "Action function is not supported\n";
    const Case kCases[] = {
        {38, help_topic, ""},
        {119, nullptr, kNoRecord},
        {130, nullptr, kNoRecord},
        {0, nullptr, kNoRecord},
        {kCommandEnd, nullptr, kNoRecord},
        {5, nullptr, kNull},
        {kLogoutCommand, nullptr, kNull},
        {176, nullptr, kNull},
    };
    for (const Case& c : kCases) {
        Action action = nullptr;
        EXPECT_EQ(written_by([&] { action = CliGetActionFunc(c.cmdId); }), c.screen) << c.cmdId;
        EXPECT_EQ(action, c.action) << c.cmdId;
    }
}
}  // namespace
