#include "support/typing_session.h"

#include <cstdio>

#include "cli/execute.h"
#include "cli/parse.h"
#include "cli/tables.h"
#include "prompts/engine.h"
#include "support/typed_keys.h"
#include "support/written.h"

namespace {
TypingSession* typing;

void run_action(ActionBlock& call, int)
{
    if (typing->action) typing->action(call);
}

void sort_tables()
{
    std::uint32_t keywords, total, visible, hidden;
    CliInitKeyword(gCliKeywordTable.data(), &keywords);
    CliInitCommand(gCliCmdTable.data(), &total, &visible, &hidden);
    CliSetCmdcount(total, visible, hidden);
}
}  // namespace

const std::array<CliCmdDispRow, 170> gCliCmdDispTable = [] {
    std::array<CliCmdDispRow, 170> table{};
    for (std::uint32_t id = 1; id < table.size(); ++id) {
        const bool routing = id >= 119 && id <= 130;
        table[id - 1] = {routing ? 0 : id, id == kLogoutCommand ? nullptr : run_action};
    }
    table.back() = {kCommandEnd, nullptr};
    return table;
}();

void logout(Session&) { typing->loggedOut = true; }

TypingSession::TypingSession(std::uint32_t editMode)
{
    typing = this;
    sort_tables();
    std::snprintf(Prompt[0], sizeof Prompt[0], "Command> ");
    promptMode[0] = 0;
    edit.editMode = editMode;
    reset_pb(edit);
    slot.edit = &edit;
}

TypingSession::~TypingSession() { typing = nullptr; }

std::string TypingSession::type(std::string_view keys)
{
    std::string output;
    type_keys(keys, [&](int key) { output += press(key); });
    return output;
}

std::string TypingSession::press(int key)
{
    slot.key = key;
    const auto process = slot.call.stage != 0 ? process_staged_input : process_cmd_input;
    return written_by([&] { process(slot); });
}
