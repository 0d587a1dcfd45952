// configd: the configuration service. Reads its options, takes the runtime folder for itself, and serves until it is
// told to end.
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <getopt.h>
#include <string>
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "configd/areas/address.h"
#include "configd/areas/dhcp.h"
#include "configd/areas/firewall.h"
#include "configd/areas/password.h"
#include "configd/areas/routes.h"
#include "configd/areas/time.h"
#include "configd/linux/interface_changes.h"
#include "configd/log.h"
#include "configd/notify.h"
#include "configd/operations.h"
#include "configd/sandbox.h"
#include "configd/server.h"

namespace {
struct Options {
    Folders folders{ROUTER_RUNTIME_DIR, ROUTER_STATE_DIR};
    const char* profile = nullptr;  // the built-in one
    LogTarget log = LogTarget::kSyslog;
};

constexpr const char* kUsage = "Usage: configd [options]\n"
                               "The configuration service of the device.\n"
                               "\n"
                               "  -r, --runtime-dir DIR  socket and running configuration (" ROUTER_RUNTIME_DIR ")\n"
                               "  -s, --state-dir DIR    saved configuration (" ROUTER_STATE_DIR ")\n"
                               "  -p, --profile FILE     what this device has; without it a small access point\n"
                               "  -l, --log TARGET       where the log goes: syslog (default) or stderr\n"
                               "  -f, --foreground       the same as --log stderr\n"
                               "  -h, --help             this text\n"
                               "  -V, --version          the version\n";

constexpr option kOptions[] = {
    {"runtime-dir", required_argument, nullptr, 'r'}, {"state-dir", required_argument, nullptr, 's'},
    {"profile", required_argument, nullptr, 'p'},     {"log", required_argument, nullptr, 'l'},
    {"foreground", no_argument, nullptr, 'f'},        {"help", no_argument, nullptr, 'h'},
    {"version", no_argument, nullptr, 'V'},           {nullptr, 0, nullptr, 0},
};

constexpr int kWrongUsage = 2;

[[noreturn]] void say_and_leave(const char* text)
{
    std::fputs(text, stdout);
    std::exit(EXIT_SUCCESS);
}

bool choose_log(const char* target, Options& options)
{
    const bool toStderr = std::strcmp(target, "stderr") == 0;
    if (!toStderr && std::strcmp(target, "syslog") != 0) return false;
    options.log = toStderr ? LogTarget::kStderr : LogTarget::kSyslog;
    return true;
}

bool read_options(int count, char** words, Options& options)
{
    for (;;) {
        switch (getopt_long(count, words, "r:s:p:l:fhV", kOptions, nullptr)) {
        case 'r': options.folders.runtime = optarg; break;
        case 's': options.folders.state = optarg; break;
        case 'p': options.profile = optarg; break;
        case 'f': options.log = LogTarget::kStderr; break;
        case 'l':
            if (choose_log(optarg, options)) break;
            return false;
        case 'h': say_and_leave(kUsage);
        case 'V': say_and_leave("configd " ROUTER_VERSION "\n");
        case -1: return optind == count;
        default: return false;
        }
    }
}

// The signals that end the service, as a descriptor to wait on.
int end_signals()
{
    std::signal(SIGPIPE, SIG_IGN);
    sigset_t set;
    sigemptyset(&set);
    for (const int each : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&set, each);
    sigprocmask(SIG_BLOCK, &set, nullptr);
    return signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
}

bool read_profile(const char* path, Profile& profile)
{
    std::string why;
    if (!path || load_profile(path, profile, why)) return true;
    log_line(LOG_ERR, "profile %s: %s", path, why.c_str());
    return false;
}

bool enter_sandbox(const Profile& profile)
{
    const int error = apply_sandbox(
        {.setClock = profile.clock == ClockMeans::kDevice, .restartMachine = profile.restart == RestartMeans::kDevice});
    if (error == ENOSYS) log_line(LOG_WARNING, "this kernel has no system-call filter: going on without");
    if (error == 0 || error == ENOSYS) return true;
    log_line(LOG_ERR, "privileges could not be given up: %s", std::strerror(error));
    return false;
}

int fail(const std::string& what, int error)
{
    log_line(LOG_ERR, "%s: %s", what.c_str(), std::strerror(error));
    return EXIT_FAILURE;
}

int serve(Service& service, const std::string& socketPath, int signals)
{
    service.store.start();
    warn_of_factory_password(service);
    if (const int error = apply_lan_address(service))
        log_line(LOG_ERR, "the LAN address could not be set: %s", std::strerror(error));
    if (const int error = apply_time_zone(service))
        log_line(LOG_ERR, "the time zone could not be set: %s", std::strerror(error));
    if (const int error = apply_dhcp(service))
        log_line(LOG_ERR, "the DHCP server's file could not be written: %s", std::strerror(error));
    if (const int error = apply_ntp(service))
        log_line(LOG_ERR, "the time service's file could not be written: %s", std::strerror(error));
    if (const int error = apply_firewall(service))
        log_line(LOG_ERR, "the firewall rules could not be written: %s", std::strerror(error));

    const int changes = device::watch_interfaces();  // open until the process ends
    if (changes >= 0) service.interfaces.keep();     // else nobody would tell that they have changed
    restore_routes(service);

    Server server([&service](const ComParam& request, Answer& answer, const Asker& asker) {
        answer_request(service, request, answer, asker);
    });
    if (const int error = server.listen(socketPath)) return fail(socketPath, error);
    server.watch(changes, [&service, changes] {
        device::drain_changes(changes);
        service.interfaces.forget();
        restore_routes(service);
    });
    log_line(LOG_INFO, "listening at %s", socketPath.c_str());
    notify_supervisor("READY=1");
    server.run(signals);
    notify_supervisor("STOPPING=1");
    log_line(LOG_INFO, "ended");
    return EXIT_SUCCESS;
}
}  // namespace

int main(int count, char** words)
{
    Options options;
    if (!read_options(count, words, options)) {
        std::fputs(kUsage, stderr);
        return kWrongUsage;
    }
    keep_memory_private();
    open_log(options.log);
    umask(S_IRWXG | S_IRWXO);
    Profile profile = built_in_profile();
    if (!read_profile(options.profile, profile)) return EXIT_FAILURE;

    const Storage storage = posix_storage();
    const std::string runtime = options.folders.runtime;
    if (const int error = make_folders(storage, runtime, Store::kRuntimeMode)) return fail(runtime, error);
    const std::string state = options.folders.state;
    if (const int error = make_folders(storage, state, Store::kStateMode))
        log_line(LOG_ERR, "%s: %s", state.c_str(), std::strerror(error));
    Lock lock;
    if (const int error = lock.take(runtime + "/configd.lock")) {
        if (error != EWOULDBLOCK) return fail(runtime, error);
        log_line(LOG_ERR, "another configuration service runs in %s", runtime.c_str());
        return EXIT_FAILURE;
    }

    const int signals = end_signals();
    if (signals < 0) return fail("signalfd", errno);
    if (!enter_sandbox(profile)) return EXIT_FAILURE;
    const Model model = model_of(areas());
    Service service{kLinuxDevice,
                    profile,
                    Store(model, storage, options.folders),
                    ClearedCounters(storage, runtime),
                    RuleFile(storage, runtime),
                    RuleFile(storage, runtime, RuleFile::kDhcpName),
                    RuleFile(storage, runtime, RuleFile::kTimeName),
                    Attempts(storage, runtime)};
    const int status = serve(service, runtime + "/configd.sock", signals);
    close(signals);
    return status;
}
