#include "cli/line_edit.h"

#include <algorithm>
#include <cstring>

#include "cli/parse.h"
#include "cli/screen_update.h"
#include "cli/smart_edit.h"
#include "console/messages.h"
#include "console/terminal.h"

namespace {
constexpr char kBell = '\a', kBack = '\b', kBlank = ' ', kDelCharacter = 127;

int cursor_of(const LineRecord& line) { return std::min(line.cursor, line.length); }

int behind_cursor(const LineRecord& line) { return line.length - cursor_of(line); }

void ring(int term) { put_char(term, kBell); }

void move_to_end(LineRecord& line, int term, bool echo)
{
    ScreenUpdate update;
    update.add_line(line, line.cursor, echo);
    update.show(term);
    line.cursor = line.length;
}

void move_to_start(LineRecord& line, int term)
{
    ScreenUpdate update;
    update.add(kBack, line.cursor);
    update.show(term);
    line.cursor = 0;
}

void move_left(LineRecord& line, int term)
{
    if (line.cursor == 0) return ring(term);
    --line.cursor;
    put_char(term, kBack);
}

void move_right(LineRecord& line, int term, bool echo)
{
    if (line.cursor == line.length) return ring(term);
    put_char(term, echo ? line.text[line.cursor] : '*');
    ++line.cursor;
}

void put_in(LineRecord& line, char c)
{
    char* at = line.text + line.cursor;
    std::memmove(at + 1, at, static_cast<std::size_t>(behind_cursor(line)));
    *at = c;
    ++line.cursor;
    ++line.length;
}

void insert_ch(LineRecord& line, int term, char c, bool echo)
{
    if (line.length >= kLineCapacity) return refuse_key(line, term, kLineTooLong, echo);
    put_in(line, c);
    ScreenUpdate update;
    update.add_line(line, line.cursor - 1, echo);
    update.add(kBack, behind_cursor(line));
    update.show(term);
}

void take_before_cursor(LineRecord& line, ScreenUpdate& update, bool echo)
{
    char* at = line.text + --line.cursor;
    std::memmove(at, at + 1, static_cast<std::size_t>(behind_cursor(line) - 1));
    line.text[--line.length] = '\0';
    update.add(kBack);
    update.add_line(line, line.cursor, echo);
    update.add(kBlank);
    update.add(kBack, 1 + behind_cursor(line));
}

int longest_word(const char* text)
{
    char word[kLineCapacity + 3];
    std::size_t longest = 0;
    for (int cursor = 0; find_token(text, word, &cursor);) longest = std::max(longest, std::strlen(word));
    return static_cast<int>(longest);
}

// Whether the character would grow a word that no parse node can hold. A word that became too long by deleting a blank
// does not bar typing elsewhere on the line: the parse refuses it.
bool overgrows_word(const LineRecord& line, char c)
{
    LineRecord grown = line;
    grown.text[grown.length] = '\0';
    const int longestNow = longest_word(grown.text);
    put_in(grown, c);
    grown.text[grown.length] = '\0';
    return longest_word(grown.text) > std::max(kWordCapacity, longestNow);
}

bool has_more(const History& history, int key)
{
    return key == key::kCtrlP ? history.head != history.oldest : history.browse != history.head;
}

void step(History& history, LineRecord& line, int key)
{
    if (key == key::kCtrlP)
        copy_prev_cmd(history, line);
    else
        copy_next_cmd(history, line);
}

void recall(EditContext& edit, int term, int key, bool echo)
{
    if (!has_more(edit.history, key)) return;
    erase_line(edit.line, term);
    step(edit.history, edit.line, key);
    show_line(edit.line, term, echo);
}

std::uint32_t after(std::uint32_t entry) { return (entry + 1) % kHistoryEntries; }
std::uint32_t before(std::uint32_t entry) { return (entry + kHistoryEntries - 1) % kHistoryEntries; }

void copy_entry(const History& history, LineRecord& line)
{
    clear_line(line);
    const char* entry = history.entries[history.browse];
    line.length = line.cursor = static_cast<int>(strnlen(entry, kLineCapacity));
    std::memcpy(line.text, entry, static_cast<std::size_t>(line.length));
}
}  // namespace

