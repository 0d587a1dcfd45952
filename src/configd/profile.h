// The device profile: what this device is and has, where Linux cannot tell. A JSON file names the ports and the radios
// and says what may be done to the machine; a key that is left out keeps the value of the built-in small access point.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "configd/linux/interfaces.h"
#include "configd/linux/stations.h"

enum class PortRole : std::uint8_t { kNone, kLan, kWan, kWireless };

struct ProfilePort {
    std::string interface;  // its Linux name
    std::string name;       // its name on the console
    PortRole role = PortRole::kNone;
    device::Kind kind = device::Kind::kEthernet;
    device::Mac mac{};  // used only where this machine has no such interface; zeros: not known
};

// What a radio shows where this machine has none.
struct ProfileRadio {
    std::string name;  // "radio1", "radio2"
    std::string interface;
    device::Mac mac{};          // as ProfilePort::mac
    std::string ssid;           // at most 32 characters
    std::uint16_t channel = 0;  // 0: automatic
    std::uint8_t mode = 0;      // index of the console's mode names, 0 to 14
    std::vector<device::Station> clients;
};

enum class RestartMeans : std::uint8_t {
    kDevice,
    kReload
};  // restart the machine | go back to the saved configuration
enum class ClockMeans : std::uint8_t {
    kDevice,
    kOffset
};  // the machine's clock | an offset to it that the service keeps

struct Profile {
    std::string description;      // at most 111 characters
    std::string hardwareVersion;  // as "1.0"
    std::string bridge;           // interface that joins the LAN ports; empty: none
    std::vector<ProfilePort> ports;
    std::vector<ProfileRadio> radios;
    RestartMeans restart = RestartMeans::kDevice;
    ClockMeans clock = ClockMeans::kDevice;
    bool manageAddresses = false;  // the service sets LAN address, gateway and name server of the machine itself
    std::string leases;            // the DHCP server's lease file; empty: none
    std::string hostapd;           // hostapd's control socket; empty: none
    std::string resolver;          // the file with the machine's name servers
    std::string timeZone;          // the file with the machine's time zone, which the service writes; empty: left alone
};

// A small access point: LAN eth0, WAN eth1, radio wlan0.
Profile built_in_profile();

// false: the profile keeps what it held, and why says in one line what is wrong with the file.
bool load_profile(const char* path, Profile& profile, std::string& why);

// nullptr when the profile has none.
const ProfilePort* port_of_role(const Profile& profile, PortRole role);
const ProfilePort* port_of_interface(const Profile& profile, const std::string& interface);
