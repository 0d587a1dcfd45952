#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "login/environment.h"

namespace {
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
