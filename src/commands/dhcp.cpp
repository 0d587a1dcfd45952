// The DHCP server of the LAN side: its settings, its reserved addresses and its leases.
#include "service/fields/dhcp.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>

#include "commands/command.h"
#include "commands/lan_address.h"
#include "console/messages.h"
#include "prompts/prompts.h"
#include "service/fields/address.h"
#include "values/format.h"

namespace {
constexpr int kDisabledWord = 4, kEnabledWord = 5;  // in CliGenPrompt
constexpr char kStaticRow[] = "%-18s%-12s\n", kStaticEntryRow[] = "%-18s%12s\n";
constexpr char kLeaseRow[] = "%-10s%-18s%-20s%-15s%-8s%-4s\n";

bool report(const Outcome& outcome, std::uint32_t group = kDhcpGroup)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), group);
    return outcome.ok();
}

// The entries that both the answer's count and its table really have.
std::size_t entries(const AttachedTable& table)
{
    return std::min<std::size_t>(dhcp_table_record::count.get(usrComParam), table.size());
}

void switch_server(ActionBlock& call, int term, std::uint8_t state)
{
    if (!report(read_record(code::kReadDhcpServer))) return;
    dhcp_record::state.set(usrComParam, state);
    if (report(write_record(code::kWriteDhcpServer))) CliShowDhcpSrv(call, term);
}

void print_lease(unsigned char* entry)
{
    const std::time_t expiry = dhcp_entry::expiry.get(entry);
    const std::tm local = *std::localtime(&expiry);
    char expires[64];
    std::snprintf(expires, sizeof expires, "%d-%d-%d %d:%d:%d", local.tm_mon + 1, local.tm_mday, local.tm_year + 1900,
                  local.tm_hour, local.tm_min, local.tm_sec);
    std::printf(kLeaseRow, dhcp_entry::hostName.get(entry), CliFormatIPv4(dhcp_entry::address.get(entry)),
                CliFormatMAC(dhcp_entry::mac.get(entry)), expires,
                dhcp_entry::flags.get(entry) & dhcp_entry::kStatic ? "static" : "dynamic", "LAN");
}

// What the LAN record, just read, says against reserving the address; 0 when nothing does.
std::uint32_t reserved_address_refusal(std::uint32_t address)
{
    const std::uint32_t lan = address_record::address.get(usrComParam);
    const std::uint32_t mask = address_record::netmask.get(usrComParam);
    if (address == lan) return kAddressIsOwn;
    if (address == CliGetBroadCastIP(lan, mask)) return kAddressIsBroadcast;
    if (address == CliGetNetworkIP(lan, mask)) return kAddressIsNetwork;
    return kOk;
}
}  // namespace

void CliShowDhcpSrv(ActionBlock&, int)
{
    if (!report(read_record(code::kReadDhcpServer))) return;
    const bool on = dhcp_record::state.get(usrComParam) == dhcp_record::kEnabled;
    std::printf("        DHCP server status:       %s\n", CliGenPrompt[on ? kEnabledWord : kDisabledWord]);
    // One formatter buffer, two addresses: each is printed before the next is made.
    std::printf("        IP address range:         %s", CliFormatIPv4(dhcp_record::lowerAddress.get(usrComParam)));
    std::printf(" to %s\n", CliFormatIPv4(dhcp_record::upperAddress.get(usrComParam)));
    std::printf("        Network mask:             %s\n        Lease time:               %d minutes\n",
                CliFormatIPv4(dhcp_record::netmask.get(usrComParam)),
                static_cast<int>(dhcp_record::leaseTime.get(usrComParam)));
    std::printf("        Gateway IP address: %s\n", CliFormatIPv4(dhcp_record::gateway.get(usrComParam)));
    std::printf("        Primary DNS IP address:   %s\n", CliFormatIPv4(dhcp_record::primaryDns.get(usrComParam)));
    std::printf("        Secondary DNS IP address: %s\n", CliFormatIPv4(dhcp_record::secondaryDns.get(usrComParam)));
}

void CliShowDhcpStatic(ActionBlock&, int)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange answer(code::kReadDhcpStatic);
    if (!report(answer.outcome())) return;
    const AttachedTable table = answer.table(dhcp_entry::kSize);
    std::printf(kStaticRow, "IP Address", "MAC Address");
    std::printf("------------------------------------\n");
    for (std::size_t i = 0; i < entries(table); ++i)
        std::printf(kStaticEntryRow, CliFormatIPv4(dhcp_entry::address.get(table[i])),
                    CliFormatMAC(dhcp_entry::mac.get(table[i])));
}

void CliShowDchpCntTbl(ActionBlock&, int)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange answer(code::kReadLeases);
    if (!report(answer.outcome())) return;
    const AttachedTable table = answer.table(dhcp_entry::kSize);
    std::printf(kLeaseRow, "Host Name", "IP Address", "Mac Address", "Lease-Expires", "Entry", "Network");
    std::printf("------------------------------------------------------------------------------\n");
    for (std::size_t i = 0; i < entries(table); ++i) print_lease(table[i]);
}

void CliEnableDhcpSrv(ActionBlock& call, int term) { switch_server(call, term, dhcp_record::kEnabled); }
void CliDisableDhcpSrv(ActionBlock& call, int term) { switch_server(call, term, dhcp_record::kDisabled); }

void CliAddDhcpStatic(ActionBlock& call, int term)
{
    const auto address = static_cast<std::uint32_t>(call.parms.value[0]);
    if (!report(read_lan_record(), kAddressGroup)) return;
    if (const std::uint32_t refusal = reserved_address_refusal(address); refusal != kOk) {
        PrintMsg(term, refusal);
        return;
    }
    std::memset(&usrComParam, 0, sizeof usrComParam);
    dhcp_static_request::address.set(usrComParam, address);
    dhcp_static_request::mac.set(usrComParam, &call.parms.value[1]);
    if (report(write_record(code::kAddDhcpStatic))) CliShowDhcpStatic(call, term);
}

void CliDelDhcpStatic(ActionBlock& call, int term)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    dhcp_static_request::address.set(usrComParam, static_cast<std::uint32_t>(call.parms.value[0]));
    if (report(write_record(code::kDeleteDhcpStatic))) CliShowDhcpStatic(call, term);
}
