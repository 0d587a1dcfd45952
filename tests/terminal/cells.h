// What a person sees: the cells of a real terminal emulator that gets everything the console prints.
#pragma once

#include <memory>
#include <string>
#include <string_view>

struct VTerm;

class Cells {
public:
    Cells(int rows, int columns);

    void feed(std::string_view output);
    void resize(int rows, int columns);

    // The screen's rows without the blanks at their ends, a newline between them, none behind the last that is not
    // empty. The cursor stands in front of the "|".
    std::string text() const;

private:
    struct Free {
        void operator()(VTerm* terminal) const;
    };
    std::unique_ptr<VTerm, Free> terminal_;
};
