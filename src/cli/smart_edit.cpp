#include "cli/smart_edit.h"

#include <cstring>

#include "cli/help.h"
#include "cli/line_edit.h"
#include "cli/parse.h"
#include "cli/screen_update.h"
#include "cli/tables.h"
#include "cli/token.h"
#include "console/messages.h"
#include "console/terminal.h"

namespace {
constexpr char kBell = '\a', kQuote = '"';

void ring(int term) { put_char(term, kBell); }

// The state before a word is matched, to go back to when the word is refused: parsers rewrite the word in place, and
// matching narrows the candidates.
class Attempt {
public:
    Attempt(ParseNode& triedNode, ParmList& parms)
        : node(triedNode), words(parms), nodeBefore(triedNode), countBefore(parms.count)
    {
    }
    void undo()
    {
        node = nodeBefore;
        words.count = countBefore;
    }

private:
    ParseNode& node;
    ParmList& words;
    ParseNode nodeBefore;
    Word countBefore;
};

// Vector words that a parameter's value takes. Dates take a word a field, though only the first is filled.
Word words_taken(std::uint32_t token)
{
    switch (static_cast<Token>(token)) {
    case Token::pmMACAddress: return 2;
    case Token::pmDate: return 3;
    default: return token >= kParmFirst ? 1 : 0;
    }
}

bool has_room(const LineRecord& line, std::size_t characters)
{
    return characters <= static_cast<std::size_t>(kLineCapacity - line.length);
}

// The line's end, which is the cursor's place here.
void extend(LineRecord& line, const char* text, std::size_t length)
{
    std::memcpy(line.text + line.length, text, length);
    line.length += static_cast<int>(length);
    line.cursor = line.length;
}

void shorten(LineRecord& line, std::uint32_t characters)
{
    line.length -= static_cast<int>(characters);
    line.cursor = line.length;
    std::memset(line.text + line.length, 0, characters);
}

bool ends_in_blank(const LineRecord& line) { return line.text[line.length - 1] == ' '; }

void set_word(ParseNode& node, const char* text, std::size_t length)
{
    std::memset(node.word, 0, sizeof node.word);
    std::memcpy(node.word, text, length);
    node.wordLength = static_cast<std::uint32_t>(length);
}

void drop_word(EditContext& edit)
{
    shorten(edit.line, edit.current->wordLength);
    set_word(*edit.current, "", 0);
}

bool inside_quotes(const ParseNode& node) { return node.word[0] == kQuote && !std::strchr(node.word + 1, kQuote); }

void fall_back_to_normal(EditContext& edit, ParmList& words, int term)
{
    put_char(term, '\n');
    PrintMsg(term, kMemoryLow);
    prn_msg(term, Prompt[term]);
    reset_pb(edit);
    words.count = 0;
    edit.editMode = kNormalEdit;
}

void append_ch(EditContext& edit, int term, char c)
{
    ParseNode& node = *edit.current;
    if (!has_room(edit.line, 1)) return refuse_key(edit.line, term, kLineTooLong, true);
    if (node.wordLength >= kWordCapacity) return refuse_key(edit.line, term, kWordTooLong, true);
    node.word[node.wordLength++] = c;
    extend(edit.line, &c, 1);
    put_char(term, c);
}

// Ends a word that was recognised: completes it, puts a blank behind it and begins the next one.
void accept_word(EditContext& edit, ParmList& words, int term, Attempt& attempt, const char* missing)
{
    ParseNode& node = *edit.current;
    const std::size_t missingLength = std::strlen(missing);
    if (!has_room(edit.line, missingLength + 1)) {
        attempt.undo();
        return refuse_key(edit.line, term, kLineTooLong, true);
    }
    ParseNode* next = create_next_node(edit, node);
    if (!next) return fall_back_to_normal(edit, words, term);
    next->position = node.position + 1;
    edit.current = next;

    std::memcpy(node.word + node.wordLength, missing, missingLength);
    node.wordLength += static_cast<std::uint32_t>(missingLength);
    extend(edit.line, missing, missingLength);
    extend(edit.line, " ", 1);

    ScreenUpdate update;
    update.add(missing);
    update.add(' ');
    update.show(term);
}

// Every row that the words before allow is a candidate again.
void widen_candidates(ParseNode& node)
{
    node.low = node.prev ? node.prev->low : 0;
    node.high = node.prev ? node.prev->high : CliGetCmdCount() - 1;
    node.selected = static_cast<std::uint32_t>(node.low);
    const char* keyword = CliLookupKeyword(node.matchedToken);
    if (!keyword || node.wordLength < std::strlen(keyword)) node.matchedToken = 0;
}

// After a blank behind a word that means nothing here: the keywords that begin so, or else all that may come, without
// the word.
void list_what_may_come(EditContext& edit, int term)
{
    if (!help(edit, term)) {
        PrintMsg(term, kAmbiguousKeyword, edit.current->word);
        prn_msg(term, " use following keywords or parameters:\n");
        drop_word(edit);
        widen_candidates(*edit.current);  // it may have begun as an offer, which is dropped with it
        help(edit, term);
    }
    put_char(term, '\n');
    show_prompt_and_line(edit.line, term, true);
}

void show_help(EditContext& edit, int term)
{
    put_char(term, '?');
    if (help(edit, term))
        put_char(term, '\n');
    else
        PrintMsg(term, kNoHelp);
    show_prompt_and_line(edit.line, term, true);
}

void erase_all(EditContext& edit, ParmList& words, int term)
{
    erase_line(edit.line, term);
    reset_pb(edit);
    words.count = 0;
}

// The nearest row, from the selected one on, whose keyword here is another than the one that stands there; -1: none.
std::int32_t find_other_keyword(const ParseNode& node, int direction)
{
    for (auto row = static_cast<std::int32_t>(node.selected); row >= node.low && row <= node.high; row += direction) {
        const CliCmdRow& candidate = command_row(row);
        const std::uint32_t token = token_at(candidate, node.position);
        if (is_keyword(token) && token != node.matchedToken && row_admitted(candidate)) return row;
    }
    return -1;
}

void offer_keyword(EditContext& edit, int term, int direction)
{
    ParseNode& node = *edit.current;
    const std::int32_t row = find_other_keyword(node, direction);
    if (row < 0) return ring(term);

    const std::uint32_t token = token_at(command_row(row), node.position);
    const char* keyword = CliLookupKeyword(token);
    const std::size_t length = std::strlen(keyword);
    if (length > node.wordLength && !has_room(edit.line, length - node.wordLength))
        return refuse_key(edit.line, term, kLineTooLong, true);

    ScreenUpdate update;
    update.wipe_back(static_cast<int>(node.wordLength));
    update.add(keyword);
    update.show(term);

    drop_word(edit);
    set_word(node, keyword, length);
    extend(edit.line, keyword, length);
    node.matchedToken = token;
    node.selected = static_cast<std::uint32_t>(row);
}

// Makes the word before the current one again and takes its value out of the vector. The line ends in that word and the
// blank behind it; a full line has no room for the blank.
void return_to_word_before(EditContext& edit, ParmList& words)
{
    ParseNode& node = *edit.current->prev;
    edit.current = &node;
    words.count -= words_taken(node.matchedToken);
    node.nextExpect = {};
    const char* wordEnd = edit.line.text + edit.line.length - (ends_in_blank(edit.line) ? 1 : 0);
    set_word(node, wordEnd - node.wordLength, node.wordLength);
}

int refuse_line(Session& slot, std::uint32_t message)
{
    PrintMsg(slot.term, message);
    prn_msg(slot.term, Prompt[slot.term]);
    return 0;
}

int take_command(const ParseNode& node, Session& slot)
{
    slot.call.cmdId = static_cast<std::uint16_t>(command_row(static_cast<std::int32_t>(node.selected)).cmdId);
    return 1;
}

// Enter behind a blank, or on an empty line.
int finish_at_blank(const ParseNode& node, Session& slot)
{
    if (node.position == 0) {
        reset_pb(*slot.edit);
        prn_msg(slot.term, Prompt[slot.term]);
        return 0;
    }
    if (node.expect.mayEnd != kMayEnd) return refuse_line(slot, kIncompleteCommand);
    return take_command(node, slot);
}
}  // namespace

