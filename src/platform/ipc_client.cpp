#include "platform/ipc_client.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <iterator>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/uio.h>
#include <sys/un.h>
#include <unistd.h>

#include "platform/ipc_timeout.h"
#include "platform/socket_path.h"
#include "service/record.h"

int ipcTimeoutMilliseconds = IPC_TIMEOUT_SECONDS * 1000;

namespace {
constexpr std::size_t kKeptRoom = kRecordSize + 4096;  // most answers; more is given back with the response

int connection = -1;     // stays open from one request to the next
unsigned char* memory;   // the response: record and table
std::size_t memoryRoom;  // bytes allocated
std::size_t memoryUsed;  // bytes that arrived

class Deadline {
public:
    explicit Deadline(int milliseconds) : end_(now() + milliseconds) {}
    int left() const { return static_cast<int>(std::max<std::int64_t>(end_ - now(), 0)); }

private:
    static std::int64_t now()
    {
        timespec time;
        clock_gettime(CLOCK_MONOTONIC, &time);
        return static_cast<std::int64_t>(time.tv_sec) * 1000 + time.tv_nsec / 1'000'000;
    }
    std::int64_t end_;
};

void close_connection()
{
    if (connection >= 0) close(connection);
    connection = -1;
}

bool make_room(std::size_t bytes)
{
    if (bytes <= memoryRoom) return true;
    auto* grown = static_cast<unsigned char*>(std::realloc(memory, bytes));
    if (!grown) return false;
    memory = grown;
    memoryRoom = bytes;
    return true;
}

// False when the deadline passes first. True also when the other end is gone: the next call on the socket tells.
bool wait_for_answer(const Deadline& deadline)
{
    pollfd line{.fd = connection, .events = POLLIN, .revents = 0};
    for (;;) {
        const int left = deadline.left();
        const int ready = poll(&line, 1, left);
        if (ready > 0) return true;
        if (ready == 0 || errno != EINTR || left == 0) return false;
    }
}

// The socket itself gives up in time, so that an exchange takes two system calls and no third one to wait.
void limit_waiting()
{
    const timeval limit{.tv_sec = ipcTimeoutMilliseconds / 1000, .tv_usec = ipcTimeoutMilliseconds % 1000 * 1000};
    setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    setsockopt(connection, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
}

std::uint32_t open_connection(const Deadline& deadline)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::size_t length = std::strlen(kServiceSocket);
    if (length >= sizeof address.sun_path) return IPC_NOT_RUNNING;
    std::memcpy(address.sun_path, kServiceSocket, length);

    connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connection < 0) return IPC_NO_MEMORY;
    limit_waiting();

    while (connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        if (errno == EACCES || errno == EPERM) return IPC_NOT_ALLOWED;
        // EAGAIN: the service did not take the connections that already wait.
        if (errno != EAGAIN && errno != EINTR) return IPC_NOT_RUNNING;
        if (deadline.left() == 0) return IPC_NO_ANSWER;
    }
    return IPC_OK;
}

// IPC_NOT_RUNNING: the other end was gone before anything was sent.
std::uint32_t send_request(const unsigned char* request, const Deadline& deadline)
{
    constexpr std::size_t kOwn = record::attachedLength.at.offset;  // what is sent of the caller's record
    static constexpr unsigned char kNoTable[kRecordSize - kOwn] = {};
    static_assert(record::attachedPosition.at.end() == kRecordSize &&
                  record::attachedPosition.at.offset == record::attachedLength.at.end());

    for (std::size_t sent = 0; sent < kRecordSize;) {
        const std::size_t own = std::min(sent, kOwn), rest = sent - own;
        iovec parts[] = {{const_cast<unsigned char*>(request + own), kOwn - own},
                         {const_cast<unsigned char*>(kNoTable + rest), sizeof kNoTable - rest}};
        msghdr message{};
        message.msg_iov = parts;
        message.msg_iovlen = std::size(parts);
        const ssize_t count = sendmsg(connection, &message, MSG_NOSIGNAL);
        if (count >= 0)
            sent += static_cast<std::size_t>(count);
        else if (errno == EPIPE || errno == ECONNRESET)
            return sent == 0 ? IPC_NOT_RUNNING : IPC_BROKEN;
        else if (errno != EAGAIN && errno != EINTR)
            return IPC_BROKEN;
        else if (deadline.left() == 0)
            return IPC_NO_ANSWER;
    }
    return IPC_OK;
}

// Takes what arrives until `wanted` bytes are there; more than that too, when it came along. The first wait is the
// socket's own; an answer that comes in pieces is watched, lest each piece begin the time anew.
std::uint32_t receive(std::size_t wanted, const Deadline& deadline)
{
    while (memoryUsed < wanted) {
        const ssize_t count = recv(connection, memory + memoryUsed, memoryRoom - memoryUsed, 0);
        if (count > 0)
            memoryUsed += static_cast<std::size_t>(count);
        else if (count == 0 || (errno != EAGAIN && errno != EINTR))
            return IPC_BROKEN;
        if (memoryUsed < wanted && !wait_for_answer(deadline)) return IPC_NO_ANSWER;
    }
    return IPC_OK;
}

std::uint32_t receive_answer(const Deadline& deadline)
{
    memoryUsed = 0;
    if (const std::uint32_t failed = receive(kRecordSize, deadline)) return failed;

    const std::uint32_t table = record::attachedLength.get(memory);
    if (table > IPC_MAX_TABLE) return IPC_BAD_ANSWER;
    if (!make_room(kRecordSize + table)) return IPC_NO_MEMORY;
    if (const std::uint32_t failed = receive(kRecordSize + table, deadline)) return failed;

    return memoryUsed == kRecordSize + table ? IPC_OK : IPC_BAD_ANSWER;
}

// A request that the kept connection could not take, because the service was restarted, goes over a fresh one. None
// that may have been carried out is ever sent twice.
std::uint32_t deliver(const unsigned char* request, const Deadline& deadline)
{
    if (connection >= 0) {
        const std::uint32_t failed = send_request(request, deadline);
        if (failed != IPC_NOT_RUNNING) return failed;
        close_connection();
    }
    if (const std::uint32_t failed = open_connection(deadline)) return failed;
    const std::uint32_t failed = send_request(request, deadline);
    return failed == IPC_NOT_RUNNING ? std::uint32_t{IPC_BROKEN} : failed;
}

std::uint32_t exchange(const unsigned char* request)
{
    const Deadline deadline(ipcTimeoutMilliseconds);
    if (!make_room(kKeptRoom)) return IPC_NO_MEMORY;
    if (const std::uint32_t failed = deliver(request, deadline)) return failed;
    return receive_answer(deadline);
}
}  // namespace

uint32_t IPCServiceClient(const void* request, void** response)
{
    const std::uint32_t failed = exchange(static_cast<const unsigned char*>(request));
    if (failed) {
        close_connection();
        memoryUsed = 0;
    }
    *response = failed ? nullptr : memory;
    return failed;
}

uint32_t IPCServiceDone(void*)
{
    memoryUsed = 0;
    if (memoryRoom > kKeptRoom) {
        std::free(memory);
        memory = nullptr;
        memoryRoom = 0;
    }
    return IPC_OK;
}

size_t IPCResponseSize(void) { return memoryUsed; }
