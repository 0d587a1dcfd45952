#include "commands/port_request.h"

#include <cstdio>
#include <cstring>

bool report_port_error(const Outcome& outcome)
{
    if (outcome.exchange)
        CliPrintServiceError(outcome.exchange, kWirelessGroup);
    else if (outcome.status)
        std::printf("Error occurs: %d\n\n", static_cast<int>(outcome.status));
    return outcome.ok();
}

Outcome ask_about_interface(ComParam& answer, std::uint16_t code, const TextField& key, const char* interface)
{
    std::memset(&answer, 0, sizeof answer);
    key.set(answer, interface);
    return Exchange(answer, code).outcome();
}
