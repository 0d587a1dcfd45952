#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "commands/password.h"
#include "commands/service_stand_in.h"
#include "service/client.h"
#include "service/fields/password.h"
#include "support/written.h"

namespace {
// The service: one password, which 11 compares and 301 replaces.
class ChangePassword : public testing::Test {
protected:
    void SetUp() override
    {
        service_stand_in::reset([this](ComParam& record, std::string&) {
            const bool right = password_record::password.get(record) == password;
            if (right && record::code.get(record) == code::kChangePassword)
                password = password_record::newPassword.get(record);
            record::status.set(record, right ? 0 : std::uint32_t{kStatusWrongPassword});
            return std::uint32_t{0};
        });
        std::memset(&usrComParam, 0, sizeof usrComParam);
        forget_passwords();
    }

    void answer(std::string text)
    {
        call.parms.value[call.parms.count] = reinterpret_cast<Word>(text.data());
        written_by([this] { CliChangePassword(call, 0); });
    }

    static bool nothing_is_remembered()
    {
        const auto zero = [](auto byte) { return byte == 0; };
        const unsigned char* from = usrComParam.bytes + password_record::password.at.offset;
        const unsigned char* to = usrComParam.bytes + password_record::newPassword.at.end();
        return std::ranges::all_of(g_chPWD, zero) && std::ranges::all_of(g_chNewPWD, zero) &&
               std::all_of(from, to, zero);
    }

    std::string password = "admin";
    ActionBlock call{};
};

TEST_F(ChangePassword, ForgetsBoth)
{
    answer("");
    for (const char* each : {"admin", "fifteen-letters", "fifteen-letters"}) answer(each);
    EXPECT_EQ(password, "fifteen-letters");
    EXPECT_EQ(service_stand_in::codes_sent(),
              (std::vector<std::uint16_t>{code::kCheckPassword, code::kChangePassword}));
    EXPECT_TRUE(nothing_is_remembered());
}

TEST(PasswordChecksum, IsTheUnreflectedCrcThatEndsUninverted)
{
    EXPECT_EQ(encrypt_passwd(""), 0xFFFFFFFFu);
    EXPECT_EQ(encrypt_passwd("123456789"), 0x0376E6E7u);
    EXPECT_EQ(encrypt_passwd("\xff\x80"), 0x2704A05Au);  // bytes above 127 count as bytes
}
}  // namespace
