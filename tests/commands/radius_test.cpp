#include <cstring>

#include "commands/command_session.h"
#include "commands/radius.h"
#include "platform/ipc_client.h"
#include "service/fields/address.h"
#include "service/fields/radius.h"

namespace {
using namespace radius_record;

constexpr std::uint32_t kAddPrimary = 3, kDisablePrimary = 22, kEnablePrimary = 31, kSetReattempt = 55, kSetRetry = 56,
                        kEnableMac = 57, kDisableMac = 58, kShowAll = 91;
constexpr char kIpQuestion[] = " enter server IP (Unspecified): ",
               kPortQuestion[] = " enter port number (1812, 1-65535): ", kSecretQuestion[] = " enter shared secret: ",
               kEnableQuestion[] = " enable primary server (yes, yes/no): ";

// The service: two entries, each written whole; any request can be made to fail.
class RadiusCommands : public testing::Test {
protected:
    RadiusCommands()
    {
        for (const char* each : {"primary", "secondary"})
            fill(entries[each], name, each, port, 1812, retries, 2, reattempt, 60);
        service_stand_in::reset([this](ComParam& record, std::string&) {
            const auto asked = static_cast<std::uint16_t>(record::code.get(record));
            asks.push_back(std::to_string(asked));
            if (asked != code::kWriteRadiusReattempt && asked != code::kReadAddress)
                asks.back() += std::string(" ") + name.get(record);
            if (const auto refused = refusals.find(asks.back()); refused != refusals.end()) {
                record::status.set(record, refused->second);
                return refused->second >= IPC_NOT_RUNNING ? refused->second : 0;
            }
            carry_out(asked, record);
            record::status.set(record, 0);
            return std::uint32_t{0};
        });
        std::memset(&usrComParam, 0, sizeof usrComParam);
    }

    void carry_out(std::uint16_t asked, ComParam& record)
    {
        if (asked == code::kReadRadius) record = entries.at(name.get(record));
        if (asked == code::kWriteRadius) entries.at(name.get(record)) = record;
        if (asked == code::kReadAddress)
            fill(record, address_record::address, 0xC0A80101, address_record::netmask, 0xFFFFFF00);
    }
    std::string run(std::uint32_t cmdId, Word parm = 0)
    {
        asks.clear();
        return RunningAction(cmdId).number(parm).run();
    }
    static bool nothing_is_remembered()
    {
        return secret.length(usrComParam) + secret.length(wizardParam) + secret.length(oldWizardParam) == 0;
    }

