#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <unistd.h>

#include "login/environment.h"

namespace {
using Variables = std::map<std::string, std::string>;

constexpr char kRootPath[] = "/usr/local/sbin:/usr/local/bin:/sbin:/bin:/usr/sbin:/usr/bin";

struct Case {
    const char* name;
    Variables before;
    uid_t user;
    bool keep;
    Variables after;
};
const Case kCases[] = {
    {"Emptied",
     {{"TERM", "vt100"}, {"HOME", "/evil"}, {"LD_PRELOAD", "/evil.so"}, {"MAIL", "x"}, {"PATH", "/evil"}},
     0,
     false,
     {{"HOME", "/root"},
      {"PATH", kRootPath},
      {"SHELL", "/bin/sh"},
      {"TERM", "vt100"},
      {"MAIL", "/var/mail/root"},
      {"LOGNAME", "root"}}},
    {"KeptButForWhatIsTheUsers",
     {{"TERM", "vt100"}, {"HOME", "/mine"}, {"EXTRA", "1"}, {"MAIL", "x"}, {"PATH", "/evil"}, {"LOGNAME", "me"}},
     0,
     true,
     {{"HOME", "/mine"},
      {"PATH", kRootPath},
      {"SHELL", "/bin/sh"},
      {"TERM", "vt100"},
      {"MAIL", "x"},
      {"LOGNAME", "root"},
      {"EXTRA", "1"}}},
    {"NoTerminalType",
     {},
     7,
     false,
     {{"HOME", "/root"},
      {"PATH", "/usr/local/bin:/bin:/usr/bin"},
      {"SHELL", "/bin/sh"},
      {"TERM", "dumb"},
      {"MAIL", "/var/mail/root"},
      {"LOGNAME", "root"}}},
};
class Environment : public testing::TestWithParam<Case> {};
TEST_P(Environment, IsTheUsers)
{
    clearenv();
    for (const auto& [name, value] : GetParam().before) setenv(name.c_str(), value.c_str(), 1);
    char home[] = "/root", shell[] = "/bin/sh";
    passwd user{};
    user.pw_uid = GetParam().user;
    user.pw_dir = home;
    user.pw_shell = shell;

    set_environment(user, "root", GetParam().keep);

    Variables after;
    for (char** variable = environ; *variable; ++variable) {
        const std::string text = *variable;
        after[text.substr(0, text.find('='))] = text.substr(text.find('=') + 1);
    }
    EXPECT_EQ(after, GetParam().after);
}
INSTANTIATE_TEST_SUITE_P(Logins, Environment, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });

TEST(Environment, MailOfANameThatIsTooLongIsNotSet)
{
    clearenv();
    char home[] = "/", shell[] = "/bin/sh";
    passwd user{};
    user.pw_dir = home;
    user.pw_shell = shell;
    set_environment(user, std::string(4096, 'n').c_str(), false);
    EXPECT_EQ(std::getenv("MAIL"), nullptr);
}

TEST(QuietLogin, IsAskedForByAReadableFileInTheHome)
{
    char home[] = "/tmp/quiet_login_XXXXXX";
    ASSERT_NE(mkdtemp(home), nullptr);
    passwd user{};
    user.pw_dir = home;
    user.pw_uid = geteuid();
    user.pw_gid = getegid();
    EXPECT_FALSE(wants_quiet_login(user));

    const std::string path = std::string(home) + "/.hushlogin";
    std::fclose(std::fopen(path.c_str(), "w"));
    EXPECT_TRUE(wants_quiet_login(user));
    EXPECT_EQ(geteuid(), user.pw_uid);

    std::string longHome = home;
    while (longHome.size() < 4096) longHome += "/.";
    user.pw_dir = longHome.data();
    EXPECT_FALSE(wants_quiet_login(user));

    unlink(path.c_str());
    rmdir(home);
}

// A home that only root can look into is no reason to look as root.
TEST(QuietLogin, IsLookedForAsTheUser)
{
    if (geteuid() != 0) GTEST_SKIP() << "needs root";
    char home[] = "/tmp/quiet_login_XXXXXX";
    ASSERT_NE(mkdtemp(home), nullptr);
    const std::string path = std::string(home) + "/.hushlogin";
    std::fclose(std::fopen(path.c_str(), "w"));
    passwd user{};
    user.pw_dir = home;
    user.pw_uid = 65534;
    user.pw_gid = 65534;
    EXPECT_FALSE(wants_quiet_login(user));
    EXPECT_EQ(geteuid(), 0u);
    EXPECT_EQ(getegid(), 0u);
    unlink(path.c_str());
    rmdir(home);
}
}  // namespace
