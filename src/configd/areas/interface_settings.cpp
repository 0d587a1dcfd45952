// What is kept for an interface by its name: the RIP mode and the default profile. Both are stored and shown, no more:
// this service starts no routing daemon and hands neither of them to another program.
#include <algorithm>
#include <cstring>

#include "configd/areas/areas.h"
#include "configd/areas/interfaces.h"
#include "service/codes.h"
#include "service/fields/profile.h"
#include "service/fields/rip.h"

namespace {
// An interface's default profile as it is kept here; no request reads it back.
namespace profile_entry {
using At = Within<32>;
constexpr At::TextField interface {
    0, 16
};
constexpr At::TextField profile{16, 16};
}  // namespace profile_entry

constexpr std::size_t kMostInterfaces = 64;
constexpr std::uint8_t kName = 0;

// clang-format off
constexpr Choice kModes[] = {
    {rip_record::kActive1, "active-1"}, {rip_record::kPassive1, "passive-1"},
    {rip_record::kActive2, "active-2"}, {rip_record::kPassive2, "passive-2"},
    {rip_record::kDisabled, "disabled"},
};
constexpr Column kRipColumns[] = {
    {row::text  ("interface", rip_entry::interface, {.min = 1}), rip_record::interface.at, kName},
    {row::choice("mode",      rip_entry::mode, kModes, rip_record::kDisabled), rip_record::mode.at},
};
constexpr Column kProfileColumns[] = {
    {row::text("interface", profile_entry::interface, {.min = 1}), default_profile_record::interface.at, kName},
    {row::text("profile",   profile_entry::profile,   {.min = 1}), default_profile_record::profile.at},
};
constexpr Identity kIdentities[] = {{kStatusDuplicateName, kStatusUnknownName}};
constexpr List kLists[] = {
    {"rip",                kRipColumns,     kIdentities, rip_entry::kSize,        kMostInterfaces},
    {"interface_profiles", kProfileColumns, kIdentities, profile_entry::At::room, kMostInterfaces},
};
// clang-format on
constexpr const List& kRip = kLists[0];

// The name that the request carries; empty when it carries none, or one too long to be an interface's.
std::string name_in(const ComParam& request, Extent at)
{
    const auto* name = reinterpret_cast<const char*>(request.bytes + at.offset);
    const std::size_t length = strnlen(name, at.width);
    return length < at.width ? std::string(name, length) : std::string();
}

bool is_interface(const Service& service, const std::string& name)
{
    const std::vector<std::string> names = interface_names(service);
    return std::ranges::find(names, name) != names.end();
}

bool names_interface(const ComParam& request, Extent at) { return request.bytes[at.offset] != 0; }

// An interface that nothing was set for is disabled.
std::uint32_t mode_of(const Service& service, const std::string& interface)
{
    for (const Entry& entry : service.store.running().entries(kRip)) {
        const unsigned char* bytes = entry.bytes.data();
        if (interface == std::string_view(reinterpret_cast<const char*>(bytes), rip_entry::interface.length(bytes)))
            return rip_entry::mode.get(bytes);
    }
    return rip_record::kDisabled;
}

ServiceStatus read_rip(Call& call)
{
    std::vector<std::string> names = interface_names(call.service);
    if (names_interface(call.request, rip_record::interface.at)) {
        const std::string only = name_in(call.request, rip_record::interface.at);
        if (std::ranges::find(names, only) == names.end()) return kStatusUnknownInterface;
        names = {only};
    }
    Bytes& table = call.answer.table;
    table.resize(names.size() * rip_entry::kSize);
    unsigned char* entry = table.data();
    for (const std::string& name : names) {
        rip_entry::interface.set(entry, name.c_str());
        rip_entry::mode.set(entry, mode_of(call.service, name));
        entry += rip_entry::kSize;
    }
    return kStatusOk;
}

// Replaces what is kept for the interface that the request names.
ServiceStatus write_setting(Call& call)
{
    const List& list = *call.operation.list;
    if (!is_interface(call.service, name_in(call.request, list.columns[kName].inRequest)))
        return kStatusUnknownInterface;

    Entry entry{Bytes(list.entrySize, 0), {}};
    for (const Column& column : list.columns) {
        const unsigned char* value = call.request.bytes + column.inRequest.offset;
        if (!takes(column.setting, value)) return kStatusValueRefused;
        copy_value(column.setting, value, entry.bytes.data() + column.setting.at.offset);
    }
    Configuration next = call.service.store.running();
    std::vector<Entry>& entries = next.entries(list);
    if (const std::size_t old = find_entry(list, entries, kName, entry.bytes); old < entries.size())
        entries[old].bytes = entry.bytes;
    else if (const ServiceStatus refused = add_entry(list, entries, entry))
        return refused;
    return call.service.store.change(std::move(next));
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadRip,             .run = read_rip},
    {.code = code::kWriteRip,            .run = write_setting, .list = &kLists[0]},
    {.code = code::kWriteDefaultProfile, .run = write_setting, .list = &kLists[1]},
};
// clang-format on
}  // namespace

const Area kInterfaceSettingsArea{.sections = {}, .lists = kLists, .operations = kOperations};
