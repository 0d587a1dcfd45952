#include "configd/profile.h"

#include <algorithm>
#include <cstring>
#include <jansson.h>
#include <memory>
#include <string_view>

#include "configd/linux/resolver.h"
#include "configd/linux/text_file.h"

namespace {
using device::Kind;
using device::Mac;
using device::Station;

constexpr std::size_t kLargestFile = 65536;
constexpr std::size_t kMostPorts = 11;  // the console's interface table has room for these
constexpr std::size_t kMostRadios = 2;  // "radio1", "radio2"
constexpr std::size_t kLongestName = 15;
constexpr std::size_t kLongestSsid = 32;
constexpr std::size_t kLongestDescription = 111;
constexpr std::size_t kLongestPath = 4095;
constexpr int kLastChannel = 196;  // of the 5 GHz band
constexpr int kLastMode = 14;

template <class Value> struct Word {
    std::string_view name;
    Value value;
};
constexpr Word<PortRole> kRoles[] = {
    {"none", PortRole::kNone}, {"lan", PortRole::kLan}, {"wan", PortRole::kWan}, {"wireless", PortRole::kWireless}};
constexpr Word<Kind> kKinds[] = {
    {"ethernet", Kind::kEthernet}, {"wireless", Kind::kWireless}, {"bridge", Kind::kBridge},  {"pppoe", Kind::kPppoe},
    {"pptp", Kind::kPptp},         {"vlan", Kind::kVlan},         {"bonding", Kind::kBonding}};
constexpr Word<RestartMeans> kRestarts[] = {{"device", RestartMeans::kDevice}, {"reload", RestartMeans::kReload}};
constexpr Word<ClockMeans> kClocks[] = {{"device", ClockMeans::kDevice}, {"offset", ClockMeans::kOffset}};
constexpr Word<Station::State> kStates[] = {{"authenticated", Station::State::kAuthenticated},
                                            {"associated", Station::State::kAssociated},
                                            {"authorized", Station::State::kAuthorized},
                                            {"denied", Station::State::kDenied},
                                            {"unauthorized", Station::State::kUnauthorized}};

struct Release {
    void operator()(json_t* value) const { json_decref(value); }
};
using Json = std::unique_ptr<json_t, Release>;

// The take_ functions store the value of a key. A null text or a missing key leaves the place as it is; false: why says
// what is wrong.

bool refuse(const char* key, const char* reason, std::string& why)
{
    why = std::string("\"") + key + "\" " + reason;
    return false;
}

bool take_text(const char* key, const char* text, std::size_t longest, std::string& value, std::string& why)
{
    if (!text) return true;
    const std::string_view given = text;
    if (given.size() > longest) return refuse(key, "is too long", why);
    if (std::ranges::any_of(given, [](unsigned char c) { return c < ' ' || c == 0x7f; }))
        return refuse(key, "holds a control character", why);
    value = given;
    return true;
}

// The name of an interface, a port or a radio: a word that can also stand in a path.
bool take_name(const char* key, const char* text, std::string& value, std::string& why)
{
    if (!text) return true;
    const std::string_view given = text;
    if (given.empty() || given == "." || given == ".." || given.find_first_of(" /:") != given.npos)
        return refuse(key, "is no name", why);
    return take_text(key, text, kLongestName, value, why);
}

bool take_mac(const char* key, const char* text, Mac& value, std::string& why)
{
    if (!text) return true;
    constexpr std::uint8_t kMulticast = 1;
    Mac given;
    if (!device::parse_mac(text, given) || (given[0] & kMulticast)) return refuse(key, "is no address of a port", why);
    value = given;
    return true;
}

template <class Value, std::size_t Count>
bool take_word(const char* key, const char* text, const Word<Value> (&words)[Count], Value& value, std::string& why)
{
    if (!text) return true;
    const auto found = std::ranges::find(words, std::string_view(text), &Word<Value>::name);
    if (found == std::end(words)) return refuse(key, "has no such choice", why);
    value = found->value;
    return true;
}

template <class Value>
bool take_number(const char* key, json_int_t given, json_int_t highest, Value& value, std::string& why)
{
    if (given < 0 || given > highest) return refuse(key, "is out of range", why);
    value = static_cast<Value>(given);
    return true;
}

// Each entry of an array that may be missing; an array that is there replaces what the list held.
template <class Entry>
bool take_list(const char* key, json_t* array, std::size_t most, bool (*read)(json_t*, Entry&, std::string&),
               std::vector<Entry>& value, std::string& why)
{
    if (!array) return true;
    if (!json_is_array(array)) return refuse(key, "is no list", why);
    if (json_array_size(array) > most) return refuse(key, "has too many entries", why);

    value.clear();
    for (std::size_t i = 0; i < json_array_size(array); i++) {
        if (read(json_array_get(array, i), value.emplace_back(), why)) continue;
        why = std::string(key) + "[" + std::to_string(i) + "]: " + why;
        return false;
    }
    return true;
}

bool understood(int unpacked, const json_error_t& error, std::string& why)
{
    if (unpacked != 0) why = error.text;
    return unpacked == 0;
}

bool read_client(json_t* from, Station& client, std::string& why)
{
    const char *mac = nullptr, *state = "associated";
    json_int_t txFrames = 0, rxFrames = 0, txBytes = 0, rxBytes = 0;
    json_error_t error;
    const int unpacked =
        json_unpack_ex(from, &error, JSON_STRICT, "{s:s s?s s?I s?I s?I s?I}", "mac", &mac, "state", &state, "txFrames",
                       &txFrames, "rxFrames", &rxFrames, "txBytes", &txBytes, "rxBytes", &rxBytes);
    return understood(unpacked, error, why) && take_mac("mac", mac, client.mac, why) &&
           take_word("state", state, kStates, client.state, why) &&
           take_number("txFrames", txFrames, UINT32_MAX, client.txFrames, why) &&
           take_number("rxFrames", rxFrames, UINT32_MAX, client.rxFrames, why) &&
           take_number("txBytes", txBytes, UINT32_MAX, client.txBytes, why) &&
           take_number("rxBytes", rxBytes, UINT32_MAX, client.rxBytes, why);
}

bool read_radio(json_t* from, ProfileRadio& radio, std::string& why)
{
    const char *name = nullptr, *interface = nullptr, *mac = nullptr, *ssid = nullptr;
    json_int_t channel = 0, mode = 0;
    json_t* clients = nullptr;
    json_error_t error;
    const int unpacked =
        json_unpack_ex(from, &error, JSON_STRICT, "{s:s s?s s?s s?s s?I s?I s?o}", "name", &name, "interface",
                       &interface, "mac", &mac, "ssid", &ssid, "channel", &channel, "mode", &mode, "clients", &clients);
    return understood(unpacked, error, why) && take_name("name", name, radio.name, why) &&
           take_name("interface", interface, radio.interface, why) && take_mac("mac", mac, radio.mac, why) &&
           take_text("ssid", ssid, kLongestSsid, radio.ssid, why) &&
           take_number("channel", channel, kLastChannel, radio.channel, why) &&
           take_number("mode", mode, kLastMode, radio.mode, why) &&
           take_list("clients", clients, device::kMaxStations, read_client, radio.clients, why);
}

bool read_port(json_t* from, ProfilePort& port, std::string& why)
{
    const char *interface = nullptr, *name = nullptr, *role = nullptr, *kind = nullptr, *mac = nullptr;
    json_error_t error;
    const int unpacked = json_unpack_ex(from, &error, JSON_STRICT, "{s:s s?s s?s s?s s?s}", "interface", &interface,
                                        "name", &name, "role", &role, "kind", &kind, "mac", &mac);
    if (!understood(unpacked, error, why) || !take_word("role", role, kRoles, port.role, why)) return false;
    if (port.role == PortRole::kWireless) port.kind = Kind::kWireless;
    return take_name("interface", interface, port.interface, why) &&
           take_name("name", name ? name : interface, port.name, why) &&
           take_word("kind", kind, kKinds, port.kind, why) && take_mac("mac", mac, port.mac, why);
}

bool read_profile(json_t* from, Profile& profile, std::string& why)
{
    const char *description = nullptr, *hardwareVersion = nullptr, *bridge = nullptr, *restart = nullptr,
               *clock = nullptr, *leases = nullptr, *hostapd = nullptr, *resolver = nullptr, *timeZone = nullptr;
    json_t *ports = nullptr, *radios = nullptr;
    int manageAddresses = profile.manageAddresses;
    json_error_t error;
    const int unpacked =
        json_unpack_ex(from, &error, JSON_STRICT, "{s?s s?s s?s s?s s?s s?s s?s s?s s?s s?o s?o s?b}", "description",
                       &description, "hardwareVersion", &hardwareVersion, "bridge", &bridge, "restart", &restart,
                       "clock", &clock, "leases", &leases, "hostapd", &hostapd, "resolver", &resolver, "timeZone",
                       &timeZone, "ports", &ports, "radios", &radios, "manageAddresses", &manageAddresses);
    profile.manageAddresses = manageAddresses != 0;
    return understood(unpacked, error, why) &&
           take_text("description", description, kLongestDescription, profile.description, why) &&
           take_text("hardwareVersion", hardwareVersion, kLongestName, profile.hardwareVersion, why) &&
           take_text("bridge", bridge, kLongestName, profile.bridge, why) &&
           take_word("restart", restart, kRestarts, profile.restart, why) &&
           take_word("clock", clock, kClocks, profile.clock, why) &&
           take_text("leases", leases, kLongestPath, profile.leases, why) &&
           take_text("hostapd", hostapd, kLongestPath, profile.hostapd, why) &&
           take_text("resolver", resolver, kLongestPath, profile.resolver, why) &&
           take_text("timeZone", timeZone, kLongestPath, profile.timeZone, why) &&
           take_list("ports", ports, kMostPorts, read_port, profile.ports, why) &&
           take_list("radios", radios, kMostRadios, read_radio, profile.radios, why);
}

template <class Entry> bool all_different(const std::vector<Entry>& entries, std::string Entry::*key)
{
    for (auto entry = entries.begin(); entry != entries.end(); ++entry)
        if (std::find_if(entries.begin(), entry, [&](const Entry& e) { return e.*key == (*entry).*key; }) != entry)
            return false;
    return true;
}

bool makes_sense(const Profile& profile, std::string& why)
{
    if (!all_different(profile.ports, &ProfilePort::interface)) return refuse("ports", "names an interface twice", why);
    if (!all_different(profile.ports, &ProfilePort::name)) return refuse("ports", "gives a name twice", why);
    if (!all_different(profile.radios, &ProfileRadio::name)) return refuse("radios", "gives a name twice", why);
    return true;
}
}  // namespace

