#include "commands/snmp_statistics.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

#include "commands/command.h"
#include "commands/management_access.h"
#include "service/fields/system.h"

const char* snmpStatisticsPath = "/proc/net/snmp";

namespace {
struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// A protocol has two lines, each beginning with its name: the names of its counters, and their values.
constexpr std::string_view kProtocols[] = {"Ip:", "Icmp:", "Tcp:", "Udp:"};
constexpr int kLineSize = 2048;  // the longest has some 400 characters

// Cuts the next word off the front of `rest`; empty: no more words.
std::string_view next_word(std::string_view& rest)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    const std::string_view word = rest.substr(0, rest.find_first_of(kBlanks));
    rest.remove_prefix(word.size());
    return word;
}

void print_counters(std::string_view names, std::string_view values)
{
    const std::string_view protocol = next_word(names);
    if (next_word(values) != protocol || std::ranges::count(kProtocols, protocol) == 0) return;

    std::printf("\n   %.*s\n", static_cast<int>(protocol.size()) - 1, protocol.data());
    int shown = 0;
    for (;;) {
        const std::string_view name = next_word(names), value = next_word(values);
        if (name.empty() || value.empty()) break;
        std::printf("     %-18.*s %11.*s%s", static_cast<int>(name.size()), name.data(), static_cast<int>(value.size()),
                    value.data(), ++shown % 2 == 0 ? "\n" : "");
    }
    if (shown % 2 != 0) std::printf("\n");
}

void print_protocols()
{
    const std::unique_ptr<std::FILE, Closer> file(std::fopen(snmpStatisticsPath, "re"));
    if (!file) {
        std::printf("Can't open %s\n", snmpStatisticsPath);
        return;
    }
    char names[kLineSize], values[kLineSize];
    while (std::fgets(names, sizeof names, file.get()) && std::fgets(values, sizeof values, file.get()))
        print_counters(names, values);
}
}  // namespace

void CliShowSnmpStat(ActionBlock&, int)
{
    if (!report_access(read_record(code::kReadSystem))) return;
    std::printf("   System Name: %-25s Up Time: %lu seconds\n", system_record::name.get(usrComParam),
                static_cast<unsigned long>(system_record::upTime.get(usrComParam)));
    print_protocols();
}
