// A session from the banner to the last word: password, commands, what lasts and what the line looks like afterwards.
#include <csignal>
#include <gtest/gtest.h>

#include "service/codes.h"
#include "service/fields/management.h"
#include "support/fake_service.h"
#include "support/service.h"
#include "support/terminal.h"
#include "terminal/attributes.h"

namespace {
class Session : public testing::Test {
protected:
    Service service;
};

struct Attempt {
    const char* name;
    const char* keys;
    const char* printed;
};
constexpr Attempt kAttempts[] = {
    {"WrongIsRefused", "wrong\n", "*****\n Error: Incorrect password.\a\n please enter your password: "},
    {"EmptyIsRefused", "\n", "\n Error: Incorrect password.\a\n please enter your password: "},
    {"PrefixIsRefused", "adm\n", "***\n Error: Incorrect password.\a\n please enter your password: "},
    {"CtrlCSubmits", "wrong\x03", "*****^C\n Error: Incorrect password.\a\n please enter your password: "},
    {"SixteenthCharacterStartsOver", "0123456789abcdef",
     "***************\n Error: Password too long.\a\n please enter your password: "},
};
class PasswordAttempt : public Session, public testing::WithParamInterface<Attempt> {};
TEST_P(PasswordAttempt, CanBeMadeAgain)
{
    Terminal t;
    const std::string greeting = t.until_password_asked();
    EXPECT_TRUE(greeting.ends_with("\nRouter Manager Console 1.08e01W\n please enter your password: ")) << greeting;
    t.type(GetParam().keys);
    EXPECT_EQ(t.until("password: "), GetParam().printed);
    t.type("admin\x03");
    EXPECT_EQ(t.until("> "), "*****^C\n\n Welcome!\nCommand> ");
}
INSTANTIATE_TEST_SUITE_P(Attempts, PasswordAttempt, testing::ValuesIn(kAttempts),
                         [](const auto& attempt) { return attempt.param.name; });

TEST_F(Session, LogoutGivesTheLineBack)
{
    Terminal t;
    t.log_in();
    EXPECT_FALSE(t.attributes().c_lflag & (ICANON | ECHO));
    t.type("logout\n");
    EXPECT_EQ(t.until("Bye!\n"), "logout\n\a Logged out, Good-Bye!\n");
    EXPECT_EQ(t.wait_exit(), 0) << t.screen().text();
    EXPECT_TRUE(same_attributes(t.attributes(), t.found()));
}

// The configured time-out counts minutes; the signal of the alarm stands for their passing.
TEST(SessionTimeout, EndsTheSessionAndGivesTheLineBack)
{
    FakeService service([](const ComParam& request) {
        ComParam answer = request;
        if (record::code.get(request) == code::kReadManagement) management_record::sessionTimeout.set(answer, 5);
        return plain_reply(answer);
    });
    Terminal t;
    t.until_password_asked();
    t.process().signal(SIGALRM);
    t.until("Login timed out after 300 seconds\n");
    EXPECT_EQ(t.wait_exit(), 0) << t.screen().text();
    EXPECT_TRUE(same_attributes(t.attributes(), t.found()));
}
}  // namespace
