// Smart editing: words are recognised and completed while they are typed.
#pragma once

#include "cli/edit_context.h"
#include "console/session.h"

void smart_edit(Session& slot, int key);
void switch_to_smart(Session& slot);
int parse_return(ParseNode& node, Session& slot);  // 1 with the command id in the slot; 0 after the message and prompt
void parse_space(EditContext& edit, ParmList& words, int term);
void parse_tab(EditContext& edit, ParmList& words, int term);
void parse_backspace(EditContext& edit, int term, ParmList& words);
void read_next_keyword(EditContext& edit, int term);
void read_prior_keyword(EditContext& edit, int term);
void dis_next_keyword(EditContext& edit, int term);
