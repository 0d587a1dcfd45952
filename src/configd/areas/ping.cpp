#include "configd/areas/ping.h"

#include <algorithm>
#include <string>

#include "configd/areas/areas.h"
#include "configd/areas/interfaces.h"
#include "service/codes.h"
#include "service/fields/interfaces.h"
#include "service/fields/ping.h"

namespace {
using namespace ping_record;

// An entry is an interface that may be pinged; it is stored and never travels.
namespace allowed_entry {
using At = Within<16>;
constexpr At::TextField name{0, 16};
}  // namespace allowed_entry

constexpr std::size_t kCapacity = 32;  // entries: more than the interfaces of a device, some of which come and go
constexpr Column kColumns[] = {{row::text("interface", allowed_entry::name, {.min = 1}), interface.at, 0}};
constexpr Identity kIdentities[] = {{kStatusDuplicateName, kStatusUnknownName}};
constexpr List kLists[] = {{"ping_allowed", kColumns, kIdentities, allowed_entry::At::room, kCapacity}};

std::size_t find(const std::vector<Entry>& entries, const char* name)
{
    Bytes wanted(allowed_entry::At::room, 0);
    allowed_entry::name.set(wanted.data(), name);
    return find_entry(kLists[0], entries, 0, wanted);
}

bool is_allowed(const Service& service, const char* name)
{
    const std::vector<Entry>& entries = service.store.running().entries(kLists[0]);
    return find(entries, name) != entries.size();
}

bool is_visible(const Service& service, const std::string& name)
{
    return std::ranges::count(interface_names(service), name) != 0;
}

ServiceStatus allow(Service& service, const char* name, bool allowing)
{
    if (allowing == is_allowed(service, name)) return kStatusOk;
    Configuration next = service.store.running();
    std::vector<Entry>& entries = next.entries(kLists[0]);
    if (allowing) {
        Entry entry{Bytes(allowed_entry::At::room, 0), {}};
        allowed_entry::name.set(entry.bytes.data(), name);
        if (const ServiceStatus refused = add_entry(kLists[0], entries, std::move(entry))) return refused;
    } else {
        entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(find(entries, name)));
    }
    return service.store.change(std::move(next));
}

ServiceStatus ping_allowance(Call& call)
{
    const std::string name(get_text(kColumns[0].setting, call.request.bytes + interface.at.offset));
    if (!is_visible(call.service, name)) return kStatusUnknownName;

    const std::uint8_t wanted = change.get(call.request);
    if (wanted > kForbid) return kStatusValueRefused;
    if (wanted != kRead) {
        if (const ServiceStatus refused = allow(call.service, name.c_str(), wanted == kAllow)) return refused;
    }
    ComParam& answer = call.answer.record;
    interface.set(answer, name.c_str());
    visible.set(answer, 1);
    allowed.set(answer, is_allowed(call.service, name.c_str()));
    return kStatusOk;
}

constexpr Operation kOperations[] = {
    {.code = code::kReadPingAllowance, .run = ping_allowance},
};
}  // namespace

const Area kPingArea{.sections = {}, .lists = kLists, .operations = kOperations};

void mark_ping_allowance(const Service& service, Bytes& table)
{
    for (std::size_t at = 0; at + interface_entry::kSize <= table.size(); at += interface_entry::kSize) {
        unsigned char* entry = table.data() + at;
        if (!is_allowed(service, interface_entry::name.get(entry))) continue;
        interface_entry::flags.set(entry, interface_entry::flags.get(entry) | interface_entry::kPingAllowed);
    }
}
