// A command's action, run as the console runs it: found in the dispatch table by its command id, with what the parsers
// would have put into the vector, and its questions answered one by one.
#pragma once

#include <deque>
#include <initializer_list>
#include <string>

#include "cli/tables.h"
#include "support/written.h"
#include "values/parsers.h"

class RunningAction {
public:
    explicit RunningAction(std::uint32_t cmdId) { call.cmdId = static_cast<std::uint16_t>(cmdId); }

    // Parameters, in the order of the command line.
    RunningAction& text(std::string parm)
    {
        texts_.push_back(std::move(parm));
        append_word(call.parms, reinterpret_cast<Word>(texts_.back().data()));
        return *this;
    }
    RunningAction& number(Word parm)
    {
        append_word(call.parms, parm);
        return *this;
    }
    RunningAction& mac(std::string parm)
    {
        CliParseMACAddress(parm.data(), call.parms);
        return *this;
    }

    // What it prints.
    std::string run()
    {
        const Action action = CliGetActionFunc(call.cmdId);
        return written_by([&] { action(call, 0); });
    }
    std::string answer(std::string typed)
    {
        call.parms.value[call.parms.count] = reinterpret_cast<Word>(typed.data());
        return run();
    }
    std::string play(std::initializer_list<const char*> answers)
    {
        std::string printed = run();
        for (const char* each : answers) printed += answer(each);
        return printed;
    }

    ActionBlock call{};

private:
    std::deque<std::string> texts_;  // of the parameters; none of them moves
};
