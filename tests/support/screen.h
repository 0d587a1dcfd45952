// What an operator sees: the characters that stand on a terminal of a given width after everything it was sent. Knows
// what the console uses: printable characters, line feed, carriage return, backspace and the bell.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class Screen {
public:
    explicit Screen(std::size_t columns) : columns_(columns) {}

    void feed(std::string_view output);

    const std::string& line() const { return rows_.back(); }  // the cursor's row, up to the last character written
    std::size_t column() const { return column_; }
    unsigned bells() const { return bells_; }
    std::string text() const;  // every row since the start, each ended with a newline but the last

private:
    void put(char c);
    void back();

    std::size_t columns_;
    std::vector<std::string> rows_{""};
    std::size_t column_ = 0;
    unsigned bells_ = 0;
};
