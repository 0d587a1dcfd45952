// How a program is measured: what starts it, what leads to its prompt, and what is typed for each figure. Read from a
// text file, so that a program needs no code of its own:
//
//     name    console                      as the table calls it
//     command $BUILD/bin/login             $NAME is replaced by what -D NAME=VALUE gave
//     start   "banner"                     ends the figure "start"
//     log-in  "admin\r" "Command> "        what to send, and what to wait for; in order, up to the prompt
//
//     figure  key-echo
//     before  "show" "show"                sent first, not measured
//     step    8 "a" "a"                    measured, so many times one after the other
//     after   "\x03" "Command> "           leads back to the prompt, not measured
//     against "floor, 2 reqs"              the program that this figure is a multiple of; without it, the first one
//
//     figure  paste
//     paste   500 "help\r" "Command> "     all at once; the answer must come as often as the line
//
// A further `command` starts another program of the same name for the figures behind it. A text has C's escapes.
#pragma once

#include <map>
#include <string>
#include <vector>

struct Exchange {
    std::string send, until;
    unsigned times = 1;
};

struct FigureSession {
    std::vector<Exchange> before, steps, after;
    Exchange paste{{}, {}, 0};
    std::string against{};
};

struct CommandSession {
    std::vector<std::string> command;
    std::string start;
    std::vector<Exchange> logIn;
    std::map<std::string, FigureSession> figures;
};

struct ProgramSession {
    std::string name;
    std::vector<CommandSession> commands;
};

using Definitions = std::map<std::string, std::string>;

// Ends the program with file and line where a file says something else.
ProgramSession read_session(const std::string& path, const Definitions& definitions);
