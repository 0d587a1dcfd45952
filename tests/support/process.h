// A child process and the deadline that something must happen before. Nothing here sleeps: waiting is poll(2).
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

using Milliseconds = std::chrono::milliseconds;

// Long enough for an instrumented program on a busy machine, short enough to wait for when a test fails.
inline constexpr Milliseconds kPatience{15000};

class Deadline {
public:
    explicit Deadline(Milliseconds limit) : end_(std::chrono::steady_clock::now() + limit) {}
    bool passed() const { return std::chrono::steady_clock::now() >= end_; }
    int poll_timeout() const;  // milliseconds left, rounded up, for poll(2)

private:
    std::chrono::steady_clock::time_point end_;
};

struct Launch {
    std::vector<std::string> command;  // the program's path and its arguments
    int input, output, errors;         // what become descriptors 0, 1 and 2
    bool ownTerminal = false;          // `input` becomes the controlling terminal of a session of its own
};

// Ended and reaped at the latest when it leaves the scope, and when its parent dies.
class Process {
public:
    Process() = default;
    explicit Process(const Launch& launch);
    ~Process() { end(); }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    Process(Process&& other) noexcept { swap(other); }
    Process& operator=(Process&& other) noexcept
    {
        swap(other);
        return *this;
    }

    bool running() { return !wait_exit(Milliseconds{0}); }
    pid_t id() const { return pid_; }
    int descriptor() const { return ended_; }  // readable for poll(2) once the process has ended; -1: never started
    void signal(int number);

    // The exit status, or 128 and the signal that ended it; nothing while it still runs after `limit`.
    std::optional<int> wait_exit(Milliseconds limit);
    void end();

private:
    void swap(Process& other) noexcept;

    pid_t pid_ = -1;
    int ended_ = -1;
    std::optional<int> status_;
};
