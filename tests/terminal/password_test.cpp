// Changing the console password: what an operator sees, what nobody may see, and which password counts afterwards.
#include "terminal/dialogue_session.h"

namespace {
constexpr char kAskOld[] = " please enter old password: ", kAskNew[] = " please enter new password: ",
               kAskAgain[] = " please re-enter new password: ";
constexpr char kChanged[] = " Password has been successfully changed\nCommand> ";
constexpr char kFresh[] = "Fresh-secret-15";  // the longest there is
const std::string kTooLong = error_line("Passwords are 6 - 15 characters");
const std::string kDiffers = error_line("The new and confirmed passwords do not match.");

class ChangePassword : public DialogueSession {
protected:
    // Unseen answers: a star for each character, then exactly what is printed.
    void answer(std::initializer_list<Exchange> exchanges)
    {
        for (const auto& [secret, printed] : exchanges) {
            t.type(secret + '\n');
            EXPECT_EQ(t.until(printed), std::string(secret.size(), '*') + '\n' + printed);
        }
    }
    static void expect_login(const std::string& password, const char* printed = "Welcome!")
    {
        Terminal other;
        other.until_password_asked();
        other.type(password + '\n');
        EXPECT_NO_THROW(other.until(printed)) << "with " << password;
    }
};

TEST_F(ChangePassword, CountsFromTheNextLoginAndIsNeverShown)
{
    play({"change password", kAskOld});
    answer({{"nimda", kAskOld},
            {"", kAskOld},
            {"admin", kAskNew},
            {"0123456789abcdef", kTooLong + kAskNew},
            {kFresh, kAskAgain},
            {"0123456789abcdef", kTooLong},  // no question again here
            {"Fresh-secret-14", kDiffers},
            {"fresh", kDiffers},
            {"Fresh", kChanged}});  // a leading part confirms
    t.type("\x10");                 // the line before: the answers are no lines of the history
    t.until_line("Command> change password");
    t.type(std::string("\x10\x10\x0e") + kCtrlC);
    t.until(kPrompt);
    for (const std::string& shown : {t.screen().text(), Service::log()}) {
        EXPECT_EQ(shown.find("Fresh"), shown.npos) << shown;
        EXPECT_EQ(shown.find("admin"), shown.npos) << shown;
    }
    for (const char* wrong : {"admin", "Fresh"}) expect_login(wrong, "Incorrect password.");
    service.kill();
    service.start();
    expect_login(kFresh);
}

TEST_F(ChangePassword, AServiceThatGoesAwayMidwayChangesNothing)
{
    play({"change password", kAskOld});
    service.stop();
    answer({{"admin", kAskOld}});  // nobody who says that it is right
    service.start();
    answer({{"admin", kAskNew}, {kFresh, kAskAgain}});
    service.stop();
    answer({{kFresh, std::string("\aThe configuration service is not running\n") + kPrompt}});
    service.start();
    expect_login("admin");
}
}  // namespace
