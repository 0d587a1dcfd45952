// The configuration as a whole and every dialogue of the system's settings, from the key to what is there afterwards.
#include <filesystem>

#include "terminal/dialogue_session.h"

namespace {
constexpr char kNotRunning[] = "The configuration service is not running\n";
constexpr char kYesOrNo[] = " Error: Action confirm word must be \"yes\" or \"no\"\a\n";

class SystemCommands : public DialogueSession {
protected:
    // Of every area something, without the lines that tell of this machine.
    std::string shown()
    {
        const std::string address = run("show system ip");
        return run("show dhcp server") + run("show dhcp static") + run("show ntp client") +
               address.substr(0, address.find("        Default gateway IP address: "));
    }
    const std::string factory = shown();
};

class Configured : public SystemCommands {
protected:
    void configure()
    {
        run("disable dhcp server");
        run("add dhcp static 192.168.1.7 02-00-5e-10-00-aa");
        run("enable ntp client");
        run("set system ip", {"", "192.168.1.2", "", "192.168.1.254", ""});
        changed = shown();
        for (const char* part : {"disabled", "192.168.1.7 ", "Enabled", "192.168.1.2\n"})
            EXPECT_NE(changed.find(part), std::string::npos) << part << changed;
    }
    std::string changed;
};

TEST_F(Configured, ResetSystemGoesBackToWhatWasSaved)
{
    const std::string question = " System will reboot (Yes/No) : ";
    configure();
    run("save config");
    run("delete dhcp static 192.168.1.7");
    run("disable ntp client");
    play({{"reset system", question},
          {"", question},
          {"reboot", kYesOrNo + question},
          {"no", kPrompt},
          {"reset system", question},
          {"YES", std::string("reboot...\n") + kPrompt}});
    EXPECT_EQ(shown(), changed);
}

TEST_F(Configured, ClearConfigGivesTheFactoryValues)
{
    const std::string question =
        "All configuration will be cleared and system will reset.\nDo you want to continue (y/n)?";
    configure();
    run("save config");
    play({{"clear config", question}, {"", question}, {"y/n", kYesOrNo + question}, {"n", kPrompt}});
    EXPECT_EQ(shown(), changed);
    play({{"clear config", question}, {"y", std::string("\nRebooting...\n") + kPrompt}});
    EXPECT_EQ(shown(), factory);
    service.restart_device();
    EXPECT_EQ(shown(), factory);
}

TEST_F(Configured, ASaveThatFailsSaysWhy)
{
    std::filesystem::create_directories(Service::state_folder() + "/config.json.new/in-the-way");
    EXPECT_EQ(run("save config"), "\aThe configuration could not be stored\n");
    std::filesystem::remove_all(Service::state_folder() + "/config.json.new");
    EXPECT_EQ(run("save config"), "Save configure successfully!\n");
}

// Every dialogue, with an answer to each of its questions that changes something; the last one ends it.
struct Dialogue {
    const char* name;
    std::string command;
    std::vector<std::string> answers, questions;  // of each question the first words
    std::string withoutService;
};
void PrintTo(const Dialogue& dialogue, std::ostream* out) { *out << dialogue.name; }
// clang-format off
const Dialogue kDialogues[] = {
    {"DhcpServer", "set dhcp server",
     {"192.168.1.10", "192.168.1.20", "192.168.1.254", "60", "y", "8.8.8.8", "9.9.9.9"},
     {" enter lower IP", " enter upper IP", " enter gateway IP", " enable lease time", " do you want to assign",
      " enter IP address of the primary", " enter IP address of the secondary"},
     std::string("\a") + kNotRunning},
    {"NtpClient", "set ntp client",
     {"-08:00", "no", "time.example", "12", "yes"},
     {" enter timezone", " enter time server by", " enter time server domain", " enter request", " enable ntp"},
     std::string("\a") + kNotRunning},
    {"SystemIp", "set system ip",
     {"no", "192.168.1.2", "255.255.255.0", "192.168.1.254", "8.8.8.8"},
     {" obtain IP", " IP address", " IP subnet", " gateway IP", " primary DNS"},
     kNotRunning},
    {"ResetSystem", "reset system", {"yes"}, {" System will reboot"}, "reboot...\n\aThe request failed, no reason was given\n"},
    {"ClearConfig", "clear config", {"yes"}, {"All configuration"},   std::string("\a") + kNotRunning},
};
// clang-format on
class EveryDialogue : public SystemCommands, public testing::WithParamInterface<Dialogue> {
protected:
    // Types the command and `count` answers, up to the question behind them.
    void go_to_question(std::size_t count)
    {
        for (std::size_t i = 0; i <= count; ++i) {
            t.type((i == 0 ? GetParam().command : GetParam().answers[i - 1]) + '\n');
            t.until(GetParam().questions[i]);
        }
        t.until(GetParam().command == "clear config" ? "?" : ": ");
    }
};

TEST_P(EveryDialogue, TheServiceGoneBeforeTheLastAnswerIsReported)
{
    go_to_question(0);
    service.stop();
    std::string printed;
    for (const std::string& answer : GetParam().answers) {
        t.type(answer + '\n');
        t.until(answer + '\n');
    }
    EXPECT_EQ(t.until(kPrompt), GetParam().withoutService + kPrompt);
    service.start();
    EXPECT_EQ(shown(), factory);
}
INSTANTIATE_TEST_SUITE_P(Dialogues, EveryDialogue, testing::ValuesIn(kDialogues),
                         [](const auto& dialogue) { return dialogue.param.name; });
}  // namespace
