// The questions of the staged dialogues, by area. Every question takes the current value as its one argument, %s or %d,
// or none. Rows that no dialogue asks keep their place: the others are found by number.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

// A lost comma glues two texts together: the last row is then missing and the glued one takes too many values.
template <std::size_t rows> consteval bool prompts_whole(const char* const (&table)[rows], std::ptrdiff_t mostValues)
{
    return std::ranges::all_of(table, [mostValues](const char* text) {
        return text && std::ranges::count(std::string_view(text), '%') <= mostValues;
    });
}

// clang-format off
// Value words.
inline constexpr const char* CliGenPrompt[6] = {"false", "true", "no", "yes", "disabled", "enabled"};
static_assert(prompts_whole(CliGenPrompt, 0));

inline constexpr const char* CliIpPrompt[5] = {
    " obtain IP address automatically (%s, yes/no): ",
    " IP address (%s): ",
    " IP subnet mask (%s): ",
    " gateway IP address (%s): ",
    " primary DNS IP address (%s): ",
};
static_assert(prompts_whole(CliIpPrompt, 1));

inline constexpr const char* CliHttpPrompt[1] = {
    " warning: changing the port number will close existing sessions; do you want to continue(%s, yes/no):",
};
static_assert(prompts_whole(CliHttpPrompt, 1));

inline constexpr const char* ClidhcpPrompt[7] = {
    " enter lower IP address of address pool (%s): ",
    " enter upper IP address of address pool (%s): ",
    " enable lease time (%s, 1-525600): ",
    " do you want to assign DNS server (%s, yes/no): ",
    " enter IP address of the primary DNS (%s): ",
    " enter IP address of the secondary DNS (%s): ",
    " enter gateway IP address (%s): ",
};
static_assert(prompts_whole(ClidhcpPrompt, 1));

inline constexpr const char* ClirmtmgntPrompt[4] = {
    " allow all remote management client (%s, yes/no): ",
    " enter number of remote management clients (%s, 1~2): ",
    " enter IP address of the remote management client 1 (%s): ",
    " enter IP address of the remote management client 2 (%s): ",
};
static_assert(prompts_whole(ClirmtmgntPrompt, 1));

inline constexpr const char* CliNatPrompt[15] = {
    " enter interface name (%s): ",
    " enter NAT IP address (%s): ",
    " enter DMZ IP address (%s): ",
    " select redirection type (%s, server/trigger): ",
    " select public port numbers (%s, single/range): ",
    " select local port numbers (%s, single/range): ",
    " select triggering protocol (%s, tcp/udp/both): ",
    " enter port number (%d, 1-65535): ",
    " enter starting port number (%d, 1-65535): ",
    " enter ending port number (%d, 1-65535): ",
    " enter local server IP address (%s): ",
    " enter triggering port number (%d, 1-65535): ",
    " enter opened port range (%s, port or first-last, up to 3 ranges): ",
    " do you want to enter another range (%s, yes/no): ",
    " select opened protocol (%s, tcp/udp/both): ",
};
static_assert(prompts_whole(CliNatPrompt, 1));

inline constexpr const char* CliIpFtrPrompt[12] = {
    " enter interface name (%s): ",
    " select direction (%s, inbound/outbound): ",
    " select ip protocol (%s, any/tcp/udp/icmp/igmp): ",
    " select source address (%s, any/single/network): ",
    " select destination address (%s, any/single/network): ",
    " select source port (%s, any/single/range): ",
    " select destination port (%s, any/single/range): ",
    " enter ip address (%s): ",
    " enter port number (%d, 1-65535): ",
    " enter starting port number (%d, 1-65535): ",
    " enter ending port number (%d, 1-65535): ",
    " enter netmask (%s): ",
};
static_assert(prompts_whole(CliIpFtrPrompt, 1));

inline constexpr const char* CliNtpClientPrompt[6] = {
    " enter timezone (%s): ",
    " enter time server by IP address (%s, yes/no): ",
    " enter time server IP (%s): ",
    " enter time server domain name (%s): ",
    " enter request interval (%s, 1-720): ",
    " enable ntp (%s, yes/no): ",
};
static_assert(prompts_whole(CliNtpClientPrompt, 1));

inline constexpr const char* ddnsPrompt[4] = {
    " enable DDNS (%s, yes/no): ",
    " enter hostname (%s): ",
    " enter username (%s): ",
    " enter password (%s): ",
};
static_assert(prompts_whole(ddnsPrompt, 1));

