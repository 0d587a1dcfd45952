#include "support/screen.h"

void Screen::feed(std::string_view output)
{
    for (const char c : output) {
        switch (c) {
        case '\0': break;
        case '\a': ++bells_; break;
        case '\b': back(); break;
        case '\r': column_ = 0; break;
        case '\n': rows_.emplace_back(); break;
        default: put(c);
        }
    }
}

// Behind the last character of a full row the cursor still stands on that character.
void Screen::back()
{
    if (column_ == columns_) --column_;
    if (column_ > 0) --column_;
}

// A full row continues on the next one as soon as there is a character for it, which is what real terminals do.
void Screen::put(char c)
{
    if (column_ == columns_) {
        rows_.emplace_back();
        column_ = 0;
    }
    std::string& row = rows_.back();
    if (row.size() <= column_) row.resize(column_ + 1, ' ');
    row[column_++] = c;
}

std::string Screen::text() const
{
    std::string all;
    for (const std::string& row : rows_) all += row + '\n';
    all.pop_back();
    return all;
}
