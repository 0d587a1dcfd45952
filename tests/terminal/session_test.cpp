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

TEST_F(Session, GreetsAndWelcomes)
{
    Terminal t;
    const std::string greeting = t.until_password_asked();
    EXPECT_TRUE(greeting.ends_with("\nRouter Manager Console 1.08e01W\n please enter your password: ")) << greeting;
    t.type("admin\n");
    EXPECT_EQ(t.until("> "), "*****\n\n Welcome!\nCommand> ");
}

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
    t.until_password_asked();
    t.type(GetParam().keys);
    EXPECT_EQ(t.until("password: "), GetParam().printed);
    t.type("admin\x03");
    EXPECT_EQ(t.until("> "), "*****^C\n\n Welcome!\nCommand> ");
}
INSTANTIATE_TEST_SUITE_P(Attempts, PasswordAttempt, testing::ValuesIn(kAttempts),
                         [](const auto& attempt) { return attempt.param.name; });

TEST_F(Session, CompletesShowsAndChanges)
{
    Terminal t;
    t.log_in();
    t.type("sh ");
    EXPECT_EQ(t.until("w "), "show ");
    t.type("system\n");
    EXPECT_TRUE(t.until("Command> ").starts_with("system\n   System Name: "));

    t.type("set system name lab-ap\n");
    EXPECT_EQ(t.until("Command> "), "set system name lab-ap\nSystem Name: lab-ap\nCommand> ");
    t.type("show system\n");
    EXPECT_TRUE(t.until("Command> ").starts_with("show system\n   System Name: lab-ap "));
}

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

TEST_F(Session, ChangedPromptComesWithTheNextLogin)
{
    Terminal t;
    t.log_in();
    t.type("set prompt edge\n");
    EXPECT_EQ(t.until("> "),
              "set prompt edge\nSet prompt to edge success, next time you login will take effect\nCommand> ");
    Terminal next;
    next.until_password_asked();
    next.type("admin\n");
    EXPECT_EQ(next.until("> "), "*****\n\n Welcome!\nedge> ");
}

TEST_F(Session, TwoConsolesSeeOneDevice)
{
    Terminal one, other;
    one.log_in();
    other.log_in();
    one.type("set system location attic\n");
    one.until("System location: attic\nCommand> ");
    other.type("show system\n");
    EXPECT_NE(other.until("Command> ").find("System location:         attic\n"), std::string::npos);
    one.type("logout\n");
    EXPECT_EQ(one.wait_exit(), 0);
    other.type("set system location cellar\n");
    other.until("System location: cellar\nCommand> ");
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
