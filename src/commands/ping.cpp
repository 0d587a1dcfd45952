#include "commands/ping.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <unistd.h>

#include "commands/child_process.h"
#include "commands/handlers.h"
#include "values/format.h"

const char* pingPrograms[2] = {"/bin/ping", "/usr/bin/ping"};

namespace {
struct Request {
    std::uint32_t address;
    std::uint32_t count = 4, size = 56;
};

void ping(const Request& request)
{
    const auto* program = std::ranges::find_if(pingPrograms, [](const char* path) { return access(path, X_OK) == 0; });
    if (program == std::end(pingPrograms)) {
        std::printf("This device has no ping program\n");
        return;
    }
    char count[12], size[12];
    std::snprintf(count, sizeof count, "%u", request.count);
    std::snprintf(size, sizeof size, "%u", request.size);
    const char* const words[] = {"ping", "-n", "-c", count, "-s", size, CliFormatIPv4(request.address), nullptr};
    if (!run_watched(*program, words).started) std::printf("The ping program cannot be started\n");
}
}  // namespace

void CliPing(ActionBlock& call, int) { ping({.address = static_cast<std::uint32_t>(call.parms.value[0])}); }

// With the number of requests and the size of each. No typed line reaches it yet.
void CliPingParm(ActionBlock& call, int)
{
    ping({.address = static_cast<std::uint32_t>(call.parms.value[0]),
          .count = static_cast<std::uint32_t>(call.parms.value[1]),
          .size = static_cast<std::uint32_t>(call.parms.value[2])});
}
