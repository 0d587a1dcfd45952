#include "configd/linux/resolver.h"

#include <arpa/inet.h>
#include <sys/stat.h>

#include "configd/linux/text_file.h"

namespace device {
namespace {
constexpr std::size_t kMostOfFile = 65536;  // the C library reads no more than its first lines either

std::string dotted(std::uint32_t address)
{
    const in_addr wire{htonl(address)};
    char text[INET_ADDRSTRLEN] = "";
    inet_ntop(AF_INET, &wire, text, sizeof text);
    return text;
}

// Zeros: there is no file. Two versions of a file differ in one of these; a file that is being written in place within
// one tick of the clock is read again at the next tick that changes it.
struct Version {
    dev_t device;
    ino_t inode;
    off_t size;
    std::int64_t seconds, nanoseconds;
    bool operator==(const Version&) const = default;
};

Version version_of(const char* path)
{
    struct stat found {};
    if (stat(path, &found) != 0) return {};
    return {found.st_dev, found.st_ino, found.st_size, found.st_mtim.tv_sec, found.st_mtim.tv_nsec};
}

// What is shown with every system record is read from the file only when that has changed.
struct Reading {
    std::string path{};
    Version version{};
    std::array<std::uint32_t, 2> servers{};
    bool operator==(const Reading& other) const { return path == other.path && version == other.version; }
};

std::array<std::uint32_t, 2> parse_name_servers(const char* path)
{
    std::array<std::uint32_t, 2> servers{};
    std::string text;
    read_text_file(path, kMostOfFile, text);

    std::size_t count = 0;
    for (std::string_view rest = text; !rest.empty() && count < servers.size();) {
        std::string_view line = next_line(rest);
        std::uint32_t address = 0;
        if (next_word(line) == "nameserver" && parse_address(next_word(line), address)) servers[count++] = address;
    }
    return servers;
}
}  // namespace

std::array<std::uint32_t, 2> read_name_servers(const char* path)
{
    static Reading last;
    Reading now{.path = path, .version = version_of(path)};
    if (now.version != Version{} && now == last) return last.servers;
    now.servers = parse_name_servers(path);
    last = now;
    return last.servers;
}

int set_name_servers(const char* path, const std::array<std::uint32_t, 2>& servers)
{
    std::string text;
    for (const std::uint32_t server : servers) {
        if (server != 0) text += "nameserver " + dotted(server) + "\n";
    }
    return replace_file(path, text);
}
}  // namespace device