Profile built_in_profile()
{
    Profile profile;
    profile.description = "Wireless access point and router";
    profile.hardwareVersion = "1.0";
    profile.resolver = device::kResolverFile;
    profile.ports = {{.interface = "eth0", .name = "lan", .role = PortRole::kLan},
                     {.interface = "eth1", .name = "wan", .role = PortRole::kWan},
                     {.interface = "wlan0", .name = "wlan", .role = PortRole::kWireless, .kind = Kind::kWireless}};
    profile.radios.resize(1);
    profile.radios[0].name = "radio1";
    profile.radios[0].interface = "wlan0";
    return profile;
}

bool load_profile(const char* path, Profile& profile, std::string& why)
{
    std::string text;
    if (const int error = device::read_text_file(path, kLargestFile + 1, text); error != 0) {
        why = std::strerror(error);
        return false;
    }
    if (text.size() > kLargestFile) {
        why = "the file is too large";
        return false;
    }

    json_error_t error;
    const Json root(json_loadb(text.data(), text.size(), JSON_REJECT_DUPLICATES, &error));
    if (!root) {
        why = "line " + std::to_string(error.line) + ": " + error.text;
        return false;
    }
    Profile loaded = built_in_profile();
    if (!read_profile(root.get(), loaded, why) || !makes_sense(loaded, why)) return false;
    profile = std::move(loaded);
    return true;
}

const ProfilePort* port_of_role(const Profile& profile, PortRole role)
{
    const auto found = std::ranges::find(profile.ports, role, &ProfilePort::role);
    return found == profile.ports.end() ? nullptr : &*found;
}

const ProfilePort* port_of_interface(const Profile& profile, const std::string& interface)
{
    const auto found = std::ranges::find(profile.ports, interface, &ProfilePort::interface);
    return found == profile.ports.end() ? nullptr : &*found;
}
