#include "commands/statistics_files.h"

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

StatisticsPaths statisticsPaths;

namespace {
constexpr int kLineSize = 200;
constexpr int kHeadLines = 2;  // of /proc/net/dev
using CounterList = std::uint32_t[StatisticsRow::kCounters];

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

// A descriptor of the offset file; -1 when it is not there, or not a plain file of ours under its one name. Neither a
// link is followed, nor is a pipe's other end waited for.
int open_offsets(int flags)
{
    constexpr mode_t kOwnerOnly = 0600;
    const int fd = open(statisticsPaths.offsets, flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, kOwnerOnly);
    if (fd < 0) return -1;
    struct stat found;
    if (fstat(fd, &found) == 0 && S_ISREG(found.st_mode) && found.st_nlink == 1 && found.st_uid == geteuid()) return fd;
    close(fd);
    return -1;
}

// What is far too large was not written here, and is as good as none.
File open_offsets_for_reading()
{
    constexpr off_t kLargest = 64 * 1024;
    const int fd = open_offsets(O_RDONLY);
    if (fd < 0) return nullptr;
    struct stat found;
    if (fstat(fd, &found) == 0 && found.st_size <= kLargest)
        if (std::FILE* file = fdopen(fd, "r")) return File(file);
    close(fd);
    return nullptr;
}

// The next line, cut to the buffer; what is longer is dropped.
bool read_line(std::FILE* file, char (&line)[kLineSize])
{
    if (!std::fgets(line, kLineSize, file)) return false;
    if (std::strlen(line) == kLineSize - 1 && line[kLineSize - 2] != '\n')
        for (int c = std::getc(file); c != EOF && c != '\n';) c = std::getc(file);
    return true;
}

// One row for each listed name that equals `name`, and no more rows than there are names.
void append_rows(StatisticsTable& table, const InterfaceNames& names, const char* name, const CounterList& counters)
{
    for (int i = 0; i < names.count; ++i) {
        if (std::strcmp(names.name[i], name) != 0 || table.count == names.count) continue;
        StatisticsRow& row = table.row[table.count++];
        std::memcpy(row.name, names.name[i], sizeof row.name);
        std::memcpy(row.counter, counters, sizeof row.counter);
    }
}

// A line of either file: a word, and as many of the numbers behind it as anybody looks at; 0 for those that are
// missing.
struct Line {
    static constexpr int kNumbers = 12;
    char word[kLineSize];
    std::uint32_t number[kNumbers];
};

Line split(const char* text)
{
    constexpr char kBlanks[] = " \t\n\v\f\r";
    constexpr int kDecimal = 10;
    Line line{};
    text += std::strspn(text, kBlanks);
    const std::size_t length = std::strcspn(text, kBlanks);  // less than a line
    std::memcpy(line.word, text, length);
    text += length;
    for (std::uint32_t& number : line.number) {
        char* end;
        // The kernel counts in 64 bits; the lower 32 of them are what is kept and shown.
        number = static_cast<std::uint32_t>(std::strtoull(text, &end, kDecimal));
        if (end == text) break;
        text = end;
    }
    return line;
}

// The interface and its counters out of a line of /proc/net/dev; false when there is no colon behind the name. The
// kernel may write the received bytes straight behind the colon, and then they are part of the word.
bool parse_kernel_line(const char* text, char (&interface)[kLineSize], CounterList& counters)
{
    Line line = split(text);
    const std::size_t length = std::strlen(line.word);
    const bool bytesStandAlone = length > 0 && line.word[length - 1] == ':';
    char* colon = bytesStandAlone ? line.word + length - 1 : std::strchr(line.word, ':');
    if (!colon) return false;
    *colon = 0;
    std::memcpy(interface, line.word, sizeof interface);

    constexpr int kDirection = 8, kKept = 3;  // numbers of each direction; of them packets, errors and drops
    const std::uint32_t* packets = line.number + (bytesStandAlone ? 1 : 0);
    std::memcpy(counters, packets, kKept * sizeof *packets);
    std::memcpy(counters + kKept, packets + kDirection, kKept * sizeof *packets);
    return true;
}

int print_row(char (&line)[kLineSize], const StatisticsRow& row)
{
    const std::uint32_t(&c)[StatisticsRow::kCounters] = row.counter;
    return std::snprintf(line, kLineSize,
                         " %s %" PRIu32 " %" PRIu32 " %" PRIu32 " %" PRIu32 " %" PRIu32 " %" PRIu32 "\n", row.name,
                         c[0], c[1], c[2], c[3], c[4], c[5]);
}

// In one piece over what was there, so that a full disk does not leave an empty file behind.
bool write_rows(StatisticsTable& table)
{
    char text[kMaxInterfaces * kLineSize];
    std::size_t length = 0;
    for (const StatisticsRow& row : table.rows()) {
        char line[kLineSize];
        const auto used = static_cast<std::size_t>(print_row(line, row));
        std::memcpy(text + length, line, used);
        length += used;
    }
    const int fd = open_offsets(O_WRONLY | O_CREAT);
    if (fd < 0) return false;
    const bool written =
        write(fd, text, length) == static_cast<ssize_t>(length) && ftruncate(fd, static_cast<off_t>(length)) == 0;
    return close(fd) == 0 && written;
}
}  // namespace

bool offset_file_readable() { return open_offsets_for_reading() != nullptr; }

int CliInitIfStatsOffsets()
{
    InterfaceNames names;
    if (CliGetIfNames(names) < 1) return 1;
    StatisticsTable zeros{};
    for (int i = 0; i < names.count; ++i) append_rows(zeros, names, names.name[i], {});
    if (write_rows(zeros)) return 0;
    std::printf(" error opening file for interface statistics offset file initialization\n");
    return 1;
}

int CliReadIfStatsOffsets(StatisticsTable& table)
{
    InterfaceNames names;
    if (CliGetIfNames(names) < 1) return 1;
    table = {};
    const File file = open_offsets_for_reading();
    if (!file) {
        std::printf(" error opening file for interface statistics offset file\n");
        return 1;
    }
    // A line that was cut short counts as far as it goes; its other counters have no offset.
    for (char text[kLineSize]; read_line(file.get(), text);) {
        const Line line = split(text);
        CounterList counters;
        std::memcpy(counters, line.number, sizeof counters);
        append_rows(table, names, line.word, counters);
    }
    return 0;
}

int CliReadIfStatsProc(StatisticsTable& table)
{
    InterfaceNames names;
    if (CliGetIfNames(names) < 1) return 1;
    table = {};
    const File file(std::fopen(statisticsPaths.kernel, "re"));
    if (!file) {
        std::printf(" error opening file for interface statistics\n");
        return 1;
    }
    char line[kLineSize];
    for (int i = 0; i < kHeadLines; ++i) read_line(file.get(), line);
    while (read_line(file.get(), line)) {
        char interface[kLineSize];
        CounterList counters;
        if (!parse_kernel_line(line, interface, counters)) {
            std::printf(" error when parsing interface name! The last character is not ':'\n");
            return 1;
        }
        append_rows(table, names, interface, counters);
    }
    return 0;
}

bool write_offset_file(StatisticsTable& table)
{
    if (write_rows(table)) return true;
    std::printf(" error opening file for interface statistics offset file upadte\n");
    return false;
}
