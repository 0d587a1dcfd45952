// The console behind what really starts it: getty on a line, a telnet server with a telnet client in front. Needs root;
// the network and the folders of the login records are the test's own, so that the machine's stay as they are.
#include <arpa/inet.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <poll.h>
#include <pwd.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <utmpx.h>

#include "support/own_network.h"
#include "support/service.h"
#include "support/terminal.h"

namespace {
constexpr char kConsole[] = ROUTER_PROGRAMS "/login";
constexpr char kPrompt[] = "Command> ";
constexpr std::uint16_t kPort = 2323;

// What the shell command prints.
std::string output_of(const std::string& command)
{
    std::string text;
    std::FILE* pipe = popen(command.c_str(), "r");
    for (int c; pipe && (c = std::getc(pipe)) != EOF;) text += static_cast<char>(c);
    if (pipe) pclose(pipe);
    return text;
}

// In the place of the internet super-server: one connection, and the server for it on descriptor 0.
class Inetd {
public:
    Inetd() : listening_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(kPort);
        EXPECT_EQ(bind(listening_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(listening_, 1), 0);
    }
    ~Inetd() { close(listening_); }
    Inetd(const Inetd&) = delete;

    Process serve(const std::vector<std::string>& server)
    {
        const int connection = accept4(listening_, nullptr, nullptr, SOCK_CLOEXEC);
        Process process({.command = server, .input = connection, .output = connection, .errors = connection});
        close(connection);
        return process;
    }

private:
    int listening_;
};

struct Line {
    const char* name;
    std::vector<std::string> getty{};    // on the operator's line
    std::vector<std::string> telnetd{};  // or for each connection
    const char* host = "";               // as the records have it
};
void PrintTo(const Line& line, std::ostream* out) { *out << line.name; }
const Line kLines[] = {
    {"Agetty", {"/sbin/agetty", "-n", "-l", kConsole, "LINE", "115200", "vt100"}},
    {"BusyboxGetty", {"/bin/busybox", "getty", "-n", "-l", kConsole, "115200", "LINE", "vt100"}},
    {"InetutilsTelnetd", {}, {"/usr/sbin/telnetd", "-E", std::string(kConsole) + " -h %h"}, "localhost"},
    {"BusyboxTelnetd", {}, {"/bin/busybox", "telnetd", "-i", "-l", kConsole}},
};
const std::vector<std::string> kClient{"/usr/bin/telnet", "127.0.0.1", std::to_string(kPort)};

std::vector<std::string> programs_of(const Line& line)
{
    if (!line.getty.empty()) return {line.getty[0]};
    return {line.telnetd[0], kClient[0]};
}

// The operator at one end, the console at the other.
class RealLine {
public:
    explicit RealLine(const Line& line, std::vector<std::string> client = kClient)
        : t({.command = line.getty.empty() ? client : line.getty})
    {
        if (line.getty.empty()) server_ = inetd_.serve(line.telnetd);
    }

private:
    Inetd inetd_;

public:
    Terminal t;

private:
    Process server_;
};

// The login records of this machine are not touched: the process gets folders of its own in their place.
void in_own_machine(const std::vector<std::string>& programs, const std::function<void()>& body)
{
    if (geteuid() != 0) GTEST_SKIP() << "only root may start getty";
    for (const std::string& program : programs)
        if (!std::filesystem::exists(program)) GTEST_SKIP() << program << " is not installed";
    in_own_network("true", [&] {
        ASSERT_EQ(unshare(CLONE_NEWNS), 0);
        ASSERT_EQ(mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr), 0);
        for (const char* folder : {"/run", "/var/log"}) ASSERT_EQ(mount("none", folder, "tmpfs", 0, nullptr), 0);
        for (const char* file : {"/run/utmp", "/var/log/wtmp", "/var/log/lastlog"}) std::ofstream{file};
        try {
            body();
        } catch (const std::exception& failure) {
            ADD_FAILURE() << failure.what();
        }
    });
}

std::optional<utmpx> user_entry()
{
    setutxent();
    while (const utmpx* entry = getutxent())
        if (entry->ut_type == USER_PROCESS) return *entry;
    return {};
}

bool ends(int process, Milliseconds limit = kPatience)
{
    pollfd ended{process, POLLIN, 0};
    return poll(&ended, 1, static_cast<int>(limit.count())) == 1;
}

