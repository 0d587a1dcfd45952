#include "commands/statistics_files.h"

#include <cstdio>
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

// A plain file under its one name, opened without following a link and without waiting for a pipe's other end.
File open_plain(const char* path, int flags, const char* mode)
{
    constexpr mode_t kOwnerOnly = 0600;
    const int fd = open(path, flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, kOwnerOnly);
    if (fd < 0) return nullptr;
    struct stat found;
    if (fstat(fd, &found) == 0 && S_ISREG(found.st_mode) && found.st_nlink == 1)
        if (std::FILE* file = fdopen(fd, mode)) return File(file);
    close(fd);
    return nullptr;
}

File open_offsets_for_reading() { return open_plain(statisticsPaths.offsets, O_RDONLY, "r"); }

// Emptied only once it is known to be the file that it should be.
File open_offsets_for_writing()
{
    File file = open_plain(statisticsPaths.offsets, O_WRONLY | O_CREAT, "w");
    if (file && ftruncate(fileno(file.get()), 0) != 0) return nullptr;
    return file;
}

// The next line, cut to the buffer; what is longer is dropped.
bool read_line(std::FILE* file, char (&line)[kLineSize])
{
    if (!std::fgets(line, kLineSize, file)) return false;
    if (!std::strchr(line, '\n'))
        for (int c = std::getc(file); c != EOF && c != '\n';) c = std::getc(file);
    return true;
}

// One row for each listed name that equals `name`; a full table takes no more.
void append_rows(StatisticsTable& table, const InterfaceNames& names, const char* name, const CounterList& counters)
{
    for (int i = 0; i < names.count; ++i) {
        if (std::strcmp(names.name[i], name) != 0 || table.count == kMaxInterfaces) continue;
        StatisticsRow& row = table.row[table.count++];
        std::memcpy(row.name, names.name[i], sizeof row.name);
        std::memcpy(row.counter, counters, sizeof row.counter);
    }
}

void narrow(const unsigned long (&wide)[StatisticsRow::kCounters], CounterList& counters)
{
    for (int i = 0; i < StatisticsRow::kCounters; ++i) counters[i] = static_cast<std::uint32_t>(wide[i]);
}

// "name:" and its counters out of a line of /proc/net/dev; false when there is no colon. The kernel may write the
// received bytes straight behind the colon, and then they are part of the token.
bool parse_kernel_line(const char* line, char (&token)[kLineSize], CounterList& counters)
{
    unsigned long v[StatisticsRow::kCounters] = {};
    token[0] = 0;
    std::sscanf(line, " %199s %*u %lu %lu %lu %*u %*u %*u %*u %*u %lu %lu %lu", token, &v[0], &v[1], &v[2], &v[3],
                &v[4], &v[5]);
    std::size_t length = std::strlen(token);
    if (length == 0 || token[length - 1] != ':') {
        std::memset(v, 0, sizeof v);
        token[0] = 0;
        std::sscanf(line, " %199s %lu %lu %lu %*u %*u %*u %*u %*u %lu %lu %lu", token, &v[0], &v[1], &v[2], &v[3],
                    &v[4], &v[5]);
        const char* colon = std::strchr(token, ':');
        if (!colon) return false;
        length = static_cast<std::size_t>(colon - token) + 1;
    }
    token[length - 1] = 0;
    narrow(v, counters);
    return true;
}

bool write_row(std::FILE* file, const StatisticsRow& row)
{
    const std::uint32_t(&c)[StatisticsRow::kCounters] = row.counter;
    return std::fprintf(file, " %s %lu %lu %lu %lu %lu %lu\n", row.name, static_cast<unsigned long>(c[0]),
                        static_cast<unsigned long>(c[1]), static_cast<unsigned long>(c[2]),
                        static_cast<unsigned long>(c[3]), static_cast<unsigned long>(c[4]),
                        static_cast<unsigned long>(c[5])) > 0;
}

bool write_rows(File file, StatisticsTable& table)
{
    if (!file) return false;
    for (const StatisticsRow& row : table.rows())
        if (!write_row(file.get(), row)) return false;
    return std::fflush(file.get()) == 0;
}
}  // namespace

bool offset_file_readable() { return open_offsets_for_reading() != nullptr; }

int CliInitIfStatsOffsets()
{
    InterfaceNames names;
    if (CliGetIfNames(names) < 1) return 1;
    StatisticsTable zeros{};
    for (int i = 0; i < names.count; ++i) append_rows(zeros, names, names.name[i], {});
    if (write_rows(open_offsets_for_writing(), zeros)) return 0;
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
    for (char line[kLineSize]; read_line(file.get(), line);) {
        char name[kLineSize] = "";
        unsigned long v[StatisticsRow::kCounters] = {};
        CounterList counters;
        std::sscanf(line, " %199s %lu %lu %lu %lu %lu %lu", name, &v[0], &v[1], &v[2], &v[3], &v[4], &v[5]);
        narrow(v, counters);
        append_rows(table, names, name, counters);
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
        char token[kLineSize];
        CounterList counters;
        if (!parse_kernel_line(line, token, counters)) {
            std::printf(" error when parsing interface name! The last character is not ':'\n");
            return 1;
        }
        append_rows(table, names, token, counters);
    }
    return 0;
}

bool write_offset_file(StatisticsTable& table)
{
    if (write_rows(open_offsets_for_writing(), table)) return true;
    std::printf(" error opening file for interface statistics offset file upadte\n");
    return false;
}
