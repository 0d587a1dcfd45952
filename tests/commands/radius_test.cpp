#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <map>

#include "commands/running_action.h"
#include "commands/service_stand_in.h"
#include "platform/ipc_client.h"
#include "service/client.h"
#include "service/fields/address.h"
#include "service/fields/radius.h"

namespace {
using namespace radius_record;

constexpr std::uint32_t kAddPrimary = 3, kAddSecondary = 4, kDeletePrimary = 15, kDeleteSecondary = 16,
                        kDisablePrimary = 22, kDisableSecondary = 23, kEnablePrimary = 31, kEnableSecondary = 32,
                        kSetReattempt = 55, kSetRetry = 56, kEnableMac = 57, kDisableMac = 58, kShowAll = 91,
                        kShowPrimary = 92, kShowSecondary = 93;

constexpr char kIpQuestion[] = " enter server IP (Unspecified): ",
               kPortQuestion[] = " enter port number (1812, 1-65535): ";
constexpr char kSecretQuestion[] = " enter shared secret: ",
               kEnableQuestion[] = " enable primary server (yes, yes/no): ";

// The service: two entries, each written whole; any request can be made to fail.
class RadiusCommands : public testing::Test {
protected:
    RadiusCommands()
    {
        for (const char* each : {"primary", "secondary"}) {
            name.set(entries[each], each);
            port.set(entries[each], 1812);
            retries.set(entries[each], 2);
            reattempt.set(entries[each], 60);
        }
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
        if (asked == code::kWriteRadiusReattempt) minutes = reattempt.get(record);
        if (asked == code::kReadAddress) {
            address_record::address.set(record, 0xC0A80101);
            address_record::netmask.set(record, 0xFFFFFF00);
        }
    }
    std::string run(std::uint32_t cmdId)
    {
        asks.clear();
        return RunningAction(cmdId).run();
    }
    static bool nothing_is_remembered()
    {
        return std::ranges::all_of(std::initializer_list<const ComParam*>{&usrComParam, &wizardParam, &oldWizardParam},
                                   [](const ComParam* record) { return secret.length(*record) == 0; });
    }

