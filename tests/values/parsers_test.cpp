// What holds for every parser, whatever is typed.
#include <string>

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

TEST(EveryParser, SurvivesHostileTextsAndCountsOnlyWhatItTook)
{
    const std::string texts[] = {"",
                                 " ",
                                 "\"",
                                 "-",
                                 ":",
                                 std::string(200, 'a'),
                                 std::string(200, '9'),
                                 std::string(200, '-'),
                                 std::string(200, '"'),
                                 "%n%s%d",
                                 "\x80\xff\xfe\x81",
                                 std::string(200, '\xff')};
    for (const Accepted& accepted : kParsers) {
        for (const std::string& text : texts) {
            SCOPED_TRACE(std::string(accepted.text) + " against " + text);
            ParmList words{};
            const std::uint32_t message = accepted.parser(TypedText(text.c_str()), words);
            EXPECT_LT(message, kMessages);
            EXPECT_EQ(words.count, message == kOk ? accepted.taken : 0);
        }
    }
}
}  // namespace