void smart_edit(Session& slot, int key)
{
    EditContext& edit = *slot.edit;
    ParmList& words = slot.call.parms;
    const int term = slot.term;
    const bool quoted = inside_quotes(*edit.current);
    switch (key) {
    case key::kTab: return parse_tab(edit, words, term);
    case key::kBackspace: return parse_backspace(edit, term, words);
    case key::kCtrlL: return erase_all(edit, words, term);
    case key::kCtrlP:
    case key::kCtrlN: return dis_his_cmd(slot, key);
    case key::kUp: return read_prior_keyword(edit, term);
    case key::kDown: return read_next_keyword(edit, term);
    }
    if (key == ' ' && !quoted) return parse_space(edit, words, term);
    if (key == '?' && !quoted) return show_help(edit, term);
    if (key::printable(key)) return append_ch(edit, term, static_cast<char>(key));
    ring(term);
}

void switch_to_smart(Session& slot)
{
    EditContext& edit = *slot.edit;
    LineRecord& line = edit.line;
    edit.editMode = kSmartEdit;
    put_char(slot.term, '\n');
    PrintMsg(slot.term, kSmartEditMode);
    prn_msg(slot.term, Prompt[slot.term]);
    line.cursor = line.length;
    resume_smart(slot);
}

void resume_smart(Session& slot)
{
    EditContext& edit = *slot.edit;
    LineRecord& line = edit.line;
    std::memset(line.text + line.length, 0, sizeof line.text - static_cast<std::size_t>(line.length));
    if (!parse_a_line(edit, slot.call.parms, slot.term)) return fall_back_to_normal(edit, slot.call.parms, slot.term);
    line.cursor = line.length;
    show_line(line, slot.term, true);
}

