// The gateway of the device's default route, as the routing table of the service has it.
#pragma once

#include <cstdint>

#include "service/client.h"

struct DefaultGateway {
    std::uint32_t address;  // host order; 0: none
    Outcome outcome;        // of the request
};
DefaultGateway read_default_gateway();
