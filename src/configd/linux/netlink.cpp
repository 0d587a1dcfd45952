#include "configd/linux/netlink.h"

#include <sys/time.h>

namespace device {
namespace {
constexpr timeval kAnswerTime{.tv_sec = 2, .tv_usec = 0};

class Socket {
public:
    Socket() : socket(mnl_socket_open2(NETLINK_ROUTE, SOCK_CLOEXEC)) {}
    ~Socket()
    {
        if (socket) mnl_socket_close(socket);
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    int open() const
    {
        if (!socket || mnl_socket_bind(socket, 0, MNL_SOCKET_AUTOPID) < 0) return errno;
        const int fd = mnl_socket_get_fd(socket);
        return setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &kAnswerTime, sizeof kAnswerTime) == 0 ? 0 : errno;
    }
    int send(const nlmsghdr* request) const
    {
        return mnl_socket_sendto(socket, request, request->nlmsg_len) < 0 ? errno : 0;
    }
    // Until the kernel says that it has told everything (or acknowledges).
    int receive(unsigned int sequence, mnl_cb_t each, void* data) const
    {
        alignas(nlmsghdr) char answer[kAnswerSize];
        for (;;) {
            const ssize_t got = mnl_socket_recvfrom(socket, answer, sizeof answer);
            if (got < 0 && errno == EINTR) continue;
            if (got < 0) return errno;
            const int more =
                mnl_cb_run(answer, static_cast<std::size_t>(got), sequence, mnl_socket_get_portid(socket), each, data);
            if (more < 0) return errno;
            if (more == MNL_CB_STOP) return 0;
        }
    }

private:
    mnl_socket* socket;
};

int exchange(nlmsghdr* request, mnl_cb_t each, void* data)
{
    static unsigned int sequence = 0;
    request->nlmsg_seq = ++sequence;

    const Socket socket;
    if (const int error = socket.open(); error != 0) return error;
    if (const int error = socket.send(request); error != 0) return error;
    return socket.receive(request->nlmsg_seq, each, data);
}
}  // namespace

int netlink_dump(nlmsghdr* request, mnl_cb_t each, void* data)
{
    request->nlmsg_flags |= NLM_F_REQUEST | NLM_F_DUMP;
    return exchange(request, each, data);
}

int netlink_change(nlmsghdr* request)
{
    request->nlmsg_flags |= NLM_F_REQUEST | NLM_F_ACK;
    return exchange(request, nullptr, nullptr);
}
}  // namespace device
