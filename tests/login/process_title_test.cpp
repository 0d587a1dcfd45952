#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "login/process_title.h"

namespace {
// Arguments and environment end to end in one block, as the system lays them out for a new process; a guard behind it.
class ProcessTitle : public testing::Test {
protected:
    void lay_out(const std::vector<std::string>& arguments, const std::vector<std::string>& variables)
    {
        std::size_t size = 0;
        for (const auto& text : arguments) size += text.size() + 1;
        for (const auto& text : variables) size += text.size() + 1;
        size_ = size;
        block_.assign(size + 1, '~');
        char* next = block_.data();
        const auto add = [&](std::vector<char*>& vector, const std::string& text) {
            vector.push_back(static_cast<char*>(std::memcpy(next, text.c_str(), text.size() + 1)));
            next += text.size() + 1;
        };
        for (const auto& text : arguments) add(argv_, text);
        for (const auto& text : variables) add(environment_, text);
        argv_.push_back(nullptr);
        environment_.push_back(nullptr);
        environ = environment_.data();
    }
    void TearDown() override
    {
        environ = before_;
        EXPECT_EQ(block_.back(), '~');
    }

    char** before_ = environ;
    std::vector<char> block_;
    std::size_t size_ = 0;
    std::vector<char*> argv_, environment_;
};

TEST_F(ProcessTitle, IsCutToTheSpaceLessTwo)
{
    lay_out({"login"}, {"A=b"});  // ten bytes
    initproctitle(1, argv_.data());
    setproctitle("login", "root");
    EXPECT_STREQ(argv_[0], "login --");
}

}  // namespace
