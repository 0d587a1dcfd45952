// A session slot as it stands after the start, for the tests of what happens to a typed line.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "cli/edit_context.h"
#include "cli/parse.h"
#include "cli/tables.h"
#include "cli/token.h"
#include "console/session.h"
#include "support/written.h"

inline void start_tables()
{
    std::uint32_t total, visible, hidden;
    CliInitKeyword(gCliKeywordTable.data(), &total);
    CliInitCommand(gCliCmdTable.data(), &total, &visible, &hidden);
    CliSetCmdcount(total, visible, hidden);
}

struct StartedSession {
    EditContext edit{};
    Session slot{};
    std::string screen;  // what the last of these calls wrote

    StartedSession()
    {
        start_tables();
        slot.edit = &edit;
        reset_pb(edit);
    }
    StartedSession(const StartedSession&) = delete;
    ~StartedSession() { gCliCmdTable = shipped; }

    // A vocabulary of a few commands, numbered from 1, in place of the product's.
    void replace_commands(const std::vector<std::vector<Token>>& commands)
    {
        gCliCmdTable = {};
        for (std::size_t i = 0; i < commands.size(); ++i) {
            gCliCmdTable[i].cmdId = static_cast<std::uint32_t>(i + 1);
            std::copy(commands[i].begin(), commands[i].end(), gCliCmdTable[i].tokens.begin());
        }
        gCliCmdTable[commands.size()].cmdId = kCommandEnd;
        start_tables();
        reset_pb(edit);
    }

    void put_line(std::string_view text)
    {
        reset_pb(edit);
        edit.line.length = edit.line.cursor = static_cast<int>(text.copy(edit.line.text, kLineCapacity));
    }
    // What normal mode does with the line at Enter, and smart mode with a line from the history.
    int parse(std::string_view text)
    {
        put_line(text);
        int result = 0;
        screen = written_by([&] { result = parse_cmdline(slot); });
        return result;
    }
    int recall(std::string_view text)
    {
        put_line(text);
        int result = 0;
        screen = written_by([&] { result = parse_a_line(edit, slot.call.parms, slot.term); });
        return result;
    }
    // The line as smart mode has it after these keys: the words before the last blank are parsed, the rest is typed.
    void type_smart(std::string_view text)
    {
        const std::size_t parsed = text.find_last_of(' ') + 1;
        put_line(text.substr(0, parsed));
        parse_a_line(edit, slot.call.parms, slot.term);
        const std::string_view word = text.substr(parsed);
        edit.current->wordLength = static_cast<std::uint32_t>(word.copy(edit.current->word, kWordCapacity));
    }
    const char* text_parm(Word index) const { return reinterpret_cast<const char*>(slot.call.parms.value[index]); }

private:
    const std::array<CliCmdRow, 141> shipped = gCliCmdTable;
};
