#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "login/access.h"
#include "login/access_file.h"

namespace {
struct Case {
    const char* name;
    std::string_view text;
    const char* tty;
    const char* host;
    bool allowed;  // "root" on that terminal
};
using namespace std::literals;
constexpr Case kCases[] = {
    {"EmptyFile", "", "ttyS0", "", true},
    {"Named", "root tty1 ttyS0\n", "ttyS0", "", true},
    {"NotNamed", "root tty1 ttyS1\n", "ttyS0", "", false},
    {"LongerIsNotEnough", "root ttyS01\n", "ttyS0", "", false},
    {"CommentEndsALine", "root tty1 # ttyS0\n", "ttyS0", "", false},
    {"TabsAndCarriageReturns", "\troot\t\ttty1 \t ttyS0\r\n", "ttyS0", "", true},
    {"Host", "root ttyS0 @Console.example\n", "pts/3", "console.EXAMPLE", true},
    {"HostCannotPutInAWord", "root ttyS0\n", "pts/3", "@ttyS0", false},
    {"BytesAbove127", "\xff\xfe\x80 ttyS1\nroot \xff ttyS0 \x80\n", "ttyS0", "", true},
};
class TerminalAllowed : public testing::TestWithParam<Case> {};
TEST_P(TerminalAllowed, FollowsTheLinesOfTheUser)
{
    const Case& c = GetParam();
    const std::string exact(c.text);  // on the heap, so that a read behind the end is seen
    EXPECT_EQ(terminal_allowed(exact, "root", c.tty, c.host), c.allowed);
}
INSTANTIATE_TEST_SUITE_P(Files, TerminalAllowed, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });

class AccessFile : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_NE(mkdtemp(folder_), nullptr);
        path_ = std::string(folder_) + "/usertty";
    }
    void TearDown() override
    {
        std::remove(path_.c_str());
        rmdir(folder_);
    }
    void write(const std::string& text)
    {
        std::FILE* file = std::fopen(path_.c_str(), "w");
        ASSERT_NE(file, nullptr);
        std::fwrite(text.data(), 1, text.size(), file);
        std::fclose(file);
    }
    bool allows(const char* tty) { return access_file_allows(path_.c_str(), "root", tty, ""); }

    char folder_[32] = "/tmp/access_test_XXXXXX";
    std::string path_;
};

TEST_F(AccessFile, ThatCannotBeReadWholeLetsNobodyIn)
{
    write(std::string(70000, '\n'));
    EXPECT_FALSE(allows("ttyS0")) << "too long";
    std::remove(path_.c_str());

    mkdir(path_.c_str(), 0700);
    EXPECT_FALSE(allows("ttyS0")) << "a folder";
    rmdir(path_.c_str());

    mkfifo(path_.c_str(), 0600);
    EXPECT_FALSE(allows("ttyS0")) << "a pipe that nobody writes into";
    std::remove(path_.c_str());

    ASSERT_EQ(symlink(path_.c_str(), path_.c_str()), 0);
    EXPECT_FALSE(allows("ttyS0")) << "a link to itself";
}
}  // namespace
