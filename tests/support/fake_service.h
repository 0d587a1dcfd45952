// A service that answers as a test wants it to: wrong lengths, half a record, nothing at all. Takes the place of the
// real one at the same socket.
#pragma once

#include <functional>
#include <string>

#include "support/socket_server.h"

struct Reply {
    std::string bytes;        // sent as they are; empty: no answer
    bool disconnect = false;  // right after them
};

// The request's record as an answer with `status`, and `attachedLength` claimed for a table that does not follow.
Reply plain_reply(const ComParam& request, std::uint32_t status = 0, std::uint32_t attachedLength = 0);

class FakeService {
public:
    using Answer = std::function<Reply(const ComParam& request)>;

    // `answer` is called on a thread of the service's own, for one request at a time.
    explicit FakeService(Answer answer);

private:
    SocketServer server_;
};
