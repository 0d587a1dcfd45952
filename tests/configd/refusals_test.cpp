// What each area takes and refuses. A refusal changes nothing, and whatever was taken is a configuration that can be
// read again.
#include "configd/area_session.h"
#include "configd/areas/firewall.h"
#include "configd/areas/system_log.h"
#include "configd/system_log.h"
#include "configd/table_sizes.h"
#include "service/fields/address.h"
#include "service/fields/ddns.h"
#include "service/fields/dhcp.h"
#include "service/fields/engineering.h"
#include "service/fields/ip_filter.h"
#include "service/fields/log_table.h"
#include "service/fields/management.h"
#include "service/fields/nat.h"
#include "service/fields/operation_mode.h"
#include "service/fields/password.h"
#include "service/fields/ping.h"
#include "service/fields/profile.h"
#include "service/fields/rip.h"
#include "service/fields/routes.h"
#include "service/fields/system_log.h"
#include "service/fields/time.h"
#include "service/fields/wds.h"
#include "service/fields/wireless_settings.h"

namespace {
class Refusals : public AreaSession {
protected:
    Refusals()
    {
        machine.interfaces = {interface_named("eth1", 2, 0x0A090002), interface_named("lo", 0)};
        machine.interfaces.back().kind = device::Kind::kOther;
        profile.radios[0].mode = 2;  // 11g
        start();
    }
    void expect(std::uint32_t status, const ComParam& request, const std::string& name)
    {
        const std::string before = service->store.running().text();
        EXPECT_EQ(ask(request), status) << name;
        EXPECT_TRUE(status == kStatusOk || payload_is_empty()) << name;
        const std::string now = service->store.running().text();
        EXPECT_TRUE(status == kStatusOk || now == before) << name << now;
        start();
        EXPECT_EQ(service->store.running().text(), now) << name;
    }
};

// A record that is read, changed and written.
struct Write {
    const char* name;
    std::uint16_t read, write;
    void (*change)(ComParam& r);
    std::uint32_t status;
};
namespace m = management_record;
namespace d = ddns_record;
namespace p = dhcp_record;
namespace t = time_record;
namespace w = wireless_record;
namespace o = operation_mode_record;
namespace l = system_log_record;
constexpr std::uint32_t kHost = 0x0A000001, kNet = 0xC0A80200, kClassC = 0xFFFFFF00, kLoopback = 0x7F000001,
                        kMulticast = 0xE0000001;
void pool(ComParam& r, std::uint32_t lower, std::uint32_t upper, std::uint32_t mask = kClassC)
{
    fill(r, p::lowerAddress, lower, p::upperAddress, upper, p::netmask, mask);
}
void on_channel(ComParam& r, std::uint16_t domain, std::uint16_t channel)
{
    fill(r, w::domain, domain, w::channel, channel);
}
void remote(ComParam& r, std::uint8_t mode, std::uint32_t first, std::uint32_t second)
{
    fill(r, m::remoteMode, mode, m::remoteClient[0], first, m::remoteClient[1], second);
}
void without_end(ComParam& r, TextField field) { std::memset(r.bytes + field.at.offset, 'n', field.at.width); }

// clang-format off
const Write kWrites[] = {
    {"HttpOnTelnets",     code::kReadManagement, code::kWriteManagement, [](ComParam& r) { m::httpPort.set(r, 23); },                       kStatusPortInUse},
    {"PortsChangePlaces", code::kReadManagement, code::kWriteManagement, [](ComParam& r) { fill(r, m::httpPort, 23, m::telnetPort, 80); },  kStatusOk},
    {"RemoteOne",         code::kReadManagement, code::kWriteManagement, [](ComParam& r) { remote(r, m::kRemoteOne, kHost, 0); },           kStatusOk},
    {"RemoteSecondUnset", code::kReadManagement, code::kWriteManagement, [](ComParam& r) { remote(r, m::kRemoteTwo, kHost, 0); },           kStatusNotSet},
    {"RemoteTwice",       code::kReadManagement, code::kWriteManagement, [](ComParam& r) { remote(r, m::kRemoteTwo, kHost, kHost); },       kStatusDuplicateAddress},
    {"RemoteLoopback",    code::kReadManagement, code::kWriteManagement, [](ComParam& r) { remote(r, m::kRemoteOne, kLoopback, 0); },       kStatusValueRefused},

    {"DdnsWithoutName",   code::kReadDdns, code::kWriteDdns, [](ComParam& r) { d::enabled.set(r, 1); },                                     kStatusNotSet},
    {"DdnsWithoutUser",   code::kReadDdns, code::kWriteDdns, [](ComParam& r) { fill(r, d::enabled, 1, d::hostname, "home_1"); },            kStatusNotSet},
    {"DdnsDash",          code::kReadDdns, code::kWriteDdns, [](ComParam& r) { fill(r, d::hostname, "home-1", d::username, "fred"); },      kStatusValueRefused},
    {"DdnsOn",            code::kReadDdns, code::kWriteDdns, [](ComParam& r) { fill(r, d::enabled, 1, d::hostname, "home_1", d::username, "fred"); }, kStatusOk},

    {"Pool",              code::kReadDhcpServer, code::kWriteDhcpServer, [](ComParam& r) { pool(r, kNet + 10, kNet + 20); },                kStatusOk},
    {"PoolBackwards",     code::kReadDhcpServer, code::kWriteDhcpServer, [](ComParam& r) { pool(r, kNet + 20, kNet + 10); },                kStatusPoolRefused},
    {"PoolInTwoNetworks", code::kReadDhcpServer, code::kWriteDhcpServer, [](ComParam& r) { pool(r, kNet + 10, kNet + 266); },               kStatusPoolRefused},
    {"PoolToBroadcast",   code::kReadDhcpServer, code::kWriteDhcpServer, [](ComParam& r) { pool(r, kNet + 10, kNet + 255); },               kStatusPoolRefused},
    {"PoolMaskWithHole",  code::kReadDhcpServer, code::kWriteDhcpServer, [](ComParam& r) { pool(r, kNet + 10, kNet + 20, 0xFF00FF00); },    kStatusValueRefused},
    {"LeaseTooLong",      code::kReadDhcpServer, code::kWriteDhcpServer, [](ComParam& r) { p::leaseTime.set(r, 525601); },                  kStatusValueRefused},
    {"GatewayIsNoHost",   code::kReadDhcpServer, code::kWriteDhcpServer, [](ComParam& r) { p::gateway.set(r, kLoopback); },                 kStatusAddressOutOfRange},
    {"SecondaryIsNoHost", code::kReadDhcpServer, code::kWriteDhcpServer, [](ComParam& r) { p::secondaryDns.set(r, kMulticast); },           kStatusAddressOutOfRange},

    {"NtpOn",             code::kReadTime, code::kWriteNtpClient, [](ComParam& r) { fill(r, t::ntpEnabled, 1, t::zone, 21, t::interval, 1); }, kStatusOk},
    {"NtpWithoutServer",  code::kReadTime, code::kWriteNtpClient, [](ComParam& r) { fill(r, t::ntpEnabled, 1, t::serverName, ""); },        kStatusNoTimeServer},
    {"NtpControl",        code::kReadTime, code::kWriteNtpClient, [](ComParam& r) { t::serverName.set(r, "time\033[2J"); },                 kStatusValueRefused},
    {"NtpNameWithoutNul", code::kReadTime, code::kWriteNtpClient, [](ComParam& r) { without_end(r, t::serverName); },                       kStatusValueRefused},
    {"NtpServerIsNoHost", code::kReadTime, code::kWriteNtpClient, [](ComParam& r) { fill(r, t::serverByAddress, 1, t::serverAddress, ~0u); }, kStatusValueRefused},

    {"NoKeyType",         code::kReadWirelessSettings, code::kWriteWirelessSettings, [](ComParam& r) { w::keyType[2].set(r, 6); },          kStatusValueRefused},
    {"NeitherYesNorNo",   code::kReadWirelessSettings, code::kWriteWirelessSettings, [](ComParam& r) { w::hidden.set(r, 2); },              kStatusValueRefused},
    {"FccLast",           code::kReadWirelessSettings, code::kWriteWirelessSettings, [](ComParam& r) { on_channel(r, w::kFcc, 11); },       kStatusOk},
    {"FccBehindLast",     code::kReadWirelessSettings, code::kWriteWirelessSettings, [](ComParam& r) { on_channel(r, w::kFcc, 12); },       kStatusChannelRefused},
    {"FranceBelow",       code::kReadWirelessSettings, code::kWriteWirelessSettings, [](ComParam& r) { on_channel(r, w::kFrance, 9); },     kStatusChannelRefused},
    {"FiveGhz",           code::kReadWirelessSettings, code::kWriteWirelessSettings, [](ComParam& r) { on_channel(r, w::kFcc, 36); },       kStatusChannelRefused},
    {"Automatic",         code::kReadWirelessSettings, code::kWriteWirelessSettings, [](ComParam& r) { on_channel(r, w::kFrance, 0); },     kStatusOk},
    {"FragmentTooLow",    code::kReadWirelessSettings, code::kWriteWirelessSettings, [](ComParam& r) { w::fragmentThreshold.set(r, 255); }, kStatusValueRefused},
    {"DtimZero",          code::kReadWirelessSettings, code::kWriteWirelessSettings, [](ComParam& r) { w::dtimInterval.set(r, 0); },        kStatusValueRefused},

    {"SyslogToNobody",    code::kReadSystemLog, code::kWriteSyslog, [](ComParam& r) { l::remoteEnabled.set(r, 1); },                        kStatusValueRefused},
    {"SyslogToMany",      code::kReadSystemLog, code::kWriteSyslog, [](ComParam& r) { fill(r, l::remoteEnabled, 1, l::remoteAddress, kMulticast); }, kStatusValueRefused},

    {"NoMode",            code::kReadOperationMode, code::kWriteOperationMode, [](ComParam& r) { o::mode.set(r, 4); },                      kStatusValueRefused},
    {"RepeaterOfNobody",  code::kReadOperationMode, code::kWriteOperationMode, [](ComParam& r) { o::mode.set(r, o::kRepeater); },           kStatusValueRefused},
    {"RepeaterOfAll",    code::kReadOperationMode, code::kWriteOperationMode, [](ComParam& r) { fill(r, o::mode, o::kRepeater, o::repeated, "\xff\xff\xff\xff\xff\xff"); }, kStatusValueRefused},
    {"Repeater",          code::kReadOperationMode, code::kWriteOperationMode, [](ComParam& r) { fill(r, o::mode, o::kRepeater, o::repeated, "\2\0\x5e\0\0\1"); }, kStatusOk},
    {"WdsAgain",          code::kReadOperationMode, code::kWriteOperationMode, [](ComParam& r) { fill(r, o::mode, o::kWds, o::repeated, "\0\0\0\0\0\0"); }, kStatusOk},
};
// clang-format on
TEST_F(Refusals, OfSettings)
{
    for (const Write& each : kWrites) {
        ComParam made = to_write(each.read, each.write);
        each.change(made);
        expect(each.status, made, each.name);
        if (each.status != kStatusOk) continue;
        ask(each.read);
        ComParam wanted = answer.record;
        each.change(wanted);
        EXPECT_TRUE(each.write == code::kWriteOperationMode ||
                    std::memcmp(answer.record.bytes, wanted.bytes, kRecordSize) == 0)
            << each.name;
    }
    ask(code::kReadOperationMode);
    EXPECT_EQ(std::memcmp(o::repeated.get(answer.record), "\2\0\x5e\0\0\1", 6), 0) << "only a repeater's is written";
}

struct Ports {
    std::uint16_t first, last;
};
ComParam dmz(const char* name, std::uint32_t outside, std::uint32_t inside = 0xC0A8010A)
{
    using namespace dmz_entry;
    ComParam made = request_of(code::kAddDmz);
    unsigned char* entry = carried_entry(made);
    fill(entry, dmz_entry::name, name, interface, "eth1", natAddress, outside, dmzAddress, inside);
    return made;
}
ComParam server(const char* name, Ports outside, Ports inside, std::uint8_t protocol = kNatTcp)
{
    namespace n = nat_server_entry;
    ComParam made = request_of(code::kAddNatRedirect);
    unsigned char* entry = carried_entry(made);
    fill(entry, n::name, name, n::interface, "eth1", n::protocol, protocol, n::publicFirst, outside.first,
         n::publicLast, outside.last, n::localFirst, inside.first, n::localLast, inside.last, n::server, 0xC0A8010A);
    return made;
}
ComParam trigger(const char* name, Ports first, Ports second = {}, Ports third = {})
{
    namespace n = nat_trigger_entry;
    ComParam made = request_of(code::kAddNatTrigger);
    unsigned char* entry = carried_entry(made);
    fill(entry, n::name, name, n::protocol, kNatTcp, n::port, 554, n::openedProtocol, kNatBoth, n::kOpened[0].first,
         first.first, n::kOpened[0].last, first.last, n::kOpened[1].first, second.first, n::kOpened[1].last,
         second.last, n::kOpened[2].first, third.first, n::kOpened[2].last, third.last);
    return made;
}
ComParam filter(const char* interface, std::uint8_t protocol = ip_filter_entry::kTcp, std::uint32_t source = 0xC0A80100,
                Ports to = {80, 90}, std::uint16_t code = code::kAddIpFilter)
{
    namespace f = ip_filter_entry;
    ComParam made = request_of(code);
    unsigned char* entry = carried_entry(made);
    fill(entry, f::name, "web", f::interface, interface, f::direction, f::kOutbound, f::protocol, protocol,
         f::sourceAddress, source, f::sourceNetmask, 0xFFFFFF00, f::destinationFirst, to.first, f::destinationLast,
         to.last);
    return made;
}
ComParam default_action(const char* interface, std::uint32_t action)
{
    return request_of(code::kWriteIpFilter, ip_filter_record::interface, interface, ip_filter_record::action, action);
}
ComParam peer(std::uint16_t code, const char* name, const char* mac = "\2\0\x5e\0\0\1")
{
    return request_of(code, wds_record::name, name, wds_record::mac, mac);
}
ComParam preset_key(std::uint8_t index, const char* key)
{
    return request_of(code::kWritePresetKey, preset_key_record::index, index, preset_key_record::key, key);
}
ComParam rip(const char* interface, std::uint32_t mode)
{
    return request_of(code::kWriteRip, rip_record::interface, interface, rip_record::mode, mode);
}
ComParam profile_of(const char* interface, const char* name)
{
    return request_of(code::kWriteDefaultProfile, default_profile_record::interface, interface,
                      default_profile_record::profile, name);
}
ComParam ping(const char* interface, std::uint8_t change)
{
    return request_of(code::kReadPingAllowance, ping_record::interface, interface, ping_record::change, change);
}
ComParam endless(std::uint16_t code)
{
    ComParam made = request_of(code);
    std::memset(made.bytes + record::kPayload, 'e', record::kPayloadEnd - record::kPayload);
    return made;
}

ComParam lan(std::uint32_t address, std::uint32_t netmask, std::uint32_t gateway = 0, std::uint32_t server = 0)
{
    namespace a = address_record;
    return request_of(code::kWriteAddress, a::interface, "lan", a::mode, a::kStatic, a::address, address, a::netmask,
                      netmask, a::gateway, gateway, a::primaryDns, server);
}
ComParam route(std::uint32_t destination, std::uint32_t netmask, std::uint32_t gateway, std::uint32_t hops = 1,
               const char* interface = "")
{
    namespace q = route_request;
    return request_of(code::kAddRoute, q::destination, destination, q::netmask, netmask, q::gateway, gateway, q::hops,
                      hops, q::interface, interface);
}
ComParam address_of(const char* side) { return request_of(code::kReadAddress, address_record::interface, side); }
ComParam facility(std::uint32_t which, std::uint8_t state)
{
    return request_of(code::kWriteLogFacility, facility_request::facility, which, facility_request::state, state);
}
ComParam password(std::uint16_t code, const char* typed, const char* next = "")
{
    return request_of(code, password_record::password, typed, password_record::newPassword, next);
}

struct Request {
    const char* name;
    ComParam request;
    std::uint32_t status;
};
// clang-format off
const Request kRequests[] = {
    {"NoCode",          request_of(9999),                                              kStatusUnknownOperation},
    {"CodeAbove16Bit",  request_of(code::kReadSystem, record::code, 0x10000 + code::kReadSystem), kStatusUnknownOperation},
    {"NoRequest",       request_of(code::kReadSystem, record::kind, 4),                kStatusBadRequest},
    {"WithATable",      request_of(code::kReadSystem, record::attachedLength, 1),      kStatusBadRequest},
    {"NoSide",          address_of(""),                                                kStatusUnknownName},
    {"HalfASide",       address_of("la"),                                              kStatusUnknownName},
    {"MoreThanASide",   address_of("lan0"),                                            kStatusUnknownName},
    {"EndlessSide",     endless(code::kReadAddress),                                   kStatusUnknownName},

    {"LanHost",         lan(kNet + 2, kClassC, kNet + 1, 0x08080808),                  kStatusOk},
    {"GatewayElsewhere", lan(kNet + 5, kClassC, kNet + 257),                           kStatusAddressOutOfRange},
    {"Broadcast",       lan(kNet + 255, kClassC),                                      kStatusAddressOutOfRange},
    {"NetmaskWithHole", lan(kNet + 8, 0xFF00FF00),                                     kStatusValueRefused},
    {"ServerIsNoHost",  lan(kNet + 9, kClassC, 0, 0xFFFFFFFF),                         kStatusValueRefused},
    {"PointToPoint",    lan(kNet, 0xFFFFFFFE),                                         kStatusOk},
    {"LanAsItWas",      lan(0xC0A80101, kClassC),                                      kStatusOk},

    {"Route",           route(0x0A140000, 0xFFFF0000, 0x0A090001, 255),                kStatusOk},
    {"RouteAgain",      route(0x0A140000, 0xFFFF0000, 0x0A090001, 255),                kStatusDuplicateAddress},
    {"MaskWithHole",    route(0x0A140000, 0xFF00FF00, 0x0A090001),                     kStatusNetmaskRefused},
    {"RouteToAHost",    route(0x0A140001, 0xFFFF0000, 0x0A090001),                     kStatusNotANetwork},
    {"TooManyHops",     route(0, 0, 0x0A090001, 256),                                  kStatusTooManyHops},
    {"RouteToNowhere",  route(0, 0, 0),                                                kStatusGatewayRefused},
    {"GatewayIsOurOwn", route(0, 0, 0x0A090002),                                       kStatusGatewayRefused},
    {"EightBitPort",    route(0, 0, 0, 1, "eth\x80"),                                  kStatusValueRefused},

    {"NoFacility",      facility(8, kFacilityOn),                                      kStatusUnknownName},
    {"AllFacilities",   facility(0xFFFFFFFF, kFacilityOn),                             kStatusUnknownName},
    {"NoSuchState",     facility(facility_bit(Facility::kNat), kFacilityOn + 1),       kStatusValueRefused},
    {"LogOfNoFacility", request_of(code::kReadLogTable, log_table_request::facility, 8), kStatusUnknownName},

    {"WrongPassword",   password(code::kChangePassword, "wrong", "new"),               kStatusWrongPassword},
    {"EmptyPassword",   password(code::kChangePassword, "admin", ""),                  kStatusPasswordRefused},
    {"EndlessPassword", endless(code::kCheckPassword),                                 kStatusWrongPassword},
    {"NewPassword",     password(code::kChangePassword, "admin", "15-characters.."),   kStatusOk},
    {"OldPassword",     password(code::kCheckPassword, "admin"),                       kStatusWrongPassword},
    {"PasswordIsKept",  password(code::kCheckPassword, "15-characters.."),             kStatusOk},

    {"Host",            dmz("cam", 0xCB007109),                                        kStatusOk},
    {"HostAgain",       dmz("cam", 0xCB00710A),                                        kStatusDuplicateName},
    {"HostOutside",     dmz("far", 0xCB00710B, 0x0A000001),                            kStatusAddressOutOfRange},
    {"HostIsRouter",    dmz("self", 0xCB00710B, 0xC0A80101),                           kStatusAddressOutOfRange},
    {"Server",          server("web", {80, 89}, {80, 89}),                             kStatusOk},
    {"PortsOverlap",    server("w2", {89, 99}, {89, 99}, kNatBoth),                    kStatusPortsTaken},
    {"OtherProtocol",   server("w3", {80, 80}, {80, 80}, kNatUdp),                     kStatusOk},
    {"RangeBackwards",  server("p", {200, 199}, {200, 199}),                           kStatusValueRefused},
    {"OtherLength",     server("p", {200, 209}, {300, 308}),                           kStatusValueRefused},
    {"MovedTooLong",    server("p", {1000, 2024}, {3000, 4024}),                       kStatusValueRefused},
    {"Trigger",         trigger("rtsp", {6970, 6999}),                                 kStatusOk},
    {"NameOfServer",    trigger("web", {1, 2}),                                        kStatusDuplicateName},
    {"NothingOpened",   trigger("t", {}),                                              kStatusValueRefused},
    {"GapInRanges",     trigger("t", {1, 2}, {0, 0}, {3, 4}),                          kStatusValueRefused},
    {"UnknownServer",   request_of(code::kDeleteNatRedirect),                          kStatusUnknownName},

    {"FilterNowhere",   filter("eth9"),                                                kStatusUnknownInterface},
    {"IcmpHasNoPorts",  filter("eth1", ip_filter_entry::kIcmp),                        kStatusValueRefused},
    {"NoSuchProtocol",  filter("eth1", 99),                                            kStatusValueRefused},
    {"HostBitsSet",     filter("eth1", ip_filter_entry::kTcp, 0xC0A80105),             kStatusValueRefused},
    {"PortsBackwards",  filter("eth1", ip_filter_entry::kTcp, 0xC0A80100, {80, 79}),   kStatusValueRefused},
    {"Filter",          filter("eth1"),                                                kStatusOk},
    {"FilterAgain",     filter("eth1"),                                                kStatusDuplicateName},
    {"FilterGone",      filter("", 0, 0, {}, code::kDeleteIpFilter),                   kStatusOk},
    {"FilterGoneTwice", filter("", 0, 0, {}, code::kDeleteIpFilter),                   kStatusUnknownName},
    {"DefaultNowhere",  default_action("eth9", ip_filter_record::kDeny),               kStatusUnknownInterface},
    {"NoSuchDefault",   default_action("eth1", 3),                                     kStatusValueRefused},

    {"Peer",            peer(code::kAddWdsPeer, "roof"),                               kStatusOk},
    {"PeerAgain",       peer(code::kAddWdsPeer, "roof", "\2\0\x5e\0\0\2"),             kStatusDuplicatePeer},
    {"PeersMacAgain",   peer(code::kAddWdsPeer, "yard"),                               kStatusDuplicatePeerAddress},
    {"PeerWithoutName", peer(code::kAddWdsPeer, "", "\2\0\x5e\0\0\2"),                 kStatusValueRefused},
    {"PeerOfAll",      peer(code::kAddWdsPeer, "yard", "\xff\xff\xff\xff\xff\xff"),       kStatusValueRefused},
    {"PeerUnknown",     peer(code::kDeleteWdsPeer, "yard"),                            kStatusUnknownName},
    {"PeerGone",        peer(code::kDeleteWdsPeer, "roof"),                            kStatusOk},

    {"ShortKey",        preset_key(1, "0A-1b-2C-3d-4E"),                               kStatusOk},
    {"LongKey",         preset_key(4, "00-01-02-03-04-05-06-07-08-09-0a-0b-0c"),       kStatusOk},
    {"KeyForgotten",    preset_key(1, ""),                                             kStatusOk},
    {"KeyOfNoHex",      preset_key(1, "0a-1b-2c-3d-4g"),                               kStatusValueRefused},
    {"KeyWithoutDash",  preset_key(1, "0a1b2c3d4e5f60"),                               kStatusValueRefused},
    {"KeyFive",         preset_key(5, "0a-1b-2c-3d-4e"),                               kStatusUnknownName},

    {"Rip",             rip("eth1", 4),                                                kStatusOk},
    {"RipOfNoMode",     rip("eth1", 3),                                                kStatusValueRefused},
    {"RipNowhere",      rip("eth9", 1),                                                kStatusUnknownInterface},
    {"RipOfBeginning",  rip("eth", 1),                                                 kStatusUnknownInterface},
    {"RipOfLoopback",   rip("lo", 1),                                                  kStatusUnknownInterface},
    {"Profile",         profile_of("eth1", "home"),                                    kStatusOk},
    {"ProfileNowhere",  profile_of("", "home"),                                        kStatusUnknownInterface},
    {"ProfileEightBit", profile_of("eth1", "\x80"),                                    kStatusValueRefused},
    {"EndlessRip",      endless(code::kWriteRip),                                      kStatusUnknownInterface},
    {"EndlessRead",     endless(code::kReadRip),                                       kStatusUnknownInterface},
    {"EndlessProfile",  endless(code::kWriteDefaultProfile),                           kStatusUnknownInterface},
    {"Ping",            ping("eth1", ping_record::kAllow),                             kStatusOk},
    {"NoSuchChange",    ping("eth1", 3),                                               kStatusValueRefused},
    {"PingOfLoopback",  ping("lo", ping_record::kAllow),                               kStatusUnknownName},
    {"PingOfNothing",   ping("", ping_record::kAllow),                                 kStatusUnknownName},
};
// clang-format on
TEST_F(Refusals, OfRequests)
{
    for (const Request& each : kRequests) {
        expect(each.status, each.request, each.name);
        for (const char* key : {"4E", "4e", "-0"}) EXPECT_FALSE(answer_shows(key)) << each.name;
    }
    ask(code::kReadPresetKey);
    EXPECT_EQ(preset_key_record::length[0].get(answer.record), 0);
    EXPECT_EQ(preset_key_record::length[3].get(answer.record), 13);
    ask(ping("eth1", ping_record::kRead));
    EXPECT_EQ(ping_record::allowed.get(answer.record), 1);
    EXPECT_EQ(ping_record::change.get(answer.record), 0) << "an answer sent back only reads";
}

TEST_F(Refusals, OfAFullTable)
{
    std::uint32_t status = kStatusOk;
    for (char last = 1; status == kStatusOk && last < 100; last++) {
        const char mac[] = {2, 0, 0x5e, 0, 0, last, 0};
        status = ask(peer(code::kAddWdsPeer, std::to_string(last).c_str(), mac));
    }
    EXPECT_EQ(status, kStatusPeerTableFull);
    ask(code::kReadWdsPeers);
    EXPECT_EQ(wds_record::count.get(answer.record), kMostWdsPeers);
}

TEST_F(Refusals, OfAStoredFileToo)
{
    ASSERT_EQ(ask(server("web", {80, 89}, {80, 89})), kStatusOk);
    ASSERT_EQ(ask(to_write(code::kReadWirelessSettings, code::kWriteWirelessSettings, w::key[0], "canary")), kStatusOk);
    const std::string good = storage.files["run/running.json"], key = "\"63616e617279\"";
    const std::pair<std::string, const char*> damages[] = {{"\"public_last\": 89", "\"public_last\": 79"},
                                                           {key, "\"6\""},
                                                           {key, "\"6g\""},
                                                           {key, "\"000102030405060708090a0b0c0d0e0f1011\""},
                                                           {key, "7"}};
    for (const auto& [from, to] : damages) {
        ASSERT_NE(good.find(from), good.npos);
        storage.files["run/running.json"] = std::string(good).replace(good.find(from), from.size(), to);
        start();
        ask(code::kReadNatRedirect);
        EXPECT_TRUE(answer.table.empty()) << to;
    }
}
}  // namespace
