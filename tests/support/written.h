// For the unit tests of what stands on the screen: what a piece of code writes to standard output.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

// Standard output goes here while the object lives, the test framework's own reports included: keep it short-lived.
class Written {
public:
    Written() : kept_(dup(STDOUT_FILENO)), sink_(memfd_create("written", 0))
    {
        std::fflush(stdout);
        dup2(sink_, STDOUT_FILENO);
    }
    ~Written()
    {
        std::fflush(stdout);
        dup2(kept_, STDOUT_FILENO);
        close(kept_);
        close(sink_);
    }
    Written(const Written&) = delete;
    Written& operator=(const Written&) = delete;

    // What was written since the last call.
    std::string take()
    {
        std::fflush(stdout);
        std::string text(static_cast<std::size_t>(lseek(sink_, 0, SEEK_CUR)), '\0');
        const ssize_t got = pread(sink_, text.data(), text.size(), 0);
        text.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
        if (ftruncate(sink_, 0) == 0) lseek(sink_, 0, SEEK_SET);
        return text;
    }

private:
    int kept_, sink_;
};

template <class Run> std::string written_by(Run run)
{
    Written written;
    run();
    return written.take();
}

// What the terminal driver, whose output side the console leaves as it is, makes of it.
inline std::string as_sent(const std::string& written)
{
    std::string sent;
    for (const char c : written) sent += c == '\n' ? "\r\n" : std::string(1, c);
    return sent;
}
