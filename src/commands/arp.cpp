#include "commands/arp.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <net/if_arp.h>
#include <string_view>

#include "commands/handlers.h"
#include "commands/named_mac.h"
#include "values/mac_address.h"
#include "values/scanners.h"

const char* arpTablePath = "/proc/net/arp";

namespace {
constexpr int kLineSize = 200;
constexpr char kRow[] = "%-15s  %-17s  %-10s  %s\n";

struct ArpLine {
    char address[16], flags[16], mac[18], interface[16];
};

bool is_printable(const char* text)
{
    return std::ranges::all_of(std::string_view(text), [](char c) { return isPrint(static_cast<unsigned char>(c)); });
}

// "IP address  HW type  Flags  HW address  Mask  Device"; false for a line that is none of the kernel's.
bool split(const char* text, ArpLine& line)
{
    char end;
    if (std::sscanf(text, "%15s 0x%*15s 0x%15s %17s %*63s %15s %c", line.address, line.flags, line.mac, line.interface,
                    &end) != 4)
        return false;
    std::uint32_t address, error;
    return word_ip(&address, line.address, &error) && is_printable(line.interface);
}

void print_line(const char* text)
{
    ArpLine line{};
    if (!split(text, line)) return;
    const unsigned long flags = std::strtoul(line.flags, nullptr, 16);
    unsigned char mac[kMacSize];
    const bool known = (flags & ATF_COM) && parse_mac_address(line.mac, mac, ':') == 0;
    std::printf(kRow, line.address, known ? upper_mac(mac) : "incomplete", flags & ATF_PERM ? "static" : "dynamic",
                line.interface);
}

// A line that is cut is none of the kernel's; its rest is dropped with it.
bool next_line(std::FILE* file, char (&line)[kLineSize])
{
    if (!std::fgets(line, kLineSize, file)) return false;
    if (std::strchr(line, '\n')) return true;
    for (int c = std::getc(file); c != EOF && c != '\n';) c = std::getc(file);
    line[0] = '\0';
    return true;
}
}  // namespace

void CliShowArpTable(ActionBlock&, int)
{
    std::FILE* file = std::fopen(arpTablePath, "re");
    if (!file) {
        std::printf("The ARP table cannot be read: %s\n", std::strerror(errno));
        return;
    }
    std::printf(kRow, "IP Address", "MAC Address", "Type", "Interface");
    std::printf("-----------------------------------------------------------\n");
    char line[kLineSize];
    next_line(file, line);  // the kernel's own heading
    while (next_line(file, line)) print_line(line);
    std::fclose(file);
}
