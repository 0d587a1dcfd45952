#include "login/options.h"

#include <cstdlib>
#include <cstring>
#include <netdb.h>
#include <strings.h>
#include <unistd.h>

#include "login/login_values.h"
#include "login/text.h"

OptionFault parse_options(int argc, char** argv, bool superUser, Options& options)
{
    opterr = 0;  // the usage line says it all
    for (int option; (option = getopt(argc, argv, "fh:p")) != -1;) {
        switch (option) {
        case 'f': options.authenticated = true; break;
        case 'p': options.keepEnvironment = true; break;
        case 'h':
            if (!superUser) return OptionFault::superUserOnly;
            options.host = optarg;
            break;
        default: return OptionFault::usage;
        }
    }
    if (optind < argc) std::memset(argv[optind], ' ', std::strlen(argv[optind]));
    return OptionFault::none;
}

void read_local_host(LocalHost& local)
{
    if (gethostname(local.name, sizeof local.name) != 0) local.name[0] = 0;
    local.name[sizeof local.name - 1] = 0;  // a longer name need not be ended
    local.domain = std::strchr(local.name, '.');
}

void cut_domain(char* host, const char* domain)
{
    if (!domain) return;
    const std::size_t length = std::strlen(host), tail = std::strlen(domain);
    if (length > tail && strcasecmp(host + length - tail, domain) == 0) host[length - tail] = 0;
}

void set_remote_host(const char* host, const LocalHost& local)
{
    std::free(hostname);
    hostname = strdup(host);
    std::memset(hostaddress, 0, sizeof hostaddress);
    if (!hostname) return;

    make_printable(hostname);
    cut_domain(hostname, local.domain);
    const hostent* found = gethostbyname(hostname);
    if (found && found->h_length == sizeof hostaddress && found->h_addr_list[0])
        std::memcpy(hostaddress, found->h_addr_list[0], sizeof hostaddress);
}
