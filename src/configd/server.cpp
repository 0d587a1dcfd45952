#include "configd/server.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <strings.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "configd/linux/terminal.h"
#include "configd/log.h"

namespace {
constexpr int kWaiting = 16;  // clients that the kernel holds until they are accepted
constexpr mode_t kOwnerOnly = 0600;
constexpr auto kRest = std::chrono::seconds(1);  // before accepting again when the system had no room

bool would_block(int error) { return error == EAGAIN || error == EWOULDBLOCK || error == EINTR; }

// Only root and the service's own user; the socket's mode says the same, before a connection stands.
bool is_allowed(const ucred& peer)
{
    if (peer.uid == 0 || peer.uid == geteuid()) return true;
    log_line(LOG_WARNING, "refused process %d of user %u", static_cast<int>(peer.pid), static_cast<unsigned>(peer.uid));
    return false;
}

bool read_peer(int socket, ucred& peer)
{
    socklen_t size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0;
}

// No other user's name is looked up: that may ask another machine, and all clients would wait.
std::string name_of(const ucred& peer)
{
    const std::string user = peer.uid == 0 ? "root" : "user " + std::to_string(peer.uid);
    const std::string terminal = device::terminal_of(peer.pid);
    return user + (terminal.empty() ? " (no terminal)" : " on " + terminal);
}

int bind_to(int socket, const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return ENAMETOOLONG;
    path.copy(address.sun_path, path.size());
    if (unlink(path.c_str()) != 0 && errno != ENOENT) return errno;
    if (bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return errno;
    return chmod(path.c_str(), kOwnerOnly) == 0 ? 0 : errno;  // nobody can connect before listen()
}
}  // namespace

Server::~Server()
{
    for (Client& client : clients_) drop(client);
    if (listener_ < 0) return;
    close(listener_);
    unlink(path_.c_str());
}

int Server::listen(const std::string& path)
{
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket < 0) return errno;
    int error = bind_to(socket, path);
    if (error == 0 && ::listen(socket, kWaiting) != 0) error = errno;
    if (error != 0) {
        close(socket);
        return error;
    }
    listener_ = socket;
    path_ = path;
    return 0;
}

void Server::watch(int descriptor, std::function<void()> ready)
{
    watched_ = descriptor;
    ready_ = std::move(ready);
}

void Server::run(int stop)
{
    enum Place : std::size_t { kStop, kListener, kWatched, kFirstClient };
    std::vector<pollfd> watched;
    for (;;) {
        const auto now = Clock::now();
        const bool accepts = now >= acceptAgain_;
        watched.assign({{stop, POLLIN, 0}, {accepts ? listener_ : -1, POLLIN, 0}, {watched_, POLLIN, 0}});
        for (const Client& client : clients_) watched.push_back({client.socket, awaited(client, now), 0});

        if (poll(watched.data(), watched.size(), timeout()) < 0 && errno != EINTR) {
            log_line(LOG_ERR, "poll: %s", std::strerror(errno));
            return;
        }
        if (watched[kStop].revents != 0) return;
        if (watched[kWatched].revents != 0) ready_();
        for (std::size_t i = 0; i < clients_.size(); i++) {
            if (watched[kFirstClient + i].revents != 0) serve(clients_[i]);
        }
        drop_late();
        if (watched[kListener].revents != 0) accept_waiting();
        std::erase_if(clients_, [](const Client& client) { return client.socket < 0; });
    }
}

// Of a client whose answer is held back only that it has gone.
short Server::awaited(const Client& client, Clock::time_point now)
{
    if (client.is_held(now)) return 0;
    return client.is_sending() ? POLLOUT : POLLIN;
}

// Milliseconds until something is due; -1: nothing is.
int Server::timeout() const
{
    constexpr auto kNever = Clock::time_point::max();
    auto due = kNever;
    const auto now = Clock::now();
    for (const Client& client : clients_) {
        if (client.is_held(now))
            due = std::min(due, client.due);
        else if (!client.is_idle())
            due = std::min(due, client.since + limits_.patience);
    }
    if (acceptAgain_ > now) due = std::min(due, acceptAgain_);
    if (due == kNever) return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(due - now).count();
    return static_cast<int>(std::max<decltype(left)>(left, 0));
}

