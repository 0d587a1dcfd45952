// Changing the console password: what an operator sees, what nobody may see, and which password counts afterwards.
#include "terminal/dialogue_session.h"

namespace {
constexpr char kAskOld[] = " please enter old password: ";
constexpr char kAskNew[] = " please enter new password: ";
constexpr char kAskAgain[] = " please re-enter new password: ";
constexpr char kChanged[] = " Password has been successfully changed\nCommand> ";
constexpr char kFresh[] = "Fresh-secret-15";  // the longest there is
const std::string kTooLong = error_line("Passwords are 6 - 15 characters");
const std::string kDiffers = error_line("The new and confirmed passwords do not match.");

class ChangePassword : public DialogueSession {
protected:
    // An unseen answer: a star for each character, then exactly `printed`.
    void answer(const std::string& secret, const std::string& printed)
    {
        t.type(secret + '\n');
        EXPECT_EQ(t.until(printed), std::string(secret.size(), '*') + '\n' + printed);
    }
    void begin()
    {
        play({"change password", kAskOld});
        answer("admin", kAskNew);
    }
    static void expect_refused(const std::string& password) { try_to_log_in(password, "Incorrect password."); }
    static void expect_welcome(const std::string& password) { try_to_log_in(password, "Welcome!"); }

private:
    static void try_to_log_in(const std::string& password, const char* printed)
    {
        Terminal other;
        other.until_password_asked();
        other.type(password + '\n');
        EXPECT_NO_THROW(other.until(printed)) << "with " << password;
    }
};

TEST_F(ChangePassword, CountsFromTheNextLoginAndIsNeverShown)
{
    begin();
    answer(kFresh, kAskAgain);
    answer(kFresh, kChanged);
    t.type("\x10");  // the line before: the answers are no lines of the history
    t.until_line("Command> change password");
    t.type(std::string("\x10\x10\x0e") + kCtrlC);
    t.until(kPrompt);
    for (const std::string& shown : {t.screen().text(), Service::log()}) {
        EXPECT_EQ(shown.find("Fresh"), shown.npos) << shown;
        EXPECT_EQ(shown.find("admin"), shown.npos) << shown;
    }
    expect_refused("admin");
    expect_welcome(kFresh);
}

TEST_F(ChangePassword, SurvivesARestartOnceItIsSaved)
{
    begin();
    answer(kFresh, kAskAgain);
    answer(kFresh, kChanged);
    service.kill();
    service.start();
    expect_welcome(kFresh);
    EXPECT_EQ(run("save config"), "Save configure successfully!\n");
    service.restart_device();
    expect_welcome(kFresh);
}

TEST_F(ChangePassword, AWrongCurrentPasswordIsAskedForAgainWithoutAWord)
{
    play({"change password", kAskOld});
    answer("nimda", kAskOld);
    answer("", kAskOld);
    answer("0123456789abcdef", kTooLong + kAskOld);
    answer("admin", kAskNew);
    t.type(kCtrlC);
    EXPECT_EQ(t.until(kPrompt), std::string("^C\a\n") + kPrompt);
    expect_welcome("admin");
}

TEST_F(ChangePassword, TheNewOneHasFifteenCharactersAtMost)
{
    begin();
    answer("0123456789abcdef", kTooLong + kAskNew);
    answer(kFresh, kAskAgain);
    answer("0123456789abcdef", kTooLong);  // no question again here
    answer("Fresh-secret-14", kDiffers);
    answer(std::string(kFresh) + "6", kTooLong);
    answer("fresh", kDiffers);
    answer("Fresh", kChanged);  // a leading part confirms
    expect_welcome(kFresh);
    expect_refused("Fresh");
}

TEST_F(ChangePassword, AnEmptyOneIsRefusedByTheService)
{
    begin();
    answer("", kAskAgain);
    answer("", std::string("\aThe new password is not acceptable\n") + kPrompt);
    expect_welcome("admin");
}

TEST_F(ChangePassword, CtrlCAtAnyQuestionKeepsTheOldOne)
{
    const char* const kAnswers[] = {"admin", kFresh, kFresh};
    const char* const kQuestions[] = {kAskNew, kAskAgain};
    for (std::size_t abandoned = 0; abandoned < std::size(kAnswers); ++abandoned) {
        play({"change password", kAskOld});
        for (std::size_t i = 0; i < abandoned; ++i) answer(kAnswers[i], kQuestions[i]);
        t.type(kAnswers[abandoned]);
        t.until(std::string(std::string_view(kAnswers[abandoned]).size(), '*'));
        t.type(kCtrlC);
        EXPECT_EQ(t.until(kPrompt), std::string("^C\a\n") + kPrompt);
    }
    expect_welcome("admin");
}

TEST_F(ChangePassword, AnAnswerWithoutEndIsNeitherTakenNorShown)
{
    const std::string retry =
        "\n" + error_line("Keyword or parameter length is too long.") + " Retry : " + std::string(60, '*');
    begin();
    t.type(std::string(200, '#'));
    for (int i = 0; i < 140; ++i) t.until(retry);
    t.type("\n");
    EXPECT_EQ(t.until(kAskNew), "\n" + kTooLong + kAskNew);
    t.type("\x01\x02\x1f\x7f\xff\x05\x05"
           "secret\n");
    t.until(kAskAgain);
    answer("secret", kChanged);
    EXPECT_EQ(t.screen().text().find('#'), std::string::npos);
    expect_welcome("secret");
}

TEST_F(ChangePassword, AServiceThatGoesAwayMidwayChangesNothing)
{
    play({"change password", kAskOld});
    service.stop();
    answer("admin", kAskOld);  // nobody who says that it is right
    service.start();
    answer("admin", kAskNew);
    answer(kFresh, kAskAgain);
    service.stop();
    answer(kFresh, std::string("\aThe configuration service is not running\n") + kPrompt);
    service.start();
    expect_welcome("admin");
}
}  // namespace
