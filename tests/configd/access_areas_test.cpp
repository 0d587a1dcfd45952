// The areas of management access, SNMP, dynamic DNS and the ping allowance, as their requests see them.
#include <gtest/gtest.h>
#include <optional>

#include "configd/machine_stand_in.h"
#include "configd/memory_storage.h"
#include "configd/operations.h"
#include "service/codes.h"
#include "service/fields/ddns.h"
#include "service/fields/interfaces.h"
#include "service/fields/management.h"
#include "service/fields/ping.h"
#include "service/fields/snmp.h"

namespace {
ComParam request_of(std::uint16_t code)
{
    ComParam request{};
    record::kind.set(request, record::kRequest);
    record::code.set(request, code);
    return request;
}

class AccessAreas : public testing::Test {
protected:
    AccessAreas()
    {
        machine = {};
        machine.interfaces = {interface_named("eth0", 1), interface_named("eth1", 2), interface_named("lo", 0)};
        machine.interfaces.back().kind = device::Kind::kOther;
        restart_service();
    }

    void restart_service()
    {
        service.emplace(
            Service{kMachineStandIn, built_in_profile(), Store(model, storage.operations(), {"run", "state"})});
        service->store.start();
    }

    std::uint32_t ask(const ComParam& request)
    {
        answer_request(*service, request, answer);
        return record::status.get(answer.record);
    }
    // What a read answers, as a console sends it back to be written.
    ComParam read_for(std::uint16_t readCode, std::uint16_t writeCode)
    {
        EXPECT_EQ(ask(request_of(readCode)), kStatusOk);
        ComParam request = answer.record;
        record::code.set(request, writeCode);
        record::attachedLength.set(request, 0);
        return request;
    }
    ComParam management() { return read_for(code::kReadManagement, code::kWriteManagement); }

    std::uint32_t ask_manager(std::uint16_t code, const char* name, std::uint32_t address = 0, std::uint8_t on = 1)
    {
        ComParam request = request_of(code);
        trap_manager_request::name.set(request, name);
        trap_manager_request::address.set(request, address);
        trap_manager_request::enabled.set(request, on);
        return ask(request);
    }
    std::uint32_t ask_ping(const char* name, std::uint8_t change)
    {
        ComParam request = request_of(code::kReadPingAllowance);
        ping_record::interface.set(request, name);
        ping_record::change.set(request, change);
        return ask(request);
    }
    bool anywhere_in_answer(std::string_view text) const
    {
        const std::string_view bytes(reinterpret_cast<const char*>(answer.record.bytes), kRecordSize);
        return bytes.find(text) != bytes.npos;
    }

