#include "values/parser_case.h"
#include "values/parsers.h"

namespace {
// clang-format off
constexpr ParserCase kCases[] = {
    {"PortLast",            CliParseTCPUDPPort,  "65535",      kOk,                   65535},
    {"PortZero",            CliParseTCPUDPPort,  "0",          kTcpUdpPortRange},
    {"PortThatWraps",       CliParseTCPUDPPort,  "4294967376", kOk,                   80},
    {"PortAboveSigned",     CliParseTCPUDPPort,  "2147483728", kTcpUdpPortRange},
    {"PingRequestAbove",    CliParsePingRequest, "101",        kPingRequestRange},
    {"PingSizeAbove",       CliParsePingSize,    "1933",       kPingSizeRange},
    {"DecIntNegative",      CliParseDecInt,      "4294967295", kOk,                   -1},
    {"DecIntThatWraps",     CliParseDecInt,      "4294967296", kOk,                   0},
    {"DecIntWithTail",      CliParseDecInt,      "1.",         kInvalidDecimal},
};
// clang-format on
class NumberParser : public ParserTest {};
TEST_P(NumberParser, AppendsOrRefuses) { appends_or_refuses(); }
INSTANTIATE_TEST_SUITE_P(Texts, NumberParser, testing::ValuesIn(kCases), kCaseName);
}  // namespace
