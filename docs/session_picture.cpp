// Draws the picture of a session: the real console against the real service on a terminal line, its screen as SVG.
// Shows nothing that differs from one machine or moment to another, so the picture only changes when the console does.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <sstream>
#include <string>
#include <vector>

#include "support/service.h"
#include "support/terminal.h"

namespace {
constexpr unsigned short kColumns = 84;
constexpr int kLineHeight = 18, kMargin = 18, kBar = 34;
constexpr double kCellWidth = 8.4;  // of the font at 14 pixels; textLength keeps a line to it whatever font is there
constexpr char kPrompt[] = "Command> ";

std::string play()
{
    const Service service;
    Terminal t({.columns = kColumns});
    t.log_in();
    const auto run = [&](const char* keys, const char* until = kPrompt) {
        t.type(keys);
        t.until(until);
    };
    run("set ?", "Command> set ");
    t.until_line("Command> set");
    run("syst name lab-ap\n");
    run("set http port 99999\n", "16-bit port numbers");
    t.until_line("Command> set http port 99999");
    run("\f", "\b");
    t.until_line("Command>");
    run("set dhcp server\n", "192.168.1.100): ");
    run("192.168.1.50\n", "192.168.1.199): ");
    run("\n", "192.168.1.1): ");
    run("\n", "1-525600): ");
    run("720\n", "yes/no): ");
    run("n\n");
    run("save config\n");
    t.type("logout\n");
    t.wait_exit();
    return t.screen().text();
}

std::string escaped(const std::string& text)
{
    std::string out;
    for (const char c : text) {
        if (c == '<')
            out += "&lt;";
        else if (c == '&')
            out += "&amp;";
        else if (c == ' ')
            out += "&#160;";  // a plain one next to another would be dropped
        else
            out += c;
    }
    return out;
}

// What was there before the console greets belongs to the machine: the last login.
std::vector<std::string> rows_of(const std::string& screen)
{
    std::vector<std::string> rows;
    std::istringstream lines(screen.substr(screen.find("Router Manager Console")));
    for (std::string line; std::getline(lines, line);) rows.push_back(line.substr(0, line.find_last_not_of(' ') + 1));
    while (!rows.empty() && rows.back().empty()) rows.pop_back();
    return rows;
}

// From a column on; the blanks in front are only places.
void draw_text(const char* style, std::size_t column, int y, const std::string& text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == text.npos) return;
    const double x = kMargin + kCellWidth * static_cast<double>(column + first);
    std::printf("<text class=\"%s\" x=\"%.1f\" y=\"%d\" textLength=\"%.1f\">%s</text>\n", style, x, y,
                kCellWidth * static_cast<double>(text.size() - first), escaped(text.substr(first)).c_str());
}

// What the console says first, and what was typed behind it.
void draw_row(const std::string& row, int y)
{
    const std::size_t question = row.find("):");
    const bool isPrompt = row.starts_with(kPrompt), isQuestion = question != row.npos;
    const std::size_t typed = isPrompt     ? sizeof kPrompt - 1
                              : isQuestion ? std::min(question + 3, row.size())
                                           : row.size();
    const char* style = isPrompt ? "p" : isQuestion ? "q" : row.find("Error:") != row.npos ? "e" : "o";
    draw_text(style, 0, y, row.substr(0, typed));
    if (typed < row.size()) draw_text("t", typed, y, row.substr(typed));
}

void draw(const std::vector<std::string>& rows)
{
    const int width = static_cast<int>(kCellWidth * kColumns) + 2 * kMargin;
    const int height = kBar + kLineHeight * static_cast<int>(rows.size()) + kMargin;
    std::printf(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %d %d\" width=\"%d\" height=\"%d\" role=\"img\" "
        "aria-label=\"A session with the console\">\n",
        width, height, width, height);
    std::printf(
        "<style>\ntext { font: 14px 'DejaVu Sans Mono', Menlo, Consolas, monospace }\n"
        ".o { fill: #c9d1d9 } .p { fill: #7ee787 } .t { fill: #ffffff; font-weight: bold } .q { fill: #a5d6ff }\n"
        ".e { fill: #ff7b72 }\n</style>\n");
    std::printf("<rect width=\"%d\" height=\"%d\" rx=\"8\" fill=\"#161b22\"/>\n", width, height);
    for (int i = 0; i < 3; ++i) std::printf("<circle cx=\"%d\" cy=\"17\" r=\"5\" fill=\"#484f58\"/>\n", 22 + 18 * i);
    int y = kBar + kLineHeight - 5;
    for (const std::string& row : rows) {
        if (!row.empty()) draw_row(row, y);
        y += kLineHeight;
    }
    std::puts("</svg>");
}
}  // namespace

int main()
{
    try {
        draw(rows_of(play()));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "session_picture: %s\n", failure.what());
        return 1;
    }
    return 0;
}
