#include "support/service.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>

namespace {
bool takes_connections()
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string& path = Service::socket_path();
    if (path.size() >= sizeof address.sun_path) throw std::length_error("too long for a socket: " + path);
    std::memcpy(address.sun_path, path.data(), path.size());

    const int connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool connected = connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(connection);
    return connected;
}

std::vector<std::string> command_line()
{
    std::vector<std::string> words{ROUTER_PROGRAMS "/configd", "--log", "stderr"};
    if (std::filesystem::exists(ROUTER_PROFILE)) words.insert(words.end(), {"--profile", ROUTER_PROFILE});
    return words;
}
}  // namespace

Service::Service()
{
    wipe();
    start();
}

void Service::start()
{
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    const int log = open(ROUTER_SERVICE_LOG, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (log < 0) throw std::system_error(errno, std::generic_category(), ROUTER_SERVICE_LOG);
    process_ = Process({.command = command_line(), .input = nothing, .output = log, .errors = log});
    close(log);
    close(nothing);

    for (const Deadline deadline(kPatience); !takes_connections();) {
        if (deadline.passed() || process_.wait_exit(Milliseconds{5}))
            throw std::runtime_error("configd does not start; its log:\n" + Service::log());
    }
}

void Service::stop()
{
    process_.signal(SIGTERM);
    if (!process_.wait_exit(kPatience)) throw std::runtime_error("configd does not end when asked to");
}

void Service::kill() { process_.end(); }
void Service::suspend() { process_.signal(SIGSTOP); }
void Service::resume() { process_.signal(SIGCONT); }

void Service::restart_device()
{
    stop();
    std::filesystem::remove_all(ROUTER_RUNTIME_DIR);
    start();
}

const std::string& Service::state_folder()
{
    static const std::string path = ROUTER_STATE_DIR;
    return path;
}

const std::string& Service::socket_path()
{
    static const std::string path = ROUTER_RUNTIME_DIR "/configd.sock";
    return path;
}

void Service::wipe()
{
    for (const char* folder : {ROUTER_RUNTIME_DIR, ROUTER_STATE_DIR}) std::filesystem::remove_all(folder);
    std::filesystem::remove(ROUTER_SERVICE_LOG);
}

std::string Service::log()
{
    std::ifstream file(ROUTER_SERVICE_LOG);
    return {std::istreambuf_iterator<char>(file), {}};
}
