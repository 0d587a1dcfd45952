// Smart editing: words are recognised and completed while they are typed, one parse node a word. The line only grows
// and shrinks at its end. What stands on it is always the words as typed or completed: a word that a parser has taken
// its quotes from, for its value, still has them on the line, and its node gets them back when the word is edited
// again.
#pragma once

#include "cli/edit_context.h"
#include "console/session.h"

void smart_edit(Session& slot, int key);

// From normal mode: the line typed so far is parsed, and what was accepted of it is shown.
void switch_to_smart(Session& slot);

// Parses the line anew, word by word, and shows what was accepted of it; the screen's cursor stands behind the prompt.
void resume_smart(Session& slot);

// Enter. 1 with the command id in the slot; 0 after the message and the prompt, with the word and the vector as they
// were before, so that the line can be edited on. A line of blanks is emptied.
int parse_return(ParseNode& node, Session& slot);

void parse_space(EditContext& edit, ParmList& words, int term);
void parse_tab(EditContext& edit, ParmList& words, int term);
void parse_backspace(EditContext& edit, int term, ParmList& words);

// Put the next or previous keyword that is allowed here in the place of the current word.
void read_next_keyword(EditContext& edit, int term);
void read_prior_keyword(EditContext& edit, int term);
void dis_next_keyword(EditContext& edit, int term);  // the first one, where no word has been begun
