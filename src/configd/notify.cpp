#include "configd/notify.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

void notify_supervisor(const char* state)
{
    const char* path = std::getenv("NOTIFY_SOCKET");
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (!path || (*path != '/' && *path != '@') || std::strlen(path) >= sizeof address.sun_path) return;
    const std::size_t length = std::strlen(path);
    std::memcpy(address.sun_path, path, length);
    if (*path == '@') address.sun_path[0] = '\0';  // a name that is no file

    const int socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0) return;
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + length);
    sendto(socket, state, std::strlen(state), MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&address), size);
    close(socket);
}
