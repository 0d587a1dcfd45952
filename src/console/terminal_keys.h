// Keys that come while a program runs in front of the key loop. They wait here, older than everything that is still to
// be read, and get_char gives them first: nothing that is typed or pasted ahead is lost or overtaken.
#pragma once

void keep_keys_read_ahead();  // what standard input's buffer holds is older than the next key off the line
bool has_room_for_key();      // no room: further keys are left to the line, which makes their sender wait
void keep_key(unsigned char key);
void forget_kept_keys();
int take_kept_key();  // EOF: there is none
