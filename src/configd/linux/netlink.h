// One netlink request and its answers. Messages are built and taken apart with libmnl by the subjects that send them.
#pragma once

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <libmnl/libmnl.h>
#include <vector>

namespace device {
inline constexpr std::size_t kRequestSize = 512;   // the longest request here is a route with four attributes
inline constexpr std::size_t kAnswerSize = 32768;  // the longest piece that the kernel sends of a dump

// All below answer 0 or an errno value. The request's sequence number is set here.
int netlink_dump(nlmsghdr* request, mnl_cb_t each, void* data);
int netlink_change(nlmsghdr* request);

// Reads a whole kernel table, again when it changed in the meantime.
template <class Row> int netlink_read(nlmsghdr* request, int (*each)(const nlmsghdr*, void*), std::vector<Row>& rows)
{
    constexpr int kTries = 4;
    int error = EINTR;
    for (int i = 0; i < kTries && error == EINTR; i++) {
        rows.clear();
        error = netlink_dump(request, each, &rows);
    }
    if (error != 0) rows.clear();
    return error;
}

// What the kernel tells and wants as a prefix length, in host order.
constexpr std::uint32_t netmask_of(std::uint8_t prefix)
{
    return prefix == 0 ? 0 : ~std::uint32_t{0} << (32 - std::min<int>(prefix, 32));
}

// The attributes of one message or nest by their type; those above Max are passed over.
template <std::size_t Max> struct Attributes {
    const nlattr* of[Max + 1] = {};

    static int keep(const nlattr* attribute, void* data)
    {
        auto& self = *static_cast<Attributes*>(data);
        if (mnl_attr_type_valid(attribute, Max) > 0) self.of[mnl_attr_get_type(attribute)] = attribute;
        return MNL_CB_OK;
    }
    // Attributes of the wrong size count as absent.
    const nlattr* get(std::size_t type, mnl_attr_data_type kind) const
    {
        return of[type] && mnl_attr_validate(of[type], kind) == 0 ? of[type] : nullptr;
    }
    std::uint32_t u32(std::size_t type) const
    {
        const nlattr* found = get(type, MNL_TYPE_U32);
        return found ? mnl_attr_get_u32(found) : 0;
    }
};
}  // namespace device
