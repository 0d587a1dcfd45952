#include "cli/parse.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "cli/tables.h"
#include "cli/token.h"
#include "console/messages.h"
#include "console/terminal.h"

namespace {
constexpr int kNotTaken = 0, kKeywordTaken = 2, kParameterTaken = 3;
constexpr std::size_t kTokenSize = kLineCapacity + 3;  // the closing quote of an unclosed token, and the NUL

// One node, before the first word.
void begin_parse(EditContext& edit)
{
    ParseNode& first = edit.nodes[0];
    first = {};
    first.expect.keyword = kMayBeKeyword;
    first.high = CliGetCmdCount() - 1;
    edit.current = &first;
}

// Makes a token the node's word, NUL-filled behind it. False when the node has no room for it: the word is then its
// beginning.
bool set_word(ParseNode& node, const char* token)
{
    const std::size_t length = std::strlen(token);
    const std::size_t kept = std::min<std::size_t>(length, kWordCapacity);
    std::memset(node.word, 0, sizeof node.word);
    std::memcpy(node.word, token, kept);
    node.wordLength = static_cast<std::uint32_t>(kept);
    return kept == length;
}

// Puts characters at the end of the line, as many as it takes.
void append(LineRecord& line, const char* text, std::size_t length)
{
    const std::size_t kept = std::min(length, static_cast<std::size_t>(kLineCapacity - line.length));
    std::memcpy(line.text + line.length, text, kept);
    line.length += static_cast<int>(kept);
    line.cursor = line.length;
}

struct Keywords {
    std::uint32_t count;  // that the word begins
    std::uint32_t last;   // the last of them counted
    bool spelledOut;      // `last` is the word itself
};

// Counts the keywords of the candidate rows that begin with the node's word. Rows with the same keyword at this place
// stand together, so each keyword is counted once.
Keywords count_keywords(const ParseNode& node, bool stopAtExactSpelling)
{
    Keywords found{};
    for (std::int32_t i = node.low; i <= node.high; ++i) {
        const CliCmdRow& row = command_row(i);
        const std::uint32_t token = token_at(row, node.position);
        if (!is_keyword(token) || token == found.last || !row_admitted(row)) continue;

        const char* keyword = CliLookupKeyword(token);
        if (strnicmp(keyword, node.word, node.wordLength) != 0) continue;
        ++found.count;
        found.last = token;
        found.spelledOut = keyword[node.wordLength] == '\0';
        if (stopAtExactSpelling && found.spelledOut) break;
    }
    return found;
}

// Notes what a candidate row has behind the word.
void add_expectation(Expect& expect, std::uint32_t token)
{
    if (token == 0)
        expect.mayEnd = kMayEnd;
    else if (is_keyword(token))
        expect.keyword = kMayBeKeyword;
    else
        (expect.firstParm == 0 ? expect.firstParm : expect.lastParm) = token;
}

bool nothing_may_follow(const Expect& expect) { return expect.mayEnd && !expect.keyword && !expect.firstParm; }

// A parser gives the number of its message and no argument for it, and patches the text if it takes one. A text that
// takes an argument and is not patched says nothing: another one stands in for it.
bool complete_as_it_is(std::uint32_t message)
{
    return message < kMessages && (errMsg[message].flags & kPatched || !std::strchr(errMsg[message].text, '%'));
}

int take_parameter(ParseNode& node, ParmList& words, char* message)
{
    std::uint32_t refusal = kOk;
    for (const std::uint32_t type : {node.expect.firstParm, node.expect.lastParm}) {
        if (type == 0) break;
        refusal = CliGetParserFunc(type)(node.word, words);
        if (refusal == kOk) {
            node.matchedToken = type;
            return kParameterTaken;
        }
    }
    if (refusal != kOk && complete_as_it_is(refusal))
        SPrintMsg(message, refusal);
    else
        SPrintMsg(message, kNotALegalInput, node.word);
    return kNotTaken;
}

int refuse_line(Session& slot)
{
    slot.call.parms.count = 0;
    prn_msg(slot.term, parse_message(slot.term));
    prn_msg(slot.term, Prompt[slot.term]);
    return 0;
}
}  // namespace

void reset_pb(EditContext& edit)
{
    begin_parse(edit);
    edit.line = {};
}

int find_token(const char* line, char* wordOut, int* cursorInOut)
{
    const char* in = line + *cursorInOut;
    while (*in == ' ') ++in;
    if (*in == '\0') return 0;

    const bool quoted = *in == '"';
    const char delimiter = quoted ? '"' : ' ';
    if (quoted) *wordOut++ = *in++;
    while (*in != '\0' && *in != delimiter) *wordOut++ = *in++;
    if (*in != '\0') ++in;
    if (quoted) *wordOut++ = '"';
    *wordOut = '\0';
    *cursorInOut = static_cast<int>(in - line);
    return 1;
}