void line_edit(LineRecord& line, int term, int key, bool echo)
{
    line.cursor = cursor_of(line);
    switch (key) {
    case key::kBackspace: return backspace_ch(line, term, echo);
    case key::kDelete: return del_ch(line, term, echo);
    case key::kCtrlL: return erase_line(line, term);
    case key::kCtrlW: return erase_word(line, term);
    case key::kLeft: return move_left(line, term);
    case key::kRight: return move_right(line, term, echo);
    case key::kEnd: return move_to_end(line, term, echo);
    case key::kHome: return move_to_start(line, term);
    }
    if (!key::printable(key)) return ring(term);
    insert_ch(line, term, static_cast<char>(key), echo);
}

void normal_edit(EditContext& edit, int term, int key, bool echo)
{
    LineRecord& line = edit.line;
    if (key == key::kCtrlP || key == key::kCtrlN) return recall(edit, term, key, echo);
    line.cursor = cursor_of(line);
    if (key::printable(key) && line.length < kLineCapacity && overgrows_word(line, static_cast<char>(key)))
        return refuse_key(line, term, kWordTooLong, echo);
    line_edit(line, term, key, echo);
}

void backspace_ch(LineRecord& line, int term, bool echo)
{
    line.cursor = cursor_of(line);
    if (line.cursor == 0) return ring(term);
    ScreenUpdate update;
    take_before_cursor(line, update, echo);
    update.show(term);
}

void del_ch(LineRecord& line, int term, bool echo)
{
    line.cursor = cursor_of(line);
    ScreenUpdate update;
    switch (behind_cursor(line)) {
    case 0: return ring(term);
    case 1:
        update.add(kBlank);
        update.add(kBack);
        --line.length;
        break;
    default:
        ++line.cursor;
        update.add(kBlank);
        take_before_cursor(line, update, echo);
    }
    update.show(term);
}

void erase_word(LineRecord& line, int term)
{
    ScreenUpdate update;
    while (line.length > 0 && line.text[line.length - 1] > kBlank && line.text[line.length - 1] != kDelCharacter) {
        line.text[--line.length] = '\0';
        update.wipe_back(1);
    }
    update.show(term);
}

void erase_line(LineRecord& line, int term)
{
    ScreenUpdate update;
    update.add(kBack, cursor_of(line));
    update.add(kBlank, line.length);
    update.add(kBack, line.length);
    update.show(term);
    clear_line(line);
}

void copy_to_hiscmd(History& history, const LineRecord& line)
{
    char* entry = history.entries[history.head];
    std::memset(entry, 0, sizeof history.entries[0]);
    std::memcpy(entry, line.text, static_cast<std::size_t>(line.length));
    history.head = after(history.head);
    if (history.head == history.oldest) history.oldest = after(history.oldest);
    history.browse = history.head;
}

void copy_prev_cmd(History& history, LineRecord& line)
{
    if (history.head == history.oldest) return;
    if (history.browse != history.oldest) history.browse = before(history.browse);
    copy_entry(history, line);
}

void copy_next_cmd(History& history, LineRecord& line)
{
    if (history.browse == history.head) return;
    history.browse = after(history.browse);
    if (history.browse == history.head)
        clear_line(line);
    else
        copy_entry(history, line);
}

void dis_his_cmd(Session& slot, int key)
{
    EditContext& edit = *slot.edit;
    if (!has_more(edit.history, key)) return;
    erase_line(edit.line, slot.term);
    step(edit.history, edit.line, key);
    resume_smart(slot);
}

void clear_line(LineRecord& line)
{
    // A password may have stood here, and nothing reads the bytes afterwards that would keep a plain memset alive.
    explicit_bzero(line.text, sizeof line.text);
    line.cursor = 0;
    line.length = 0;
}

void show_line(const LineRecord& line, int term, bool echo)
{
    ScreenUpdate update;
    update.add_line(line, 0, echo);
    update.add(kBack, behind_cursor(line));
    update.show(term);
}

void show_prompt_and_line(const LineRecord& line, int term, bool echo)
{
    prn_msg(term, Prompt[term]);
    show_line(line, term, echo);
}

void refuse_key(const LineRecord& line, int term, std::uint32_t message, bool echo)
{
    put_char(term, '\n');
    PrintMsg(term, message);
    show_prompt_and_line(line, term, echo);
}
