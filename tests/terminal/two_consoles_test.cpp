// Two operators with the same settings: the one who finishes later undoes only what both have changed.
#include "terminal/dialogue_session.h"

namespace {
class TwoConsoles : public DialogueSession {
protected:
    TwoConsoles() { other.log_in(); }

    static void answer(Terminal& console, std::initializer_list<Exchange> exchanges)
    {
        for (const Exchange& each : exchanges) {
            console.type(each.typed + '\n');
            console.until(each.printed);
        }
    }
    bool shows(const std::string& line, const std::string& text) { return run(line).find(text) != std::string::npos; }

    Terminal other{TerminalOptions{.columns = 200}};
};

TEST_F(TwoConsoles, TheDhcpServer)
{
    answer(t, {{"set dhcp server", "lower IP address of address pool (192.168.1.100): "},
               {"192.168.1.50", "upper IP address of address pool (192.168.1.199): "}});
    answer(other, {{"disable dhcp server", kPrompt},
                   {"set dhcp server", "(192.168.1.100): "},
                   {"192.168.1.40", "(192.168.1.199): "},
                   {"", "gateway IP address (192.168.1.1): "},
                   {"", "enable lease time (1440, 1-525600): "},
                   {"60", "assign DNS server (yes, yes/no): "},
                   {"no", kPrompt}});
    answer(t, {{"", "gateway IP address (192.168.1.1): "},
               {"192.168.1.254", "enable lease time (1440, 1-525600): "},
               {"", "assign DNS server (yes, yes/no): "},
               {"no", kPrompt}});
    const std::string shown = run("show dhcp server");
    for (const char* line : {"status:       disabled", "192.168.1.50 to 192.168.1.199", "60 minutes", "192.168.1.254"})
        EXPECT_NE(shown.find(line), std::string::npos) << line << "\n" << shown;
}

TEST_F(TwoConsoles, TheNtpClientAndWhatIsAskedInBetween)
{
    answer(t, {{"set ntp client", "enter timezone (GMT+00:00): "}, {"", "by IP address (No, yes/no): "}});
    answer(other, {{"set ntp client", "enter timezone (GMT+00:00): "},
                   {"+05:30", "by IP address (No, yes/no): "},
                   {"", "domain name (pool.ntp.org): "},
                   {"a-much-longer-name.time.example", "interval (24, 1-720): "},
                   {"", "enable ntp (yes, yes/no): "},
                   {"yes", kPrompt}});
    answer(t, {{"", "domain name (pool.ntp.org): "},
               {"ntp.test", "interval (24, 1-720): "},
               {"48", "enable ntp (yes, yes/no): "},
               {"no", kPrompt}});
    for (const char* line : {"Enabled", "GMT+05:30", "ntp.test ", "48 (hour)"})
        EXPECT_TRUE(shows("show ntp client", line)) << line;
}

TEST_F(TwoConsoles, ARefusalOfWhatDoesNotGoTogetherIsReported)
{
    answer(t, {{"set dhcp server", "(192.168.1.100): "}, {"192.168.1.150", "(192.168.1.199): "}});
    answer(other, {{"set dhcp server", "(192.168.1.100): "},
                   {"", "(192.168.1.199): "},
                   {"192.168.1.120", "gateway IP address (192.168.1.1): "},
                   {"", "lease time (1440, 1-525600): "},
                   {"", "assign DNS server (yes, yes/no): "},
                   {"no", kPrompt}});
    answer(t, {{"", "gateway IP address (192.168.1.1): "},
               {"", "lease time (1440, 1-525600): "},
               {"", "assign DNS server (yes, yes/no): "},
               {"no", "\aThe addresses of the pool are not a range of hosts in one network\n"}});
    EXPECT_TRUE(t.until(kPrompt).ends_with(kPrompt));
    EXPECT_TRUE(shows("show dhcp server", "192.168.1.100 to 192.168.1.120"));
}
}  // namespace
