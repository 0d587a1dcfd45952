// Wrong passwords cost time: the answer to one is held back, longer with each, until a right one is given. All clients
// share the count, and a file beside the running configuration keeps it, so that neither a new connection nor a restart
// of the service starts it anew. A right answer is never held back: the operator gets in while somebody else guesses.
#pragma once

#include <chrono>
#include <string>

#include "configd/storage.h"

class Attempts {
public:
    // The longest stays below the time that a console waits for an answer.
    static constexpr std::chrono::milliseconds kFirst{100}, kLongest{5000};

    Attempts() = default;  // no file
    // Reads what the folder has; a file that cannot be understood counts as many wrong ones.
    Attempts(Storage storage, const std::string& folder);

    std::chrono::milliseconds wrong();  // how long its answer is held back
    void right();

private:
    void write() const;

    Storage storage_;
    std::string file_;
    unsigned count_ = 0;  // since the last right one, kMost at most
};