std::uint32_t find_keycode(const ParseNode& node)
{
    const Keywords found = count_keywords(node, true);
    if (found.count <= 1 || found.spelledOut) return found.last;
    return kAmbiguous;
}

int match_keyword(ParseNode& node, char* completionOut)
{
    const Keywords found = count_keywords(node, false);
    if (found.count != 1) return found.count == 0 ? 0 : 2;
    node.matchedToken = found.last;
    const char* keyword = CliLookupKeyword(found.last);
    std::memcpy(completionOut, keyword, std::strlen(keyword) + 1);
    search_cmd(node);
    return 1;
}

int search_cmd(ParseNode& node)
{
    if (node.matchedToken == 0 || node.matchedToken == kAmbiguous) return 0;
    node.nextExpect = {};
    std::int32_t first = -1, last = -1;
    for (std::int32_t i = node.low; i <= node.high; ++i) {
        const CliCmdRow& row = command_row(i);
        if (token_at(row, node.position) != node.matchedToken || !row_admitted(row)) continue;
        if (first < 0) first = i;
        last = i;
        add_expectation(node.nextExpect, token_at(row, node.position + 1));
    }
    if (first < 0) return 0;
    node.low = first;
    node.high = last;
    node.selected = static_cast<std::uint32_t>(first);
    return 1;
}

int parse_token(ParseNode& node, ParmList& words, char* message)
{
    if (node.expect.keyword) {
        if (const std::uint32_t keyword = find_keycode(node)) {
            node.matchedToken = keyword;
            return kKeywordTaken;
        }
        if (!node.expect.firstParm) {
            SPrintMsg(message, kNotAKeyword, node.word);
            return kNotTaken;
        }
    }
    return take_parameter(node, words, message);
}

int parse_curWord(ParseNode& node, ParmList& words, char* message)
{
    if (nothing_may_follow(node.expect)) {
        SPrintMsg(message, kExtraInput, node.word);
        return kNotTaken;
    }
    const int taken = parse_token(node, words, message);
    if (taken != kNotTaken && !search_cmd(node)) {
        SPrintMsg(message, kAmbiguousKeyword, node.word);
        return kNotTaken;
    }
    return taken;
}

// Each word gets a node of its own here too: the values of text parameters are addresses of the words, and the action
// reads them after the whole line is parsed.
int parse_cmdline(Session& slot)
{
    EditContext& edit = *slot.edit;
    ParmList& words = slot.call.parms;
    char* message = parse_message(slot.term);
    message[0] = '\0';
    words.count = 0;
    begin_parse(edit);

    char token[kTokenSize];
    for (int cursor = 0; find_token(edit.line.text, token, &cursor);) {
        ParseNode& node = *edit.current;
        if (!set_word(node, token)) {
            SPrintMsg(message, kWordTooLong);
            return refuse_line(slot);
        }
        if (!parse_curWord(node, words, message)) return refuse_line(slot);

        ParseNode* next = create_next_node(edit, node);
        if (!next) {
            SPrintMsg(message, kMemoryLow);
            return refuse_line(slot);
        }
        next->position = node.position + 1;
        edit.current = next;
    }
    const ParseNode* last = edit.current->prev;
    if (!last) return refuse_line(slot);  // a blank line: no message, only the prompt
    if (!last->nextExpect.mayEnd) {
        SPrintMsg(message, kIncompleteCommand);
        return refuse_line(slot);
    }
    slot.call.cmdId = static_cast<std::uint16_t>(command_row(static_cast<std::int32_t>(last->selected)).cmdId);
    return 1;
}

ParseNode* create_next_node(EditContext& edit, ParseNode& node)
{
    if (&node == std::end(edit.nodes) - 1) return nullptr;
    ParseNode& next = *(&node + 1);
    next = {};
    next.prev = &node;
    next.expect = node.nextExpect;
    next.low = node.low;
    next.high = node.high;
    next.selected = static_cast<std::uint32_t>(node.low);
    next.position = node.position;
    return &next;
}

int parse_a_line(EditContext& edit, ParmList& words, int term)
{
    const LineRecord typed = edit.line;
    reset_pb(edit);
    words.count = 0;

    char token[kTokenSize];
    for (int cursor = 0; find_token(typed.text, token, &cursor);) {
        ParseNode& node = *edit.current;
        const bool fits = set_word(node, token);
        append(edit.line, node.word, node.wordLength);
        if (!fits) {
            put_char(term, '\n');
            PrintMsg(term, kWordTooLong);
            prn_msg(term, Prompt[term]);
            return 1;
        }
        if (!parse_curWord(node, words, parse_message(term))) return 1;

        ParseNode* next = create_next_node(edit, node);
        if (!next) return 0;
        next->position = node.position + 1;
        append(edit.line, " ", 1);
        edit.current = next;
    }
    return 1;
}

char* parse_message(int term)
{
    static char messages[kSessions][kMessageSize];
    return messages[term];
}
