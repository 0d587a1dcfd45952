// Normal line editing and the history, over a raw terminal.
#pragma once

#include "cli/edit_context.h"
#include "console/session.h"

// Key codes: bytes as read; ESC [ x arrives as minus the code of x.
namespace key
{
inline constexpr int kCtrlC = 3, kCtrlE = 5, kBackspace = 8, kTab = 9, kEnter = 10, kCtrlL = 12, kCtrlN = 14,
                     kCtrlP = 16, kCtrlW = 23, kCtrlX = 24, kEscape = 27, kUp = -65, kDown = -66, kRight = -67,
                     kLeft = -68, kHome = -71, kEnd = -79, kDelete = -83;
}

void line_edit(LineRecord& line, int term, int key, bool echo);
void normal_edit(EditContext& edit, int term, int key, bool echo);
void backspace_ch(LineRecord& line, int term, bool echo);
void del_ch(LineRecord& line, int term, bool echo);
void erase_word(LineRecord& line, int term);
void erase_line(LineRecord& line, int term);

void copy_to_hiscmd(History& history, const LineRecord& line);
void copy_prev_cmd(History& history, LineRecord& line);
void copy_next_cmd(History& history, LineRecord& line);
void dis_his_cmd(Session& slot, int key);

void clear_line(LineRecord& line);  // empty, cursor and length 0
