#include "fuzz/streams.h"

#include <algorithm>
#include <cstring>

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

std::span<const std::uint8_t> left;

ssize_t read_left(void*, char* into, std::size_t room)
{
    const std::size_t size = std::min(room, left.size());
    if (size > 0) std::memcpy(into, left.data(), size);
    left = left.subspan(size);
    return static_cast<ssize_t>(size);
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

Input::Input(std::span<const std::uint8_t> bytes) : kept_(stdin)
{
    left = bytes;
    stdin = fopencookie(nullptr, "r", {.read = read_left, .write = nullptr, .seek = nullptr, .close = nullptr});
    holds(stdin, "no stream");
}

Input::~Input()
{
    std::fclose(stdin);
    stdin = kept_;
}
