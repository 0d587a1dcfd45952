// What holds for every parser, whatever is typed.
#include "values/parser_case.h"
#include "values/parsers.h"

namespace {
struct Accepted {
    Parser parser;
    const char* text;
    Word taken = 1;
};
// clang-format off
constexpr Accepted kParsers[] = {
    {CliParseString15, "a"}, {CliParseString30, "a"}, {CliParseString60, "a"}, {CliParseString63, "\"a\""},
    {CliParseFacility, "a"}, {CliParseMacEapOrBoth, "eap"}, {CliParseDecInt, "1"}, {CliParseTCPUDPPort, "1"},
    {CliParsePingSize, "56"}, {CliParseMACFilterMode, "deny"}, {CliParseRadioOrLanName, "lan100"},
    {CliParseIPAddress, "1.2.3.4"}, {CliParseMACAddress, "0-0-0-0-0-1", 2}, {CliParseDate, "1-1-1", 3},
    {CliParseTime, "1"}, {CliParseTimezone, "-1"},
};
// clang-format on

TEST(EveryParser, WritesNothingOutsideAFullVector)
{
    for (const Accepted& accepted : kParsers) {
        for (Word free = 0; free <= accepted.taken; ++free) {
            SCOPED_TRACE(accepted.text);
            const Word before = ParmList::kCapacity - free;
            ParmList words{};
            words.count = before;
            EXPECT_EQ(accepted.parser(TypedText(accepted.text), words), kOk);
            EXPECT_EQ(words.count, free < accepted.taken ? before : ParmList::kCapacity);
        }
    }
}

}  // namespace
