// What a session edits: the line, the history, and the chain of parse nodes that the smart editor keeps, one a word.
#pragma once

#include <cstdint>

#include "values/parm_list.h"

inline constexpr int kLineCapacity = 120;  // characters of a line
inline constexpr int kWordCapacity = 79;   // characters of a word
inline constexpr int kHistoryEntries = 16;
inline constexpr int kMaxTokens = 12;  // words of a command row
inline constexpr std::uint32_t kNormalEdit = 1, kSmartEdit = 0;

struct LineRecord {
    char text[kLineCapacity + 1];  // NUL-filled behind its end
    int cursor;                    // 0 to length
    int length;
};

struct History {
    char entries[kHistoryEntries][kLineCapacity + 1];
    std::uint32_t browse;  // the entry that the last history key showed
    std::uint32_t oldest;  // the oldest entry still valid
    std::uint32_t head;    // where the next line is written; empty while equal to oldest
};

// What may stand at a place of the command, as the candidate rows have it.
struct Expect {
    std::uint32_t mayEnd;  // kMayEnd if some candidate ends before this place
    std::uint32_t unused;
    std::uint32_t keyword;    // kMayBeKeyword if a keyword may come
    std::uint32_t firstParm;  // parameter type of the first candidate that has one here
    std::uint32_t lastParm;   // of the last such candidate, when there are two or more
    std::uint32_t unusedToo;
};
inline constexpr std::uint32_t kMayEnd = 16, kMayBeKeyword = 256;

// The parse after a word.
struct ParseNode {
    char word[kWordCapacity + 1];
    std::uint32_t matchedToken;  // keyword id, kAmbiguous, or the parameter type that took the word
    std::uint32_t position;      // of the word in the command, from 0
    std::uint32_t wordLength;
    Expect expect;           // for this word
    Expect nextExpect;       // for the word after it
    std::int32_t low, high;  // candidate rows of the sorted command table
    std::uint32_t selected;  // the first row that matched
    ParseNode* prev;         // null in the first node
};
inline constexpr std::uint32_t kAmbiguous = 255;

struct EditContext {
    std::uint32_t editMode;  // kNormalEdit; anything else is smart
    ParseNode* current;
    LineRecord line;
    History history;
    ParseNode nodes[kMaxTokens + 1];  // nodes[0] is the first node; a node is free while its word precedes no other
};
