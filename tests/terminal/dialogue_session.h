// A logged-in operator who runs commands and answers their questions, and what exactly stands on the screen then.
#pragma once

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <vector>

#include "support/service.h"
#include "support/terminal.h"

inline constexpr char kPrompt[] = "Command> ";
inline constexpr char kCtrlC[] = "\x03", kCtrlE[] = "\x05";

struct Exchange {
    std::string typed;    // and Enter
    std::string printed;  // behind its echo, up to the next question or prompt
};

class DialogueSession : public testing::Test {
protected:
    DialogueSession() { t.log_in(); }

    void play(const Exchange& each)
    {
        t.type(each.typed + '\n');
        EXPECT_EQ(t.until(each.printed), each.typed + '\n' + each.printed);
    }
    void play(std::initializer_list<Exchange> exchanges)
    {
        for (const Exchange& each : exchanges) {
            play(each);
            if (HasFailure()) return;
        }
    }

    // What a command and the answers to its questions print.
    std::string run(const std::string& line, const std::vector<std::string>& answers = {})
    {
        t.type(line + '\n');
        t.until(line + '\n');
        std::string printed;
        for (const std::string& each : answers) {
            printed += t.until("): ");
            t.type(each + '\n');
        }
        printed += t.until(kPrompt);
        printed.resize(printed.size() - (sizeof kPrompt - 1));
        return printed;
    }

    Service service;
    Terminal t{TerminalOptions{.columns = 200}};
};

inline std::string error_line(const std::string& text) { return " Error: " + text + "\a\n"; }
