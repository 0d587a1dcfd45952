// One connection to the service as a test wants it: whole requests, pieces of them, or nothing at all.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "configd/answer.h"

class RawClient {
public:
    explicit RawClient(const std::string& socketPath);  // when nobody listens, the first send() tells
    ~RawClient();
    RawClient(const RawClient&) = delete;
    RawClient& operator=(const RawClient&) = delete;

    // False when the service has closed the connection.
    bool send(const void* bytes, std::size_t size);
    bool send(const ComParam& request) { return send(request.bytes, sizeof request.bytes); }
    std::optional<Answer> receive();  // nothing when the connection ended first
    std::optional<Answer> ask(const ComParam& request);
    std::optional<Answer> ask(std::uint16_t code);
    bool is_closed();  // waits a while for the end; what arrives before it is thrown away

    void finish_sending();

    static ComParam request(std::uint16_t code);

private:
    bool read_all(unsigned char* bytes, std::size_t size);

    int socket_;
};
