#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <string>

#include "console/messages.h"

namespace {
template <class... Arguments> std::string printed(std::uint32_t number, Arguments... arguments)
{
    testing::internal::CaptureStdout();
    PrintMsg(0, number, arguments...);
    return testing::internal::GetCapturedStdout();
}

// Into exactly the room that is promised, so that a byte too many is seen.
template <class... Arguments> std::string composed(std::uint32_t number, Arguments... arguments)
{
    const auto buffer = std::make_unique<char[]>(kMessageSize);
    SPrintMsg(buffer.get(), number, arguments...);
    return buffer.get();
}

TEST(PrintMsg, EndsAsItsSeveritySays)
{
    EXPECT_EQ(printed(kWelcome), " Welcome!\n");
    EXPECT_EQ(printed(kLoginTimeExpired), " Warning: Login time expired\a\n");
    EXPECT_EQ(printed(kIncorrectPassword), " Error: Incorrect password.\a\n");
    EXPECT_EQ(printed(kContinueQuestion), " Do you want to continue (y/n)? ") << "the cursor stays behind a question";
    EXPECT_EQ(composed(kContinueQuestion), " Do you want to continue (y/n)? \n");
}

struct Wrap {
    const char* name;
    std::size_t length;   // of a word in message 207: ' Error: "WORD" is not a legal keyword.'
    const char* opening;  // what stands before the word
    const char* closing;  // and behind it
};
void PrintTo(const Wrap& wrap, std::ostream* out) { *out << wrap.name; }
constexpr Wrap kWraps[] = {
    {"SeventyNineColumnsFit", 79 - 34, " Error: \"", "\" is not a legal keyword."},
    {"EightyDoNot", 80 - 34, " Error: \"", "\" is not a legal\n keyword."},
    {"TheWordStartsTheNextLine", 80 - 10, " Error:\n \"", "\" is\n not a legal keyword."},
};
class PrintMsgWraps : public testing::TestWithParam<Wrap> {};
TEST_P(PrintMsgWraps, BeforeAWordThatWouldReachColumnEighty)
{
    const Wrap& wrap = GetParam();
    const std::string word(wrap.length, 'x');
    EXPECT_EQ(printed(kNotAKeyword, word.c_str()), wrap.opening + word + wrap.closing + "\a\n");
    EXPECT_EQ(composed(kNotAKeyword, word.c_str()), " Error: \"" + word + "\" is not a legal keyword.\a\n");
}
INSTANTIATE_TEST_SUITE_P(Words, PrintMsgWraps, testing::ValuesIn(kWraps), [](const auto& c) { return c.param.name; });

TEST(PrintMsg, CutsWhatDoesNotFitAndStillEndsTheLine)
{
    for (const char filling : {'x', ' '}) {
        const std::string endless(2000, filling);
        const std::string text = composed(kNotAKeyword, endless.c_str());
        EXPECT_EQ(text.size(), kMessageSize - 1);
        EXPECT_TRUE(text.ends_with("\a\n"));
        EXPECT_TRUE(printed(kNotAKeyword, endless.c_str()).ends_with("\a\n"));
    }
}

TEST(PrintMsg, ReportsANumberThatTheCatalogDoesNotHave)
{
    for (const std::uint32_t number : {std::uint32_t{kMessages}, 0xFFFFFFFFu}) {
        EXPECT_EQ(printed(number), " Error: CLI error!\a\n");
        EXPECT_EQ(composed(number), " Error: CLI error!\a\n");
        EXPECT_EQ(PatchMsg(2, number), 0);
    }
}

TEST(PatchMsg, ReplacesTheNextPrintOfItsNumberOnly)
{
    const std::string rule = " Error: String here should be double quoted if contains spaces, up to ";
    PatchMsg(2, kStringRule, 30);
    EXPECT_EQ(printed(kWelcome), " Welcome!\n");
    EXPECT_EQ(composed(kStringRule), rule + "30 characters\a\n");
    EXPECT_EQ(composed(kStringRule, 15), rule + "15 characters\a\n");

    PatchMsg(2, kStringRule, 60);
    EXPECT_STREQ(GetMsgText(kStringRule),
                 "String here should be double quoted if contains spaces, up to 60 characters");
    EXPECT_EQ(composed(kStringRule, 15), rule + "15 characters\a\n") << "the text was taken";
}

TEST(PatchMsg, PrintsAPatchAsItStands)
{
    PatchMsg(2, kWdsPeerDeleteFailed, "%s%n%d");
    EXPECT_EQ(printed(kWdsPeerDeleteFailed), " Error: Delete wds peer %s%n%d fail\a\n");

    PatchMsg(2, kWdsPeerDeleteFailed, std::string(2000, 'x').c_str());
    EXPECT_LT(composed(kWdsPeerDeleteFailed).size(), kMessageSize);
}

}  // namespace
