// Lists of named MAC addresses (the MAC filter, the WDS peers): the same entries, carried by their requests in
// different places.
#pragma once

#include <algorithm>
#include <array>

#include "configd/operations.h"
#include "service/fields/mac_filter.h"

// No two entries share a name or an address; an entry is deleted by its name.
inline constexpr std::uint8_t kByName = 0, kByMac = 1;

constexpr std::array<Column, 2> named_mac_columns(Extent nameInRequest, Extent macInRequest)
{
    return {{{row::text("name", named_mac_entry::name, {.min = 1}), nameInRequest, kByName},
             {row::mac("mac", named_mac_entry::mac), macInRequest, kByMac}}};
}

// Neither all zeros nor the broadcast address.
inline bool can_be_a_station(const unsigned char* mac)
{
    const auto all = [mac](unsigned char octet) {
        return std::all_of(mac, mac + 6, [=](auto b) { return b == octet; });
    };
    return !all(0) && !all(0xFF);
}

// add_to_list, for addresses that a station can have.
inline ServiceStatus add_named_mac(Call& call)
{
    const Extent mac = call.operation.list->columns[kByMac].inRequest;
    return can_be_a_station(call.request.bytes + mac.offset) ? add_to_list(call) : kStatusValueRefused;
}
