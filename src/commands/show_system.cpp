// The device at a glance: gathered from seven areas of the service. A request that fails leaves its fields empty here;
// the rest of the device is still worth seeing.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <iterator>

#include "commands/command.h"
#include "commands/default_gateway.h"
#include "service/fields/interfaces.h"
#include "service/fields/management.h"
#include "service/fields/snmp.h"
#include "service/fields/system.h"
#include "service/fields/system_log.h"
#include "service/fields/upnp.h"
#include "service/fields/wireless_port.h"
#include "values/format.h"

namespace {
constexpr char kDashes[] = " ------------------------------------------------------------------------------\n";
constexpr char kRow[] = "   %-24s %-s\n";
constexpr int kHardwareMajor = 1, kHardwareMinor = 0;

constexpr const char* kModeNames[] = {
    "Auto",
    "Auto",
    "11b/g",
    "11g only",
    "11a",
    "11a Turbo",
    "SuperG",
    "SuperG + Dyn Turbo",
    "SuperG + Stc Turbo",
    "SuperA",
    "SuperA + Dyn Turbo",
    "SuperA + Stc Turbo",
    "11g Turbo",
    "11b only",
    "NG",
    "",
};
constexpr unsigned kLastMode = 14;
constexpr const char* kRadioNames[] = {"radio1", "radio2"};
static_assert(std::size(kModeNames) == 16);

const char* enabled(bool on) { return on ? "enabled" : "disabled"; }

ComParam read_copy(std::uint16_t code)
{
    read_record(code);
    return usrComParam;
}

// A formatter has one buffer: the first address is printed before the second is made.
void print_pair(const char* label, std::uint32_t first, std::uint32_t second)
{
    std::printf("   %-24s %s/", label, CliFormatIPv4(first));
    std::printf("%s\n", CliFormatIPv4(second));
}

void print_identity(ComParam& system)
{
    // The up time is shown through localtime of the second count, month field and day less one: a device that has been
    // up for a month says so, and the clock fields follow the device's time zone.
    const std::time_t seconds = system_record::upTime.get(system);
    std::tm up{};
    localtime_r(&seconds, &up);
    std::printf("   System Name: %-25s Up Time: %2d months %2d days %02d:%02d:%02d\n%s"
                "   System description:      %-s\n   System contact:          %-s\n   System location:         %-s\n",
                system_record::name.get(system), up.tm_mon, up.tm_mday - 1, up.tm_hour, up.tm_min, up.tm_sec, kDashes,
                system_record::description.get(system), system_record::contact.get(system),
                system_record::location.get(system));
}

void print_versions(ComParam& system, ComParam& snmp)
{
    std::printf("   Community string (read-only): %-s\n", snmp_record::readCommunity.get(snmp));
    std::printf("\n   S/W Version:             %s\n   H/W Version:             %d.%-2d\n\n",
                system_record::version.get(system), kHardwareMajor, kHardwareMinor);
}

void print_addresses(const ComParam& system, std::uint32_t gateway)
{
    print_pair("System IP/Netmask:", system_record::lanAddress.get(system), system_record::lanNetmask.get(system));
    print_pair("WAN IP/Netmask:", system_record::wanAddress.get(system), system_record::wanNetmask.get(system));
    std::printf("   Gateway IP address:      %s\n", gateway ? CliFormatIPv4(gateway) : "Unspecified");
    print_pair("Primary/Secondary DNS:", system_record::primaryDns.get(system),
               system_record::secondaryDns.get(system));
    std::printf(kRow, "System WAN MAC:", CliFormatMAC(system_record::wanMac.get(system)));
    std::printf("   System LAN MAC:          %s\n", CliFormatMAC(system_record::lanMac.get(system)));
    std::printf("   Wireless MAC:            %s\n\n", CliFormatMAC(system_record::wirelessMac.get(system)));
}

void print_radio(int radio, const ComParam& system)
{
    std::printf("   WMAC-%d:   %s", radio, CliFormatMAC(system_record::radioMac[radio].get(system)));

    std::memset(&usrComParam, 0, sizeof usrComParam);
    wireless_port_record::radio.set(usrComParam, kRadioNames[radio]);
    write_record(code::kReadWirelessPort);

    char mode[32], channel[8] = "auto";
    const unsigned index = std::min<unsigned>(wireless_port_record::mode.get(usrComParam), kLastMode);
    std::snprintf(mode, sizeof mode, "'%s'", kModeNames[index]);
    if (const std::uint16_t number = wireless_port_record::channel.get(usrComParam))
        std::snprintf(channel, sizeof channel, "%4d", number);
    std::printf("   md=%-20s  ch(%4s)  id(%s)\n", mode, channel, wireless_port_record::ssid.get(usrComParam));
}

void print_management(const ComParam& management)
{
    std::printf("\n   Telnet port: %-5d       Timeout: %d mins\n   HTTP port:   %-5d       Timeout: %d mins\n",
                management_record::telnetPort.get(management),
                static_cast<int>(management_record::sessionTimeout.get(management)),
                management_record::httpPort.get(management), management_record::httpTimeout.get(management));

    read_record(code::kReadUpnp);
    std::printf("\n   UPnP:                    %s\n", enabled(upnp_record::enabled.get(usrComParam) == 1));
    std::printf(kRow, "Remote management:",
                enabled(management_record::remoteMode.get(management) != management_record::kRemoteDisabled));
}

void print_ping_allowance()
{
    ComParam request{};
    const Exchange interfaces(request, code::kReadInterfaces);
    for (const unsigned char* entry : interfaces.table(interface_entry::kSize)) {
        const std::uint32_t flags = interface_entry::flags.get(entry);
        if (flags & interface_entry::kWan)
            std::printf(kRow, "Allow internet ping:", enabled(flags & interface_entry::kPingAllowed));
    }
}
}  // namespace

void CliShowSystem(ActionBlock&, int)
{
    ComParam system = read_copy(code::kReadSystem);
    ComParam snmp = read_copy(code::kReadSnmp);
    const std::uint32_t gateway = read_default_gateway().address;
    const ComParam management = read_copy(code::kReadManagement);

    print_identity(system);
    print_versions(system, snmp);
    print_addresses(system, gateway);
    print_radio(0, system);
    print_radio(1, system);
    print_management(management);
    print_ping_allowance();

    read_record(code::kReadSystemLog);
    std::printf("   %-24s %d\n", "System log level:", system_log_record::level.get(usrComParam));
}
