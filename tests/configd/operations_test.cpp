#include <algorithm>
#include <set>

#include "configd/area_session.h"
#include "configd/sample_model.h"
#include "service/fields/address.h"
#include "service/fields/management.h"
#include "service/fields/password.h"
#include "service/fields/system.h"
#include "service/fields/wireless_port.h"

namespace {
class Operations : public AreaSession {
protected:
    std::uint32_t ask_password(std::uint16_t code, const char* password, const char* next = "")
    {
        return ask(code, password_record::password, password, password_record::newPassword, next);
    }
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
    EXPECT_EQ(ask(code::kReadSystem, record::code, 0x10000 + code::kReadSystem), kStatusUnknownOperation);
    EXPECT_EQ(ask(code::kReadSystem, record::kind, 4), kStatusBadRequest);
    EXPECT_EQ(ask(code::kReadSystem, record::attachedLength, 1), kStatusBadRequest);
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

TEST_F(Operations, AnyOtherRecordChangesOnlyThePrompt)
{
    for (const std::uint16_t before : {code::kReadManagement, code::kReadWirelessPort, code::kCheckPassword}) {
        const auto made =
            to_write(before, code::kWriteSystem, system_record::prompt, "AP", system_record::name, "left over");
        EXPECT_EQ(ask(made), kStatusOk) << before;
    }
    ask(code::kReadSystem);
    EXPECT_STREQ(system_record::prompt.get(answer.record), "AP");
    EXPECT_STREQ(system_record::name.get(answer.record), "router");

    EXPECT_EQ(ask(to_write(code::kReadSystem, code::kWriteSystem, system_record::lanMac, "\2\0\0\0\0\x77",
                           system_record::name, "other")),
              kStatusOk);
    EXPECT_STREQ(system_record::name.get(answer.record), "router");
}

TEST_F(Operations, AWriteThatCannotBeKeptIsRefused)
{
    const ComParam made = to_write(code::kReadManagement, code::kWriteManagement, management_record::httpPort, 8080);
    storage.changes = 0;
    storage.failAt = 1;
    storage.error = ENOSPC;
    EXPECT_EQ(ask(made), kStatusStorageFull);
    EXPECT_EQ(management_record::httpPort.get(to_write(code::kReadManagement, code::kWriteManagement)), 80);
    storage.readOnly = true;
    EXPECT_EQ(ask(to_write(code::kReadManagement, code::kWriteManagement)), kStatusOk) << "nothing changes";
}

TEST_F(Operations, TheRequestNamesItsSection)
{
    ComParam made = request_of(code::kReadAddress);
    address_record::interface.set(made, "wan");
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_STREQ(address_record::interface.get(answer.record), "wan");
    for (const char* unknown : {"", "la", "lan0"}) {
        address_record::interface.set(made, unknown);
        EXPECT_EQ(ask(made), kStatusUnknownName) << unknown;
    }
    std::memset(made.bytes + address_record::interface.at.offset, 'l', address_record::interface.at.width);
    EXPECT_EQ(ask(made), kStatusUnknownName);
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
    start();
    EXPECT_EQ(ask_password(code::kCheckPassword, "15-characters.."), kStatusOk);
    EXPECT_TRUE(payload_is_empty());

    ComParam endless = request_of(code::kCheckPassword);
    std::memset(endless.bytes + password_record::password.at.offset, 'a', password_record::password.at.width);
    EXPECT_EQ(ask(endless), kStatusWrongPassword);
    for (const auto& [path, content] : storage.files) EXPECT_EQ(content.find("15-char"), content.npos) << path;
}

TEST_F(Operations, RestartGoesBackToSavedOrRestartsTheMachine)
{
    const ComParam made = to_write(code::kReadManagement, code::kWriteManagement, management_record::httpPort, 8080);
    ask(made);
    EXPECT_EQ(ask(code::kRestart), kStatusOk);
    EXPECT_EQ(machine.restarts, 0);
    ask(code::kReadManagement);
    EXPECT_EQ(management_record::httpPort.get(answer.record), 80);

    profile.restart = RestartMeans::kDevice;
    start();
    EXPECT_EQ(ask(code::kRestart), kStatusOk);
    EXPECT_EQ(machine.restarts, 1);
    machine.error = EPERM;
    EXPECT_EQ(ask(code::kRestart), kStatusNotPermitted);
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
