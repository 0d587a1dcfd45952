// Normal line editing and the history, over a raw terminal. Every line that is typed is typed through here: commands in
// normal mode, answers to questions, the password. The smart editor shares the history.
#pragma once

#include "cli/edit_context.h"
#include "console/session.h"

// Key codes: bytes as read; ESC [ x arrives as minus the code of x.
namespace key {
inline constexpr int kCtrlC = 3, kCtrlE = 5, kBackspace = 8, kTab = 9, kEnter = 10, kCtrlL = 12, kCtrlN = 14,
                     kCtrlP = 16, kCtrlW = 23, kCtrlX = 24, kEscape = 27, kUp = -65, kDown = -66, kRight = -67,
                     kLeft = -68, kHome = -71, kEnd = -79, kDelete = -83;

inline bool printable(int key) { return key >= 32 && key <= 126; }
}  // namespace key

// Applies one key to the line and the screen; a key that can do nothing rings the bell. Without echo every character
// shows as "*".
void line_edit(LineRecord& line, int term, int key, bool echo);

// line_edit with the history keys Ctrl-P and Ctrl-N, for a command line: a character that would make a word longer than
// kWordCapacity is refused.
void normal_edit(EditContext& edit, int term, int key, bool echo);

// The steps. Deleting the line's last character leaves its byte behind the line's end, so a line is read by its length
// or terminated there first. Erasing a word leaves the cursor where it is, even behind the end; whatever uses the
// cursor next takes such a one for the end.
void backspace_ch(LineRecord& line, int term, bool echo);
void del_ch(LineRecord& line, int term, bool echo);
void erase_word(LineRecord& line, int term);
void erase_line(LineRecord& line, int term);

void copy_to_hiscmd(History& history, const LineRecord& line);
void copy_prev_cmd(History& history, LineRecord& line);  // nothing to recall: the line stays
void copy_next_cmd(History& history, LineRecord& line);  // stepping past the newest empties the line
void dis_his_cmd(Session& slot, int key);                // the smart editor's recall: re-parses what it shows

void clear_line(LineRecord& line);  // empty, cursor and length 0; the bytes are wiped

// The line and the screen's cursor at its place in it, on a row where nothing of the line stands yet.
void show_line(const LineRecord& line, int term, bool echo);
void show_prompt_and_line(const LineRecord& line, int term, bool echo);

// Drops a key with a message: a new row, the message, the prompt and the line.
void refuse_key(const LineRecord& line, int term, std::uint32_t message, bool echo);
