// RIP modes and default profiles: what is kept for an interface.
#include "configd/area_session.h"
#include "service/fields/profile.h"
#include "service/fields/rip.h"

namespace {
class InterfaceSettings : public AreaSession {
protected:
    InterfaceSettings() { machine.interfaces = {interface_named("eth1", 2)}; }
    using AreaSession::ask;
    std::uint32_t ask(ComParam& made, std::uint16_t code)
    {
        record::kind.set(made, record::kRequest);
        record::code.set(made, code);
        return ask(made);
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
};

TEST_F(InterfaceSettings, UnknownInterfacesAndValuesAreRefused)
{
    ASSERT_EQ(set_rip("eth1", 4), kStatusOk);
    ASSERT_EQ(set_profile("eth1", "home"), kStatusOk);
    const std::string before = service->store.running().text();
    for (const char* name : {"", "eth9", "eth", "lo"}) {
        EXPECT_EQ(set_rip(name, 1), kStatusUnknownInterface) << name;
        EXPECT_EQ(set_profile(name, "home"), kStatusUnknownInterface) << name;
    }
    for (const std::uint32_t mode : {0u, 3u, 32u}) EXPECT_EQ(set_rip("eth1", mode), kStatusValueRefused) << mode;
    for (const char* name : {"", "\x80"}) EXPECT_EQ(set_profile("eth1", name), kStatusValueRefused);

    ComParam endless{};
    std::memset(endless.bytes + record::kPayload, 'e', record::kPayloadEnd - record::kPayload);
    for (const std::uint16_t code : {code::kReadRip, code::kWriteRip, code::kWriteDefaultProfile})
        EXPECT_EQ(ask(endless, code), kStatusUnknownInterface) << code;
    EXPECT_EQ(service->store.running().text(), before);
}
}  // namespace
