#include "configd/linux/bridge.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <linux/if_bridge.h>
#include <memory>
#include <unistd.h>

#include "configd/linux/text_file.h"

namespace device {
namespace {
constexpr std::size_t kValueLimit = 64, kTableLimit = 1 << 18;

std::string folder_of(const std::string& name) { return "/sys/class/net/" + name; }

// A name becomes part of a path.
bool is_name(const std::string& name)
{
    return !name.empty() && name.size() < kInterfaceNameSize && name[0] != '.' && name.find('/') == std::string::npos;
}

std::string value_of(const std::string& path)
{
    std::string text;
    read_text_file(path.c_str(), kValueLimit, text);
    std::string_view rest = text;
    return std::string(next_line(rest));
}

// Numbers stand there in decimal and in hexadecimal.
std::uint32_t number_of(const std::string& path)
{
    return static_cast<std::uint32_t>(std::strtoul(value_of(path).c_str(), nullptr, 0));
}

std::vector<BridgePort> ports_of(const std::string& bridge)
{
    std::vector<BridgePort> ports;
    const std::string folder = folder_of(bridge) + "/brif";
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(folder.c_str()), closedir);
    while (const dirent* entry = listing ? readdir(listing.get()) : nullptr) {
        if (entry->d_name[0] == '.') continue;
        const std::string port = folder + "/" + entry->d_name;
        ports.push_back({.name = entry->d_name,
                         .number = static_cast<std::uint16_t>(number_of(port + "/port_no")),
                         .state = static_cast<std::uint8_t>(number_of(port + "/state")),
                         .cost = number_of(port + "/path_cost"),
                         .priority = number_of(port + "/priority")});
    }
    std::ranges::sort(ports, {}, &BridgePort::number);
    return ports;
}

// The forwarding table is a file of the kernel's own structures.
std::vector<BridgeEntry> entries_of(const std::string& bridge)
{
    std::string table;
    read_text_file((folder_of(bridge) + "/brforward").c_str(), kTableLimit, table);
    std::vector<BridgeEntry> entries;
    for (std::size_t at = 0; at + sizeof(__fdb_entry) <= table.size(); at += sizeof(__fdb_entry)) {
        __fdb_entry kernel;
        std::memcpy(&kernel, table.data() + at, sizeof kernel);
        BridgeEntry& entry = entries.emplace_back();
        std::copy(std::begin(kernel.mac_addr), std::end(kernel.mac_addr), entry.mac.begin());
        entry.port = static_cast<std::uint16_t>(kernel.port_no | kernel.port_hi << 8);
        entry.own = kernel.is_local != 0;
        entry.age = kernel.ageing_timer_value;
    }
    return entries;
}
}  // namespace

int read_bridge(const std::string& name, Bridge& bridge)
{
    bridge = {};
    const std::string own = folder_of(name) + "/bridge";
    if (!is_name(name) || access(own.c_str(), F_OK) != 0) return ENODEV;
    bridge.stp = number_of(own + "/stp_state") != 0;
    bridge.id = value_of(own + "/bridge_id");
    bridge.root = value_of(own + "/root_id");
    bridge.rootCost = number_of(own + "/root_path_cost");
    bridge.ports = ports_of(name);
    bridge.entries = entries_of(name);
    return 0;
}

int set_bridge_stp(const std::string& name, bool on)
{
    const std::string path = folder_of(name) + "/bridge/stp_state";
    if (!is_name(name) || access(path.c_str(), F_OK) != 0) return ENODEV;
    const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (file < 0) return errno == EROFS ? EPERM : errno;  // a kernel setting, no storage
    const int error = write(file, on ? "1" : "0", 1) == 1 ? 0 : errno;
    close(file);
    return error;
}
}  // namespace device
