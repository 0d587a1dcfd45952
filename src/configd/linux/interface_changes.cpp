#include "configd/linux/interface_changes.h"

#include <cerrno>
#include <linux/rtnetlink.h>
#include <sys/socket.h>
#include <unistd.h>

namespace device {
int watch_interfaces()
{
    const int descriptor = socket(AF_NETLINK, SOCK_RAW | SOCK_NONBLOCK | SOCK_CLOEXEC, NETLINK_ROUTE);
    if (descriptor < 0) return -1;
    sockaddr_nl address{};
    address.nl_family = AF_NETLINK;
    address.nl_groups = RTMGRP_LINK | RTMGRP_IPV4_IFADDR;
    if (bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return descriptor;
    const int error = errno;
    close(descriptor);
    errno = error;
    return -1;
}

// What it says is not looked at: whoever waits for a change reads the tables anew, and so a lost message does no harm.
void drain_changes(int descriptor)
{
    char message[4096];
    while (recv(descriptor, message, sizeof message, 0) >= 0 || errno == EINTR || errno == ENOBUFS) {
    }
}
}  // namespace device
