// Entries of the service's interface table, as the tests of several commands need them.
#pragma once

#include <string>

#include "service/fields/interfaces.h"

inline std::string interface_row(const char* name, std::uint8_t type = interface_entry::kEthernet,
                                 const char* port = "", std::uint32_t state = interface_entry::kUp)
{
    static constexpr unsigned char kMac[] = {2, 0, 0x5E, 0x10, 0, 0xAB};
    std::string row(interface_entry::kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(row.data());
    interface_entry::type.set(bytes, type);
    interface_entry::state.set(bytes, state);
    interface_entry::name.set(bytes, name);
    interface_entry::port.set(bytes, port);
    interface_entry::mac.set(bytes, kMac);
    return row;
}
