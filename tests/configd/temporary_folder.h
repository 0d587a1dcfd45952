// A folder that is gone with everything in it at the end of the test.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        if (!mkdtemp(path_.data())) std::abort();
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_ = "/tmp/configd-XXXXXX";  // short: a socket's path has at most 107 characters
};
