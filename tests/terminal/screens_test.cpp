// What stands on real screens of several sizes: editing, completion, help, history, dialogues, pages and long lines.
// What has gone over the right margin is not erased again on most terminals, and so is not looked at here.
#include <gtest/gtest.h>

#include "support/service.h"
#include "support/terminal.h"
#include "support/typed_keys.h"
#include "terminal/cells.h"

namespace {
struct Size {
    unsigned short rows, columns;
};
constexpr Size kUsual{24, 80}, kWide{50, 132}, kSmall{12, 40};
enum Mode { smart, normal };

struct Seen {
    const char* name;
    Size size;
    Mode mode;
    std::string keys;
    std::string screen;           // from the first prompt on; "|" is the cursor
    const char* until = nullptr;  // printed last; null: keys that ring are typed behind, and their bells waited for
    Size after = {0, 0};          // the size that the window then gets, before
    std::string keysAfter = "";
};
void PrintTo(const Seen& seen, std::ostream* out) { *out << seen.name; }

class Screens : public testing::TestWithParam<Seen> {
protected:
    void type(const std::string& keys)
    {
        type_keys(keys, [this](int key) {
            t.type(key < 0 ? std::string("\x1b[") + static_cast<char>(-key) : std::string(1, static_cast<char>(key)));
        });
        if (GetParam().until) return static_cast<void>(t.until(GetParam().until));
        t.type("\x7f\x7f\x7f");
        t.until("\a\a\a");
    }

