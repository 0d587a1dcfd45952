// Commands that hand the terminal over to another program, as an operator sees them.
#include "terminal/attributes.h"
#include "terminal/dialogue_session.h"

namespace {
class EngineeringCommands : public DialogueSession {
protected:
    // Keys that arrive while the line changes hands would be taken as neither side wants them.
    bool line_is_raw(bool raw) const
    {
        for (const Deadline deadline(kPatience); !(t.attributes().c_lflag & ICANON) != raw;)
            if (deadline.passed()) return false;
        return true;
    }
    void enter_shell()
    {
        t.type("z_shell\n");
        t.until("\"exit\" returns to the console\n");
        ASSERT_TRUE(line_is_raw(false));
    }
};

TEST_F(EngineeringCommands, TheShellGetsTheLineAsItWasFound)
{
    enter_shell();
    t.type("stty -echo; PS1='re''ady> '\n");
    t.until("ready> ");
    EXPECT_EQ(t.attributes().c_cc[VINTR], t.found().c_cc[VINTR]);
    t.type("sh -c 'echo sleeping; exec sleep 100'\n");
    t.until("sleeping\n");
    t.send("\x03");  // a signal here, and for the sleeping program alone
    t.until("ready> ");
    t.type("echo still here; exit 4\n");
    EXPECT_EQ(t.until(kPrompt), "still here\nCommand> ");
    ASSERT_TRUE(line_is_raw(true));
    EXPECT_FALSE(t.attributes().c_lflag & ECHO);
    EXPECT_EQ(run("show log level").substr(0, 16), "System log level");
    t.type("logout\n");
    EXPECT_EQ(t.wait_exit(), 0);
    EXPECT_TRUE(same_attributes(t.attributes(), t.found()));
}

TEST_F(EngineeringCommands, AShellThatIsKilledGivesTheLineBack)
{
    enter_shell();
    t.type("stty raw -echo; kill -9 $$\n");
    t.until("Ended by signal 9\n");
    t.until(kPrompt);
    ASSERT_TRUE(line_is_raw(true));
    t.type("logout\n");
    EXPECT_EQ(t.wait_exit(), 0);
    EXPECT_TRUE(same_attributes(t.attributes(), t.found()));
}

}  // namespace
