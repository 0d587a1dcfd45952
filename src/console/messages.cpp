#include "console/messages.h"

#include <algorithm>
#include <bitset>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "console/terminal.h"

void number_missing_or_given_twice();  // never defined; naming it in a constant expression is the error

namespace {
struct Row {
    std::uint32_t number;
    Severity severity;
    const char* text;
};
using enum Severity;

// Several texts stand under more than one number: each number is a message of its own. The spellings are the
// product's, trailing blanks included.
// clang-format off
constexpr auto kRows = std::to_array<Row>({
    // general failure conditions
    {  0, error,   "Invalid command"},
    {  1, error,   "Invalid argument"},
    {  2, error,   "Invalid port number"},
    {  3, error,   "Port unconfigured"},
    {  4, error,   "No memory"},
    {  5, error,   "No such entry"},
    {  6, error,   "Entry already exists"},
    {  7, error,   "Table is full"},
    {  8, error,   "Table is empty"},
    {  9, error,   "Operation not supported"},
    { 10, error,   "Operation not permitted"},
    { 11, error,   "Operation failed"},
    { 12, error,   "Operation timed out"},
    { 13, error,   "Operation already in progress"},
    { 14, error,   "Resource busy"},
    { 15, error,   "Value out of range"},
    { 16, error,   "Name too long"},
    { 17, error,   "Name not found"},
    { 18, error,   "Name already in use"},
    { 19, error,   "Invalid interface"},
    { 20, error,   "Interface is down"},
    { 21, error,   "Interface is disabled"},
    { 22, error,   "Interface unconfigured"},
    { 23, error,   "Port is disabled"},
    { 24, error,   "Port is in use"},
    { 25, error,   "Device not ready"},
    { 26, error,   "Device not found"},
    { 27, error,   "Read error"},
    { 28, error,   "Write error"},
    { 29, error,   "File not found"},
    { 30, error,   "File is damaged"},
    { 31, error,   "Storage is full"},
    { 32, error,   "Storage is write protected"},
    { 33, error,   "Checksum error"},
    { 34, error,   "Version mismatch"},
    { 35, error,   "Internal error"},
    { 36, error,   "Can not create socket"},
    { 37, error,   "Can not bind socket"},
    { 38, error,   "Can not listen on socket"},
    { 39, error,   "Socket is not connected"},
    { 40, error,   "Socket is already connected"},
    { 41, error,   "Socket buffer is full"},
    { 42, error,   "Address already in use"},
    { 43, error,   "Address not available"},
    { 44, error,   "Network is down"},
    { 45, error,   "Network is unreachable"},
    { 46, error,   "Host is down"},
    { 47, error,   "Host is unreachable"},
    { 48, error,   "Connection refused"},
    { 49, error,   "Connection reset by peer"},
    { 50, error,   "Connection timed out"},
    { 51, error,   "Message too long"},
    { 52, error,   "Protocol not supported"},
    // routes, WAN link, multilink, calls
    { 53, error,   "No route to the destination"},
    { 54, error,   "The route already exists"},
    { 55, error,   "The route does not exist"},
    { 56, error,   "The routing table is full"},
    { 57, error,   "Static route can not be added"},
    { 58, error,   "Static route can not be deleted"},
    { 59, error,   "The default route can not be changed"},
    { 60, error,   "The gateway is not reachable through any interface"},
    { 61, error,   "The gateway can not be the device itself"},
    { 62, warning, "The route is not used while its interface is down"},
    { 63, warning, "A route with a lower metric is already in use"},
    { 64, warning, "The default route is not configured"},
    { 65, warning, "RIP is disabled on this interface"},
    { 66, warning, "RIP version differs from that of the neighbor"},
    { 67, error,   "RIP can not be enabled on this interface"},
    { 68, notice,  "WAN link is up"},
    { 69, warning, "WAN link is down"},
    { 70, warning, "WAN link is not configured"},
    { 71, warning, "WAN link is disabled"},
    { 72, warning, "WAN link was closed by the remote side"},
    { 73, warning, "WAN link was closed after its idle time"},
    { 74, error,   "WAN link can not be established"},
    { 75, error,   "WAN link protocol negotiation failed"},
    { 76, error,   "WAN link authentication failed"},
    { 77, error,   "WAN link address negotiation failed"},
    { 78, error,   "WAN link compression negotiation failed"},
    { 79, warning, "WAN link quality is too low"},
    { 80, warning, "No carrier on the WAN port"},
    { 81, notice,  "WAN link address has been assigned"},
    { 82, notice,  "Multilink bundle is up"},
    { 83, warning, "Multilink bundle is down"},
    { 84, notice,  "Link has joined the multilink bundle"},
    { 85, warning, "Link has left the multilink bundle"},
    { 86, error,   "Link can not join the multilink bundle"},
    { 87, error,   "Multilink bundle is full"},
    { 88, error,   "Multilink is not supported by the remote side"},
    { 89, error,   "Multilink endpoint discriminator does not match"},
    { 90, warning, "Multilink fragment was lost"},
    { 91, notice,  "Call connected"},
    { 92, notice,  "Call disconnected"},
    { 93, warning, "Call is already in progress"},
    { 94, warning, "No call is in progress"},
    { 95, warning, "Called number is busy"},
    { 96, warning, "Called number does not answer"},
    { 97, warning, "Call was rejected by the remote side"},
    { 98, warning, "Call was cleared by the network"},
    { 99, warning, "No dial tone"},
    {100, error,   "Call can not be placed"},
    {101, error,   "Called number is not configured"},
    {102, error,   "Called number is blocked"},
    {103, error,   "Call retry limit is reached"},
    {104, error,   "Caller is not authorized"},
    {105, error,   "Callback failed"},
    {106, error,   "No free channel for the call"},
    {107, warning, "Call duration limit is reached"},
    // session and system
    {108, notice,  "Management session timeout"},
    {109, notice,  "Management session closed"},
    {110, notice,  "Save configuration succeeded."},
    {111, error,   "Save configuration failed. Please try again"},
    {112, error,   "Current password is wrong. The correct password is required."},
    {113, error,   "The new password does not match the confirmed password."},
    {114, error,   "Passwords are 6 - 15 characters"},
    {115, error,   "The new password is the same as the old password."},
    {116, notice,  "The password has been changed."},
    {117, notice,  "Resetting system, please wait ..."},
    {118, notice,  "Revert to factory default and restarting, please wait ..."},
    {119, notice,  "Statistics cleared"},
    // values
    {120, error,   "Invalid IP address"},
    {121, error,   "Invalid IP netmask"},
    {122, error,   "Invalid gateway IP address"},
    {123, error,   "Invalid DNS IP address"},
    {124, error,   "Invalid port number"},
    {125, error,   "Port number is already in use"},
    {126, error,   "Invalid MAC address"},
    {127, error,   "MAC address is already in use"},
    {128, error,   "Invalid name"},
    {129, error,   "Name is already in use"},
    {130, error,   "Invalid date"},
    {131, error,   "Invalid time"},
    {132, error,   "Invalid time zone"},
    {133, error,   "Invalid network identifier (SSID)"},
    {134, error,   "Invalid WEP key"},
    {135, error,   "Invalid WEP key length"},
    {136, error,   "Invalid WEP key index"},
    {137, error,   "Invalid rts/cts threshold"},
    {138, error,   "Invalid fragment threshold"},
    {139, error,   "Invalid beacon interval"},
    {140, error,   "Invalid DTIM interval"},
    {141, error,   "IP address can not be a class D address"},
    {142, error,   "IP address can not be a class E address"},
    {143, error,   "IP address can not be a loopback address"},
    {144, error,   "IP address can not be a network address"},
    {145, error,   "IP address can not be a broadcast address"},
    {146, error,   "Invalid NAT public port"},
    {147, error,   "Invalid NAT local server"},
    {148, error,   "Invalid IP address"},
    // service ports and NAT
    {149, notice,  "The HTTP port has been changed."},
    {150, notice,  "The telnet port has been changed."},
    {151, notice,  "The SNMP port has been changed."},
    {152, notice,  "The new HTTP port will be used from the next session on."},
    {153, notice,  "The new telnet port will be used from the next session on."},
    {154, notice,  "Existing sessions on the old port will be closed."},
    {155, notice,  "NAT has been enabled."},
    {156, notice,  "NAT has been disabled."},
    {157, notice,  "NAT redirection has been added."},
    {158, notice,  "NAT redirection has been deleted."},
    {159, notice,  "The default DMZ has been changed."},
    {160, notice,  "The DMZ table has been changed."},
    // DHCP static assignments and address conflicts
    {161, error,   "DHCP static assignment already exists"},
    {162, error,   "DHCP static assignment does not exist"},
    {163, error,   "DHCP static assignment table is full"},
    {164, error,   "IP address is already assigned to another client"},
    {165, error,   "MAC address already has a static assignment"},
    {166, error,   "IP address is not in the LAN subnet"},
    {167, error,   "IP address is outside the DHCP address pool"},
    {168, error,   "IP address is the same as the LAN IP address"},
    {169, error,   "IP address is the same as the WAN IP address"},
    {170, error,   "IP address is the same as the gateway IP address"},
    {171, error,   "IP address is the same as the DNS IP address"},
    {172, error,   "IP address is in use by another host"},
    {173, error,   "LAN and WAN can not be in the same subnet"},
    {174, error,   "DHCP address pool is used up"},
    {175, error,   "DHCP address pool contains the LAN IP address"},
    {176, error,   "DHCP address pool is not in the LAN subnet"},
    {177, error,   "DHCP address pool contains a static assignment"},
    {178, error,   "DHCP server needs a fixed LAN IP address"},
    {179, error,   "DHCP lease does not exist"},
    {180, error,   "DHCP lease can not be released"},
    // what disrupts, confirmation, download and upload
    {181, warning, "This operation will restart the system."},
    {182, warning, "This operation will close all management sessions."},
    {183, warning, "This operation will interrupt the network traffic."},
    {184, warning, "This operation will erase the current configuration."},
    {185, warning, "Do not turn the power off until this operation is complete."},
    {186, notice,  "Do you want to continue (y/n)? "},
    {187, notice,  "Download succeeded."},
    {188, notice,  "Download has been canceled."},
    {189, notice,  "Upload succeeded."},
    {190, notice,  "Upload has been canceled."},
    {191, notice,  "The firmware is already up to date."},
    {192, notice,  "The configuration file has been restored."},
    // console core
    {193, notice,  "You have switched to Advanced prompt mode"},
    {194, notice,  "You have switched to Express prompt mode"},
    {195, error,   "Keyword or parameter length is too long."},
    {196, error,   "CLI error!"},
    {197, notice,  "Press any key to continue..."},
    {198, notice,  "Password has been successfully changed"},
    {199, error,   "Too many sessions are currently opened, please try later."},
    {200, notice,  "Time out. Good-Bye!"},
    {201, error,   "Syntax error in hex number '%s'."},
    {202, error,   "Line length is too long."},
    {203, error,   "Associated help information is not available."},
    {204, notice,  "Now you have switched to the normal edit mode."},
    {205, notice,  "Now you have switched to the smart edit mode."},
    {206, error,   "System memory low, unable to continue! Switch to normal mode."},
    {207, error,   "\"%s\" is not a legal keyword."},
    {208, error,   "\"%s\" is not a legal input in this command."},
    {209, error,   "\"%s\" and following input is/are extra in this command."},
    {210, error,   "Keyword \"%s\" is ambiguous in this command."},
    {211, error,   "Can not create session, out of memory."},
    {212, notice,  "Welcome!"},
    {213, error,   "Incorrect password."},
    {214, error,   "Password too long."},
    {215, notice,  "Logged out, Good-Bye!"},
    {216, warning, "Login time expired"},
    {217, error,   "Session does not exist."},
    {218, error,   "Session is in use."},
    // date, time, ARP
    {219, error,   "Month should be 1 to 12"},
    {220, error,   "Day should be 1 to 31"},
    {221, error,   "Year should be 00 to 99"},
    {222, error,   "Hour should be 0 to 23"},
    {223, error,   "Minute should be 0 to 59"},
    {224, error,   "Second should be 0 to 59"},
    {225, error,   "Time zone should be -12:00 to +12:00"},
    {226, error,   "System clock can not be set"},
    {227, error,   "ARP entry does not exist"},
    {228, error,   "ARP table is empty"},
    {229, error,   "Invalid character"},
    // what a parameter must look like
    {230, error,   "Parameter is one of these : mac, eap or both"},
    {231, error,   "Parameter must be \"enable\" or \"disable\""},
    {232, error,   "Parameter must be \"on\" or \"off\""},
    {233, error,   "Parameter must be \"up\" or \"down\""},
    {234, error,   "Parameter must be \"active\" or \"passive\""},
    {235, error,   "Parameter must be \"read\" or \"write\""},
    {236, error,   "Parameter must be an integer"},
    {237, error,   "Invalid date format, must be mm-dd-yy"},
    {238, error,   "Day should be one of the days of the month"},
    {239, error,   "Selection number should be one of those listed"},
    {240, error,   "Help topic should be one of those listed"},
    {241, error,   "Command is not available on this device"},
    {242, error,   "Command is not available in this operating mode"},
    {243, error,   "Associated help information is not available"},
    {244, error,   "A keyword must follow here"},
    {245, error,   "Incomplete command, use \"?\" to get help"},
    {246, error,   "The new and confirmed passwords do not match."},
    {247, error,   "Wrong password"},
    {248, error,   "Invalid IP address"},
    {249, error,   "IP netmask must be one bits followed by zero bits"},
    {250, error,   "Gateway must be an IP address or an interface name"},
    {251, error,   "String here should be double quoted if contains spaces, up to %d characters"},
    {252, error,   "Name must begin with a letter"},
    {253, error,   "MAC address format must be aa-bb-cc-dd-ee-ff, \"*\" is not supported"},
    {254, error,   "MAC address mask must be 12 hexadecimal digits"},
    {255, error,   "User name must be a string of up to 15 characters"},
    {256, error,   "Passwords are 6 - 15 characters"},
    {257, error,   "Host name must consist of letters, digits and hyphens"},
    {258, error,   "Domain name must consist of letters, digits, hyphens and dots"},
    {259, error,   "System name must be a string of up to 30 characters"},
    {260, error,   "System contact must be a string of up to 60 characters"},
    {261, error,   "System location must be a string of up to 60 characters"},
    {262, error,   "Prompt must be a string of up to 15 characters"},
    {263, error,   "Community must be \"read\" or \"write\""},
    {264, error,   "Trap manager must be an IP address"},
    {265, error,   "Trap must be \"enable\" or \"disable\""},
    {266, error,   "SNMP port should be 1 to 65535"},
    {267, error,   "Time must be on the 24-hour clock"},
    {268, error,   "Syntax error in time, format should be hh:mm:ss"},
    {269, error,   "Session timeout must be an integer, 1 to 60 minutes."},
    {270, error,   "HTTP port should be 1 to 65535"},
    {271, error,   "Telnet port should be 1 to 65535"},
    {272, error,   "HTTP timeout must be an integer, 1 to 60 minutes."},
    {273, error,   "Telnet timeout must be an integer, 1 to 60 minutes."},
    {274, error,   "Number of remote management clients should be 1 to 2"},
    {275, error,   "Remote management client must be an IP address"},
    {276, error,   "Action confirm word must be \"yes\" or \"no\""},
    {277, error,   "Spanning tree must be \"enable\" or \"disable\""},
    {278, error,   "Bridge priority should be 0 to 65535"},
    {279, error,   "Bridge hello time should be 1 to 10"},
    {280, error,   "Bridge maximum age should be 6 to 40"},
    {281, error,   "Bridge forward delay should be 4 to 30"},
    {282, error,   "Bridge aging time should be 10 to 1000000"},
    {283, error,   "Port priority should be 0 to 255"},
    {284, error,   "Port path cost should be 1 to 65535"},
    {285, error,   "Port speed must be 10, 100 or auto"},
    {286, error,   "Duplex mode must be half, full or auto"},
    {287, error,   "Flow control must be \"enable\" or \"disable\""},
    {288, error,   "Interface name must be a string of up to 15 characters"},
    {289, error,   "Profile name must be a string of up to 15 characters"},
    {290, error,   "Interface state must be \"up\" or \"down\""},
    {291, error,   "MTU should be 68 to 1500"},
    {292, error,   "Hop count should be 1 to 15"},
    {293, error,   "RIP version should be 1 or 2"},
    {294, error,   "RIP mode must be \"active\" or \"passive\""},
    {295, error,   "Destination must be an IP address"},
    {296, error,   "Destination netmask must match the destination"},
    {297, error,   "Protocol must be tcp, udp or both"},
    {298, error,   "Protocol must be any, tcp, udp, icmp or igmp"},
    {299, error,   "TCP and UDP use 16-bit port numbers"},
    {300, error,   "Ending port should not be below the starting port"},
    {301, error,   "Port numbers must be single or range"},
    {302, error,   "Port must be any, single or range"},
    {303, error,   "Address must be any, single or network"},
    {304, error,   "Direction must be inbound or outbound"},
    {305, error,   "Default action must be grant, deny or disable"},
    {306, error,   "Filter name must be a string of up to 30 characters"},
    {307, error,   "MAC filter name must be a string of up to 30 characters"},
    {308, error,   "IP filter name must be a string of up to 30 characters"},
    {309, error,   "MAC address must be single, range or mask"},
    {310, error,   "Redirection type must be server or trigger"},
    {311, error,   "NAT redirect name must be a string of up to 30 characters"},
    {312, error,   "NAT multi dmz name must be a string of up to 30 characters"},
    {313, error,   "Invalid decimal value (legal range: 0 - 65535)."},
    {314, error,   "Invalid hexadecimal value (legal range: 0 - ffff)."},
    {315, error,   "Value must be a decimal number"},
    {316, error,   "Value must be a hexadecimal number"},
    {317, error,   "Value should be greater than 0"},
    {318, error,   "Value should be one of those listed"},
    {319, error,   "Public port should be 1 to 65535"},
    {320, error,   "Local port should be 1 to 65535"},
    {321, error,   "Triggering port should be 1 to 65535"},
    {322, error,   "Opened port should be 1 to 65535"},
    {323, error,   "Number of opened port ranges should be 1 to 3"},
    {324, error,   "Local server must be an IP address in the LAN subnet"},
    {325, error,   "NAT address must be an IP address"},
    {326, error,   "DMZ host must be an IP address in the LAN subnet"},
    {327, error,   "Lower address of the pool must be an IP address"},
    {328, error,   "Upper address of the pool must be an IP address"},
    {329, error,   "DNS server must be an IP address"},
    {330, error,   "Gateway must be an IP address"},
    {331, error,   "Lease time should be 1 to 525600"},
    {332, error,   "Time server must be an IP address or a domain name"},
    {333, error,   "Request interval should be 1 to 720"},
    {334, error,   "Time zone should be the differences between local time and GMT. (e.g.: -8:00 for Pacific Time)"},
    {335, error,   "Invalid Entry: NAT IP"},
    {336, error,   "Invalid Entry: Public Port"},
    {337, error,   "Invalid Entry: Private Port"},
    {338, error,   "Invalid Entry: Private IP"},
    {339, error,   "Invalid Entry: Protocol"},
    {340, error,   "Invalid Entry: Port Range"},
    {341, error,   "DDNS hostname must be a string of up to 50 characters"},
    {342, error,   "DDNS username must not be empty"},
    {343, error,   "DDNS password must not be empty"},
    {344, error,   "UPnP must be \"enable\" or \"disable\""},
    {345, error,   "System log server must be an IP address"},
    {346, error,   "Trace must be \"enable\" or \"disable\""},
    {347, error,   "Network name (SSID) must be a string of up to 32 characters"},
    {348, error,   "SSID broadcasting must be \"yes\" or \"no\""},
    {349, error,   "Wireless radio must be \"enable\" or \"disable\""},
    {350, error,   "Transmit power should be one of those listed"},
    {351, error,   "Transmit rate should be one of those listed"},
    {352, error,   "Preamble must be short or long"},
    {353, error,   "Antenna should be one of those listed"},
    {354, error,   "Wireless client must be a MAC address"},
    {355, error,   "Wireless client limit should be one of those listed"},
    {356, error,   "Beacon rate should be one of those listed"},
    {357, error,   "RADIUS server IP must be an IP address"},
    {358, error,   "RADIUS server must be \"primary\" or \"secondary\""},
    {359, error,   "Port number should be 1 to 65535"},
    {360, error,   "RADIUS server timeout should be 1 to 60"},
    {361, error,   "RADIUS server retry limit should be 1 to 5"},
    {362, error,   "Regulatory domain should be fcc, etsi, france, spain, or japan"},
    {363, error,   "Channel number should follow the range in the selected domain"},
    {364, error,   "WEP key length should be 40 or 128"},
    {365, error,   "Key index should be 1 to 4"},
    {366, error,   "Rts/cts threshold should be 256 to 2432"},
    {367, error,   "Fragment threshold should be 256 to 2346"},
    {368, error,   "Beacon interval should be 1 to 1000"},
    {369, error,   "DTIM interval should be 1 to 65535"},
    {370, error,   "Radius server reattempt should be 5 to 60"},
    {371, error,   "MAC filter mode should be: disabled, grant, or deny"},
    {372, error,   "Invalid log level number : valid range 1 - 7"},
    {373, error,   "Invalid ping request number : valid range 1 - 100"},
    {374, error,   "Invalid ping packet size: valid range 56 - 1932"},
    // terminal set-up
    {375, error,   "Standard input is not a valid terminal device"},
    {376, error,   "fpathconf error or _POSIX_VDISABLE is no in effect"},
    {377, error,   "function tcgetattr() error"},
    {378, error,   "function tcsetattr() error"},
    // access point
    {379, error,   "The mode should be one of accesspoint | wds | repeater"},
    {380, error,   "Delete wds peer %s fail"},
    {381, error,   "IP Address can not be the same as AP's IP "},
    {382, error,   "IP Address can not be the same as Broadcast address "},
    {383, error,   "IP Address can not be the same as Network IP address "},
    {384, error,   "Invalid lease time range "},
    {385, error,   "IP Address can not be the Loopback"},
    {386, error,   "Invalid Dhcp Ip address range "},
    {387, error,   "IP address can not be 0.0.0.0 "},
    {388, error,   "IP address can not be 255.255.255.255 "},
    {389, error,   "IP address can not be a multicast address"},
    {390, error,   "IP address and Default gateway must be in the same subnet."},
    {391, error,   "Dhcp Ip address range must be in the LAN subnet"},
    {392, error,   "Dhcp Ip address range contains a static assignment"},
    {393, error,   "The number of Dhcp server host ip exceeds %d "},
    {394, error,   "WDS peer already exists"},
    {395, error,   "WDS peer does not exist"},
    {396, error,   "WDS peer table is full"},
    {397, error,   "WDS is not available in this operating mode"},
    {398, error,   "Remote log daemon must be an IP address"},
    {399, error,   "Remote log daemon port should be 1 to 65535"},
    {400, error,   "Remote log daemon is disabled"},
    {401, error,   "High watermark should be 1 to 100"},
    {402, error,   "Low watermark should be 1 to 100"},
    {403, error,   "Low watermark should be below the high watermark"},
    {404, error,   "VLAN identifier should be 1 to 4094"},
    {405, error,   "VLAN priority should be 0 to 7"},
    {406, error,   "VLAN already exists"},
    {407, error,   "VLAN does not exist"},
    {408, error,   "VLAN table is full"},
    {409, error,   "WEP key must be 5 ASCII characters"},
    {410, error,   "WEP key must be 13 ASCII characters"},
    {411, error,   "WEP key must be 5 hexadecimal octets, as in aa-bb-cc-dd-ee"},
    {412, error,   "WEP key must be 13 hexadecimal octets, as in aa-bb-cc"},
    {413, error,   "WEP key must not be empty"},
    {414, error,   "Security policy should be one of those listed"},
    {415, error,   "Security policy is not available in this operating mode"},
    {416, error,   "Interface name should be one of those listed"},
    {417, error,   "Please entry <radio1-radio6>"},
    {418, error,   "Please entry <lan1-lan2>|<radio1-radio6>"},
    {419, error,   "Wireless mode should be one of those listed"},
    {420, error,   "Wireless mode is not available in the selected domain"},
    {421, error,   "Channel is not available in this wireless mode"},
    {422, error,   "Passphrase must be a string of 8 to 63 characters"},
    {423, error,   "Pre-shared key must be 64 hexadecimal digits"},
    {424, error,   "Pre-shared key must not be empty"},
    {425, error,   "Encryption type should be one of those listed"},
    {426, error,   "Group rekey interval must be an integer"},
    {427, error,   "Time server can not be reached"},
    {428, error,   "Time server does not answer"},
    {429, error,   "Please specify time server IP"},
    {430, error,   "Please specify time server domain name"},
    {431, error,   "Invalid interval value should be 1~720"},
    {432, error,   "Syslog facility should be one of those listed"},
    {433, error,   "Syslog facility is already enabled"},
    {434, error,   "Syslog facility is already disabled"},
    {435, error,   "Hostname must not be empty"},
    {436, error,   "Hostname is a string of up to %d characters"},
});
// clang-format on

constexpr std::size_t census(Severity severity)
{
    std::size_t rows = 0;
    for (const Row& row : kRows) rows += row.severity == severity;
    return rows;
}
static_assert(kRows.size() == kMessages);
static_assert(census(notice) == 41 && census(warning) == 29 && census(error) == 367);

constexpr int kSeverityShift = 24;

consteval std::array<CatalogEntry, kMessages> catalog()
{
    std::array<CatalogEntry, kMessages> entries{};
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        if (kRows[i].number != i) number_missing_or_given_twice();
        entries[i] = {static_cast<std::uint32_t>(kRows[i].severity) << kSeverityShift, kRows[i].text};
    }
    return entries;
}
}  // namespace

