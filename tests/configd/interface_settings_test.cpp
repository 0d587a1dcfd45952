// RIP modes and default profiles: what is kept for an interface.
#include <gtest/gtest.h>
#include <optional>

#include "configd/machine_stand_in.h"
#include "configd/memory_storage.h"
#include "configd/operations.h"
#include "service/codes.h"
#include "service/fields/profile.h"
#include "service/fields/rip.h"

namespace {
class InterfaceSettings : public testing::Test {
protected:
    InterfaceSettings()
    {
        machine = {};
        machine.interfaces = {interface_named("eth1", 2), interface_named("fifteen-letters", 3)};
        restart_service();
    }
    void restart_service()
    {
        service.emplace(
            Service{kMachineStandIn, built_in_profile(), Store(model, storage.operations(), {"run", "state"})});
        service->store.start();
    }
    std::uint32_t ask(ComParam& request, std::uint16_t code)
    {
        record::kind.set(request, record::kRequest);
        record::code.set(request, code);
        answer_request(*service, request, answer);
        return record::status.get(answer.record);
    }
    std::uint32_t set_rip(const char* interface, std::uint32_t mode)
    {
        ComParam request{};
        rip_record::interface.set(request, interface);
        rip_record::mode.set(request, mode);
        return ask(request, code::kWriteRip);
    }
    std::uint32_t set_profile(const char* interface, const char* name)
    {
        ComParam request{};
        default_profile_record::interface.set(request, interface);
        default_profile_record::profile.set(request, name);
        return ask(request, code::kWriteDefaultProfile);
    }
    std::string modes(const char* only = "")
    {
        ComParam request{};
        rip_record::interface.set(request, only);
        if (const std::uint32_t refused = ask(request, code::kReadRip)) return "refused " + std::to_string(refused);
        std::string all;
        for (std::size_t at = 0; at < answer.table.size(); at += rip_entry::kSize) {
            unsigned char* entry = answer.table.data() + at;
            all += rip_entry::interface.get(entry) + (" " + std::to_string(rip_entry::mode.get(entry)) + ", ");
        }
        return all;
    }

    const Model model = model_of(areas());
    MemoryStorage storage;
    std::optional<Service> service;
    Answer answer;
};

TEST_F(InterfaceSettings, RipIsOffUntilItIsSet)
{
    EXPECT_EQ(modes(), "eth0 16, eth1 16, wlan0 16, fifteen-letters 16, ");
    for (const std::uint32_t mode : {1u, 2u, 4u, 8u, 16u, 8u}) {
        EXPECT_EQ(set_rip("eth1", mode), kStatusOk);
        EXPECT_EQ(modes("eth1"), "eth1 " + std::to_string(mode) + ", ");
    }
    EXPECT_EQ(set_rip("fifteen-letters", 1), kStatusOk);
    restart_service();
    EXPECT_EQ(modes(), "eth0 16, eth1 8, wlan0 16, fifteen-letters 1, ");
}

TEST_F(InterfaceSettings, UnknownInterfacesAndValuesAreRefused)
{
    ASSERT_EQ(set_rip("eth1", 4), kStatusOk);
    const std::string unknown = "refused " + std::to_string(kStatusUnknownInterface);
    for (const char* name : {"eth9", "eth", "eth10", "lo"}) {
        EXPECT_EQ(set_rip(name, 1), kStatusUnknownInterface) << name;
        EXPECT_EQ(set_profile(name, "home"), kStatusUnknownInterface) << name;
        EXPECT_EQ(modes(name), unknown) << name;
    }
    EXPECT_EQ(set_rip("", 1), kStatusUnknownInterface);
    for (const std::uint32_t mode : {0u, 3u, 32u, 0xFFFFFFFFu}) EXPECT_EQ(set_rip("eth1", mode), kStatusValueRefused);
    EXPECT_EQ(modes("eth1"), "eth1 4, ");

    ComParam endless{};
    std::memset(endless.bytes + record::kPayload, 'e', record::kPayloadEnd - record::kPayload);
    for (const std::uint16_t code : {code::kReadRip, code::kWriteRip, code::kWriteDefaultProfile})
        EXPECT_EQ(ask(endless, code), kStatusUnknownInterface) << code;
}

TEST_F(InterfaceSettings, ADefaultProfileIsKept)
{
    EXPECT_EQ(set_profile("eth1", "home"), kStatusOk);
    EXPECT_EQ(set_profile("eth0", "work"), kStatusOk);
    EXPECT_EQ(set_profile("eth1", "travel"), kStatusOk);
    EXPECT_EQ(set_profile("eth1", ""), kStatusValueRefused);
    EXPECT_EQ(set_profile("eth1", "\x80"), kStatusValueRefused);
    const std::string& file = storage.files["run/running.json"];
    EXPECT_NE(file.find("travel"), file.npos);
    EXPECT_NE(file.find("work"), file.npos);
    EXPECT_EQ(file.find("home"), file.npos);
}
}  // namespace
