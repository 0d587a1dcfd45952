// The socket that the console asks at: one thread, one loop, every client non-blocking. A message is a record; the
// answer is a record and its table. A client that is stuck, slow or hostile costs one place and its time, never the
// others'.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "configd/answer.h"
#include "configd/asker.h"

class Server {
public:
    using Handler = std::function<void(const ComParam& request, Answer& answer, const Asker& asker)>;
    using Clock = std::chrono::steady_clock;

    struct Limits {
        std::size_t clients = 80;
        Clock::duration patience = std::chrono::seconds(30);  // for the rest of a request, and for an answer to move on
    };

    explicit Server(Handler handler) : Server(std::move(handler), Limits{}) {}
    Server(Handler handler, Limits limits) : handler_(std::move(handler)), limits_(limits) {}
    ~Server();  // closes everything and removes the socket
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    // A socket file that is there already is replaced: the caller holds the runtime folder's lock, so it is nobody's.
    // 0 or an errno value.
    int listen(const std::string& path);

    // Calls `ready` between two requests whenever the descriptor, the caller's, is readable. One at most; -1: none.
    void watch(int descriptor, std::function<void()> ready);

    // Serves until `stop` is readable.
    void run(int stop);

private:
    struct Client {
        int socket;
        Asker asker;
        ComParam request{};
        std::size_t received = 0;  // bytes of the request
        std::vector<unsigned char> output{};
        std::size_t sent = 0;       // bytes of the output
        Clock::time_point since{};  // of the request's first byte, the output's last step, or the last answer
        Clock::time_point due{};    // the output is held back until then

        bool is_sending() const { return !output.empty(); }
        bool is_held(Clock::time_point now) const { return is_sending() && due > now; }
        bool is_idle() const { return received == 0 && !is_sending(); }
    };

    static short awaited(const Client& client, Clock::time_point now);
    int timeout() const;
    void serve(Client& client);
    bool receive(Client& client);
    bool send(Client& client);
    void answer(Client& client);
    void drop(Client& client);
    void drop_late();
    void accept_waiting();
    bool make_place();

    Handler handler_;
    Limits limits_;
    std::string path_;
    int listener_ = -1;
    int watched_ = -1;
    std::function<void()> ready_;
    std::vector<Client> clients_;
    std::uint64_t connections_ = 0;    // so far
    Clock::time_point acceptAgain_{};  // the system had no room for another client until then
};

// Keeps a second service out of the runtime folder while it lives.
class Lock {
public:
    ~Lock();
    // 0 or an errno value; EWOULDBLOCK: another service runs here.
    int take(const std::string& path);

private:
    int file_ = -1;
};
