#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

#include "commands/command_session.h"
#include "commands/handlers.h"
#include "commands/interface_table.h"
#include "commands/statistics_files.h"
#include "support/written.h"

namespace {
using Counters = std::uint32_t[StatisticsRow::kCounters];

const std::string kHead = " name       rx-packet  rx-error   rx-drop    tx-packet  tx-error   tx-drop   \n";

std::string row(const char* name, const Counters& counters)
{
    char start[32];
    std::snprintf(start, sizeof start, " %-10s", name);
    std::string line = start;
    for (const std::uint32_t counter : counters) {
        std::snprintf(start, sizeof start, " %-10lu", static_cast<unsigned long>(counter));
        line += start;
    }
    return line + "\n";
}

const std::string kEth0 = row("eth0", {10, 1, 2, 20, 3, 4}), kEth1 = row("eth1", {50, 0, 0, 60, 0, 0}),
                  kEth0Zero = row("eth0", {0, 0, 0, 0, 0, 0}), kEth1Zero = row("eth1", {0, 0, 0, 0, 0, 0});

class InterfaceStatistics : public CommandSession {
protected:
    InterfaceStatistics()
    {
        if (!mkdtemp(folder_.data())) std::abort();
        kernelFile_ = folder_ + "/dev";
        offsetFile = folder_ + "/offsets";
        statisticsPaths = {kernelFile_.c_str(), offsetFile.c_str()};
        set_table(code::kReadPort, interface_row("eth0") + interface_row("eth1"));
        kernel("  eth0: 1000 10 1 2 0 0 0 0 2000 20 3 4 0 0 0 0\n"
               "  eth1:5000 50 0 0 0 0 0 0 6000 60 0 0 0 0 0 0\n");
    }
    ~InterfaceStatistics() override
    {
        statisticsPaths = {};
        std::filesystem::remove_all(folder_);
    }

    void kernel(const std::string& lines) { std::ofstream(kernelFile_) << "Inter-|\n face |\n" << lines; }
    void offsets(const std::string& lines) { std::ofstream(offsetFile, std::ios::binary) << lines; }
    static std::string content(const std::string& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::string show() { return run(CliShowIfStats); }
    std::string clear(const char* which) { return run(CliClearIfStats, {text(which)}); }

    std::string offsetFile;

private:
    std::string folder_ = "/tmp/interface-statistics-XXXXXX";
    std::string kernelFile_;
};

TEST_F(InterfaceStatistics, TheFirstDisplayMakesTheFile)
{
    EXPECT_EQ(show(), kHead + kEth0 + kEth1);
    EXPECT_EQ(content(offsetFile), " eth0 0 0 0 0 0 0\n eth1 0 0 0 0 0 0\n");
    EXPECT_EQ(std::filesystem::status(offsetFile).permissions(), std::filesystem::perms(0600));
}

TEST_F(InterfaceStatistics, ClearingShowsZerosUntilTheCountersMove)
{
    EXPECT_EQ(clear("eth0"), kHead + kEth0Zero + kEth1);
    EXPECT_EQ(content(offsetFile), " eth0 10 1 2 20 3 4\n eth1 0 0 0 0 0 0\n");
    EXPECT_EQ(clear("all"), kHead + kEth0Zero + kEth1Zero);

    kernel("eth0:1001 11 1 2 0 0 0 0 2000 25 3 4\neth1: 0 49 0 0 0 0 0 0 0 60 0 0\n");
    const std::string wrapped = row("eth1", {0xFFFFFFFF, 0, 0, 0, 0, 0});  // reset behind our back
    EXPECT_EQ(show(), kHead + row("eth0", {1, 0, 0, 5, 0, 0}) + wrapped);
}

TEST_F(InterfaceStatistics, OnlyTheNumbersOfTheFileAreBelieved)
{
    const std::string full = " eth0 10 1 2 20 3 4\n", long200 = " eth0 10 1 2 20 3 4" + std::string(200, ' ');
    const std::string nul(1, '\0');
    const struct {
        const char* name;
        std::string lines, printed;
    } kCases[] = {
        {"cut short", " eth0 10 1", kHead + row("eth0", {0, 0, 2, 20, 3, 4})},
        {"a long line", long200 + " eth1 1\n" + full, kHead + kEth0Zero + kEth0Zero},
        {"beyond 64 bits", " eth0 99999999999999999999 -1 2 20 3 4\n", kHead + row("eth0", {11, 2, 0, 0, 0, 0})},
    };
    for (const auto& each : kCases) {
        offsets(each.lines);
        EXPECT_EQ(show(), each.printed) << each.name;
    }
}

// What stands in the file's place and is not a file of ours is neither read nor written.
TEST_F(InterfaceStatistics, WhatOthersPutInThePlaceOfTheFileStaysAsItIs)
{
    const std::string victim = offsetFile + "-victim", secret = " eth0 1 1 1 1 1 1\n";
    const struct {
        const char* name;
        std::function<bool()> put;
    } kCases[] = {
        {"symbolic link", [&] { return symlink(victim.c_str(), offsetFile.c_str()) == 0; }},
        {"hard link", [&] { return link(victim.c_str(), offsetFile.c_str()) == 0; }},
        {"pipe", [&] { return mkfifo(offsetFile.c_str(), 0666) == 0; }},
        {"another user's file",
         [&] {
             offsets(secret);
             return chown(offsetFile.c_str(), geteuid() + 1, getegid()) == 0;  // root's test only
         }},
    };
    for (const auto& each : kCases) {
        std::filesystem::remove_all(offsetFile);
        std::ofstream(victim) << secret;
        if (!each.put()) continue;
        const char* const refusal = " error opening file for interface statistics offset file initialization\n";
        EXPECT_EQ(show(), refusal) << each.name;
        EXPECT_EQ(clear("all"), refusal) << each.name;
        EXPECT_EQ(content(victim), secret) << each.name;
        StatisticsTable table{};
        EXPECT_EQ(written_by([&] { EXPECT_EQ(CliReadIfStatsOffsets(table), 1); }),
                  " error opening file for interface statistics offset file\n");
        EXPECT_EQ(written_by([&] { EXPECT_FALSE(write_offset_file(table)); }),
                  " error opening file for interface statistics offset file upadte\n");
    }
}
}  // namespace
