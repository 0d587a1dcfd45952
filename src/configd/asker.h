// Who is at the other end of a connection.
#pragma once

#include <cstdint>
#include <string>

struct Asker {
    std::uint64_t connection = 0;  // no two have the same while the service runs
    std::string name{};            // the user and the terminal, for the log; empty: nobody says
};
