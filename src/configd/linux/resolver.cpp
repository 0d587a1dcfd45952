#include "configd/linux/resolver.h"

#include <arpa/inet.h>

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
}  // namespace

std::array<std::uint32_t, 2> read_name_servers(const char* path)
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

int set_name_servers(const char* path, const std::array<std::uint32_t, 2>& servers)
{
    std::string text;
    for (const std::uint32_t server : servers) {
        if (server != 0) text += "nameserver " + dotted(server) + "\n";
    }
    return replace_file(path, text);
}
}  // namespace device
