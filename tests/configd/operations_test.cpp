#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <set>

#include "configd/machine_stand_in.h"
#include "configd/memory_storage.h"
#include "configd/operations.h"
#include "configd/sample_model.h"
#include "service/attached_table.h"
#include "service/codes.h"
#include "service/fields/address.h"
#include "service/fields/interfaces.h"
#include "service/fields/management.h"
#include "service/fields/password.h"
#include "service/fields/routes.h"
#include "service/fields/system.h"
#include "service/fields/wireless_port.h"

namespace {
ComParam request_of(std::uint16_t code)
{
    ComParam request{};
    record::kind.set(request, record::kRequest);
    record::code.set(request, code);
    return request;
}

class Operations : public testing::Test {
protected:
    Operations() { restart_service(); }

    void restart_service()
    {
        service.emplace(Service{kMachineStandIn, profile, Store(model, storage.operations(), {"run", "state"})});
        service->store.start();
    }

    std::uint32_t ask(const ComParam& request)
    {
        answer_request(*service, request, answer);
        return record::status.get(answer.record);
    }
    std::uint32_t ask(std::uint16_t code) { return ask(request_of(code)); }

    // The answer as the console sends it on: with another code, the rest as it stands.
    ComParam answer_as(std::uint16_t code)
    {
        ComParam request = answer.record;
        record::code.set(request, code);
        record::attachedLength.set(request, 0);
        return request;
    }
    std::uint32_t ask_password(std::uint16_t code, const char* password, const char* next = "")
    {
        ComParam request = request_of(code);
        password_record::password.set(request, password);
        password_record::newPassword.set(request, next);
        return ask(request);
    }
    bool payload_is_empty() const
    {
        const auto* begin = answer.record.bytes + record::kPayload;
        return std::all_of(begin, answer.record.bytes + record::kPayloadEnd, [](unsigned char b) { return b == 0; });
    }

