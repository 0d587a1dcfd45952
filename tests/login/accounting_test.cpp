#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utmpx.h>
#include <vector>

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
        utmp_ = std::string(folder_) + "/utmp";
        wtmp_ = std::string(folder_) + "/wtmp";
        lastlog_ = std::string(folder_) + "/lastlog";
    }
    void TearDown() override
    {
        for (const auto& path : {utmp_, wtmp_, lastlog_}) unlink(path.c_str());
        rmdir(folder_);
    }

    static void make(const std::string& path, const void* bytes = nullptr, std::size_t size = 0)
    {
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        EXPECT_EQ(write(file, bytes ? bytes : "", size), static_cast<ssize_t>(size));
        close(file);
    }
    static std::vector<utmpx> entries(const std::string& path)
    {
        struct stat found;
        if (stat(path.c_str(), &found) != 0) return {};
        EXPECT_EQ(static_cast<std::size_t>(found.st_size) % sizeof(utmpx), 0u);
        std::vector<utmpx> all(static_cast<std::size_t>(found.st_size) / sizeof(utmpx));
        const int file = open(path.c_str(), O_RDONLY);
        EXPECT_EQ(read(file, all.data(), all.size() * sizeof(utmpx)), static_cast<ssize_t>(found.st_size));
        close(file);
        return all;
    }
    static utmpx entry(short type, pid_t pid, const char* id, const char* line, const char* host = "")
    {
        utmpx made{};
        made.ut_type = type;
        made.ut_pid = pid;
        std::memcpy(made.ut_id, id, strnlen(id, sizeof made.ut_id));
        std::strcpy(made.ut_line, line);
        std::strcpy(made.ut_host, host);
        return made;
    }
    void write_login(const LoginEvent& login) { write_utmp(login, utmp_.c_str(), wtmp_.c_str()); }

    std::string log_in(const LoginEvent& login)
    {
        testing::internal::CaptureStdout();
        update_lastlog(login, 0, false, lastlog_.c_str());
        return testing::internal::GetCapturedStdout();
    }

    char folder_[32] = "/tmp/accounting_XXXXXX";
    std::string utmp_, wtmp_, lastlog_;
};

TEST_F(Accounting, EntryOfTheProcessBecomesTheUsers)
{
    const utmpx before[] = {entry(BOOT_TIME, 0, "~~", "~"), entry(LOGIN_PROCESS, 99, "S0", "ttyS0"),
                            entry(LOGIN_PROCESS, kPid, "gS0", "ttyS0")};
    make(utmp_, before, sizeof before);
    make(wtmp_);
    write_login(local());

    const auto after = entries(utmp_);
    ASSERT_EQ(after.size(), 3u);
    EXPECT_EQ(after[1].ut_type, LOGIN_PROCESS) << "another process's entry is left alone";
    EXPECT_EQ(after[2].ut_type, USER_PROCESS);
    EXPECT_STREQ(after[2].ut_user, "root");
    EXPECT_STREQ(after[2].ut_line, "ttyS0");
    EXPECT_EQ(std::string(after[2].ut_id), "gS0") << "an id that is there stays";
    EXPECT_EQ(after[2].ut_pid, kPid);
    EXPECT_EQ(after[2].ut_tv.tv_sec, kNow);

    const auto history = entries(wtmp_);
    ASSERT_EQ(history.size(), 1u);
    EXPECT_EQ(std::memcmp(&history[0], &after[2], sizeof(utmpx)), 0);
}

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
