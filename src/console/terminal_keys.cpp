#include "console/terminal_keys.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace {
unsigned char keys[8192];  // room for a block that is being served and for a line's queue of 4096 bytes
std::size_t first, end;

void move_to_front()
{
    std::memmove(keys, keys + first, end - first);
    end -= first;
    first = 0;
}
}  // namespace

bool keys_wait() { return first < end; }

bool has_room_for_keys() { return end - first < sizeof keys; }

int take_key() { return keys_wait() ? keys[first++] : EOF; }

bool read_keys()
{
    move_to_front();
    ssize_t got;
    do {  // a signal that was handled in the middle of a read is no end of the input
        got = read(STDIN_FILENO, keys + end, sizeof keys - end);
    } while (got < 0 && errno == EINTR);
    if (got > 0) end += static_cast<std::size_t>(got);
    return got > 0;
}

bool forget_keys_up_to(unsigned char key)
{
    const void* last = memrchr(keys + first, key, end - first);
    if (last) first = static_cast<std::size_t>(static_cast<const unsigned char*>(last) - keys) + 1;
    return last != nullptr;
}

void forget_keys() { first = end = 0; }
