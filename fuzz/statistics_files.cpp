// Files that others write and the console reads: the kernel's counters, the offset file in /tmp, the ARP table and the
// protocol counters. The input is the four in this order, with a line "--" between them.
#include "commands/statistics_files.h"

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

#include "commands/arp.h"
#include "commands/interface_table.h"
#include "commands/snmp_statistics.h"
#include "configd/temporary_folder.h"
#include "fuzz/console.h"
#include "fuzz/fuzzing.h"
#include "service/codes.h"

namespace {
constexpr std::string_view kSeparator = "--\n";
constexpr std::uint32_t kClearInterfaceStatistics = 150;

void write_file(const std::string& path, std::string_view content)
{
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR);
    holds(file >= 0 && write(file, content.data(), content.size()) == static_cast<ssize_t>(content.size()),
          "a file cannot be written");
    close(file);
}

std::string_view take_part(std::string_view& text)
{
    const std::size_t end = std::min(text.find(kSeparator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + kSeparator.size(), text.size()));
    return part;
}

std::uint32_t give_interfaces(ComParam& request, std::string& table)
{
    if (record::code.get(request) == code::kReadPort || record::code.get(request) == code::kReadInterfaces)
        table = interface_row("eth0") + interface_row("eth1") + interface_row("wlan0");
    return 0;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TemporaryFolder folder;
    static const std::string paths[] = {folder.path() + "/kernel", folder.path() + "/offsets", folder.path() + "/arp",
                                        folder.path() + "/snmp"};
    std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const std::string& each : paths) write_file(each, take_part(text));

    FuzzedConsole console(give_interfaces);
    statisticsPaths = {paths[0].c_str(), paths[1].c_str()};
    arpTablePath = paths[2].c_str();
    snmpStatisticsPath = paths[3].c_str();
    console.type("admin\nshow interface statistics\nshow arp table\nshow snmp statistics\n");
    console.call(kClearInterfaceStatistics, "eth0");
    console.call(kClearInterfaceStatistics, "all");
    return 0;
}
