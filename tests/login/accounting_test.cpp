#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "login/accounting.h"

namespace {
constexpr unsigned char kNoAddress[4] = {}, kAddress[4] = {192, 168, 1, 9};
constexpr pid_t kPid = 4711;
constexpr std::time_t kNow = 1'700'000'000;

LoginEvent local() { return {"root", "ttyS0", "S0", nullptr, kNoAddress, kPid, kNow}; }
LoginEvent remote() { return {"root", "pts/3", "3", "console.example", kAddress, kPid, kNow}; }

class Accounting : public testing::Test {
protected:
    void SetUp() override
    {
        setenv("TZ", "UTC", 1);
        ASSERT_NE(mkdtemp(folder_), nullptr);
        lastlog_ = std::string(folder_) + "/lastlog";
    }
    void TearDown() override
    {
        unlink(lastlog_.c_str());
        rmdir(folder_);
    }

    static void make(const std::string& path, const void* bytes = nullptr, std::size_t size = 0)
    {
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        EXPECT_EQ(write(file, bytes ? bytes : "", size), static_cast<ssize_t>(size));
        close(file);
    }
    std::string log_in(const LoginEvent& login)
    {
        testing::internal::CaptureStdout();
        update_lastlog(login, 0, false, lastlog_.c_str());
        return testing::internal::GetCapturedStdout();
    }

    char folder_[32] = "/tmp/accounting_XXXXXX";
    std::string lastlog_;
};

TEST_F(Accounting, LastLoginIsShownAndReplaced)
{
    make(lastlog_);
    EXPECT_EQ(log_in(local()), "") << "nobody was here before";
    LoginEvent second = remote();
    second.time = kNow + 3600;
    EXPECT_EQ(log_in(second), "Last login: Tue Nov 14 22:13:20 on ttyS0\n");
    EXPECT_EQ(log_in(local()), "Last login: Tue Nov 14 23:13:20 from console.example\n");
}

TEST_F(Accounting, RecordOfSomebodyElsesMakingIsShownHarmlessly)
{
    LastLogin record;
    std::memset(&record, 'x', sizeof record);
    record.time = static_cast<std::int32_t>(kNow);
    std::memcpy(record.host, "\x1b[2J\n", 5);
    make(lastlog_, &record, sizeof record);
    const std::string shown = log_in(local());
    EXPECT_EQ(shown, "Last login: Tue Nov 14 22:13:20 from ?[2J?" + std::string(250, 'x') + "\n");
}
}  // namespace
