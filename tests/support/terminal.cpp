#include "support/terminal.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <system_error>
#include <unistd.h>

namespace {
constexpr int kLineDelay = 50;  // milliseconds; what an ended program printed last may still be on its way

std::vector<std::string> command_on(int line, const TerminalOptions& options)
{
    static constexpr std::string_view kLine = "LINE", kDevices = "/dev/";
    std::vector<std::string> words = options.command;
    if (words.empty()) words.push_back(ROUTER_PROGRAMS "/login");
    words.insert(words.end(), options.arguments.begin(), options.arguments.end());
    const std::string name = ttyname(line);
    for (std::string& word : words)
        if (const std::size_t at = word.find(kLine); at != word.npos)
            word.replace(at, kLine.size(), name.substr(kDevices.size()));
    return words;
}

Process launch(int line, const TerminalOptions& options)
{
    Launch launch{.command = command_on(line, options),
                  .input = line,
                  .output = line,
                  .errors = line,
                  .ownTerminal = options.controlling};
    return Process(launch);
}
}  // namespace

Terminal::Terminal(const TerminalOptions& options)
    : screen_(options.columns ? options.columns : 80), output_(options.output)
{
    const winsize size{options.rows, options.columns, 0, 0};
    if (openpty(&line_, &other_, nullptr, nullptr, &size) != 0)
        throw std::system_error(errno, std::generic_category(), "openpty");
    for (const int end : {line_, other_}) fcntl(end, F_SETFD, FD_CLOEXEC);
    fcntl(line_, F_SETFL, O_NONBLOCK);
    found_ = attributes();
    process_ = launch(other_, options);
}

Terminal::~Terminal()
{
    process_.end();
    for (const int end : {line_, other_})
        if (end >= 0) close(end);
}

void Terminal::log_in(const char* password)
{
    until_password_asked();
    type(std::string(password) + '\n');
    until("> ");
}

// Keys that arrive before the line is in raw mode would be echoed by the line itself.
std::string Terminal::until_password_asked()
{
    std::string greeting = until("please enter your password: ");
    for (const Deadline deadline(kPatience); attributes().c_lflag & ICANON;)
        if (process_.wait_exit(Milliseconds{1}) || deadline.passed()) give_up("raw mode");
    return greeting;
}

void Terminal::type(std::string_view keys)
{
    std::string sent(keys);
    for (char& key : sent)
        if (key == '\n') key = '\r';
    send(sent);
}

void Terminal::send(std::string_view bytes)
{
    const Deadline deadline(kPatience * 4);
    while (!bytes.empty()) {
        pollfd waits[] = {{line_, POLLIN | POLLOUT, 0}, {process_.descriptor(), POLLIN, 0}};
        poll(waits, 2, deadline.poll_timeout());
        if (waits[0].revents & POLLIN) read_some(deadline);
        if (waits[1].revents || deadline.passed()) give_up("all keys to be taken");
        if (waits[0].revents & POLLOUT) {
            const ssize_t put = write(line_, bytes.data(), std::min<std::size_t>(bytes.size(), 256));
            if (put > 0) bytes.remove_prefix(static_cast<std::size_t>(put));
        }
    }
}

void Terminal::send_paced(std::string_view bytes, int bytesPerSecond)
{
    constexpr Milliseconds kTick{10};
    const auto begun = std::chrono::steady_clock::now();
    for (std::size_t sent = 0; sent < bytes.size();) {
        const std::chrono::duration<double> past = std::chrono::steady_clock::now() - begun;
        const auto due = std::min(bytes.size(), static_cast<std::size_t>(past.count() * bytesPerSecond));
        const ssize_t put = write(line_, bytes.data() + sent, due - sent);
        if (put != static_cast<ssize_t>(due - sent)) give_up("all keys to be taken at their time");
        sent = due;
        const Deadline tick(kTick);
        while (read_some(tick)) {
        }
    }
}

std::string Terminal::until(std::string_view text, Milliseconds limit)
{
    const Deadline deadline(limit);
    std::size_t at, searched = 0;
    while ((at = unread_.find(text, searched)) == std::string::npos) {
        searched = unread_.size() < text.size() ? 0 : unread_.size() - text.size();
        if (!read_some(deadline)) give_up(text);
    }
    std::string seen = unread_.substr(0, at + text.size());
    unread_.erase(0, seen.size());
    return seen;
}

void Terminal::until_line(std::string_view text, Milliseconds limit)
{
    const auto stands = [&] {
        const std::string& line = screen_.line();
        return line.starts_with(text) && line.find_first_not_of(' ', text.size()) == std::string::npos;
    };
    for (const Deadline deadline(limit); !stands();)
        if (!read_some(deadline)) give_up(text);
}

void Terminal::resize(unsigned short rows, unsigned short columns)
{
    const winsize size{rows, columns, 0, 0};
    ioctl(line_, TIOCSWINSZ, &size);
}

termios Terminal::attributes() const
{
    termios now{};
    if (tcgetattr(other_, &now) != 0) throw std::system_error(errno, std::generic_category(), "tcgetattr");
    return now;
}

void Terminal::hang_up()
{
    close(other_);
    close(line_);
    line_ = other_ = -1;
}

std::optional<int> Terminal::wait_exit(Milliseconds limit)
{
    for (const Deadline deadline(limit); line_ >= 0 && read_some(deadline);) {
    }
    return process_.wait_exit(line_ >= 0 ? Milliseconds{0} : limit);
}

bool Terminal::read_some(const Deadline& deadline)
{
    pollfd waits[] = {{line_, POLLIN, 0}, {process_.descriptor(), POLLIN, 0}};
    while (poll(waits, 2, deadline.poll_timeout()) < 0 && errno == EINTR) {
    }

    if (waits[1].revents && !waits[0].revents) poll(waits, 1, kLineDelay);

    char bytes[4096];
    const ssize_t got = read(line_, bytes, sizeof bytes);
    if (got <= 0) return false;
    const std::string_view output(bytes, static_cast<std::size_t>(got));
    screen_.feed(output);
    if (output_) output_(output);
    for (const char c : output)
        if (c != '\r' && c != '\0') unread_ += c;
    return true;
}

void Terminal::give_up(std::string_view what)
{
    static constexpr std::size_t kShown = 4000;  // the end tells most
    const auto tail = [](const std::string& text) { return text.substr(text.size() - std::min(text.size(), kShown)); };
    const std::optional<int> status = process_.wait_exit(Milliseconds{0});
    throw std::runtime_error("waited in vain for \"" + std::string(what) + "\"" +
                             (status ? "; the console ended with status " + std::to_string(*status) : "") +
                             "; not looked at yet: \"" + tail(unread_) + "\"; the screen:\n" + tail(screen_.text()));
}
