// One netlink request and its answers. Messages are built and taken apart with libnl by the subjects that send them.
#pragma once

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <netlink/attr.h>
#include <netlink/msg.h>
#include <string_view>
#include <vector>

namespace device {
class Request {
public:
    template <class Head>
    Request(int operation, const Head& head, int flags = 0) : message_(nlmsg_alloc_simple(operation, flags))
    {
        Head copy = head;
        whole_ = message_ && nlmsg_append(message_, &copy, sizeof copy, NLMSG_ALIGNTO) == 0;
    }
    ~Request() { nlmsg_free(message_); }
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    void put_u32(int attribute, std::uint32_t value)
    {
        whole_ = whole_ && nla_put_u32(message_, attribute, value) == 0;
    }
    nl_msg* message() const { return whole_ ? message_ : nullptr; }  // null: no memory for it

private:
    nl_msg* message_;
    bool whole_;
};

using Each = void (*)(nlmsghdr* message, void* data);

// All below answer 0 or an errno value.
int netlink_dump(const Request& request, Each each, void* data);
int netlink_change(const Request& request);

// Reads a whole kernel table, again when it changed in the meantime.
template <class Row> int netlink_read(const Request& request, Each each, std::vector<Row>& rows)
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

// The attributes of one message or nest by their type; those above Max are passed over. One that is too short for what
// is asked of it counts as absent.
template <std::size_t Max> struct Attributes {
    nlattr* of[Max + 1] = {};

    bool parse(nlmsghdr* message, std::size_t headSize)
    {
        return nlmsg_parse(message, static_cast<int>(headSize), of, Max, nullptr) == 0;
    }
    bool parse(void* first, std::size_t size)
    {
        return nla_parse(of, Max, static_cast<nlattr*>(first), static_cast<int>(size), nullptr) == 0;
    }
    const nlattr* at_least(std::size_t type, std::size_t size) const
    {
        return of[type] && static_cast<std::size_t>(nla_len(of[type])) >= size ? of[type] : nullptr;
    }
    std::uint32_t u32(std::size_t type) const
    {
        const nlattr* found = at_least(type, sizeof(std::uint32_t));
        return found ? nla_get_u32(found) : 0;
    }
    std::string_view text(std::size_t type) const
    {
        if (!of[type]) return {};
        const char* start = nla_get_string(of[type]);
        return {start, strnlen(start, static_cast<std::size_t>(nla_len(of[type])))};
    }
};
}  // namespace device