    struct FreshMachine {
        FreshMachine()
        {
            machine = {};
            machine.interfaces = {interface_named("eth0", 1), interface_named("eth1", 2, 0x0A000005)};
        }
    } fresh;
    const Model model = model_of(areas());
    Profile profile = [] {
        Profile made = built_in_profile();
        made.restart = RestartMeans::kReload;
        made.radios[0].ssid = "from-profile";
        made.radios[0].channel = 6;
        return made;
    }();
    MemoryStorage storage;
    std::optional<Service> service;
    Answer answer;
};

TEST_F(Operations, EachCodeHasOneRow)
{
    std::set<std::uint16_t> seen;
    for (const Area* area : areas()) {
        for (const Operation& each : area->operations) EXPECT_TRUE(seen.insert(each.code).second) << each.code;
    }
}

TEST_F(Operations, WhatIsNoRequestIsRefused)
{
    EXPECT_EQ(ask(9999), kStatusUnknownOperation);
    ComParam wrapped = request_of(code::kReadSystem);
    record::code.set(wrapped, 0x10000 + code::kReadSystem);
    EXPECT_EQ(ask(wrapped), kStatusUnknownOperation);
    ComParam other = request_of(code::kReadSystem);
    record::kind.set(other, 4);
    EXPECT_EQ(ask(other), kStatusBadRequest);
    ComParam withTable = request_of(code::kReadSystem);
    record::attachedLength.set(withTable, 1);
    EXPECT_EQ(ask(withTable), kStatusBadRequest);
    EXPECT_TRUE(payload_is_empty());
}

TEST_F(Operations, EverySectionTakesItsFactoryValues)
{
    for (const Section* section : model.sections) {
        ComParam record{};
        Bytes image;
        set_factory(*section, image);
        give_values(*section, image, record);
        EXPECT_EQ(take_values(*section, section->settings, record, image), kStatusOk) << section->key << section->name;
    }
}

TEST_F(Operations, SystemRecordShowsTextsAndMachine)
{
    machine.nameServers = {0x08080808, 0x01010101};
    ASSERT_EQ(ask(code::kReadSystem), kStatusOk);
    EXPECT_STREQ(system_record::prompt.get(answer.record), "Command");
    EXPECT_EQ(system_record::lanAddress.get(answer.record), 0xC0A80101u);
    EXPECT_EQ(system_record::wanAddress.get(answer.record), 0x0A000005u);  // obtained automatically: the interface's
    EXPECT_EQ(system_record::upTime.get(answer.record), 90061u);
    EXPECT_EQ(system_record::primaryDns.get(answer.record), 0x08080808u);
    EXPECT_EQ(system_record::lanMac.get(answer.record)[5], 1);
    EXPECT_EQ(system_record::wanMac.get(answer.record)[5], 2);
    EXPECT_EQ(system_record::links.get(answer.record), system_record::kLanUp);
}

TEST_F(Operations, AWrittenSystemRecordChangesItsTexts)
{
    ask(code::kReadSystem);
    ComParam request = answer_as(code::kWriteSystem);
    system_record::name.set(request, "lab-ap");
    system_record::location.set(request, "shelf");
    EXPECT_EQ(ask(request), kStatusOk);
    EXPECT_STREQ(system_record::name.get(answer.record), "lab-ap");

    system_record::name.set(request, "");
    EXPECT_EQ(ask(request), kStatusOk);
    restart_service();
    ask(code::kReadSystem);
    EXPECT_STREQ(system_record::name.get(answer.record), "lab-ap");
    EXPECT_STREQ(system_record::location.get(answer.record), "shelf");
}

TEST_F(Operations, AnyOtherRecordChangesOnlyThePrompt)
{
    for (const std::uint16_t before : {code::kReadManagement, code::kReadWirelessPort, code::kCheckPassword}) {
        ask(before);
        ComParam request = answer_as(code::kWriteSystem);
        system_record::prompt.set(request, "AP");
        system_record::name.set(request, "left over");
        EXPECT_EQ(ask(request), kStatusOk) << before;
    }
    ask(code::kReadSystem);
    EXPECT_STREQ(system_record::prompt.get(answer.record), "AP");
    EXPECT_STREQ(system_record::name.get(answer.record), "router");

    ComParam otherDevice = answer_as(code::kWriteSystem);
    system_record::lanMac.set(otherDevice, "\2\0\0\0\0\x77");
    system_record::name.set(otherDevice, "other");
    EXPECT_EQ(ask(otherDevice), kStatusOk);
    EXPECT_STREQ(system_record::name.get(answer.record), "router");
}

TEST_F(Operations, AWriteIsRefusedAsAWhole)
{
    ask(code::kReadManagement);
    ComParam request = answer_as(code::kWriteManagement);
    management_record::httpPort.set(request, 8080);
    management_record::sessionTimeout.set(request, 61);
    EXPECT_EQ(ask(request), kStatusValueRefused);
    EXPECT_TRUE(payload_is_empty());
    ask(code::kReadManagement);
    EXPECT_EQ(management_record::httpPort.get(answer.record), 80);
}

TEST_F(Operations, AWriteThatCannotBeKeptIsRefused)
{
    ask(code::kReadManagement);
    ComParam request = answer_as(code::kWriteManagement);
    management_record::httpPort.set(request, 8080);
    storage.changes = 0;
    storage.failAt = 1;
    storage.error = ENOSPC;
    EXPECT_EQ(ask(request), kStatusStorageFull);
    ask(code::kReadManagement);
    EXPECT_EQ(management_record::httpPort.get(answer.record), 80);
}

TEST_F(Operations, TheRequestNamesItsSection)
{
    ComParam request = request_of(code::kReadAddress);
    address_record::interface.set(request, "wan");
    EXPECT_EQ(ask(request), kStatusOk);
    EXPECT_STREQ(address_record::interface.get(answer.record), "wan");
    EXPECT_EQ(address_record::address.get(answer.record), 0x0A000005u);
    for (const char* unknown : {"", "la", "lan0"}) {
        address_record::interface.set(request, unknown);
        EXPECT_EQ(ask(request), kStatusUnknownName) << unknown;
    }
    std::memset(request.bytes + address_record::interface.at.offset, 'l', address_record::interface.at.width);
    EXPECT_EQ(ask(request), kStatusUnknownName);
}

TEST_F(Operations, ARadioThatWasNeverSetShowsTheProfile)
{
    ComParam request = request_of(code::kReadWirelessPort);
    wireless_port_record::radio.set(request, "radio1");
    EXPECT_EQ(ask(request), kStatusOk);
    EXPECT_STREQ(wireless_port_record::ssid.get(answer.record), "from-profile");
    EXPECT_EQ(wireless_port_record::channel.get(answer.record), 6);
    wireless_port_record::radio.set(request, "radio3");
    EXPECT_EQ(ask(request), kStatusUnknownName);
}

TEST_F(Operations, TheInterfaceTableHasThePortsAndTheirRoles)
{
    machine.interfaces.push_back(interface_named("eth7", 7));
    machine.interfaces.push_back(interface_named("lo", 0));
    machine.interfaces.back().kind = device::Kind::kOther;
    ASSERT_EQ(ask(code::kReadInterfaces), kStatusOk);
    EXPECT_EQ(interface_record::count.get(answer.record), 4);
    ASSERT_EQ(answer.table.size(), 4 * interface_entry::kSize);

    struct {
        const char *name, *port;
        std::uint32_t flags, state;
    } const wanted[] = {{"eth0", "lan", interface_entry::kSystemLan, interface_entry::kUp},
                        {"eth1", "wan", interface_entry::kWan, interface_entry::kUp},
                        {"wlan0", "wlan", 0, 0},
                        {"eth7", "eth7", 0, interface_entry::kUp}};
    unsigned char* entry = answer.table.data();
    for (const auto& each : wanted) {
        EXPECT_STREQ(interface_entry::name.get(entry), each.name);
        EXPECT_STREQ(interface_entry::port.get(entry), each.port);
        EXPECT_EQ(interface_entry::flags.get(entry), each.flags) << each.name;
        EXPECT_EQ(interface_entry::state.get(entry), each.state) << each.name;
        entry += interface_entry::kSize;
    }
}

TEST_F(Operations, TheRoutingTableIsTheKernels)
{
    ASSERT_EQ(ask(code::kReadRoutes), kStatusOk);
    EXPECT_EQ(record::attachedLength.get(answer.record), 0u);

    machine.routes.push_back({.gateway = 0x0A000001, .interface = "eth1", .metric = 5, .flags = 3});
    ASSERT_EQ(ask(code::kReadRoutes), kStatusOk);
    ASSERT_EQ(record::attachedLength.get(answer.record), route_entry::kSize);
    EXPECT_EQ(record::attachedPosition.get(answer.record), kRecordSize);
    EXPECT_EQ(route_entry::gateway.get(answer.table.data()), 0x0A000001u);
    EXPECT_EQ(route_entry::hops.get(answer.table.data()), 5u);
    EXPECT_EQ(route_entry::flags.get(answer.table.data()), 3u);
}

TEST_F(Operations, ThePasswordIsCheckedAndChanged)
{
    EXPECT_EQ(ask_password(code::kCheckPassword, "admin"), kStatusOk);
    EXPECT_EQ(ask_password(code::kChangePassword, "wrong", "new"), kStatusWrongPassword);
    EXPECT_EQ(ask_password(code::kChangePassword, "admin", ""), kStatusPasswordRefused);
    EXPECT_EQ(ask_password(code::kCheckPassword, "admin"), kStatusOk);
    EXPECT_EQ(ask_password(code::kChangePassword, "admin", "15-characters.."), kStatusOk);
    EXPECT_TRUE(payload_is_empty());
    EXPECT_EQ(ask_password(code::kCheckPassword, "admin"), kStatusWrongPassword);
    restart_service();
    EXPECT_EQ(ask_password(code::kCheckPassword, "15-characters.."), kStatusOk);
    EXPECT_TRUE(payload_is_empty());

    ComParam endless = request_of(code::kCheckPassword);
    std::memset(endless.bytes + password_record::password.at.offset, 'a', password_record::password.at.width);
    EXPECT_EQ(ask(endless), kStatusWrongPassword);
    for (const auto& [path, content] : storage.files) EXPECT_EQ(content.find("15-char"), content.npos) << path;
}

TEST_F(Operations, RestartGoesBackToSavedOrRestartsTheMachine)
{
    ask(code::kReadManagement);
    ComParam request = answer_as(code::kWriteManagement);
    management_record::httpPort.set(request, 8080);
    ask(request);
    EXPECT_EQ(ask(code::kRestart), kStatusOk);
    EXPECT_EQ(machine.restarts, 0);
    ask(code::kReadManagement);
    EXPECT_EQ(management_record::httpPort.get(answer.record), 80);

    profile.restart = RestartMeans::kDevice;
    restart_service();
    EXPECT_EQ(ask(code::kRestart), kStatusOk);
    EXPECT_EQ(machine.restarts, 1);
    machine.error = EPERM;
    EXPECT_EQ(ask(code::kRestart), kStatusNotPermitted);
}

TEST_F(Operations, AddressesOfTheFirstFormatAreFound)
{
    Configuration read(model);
    std::string why;
    ASSERT_TRUE(read.parse(R"({"format": 0, "lan": {"address": "10.1.2.3"}, "wan": {"mode": "automatic", "later": 1}})", why))
        << why;
    const std::string text = read.text();
    for (const char* part : {"\"format\": 1", "\"address\": \"10.1.2.3\"", "\"later\": 1"})
        EXPECT_NE(text.find(part), text.npos) << part << " in " << text;
    Configuration again(model);
    ASSERT_TRUE(again.parse(text, why)) << why;
    EXPECT_EQ(again.text(), text);
}

// The generic list operations over the sample list: the areas' own add rows to this.
class ListOperations : public testing::Test {
protected:
    std::uint32_t run(ServiceStatus (*operation)(Call&), const char* name = "", unsigned char lastOfMac = 0)
    {
        ComParam request{};
        sample::request::name.set(request, name);
        const unsigned char mac[6] = {2, 0, 0, 0, 0, lastOfMac};
        sample::request::mac.set(request, mac);
        answer = {};
        const Operation row{.code = 1, .run = operation, .list = &sample::kList, .count = {64, 2}};
        Call call{service, row, request, answer};
        return operation(call);
    }

