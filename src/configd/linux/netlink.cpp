#include "configd/linux/netlink.h"

#include <netlink/errno.h>
#include <netlink/netlink.h>
#include <netlink/socket.h>
#include <sys/socket.h>
#include <sys/time.h>

namespace device {
namespace {
constexpr timeval kAnswerTime{.tv_sec = 2, .tv_usec = 0};
constexpr std::size_t kAnswerSize = 32768;  // the longest piece that the kernel sends of a dump

// What comes back for one request.
struct Exchange {
    Each each;  // null: only an acknowledgement is expected
    void* data;
    bool over = false;
    int error = 0;  // as the kernel answered

    static int on_message(nl_msg* message, void* self)
    {
        const auto& exchange = *static_cast<Exchange*>(self);
        if (exchange.each) exchange.each(nlmsg_hdr(message), exchange.data);
        return NL_OK;
    }
    static int on_end(nl_msg*, void* self)
    {
        static_cast<Exchange*>(self)->over = true;
        return NL_STOP;
    }
    static int on_error(sockaddr_nl*, nlmsgerr* answer, void* self)
    {
        static_cast<Exchange*>(self)->error = -answer->error;
        return on_end(nullptr, self);
    }
};

// The library's own numbers lose which error it was: of those only the ones that a caller acts on are told apart.
int error_of(int result)
{
    switch (result) {
    case -NLE_DUMP_INTR: return EINTR;
    case -NLE_AGAIN: return EAGAIN;
    case -NLE_NOMEM: return ENOMEM;
    case -NLE_PERM: return EPERM;
    default: return EIO;
    }
}

class Socket {
public:
    Socket() : socket_(nl_socket_alloc()) {}
    ~Socket() { nl_socket_free(socket_); }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    int open(Exchange& exchange)
    {
        if (!socket_) return ENOMEM;
        if (const int result = nl_connect(socket_, NETLINK_ROUTE); result < 0) return error_of(result);
        nl_socket_set_msg_buf_size(socket_, kAnswerSize);
        nl_socket_modify_cb(socket_, NL_CB_VALID, NL_CB_CUSTOM, Exchange::on_message, &exchange);
        nl_socket_modify_cb(socket_, NL_CB_FINISH, NL_CB_CUSTOM, Exchange::on_end, &exchange);
        nl_socket_modify_cb(socket_, NL_CB_ACK, NL_CB_CUSTOM, Exchange::on_end, &exchange);
        nl_socket_modify_err_cb(socket_, NL_CB_CUSTOM, Exchange::on_error, &exchange);
        const int fd = nl_socket_get_fd(socket_);
        return setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &kAnswerTime, sizeof kAnswerTime) == 0 ? 0 : errno;
    }
    int send(nl_msg* message)
    {
        const int result = nl_send_auto(socket_, message);
        return result < 0 ? error_of(result) : 0;
    }
    // Until the kernel says that it has told everything (or acknowledges).
    int receive(const Exchange& exchange)
    {
        while (!exchange.over) {
            const int result = nl_recvmsgs_default(socket_);  // negative as well after a refusal: `error` says which
            if (result < 0 && !exchange.over) return error_of(result);
        }
        return exchange.error;
    }

private:
    nl_sock* socket_;
};

int perform(const Request& request, Exchange exchange)
{
    nl_msg* message = request.message();
    if (!message) return ENOMEM;
    nlmsg_hdr(message)->nlmsg_seq = NL_AUTO_SEQ;  // a request may be made again, on another socket
    nlmsg_hdr(message)->nlmsg_pid = NL_AUTO_PORT;

    Socket socket;
    if (const int error = socket.open(exchange); error != 0) return error;
    if (const int error = socket.send(message); error != 0) return error;
    return socket.receive(exchange);
}
}  // namespace

int netlink_dump(const Request& request, Each each, void* data)
{
    if (request.message()) nlmsg_hdr(request.message())->nlmsg_flags |= NLM_F_DUMP;
    return perform(request, {.each = each, .data = data});
}

int netlink_change(const Request& request) { return perform(request, {.each = nullptr, .data = nullptr}); }
}  // namespace device
