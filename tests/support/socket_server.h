// A server at a local socket, on a thread of its own: hands each connection to a function, then closes it.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "service/record.h"

class SocketServer {
public:
    SocketServer(const std::string& path, std::function<void(int connection)> serve);
    ~SocketServer();  // also ends the connection that is being served
    SocketServer(const SocketServer&) = delete;
    SocketServer& operator=(const SocketServer&) = delete;

    int connections() const { return connections_; }

private:
    void run();

    std::function<void(int)> serve_;
    std::string path_;
    int listener_ = -1;
    std::atomic<int> connection_ = -1, connections_ = 0;
    std::thread thread_;
};

bool take_request(int connection, ComParam& request);  // false: the connection has ended
bool say(int connection, const std::string& bytes);