constinit std::array<CatalogEntry, kMessages> errMsg = catalog();

namespace {
constexpr const char* kPrefix[] = {" ", " Warning: ", " Error: ", " SNMP: "};
constexpr const char* kEnding[] = {"\n", "\a\n", "\a\n", "\n"};
constexpr std::size_t kLongestEnding = 2;
constexpr std::ptrdiff_t kColumns = 80;

constexpr std::size_t kPatchSize = 272;  // every text of the catalog with the arguments that the console gives it
char msgPatch[kPatchSize];
std::bitset<kMessages> replaced;  // entries whose text PatchMsg allocated

// A number outside the catalog is a fault of the console's own and is reported as that.
CatalogEntry& entry(std::uint32_t number) { return errMsg[number < kMessages ? number : kCliError]; }

std::size_t severity(const CatalogEntry& message) { return (message.flags & ~kPatched) >> kSeverityShift; }

bool take_patch(CatalogEntry& message)
{
    const bool patched = message.flags & kPatched;
    message.flags &= ~kPatched;
    return patched;
}

// Prefix and text without the line ending, for which room is left. A composed text that does not fit is cut.
void compose(char* buffer, CatalogEntry& message, std::va_list arguments)
{
    constexpr std::size_t kRoom = kMessageSize - kLongestEnding;
    const std::size_t prefix = std::strlen(kPrefix[severity(message)]);
    std::memcpy(buffer, kPrefix[severity(message)], prefix);
    if (take_patch(message))
        std::snprintf(buffer + prefix, kRoom - prefix, "%s", msgPatch);
    else
        std::vsnprintf(buffer + prefix, kRoom - prefix, message.text, arguments);
}

// Copies `text`, which begins with a blank, with a newline before the blank at which a line must end; such a line
// begins with that blank. Returns the end of the copy. Twice the text's size is always room enough.
char* wrap(const char* text, char* out)
{
    const char* line = text;   // where the current line begins
    const char* blank = text;  // the last blank seen
    const char* end = text;    // of the word just scanned
    while (*end) {
        end += 1 + std::strcspn(end + 1, " ");
        if (end - line >= kColumns) {
            out = std::copy(line, blank, out);
            *out++ = '\n';
            line = blank;
        }
        blank = end;
    }
    return std::copy(line, end, out);
}

void print_wrapped(int term, const char* text, const char* ending)
{
    char lines[2 * kMessageSize];
    char* const end = wrap(text, lines);
    std::memcpy(end, ending, std::strlen(ending) + 1);
    prn_msg(term, lines);
}

// The text as a printf format that prints it; null when there is no memory.
char* as_format(const char* text)
{
    char* const format = static_cast<char*>(std::malloc(2 * std::strlen(text) + 1));
    if (!format) return nullptr;
    char* out = format;
    for (; *text; ++text) {
        if (*text == '%') *out++ = '%';
        *out++ = *text;
    }
    *out = 0;
    return format;
}

void replace_text(std::uint32_t number, const char* text)
{
    char* const format = as_format(text);
    if (!format) return;
    if (replaced[number]) std::free(const_cast<char*>(errMsg[number].text));
    replaced.set(number);
    errMsg[number].text = format;
}
}  // namespace