inline constexpr const char* CliRadiusServerPrompt[7] = {
    " enter authenticatation (%s, mac/eap/all): ",
    " enter server IP (%s): ",
    " enter port number (%d, 1-65535): ",
    " enter shared secret: ",
    " enter timeout (%d, 1-60): ",
    " enter retry times (%d, 1-5): ",
    " enable %s server (%s, yes/no): ",
};
static_assert(prompts_whole(CliRadiusServerPrompt, 2), "the last one takes the server's name too");

inline constexpr const char* CliWlanPrompt[30] = {
    " enter network name (%s): ",
    " disable SSID broadcasting (%s, yes/no): ",
    " select wlan mode(%s, 802.11bg/802.11g/802.11a/802.11aTurbo): ",
    " select regulatory domain (%s, fcc/etsi/france/spain/japan): ",
    " enter channel number (%d, 1-11): ",
    " enter channel number (%d, 1-13): ",
    " enter channel number (%d, 10-13): ",
    " enter channel number (%d, 1-13): ",
    " enter security policy (%s, none/wep/802.1x/wpa-psk/wpa):",
    " enable WEP encryption (%s, yes/no): ",
    " use passphrase to generate key (%s, yes/no): ",
    " select WEP key length (%s, 64/128/152): ",
    " enter Passphrase (%s): ",
    " select WEP Key 1 type (%s, asc64/hex64/asc128/hex128/asc152/hex152): ",
    " select WEP Key 2 type (%s, asc64/hex64/asc128/hex128/asc152/hex152): ",
    " select WEP Key 3 type (%s, asc64/hex64/asc128/hex128/asc152/hex152): ",
    " select WEP Key 4 type (%s, asc64/hex64/asc128/hex128/asc152/hex152): ",
    " select the key index to activate (%d, 1-4): ",
    " enter WEP key1 (%s): ",
    " enter WEP key2 (%s): ",
    " enter WEP key3 (%s): ",
    " enter WEP key4 (%s): ",
    " select key length for re-keying (%s 0=disable/5/13/16): ",
    " select encryption type (%s TKIP/AES/both): ",
    " select group rekey interval (0~259200): ",
    " select pre-shared key (%s): ",
    " enter rts/cts threshold (%d, 256-2432): ",
    " enter fragment threshold (%d, 256-2346): ",
    " enter beacon interval (mini-seconds) (%d, 1-1000): ",
    " enter DTIM interval (%d, 1-65535): ",
};
static_assert(prompts_whole(CliWlanPrompt, 1));

inline constexpr const char* idsPrompt[49] = {
    " enter system name (%s): ",                                                // 0
    " enter system location (%s): ",
    " enter system contact (%s): ",
    " enter console prompt (%s): ",
    " enter session timeout in minutes (%d, 1-60): ",
    " enter HTTP port number (%d, 1-65535): ",                                  // 5
    " enter HTTP timeout in minutes (%d, 1-60): ",
    " enter telnet port number (%d, 1-65535): ",
    " enter telnet timeout in minutes (%d, 1-60): ",
    " enter date (%s, mm-dd-yy): ",
    " enter time (%s, hh:mm:ss): ",                                             // 10
    " enter LAN IP address (%s): ",
    " enter LAN netmask (%s): ",
    " enter WAN IP address (%s): ",
    " enter WAN netmask (%s): ",
    " enter default gateway (%s): ",                                            // 15
    " enter primary DNS (%s): ",
    " enter secondary DNS (%s): ",
    " enter read-only community string (%s): ",
    " enter read-write community string (%s): ",
    " enter trap manager IP address (%s): ",                                    // 20
    " enable SNMP traps (%s, yes/no): ",
    " enable UPnP (%s, yes/no): ",
    " enable remote management (%s, yes/no): ",
    " allow internet ping (%s, yes/no): ",
    " enter log level (%d, 1-7): ",                                             // 25
    " enable remote log daemon (%s, yes/no): ",
    " enter IP address of the remote log daemon (%s): ",
    " enter number of ping request (%d, 1-100): ",
    " enter packet size (%d, 56-1932): ",
    " enter a port name (%s): ",                                                // 30
    " please enter your password: ",
    " please enter old password: ",
    " please enter new password: ",
    " please re-enter new password: ",
    " enter a MAC address (%s): ",                                              // 35
    " enter a host name (%s): ",
    " please enter a selection number [1..%d] for more detail information: ",
    " enable DHCP server (%s, yes/no): ",
    " enter an interface name (%s): ",
    " enter destination IP address (%s): ",                                     // 40
    " enter destination netmask (%s): ",
    " enter gateway address (%s): ",
    " enter hop counts (%d): ",
    " enable RIP (%s, yes/no): ",
    " select RIP version (%s, rip1/rip2): ",                                    // 45
    " enable spanning tree (%s, yes/no): ",
    " save the configuration (%s, yes/no): ",
    " do you want to continue (%s, yes/no): ",
};
static_assert(prompts_whole(idsPrompt, 1));

