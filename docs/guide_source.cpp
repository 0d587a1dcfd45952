#include "guide_source.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {
bool is_number(const std::string& word)
{
    return !word.empty() && word.size() <= 4 && word.find_first_not_of("0123456789") == word.npos;
}

// "## 22 23": a heading of numbers. Anything else under "##" is a heading in words and stays in the text.
std::vector<unsigned> numbers_of(const std::string& line)
{
    std::vector<unsigned> numbers;
    if (!line.starts_with("## ")) return numbers;
    for (const std::string& word : split(line.substr(3), " ")) {
        if (!is_number(word)) return {};
        numbers.push_back(static_cast<unsigned>(std::strtoul(word.c_str(), nullptr, 10)));
    }
    return numbers;
}
}  // namespace

void fail(const std::string& where, const std::string& what)
{
    std::fprintf(stderr, "guide: %s: %s\n", where.c_str(), what.c_str());
    std::exit(EXIT_FAILURE);
}

std::string read_file(const std::string& path)
{
    std::FILE* file = std::fopen(path.c_str(), "re");
    if (!file) return {};
    std::string text;
    char part[4096];
    while (const std::size_t got = std::fread(part, 1, sizeof part, file)) text.append(part, got);
    std::fclose(file);
    return text;
}

std::vector<std::string> split(const std::string& text, const std::string& separator)
{
    std::vector<std::string> parts;
    std::size_t begin = 0;
    for (std::size_t end; (end = text.find(separator, begin)) != text.npos; begin = end + separator.size())
        parts.push_back(text.substr(begin, end - begin));
    parts.push_back(text.substr(begin));
    return parts;
}

std::string trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

Chapter read_chapter(const std::string& path)
{
    const std::string text = read_file(path);
    if (!text.starts_with("# ")) fail(path, "does not begin with a title");
    std::vector<std::string> lines = split(text, "\n");
    if (lines.back().empty()) lines.pop_back();
    Chapter chapter{lines[0].substr(2), {{}}};
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::string where = path + ":" + std::to_string(i + 1);
        if (lines[i].starts_with("## ")) chapter.passages.push_back({numbers_of(lines[i]), {}, where});
        Passage& passage = chapter.passages.back();
        if (!lines[i].starts_with("## ") || passage.numbers.empty()) passage.lines.push_back(lines[i]);
    }
    return chapter;
}
