#include "configd/raw_client.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {
constexpr int kPatience = 15000;  // milliseconds

bool is_readable(int socket)
{
    pollfd line{socket, POLLIN, 0};
    return poll(&line, 1, kPatience) > 0;
}
}  // namespace

RawClient::RawClient(const std::string& socketPath) : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    socketPath.copy(address.sun_path, sizeof address.sun_path - 1);
    // Nobody there: nothing can be sent then.
    if (connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) finish_sending();
}

RawClient::~RawClient() { close(socket_); }

bool RawClient::send(const void* bytes, std::size_t size)
{
    const auto* next = static_cast<const char*>(bytes);
    while (size > 0) {
        const ssize_t sent = ::send(socket_, next, size, MSG_NOSIGNAL);
        if (sent < 0) return false;
        next += sent;
        size -= static_cast<std::size_t>(sent);
    }
    return true;
}

bool RawClient::read_all(unsigned char* bytes, std::size_t size)
{
    while (size > 0) {
        if (!is_readable(socket_)) return false;
        const ssize_t got = recv(socket_, bytes, size, 0);
        if (got <= 0) return false;
        bytes += got;
        size -= static_cast<std::size_t>(got);
    }
    return true;
}

std::optional<Answer> RawClient::receive()
{
    Answer answer;
    if (!read_all(answer.record.bytes, kRecordSize)) return {};
    answer.table.resize(record::attachedLength.get(answer.record));
    if (!read_all(answer.table.data(), answer.table.size())) return {};
    return answer;
}

std::optional<Answer> RawClient::ask(const ComParam& request)
{
    if (!send(request)) return {};
    return receive();
}

std::optional<Answer> RawClient::ask(std::uint16_t code) { return ask(request(code)); }

bool RawClient::is_closed()
{
    unsigned char thrown[4096];
    for (;;) {
        if (!is_readable(socket_)) return false;
        if (recv(socket_, thrown, sizeof thrown, 0) <= 0) return true;
    }
}

void RawClient::finish_sending() { shutdown(socket_, SHUT_WR); }

ComParam RawClient::request(std::uint16_t code)
{
    ComParam request{};
    record::kind.set(request, record::kRequest);
    record::code.set(request, code);
    return request;
}