struct End {
    const char* name;
    void (*of)(Terminal& t, pid_t console);
    const char* lastWords;
};
void PrintTo(const End& end, std::ostream* out) { *out << end.name; }
const End kEnds[] = {
    {"LogsOut", [](Terminal& t, pid_t) { t.type("logout\n"); }, "\a Logged out, Good-Bye!\n"},
    {"TimesOut", [](Terminal&, pid_t console) { kill(console, SIGALRM); }, "Login timed out after 600 seconds\n"},
    {"HangsUp", [](Terminal& t, pid_t) { t.hang_up(); }, nullptr},
};

class RealLines : public testing::TestWithParam<std::tuple<Line, End>> {};
TEST_P(RealLines, FromLoginToEnd)
{
    const auto& [line, end] = GetParam();
    in_own_machine(programs_of(line), [&line = line, &end = end] {
        Service service;
        RealLine real(line);
        Terminal& t = real.t;
        t.log_in();
        t.type("set system name real\n");
        EXPECT_EQ(t.until(kPrompt), "set system name real\nSystem Name: real\nCommand> ");

        const std::optional<utmpx> entry = user_entry();
        ASSERT_TRUE(entry) << "nobody is logged in";
        const std::string who = output_of("who"),
                          last = output_of("last -f /var/log/wtmp " + std::string(entry->ut_line));
        EXPECT_TRUE(who.starts_with("root     " + std::string(entry->ut_line) + ' ')) << who;
        EXPECT_NE(who.find('(' + std::string(line.host)), *line.host ? who.npos : 0) << who;
        EXPECT_TRUE(last.starts_with("root     " + std::string(entry->ut_line) + ' ')) << last;
        EXPECT_NE(last.find("still logged in\n"), last.npos) << last;

        const int console = static_cast<int>(syscall(SYS_pidfd_open, entry->ut_pid, 0));
        end.of(t, entry->ut_pid);
        if (line.telnetd.empty() && end.lastWords) t.until(end.lastWords);  // a telnet server may drop them
        EXPECT_TRUE(ends(console));
        close(console);
        EXPECT_TRUE(t.wait_exit());
        if (line.telnetd.empty()) return;  // init would write the end of a line with a getty
        for (const Deadline deadline(kPatience); user_entry() && !deadline.passed();) ends(-1, Milliseconds{10});
        EXPECT_EQ(output_of("who"), "");
        EXPECT_EQ(output_of("last -f /var/log/wtmp root").find("logged in"), last.npos);
    });
}
INSTANTIATE_TEST_SUITE_P(Lines, RealLines, testing::Combine(testing::ValuesIn(kLines), testing::ValuesIn(kEnds)),
                         [](const auto& c) {
                             return std::string(std::get<0>(c.param).name) + std::get<1>(c.param).name;
                         });

// A telnet client may send any variables, and a server may pass them on: what the console starts has its own ones only,
// and nobody is let in.
TEST(RealLine, AClientsEnvironmentGainsNothing)
{
    Line telnet = kLines[2];
    in_own_machine(programs_of(telnet), [&] {
        std::string console = "/usr/bin/env";
        std::ofstream settings("/run/.telnetrc");
        settings << "127.0.0.1\n";
        for (const std::string name :
             {"LD_PRELOAD", "IFS", "ENV", "BASH_ENV", "PATH", "HOME", "SHELL", "LOGNAME", "MAIL", "LC_ALL", "LOCPATH",
              "TZ", "USER", "ROUTER_STATE_DIR", "ROUTER_RUNTIME_DIR"}) {
            settings << "\tenviron define " << name << " /run/evil\n\tenviron export " << name << '\n';
            if (name != "LD_PRELOAD") console += ' ' + name + "=/run/evil";  // that one would be the linker's business
        }
        settings.close();
        setenv("HOME", "/run", 1);
        setenv("TERM", "evil", 1);
        telnet.telnetd[2] = console + ' ' + telnet.telnetd[2];

        Service service;
        RealLine real(telnet, {kClient[0], "-l", "-f root", kClient[1], kClient[2]});
        real.t.log_in();
        real.t.type("z_debug shell \"env | sort\"\n");
        real.t.until("\"\n");
        const passwd& root = *getpwuid(0);
        EXPECT_EQ(real.t.until(kPrompt), std::string("HOME=") + root.pw_dir +
                                             "\nLOGNAME=root\nMAIL=/var/mail/root\n"
                                             "PATH=/usr/local/sbin:/usr/local/bin:/sbin:/bin:/usr/sbin:/usr/bin\n"
                                             "PWD=" +
                                             root.pw_dir + "\nSHELL=" + root.pw_shell + "\nTERM=evil\nCommand> ");
        EXPECT_EQ(real.t.screen().text().find("ld.so"), std::string::npos);
    });
}
}  // namespace
