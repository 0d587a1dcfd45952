// One program on a terminal line of its own, driven from the other end of the line.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

using Nanoseconds = std::chrono::nanoseconds;

Nanoseconds now();

class PtyProgram {
public:
    enum class Held { no, beforeExec };  // beforeExec: stops itself so that a tracer can take it from its first call on

    explicit PtyProgram(const std::vector<std::string>& command, Held held = Held::no);
    ~PtyProgram();
    PtyProgram(const PtyProgram&) = delete;
    PtyProgram& operator=(const PtyProgram&) = delete;

    void send(std::string_view keys);  // forgets what was seen before
    // Reads until `text` has come and forgets everything up to its end. No answer for ten seconds ends this program,
    // with what was seen instead.
    void until(std::string_view text);

    // Sends while it reads; returns how often `text` came before `times` of them were seen or nothing came any more.
    unsigned stream(std::string_view keys, std::string_view text, unsigned times);

    // For a caller that does other things between.
    bool read_some(int waitMilliseconds);  // false: nothing came
    bool take(std::string_view text);      // as `until`, with what has been read by now

    pid_t id() const { return pid_; }
    const std::string& terminal() const { return terminal_; }
    Nanoseconds exec_time() const;  // when the program's image was about to be loaded

private:
    [[noreturn]] void give_up(std::string_view text) const;

    std::vector<std::string> command_;
    std::string terminal_;
    int line_ = -1;
    pid_t pid_ = -1;
    struct Shared;
    Shared* shared_;
    std::string seen_;
};

long private_dirty_kilobytes(pid_t process);
