// The console's commands on another command-line library, to measure both side by side: the same 140 rows, keywords as
// words, parameters as free arguments. A command says one line; `set system name` exchanges two records with a service
// first, as the console does.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <libcli.h>
#include <map>
#include <set>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

#include "cli/command_rows.h"
#include "cli/keyword_rows.h"

namespace {
constexpr std::size_t kRecordSize = 3604;
constexpr int kRequests = 2;  // read the record, write it
int service = -1;

bool exchange()
{
    static char record[kRecordSize];
    if (send(service, record, sizeof record, MSG_NOSIGNAL) != static_cast<ssize_t>(sizeof record)) return false;
    return recv(service, record, sizeof record, MSG_WAITALL) == static_cast<ssize_t>(sizeof record);
}

int run_local(cli_def* cli, const char*, char**, int)
{
    cli_print(cli, "done");
    return CLI_OK;
}

int run_with_service(cli_def* cli, const char*, char**, int)
{
    for (int i = 0; i < kRequests; ++i)
        if (!exchange()) return CLI_ERROR;
    cli_print(cli, "done");
    return CLI_OK;
}

const char* keyword(Token token)
{
    for (const CliKeywordRow& row : keyword_rows::kRows)
        if (row.id == number_of(token)) return row.text;
    return nullptr;
}

// The words of a row, up to its first parameter.
std::vector<std::string> words_of(const CliCmdRow& row)
{
    std::vector<std::string> words;
    for (const Token token : row.tokens) {
        const char* word = token == Token::none ? nullptr : keyword(token);
        if (!word) break;
        words.emplace_back(word);
    }
    return words;
}

void register_rows(cli_def* cli)
{
    std::set<std::vector<std::string>> commands;
    for (const CliCmdRow& row : command_rows::kRows) commands.insert(words_of(row));
    const std::vector<std::string> withService{"set", "system", "name"};

    std::map<std::vector<std::string>, cli_command*> known;
    for (const std::vector<std::string>& command : commands) {
        std::vector<std::string> words;
        cli_command* parent = nullptr;
        for (const std::string& word : command) {
            words.push_back(word);
            cli_command*& node = known[words];
            if (!node)
                node = cli_register_command(cli, parent, word.c_str(),
                                            words == withService       ? run_with_service
                                            : commands.contains(words) ? run_local
                                                                       : nullptr,
                                            PRIVILEGE_UNPRIVILEGED, MODE_EXEC, "a command of the console");
            parent = node;
        }
    }
}

int connected(const char* path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "%s", path);
    const int line = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (line < 0 || connect(line, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        std::perror(path);
        std::exit(EXIT_FAILURE);
    }
    return line;
}

// The library expects the other end of a network connection, which sends keys one by one and echoes nothing.
void make_raw()
{
    termios attributes;
    if (tcgetattr(STDIN_FILENO, &attributes) != 0) return;
    cfmakeraw(&attributes);
    tcsetattr(STDIN_FILENO, TCSANOW, &attributes);
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: libcli_peer SOCKET\n");
        return EXIT_FAILURE;
    }
    make_raw();
    service = connected(argv[1]);
    cli_def* cli = cli_init();
    if (!cli) return EXIT_FAILURE;
    cli_set_banner(cli, "libcli peer");
    cli_set_hostname(cli, "router");
    register_rows(cli);
    cli_loop(cli, STDIN_FILENO);
    cli_done(cli);
    return EXIT_SUCCESS;
}
