// Stored files of earlier programs: what stood elsewhere or was written otherwise then. A change of the stored file
// that an earlier program's text would not be understood after raises Configuration::kFormat and adds a step here.
#pragma once

#include <jansson.h>

// Changes the whole text of format `from` to what the program that wrote `to` would have written. What it does not find
// or cannot use it leaves for the reader to judge.
void bring_up(json_t* root, int from, int to);