inline constexpr const char* cliPrompt[45] = {
    " enter number of lines per page (%d): ",                                   // 0
    " enable echo (%s, yes/no): ",
    " select edit mode (%s, normal/smart): ",
    " select prompt mode (%s, express/advanced): ",
    " enter number of sessions (%d, 1-3): ",
    " enter peer name (%s): ",                                                  // 5
    " enter peer MAC address (%s): ",
    " select operational mode (%s, accesspoint/wds/repeater): ",
    " select MAC filter mode (%s, disable/grant/deny): ",
    " enter MAC filter name (%s): ",
    " enter radio name (%s): ",                                                 // 10
    " enter static IP address (%s): ",
    " enter static MAC address (%s): ",
    " enter route destination (%s): ",
    " enter route netmask (%s): ",
    " enter route gateway (%s): ",                                              // 15
    " enter profile name (%s): ",
    " enter syslog facility (%s): ",
    " enter trace level (%d, 1-7): ",
    " enter primary radius server (%s): ",
    " enter secondary radius server (%s): ",                                    // 20
    " enter reattempt interval in minutes (%d, 5-60): ",
    " enter retry interval in times (%d, 1-5): ",
    " Clear the log (Yes/No) : ",
    " Clear the statistics (Yes/No) : ",
    " Clear the ARP table (Yes/No) : ",                                         // 25
    " Clear the configuration (Yes/No) : ",
    " Save the configuration (Yes/No) : ",
    " Delete the static address (Yes/No) : ",
    " Delete the MAC filter (Yes/No) : ",
    " Delete the peer (Yes/No) : ",                                             // 30
    " Delete the route (Yes/No) : ",
    " Disable the DHCP server (Yes/No) : ",
    " Disable the ntp client (Yes/No) : ",
    " Disable UPnP (Yes/No) : ",
    " Disable remote management (Yes/No) : ",                                   // 35
    " Disable SNMP traps (Yes/No) : ",
    " Force system to close the telnet connection (Yes/No) : ",
    " Force system to close all sessions (Yes/No) : ",
    " Do you really want to change the IP address (Yes/No) : ",
    " Do you really want to change the password (Yes/No) : ",                   // 40
    " System will reboot (Yes/No) : ",
    " Force system to close the http connection (Yes/No) : ",
    " Do you really want to Disable signature check (Yes/No) : ",
    " Do you really want to Enable signature check (Yes/No) : ",
};
static_assert(prompts_whole(cliPrompt, 1));

inline constexpr const char* ftrPrompt[25] = {
    " enter filter name (%s): ",                                                // 0
    " enter interface name (%s): ",
    " select direction (%s, inbound/outbound): ",
    " select default action (%s, grant/deny/disable): ",
    " select action (%s, grant/deny): ",
    " select source address (%s, any/single/network): ",                        // 5
    " enter source IP address (%s): ",
    " enter source netmask (%s): ",
    " select destination address (%s, any/single/network): ",
    " enter destination IP address (%s): ",
    " enter destination netmask (%s): ",                                        // 10
    " select ip protocol (%s, any/tcp/udp/icmp/igmp): ",
    " select source port (%s, any/single/range): ",
    " enter starting source port (%d, 1-65535): ",
    " enter ending source port (%d, 1-65535): ",
    " select destination port (%s, any/single/range): ",                        // 15
    " enter starting destination port (%d, 1-65535): ",
    " enter ending destination port (%d, 1-65535): ",
    " enter ICMP type (%s): ",
    " select MAC address (%s, single/range/mask): ",
    " enter MAC address (%s): ",                                                // 20
    " enter starting MAC address (%s): ",
    " enter ending MAC address (%s): ",
    " enter MAC address mask (%s): ",
    " enable filter (%s, yes/no): ",
};
static_assert(prompts_whole(ftrPrompt, 1));
// clang-format on
