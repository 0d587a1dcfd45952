// The least that a program on a terminal line can do. The figures of every console are told as multiples of these.
//
//     floor byte                      reads one byte, writes one byte
//     floor block                     reads what is there, writes it
//     floor service SOCKET REQUESTS   as block, with that many exchanges of a record before it writes
//     floor serve SOCKET              the other end of these exchanges: no terminal, every record goes back as it came
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <termios.h>
#include <unistd.h>

namespace {
constexpr std::size_t kRecordSize = 3604;  // as a request to the configuration service and its answer
constexpr std::size_t kBlockSize = 4096;   // what a terminal line holds
constexpr std::string_view kPrompt = "Command> ";

[[noreturn]] void fail(const char* what)
{
    std::perror(what);
    std::exit(EXIT_FAILURE);
}

sockaddr_un address_of(const char* path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::size_t length = std::strlen(path);
    if (length >= sizeof address.sun_path) fail(path);
    std::memcpy(address.sun_path, path, length);
    return address;
}

bool exchange_bytes(ssize_t (*call)(int, void*, std::size_t), int line, char* record)
{
    for (std::size_t done = 0; done < kRecordSize;) {
        const ssize_t count = call(line, record + done, kRecordSize - done);
        if (count <= 0) return false;
        done += static_cast<std::size_t>(count);
    }
    return true;
}

bool read_record(int line, char* record) { return exchange_bytes(read, line, record); }
bool write_record(int line, char* record)
{
    return exchange_bytes([](int to, void* bytes, std::size_t size) { return write(to, bytes, size); }, line, record);
}

void take_terminal_over()
{
    termios attributes;
    if (tcgetattr(STDIN_FILENO, &attributes) != 0) fail("no terminal");
    cfmakeraw(&attributes);
    if (tcsetattr(STDIN_FILENO, TCSAFLUSH, &attributes) != 0) fail("tcsetattr");
}

void put(const char* bytes, std::size_t size)
{
    if (write(STDOUT_FILENO, bytes, size) < 0) fail("write");
}

void echo_bytes()
{
    for (char key; read(STDIN_FILENO, &key, sizeof key) == 1;) put(&key, sizeof key);
}

void echo_blocks(int service, long requests)
{
    char keys[kBlockSize], record[kRecordSize] = {};
    for (ssize_t count; (count = read(STDIN_FILENO, keys, sizeof keys)) > 0;) {
        for (long i = 0; i < requests; ++i)
            if (!write_record(service, record) || !read_record(service, record)) fail("the service");
        put(keys, static_cast<std::size_t>(count));
    }
}

int connected(const char* path)
{
    const sockaddr_un address = address_of(path);
    const int line = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (line < 0 || connect(line, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) fail(path);
    return line;
}

// One client at a time is not enough: several floors are measured side by side.
void serve(const char* path)
{
    const sockaddr_un address = address_of(path);
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (listener < 0 || bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener, SOMAXCONN) != 0)
        fail(path);
    for (int line; (line = accept(listener, nullptr, nullptr)) >= 0; close(line)) {
        if (fork() != 0) continue;
        char record[kRecordSize];
        while (read_record(line, record) && write_record(line, record)) {
        }
        _exit(EXIT_SUCCESS);
    }
}
}  // namespace

int main(int argc, char** argv)
{
    const std::string_view mode = argc > 1 ? argv[1] : "byte";
    if (mode == "serve" && argc == 3) {
        serve(argv[2]);
        return EXIT_FAILURE;
    }
    take_terminal_over();
    put(kPrompt.data(), kPrompt.size());
    if (mode == "byte")
        echo_bytes();
    else if (mode == "block")
        echo_blocks(-1, 0);
    else if (mode == "service" && argc == 4)
        echo_blocks(connected(argv[2]), std::strtol(argv[3], nullptr, 10));
    else
        return EXIT_FAILURE;
    return EXIT_SUCCESS;
}
