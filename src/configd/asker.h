// Who is at the other end of a connection.
#pragma once

#include <string>

struct Asker {
    std::string name{};  // the user and the terminal, for the log; empty: nobody says
};
