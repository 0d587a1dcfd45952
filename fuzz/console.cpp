#include "fuzz/console.h"

#include <algorithm>
#include <cstdio>

#include "cli/edit_context.h"
#include "cli/parse.h"
#include "cli/tables.h"
#include "commands/arp.h"
#include "commands/password.h"
#include "commands/ping.h"
#include "commands/shell.h"
#include "commands/snmp_statistics.h"
#include "commands/statistics_files.h"
#include "console/console_process.h"
#include "console/messages.h"
#include "console/terminal.h"
#include "console/terminal_keys.h"
#include "fuzz/fuzzing.h"
#include "service/client.h"

namespace {
constexpr std::uint32_t kMostParameters = 4;  // more than any command looks at

EditContext edit;

// As console_process and console_init do it, but for the terminal's attributes: they are those of whoever watches.
void open_session()
{
    static const auto catalog = errMsg;
    errMsg = catalog;
    for (ComParam* record : {&usrComParam, &wizardParam, &oldWizardParam, &OldSettingsParam}) *record = {};
    forget_passwords();
    edit = {};
    edit.editMode = kSmartEdit;
    reset_pb(edit);
    CmdPrcInq = {};
    session[0] = {};
    session[0].state = kLoginNeeded;
    session[0].edit = &edit;
    std::snprintf(Prompt[0], sizeof Prompt[0], "Command> ");
    promptMode[0] = 0;
    timeout = 0;
    ttyRaw = 1;
}

void sort_tables()
{
    std::uint32_t keywords, total, visible, hidden;
    CliInitKeyword(gCliKeywordTable.data(), &keywords);
    CliInitCommand(gCliCmdTable.data(), &total, &visible, &hidden);
    CliSetCmdcount(total, visible, hidden);
}

void use_nothing_of_the_machine()
{
    constexpr const char* kNothing = "/dev/null";
    shellProgram = pingPrograms[0] = pingPrograms[1] = "";
    arpTablePath = snmpStatisticsPath = statisticsPaths.kernel = statisticsPaths.offsets = kNothing;
}
}  // namespace

FuzzedConsole::FuzzedConsole(service_stand_in::Answer answer)
{
    sort_tables();
    use_nothing_of_the_machine();
    open_session();
    service_stand_in::reset(std::move(answer));
}

FuzzedConsole::~FuzzedConsole()
{
    const bool allReleased = service_stand_in::unreleased() == 0;
    service_stand_in::reset();
    holds(allReleased, "a response was not released");
}

void FuzzedConsole::press(std::span<const std::uint8_t> keys)
{
    const Input input(keys);
    forget_keys();
    while (serve_key(session[0])) {
    }
}

void FuzzedConsole::type(std::string_view keys)
{
    press({reinterpret_cast<const std::uint8_t*>(keys.data()), keys.size()});
}

void FuzzedConsole::call(std::uint32_t cmdId, std::string_view words)
{
    const auto* row = std::ranges::find(gCliCmdDispTable, cmdId, &CliCmdDispRow::cmdId);
    if (row == gCliCmdDispTable.end() || !row->action || session[0].state != kLoggedIn) return;
    abort_cmd(session[0]);  // as if no line had been begun

    ActionBlock& call = session[0].call;
    call = {};
    call.cmdId = static_cast<std::uint16_t>(cmdId);
    call.parms.count = kMostParameters;
    for (Word& word : call.parms.value) {
        const std::size_t end = std::min(words.find(' '), words.size());
        word = reinterpret_cast<Word>(parameters_.emplace_back(words.substr(0, end)).data());
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    row->action(call, 0);
}
