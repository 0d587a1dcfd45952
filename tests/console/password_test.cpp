#include <algorithm>

#include "cli/edit_context.h"
#include "commands/service_stand_in.h"
#include "console/password.h"
#include "console/typed_input.h"
#include "platform/ipc_client.h"
#include "service/client.h"
#include "service/codes.h"
#include "service/fields/password.h"
#include "service/status.h"

namespace {
constexpr char kBanner[] = "\r\nRouter Manager Console 1.08e01W\n";
constexpr char kQuestion[] = " please enter your password: ";
constexpr char kWelcomed[] = "\r\n\n Welcome!\nCommand> ";
constexpr char kRefused[] = "\n Error: Incorrect password.\a\n please enter your password: ";
constexpr char kTooLong[] = "\n Error: Password too long.\a\n please enter your password: ";

class PasswordStep : public TypedInput {
protected:
    void SetUp() override
    {
        TypedInput::SetUp();
        service_stand_in::reset([this](ComParam& record, std::string&) {
            asked.push_back(password_record::password.get(record));
            record::status.set(record, asked.back() == "admin" ? 0 : std::uint32_t{kStatusWrongPassword});
            return exchange;
        });
        slot.state = kLoginNeeded;
    }

    // Behind the banner and the first question.
    std::string step(std::string_view keys)
    {
        type(keys);
        const std::string shown = serve();
        const std::string opening = std::string(kBanner) + kQuestion;
        EXPECT_TRUE(shown.starts_with(opening)) << shown;
        return shown.substr(opening.size());
    }

    static bool nothing_is_remembered(const Session& of)
    {
        const auto zero = [](auto byte) { return byte == 0; };
        const unsigned char* fields = usrComParam.bytes + password_record::password.at.offset;
        return std::ranges::all_of(of.edit->line.text, zero) &&
               std::all_of(fields, fields + password_record::password.at.width, zero);
    }

    std::vector<std::string> asked;
    std::uint32_t exchange = 0;
};

TEST_F(PasswordStep, AsksAgainAfterAWrongOneAndForgetsIt)
{
    EXPECT_EQ(step("nimda\nadmin\n"), std::string("*****") + kRefused + "*****" + kWelcomed);
    EXPECT_EQ(asked, (std::vector<std::string>{"nimda", "admin"}));

    slot.state = kLoginNeeded;
    EXPECT_EQ(step("\n"), kRefused) << "the empty password is asked for too";
    EXPECT_EQ(asked.back(), "");
    EXPECT_TRUE(nothing_is_remembered(slot));
}

TEST_F(PasswordStep, SubmitsOnCtrlC)
{
    EXPECT_EQ(step("admin\x03"), std::string("*****^C") + kWelcomed);
    EXPECT_EQ(slot.state, kLoggedIn);
}

TEST_F(PasswordStep, DropsAPasswordThatGrowsTooLong)
{
    const std::string fifteen(15, 'a');
    EXPECT_EQ(step(fifteen + "badmin\n"), std::string(15, '*') + kTooLong + "*****" + kWelcomed)
        << "the sixteenth character is dropped with the rest";
    EXPECT_EQ(asked, std::vector<std::string>{"admin"});
}

TEST_F(PasswordStep, PassesTheNoticeOnAndForgetsIt)
{
    service_stand_in::reset([](ComParam& record, std::string&) {
        EXPECT_STREQ(password_record::notice.get(record), "") << "what an earlier answer left there is no notice";
        password_record::notice.set(record, "The saved configuration could not be read and is kept as "
                                            "config.rejected-1.json.");
        return 0u;
    });
    password_record::notice.set(usrComParam, "left over");
    EXPECT_EQ(step("admin\n"),
              "*****\r\n\n Welcome!\n Warning: The saved configuration could not be read and is kept as\n"
              " config.rejected-1.json.\a\nCommand> ");
    EXPECT_STREQ(password_record::notice.get(usrComParam), "");
}

TEST_F(PasswordStep, RefusesWhileTheServiceCannotBeAsked)
{
    exchange = IPC_NOT_RUNNING;
    EXPECT_EQ(step("admin\n"), std::string("*****") + kRefused);
    EXPECT_EQ(slot.state, kEnteringPassword);
    EXPECT_TRUE(nothing_is_remembered(slot));
}
}  // namespace
