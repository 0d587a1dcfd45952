// What the engineering commands set: the preset WEP keys, the base register, and the regulatory domain, which is the
// first radio's.
#include "service/fields/engineering.h"

#include <algorithm>
#include <string_view>

#include "configd/areas/areas.h"
#include "configd/ports.h"
#include "service/codes.h"
#include "service/fields/wireless_settings.h"

namespace {
constexpr bool is_hex(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

// The octets of "0a-1b-2c-3d-4e"; 0 for anything else.
constexpr unsigned octets_of(std::string_view key)
{
    constexpr std::size_t kStep = 3;  // two digits and a dash
    if (key.size() % kStep != kStep - 1) return 0;
    for (std::size_t i = 0; i < key.size(); i++) {
        if (i % kStep == kStep - 1 ? key[i] != '-' : !is_hex(key[i])) return 0;
    }
    return static_cast<unsigned>((key.size() + 1) / kStep);
}

bool is_preset_key(const char* text)
{
    const std::string_view key = text;
    const unsigned octets = octets_of(key);
    return key.empty() || octets == preset_key_record::kShortKey || octets == preset_key_record::kLongKey;
}

// No record carries the four keys: their image is their own.
constexpr TextField kPresetKey[] = {TextField{64, 39}, TextField{104, 39}, TextField{144, 39}, TextField{184, 39}};
static_assert(std::size(kPresetKey) == preset_key_record::kKeys);
static_assert(kPresetKey[0].at.width == preset_key_record::key.at.width);

// clang-format off
constexpr auto kRegisterRows = std::to_array<Setting>({
    row::mac ("base_mac",         base_register_record::mac),
    row::flag("base_mac_written", base_register_record::macWritten, false),
    row::flag("signature_check",  base_register_record::signatureCheck, true),
});
constexpr auto kKeyRows = std::to_array<Setting>({
    row::secret("key1", kPresetKey[0], {.takes = is_preset_key}),
    row::secret("key2", kPresetKey[1], {.takes = is_preset_key}),
    row::secret("key3", kPresetKey[2], {.takes = is_preset_key}),
    row::secret("key4", kPresetKey[3], {.takes = is_preset_key}),
});
// clang-format on
constexpr auto kSignatureOnly = std::span(kRegisterRows).last<1>();
constexpr Section kSections[] = {
    section("base_register", "", kRegisterRows),
    section("preset_keys", "", kKeyRows),
};
constexpr const Section& kKeys = kSections[1];

ServiceStatus read_register(Call& call)
{
    if (const ServiceStatus refused = read_section(call)) return refused;
    ComParam& answer = call.answer.record;
    if (base_register_record::macWritten.get(answer)) return kStatusOk;
    const device::Mac own = Ports(call.service).mac(PortRole::kLan);
    base_register_record::mac.set(answer, own.data());
    return kStatusOk;
}

ServiceStatus write_register(Call& call)
{
    const bool whole = base_register_record::macWritten.get(call.request) == 1;
    const std::span<const Setting> rows = whole ? std::span<const Setting>(kRegisterRows) : kSignatureOnly;
    if (const ServiceStatus refused = write_rows(call, kSections[0], rows)) return refused;
    return read_register(call);
}

// Only how long the keys are.
ServiceStatus read_keys(Call& call)
{
    const unsigned char* image = call.service.store.running().values(kKeys).data();
    for (unsigned i = 0; i < preset_key_record::kKeys; i++) {
        const unsigned octets = octets_of(get_text(kKeyRows[i], image + kKeyRows[i].at.offset));
        preset_key_record::length[i].set(call.answer.record, static_cast<std::uint8_t>(octets));
    }
    return kStatusOk;
}

ServiceStatus write_key(Call& call)
{
    const unsigned index = preset_key_record::index.get(call.request);
    if (index < 1 || index > preset_key_record::kKeys) return kStatusUnknownName;
    const Setting& row = kKeyRows[index - 1];
    const unsigned char* key = call.request.bytes + preset_key_record::key.at.offset;
    if (!takes(row, key)) return kStatusValueRefused;
    Configuration next = call.service.store.running();
    copy_value(row, key, next.values(kKeys).data() + row.at.offset);
    if (const ServiceStatus failed = call.service.store.change(std::move(next))) return failed;
    return read_keys(call);
}

// The domain is a setting of the first radio's, which has its own area.
struct DomainSetting {
    const Section* radio = nullptr;
    std::span<const Setting> row;
};

DomainSetting domain_setting()
{
    for (const Area* area : areas()) {
        for (const Section& section : area->sections) {
            const auto found = std::ranges::find_if(section.settings, [](const Setting& setting) {
                return setting.at.offset == wireless_record::domain.at.offset &&
                       setting.key == std::string_view("domain");
            });
            if (found != section.settings.end()) return {&section, {&*found, 1}};
        }
    }
    return {};
}

ServiceStatus read_domain(Call& call)
{
    const DomainSetting domain = domain_setting();
    if (!domain.radio || call.service.profile.radios.empty()) return kStatusNoDevice;
    const unsigned char* image = call.service.store.running().values(*domain.radio).data();
    reg_domain_record::domain.set(call.answer.record, wireless_record::domain.get(image));
    return kStatusOk;
}

ServiceStatus write_domain(Call& call)
{
    const DomainSetting domain = domain_setting();
    if (!domain.radio || call.service.profile.radios.empty()) return kStatusNoDevice;
    ComParam values{};
    wireless_record::domain.set(values, reg_domain_record::domain.get(call.request));
    Configuration next = call.service.store.running();
    if (const ServiceStatus refused = take_values(*domain.radio, domain.row, values, next.values(*domain.radio)))
        return refused;
    if (const ServiceStatus failed = call.service.store.change(std::move(next))) return failed;
    return read_domain(call);
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadRegDomain,    .run = read_domain},
    {.code = code::kWriteRegDomain,   .run = write_domain},
    {.code = code::kReadPresetKey,    .run = read_keys},
    {.code = code::kWritePresetKey,   .run = write_key},
    {.code = code::kReadMacRegister,  .run = read_register,  .sections = kSections},
    {.code = code::kWriteMacRegister, .run = write_register, .sections = kSections},
};
// clang-format on
}  // namespace

const Area kEngineeringArea{.sections = kSections, .lists = {}, .operations = kOperations};
