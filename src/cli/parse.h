// From a typed line to one command row, word by word. Each word narrows a contiguous range of the sorted command table.
#pragma once

#include "cli/edit_context.h"
#include "console/session.h"

// The nodes are a stack in the edit context: the node behind a node is free while it is not in the chain.
void reset_pb(EditContext& edit);  // an empty line, one node, every row a candidate

// Reads the next word of `line` from the cursor on into `wordOut` (kLineCapacity + 3 bytes: an unclosed quote is
// closed). Returns 0 at the end of the line, else 1 with the cursor behind the word's delimiter.
int find_token(const char* line, char* wordOut, int* cursorInOut);

std::uint32_t find_keycode(const ParseNode& node);                 // 0, a keyword id, or kAmbiguous
int match_keyword(ParseNode& node, char* completionOut);           // 0, 1, or 2 for more; 1 narrows and stores the text
int search_cmd(ParseNode& node);                                   // 1, or 0 when no row has the matched token
int parse_token(ParseNode& node, ParmList& words, char* message);  // 2 keyword, 3 parameter, 0 with the message
int parse_curWord(ParseNode& node, ParmList& words, char* message);

// The whole line: 1 with the command id in the slot, or 0 after printing why and the prompt. The texts among the
// parameters live in the nodes, so they last until the next reset_pb or parse_cmdline.
int parse_cmdline(Session& slot);

// The node for the word behind `node`, with the place of `node`: the caller moves it on. Null: no node left.
ParseNode* create_next_node(EditContext& edit, ParseNode& node);

// Parses the line as the smart editor would have, as far as its words are accepted; the first that is not stays as the
// word being typed, and what stands behind it is dropped. 0: no node left.
int parse_a_line(EditContext& edit, ParmList& words, int term);

// One message buffer per terminal, kMessageSize bytes, that the matching steps write their message into.
char* parse_message(int term);