    const Model model = sample::model();
    MemoryStorage storage;
    Service service{kMachineStandIn, built_in_profile(), Store(model, storage.operations(), {"run", "state"})};
    Answer answer;
};

TEST_F(ListOperations, AddReadAndDeleteByTheFirstIdentity)
{
    EXPECT_EQ(run(read_list), kStatusOk);
    EXPECT_TRUE(answer.table.empty());

    EXPECT_EQ(run(add_to_list, "", 1), kStatusValueRefused);
    EXPECT_EQ(run(add_to_list, "a", 1), kStatusOk);
    EXPECT_EQ(run(add_to_list, "a", 2), kStatusDuplicateName);
    EXPECT_EQ(run(add_to_list, "b", 1), kStatusDuplicateAddress);
    EXPECT_EQ(run(add_to_list, "b", 2), kStatusOk);
    EXPECT_EQ(run(add_to_list, "c", 3), kStatusOk);
    EXPECT_EQ(run(add_to_list, "d", 4), kStatusTableFull);
    EXPECT_EQ(run(delete_from_list, "d"), kStatusUnknownName);
    EXPECT_EQ(run(delete_from_list, "b"), kStatusOk);

    ASSERT_EQ(run(read_list), kStatusOk);
    ASSERT_EQ(answer.table.size(), 2 * sample::kList.entrySize);
    EXPECT_STREQ(sample::entry::name.get(answer.table.data()), "a");
    EXPECT_STREQ(sample::entry::name.get(answer.table.data() + sample::kList.entrySize), "c");
    EXPECT_EQ((Field<std::uint16_t>{64}.get(answer.record)), 2);

    Store again(model, storage.operations(), {"run", "state"});
    again.start();
    EXPECT_EQ(again.running().entries(sample::kList).size(), 2u);
}
}  // namespace
