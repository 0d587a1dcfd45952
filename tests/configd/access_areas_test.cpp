// The areas of management access, dynamic DNS and the ping allowance, as their requests see them.
#include "configd/area_session.h"
#include "service/fields/ddns.h"
#include "service/fields/management.h"
#include "service/fields/ping.h"

namespace {
class AccessAreas : public AreaSession {
protected:
    ComParam management() { return to_write(code::kReadManagement, code::kWriteManagement); }
};

TEST_F(AccessAreas, HttpAndTelnetDoNotShareAPort)
{
    ComParam made = management();
    management_record::httpPort.set(made, 23);
    EXPECT_EQ(ask(made), kStatusPortInUse);
    management_record::telnetPort.set(made, 80);
    EXPECT_EQ(ask(made), kStatusOk) << "they may change places at once";
    start();
    EXPECT_EQ(management_record::httpPort.get(management()), 23);
}

struct RemoteCase {
    const char* name;
    std::uint8_t mode;
    std::uint32_t first, second;
    ServiceStatus status;
};
// clang-format off
constexpr RemoteCase kRemoteCases[] = {
    {"One",              management_record::kRemoteOne,      0x0A000001, 0,          kStatusOk},
    {"SecondNotSet",     management_record::kRemoteTwo,      0x0A000001, 0,          kStatusNotSet},
    {"TwoTheSame",       management_record::kRemoteTwo,      0x0A000001, 0x0A000001, kStatusDuplicateAddress},
    {"Loopback",         management_record::kRemoteOne,      0x7F000001, 0,          kStatusValueRefused},
};
// clang-format on
TEST_F(AccessAreas, RemoteManagementNeedsTheClientsOfItsMode)
{
    for (const RemoteCase& each : kRemoteCases) {
        ComParam made = management();
        management_record::remoteMode.set(made, each.mode);
        management_record::remoteClient[0].set(made, each.first);
        management_record::remoteClient[1].set(made, each.second);
        EXPECT_EQ(ask(made), each.status) << each.name;
    }
}

TEST_F(AccessAreas, DdnsNeedsANameAndAUserAndKeepsItsPassword)
{
    using namespace ddns_record;
    ComParam made = to_write(code::kReadDdns, code::kWriteDdns);
    enabled.set(made, 1);
    EXPECT_EQ(ask(made), kStatusNotSet);
    hostname.set(made, "home_1");
    EXPECT_EQ(ask(made), kStatusNotSet);
    username.set(made, "fred");
    hostname.set(made, "home-1");
    EXPECT_EQ(ask(made), kStatusValueRefused);
    hostname.set(made, "home_1");
    password.set(made, "hidden");
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_FALSE(answer_shows("hidden"));

    start();
    made = to_write(code::kReadDdns, code::kWriteDdns);
    EXPECT_FALSE(answer_shows("hidden"));
    EXPECT_EQ(passwordSet.get(made), 1);
    EXPECT_STREQ(hostname.get(made), "home_1");
    enabled.set(made, 0);
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_NE(storage.files["run/running.json"].find("\"hidden\""), std::string::npos);
}

TEST_F(AccessAreas, PingIsAllowedByInterface)
{
    machine.interfaces = {interface_named("eth1", 2), interface_named("lo", 0)};
    machine.interfaces.back().kind = device::Kind::kOther;
    const auto change = [this](const char* name, std::uint8_t wanted) {
        ComParam made = request(code::kReadPingAllowance);
        ping_record::interface.set(made, name);
        ping_record::change.set(made, wanted);
        return ask(made);
    };
    EXPECT_EQ(change("eth1", ping_record::kAllow), kStatusOk);
    EXPECT_EQ(ping_record::change.get(answer.record), 0) << "an answer sent back only reads";
    start();
    EXPECT_EQ(change("eth1", ping_record::kRead), kStatusOk);
    EXPECT_EQ(ping_record::allowed.get(answer.record), 1);
    EXPECT_EQ(change("eth1", 3), kStatusValueRefused);
    for (const char* unknown : {"", "lo", "eth9", "eth"})
        EXPECT_EQ(change(unknown, ping_record::kAllow), kStatusUnknownName) << unknown;
}
}  // namespace
