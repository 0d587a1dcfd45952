#include "login/front_end.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <grp.h>
#include <pwd.h>
#include <string_view>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <syslog.h>
#include <unistd.h>

#include "console/console_process.h"
#include "console/session.h"
#include "console/terminal.h"
#include "login/access.h"
#include "login/accounting.h"
#include "login/environment.h"
#include "login/login_values.h"
#include "login/options.h"
#include "login/process_title.h"
#include "login/session_timeout.h"
#include "login/settings.h"
#include "login/terminal_line.h"

namespace {
constexpr unsigned kFirstOwnDescriptor = 3;
constexpr char kUtmp[] = "/var/run/utmp", kWtmp[] = "/var/log/wtmp", kLastlog[] = "/var/log/lastlog";

// The database's own storage is not written to; texts of a made-up entry are.
char rootName[] = "root", rootHome[] = "/root", standardShell[] = "/bin/sh", topDirectory[] = "/", noPassword[] = "";

void start_signals()
{
    loginPid = getpid();
    install_timeout_handler();
    std::signal(SIGQUIT, SIG_IGN);
    std::signal(SIGINT, SIG_IGN);
}

[[noreturn]] void refuse(const char* text)
{
    std::fputs(text, stderr);
    std::exit(1);
}

Options read_options(int argc, char** argv)
{
    LocalHost local;
    read_local_host(local);

    Options options;
    switch (parse_options(argc, argv, getuid() == 0, options)) {
    case OptionFault::none: break;
    case OptionFault::usage: refuse("usage: login [-fp] [username]\n");
    case OptionFault::superUserOnly: refuse("login: -h for super-user only.\n");
    }
    if (options.host) set_remote_host(options.host, local);
    return options;
}

void look_user_up()
{
    static passwd madeUp;
    userName = rootName;
    pwd = getpwnam(userName);
    if (!pwd) {
        madeUp.pw_name = rootName;
        madeUp.pw_passwd = madeUp.pw_gecos = noPassword;
        madeUp.pw_dir = rootHome;
        madeUp.pw_shell = standardShell;
        pwd = &madeUp;
    }
    initgroups(userName, pwd->pw_gid);  // only root may; without it the groups stay as they are
}

void read_settings()
{
    set_session_timeout();
    alarm(timeout);
    keep_terminal_attributes();
    set_prompts();
}

void record_login()
{
    const bool quiet = wants_quiet_login(*pwd);
    const LoginEvent login{.user = userName,
                           .line = ttyName,
                           .id = ttyId,
                           .host = hostname,
                           .address = hostaddress,
                           .pid = loginPid,
                           .time = std::time(nullptr)};
    own_session(pwd->pw_uid);
    write_utmp(login, kUtmp, kWtmp);
    update_lastlog(login, pwd->pw_uid, quiet, kLastlog);
}

void hand_over_terminal()
{
    give_terminal_to(pwd->pw_uid, pwd->pw_gid);
    [[maybe_unused]] const int ignored = setgid(pwd->pw_gid);  // an ordinary user keeps the own group
    if (!pwd->pw_shell || !*pwd->pw_shell) pwd->pw_shell = standardShell;
}

void log_login()
{
    constexpr char kSerial[] = "ttyS";
    if (std::string_view(ttyName).starts_with(kSerial)) syslog(LOG_INFO, "DIALUP AT %s BY %s", ttyName, userName);

    if (pwd->pw_uid != 0) {
        if (hostname)
            syslog(LOG_INFO, "LOGIN ON %s BY %s FROM %s", ttyName, userName, hostname);
        else
            syslog(LOG_INFO, "LOGIN ON %s BY %s", ttyName, userName);
    } else if (hostname) {
        syslog(LOG_NOTICE, "ROOT LOGIN ON %s FROM %s", ttyName, hostname);
    } else {
        syslog(LOG_NOTICE, "ROOT LOGIN ON %s", ttyName);
    }
}

void set_session_signals()
{
    std::signal(SIGQUIT, SIG_DFL);
    std::signal(SIGTSTP, SIG_IGN);
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGTTIN, SIG_IGN);
    std::signal(SIGTTOU, SIG_IGN);
}

void become_user()
{
    if (setuid(pwd->pw_uid) == 0 || pwd->pw_uid == 0) return;
    syslog(LOG_ALERT, "setuid() failed");
    std::exit(1);
}

void go_home()
{
    if (chdir(pwd->pw_dir) == 0) return;
    if (chdir(topDirectory) != 0) std::exit(0);
    pwd->pw_dir = topDirectory;
    setenv("HOME", topDirectory, 1);
}
}  // namespace

void run_front_end(int argc, char** argv)
{
    prctl(PR_SET_DUMPABLE, 0);  // passwords are typed here: no core dump has them
    // No locale is set: the console has one language, and the environment may be a remote peer's.
    start_signals();
    buffer_output();
    setpriority(PRIO_PROCESS, 0, 0);
    initproctitle(argc, argv);
    const Options options = read_options(argc, argv);

    close_descriptors_from(kFirstOwnDescriptor);
    const char* terminal = find_terminal();
    take_terminal_over(terminal);
    openlog("login", LOG_ODELAY, LOG_AUTHPRIV);

    look_user_up();
    checktty(userName, ttyName, pwd);
    read_settings();
    endpwent();
    record_login();

    hand_over_terminal();
    set_environment(*pwd, userName, options.keepEnvironment);
    setproctitle("login", userName);
    log_login();
    set_session_signals();
    become_user();
    go_home();

    console_init();
    console_process();
}
