#include <algorithm>

#include "cli/tables.h"
#include "cli/token.h"
#include "values/parsers.h"

namespace {
using enum Token;

// A row has a help text and a parser: neither can be left out.
template <std::size_t Size>
constexpr CliParmRow row(Token id, const char (&help)[Size], std::uint32_t (&parser)(char*, ParmList&))
{
    return {number_of(id), help, parser};
}

// clang-format off
constexpr auto kRows = std::to_array<CliParmRow>({
    row(pmString15,           "<string up to 15 characters>", CliParseString15),
    row(pmString30,           "<string up to 30 characters>", CliParseString30),
    row(pmString60,           "<string up to 60 characters>", CliParseString60),
    row(pmHopCounts,          "<hop counts>", CliParseString15),
    row(pmPrompt,             "<prompt, string up to 15 characters>", CliParsePrompt),
    row(pmName30,             "<name, string up to 30 characters>", CliParseName30),
    row(pmName60,             "<name, string up to 60 characters>", CliParseName60),
    row(pmPortName,           "<port name, string up to 15 characters>", CliParsePortName),
    row(pmLocationInfo,       "<location information, string up to 60 characters>", CliParseLocationInfo),
    row(pmTCPUDPPort,         "<TCP/UDP port number, 1-65535>", CliParseTCPUDPPort),
    row(pmTimeout,            "<timeout value in minutes, 1-60>", CliParseTimeout),
    row(pmDate,               "<date, mm-dd-yy>", CliParseDate),
    row(pmTime,               "<24-hour clock time, hh:mm:ss>", CliParseTime),
    row(pmTimezone,           "<-12:00 - +12:00>", CliParseTimezone),
    row(pmMACAddress,         "<MAC address, XX-XX-XX-XX-XX-XX>", CliParseMACAddress),
    row(pmReattempt,          "<reattempt interval in minutes, 5-60>", CliParseReattempt),
    row(pmRetry,              "<retry interval in times, 1-5>", CliParseRetry),
    row(pmIPAddress,          "<IP address>", CliParseIPAddress),
    row(pmDestIP,             "<destination IP>", CliParseDestIP),
    row(pmDestNetmask,        "<destination netmask>", CliParseDestNetmask),
    row(pmGatewayOrIfName,    "<gateway address/interface name>", CliParseGatewayOrIfName),
    row(pmGatewayAddress,     "<gateway address>", CliParseGatewayAddress),
    row(pmPingRequest,        "<number of ping request, 1-100>", CliParsePingRequest),
    row(pmPingSize,           "<packet size, 56-1932>", CliParsePingSize),
    row(pmLogLevel,           "<log level, 1-7>", CliParseLogLevel),
    row(pmFacility,           "<facility>", CliParseFacility),
    row(pmMACFilterMode,      "<MAC filter mode, disabled/grant/deny>", CliParseMACFilterMode),
    row(pmInterfaceName,      "<interface name, string up to 15 characters>", CliParseInterfaceName),
    row(pmInterfaceNameOrAll, "<interface name/all, string up to 15 characters/all:for all interfaces>", CliParseInterfaceName),
    row(pmProfileName,        "<profile name, string up to 15 characters>", CliParseProfileName),
    row(pmProfileNameOrAll,   "<profile name/all, string up to 15 characters>", CliParseProfileName),
    row(pmOperationalMode,    "<operational mode, accesspoint/wds/repeater>", CliParseOperationalMode),
    row(pmNatMdmzName,        "<nat multi dmz name , string up to 30 characters >", CliParseString30),
    row(pmNatRedirectName,    "<nat redirect name , string up to 30 characters >", CliParseString30),
    row(pmIpFilterName,       "<IP filter name , string up to 30 characters >", CliParseString30),
    row(pmIpFilterAction,     "<IP filter default action , grant/deny/disable >", CliParseString30),
    row(pmMACFilterName,      "<MAC filter name , string up to 30 characters >", CliParseString30),
    row(pmChannel,            "<channel: 0, 1, 2...>", CliParseString15),
    row(pmDecInt,             "<integer in decimal format>", CliParseDecInt),
    row(pmString63,           "<string up to 63 characters>", CliParseString63),
    {kParmEnd, nullptr, nullptr},
});
// clang-format on

constexpr bool every_type_has_one_row()
{
    for (std::uint32_t id = kParmFirst; id < kParmEnd; ++id)
        if (std::ranges::count(kRows, id, &CliParmRow::id) != (is_parameter(id) ? 1 : 0)) return false;
    return true;
}

static_assert(kRows.size() == 41 && kRows.back().id == kParmEnd && every_type_has_one_row());

const CliParmRow* find(std::uint32_t id)
{
    for (const CliParmRow* r = gCliParmTable.data(); r->id != kParmEnd; ++r)
        if (r->id == id) return r;
    return nullptr;
}
}  // namespace

constexpr std::array<CliParmRow, 41> gCliParmTable = kRows;

const char* CliLookupParmDescription(std::uint32_t id)
{
    const CliParmRow* found = find(id);
    return found ? found->help : nullptr;
}

Parser CliGetParserFunc(std::uint32_t id)
{
    const CliParmRow* found = find(id);
    return found ? found->parser : nullptr;
}