// At most one request a turn, so that a client that sends without end does not keep the others waiting.
void Server::serve(Client& client)
{
    const auto now = Clock::now();
    if (client.is_held(now)) return drop(client);
    if (!client.is_sending()) {
        if (!receive(client)) return drop(client);
        if (client.received < kRecordSize) return;
        answer(client);
        if (client.is_held(Clock::now())) return;
    }
    if (!send(client)) drop(client);
}

bool Server::receive(Client& client)
{
    const ssize_t got = recv(client.socket, client.request.bytes + client.received, kRecordSize - client.received, 0);
    if (got < 0) return would_block(errno);
    if (got == 0) return false;
    if (client.received == 0) client.since = Clock::now();
    client.received += static_cast<std::size_t>(got);
    return true;
}

void Server::answer(Client& client)
{
    Answer answer;
    handler_(client.request, answer, client.asker);
    explicit_bzero(&client.request, sizeof client.request);  // it may have held a password
    client.received = 0;

    client.output.reserve(kRecordSize + answer.table.size());
    client.output.assign(std::begin(answer.record.bytes), std::end(answer.record.bytes));
    client.output.insert(client.output.end(), answer.table.begin(), answer.table.end());
    client.sent = 0;
    client.since = client.due = Clock::now() + answer.delay;
}

bool Server::send(Client& client)
{
    const std::size_t left = client.output.size() - client.sent;
    const ssize_t sent = ::send(client.socket, client.output.data() + client.sent, left, MSG_NOSIGNAL);
    if (sent < 0) return would_block(errno);
    client.sent += static_cast<std::size_t>(sent);
    client.since = Clock::now();
    if (client.sent < client.output.size()) return true;
    client.output.clear();  // its room is kept for the next record, but not that of a table
    if (client.output.capacity() > kRecordSize) client.output = {};
    return true;
}

void Server::drop(Client& client)
{
    if (client.socket >= 0) close(client.socket);
    explicit_bzero(&client.request, sizeof client.request);
    client.socket = -1;
}

void Server::drop_late()
{
    const auto now = Clock::now();
    for (Client& client : clients_) {
        if (client.socket < 0 || client.is_idle() || now < client.since + limits_.patience) continue;
        log_line(LOG_NOTICE, "dropped a client that %s",
                 client.is_sending() ? "takes no answer" : "sent half a request");
        drop(client);
    }
}

void Server::accept_waiting()
{
    const int socket = accept4(listener_, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (socket < 0) {
        if (would_block(errno) || errno == ECONNABORTED) return;
        log_line(LOG_WARNING, "accept: %s", std::strerror(errno));
        acceptAgain_ = Clock::now() + kRest;
        return;
    }
    ucred peer{};
    if (!read_peer(socket, peer) || !is_allowed(peer) || !make_place()) {
        close(socket);
        return;
    }
    clients_.push_back({.socket = socket, .asker = {++connections_, name_of(peer)}, .since = Clock::now()});
}

// A client that has asked nothing for long is sent away for a new one: it connects again when it has a question. Where
// there is none it is one whose answer is held back: wrong passwords do not lock others out.
bool Server::make_place()
{
    const auto open = [](const Client& client) { return client.socket >= 0; };
    if (static_cast<std::size_t>(std::ranges::count_if(clients_, open)) < limits_.clients) return true;

    const auto now = Clock::now();
    Client* oldest = nullptr;
    for (Client& client : clients_) {
        const bool yields = open(client) && (client.is_idle() || client.is_held(now));
        if (yields && (!oldest || client.since < oldest->since)) oldest = &client;
    }
    if (oldest)
        drop(*oldest);
    else
        log_line(LOG_WARNING, "refused a client: %zu are busy", limits_.clients);
    return oldest != nullptr;
}

Lock::~Lock()
{
    if (file_ >= 0) close(file_);
}

int Lock::take(const std::string& path)
{
    file_ = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kOwnerOnly);
    if (file_ < 0) return errno;
    return flock(file_, LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
}
