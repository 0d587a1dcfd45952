// Engineering: a radio's network name, mode and channel, set in one line.
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/radio_modes.h"
#include "console/messages.h"
#include "service/fields/engineering.h"
#include "service/fields/wireless_port.h"
#include "values/scanners.h"

namespace {
using namespace wireless_port_record;
constexpr const char* kRadios[] = {"radio1", "radio2"};
constexpr char kAutomatic[] = "auto";
constexpr std::uint8_t kAutomaticMode = 1;

bool report(const Outcome& outcome)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), kWirelessGroup);
    return outcome.ok();
}

bool read_radio(const char* name)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    radio.set(usrComParam, name);
    return report(write_record(code::kReadWirelessPort));
}

bool write_radio(const char* name)
{
    radio.set(usrComParam, name);
    return report(write_record(code::kWriteWirelessPort));
}

bool is_radio(const char* name)
{
    for (const char* each : kRadios)
        if (std::strcmp(each, name) == 0) return true;
    return false;
}

// The mode's number, or -1 after listing those that the domain has.
int mode_parm(const char* name, const RadioModes& modes)
{
    if (strcasecmp(name, kAutomatic) == 0) return kAutomaticMode;
    if (const WlanModeInfo* mode = modes.named(name)) return mode->mode;
    std::printf("The mode is one of these: %s", kAutomatic);
    for (const WlanModeInfo& each : modes.list()) std::printf(", %s", each.name);
    std::printf("\n");
    return -1;
}

bool read_domain(std::uint32_t& domain)
{
    if (!report(read_record(code::kReadRegDomain))) return false;
    domain = reg_domain_record::domain.get(usrComParam);
    return true;
}
}  // namespace

// The first radio's: a radio has one network name.
void CliZDebugAddSsid(ActionBlock& call, int)
{
    if (!read_radio(kRadios[0])) return;
    ssid.set(usrComParam, text_parm(call, 0));
    if (write_radio(kRadios[0])) std::printf("%s: SSID %s\n", kRadios[0], ssid.get(usrComParam));
}

// <radio> <mode> <channel, 0: automatic> [<SSID>]
void CliZDebugSetPortRadio(ActionBlock& call, int term)
{
    const char* name = text_parm(call, 0);
    if (!is_radio(name)) {
        PrintMsg(term, kRadioName);
        return;
    }
    std::uint32_t domain, number;
    if (!read_domain(domain)) return;
    const RadioModes modes(domain);
    const int wanted = mode_parm(text_parm(call, 1), modes);
    if (wanted < 0) return;
    const char* text = text_parm(call, 2);
    if (!parse_dec(&text, &number, '\0', 0xffff, 0) ||
        (number != 0 && !modes.allow(static_cast<std::uint8_t>(wanted), number))) {
        PrintMsg(term, kChannelOutsideDomain);
        return;
    }
    if (!read_radio(name)) return;
    mode.set(usrComParam, static_cast<std::uint8_t>(wanted));
    channel.set(usrComParam, static_cast<std::uint16_t>(number));
    if (call.parms.count > 3) ssid.set(usrComParam, text_parm(call, 3));
    if (!write_radio(name)) return;
    std::printf("%s: mode %s, channel %s, SSID %s\n", name, text_parm(call, 1),
                number ? text_parm(call, 2) : kAutomatic, ssid.get(usrComParam));
}