    const Size& size = GetParam().size;
    Service service;
    Cells cells{size.rows, size.columns};
    Terminal t{TerminalOptions{.command = GetParam().mode == normal ? std::vector<std::string>{ROUTER_NORMAL_CONSOLE}
                                                                    : std::vector<std::string>{},
                               .output = [this](std::string_view output) { cells.feed(output); },
                               .rows = size.rows,
                               .columns = size.columns}};
};
TEST_P(Screens, Show)
{
    const Seen& seen = GetParam();
    if (seen.mode == smart)
        t.log_in();
    else
        t.until("Command> ");
    cells.feed("\x1b[2J\x1b[HCommand> ");

    type(seen.keys);
    if (seen.after.rows) {
        cells.resize(seen.after.rows, seen.after.columns);
        t.resize(seen.after.rows, seen.after.columns);
        type(seen.keysAfter);
    }
    EXPECT_EQ(cells.text(), seen.screen);
}
// clang-format off
const Seen kSeen[] = {
    {"CompletesAndErases", kUsual, smart,
     "sh syst ip <backspace><backspace><backspace><backspace><backspace>", R"(Command> show syste|)"},
    {"OffersKeywords", kUsual, smart,
     "<tab><down><down><up> <down><down>x", R"(Command> change passwordx|)"},
    {"HelpInColumns", kWide, smart,
     "show ?", R"(Command> show ?
arp            community      dhcp           http           interface
ip             log            mac            nat            ntp
ping           radius         rip            snmp           syslogd
system         telnet         trap           upnp
Command> show |)"},
    {"HelpOnAParameter", kUsual, smart,
     "add ip route ?1.2.3.0 ?", R"(Command> add ip route ?
<destination IP>
Command> add ip route 1.2.3.0 ?
<destination netmask>
Command> add ip route 1.2.3.0 |)"},
    {"Recalls", kUsual, smart,
     "set system name one<enter>set system name two<enter><ctrl-p><ctrl-p>", R"(Command> set system name one
System Name: one
Command> set system name two
System Name: two
Command> set system name one |)"},
    {"RecallsNewer", kUsual, smart,
     "set system name longer<enter>set system name two<enter><ctrl-p><ctrl-p><ctrl-n><backspace><backspace>", R"(Command> set system name longer
System Name: longer
Command> set system name two
System Name: two
Command> set system name tw|)"},
    {"ErasesAndAbandons", kUsual, smart,
     "show sys<ctrl-l>set sy<ctrl-c>sh", R"(Command> set sy^C
Command> sh|)"},
    {"AdvancedPrompt", kUsual, smart,
     "sh<ctrl-e> sy", R"(Command> sh
 You have switched to Advanced prompt mode
Command>>> show sy|)"},
    {"FullRow", kSmall, smart,
     "set system contact \"0123456789\"<enter>", R"(Command> set system contact "0123456789"
System contact: 0123456789
Command> |)"},
    {"LineOverTheMargin", kSmall, smart,
     "set system contact \"0123456789abcdefghijklm<backspace><backspace>z\"<enter>sh sy", R"(Command> set system contact "0123456789a
bcdefghijkz"
System contact: 0123456789abcdefghijkz
Command> show sy|)"},
    {"CompletionOverTheMargin", kSmall, smart,
     "set                       system name ", R"(Command> set                       syste
m name |)"},
    {"LineTooLong", kSmall, smart,
     "ping" + std::string(116, ' ') + "x", R"(Command> ping



 Error: Line length is too long.
Command> ping


         |)"},
    {"Scrolls", kSmall, smart,
     "??", R"(enable         help           logout
     ping           reset
save           set            show

Command> ?
add            change         clear
     delete         disable
enable         help           logout
     ping           reset
save           set            show

Command> |)"},
    {"NormalInsertsInTheMiddle", kUsual, normal,
     "shw<left>o<home>re-<end> telnt<left>e<home><left>", R"(Command> |re-show telnet)"},
    {"NormalErasesInTheMiddle", kUsual, normal,
     "show my system<home><right><right><right><right><right><delete><delete><delete><right><backspace>!", R"(Command> show !|ystem)"},
    {"NormalRecalls", kUsual, normal,
     "set system name a-long-one<enter>set system name b<enter><ctrl-p><ctrl-p><ctrl-p><ctrl-n><left><left><left>", R"(Command> set system name a-long-one
System Name: a-long-one
Command> set system name b
System Name: b
Command> set system nam|e b)"},
    {"NormalSwitches", kUsual, normal,
     "sh sy now<home><ctrl-x>", R"(Command> sh sy now
 Now you have switched to the smart edit mode.
Command> sh sy|)"},
    {"NormalLongLine", kSmall, normal,
     "set system contact \"0123456789abcdefghij<left><left>z<end><enter>", R"(Command> set system contact "0123456789a
bcdefghzij
System contact: 0123456789abcdefghzij
Command> |)"},
    {"DialogueShowsDefaults", kUsual, smart,
     "set dhcp server<enter><enter>192.168.1.57<left><backspace>1<end>0<enter><enter>", R"(Command> set dhcp server
 enter lower IP address of address pool (192.168.1.100):
 enter upper IP address of address pool (192.168.1.199): 192.168.1.170
 enter gateway IP address (192.168.1.1):
 enable lease time (1440, 1-525600): |)"},
    {"DialogueOnASmallScreen", kSmall, smart,
     "set dhcp server<enter><enter>192.168.1.57<left><backspace>1<end>0<enter><enter>", R"(Command> set dhcp server
 enter lower IP address of address pool
(192.168.1.100):
 enter upper IP address of address pool
(192.168.1.199): 192.168.1.170
 enter gateway IP address (192.168.1.1):

 enable lease time (1440, 1-525600): |)"},
    {"Page", kUsual, smart,
     "help<enter>1<enter>", R"(    clear config
    disable ntp client
    disable upnp
    enable ntp client
    enable upnp
    help
    logout
    ping <IP address>
    reset system
    save config
    set http port <TCP/UDP port number, 1-65535>
    set http timeout <timeout value in minutes, 1-60>
    set ntp client
    set prompt <string up to 15 characters>
    set system contact <string up to 60 characters>
    set system ip
    set system location <string up to 60 characters>
    set system name <string up to 30 characters>
    set telnet port <TCP/UDP port number, 1-65535>
    set telnet timeout <timeout value in minutes, 1-60>
    show arp table
    show http
 Press any key to continue...
|)", "continue...\n"},
    {"GrowsInMidLine", kSmall, smart,
     "set system contact \"0123456789abcdefgh", R"(Command> set system contact "0123456789a
bcdefghijk"
System contact: 0123456789abcdefghijk
Command> |)", nullptr, kUsual, "ijkl<backspace>\"<enter>"},
    {"ShrinksInMidLine", kUsual, smart,
     "show sy", R"(Command> show sy?
syslogd        system
Command> show syte|)", nullptr, kSmall, "?te"},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Sizes, Screens, testing::ValuesIn(kSeen), [](const auto& c) { return c.param.name; });
}  // namespace