int parse_return(ParseNode& node, Session& slot)
{
    if (node.wordLength == 0) return finish_at_blank(node, slot);

    ParmList& words = slot.call.parms;
    Attempt attempt(node, words);
    char* message = parse_message(slot.term);
    if (!parse_curWord(node, words, message)) {
        attempt.undo();
        prn_msg(slot.term, message);
        prn_msg(slot.term, Prompt[slot.term]);
        return 0;
    }
    if (node.nextExpect.mayEnd != kMayEnd) {
        attempt.undo();
        return refuse_line(slot, kIncompleteCommand);
    }
    return take_command(node, slot);
}

void parse_space(EditContext& edit, ParmList& words, int term)
{
    ParseNode& node = *edit.current;
    if (node.wordLength == 0) {
        if (!has_room(edit.line, 1)) return;
        extend(edit.line, " ", 1);
        put_char(term, ' ');
        return;
    }
    Attempt attempt(node, words);
    if (!parse_token(node, words, parse_message(term)) || !search_cmd(node)) {
        attempt.undo();
        return list_what_may_come(edit, term);
    }
    const char* keyword = CliLookupKeyword(node.matchedToken);
    accept_word(edit, words, term, attempt, keyword ? keyword + node.wordLength : "");
}

void parse_tab(EditContext& edit, ParmList& words, int term)
{
    ParseNode& node = *edit.current;
    if (node.wordLength == 0 || !node.expect.keyword) return dis_next_keyword(edit, term);

    Attempt attempt(node, words);
    char keyword[kWordCapacity + 1];
    switch (match_keyword(node, keyword)) {
    case 1: return accept_word(edit, words, term, attempt, keyword + node.wordLength);
    case 0:
        put_char(term, '\n');
        PrintMsg(term, kNotAKeyword, node.word);
        show_prompt_and_line(edit.line, term, true);
        break;
    default: ring(term);
    }
    attempt.undo();
}

void parse_backspace(EditContext& edit, int term, ParmList& words)
{
    LineRecord& line = edit.line;
    if (line.length == 0) return ring(term);

    const bool behindWord = edit.current->wordLength == 0;
    const bool behindBlank = behindWord && ends_in_blank(line);
    const bool behindTwoBlanks = behindBlank && line.length >= 2 && line.text[line.length - 2] == ' ';
    if (behindWord && !behindTwoBlanks && edit.current->prev) return_to_word_before(edit, words);
    if (ParseNode& node = *edit.current; !behindBlank && node.wordLength > 0) node.word[--node.wordLength] = '\0';

    shorten(line, 1);
    prn_msg(term, "\b \b");
    widen_candidates(*edit.current);
}

void read_next_keyword(EditContext& edit, int term) { offer_keyword(edit, term, 1); }

void read_prior_keyword(EditContext& edit, int term) { offer_keyword(edit, term, -1); }

void dis_next_keyword(EditContext& edit, int term) { offer_keyword(edit, term, 1); }
