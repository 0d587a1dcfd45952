// The login accounting: who is logged in (utmp), who has been (wtmp), and each user's last login (lastlog).
#pragma once

#include <cstdint>
#include <sys/types.h>

struct LoginEvent {
    const char* user;
    const char* line;              // terminal without "/dev/"
    const char* id;                // its short form
    const char* host;              // remote host, or null
    const unsigned char* address;  // its four bytes; first 0: not known
    pid_t pid;
    std::int64_t time;
};

// Turns the entry that getty has left for this process or line into a user's, and appends it to wtmp. A file that
// cannot be written is left alone.
void write_utmp(const LoginEvent& login, const char* utmpPath, const char* wtmpPath);

// Tells the kernel whose session this is. Without it last(1) takes the session for one that was lost. A kernel that
// does not keep it is left alone.
void own_session(uid_t user);

// A record of the lastlog file, which stands there at the user id times its size.
struct LastLogin {
    std::int32_t time;  // seconds; 0: never
    char line[32];
    char host[256];
};
static_assert(sizeof(LastLogin) == 292);

// Prints when and from where the user logged in before, unless `quiet`, and records this login. Does nothing when the
// file cannot be opened.
void update_lastlog(const LoginEvent& login, uid_t user, bool quiet, const char* path);
