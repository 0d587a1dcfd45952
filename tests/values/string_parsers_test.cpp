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
    {"PlainAtLimit", CliParseString15, "123456789012345", "123456789012345"},
    {"PlainAboveLimit", CliParseString15, "1234567890123456", kRefused},
    {"Quoted", CliParseName30, "\"two words\"", "two words"},
    {"EmptyQuotes", CliParseString60, "\"\"", kRefused},
    {"BehindTheQuotes", CliParseString60, "\"a\"b", kRefused},
    {"QuoteInside", CliParseString60, "5\"disk", "5\"disk"},
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

}  // namespace
