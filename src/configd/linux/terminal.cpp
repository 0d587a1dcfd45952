#include "configd/linux/terminal.h"

#include <charconv>
#include <sys/sysmacros.h>

#include "configd/linux/text_file.h"

namespace {
constexpr std::size_t kLongestLine = 4096;

std::string name_of(dev_t device)
{
    constexpr unsigned kConsoles = 4, kFirstSerial = 64;       // one number for both
    constexpr unsigned kFirstPseudo = 136, kLastPseudo = 143;  // each has a range of the pseudo terminals
    constexpr unsigned kPseudoOfEach = 256;
    const unsigned kind = major(device), index = minor(device);
    if (kind >= kFirstPseudo && kind <= kLastPseudo)
        return "pts/" + std::to_string((kind - kFirstPseudo) * kPseudoOfEach + index);
    if (kind == kConsoles && index >= kFirstSerial) return "ttyS" + std::to_string(index - kFirstSerial);
    if (kind == kConsoles) return "tty" + std::to_string(index);
    return "terminal " + std::to_string(kind) + ":" + std::to_string(index);
}
}  // namespace

namespace device {
std::string terminal_in(std::string_view stat)
{
    constexpr int kBefore = 4;  // words between the name and the terminal: state, parent, group, session
    const std::size_t end = stat.rfind(')');
    if (end == stat.npos) return {};
    std::string_view rest = stat.substr(end + 1);
    for (int i = 0; i < kBefore; i++) next_word(rest);
    const std::string_view word = next_word(rest);
    int number = 0;
    if (std::from_chars(word.data(), word.data() + word.size(), number).ec != std::errc() || number == 0) return {};
    return name_of(static_cast<unsigned>(number));
}

std::string terminal_of(pid_t process)
{
    std::string stat;
    const std::string path = "/proc/" + std::to_string(process) + "/stat";
    return read_text_file(path.c_str(), kLongestLine, stat) == 0 ? terminal_in(stat) : std::string();
}
}  // namespace device
