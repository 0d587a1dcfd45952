// What a program asks of the kernel for one operation, counted exactly: it is traced from before the operation until it
// waits for input again. Traced programs are slow, so nothing is timed here.
#pragma once

#include <map>
#include <string>

#include "pty_program.h"
#include "session.h"

struct CallCount {
    unsigned operations = 0;
    unsigned calls = 0;
    unsigned writes = 0;  // to the terminal
    unsigned long bytes = 0;
    std::map<std::string, unsigned> byName;
};

CallCount count_steps(PtyProgram& program, const FigureSession& figure);
CallCount count_paste(PtyProgram& program, const Exchange& paste);
CallCount count_start(const CommandSession& command);  // from the loading of the program's image to its banner
