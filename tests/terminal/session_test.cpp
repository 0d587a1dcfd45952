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
TEST(Logout, GivesTheLineBack)
{
    Service service;
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