    std::map<std::string, ComParam> entries;
    ComParam& primary = entries["primary"];
    ComParam& secondary = entries["secondary"];
    std::map<std::string, std::uint32_t> refusals;  // by request; from IPC_NOT_RUNNING on the exchange fails
    std::vector<std::string> asks;                  // code and name of each request
    std::uint16_t minutes = 0;
    RunningAction add{kAddPrimary};
};

TEST_F(RadiusCommands, AddAsksWritesAppliesAndShows)
{
    EXPECT_EQ(add.run(), kIpQuestion);
    EXPECT_EQ(add.answer("10.0.0.9"), kPortQuestion);
    EXPECT_EQ(add.answer(""), kSecretQuestion);
    EXPECT_EQ(add.answer("two words"), kEnableQuestion);
    EXPECT_EQ(add.answer(""), "   RADIUS Server: primary\n"
                              "   State: Enabled\n"
                              "   Server IP: 10.0.0.9\n"
                              "   Port Number: 1812\n"
                              "   Shared Secret: two words\n");
    EXPECT_EQ(asks, (std::vector<std::string>{"370 primary", "1805", "371 primary", "373 primary", "370 primary"}));
    EXPECT_TRUE(nothing_is_remembered());

    asks.clear();
    RunningAction same{kAddPrimary};
    EXPECT_EQ(same.run(), " enter server IP (10.0.0.9): ");
    EXPECT_EQ(same.answer(""), kPortQuestion);
    same.answer("");
    same.answer("two words");
    EXPECT_EQ(same.answer("yes"), "") << "nothing changed";
    EXPECT_EQ(asks, std::vector<std::string>{"370 primary"});
}

TEST_F(RadiusCommands, AddRefusesAnswers)
{
    add.run();
    EXPECT_EQ(add.answer("10.0.0"), " Error: Invalid IP address\a\n" + std::string(kIpQuestion));
    EXPECT_EQ(add.answer("127.0.0.1"), " Error: IP Address can not be the Loopback\a\n" + std::string(kIpQuestion));
    add.answer("");
    EXPECT_EQ(add.answer("65536"), " Error: Port number should be 1 to 65535\a\n" + std::string(kPortQuestion));
    EXPECT_EQ(add.answer("65535"), kSecretQuestion);
    EXPECT_EQ(add.answer(""), " Enter shared secret string length < 64 \r\n" + std::string(kSecretQuestion));
    EXPECT_EQ(add.answer(std::string(64, 's')),
              " Input secret string length > 64 \r\n" + std::string(kSecretQuestion) + kEnableQuestion);
    EXPECT_EQ(add.answer("maybe"),
              " Error: Action confirm word must be \"yes\" or \"no\"\a\n" + std::string(kEnableQuestion));
    add.answer("no");
    EXPECT_EQ(port.get(primary), 65535);
    EXPECT_EQ(secret.length(primary), 0u) << "the secret that was too long is not stored";
    EXPECT_EQ(enabled.get(primary), 0);
}

TEST_F(RadiusCommands, TheLongestSecretIsStored)
{
    RunningAction second{kAddSecondary};
    second.play({"", "", std::string(63, 's').c_str()});
    EXPECT_EQ(second.answer("n").substr(0, 30), "   RADIUS Server: secondary\n  ");
    EXPECT_EQ(secret.get(secondary), std::string(63, 's'));
    EXPECT_EQ(secret.length(primary), 0u);
}

TEST_F(RadiusCommands, AddReportsWhatFails)
{
    refusals["370 primary"] = IPC_NOT_RUNNING;
    EXPECT_EQ(add.run(), "\aThe configuration service is not running\n");
    EXPECT_EQ(add.call.stage, 0u);

    refusals = {{"371 primary", kStatusValueRefused}};
    RunningAction refused{kAddPrimary};
    refused.play({"", "", "s"});
    EXPECT_EQ(refused.answer(""), "\aA wireless or RADIUS setting is not acceptable\n"
                                  "   RADIUS Server: primary\n   State: Disabled\n   Server IP: 0.0.0.0\n"
                                  "   Port Number: 1812\n   Shared Secret: \n");
    refusals = {{"373 primary", kStatusSystemFailed}};
    RunningAction notApplied{kAddPrimary};
    notApplied.play({"", "", "s"});
    EXPECT_EQ(notApplied.answer(""), "\aThe system refused the change\n");
}

struct EntryCase {
    std::uint32_t enable, disable, remove;
    const char *name, *title;
};
constexpr EntryCase kEntries[] = {{kEnablePrimary, kDisablePrimary, kDeletePrimary, "primary", "Primary"},
                                  {kEnableSecondary, kDisableSecondary, kDeleteSecondary, "secondary", "Secondary"}};

TEST_F(RadiusCommands, EntriesAreEnabledDisabledAndDeleted)
{
    for (const EntryCase& c : kEntries) {
        const std::string key = c.name, title = c.title;
        const std::vector<std::string> wanted{"370 " + key, "371 " + key, "373 " + key};
        EXPECT_EQ(run(c.enable), title + " radius server is enabled.\n");
        EXPECT_EQ(asks, wanted);
        EXPECT_EQ(enabled.get(entries[key]), 1);
        EXPECT_EQ(run(c.disable), title + " radius server is disabled.\n");
        EXPECT_EQ(asks, wanted);
        EXPECT_EQ(enabled.get(entries[key]), 0);
        EXPECT_EQ(run(c.remove), key + " radius server is deleted\r\n ");
        EXPECT_EQ(asks, std::vector<std::string>{"375 " + key});
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
    {"EnableRead",       kEnablePrimary,  "370 primary",   kStatusValueRefused, kRefused,                               1},
    {"EnableWrite",      kEnablePrimary,  "371 primary",   kStatusValueRefused, kRefused,                               2},
    {"EnableApply",      kEnablePrimary,  "373 primary",   kStatusValueRefused, kRefused,                               3},
    {"DisableRead",      kDisablePrimary, "370 primary",   IPC_NO_ANSWER,       "\aThe configuration service does not answer\nPrimary radius server is disabled.\n", 3},
    {"DisableWrite",     kDisablePrimary, "371 primary",   IPC_NO_ANSWER,       "Primary radius server is disabled.\n", 3},
    {"DisableApply",     kDisablePrimary, "373 primary",   IPC_NO_ANSWER,       kSilent,                                3},
    {"Delete",           kDeletePrimary,  "375 primary",   kStatusUnknownName,  "\aThere is no RADIUS server of that name\n", 1},
    {"MacOnFirst",       kEnableMac,      "371 primary",   kStatusValueRefused, kRefused,                               4},
    {"MacOnSecond",      kEnableMac,      "371 secondary", kStatusValueRefused, kRefused,                               4},
    {"MacOffFirst",      kDisableMac,     "371 primary",   kStatusValueRefused, kRefused,                               4},
    {"MacOffSecond",     kDisableMac,     "371 secondary", kStatusValueRefused, "RADIUS MAC access control is disable\n", 4},
    {"MacOnRead",        kEnableMac,      "370 secondary", kStatusValueRefused, kRefused,                               2},
    {"ShowAllFirst",     kShowAll,        "370 primary",   kStatusValueRefused, kRefused,                               2},
    {"ShowAllSecond",    kShowAll,        "370 secondary", kStatusValueRefused, "\aThe request failed, no reason was given\n", 2},
    {"ShowSecondary",    kShowSecondary,  "370 secondary", kStatusValueRefused, kRefused,                               1},
};
// clang-format on
TEST_F(RadiusCommands, Failures)
{
    for (const FailureCase& c : kFailures) {
        refusals = {{c.request, c.failure}};
        EXPECT_EQ(run(c.cmdId), c.screen) << c.name;
        EXPECT_EQ(asks.size(), c.requests) << c.name;
    }
    EXPECT_EQ(service_stand_in::unreleased(), 0);
}

TEST_F(RadiusCommands, WhatHoldsForBoth)
{
    EXPECT_EQ(RunningAction(kSetRetry).number(3).run(), "Radius server reattempt is 3 times.\n");
    EXPECT_EQ(asks, (std::vector<std::string>{"370 primary", "370 secondary", "371 primary", "371 secondary"}));
    EXPECT_EQ(retries.get(primary), 3);
    EXPECT_EQ(retries.get(secondary), 3);
    EXPECT_EQ(run(kEnableMac), "RADIUS MAC access control is enabled\n");
    EXPECT_EQ(macControl.get(primary), 1);
    EXPECT_EQ(macControl.get(secondary), 1);
    EXPECT_EQ(run(kDisableMac), "RADIUS MAC access control is disable\n");
    EXPECT_EQ(macControl.get(secondary), 0);
    EXPECT_EQ(RunningAction(kSetReattempt).number(5).run(), "Radius server reattempt is 5 minutes.\n");
    EXPECT_EQ(minutes, 5);

    asks.clear();
    for (const Word each : {0u, 6u})
        EXPECT_EQ(RunningAction(kSetRetry).number(each).run(), "Radius server reattempt should be between 1 to 5\r\n");
    for (const Word each : {4u, 61u})
        EXPECT_EQ(RunningAction(kSetReattempt).number(each).run(),
                  "Radius server reattempt should be between 5 to 60\r\n");
    EXPECT_TRUE(asks.empty());
    refusals["370 secondary"] = kStatusValueRefused;
    EXPECT_EQ(RunningAction(kSetRetry).number(4).run(), kRefused);
    EXPECT_EQ(retries.get(primary), 3) << "nothing is written";
    refusals["372"] = kStatusValueRefused;
    EXPECT_EQ(RunningAction(kSetReattempt).number(60).run(), kRefused);
}

TEST_F(RadiusCommands, ShowAllShowsBoth)
{
    enabled.set(secondary, 1);
    address.set(secondary, 0x0A000009);
    secret.set(secondary, "canary");
    retries.set(secondary, 5);
    EXPECT_EQ(run(kShowAll), "\n RADIUS Server                   State                IP/Port"
                             "\n ----------------------------------------------------------------"
                             "\n Primary                         Disabled                   0.0.0.0/1812 "
                             "\n Secondary                       Enabled                   10.0.0.9/1812 "
                             "\n\n"
                             " RADIUS MAC Access Control: Disable\n"
                             " RADIUS Server Retry:     2 times\n"
                             " RADIUS Server reattempt: 60 minutes\n");
    EXPECT_TRUE(nothing_is_remembered());
    EXPECT_NE(run(kShowPrimary).find("Shared Secret: \n"), std::string::npos);
    EXPECT_NE(run(kShowSecondary).find("Shared Secret: canary\n"), std::string::npos);
}
}  // namespace