    const Model model = model_of(areas());
    MemoryStorage storage;
    std::optional<Service> service;
    Answer answer;
};

TEST_F(AccessAreas, HttpAndTelnetDoNotShareAPort)
{
    ComParam request = management();
    management_record::httpPort.set(request, 23);
    EXPECT_EQ(ask(request), kStatusPortInUse);
    management_record::telnetPort.set(request, 80);
    EXPECT_EQ(ask(request), kStatusOk) << "they may change places at once";
    restart_service();
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
    {"All",              management_record::kRemoteAll,      0,          0,          kStatusOk},
    {"OneNotSet",        management_record::kRemoteOne,      0,          0x0A000002, kStatusNotSet},
    {"One",              management_record::kRemoteOne,      0x0A000001, 0,          kStatusOk},
    {"SecondNotSet",     management_record::kRemoteTwo,      0x0A000001, 0,          kStatusNotSet},
    {"Two",              management_record::kRemoteTwo,      0x0A000001, 0x0A000002, kStatusOk},
    {"TwoTheSame",       management_record::kRemoteTwo,      0x0A000001, 0x0A000001, kStatusDuplicateAddress},
    {"KeptWhileNobody",  management_record::kRemoteDisabled, 0x0A000001, 0x0A000002, kStatusOk},
    {"Loopback",         management_record::kRemoteOne,      0x7F000001, 0,          kStatusValueRefused},
    {"NoSuchMode",       5,                                  0,          0,          kStatusValueRefused},
    {"ModeZero",         0,                                  0,          0,          kStatusValueRefused},
};
// clang-format on
TEST_F(AccessAreas, RemoteManagementNeedsTheClientsOfItsMode)
{
    for (const RemoteCase& each : kRemoteCases) {
        ComParam request = management();
        management_record::remoteMode.set(request, each.mode);
        management_record::remoteClient[0].set(request, each.first);
        management_record::remoteClient[1].set(request, each.second);
        EXPECT_EQ(ask(request), each.status) << each.name;
    }
}

TEST_F(AccessAreas, TheWriteCommunityIsKeptAndNeverAnswered)
{
    ComParam request = read_for(code::kReadSnmp, code::kWriteSnmp);
    EXPECT_EQ(snmp_record::writeCommunitySet.get(request), 0);
    snmp_record::enabled.set(request, 1);
    snmp_record::writeCommunity.set(request, "hidden");
    EXPECT_EQ(ask(request), kStatusOk);
    EXPECT_FALSE(anywhere_in_answer("hidden"));

    request = read_for(code::kReadSnmp, code::kWriteSnmp);
    EXPECT_FALSE(anywhere_in_answer("hidden"));
    EXPECT_EQ(snmp_record::writeCommunitySet.get(request), 1);
    snmp_record::readCommunity.set(request, "lab");
    EXPECT_EQ(ask(request), kStatusOk);
    EXPECT_NE(storage.files["run/running.json"].find("\"hidden\""), std::string::npos) << "an empty one keeps it";
    snmp_record::readCommunity.set(request, "");
    EXPECT_EQ(ask(request), kStatusValueRefused);
}

TEST_F(AccessAreas, TrapManagersHaveNamesAndAddressesOfTheirOwn)
{
    EXPECT_EQ(ask_manager(code::kAddTrapManager, "", 0x0A000001), kStatusValueRefused);
    EXPECT_EQ(ask_manager(code::kAddTrapManager, "a", 0), kStatusValueRefused);
    EXPECT_EQ(ask_manager(code::kAddTrapManager, "a", 0x0A000001), kStatusOk);
    EXPECT_EQ(ask_manager(code::kAddTrapManager, "a", 0x0A000002), kStatusDuplicateName);
    EXPECT_EQ(ask_manager(code::kAddTrapManager, "b", 0x0A000001), kStatusDuplicateAddress);
    EXPECT_EQ(ask_manager(code::kEnableTrapManager, "b"), kStatusUnknownName);
    EXPECT_EQ(ask_manager(code::kEnableTrapManager, "a", 0, 2), kStatusValueRefused);
    EXPECT_EQ(ask_manager(code::kEnableTrapManager, "a", 0, 0), kStatusOk);

    restart_service();
    ASSERT_EQ(ask(request_of(code::kReadSnmp)), kStatusOk);
    ASSERT_EQ(answer.table.size(), trap_manager_entry::kSize);
    EXPECT_EQ(snmp_record::trapManagers.get(answer.record), 1);
    EXPECT_STREQ(trap_manager_entry::name.get(answer.table.data()), "a");
    EXPECT_EQ(trap_manager_entry::address.get(answer.table.data()), 0x0A000001u);
    EXPECT_EQ(trap_manager_entry::enabled.get(answer.table.data()), 0);

    EXPECT_EQ(ask_manager(code::kDeleteTrapManager, "b"), kStatusUnknownName);
    EXPECT_EQ(ask_manager(code::kDeleteTrapManager, "a"), kStatusOk);
    for (std::uint32_t i = 1; i <= trap_manager_entry::kCapacity; i++)
        EXPECT_EQ(ask_manager(code::kAddTrapManager, std::to_string(i).c_str(), 0x0A000000 + i), kStatusOk);
    EXPECT_EQ(ask_manager(code::kAddTrapManager, "last", 0x0A0000FE), kStatusTableFull);
}

TEST_F(AccessAreas, DdnsNeedsANameAndAUserAndKeepsItsPassword)
{
    using namespace ddns_record;
    ComParam request = read_for(code::kReadDdns, code::kWriteDdns);
    enabled.set(request, 1);
    EXPECT_EQ(ask(request), kStatusNotSet);
    hostname.set(request, "home_1");
    EXPECT_EQ(ask(request), kStatusNotSet);
    username.set(request, "fred");
    hostname.set(request, "home-1");
    EXPECT_EQ(ask(request), kStatusValueRefused);
    hostname.set(request, "home_1");
    password.set(request, "hidden");
    EXPECT_EQ(ask(request), kStatusOk);
    EXPECT_FALSE(anywhere_in_answer("hidden"));

    restart_service();
    request = read_for(code::kReadDdns, code::kWriteDdns);
    EXPECT_FALSE(anywhere_in_answer("hidden"));
    EXPECT_EQ(passwordSet.get(request), 1);
    EXPECT_STREQ(hostname.get(request), "home_1");
    enabled.set(request, 0);
    EXPECT_EQ(ask(request), kStatusOk);
    EXPECT_NE(storage.files["run/running.json"].find("\"hidden\""), std::string::npos);
}

TEST_F(AccessAreas, PingIsAllowedByInterface)
{
    const auto flags_of = [this](std::size_t index) {
        ask(request_of(code::kReadInterfaces));
        return interface_entry::flags.get(answer.table.data() + index * interface_entry::kSize);
    };
    EXPECT_EQ(ask_ping("eth1", ping_record::kRead), kStatusOk);
    EXPECT_EQ(ping_record::allowed.get(answer.record), 0);
    EXPECT_EQ(ask_ping("eth1", ping_record::kAllow), kStatusOk);
    EXPECT_EQ(ask_ping("eth1", ping_record::kAllow), kStatusOk);
    EXPECT_EQ(ping_record::allowed.get(answer.record), 1);
    EXPECT_EQ(ping_record::change.get(answer.record), 0) << "an answer sent back only reads";

    restart_service();
    EXPECT_EQ(flags_of(0), interface_entry::kSystemLan);
    EXPECT_EQ(flags_of(1), interface_entry::kWan | interface_entry::kPingAllowed);
    EXPECT_EQ(ask_ping("wlan0", ping_record::kForbid), kStatusOk);
    EXPECT_EQ(ask_ping("eth1", ping_record::kForbid), kStatusOk);
    EXPECT_EQ(flags_of(1), interface_entry::kWan);

    EXPECT_EQ(ask_ping("eth1", 3), kStatusValueRefused);
    for (const char* unknown : {"", "lo", "eth9", "eth"})
        EXPECT_EQ(ask_ping(unknown, ping_record::kAllow), kStatusUnknownName) << unknown;
    ComParam endless = request_of(code::kReadPingAllowance);
    std::memset(endless.bytes + ping_record::interface.at.offset, 'e', ping_record::interface.at.width);
    EXPECT_EQ(ask(endless), kStatusUnknownName);
}
}  // namespace
