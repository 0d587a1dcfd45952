// Small files that other programs write or read, and the words in them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "configd/linux/interfaces.h"

namespace device {
// At most limit bytes of a regular file; never waits on a pipe or a device. 0 or an errno value, text then empty.
int read_text_file(const char* path, std::size_t limit, std::string& text);

// A new file that everyone may read, in the place of one that is there: whoever reads it finds the old or the new one,
// whole. 0 or an errno value.
int replace_file(const char* path, std::string_view content);

// Cut the next piece off the front of rest: up to the line's end, or a word between blanks (empty: no more words).
std::string_view next_line(std::string_view& rest);
std::string_view next_word(std::string_view& rest);

// "02:00:5e:10:00:01", either case. false leaves the bytes alone.
bool parse_mac(std::string_view text, Mac& mac);

// Dotted IPv4, host order.
bool parse_address(std::string_view text, std::uint32_t& address);
}  // namespace device
