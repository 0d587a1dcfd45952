#include "support/fake_service.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>

#include "support/service.h"

Reply plain_reply(const ComParam& request, std::uint32_t status, std::uint32_t attachedLength)
{
    ComParam answer = request;
    record::status.set(answer, status);
    record::attachedLength.set(answer, attachedLength);
    record::attachedPosition.set(answer, kRecordSize);
    return {.bytes = std::string(reinterpret_cast<const char*>(answer.bytes), sizeof answer.bytes)};
}

FakeService::FakeService(Answer answer) : answer_(std::move(answer))
{
    Service::wipe();
    const std::filesystem::path path = Service::socket_path();
    std::filesystem::create_directories(path.parent_path());

    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.string().copy(address.sun_path, sizeof address.sun_path - 1);
    listener_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener_, 4) != 0 || pipe(stop_) != 0)
        throw std::system_error(errno, std::generic_category(), path.string());
    thread_ = std::thread(&FakeService::serve, this);
}

FakeService::~FakeService()
{
    close(stop_[1]);
    thread_.join();
    close(stop_[0]);
    close(listener_);
}

void FakeService::serve()
{
    while (wait_readable(listener_)) {
        const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0) continue;
        talk(connection);
        close(connection);
    }
}

void FakeService::talk(int connection)
{
    ComParam request;
    std::size_t have = 0;
    while (wait_readable(connection)) {
        const ssize_t got = recv(connection, request.bytes + have, sizeof request.bytes - have, 0);
        if (got <= 0) return;
        have += static_cast<std::size_t>(got);
        if (have < sizeof request.bytes) continue;

        have = 0;
        const Reply reply = answer_(request);
        for (std::size_t sent = 0; sent < reply.bytes.size();) {
            const ssize_t put = send(connection, reply.bytes.data() + sent, reply.bytes.size() - sent, MSG_NOSIGNAL);
            if (put <= 0) return;
            sent += static_cast<std::size_t>(put);
        }
        if (reply.disconnect) return;
    }
}

bool FakeService::wait_readable(int descriptor) const
{
    pollfd waits[] = {{descriptor, POLLIN, 0}, {stop_[0], POLLIN, 0}};
    while (poll(waits, 2, -1) < 0 && errno == EINTR) {
    }
    return waits[1].revents == 0;
}