int PrintMsg(int term, std::uint32_t number, ...)
{
    CatalogEntry& message = entry(number);
    char text[kMessageSize];
    std::va_list arguments;
    va_start(arguments, number);
    compose(text, message, arguments);
    va_end(arguments);

    print_wrapped(term, text, number == kContinueQuestion ? "" : kEnding[severity(message)]);
    return 0;
}

int SPrintMsg(char* buffer, std::uint32_t number, ...)
{
    CatalogEntry& message = entry(number);
    std::va_list arguments;
    va_start(arguments, number);
    compose(buffer, message, arguments);
    va_end(arguments);

    const char* const ending = kEnding[severity(message)];
    std::memcpy(buffer + std::strlen(buffer), ending, std::strlen(ending) + 1);
    return 0;
}

void print_warning(int term, const char* text)
{
    constexpr auto kSeverity = static_cast<std::size_t>(Severity::warning);
    char line[kMessageSize - kLongestEnding];
    std::snprintf(line, sizeof line, "%s%s", kPrefix[kSeverity], text);
    print_wrapped(term, line, kEnding[kSeverity]);
}

int PatchMsg(int mode, std::uint32_t number, ...)
{
    constexpr int kNextPrintOnly = 2;
    if (number >= kMessages) return 0;
    std::va_list arguments;
    va_start(arguments, number);
    std::vsnprintf(msgPatch, sizeof msgPatch, errMsg[number].text, arguments);
    va_end(arguments);

    if (mode == kNextPrintOnly)
        errMsg[number].flags |= kPatched;
    else
        replace_text(number, msgPatch);
    return 0;
}

const char* GetMsgText(std::uint32_t number)
{
    CatalogEntry& message = entry(number);
    return take_patch(message) ? msgPatch : message.text;
}
