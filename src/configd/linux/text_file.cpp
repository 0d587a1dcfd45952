#include "configd/linux/text_file.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace device {
namespace {
constexpr std::string_view kBlanks = " \t\r\v\f";

int read_all(int file, std::size_t limit, std::string& text)
{
    struct stat about {};
    if (fstat(file, &about) != 0) return errno;
    if (!S_ISREG(about.st_mode)) return EINVAL;

    char piece[4096];
    while (text.size() < limit) {
        const ssize_t got = read(file, piece, std::min(sizeof piece, limit - text.size()));
        if (got == 0) break;
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        text.append(piece, static_cast<std::size_t>(got));
    }
    return 0;
}

int write_all(int file, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t put = write(file, content.data(), content.size());
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) return errno;
        content.remove_prefix(static_cast<std::size_t>(put));
    }
    return fchmod(file, S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH) == 0 && fsync(file) == 0 ? 0 : errno;
}

int hex_digit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}
}  // namespace

int read_text_file(const char* path, std::size_t limit, std::string& text)
{
    text.clear();
    const int file = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file < 0) return errno;
    const int error = read_all(file, limit, text);
    close(file);
    if (error != 0) text.clear();
    return error;
}

int replace_file(const char* path, std::string_view content)
{
    const std::string fresh = std::string(path) + ".new";
    if (unlink(fresh.c_str()) != 0 && errno != ENOENT) return errno;
    const int file = open(fresh.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0) return errno;
    int error = write_all(file, content);
    close(file);
    if (error == 0 && rename(fresh.c_str(), path) != 0) error = errno;
    if (error != 0) unlink(fresh.c_str());
    return error;
}

std::string_view next_line(std::string_view& rest)
{
    const std::size_t end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    return line;
}

std::string_view next_word(std::string_view& rest)
{
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    const std::string_view word = rest.substr(0, rest.find_first_of(kBlanks));
    rest.remove_prefix(word.size());
    return word;
}

bool parse_mac(std::string_view text, Mac& mac)
{
    Mac parsed;
    if (text.size() != parsed.size() * 3 - 1) return false;
    for (std::size_t i = 0; i < parsed.size(); i++) {
        const int high = hex_digit(text[i * 3]), low = hex_digit(text[i * 3 + 1]);
        if (high < 0 || low < 0) return false;
        if (i > 0 && text[i * 3 - 1] != ':') return false;
        parsed[i] = static_cast<std::uint8_t>(high << 4 | low);
    }
    mac = parsed;
    return true;
}

bool parse_address(std::string_view text, std::uint32_t& address)
{
    char ended[INET_ADDRSTRLEN];
    if (text.size() >= sizeof ended) return false;
    ended[text.copy(ended, sizeof ended - 1)] = '\0';
    in_addr parsed{};
    if (inet_pton(AF_INET, ended, &parsed) != 1) return false;
    address = ntohl(parsed.s_addr);
    return true;
}
}  // namespace device
