#include "values/parser_case.h"
#include "values/parsers.h"
#include "values/selection.h"

namespace {
// clang-format off
constexpr ParserCase kCases[] = {
    {"AmbiguousLetter",      CliParseMACFilterMode,   "d",        kMacFilterMode},
    {"EnoughForAnyEntry",    CliParseMACFilterMode,   "g",        kMacFilterMode},
    {"OtherCase",            CliParseMACFilterMode,   "DENY",     kOk, 2},
    {"LongerThanEntry",      CliParseMACFilterMode,   "disabled", kMacFilterMode},
    {"OneLetterIsEnough",    CliParseOperationalMode, "w",        kOk, 2},
    {"LanIsNoRadio",         CliParseRadioName,       "lan100",   kRadioName},
    {"RadioLast",            CliParseRadioOrLanName,  "Radio6",   kOk, 6},
};
// clang-format on
class SelectionParser : public ParserTest {};
TEST_P(SelectionParser, AppendsOrRefuses) { appends_or_refuses(); }
INSTANTIATE_TEST_SUITE_P(Texts, SelectionParser, testing::ValuesIn(kCases), kCaseName);

}  // namespace