    std::map<std::string, ComParam> entries;
    ComParam& primary = entries["primary"];
    ComParam& secondary = entries["secondary"];
    std::map<std::string, std::uint32_t> refusals;  // by request; from IPC_NOT_RUNNING on the exchange fails
    std::vector<std::string> asks;                  // code and name of each request
    RunningAction add{kAddPrimary};
};

TEST_F(RadiusCommands, AddAsksWritesAppliesAndShows)
{
    EXPECT_EQ(add.run(), kIpQuestion);
    EXPECT_EQ(add.answer("10.0.0.9"), kPortQuestion);
    EXPECT_EQ(add.answer(""), kSecretQuestion);
    EXPECT_EQ(add.answer("two words"), kEnableQuestion);
    EXPECT_EQ(add.answer(""), "   RADIUS Server: primary\n   State: Enabled\n   Server IP: 10.0.0.9\n"
                              "   Port Number: 1812\n   Shared Secret: two words\n");
    EXPECT_EQ(asks, (std::vector<std::string>{"370 primary", "1805", "371 primary", "373 primary", "370 primary"}));
    EXPECT_TRUE(nothing_is_remembered());

    asks.clear();
    RunningAction same{kAddPrimary};
    EXPECT_EQ(same.play({"", "", "two words", "yes"}),
              std::string(" enter server IP (10.0.0.9): ") + kPortQuestion + kSecretQuestion + kEnableQuestion);
    EXPECT_EQ(asks, std::vector<std::string>{"370 primary"}) << "nothing changed";
}

TEST_F(RadiusCommands, AddRefusesAnswers)
{
    add.run();
    EXPECT_EQ(add.answer("127.0.0.1"), " Error: IP Address can not be the Loopback\a\n" + std::string(kIpQuestion));
    add.answer("");
    EXPECT_EQ(add.answer("65536"), " Error: Port number should be 1 to 65535\a\n" + std::string(kPortQuestion));
    EXPECT_EQ(add.answer("65535"), kSecretQuestion);
    EXPECT_EQ(add.answer(""), " Enter shared secret string length < 64 \r\n" + std::string(kSecretQuestion));
    EXPECT_EQ(add.answer(std::string(64, 's')),
              " Input secret string length > 64 \r\n" + std::string(kSecretQuestion) + kEnableQuestion);
    add.answer("no");
    EXPECT_EQ(port.get(primary), 65535);
    EXPECT_EQ(secret.length(primary), 0u) << "the secret that was too long is not stored";
    EXPECT_EQ(enabled.get(primary), 0);
}

TEST_F(RadiusCommands, ValuesForBothHaveLimits)
{
    EXPECT_EQ(run(kSetRetry, 5), "Radius server reattempt is 5 times.\n");
    EXPECT_EQ(asks, (std::vector<std::string>{"370 primary", "370 secondary", "371 primary", "371 secondary"}));
    EXPECT_EQ(run(kSetReattempt, 60), "Radius server reattempt is 60 minutes.\n");
    EXPECT_EQ(asks, std::vector<std::string>{"372"});
    for (const auto& [command, value] :
         {std::pair{kSetRetry, 0u}, {kSetRetry, 6u}, {kSetReattempt, 4u}, {kSetReattempt, 61u}}) {
        EXPECT_TRUE(run(command, value).starts_with("Radius server reattempt should be between ")) << value;
        EXPECT_TRUE(asks.empty()) << value;
    }
}

// Which failure is examined, and what is asked all the same.
struct FailureCase {
    const char* name;
    std::uint32_t cmdId;
    const char* request;
    std::uint32_t failure;
    const char* screen;
    std::size_t requests;
};
constexpr char kRefused[] = "\aA wireless or RADIUS setting is not acceptable\n";
constexpr char kSilent[] = "\aThe configuration service does not answer\n";
// clang-format off
constexpr FailureCase kFailures[] = {
    {"EnableRead",    kEnablePrimary,  "370 primary",   kStatusValueRefused, kRefused,                               1},
    {"EnableApply",   kEnablePrimary,  "373 primary",   kStatusValueRefused, kRefused,                               3},
    {"DisableRead",   kDisablePrimary, "370 primary",   IPC_NO_ANSWER,       "\aThe configuration service does not answer\nPrimary radius server is disabled.\n", 3},
    {"DisableWrite",  kDisablePrimary, "371 primary",   IPC_NO_ANSWER,       "Primary radius server is disabled.\n", 3},
    {"DisableApply",  kDisablePrimary, "373 primary",   IPC_NO_ANSWER,       kSilent,                                3},
    {"MacOnSecond",   kEnableMac,      "371 secondary", kStatusValueRefused, kRefused,                               4},
    {"MacOffSecond",  kDisableMac,     "371 secondary", kStatusValueRefused, "RADIUS MAC access control is disable\n", 4},
    {"ShowAllSecond", kShowAll,        "370 secondary", kStatusValueRefused, "\aThe request failed, no reason was given\n", 2},
};
// clang-format on
TEST_F(RadiusCommands, Failures)
{
    for (const FailureCase& c : kFailures) {
        refusals = {{c.request, c.failure}};
        EXPECT_EQ(run(c.cmdId), c.screen) << c.name;
        EXPECT_EQ(asks.size(), c.requests) << c.name;
    }
}
}  // namespace
