#include "values/parser_case.h"
#include "values/parsers.h"

namespace {
// clang-format off
constexpr ParserCase kCases[] = {
    {"PortInside",          CliParseTCPUDPPort,  "80",         kOk,                   80},
    {"PortLast",            CliParseTCPUDPPort,  "65535",      kOk,                   65535},
    {"PortZero",            CliParseTCPUDPPort,  "0",          kTcpUdpPortRange},
    {"PortAbove",           CliParseTCPUDPPort,  "65536",      kTcpUdpPortRange},
    {"PortSigned",          CliParseTCPUDPPort,  "+80",        kTcpUdpPortRange},
    {"PortWithTail",        CliParseTCPUDPPort,  "80x",        kTcpUdpPortRange},
    {"PortEmpty",           CliParseTCPUDPPort,  "",           kTcpUdpPortRange},
    {"PortThatWraps",       CliParseTCPUDPPort,  "4294967376", kOk,                   80},
    {"PortAboveSigned",     CliParseTCPUDPPort,  "2147483728", kTcpUdpPortRange},
    {"TimeoutAbove",        CliParseTimeout,     "61",         kSessionTimeoutRange},
    {"ReattemptBelow",      CliParseReattempt,   "4",          kRadiusReattemptRange},
    {"RetryLast",           CliParseRetry,       "5",          kOk,                   5},
    {"PingRequestAbove",    CliParsePingRequest, "101",        kPingRequestRange},
    {"PingSizeFirst",       CliParsePingSize,    "56",         kOk,                   56},
    {"PingSizeAbove",       CliParsePingSize,    "1933",       kPingSizeRange},
    {"LogLevelAbove",       CliParseLogLevel,    "8",          kLogLevelRange},
    {"DecIntBeyondMessage", CliParseDecInt,      "65536",      kOk,                   65536},
    {"DecIntNegative",      CliParseDecInt,      "4294967295", kOk,                   -1},
    {"DecIntThatWraps",     CliParseDecInt,      "4294967296", kOk,                   0},
    {"DecIntWithTail",      CliParseDecInt,      "1.",         kInvalidDecimal},
};
// clang-format on
class NumberParser : public ParserTest {};
TEST_P(NumberParser, AppendsOrRefuses) { appends_or_refuses(); }
INSTANTIATE_TEST_SUITE_P(Texts, NumberParser, testing::ValuesIn(kCases), kCaseName);
}  // namespace
