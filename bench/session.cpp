#include "session.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>

namespace {
struct Place {
    const std::string& path;
    unsigned line = 0;

    [[noreturn]] void refuse(const std::string& what) const
    {
        std::fprintf(stderr, "%s:%u: %s\n", path.c_str(), line, what.c_str());
        std::exit(EXIT_FAILURE);
    }
};

char escaped(std::string_view& rest, const Place& place)
{
    static constexpr std::string_view kLetters = "rntab\\\"", kMeant = "\r\n\t\a\b\\\"";
    const char letter = rest.empty() ? '\0' : rest.front();
    if (letter == 'x' && rest.size() >= 3) {
        const std::string digits(rest.substr(1, 2));
        rest.remove_prefix(3);
        return static_cast<char>(std::strtoul(digits.c_str(), nullptr, 16));
    }
    const std::size_t at = kLetters.find(letter);
    if (at == std::string_view::npos) place.refuse("an escape that is none");
    rest.remove_prefix(1);
    return kMeant[at];
}

std::string quoted(std::string_view& rest, const Place& place)
{
    std::string text;
    rest.remove_prefix(1);
    for (;;) {
        if (rest.empty()) place.refuse("a text without its closing quote");
        const char c = rest.front();
        rest.remove_prefix(1);
        if (c == '"') return text;
        text += c == '\\' ? escaped(rest, place) : c;
    }
}

std::string defined(std::string word, const Definitions& definitions, const Place& place)
{
    for (std::size_t at; (at = word.find('$')) != std::string::npos;) {
        std::size_t end = at + 1;
        while (end < word.size() && std::isupper(static_cast<unsigned char>(word[end]))) ++end;
        const auto found = definitions.find(word.substr(at + 1, end - at - 1));
        if (found == definitions.end()) place.refuse("not defined: " + word);
        word.replace(at, end - at, found->second);
    }
    return word;
}

std::vector<std::string> words_of(std::string_view rest, const Definitions& definitions, const Place& place)
{
    std::vector<std::string> words;
    for (;;) {
        while (!rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
        if (rest.empty() || rest.front() == '#') return words;
        if (rest.front() == '"') {
            words.push_back(quoted(rest, place));
            continue;
        }
        const std::size_t length = std::min(rest.find(' '), rest.size());
        words.push_back(defined(std::string(rest.substr(0, length)), definitions, place));
        rest.remove_prefix(length);
    }
}

Exchange exchange_of(const std::vector<std::string>& words, const Place& place)
{
    Exchange exchange;
    if (words.size() != 3 && words.size() != 4)
        place.refuse("expected: how often (or nothing), what to send, what to wait for");
    if (words.size() == 4) exchange.times = static_cast<unsigned>(std::strtoul(words[1].c_str(), nullptr, 10));
    exchange.send = words[words.size() - 2];
    exchange.until = words.back();
    if (exchange.times == 0 || exchange.until.empty()) place.refuse("nothing to wait for");
    return exchange;
}

class Reader {
public:
    explicit Reader(const Place& place) : place_(place) {}

    void take(const std::vector<std::string>& words)
    {
        const std::string& what = words[0];
        if (words.size() < 2) place_.refuse("nothing behind \"" + what + "\"");
        if (what == "name")
            program_.name = words[1];
        else if (what == "command")
            begin_command({words.begin() + 1, words.end()});
        else if (program_.commands.empty())
            place_.refuse("the command comes first");
        else
            take_row(program_.commands.back(), words);
    }
    ProgramSession result() const
    {
        if (program_.name.empty() || program_.commands.empty()) place_.refuse("a name and a command are missing");
        return program_;
    }

private:
    void begin_command(std::vector<std::string> command)
    {
        program_.commands.push_back({.command = std::move(command), .start = {}, .logIn = {}, .figures = {}});
        figure_ = nullptr;
    }
    void take_row(CommandSession& to, const std::vector<std::string>& words)
    {
        const std::string& what = words[0];
        if (what == "figure")
            figure_ = &to.figures[words[1]];
        else if (what == "start")
            to.start = words[1];
        else if (what == "log-in")
            to.logIn.push_back(exchange_of(words, place_));
        else if (!figure_)
            place_.refuse("the figure comes first");
        else if (what == "before")
            figure_->before.push_back(exchange_of(words, place_));
        else if (what == "step")
            figure_->steps.push_back(exchange_of(words, place_));
        else if (what == "after")
            figure_->after.push_back(exchange_of(words, place_));
        else if (what == "paste")
            figure_->paste = exchange_of(words, place_);
        else if (what == "against")
            figure_->against = words[1];
        else
            place_.refuse("unknown: " + what);
    }

    const Place& place_;
    ProgramSession program_;
    FigureSession* figure_ = nullptr;
};
}  // namespace

ProgramSession read_session(const std::string& path, const Definitions& definitions)
{
    Place place{path};
    Reader reader(place);
    std::ifstream file(path);
    if (!file) place.refuse("cannot be read");
    for (std::string line; std::getline(file, line);) {
        ++place.line;
        if (const std::vector<std::string> words = words_of(line, definitions, place); !words.empty())
            reader.take(words);
    }
    return reader.result();
}
