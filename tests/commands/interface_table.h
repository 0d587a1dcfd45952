// Entries of the service's interface table, as the tests of several commands need them.
#pragma once

#include <string>

#include "service/fields/interfaces.h"
#include "support/fields.h"

inline std::string interface_row(const char* name, std::uint8_t type = interface_entry::kEthernet,
                                 const char* port = "", std::uint32_t state = interface_entry::kUp)
{
    static constexpr unsigned char kMac[] = {2, 0, 0x5E, 0x10, 0, 0xAB};
    return row_of<interface_entry::kSize>(interface_entry::type, type, interface_entry::state, state,
                                          interface_entry::name, name, interface_entry::port, port,
                                          interface_entry::mac, kMac);
}
