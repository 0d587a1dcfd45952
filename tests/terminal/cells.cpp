#include "terminal/cells.h"

#include <algorithm>
#include <vterm.h>

Cells::Cells(int rows, int columns) : terminal_(vterm_new(rows, columns))
{
    vterm_screen_reset(vterm_obtain_screen(terminal_.get()), 1);
}

void Cells::Free::operator()(VTerm* terminal) const { vterm_free(terminal); }

void Cells::feed(std::string_view output) { vterm_input_write(terminal_.get(), output.data(), output.size()); }

void Cells::resize(int rows, int columns) { vterm_set_size(terminal_.get(), rows, columns); }

std::string Cells::text() const
{
    int rows, columns;
    vterm_get_size(terminal_.get(), &rows, &columns);
    VTermPos cursor;
    vterm_state_get_cursorpos(vterm_obtain_state(terminal_.get()), &cursor);
    const VTermScreen* screen = vterm_obtain_screen(terminal_.get());

    std::string all;
    for (VTermPos at{0, 0}; at.row < rows; ++at.row) {
        std::string row;
        for (at.col = 0; at.col < columns; ++at.col) {
            VTermScreenCell cell{};
            vterm_screen_get_cell(screen, at, &cell);
            row += cell.chars[0] ? static_cast<char>(cell.chars[0]) : ' ';
        }
        row.resize(row.find_last_not_of(' ') + 1);
        if (at.row == cursor.row) {
            const auto column = static_cast<std::size_t>(cursor.col);
            row.resize(std::max(row.size(), column), ' ');
            row.insert(column, 1, '|');
        }
        all += row + '\n';
    }
    all.resize(all.find_last_not_of('\n') + 1);
    return all;
}
