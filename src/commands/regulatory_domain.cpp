// Engineering: the regulatory domain of the radios, with the countries, modes and channels that belong to it.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <span>

#include "commands/command.h"
#include "commands/radio_modes.h"
#include "service/fields/engineering.h"
#include "service/fields/wireless_port.h"

namespace {
constexpr const char* kRadios[] = {"radio1", "radio2"};

bool report(const Outcome& outcome)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), kWirelessGroup);
    return outcome.ok();
}

const char* countries_of(std::uint32_t domain)
{
    const char* name = wlanGetCountryName(domain);
    return name ? name : "unknown";
}

void print_domain(std::uint32_t domain) { std::printf("Regulatory domain: %u, %s\n", domain, countries_of(domain)); }

void print_modes(std::uint32_t domain)
{
    const RadioModes modes(domain);
    for (const WlanModeInfo& mode : modes.list()) {
        std::printf("  %-22s channels", mode.name);
        for (const WlanChannels& range : std::span(mode.channels, mode.ranges)) {
            std::printf(" %u", unsigned{range.first});
            if (range.last != range.first) std::printf("-%u", unsigned{range.last});
        }
        std::printf("\n");
    }
}

void list_domains()
{
    std::printf("Regulatory domains:\n");
    for (std::size_t i = 0; const std::uint32_t domain = wlanGetDomain(i); ++i)
        std::printf("  %3u  %s\n", domain, countries_of(domain));
}

// A radio keeps the channel that it was given: say so where the domain has no such channel.
void warn_of_channel(const char* radio, std::uint32_t domain)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    wireless_port_record::radio.set(usrComParam, radio);
    if (!write_record(code::kReadWirelessPort).ok()) return;
    const std::uint16_t channel = wireless_port_record::channel.get(usrComParam);
    if (channel != 0 && !RadioModes(domain).allow(wireless_port_record::mode.get(usrComParam), channel))
        std::printf("%s: channel %u is not available in this domain\n", radio, unsigned{channel});
}
}  // namespace

void CliZDebugWRegDomRead(ActionBlock&, int)
{
    if (!report(read_record(code::kReadRegDomain))) return;
    const std::uint32_t domain = reg_domain_record::domain.get(usrComParam);
    print_domain(domain);
    print_modes(domain);
}

// Without a number it lists the domains. The configuration is saved with it.
void CliZDebugWRegDomWrite(ActionBlock& call, int)
{
    const auto domain = call.parms.count ? static_cast<std::uint32_t>(call.parms.value[0]) : 0;
    if (call.parms.count && !wlanGetCountryName(domain)) std::printf("There is no regulatory domain %u\n", domain);
    if (!wlanGetCountryName(domain)) return list_domains();

    std::memset(&usrComParam, 0, sizeof usrComParam);
    reg_domain_record::domain.set(usrComParam, static_cast<std::uint16_t>(domain));
    if (!report(write_record(code::kWriteRegDomain))) return;
    if (!report(write_record(code::kSaveConfiguration))) return;
    print_domain(domain);
    for (const char* radio : kRadios) warn_of_channel(radio, domain);
}
