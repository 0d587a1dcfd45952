#include "fuzz/streams.h"

#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/fuzzing.h"

namespace {
std::FILE* nowhere()
{
    static std::FILE* const stream =
        fopencookie(nullptr, "w",
                    {.read = nullptr,
                     .write = [](void*, const char*, std::size_t size) { return static_cast<ssize_t>(size); },
                     .seek = nullptr,
                     .close = nullptr});
    holds(stream, "no stream");
    return stream;
}
}  // namespace

Silence::Silence() : output_(stdout), errors_(stderr)
{
    stdout = nowhere();
    stderr = nowhere();
}

Silence::~Silence()
{
    std::fflush(stdout);
    stdout = output_;
    stderr = errors_;
}

Input::Input(std::span<const std::uint8_t> bytes) : kept_(dup(STDIN_FILENO))
{
    const int file = memfd_create("keys", MFD_CLOEXEC);
    holds(file >= 0 && kept_ >= 0, "no file in memory");
    holds(write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()), "a file in memory is full");
    lseek(file, 0, SEEK_SET);
    dup2(file, STDIN_FILENO);
    close(file);
}

Input::~Input()
{
    dup2(kept_, STDIN_FILENO);
    close(kept_);
}
