// The hand-written half of the operator's guide: one file a chapter, read line by line. A passage that says something
// about a row of a table is headed by the row's number, so that a number too few or too many is found.
#pragma once

#include <string>
#include <vector>

[[noreturn]] void fail(const std::string& where, const std::string& what);

struct Passage {
    std::vector<unsigned> numbers;  // of the heading; none: text before the first heading, or under one in words
    std::vector<std::string> lines;
    std::string where;  // file and line, for complaints
};
struct Chapter {
    std::string title;
    std::vector<Passage> passages;
};

Chapter read_chapter(const std::string& path);

std::string read_file(const std::string& path);  // empty: there is none
std::vector<std::string> split(const std::string& text, const std::string& separator);
std::string trimmed(const std::string& text);
