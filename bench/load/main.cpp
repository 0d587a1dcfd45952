// Loads the configuration service and prints what it took. Arguments: the number of requests.
#include <cstdio>
#include <cstdlib>

#include "bench/load/load.h"

int main(int count, char** words)
{
    LoadPlan plan{.configd = CONFIGD};
    if (count > 1) plan.requests = static_cast<unsigned>(std::strtoul(words[1], nullptr, 10));
    if (plan.requests == 0 || count > 2) {
        std::fputs("usage: load [REQUESTS]\n", stderr);
        return EXIT_FAILURE;
    }
    const LoadReport report = run_load(plan);
    std::printf("%u clients, %u requests, of them %u changes and %u saves; killed: %u clients, the service %u times\n",
                plan.clients, report.requests, report.changes, report.saves, report.clientKills, report.serviceKills);
    std::printf("%.1f s, %.0f requests a second, slowest answer %.0f ms\n", report.seconds,
                report.requests / report.seconds, report.slowestAnswer * 1000);
    std::printf("memory of the service: %ld KiB at work, %ld KiB at the end\n", report.memoryAtWork,
                report.memoryAtEnd);

    constexpr long kTolerance = 1024;     // KiB: what an allocator may keep of one busy moment more than of another
    constexpr unsigned kSettled = 20000;  // requests after which all tables and buffers have had their full size once
    const bool grew = plan.requests >= kSettled && report.memoryAtEnd > report.memoryAtWork + kTolerance;
    if (grew) std::puts("FAULT: the service's memory grows");
    if (!report.fault.empty()) std::printf("FAULT: %s\n", report.fault.c_str());
    return grew || !report.fault.empty() ? EXIT_FAILURE : EXIT_SUCCESS;
}
