#include "support/socket_server.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

SocketServer::SocketServer(const std::string& path, std::function<void(int)> serve)
    : serve_(std::move(serve)), path_(path), listener_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    unlink(path.c_str());
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    if (bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener_, 8) != 0) {
        std::perror(path.c_str());
        std::abort();
    }

    sigset_t alarms, before;  // a test's signals are for the thread that asks
    sigemptyset(&alarms);
    sigaddset(&alarms, SIGALRM);
    pthread_sigmask(SIG_BLOCK, &alarms, &before);
    thread_ = std::thread(&SocketServer::run, this);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

SocketServer::~SocketServer()
{
    shutdown(listener_, SHUT_RDWR);
    if (const int served = connection_; served >= 0) shutdown(served, SHUT_RDWR);
    thread_.join();
    close(listener_);
    unlink(path_.c_str());
}

void SocketServer::run()
{
    for (int connection; (connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
        ++connections_;
        connection_ = connection;
        serve_(connection);
        connection_ = -1;
        close(connection);
    }
}

bool take_request(int connection, ComParam& request)
{
    return recv(connection, request.bytes, sizeof request.bytes, MSG_WAITALL) == static_cast<ssize_t>(kRecordSize);
}

bool say(int connection, const std::string& bytes)
{
    for (std::size_t sent = 0; sent < bytes.size();) {
        const ssize_t count = send(connection, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (count <= 0) return false;
        sent += static_cast<std::size_t>(count);
    }
    return true;
}
