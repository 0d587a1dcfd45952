// What clients send to the service, through its own socket: whole records, torn ones, several clients in turn, on a
// machine and a disk that may fail. The input is a script in the lines of record_script.h and these:
//
//     a     the last answer becomes the record      q    sends it and takes the answer
//     z N   sends only its first N bytes            j N  goes on as client N, 0 to 3
//     e     the client leaves                       R    the service is killed and starts again
//     m N   the machine refuses with errno N        o N  the disk is gone after N more operations; 0: it works again
//                                                   O N  the N-th operation from now fails, and that one only
#include <cerrno>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "configd/server.h"
#include "configd/temporary_folder.h"
#include "fuzz/device.h"
#include "fuzz/fuzzing.h"
#include "fuzz/record_script.h"
#include "fuzz/streams.h"
#include "service/codes.h"

namespace {
constexpr int kMostLines = 200;
constexpr std::size_t kClients = 4;

int connect_to(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    holds(connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0, "the service is deaf");
    return socket;
}

class Conversation {
public:
    explicit Conversation(const std::string& path) : path_(path)
    {
        device_.start();
        open_server();
        new_record(record_);
    }
    ~Conversation()
    {
        for (int& each : clients_) leave(each);
        close(stop_);
    }
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    void obey(char letter, Words words)
    {
        switch (letter) {
        case 'a': record_ = answer_; break;
        case 'q': ask(); break;
        case 'z': send(words.number()); break;
        case 'j': client_ = words.number() % kClients; break;
        case 'e': leave(clients_[client_]); break;
        case 'm': machine.error = static_cast<int>(words.number() % kMostErrors); break;
        case 'o': fail_disk(words.number(), true); break;
        case 'O': fail_disk(words.number(), false); break;
        case 'R': restart(); break;
        default: edit_record(record_, letter, words);
        }
    }

    void finish() const { device_.check_stored_form(); }

private:
    static constexpr unsigned kMostErrors = 134;

    void open_server()
    {
        server_ = std::make_unique<Server>(
            [this](const ComParam& request, Answer& answer, const Asker&) { serve(request, answer); });
        holds(server_->listen(path_) == 0, "no socket");
        // One pass of the server's loop a turn: what it watches is always ready, and ends it.
        server_->watch(always_, [this] { eventfd_write(stop_, 1); });
    }

    void serve(const ComParam& request, Answer& answer)
    {
        const std::string before = stored();
        answer_request(*device_.service, request, answer);
        const std::uint32_t code = record::code.get(answer.record);
        const bool appliesAfterwards = code == code::kClearConfiguration || code == code::kRestart;
        if (record::status.get(answer.record) == kStatusOk || appliesAfterwards || disk_fails()) return;
        holds(before == stored(), "a refused request changed the configuration");
    }
    bool is_stored() const { return device_.storage.files.contains(kRunningFile); }
    // The text of what is running, as it is read back; without a file as it would be written.
    std::string stored() const
    {
        return is_stored() ? device_.storage.files.at(kRunningFile) : device_.service->store.running().text();
    }
    bool disk_fails() const { return device_.storage.failAt >= 0; }

    void turn()
    {
        server_->run(stop_);
        eventfd_t ignored;
        eventfd_read(stop_, &ignored);
    }

    void send(std::size_t size)
    {
        int& client = clients_[client_];
        if (client < 0) client = connect_to(path_);
        if (::send(client, record_.bytes, std::min(size, kRecordSize), MSG_NOSIGNAL) < 0) leave(client);
        for (int i = 0; i < 3; i++) turn();  // is accepted, is read, is answered
    }

    void ask()
    {
        send(kRecordSize);
        unsigned char bytes[4096];
        ssize_t got = clients_[client_] < 0 ? 0 : recv(clients_[client_], bytes, sizeof bytes, 0);
        if (got >= static_cast<ssize_t>(kRecordSize)) std::memcpy(answer_.bytes, bytes, kRecordSize);
        while (got == sizeof bytes) {
            got = recv(clients_[client_], bytes, sizeof bytes, 0);
            turn();
        }
    }

    static void leave(int& client)
    {
        if (client >= 0) close(client);
        client = -1;
    }

    void fail_disk(std::uint32_t after, bool forGood)
    {
        constexpr std::uint32_t kSoon = 64;
        device_.storage.error = ENOSPC;
        device_.storage.failOn = forGood;
        device_.storage.failAt = after == 0 ? -1 : device_.storage.changes + static_cast<int>(after % kSoon);
        diskWasGone_ |= forGood && after != 0;
    }

    // Without a disk the files may be behind what was in force; one failed operation is no reason for that.
    void restart()
    {
        server_.reset();
        for (int& each : clients_) leave(each);
        fail_disk(0, false);
        const std::string before = device_.service->store.running().text();
        const bool isStored = is_stored();
        device_.start();
        if (isStored && !diskWasGone_)
            holds(before == device_.service->store.running().text(), "a restart of the service lost a change");
        diskWasGone_ = false;
        open_server();
    }

    const std::string path_;
    FuzzedDevice device_;
    std::unique_ptr<Server> server_;
    const int stop_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    const int always_ = always_ready();
    int clients_[kClients] = {-1, -1, -1, -1};
    std::size_t client_ = 0;
    bool diskWasGone_ = false;
    ComParam record_, answer_{};

    static int always_ready()
    {
        static const int ready = eventfd(1, EFD_CLOEXEC);
        return ready;
    }
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TemporaryFolder folder;
    const Silence silence;
    std::string_view script(reinterpret_cast<const char*>(data), size);
    Conversation conversation(folder.path() + "/socket");
    char letter;
    Words words;
    for (int i = 0; i < kMostLines && take_line(script, letter, words); i++) conversation.obey(letter, words);
    conversation.finish();
    return 0;
}
