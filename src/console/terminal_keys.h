// The keys that were read off the line and are not served yet, oldest first. They are read in blocks, by the key loop
// and while a program runs in front of it, so nothing that is typed or pasted ahead is lost or overtaken.
#pragma once

bool keys_wait();
bool has_room_for_keys();  // no room: further keys are left to the line, which makes their sender wait
int take_key();            // a byte, 0 to 255; EOF: none waits

// Reads what the line has, and waits for a key when it has none. False: the input has ended, no further key can come.
bool read_keys();

// Forgets the last key of that kind and all before it; false when there is none.
bool forget_keys_up_to(unsigned char key);
void forget_keys();
