#include <string>

#include "values/parser_case.h"
#include "values/parsers.h"

namespace {
constexpr const char* kRefused = nullptr;

struct Case {
    const char* name;
    Parser parser;
    std::string text;
    const char* kept;  // what the text is afterwards
};
const Case kCases[] = {
    {"Plain", CliParseString15, "lab-ap", "lab-ap"},
    {"PlainAtLimit", CliParseString15, "123456789012345", "123456789012345"},
    {"PlainAboveLimit", CliParseString15, "1234567890123456", kRefused},
    {"Quoted", CliParseName30, "\"two words\"", "two words"},
    {"QuotedAtLimit", CliParsePrompt, "\"123456789012345\"", "123456789012345"},
    {"QuotedAboveLimit", CliParsePrompt, "\"1234567890123456\"", kRefused},
    {"Empty", CliParseString60, "", kRefused},
    {"EmptyQuotes", CliParseString60, "\"\"", kRefused},
    {"QuoteAlone", CliParseString60, "\"", kRefused},
    {"NeverClosed", CliParseString60, "\"open", kRefused},
    {"BehindTheQuotes", CliParseString60, "\"a\"b", kRefused},
    {"QuoteInside", CliParseString60, "5\"disk", "5\"disk"},
    {"HighBytes", CliParseString30, "caf\xc3\xa9 \xff", "caf\xc3\xa9 \xff"},
    {"Endless", CliParseString63, std::string(200, 'x'), kRefused},
    {"FacilityTakesAnything", CliParseFacility, "\"", "\""},
    {"Bath", CliParseMacEapOrBoth, "bath", "bath"},
};
class StringParser : public testing::TestWithParam<Case> {};
TEST_P(StringParser, KeepsTheTextInPlaceOrRefuses)
{
    const TypedText text(GetParam().text.c_str());
    ParmList words{};
    const std::uint32_t message = GetParam().parser(text, words);
    EXPECT_EQ(message, GetParam().kept ? kOk : kStringRule);
    EXPECT_EQ(words.count, GetParam().kept ? 1u : 0u);
    EXPECT_EQ(words.value[0], GetParam().kept ? reinterpret_cast<Word>(text.memory.get()) : 0u);
    EXPECT_STREQ(text, GetParam().kept ? GetParam().kept : GetParam().text.c_str());
}
INSTANTIATE_TEST_SUITE_P(Texts, StringParser, testing::ValuesIn(kCases), kCaseName);

TEST(StringParserRefusal, NamesTheLimitInTheNextPrint)
{
    struct Limited {
        Parser parser;
        const char* limit;
    };
    ParmList words{};
    char printed[kMessageSize];
    for (const Limited& row : {Limited{CliParsePortName, "up to 15 "},
                               {CliParseGatewayOrIfName, "up to 30 "},
                               {CliParseLocationInfo, "up to 60 "},
                               {CliParseString63, "up to 63 "}}) {
        ASSERT_EQ(row.parser(TypedText(""), words), kStringRule);
        SPrintMsg(printed, kStringRule, 0);
        EXPECT_NE(std::string(printed).find(row.limit), std::string::npos) << printed;
    }
}

TEST(MacEapOrBath, IsSpelledSo)
{
    ParmList words{};
    EXPECT_EQ(CliParseMacEapOrBoth(TypedText("both"), words), kMacEapOrBoth);
    EXPECT_EQ(CliParseMacEapOrBoth(TypedText("MAC"), words), kMacEapOrBoth);
    EXPECT_EQ(words.count, 0u);
}
}  // namespace
