#include "platform/log_messages.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <iterator>
#include <string_view>

#include "platform/ipc_client.h"
#include "service/status.h"

namespace {
struct Text {
    std::uint32_t status;
    std::uint32_t group;  // kAnyGroup: the status's general text
    const char* text;
};
constexpr std::uint32_t kAnyGroup = 0;

// An area's text must suit everything that reports in its group: kSystemGroup also has the routes and the DHCP pool,
// kRadiusGroup the radio's settings, kOperationModeGroup the WDS peers.

// clang-format off
constexpr Text kTexts[] = {
    {kStatusOk,                 kAnyGroup,           "The request failed, no reason was given"},

    {kStatusUnknownOperation,   kAnyGroup,           "The configuration service does not know this operation"},

    {kStatusBadRequest,         kAnyGroup,           "The configuration service did not understand the request"},

    {kStatusValueRefused,       kAnyGroup,           "A value is not acceptable for its setting"},
    {kStatusValueRefused,       kManagementGroup,    "The management settings are not acceptable"},
    {kStatusValueRefused,       kDhcpGroup,          "An address or setting of the DHCP server is not acceptable"},
    {kStatusValueRefused,       kWirelessGroup,      "A wireless setting is not acceptable"},
    {kStatusValueRefused,       kLogGroup,           "The log settings are not acceptable"},
    {kStatusValueRefused,       kAddressGroup,       "The subnet mask or DNS address is not acceptable"},
    {kStatusValueRefused,       kInterfaceGroup,     "The interface settings are not acceptable"},
    {kStatusValueRefused,       kNatGroup,           "The NAT settings are not acceptable"},
    {kStatusValueRefused,       kFilterGroup,        "The IP filter settings are not acceptable"},
    {kStatusValueRefused,       kRadiusGroup,        "A wireless or RADIUS setting is not acceptable"},
    {kStatusValueRefused,       kOperationModeGroup, "The operation mode or WDS peer is not acceptable"},
    {kStatusValueRefused,       kTimeGroup,          "The date, time or time server is not acceptable"},

    {kStatusUnknownName,        kAnyGroup,           "There is no entry of that name"},
    {kStatusUnknownName,        kManagementGroup,    "There is no trap manager of that name"},
    {kStatusUnknownName,        kWirelessGroup,      "There is no MAC filter of that name"},
    {kStatusUnknownName,        kInterfaceGroup,     "There is no interface of that name"},
    {kStatusUnknownName,        kNatGroup,           "There is no NAT entry of that name"},
    {kStatusUnknownName,        kFilterGroup,        "There is no IP filter of that name"},
    {kStatusUnknownName,        kRadiusGroup,        "There is no RADIUS server of that name"},
    {kStatusUnknownName,        kOperationModeGroup, "There is no WDS peer of that name"},

    {kStatusDuplicateName,      kAnyGroup,           "There is already an entry of that name"},
    {kStatusDuplicateName,      kManagementGroup,    "There is already a trap manager of that name"},
    {kStatusDuplicateName,      kWirelessGroup,      "There is already a MAC filter of that name"},
    {kStatusDuplicateName,      kNatGroup,           "There is already a NAT entry of that name"},
    {kStatusDuplicateName,      kFilterGroup,        "There is already an IP filter of that name"},
    {kStatusDuplicateName,      kOperationModeGroup, "There is already a WDS peer of that name"},

    {kStatusUnknownAddress,     kAnyGroup,           "There is no entry of that address"},
    {kStatusUnknownAddress,     kSystemGroup,        "There is no route to that destination"},
    {kStatusUnknownAddress,     kDhcpGroup,          "There is no static DHCP entry of that address"},
    {kStatusUnknownAddress,     kRadiusGroup,        "There is no RADIUS server of that address"},

    {kStatusDuplicateAddress,   kAnyGroup,           "There is already an entry of that address"},
    {kStatusDuplicateAddress,   kManagementGroup,    "There is already a manager or client of that address"},
    {kStatusDuplicateAddress,   kSystemGroup,        "There is already a route to that destination"},
    {kStatusDuplicateAddress,   kDhcpGroup,          "The IP or MAC address has a static DHCP entry already"},
    {kStatusDuplicateAddress,   kWirelessGroup,      "The MAC address has a filter already"},
    {kStatusDuplicateAddress,   kAddressGroup,       "Another interface has that address or network already"},
    {kStatusDuplicateAddress,   kNatGroup,           "Another entry of the interface has that NAT address already"},
    {kStatusDuplicateAddress,   kRadiusGroup,        "There is already a RADIUS server of that address"},
    {kStatusDuplicateAddress,   kOperationModeGroup, "There is already a WDS peer of that address"},

    {kStatusTableFull,          kAnyGroup,           "The table is full"},
    {kStatusTableFull,          kManagementGroup,    "The table of trap managers is full"},
    {kStatusTableFull,          kSystemGroup,        "The route table is full"},
    {kStatusTableFull,          kDhcpGroup,          "The table of static DHCP entries is full"},
    {kStatusTableFull,          kWirelessGroup,      "The MAC filter table is full"},
    {kStatusTableFull,          kNatGroup,           "The NAT table is full"},
    {kStatusTableFull,          kFilterGroup,        "The IP filter table is full"},
    {kStatusTableFull,          kRadiusGroup,        "The table of RADIUS servers is full"},
    {kStatusTableFull,          kOperationModeGroup, "The table of WDS peers is full"},

    {kStatusWrongPassword,      kAnyGroup,           "The password is wrong"},

    {kStatusPasswordRefused,    kAnyGroup,           "The new password is not acceptable"},

    {kStatusStorageFull,        kAnyGroup,           "The configuration could not be stored: no space is left"},

    {kStatusStorageReadOnly,    kAnyGroup,           "The configuration could not be stored: the storage is read-only"},

    {kStatusStorageFailed,      kAnyGroup,           "The configuration could not be stored"},

    {kStatusNotPermitted,       kAnyGroup,           "The configuration service is not allowed to do that on this device"},
    {kStatusNotPermitted,       kTimeGroup,          "The configuration service is not allowed to set the time zone of this device"},

    {kStatusNoDevice,           kAnyGroup,           "This device has no such hardware"},
    {kStatusNoDevice,           kWirelessGroup,      "This device has no such radio"},
    {kStatusNoDevice,           kRadiusGroup,        "This device has no such radio"},
    {kStatusNoDevice,           kInterfaceGroup,     "This device has no such interface"},

    {kStatusUnreachableGateway, kAnyGroup,           "The gateway is not on a network of this device"},

    {kStatusUnknownInterface,   kAnyGroup,           "There is no such interface"},
    {kStatusUnknownInterface,   kNatGroup,           "There is no WAN interface of that name"},

    {kStatusSystemFailed,       kAnyGroup,           "The system refused the change"},

    {kStatusAddressOutOfRange,  kAnyGroup,           "The address is not a host address of its network"},
    {kStatusAddressOutOfRange,  kSystemGroup,        "An address, mask or gateway is not acceptable"},
    {kStatusAddressOutOfRange,  kDhcpGroup,          "The gateway or DNS address of the DHCP server is not acceptable"},
    {kStatusAddressOutOfRange,  kNatGroup,           "The address is not that of a host in the LAN"},
    {kStatusAddressOutOfRange,  kAddressGroup,       "The IP address or gateway is not a host address of its network"},

    {kStatusPoolRefused,        kAnyGroup,           "The addresses of the pool are not a range of hosts in one network"},

    {kStatusNoTimeServer,       kAnyGroup,           "No time server is set for the NTP client"},

    {kStatusChannelRefused,     kAnyGroup,           "The channel is not one of the radio's regulatory domain or band"},

    {kStatusDuplicatePeer,        kAnyGroup,         "There is already a WDS peer of that name"},
    {kStatusDuplicatePeerAddress, kAnyGroup,         "There is already a WDS peer of that address"},
    {kStatusPeerTableFull,        kAnyGroup,         "The table of WDS peers is full"},

    {kStatusNetmaskRefused,     kAnyGroup,           "The netmask must be ones followed by zeros"},

    {kStatusNotANetwork,        kAnyGroup,           "The destination has bits that its netmask does not cover"},

    {kStatusTooManyHops,        kAnyGroup,           "The hop count is above 255"},

    {kStatusGatewayRefused,     kAnyGroup,           "The gateway is not the address of another device"},

    {kStatusInterfaceDown,      kAnyGroup,           "The interface is switched off"},

    {kStatusConnectedRoute,     kAnyGroup,           "The route belongs to an interface's own address"},

    {kStatusPortInUse,          kAnyGroup,           "Another service of this device has that port"},

    {kStatusNotSet,             kAnyGroup,           "A setting that this one needs is not set"},

    {kStatusPortsTaken,         kAnyGroup,           "Another redirection has some of these ports already"},

    {IPC_NOT_RUNNING,           kAnyGroup,           "The configuration service is not running"},
    {IPC_NOT_ALLOWED,           kAnyGroup,           "This user may not ask the configuration service"},
    {IPC_NO_ANSWER,             kAnyGroup,           "The configuration service does not answer"},
    {IPC_BROKEN,                kAnyGroup,           "The configuration service ended the connection before it answered"},
    {IPC_BAD_ANSWER,            kAnyGroup,           "The configuration service gave an answer that makes no sense"},
    {IPC_NO_MEMORY,             kAnyGroup,           "There is not enough memory to ask the configuration service"},
};
// clang-format on

constexpr const char* text_of(std::uint32_t status, std::uint32_t group)
{
    const auto* row =
        std::ranges::find_if(kTexts, [=](const Text& t) { return t.status == status && t.group == group; });
    return row == std::end(kTexts) ? nullptr : row->text;
}

consteval bool every_status_has_a_general_text()
{
    for (std::uint32_t status = kStatusOk; status < kStatusEnd; ++status)
        if (!text_of(status, kAnyGroup)) return false;
    for (std::uint32_t status = IPC_NOT_RUNNING; status <= IPC_NO_MEMORY; ++status)
        if (!text_of(status, kAnyGroup)) return false;
    return true;
}
static_assert(every_status_has_a_general_text());

constexpr bool fits_and_is_found(const Text& row)
{
    return std::string_view(row.text).size() < LOG_MESSAGE_SIZE && text_of(row.status, row.group) == row.text;
}
static_assert(std::ranges::all_of(kTexts, fits_and_is_found), "a text is too long, or its pair stands twice");
}  // namespace

uint32_t logGetMsgX(uint32_t status, uint32_t group, char* buffer, uint32_t)
{
    const char* text = text_of(status, group);
    if (!text) text = text_of(status, kAnyGroup);
    if (text)
        std::snprintf(buffer, LOG_MESSAGE_SIZE, "%s", text);
    else
        std::snprintf(buffer, LOG_MESSAGE_SIZE, "Unknown error %lu", static_cast<unsigned long>(status));
    return 0;
}

// The values are syslog facilities above those of the system itself, one for each part of the device.
// clang-format off
const struct FacilityName facilitynames[] = {
    {"system",    192}, {"console",    200}, {"config",    208}, {"login",  216}, {"kernel", 224},
    {"interface", 232}, {"bridge",     240}, {"wireless",  248}, {"wds",    256}, {"wpa",    264},
    {"macfilter", 272}, {"radius",     280}, {"dhcp",      288}, {"dhcpc",  296}, {"dns",    304},
    {"ddns",      312}, {"ntp",        320}, {"http",      328}, {"telnet", 336}, {"snmp",   344},
    {"upnp",      352}, {"nat",        360}, {"filter",    368}, {"route",  376}, {"rip",    384},
    {nullptr, 0xFFFFFFFF},
};
// clang-format on
