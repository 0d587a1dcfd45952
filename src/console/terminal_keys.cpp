#include "console/terminal_keys.h"

#include <cstddef>
#include <cstdio>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace {
unsigned char kept[8192];  // a ring with room for what is read ahead and for a line's queue of 4096 bytes
std::size_t first, count;
}  // namespace

// With nothing behind it standard input ends where its buffer does.
void keep_keys_read_ahead()
{
    const int line = fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (line >= 0 && nothing >= 0) {
        dup2(nothing, STDIN_FILENO);
        for (int key; has_room_for_key() && (key = std::getc(stdin)) != EOF;) keep_key(static_cast<unsigned char>(key));
        std::clearerr(stdin);
        dup2(line, STDIN_FILENO);
    }
    for (const int each : {line, nothing})
        if (each >= 0) close(each);
}

bool has_room_for_key() { return count < sizeof kept; }

void keep_key(unsigned char key)
{
    if (has_room_for_key()) kept[(first + count++) % sizeof kept] = key;
}

void forget_kept_keys() { count = 0; }

int take_kept_key()
{
    if (count == 0) return EOF;
    const int key = kept[first];
    first = (first + 1) % sizeof kept;
    --count;
    return key;
}
