#include "commands/default_gateway.h"

#include <cstring>

#include "service/fields/routes.h"

DefaultGateway read_default_gateway()
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange routes(code::kReadRoutes);
    if (!routes.ok()) return {0, routes.outcome()};

    for (const unsigned char* entry : routes.table(route_entry::kSize))
        if (route_entry::destination.get(entry) == 0 && route_entry::netmask.get(entry) == 0)
            return {route_entry::gateway.get(entry), routes.outcome()};
    return {0, routes.outcome()};
}
