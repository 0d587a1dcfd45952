// The command line of the login program, and the remote host that it may name.
#pragma once

#include <cstddef>

struct Options {
    bool keepEnvironment = false;  // -p
    bool authenticated = false;    // -f: recorded, changes nothing
    const char* host = nullptr;    // -h, as given
};

enum class OptionFault { none, usage, superUserOnly };

// Stops at the first fault. Overwrites a user name with blanks in `argv`: whatever it is, "root" logs in, and a
// password typed in its place must not stay visible in the process list.
OptionFault parse_options(int argc, char** argv, bool superUser, Options& options);

// The name of this host, cut to 100 characters, and its domain: from the first '.', or null.
struct LocalHost {
    char name[101];
    const char* domain;
};
void read_local_host(LocalHost& local);

// Cuts the local domain, case ignored, off the end of `host`. `domain` may be null.
void cut_domain(char* host, const char* domain);

// Sets hostname and hostaddress (login_values.h) for the host that -h named.
void set_remote_host(const char* host, const LocalHost& local);
