// Records in lines that people can read and a fuzzer can change: a letter says what the line does, numbers are decimal,
// 0x or dotted quads, places count from the record's first byte.
//
//     n            a new record: zeros, and a request's kind
//     c CODE       its code
//     t PLACE TEXT a text and its NUL           x PLACE HEX  bytes
//     b PLACE N    one byte                     h PLACE N    two          w PLACE N  four
//     # ...        says something to the reader
#pragma once

#include <string>
#include <string_view>

#include "service/record.h"

struct Words {
    std::string_view rest;

    std::uint32_t number();   // the next word; 0 when it is none
    std::string_view text();  // all that is left
    std::string bytes();      // the same, read as pairs of hexadecimal digits up to the first that is none
};

// The next line of a script, without its end; false when there is none.
bool take_line(std::string_view& script, char& letter, Words& words);

void new_record(ComParam& record);
// Carries out a line of those above; other letters do nothing. What would leave the record is cut.
void edit_record(ComParam& record, char letter, Words words);
