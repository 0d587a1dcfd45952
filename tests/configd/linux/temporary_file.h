// A file that is gone at the end of the test.
#pragma once

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& text)
    {
        const int file = mkstemp(name.data());
        for (std::size_t done = 0; done < text.size();) {
            const ssize_t put = write(file, text.data() + done, text.size() - done);
            if (put <= 0) std::abort();
            done += static_cast<std::size_t>(put);
        }
        close(file);
    }
    ~TemporaryFile() { unlink(name.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const char* path() const { return name.c_str(); }

private:
    std::string name = testing::TempDir() + "router-XXXXXX";
};
