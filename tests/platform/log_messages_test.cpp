#include <cstring>
#include <gtest/gtest.h>

#include "platform/ipc_client.h"
#include "platform/log_messages.h"
#include "service/status.h"

namespace {
struct Case {
    const char* name;
    std::uint32_t status, group;
    const char* text;
};
constexpr Case kCases[] = {
    {"NoReasonGiven", kStatusOk, kSystemGroup, "The request failed, no reason was given"},
    {"TextOfTheArea", kStatusTableFull, kWirelessGroup, "The MAC filter table is full"},
    {"GeneralTextForAnotherArea", kStatusTableFull, kTimeGroup, "The table is full"},
    {"GeneralTextForAnUnknownGroup", kStatusTableFull, 12345, "The table is full"},
    {"ExchangeError", IPC_NOT_RUNNING, kDhcpGroup, "The configuration service is not running"},
    {"UnknownStatus", 4711, kSystemGroup, "Unknown error 4711"},
    {"LargestStatus", 0xFFFFFFFF, 0xFFFFFFFF, "Unknown error 4294967295"},
};
class LogGetMsgX : public testing::TestWithParam<Case> {};
TEST_P(LogGetMsgX, GivesTheTextOfStatusAndGroup)
{
    char text[LOG_MESSAGE_SIZE + 1];
    std::memset(text, '~', sizeof text);
    EXPECT_EQ(logGetMsgX(GetParam().status, GetParam().group, text, 0xFDFDFDFD), 0u);
    EXPECT_STREQ(text, GetParam().text);
    EXPECT_EQ(text[LOG_MESSAGE_SIZE], '~');
}
INSTANTIATE_TEST_SUITE_P(Texts, LogGetMsgX, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });
}  // namespace
