#include "configd/linux/leases.h"

#include <algorithm>
#include <charconv>

#include "configd/linux/text_file.h"

namespace device {
namespace {
constexpr std::size_t kLongestLine = 320;  // a host name of 255 characters among the rest
constexpr std::size_t kMostOfFile = kMaxLeases * kLongestLine * 2;

bool parse_expiry(std::string_view text, std::uint32_t& expires)
{
    std::uint32_t seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc{} || end != text.data() + text.size()) return false;
    expires = seconds;
    return true;
}

// Clients choose their names: what reaches a terminal later holds nothing but printable characters.
void copy_host_name(std::string_view from, Lease& lease)
{
    if (from == "*") return;  // the server's sign for a client that gave none
    const std::size_t length = from.copy(lease.hostName, sizeof lease.hostName - 1);
    std::ranges::replace_if(
        lease.hostName, lease.hostName + length, [](char c) { return c <= ' ' || c > '~'; }, '?');
}

// "expiry mac address name client-id". The lines of IPv6 leases have no MAC there. A line that ends before the name may
// be one that is just being written.
bool parse_lease(std::string_view line, Lease& lease)
{
    if (!parse_expiry(next_word(line), lease.expires)) return false;
    if (!parse_mac(next_word(line), lease.mac)) return false;
    if (!parse_address(next_word(line), lease.address)) return false;
    const std::string_view name = next_word(line);
    if (name.empty()) return false;
    copy_host_name(name, lease);
    return true;
}
}  // namespace

int read_leases(const char* path, std::vector<Lease>& leases)
{
    leases.clear();
    std::string text;
    const int error = read_text_file(path, kMostOfFile, text);
    for (std::string_view rest = text; !rest.empty() && leases.size() < kMaxLeases;)
        if (Lease lease{}; parse_lease(next_line(rest), lease)) leases.push_back(lease);
    return error;
}
}  // namespace device
