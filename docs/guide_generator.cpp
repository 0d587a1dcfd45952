// Writes the operator's guide: docs/guide/*.md says in words what the tables of the programs cannot, and everything
// that the tables know comes from them. A command, a parameter type or a question that the words leave out, or that is
// none any more, fails the generation; with --check a guide that differs from the one kept fails too.
//
//     guide_generator GUIDE-FOLDER           writes the guide to standard output
//     guide_generator --check GUIDE-FOLDER GUIDE
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>

#include "guide_facts.h"
#include "guide_source.h"

namespace {
struct ChapterFile {
    const char* name;
    enum Numbers { kNone, kCommands, kParameters, kMessages } numbers;
};
constexpr ChapterFile kChapters[] = {
    {"introduction", ChapterFile::kNone}, {"keys", ChapterFile::kNone},
    {"sessions", ChapterFile::kCommands}, {"saving", ChapterFile::kCommands},
    {"system", ChapterFile::kCommands},   {"access", ChapterFile::kCommands},
    {"time", ChapterFile::kCommands},     {"interfaces", ChapterFile::kCommands},
    {"routes", ChapterFile::kCommands},   {"dhcp", ChapterFile::kCommands},
    {"nat", ChapterFile::kCommands},      {"ip-filter", ChapterFile::kCommands},
    {"wireless", ChapterFile::kCommands}, {"snmp", ChapterFile::kCommands},
    {"log", ChapterFile::kCommands},      {"engineering", ChapterFile::kCommands},
    {"index", ChapterFile::kNone},        {"parameters", ChapterFile::kParameters},
    {"settings", ChapterFile::kNone},     {"messages", ChapterFile::kMessages},
};

// Every number once, and no other.
class Expected {
public:
    Expected(const char* what, std::vector<unsigned> numbers) : what_(what), numbers_(std::move(numbers)) {}

    void take(unsigned number, const std::string& where)
    {
        const auto found = std::ranges::find(numbers_, number);
        if (found == numbers_.end())
            fail(where,
                 std::string("there is no ") + what_ + " " + std::to_string(number) + ", or it stands here twice");
        numbers_.erase(found);
    }
    void none_left() const
    {
        std::string left;
        for (const unsigned number : numbers_) left += " " + std::to_string(number);
        if (!left.empty()) fail("docs/guide", std::string("no text for ") + what_ + left);
    }

private:
    const char* what_;
    std::vector<unsigned> numbers_;
};

struct Guide {
    Expected commands{"command", command_numbers()};
    Expected parameters{"parameter type", parameter_numbers()};
    std::string contents, text;
    std::vector<std::string> headings;  // of commands; links go by them
    std::vector<std::string> index;     // a row of the index for each spelling

    std::string here;                          // a link to the heading under way
    std::map<unsigned, std::string> mentions;  // of messages: links to where they are told of
};

unsigned to_number(const std::string& word) { return static_cast<unsigned>(std::strtoul(word.c_str(), nullptr, 10)); }

// The anchor that a heading gets from those who show Markdown.
std::string anchor_of(const std::string& heading)
{
    std::string anchor;
    for (const char c : heading) {
        if (c == ' ') anchor += '-';
        if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_') anchor += c;
        if (c >= 'A' && c <= 'Z') anchor += static_cast<char>(c - 'A' + 'a');
    }
    return anchor;
}

void mention(unsigned number, Guide& guide)
{
    std::string& links = guide.mentions[number];
    if (links.find(guide.here) == links.npos) links += (links.empty() ? "" : ", ") + guide.here;
}

std::string link_to(const std::string& heading, const std::string& quote = "")
{
    return "[" + quote + heading + quote + "](#" + anchor_of(heading) + ")";
}

// {message N}, {service STATUS GROUP}, {facilities}, {zones}: what the tables say, in the middle of a line.
std::string fact(const std::string& name, const std::string& where, Guide& guide)
{
    const std::vector<std::string> words = split(name, " ");
    std::string text;
    if (words[0] == "message" && words.size() == 2) {
        text = message(to_number(words[1]));
        mention(to_number(words[1]), guide);
    }
    if (words[0] == "service" && words.size() == 3) text = service_text(to_number(words[1]), to_number(words[2]));
    if (!text.empty()) return "`" + text + "`";
    if (name == "facilities") return facility_list();
    if (name == "zones") return zone_list();
    fail(where, "no fact \"" + name + "\"");
}

std::string with_facts(const std::string& line, const std::string& where, Guide& guide)
{
    std::string out;
    std::size_t begin = 0;
    for (std::size_t open; (open = line.find("{", begin)) != line.npos;) {
        const std::size_t close = line.find('}', open);
        if (close == line.npos) fail(where, "a brace without its other: " + line);
        out += line.substr(begin, open - begin) + fact(line.substr(open + 1, close - open - 1), where, guide);
        begin = close + 1;
    }
    return out + line.substr(begin);
}

// "? TABLE INDEX | what it shows | what it takes"
std::string question_row(const std::string& line, const std::string& where, Guide& guide)
{
    const std::vector<std::string> parts = split(line.substr(2), " |");
    const std::vector<std::string> place = split(parts[0], " ");
    const std::string text = place.size() == 2 ? question(place[0], to_number(place[1])) : "";
    if (text.empty() || parts.size() != 3) fail(where, "no question: " + line);
    return "| `" + trimmed(text) + "` | " + with_facts(trimmed(parts[1]), where, guide) + " | " +
           with_facts(trimmed(parts[2]), where, guide) + " |\n";
}

// Lines of running text; the others stand as they are.
bool is_prose(const std::string& line)
{
    return !line.empty() && line.find_first_of("|#-? ") != 0 && !line.ends_with("  ");
}

// A paragraph in lines of a page's width. A word that would begin a list there stays on its line.
std::string wrapped(const std::string& paragraph)
{
    constexpr std::size_t kWidth = 120;
    std::string out, line;
    for (const std::string& word : split(paragraph, " ")) {
        const bool isMark = word == "-" || word == "*" || word == "+" || (word.ends_with(".") && to_number(word) != 0);
        if (!line.empty() && line.size() + 1 + word.size() > kWidth && !isMark) {
            out += line + "\n";
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
    }
    return out + line + "\n";
}

void write_lines(const Passage& passage, Guide& guide)
{
    bool inTable = false;
    std::string paragraph;
    const auto end_paragraph = [&] {
        if (!paragraph.empty()) guide.text += wrapped(with_facts(paragraph, passage.where, guide));
        paragraph.clear();
    };
    for (const std::string& line : passage.lines) {
        const bool isQuestion = line.starts_with("? ");
        if (is_prose(line)) {
            paragraph += (paragraph.empty() ? "" : " ") + line;
            inTable = false;
            continue;
        }
        end_paragraph();
        if (isQuestion && !inTable) guide.text += "| Question | Shows | Takes |\n|---|---|---|\n";
        inTable = isQuestion;
        guide.text +=
            isQuestion ? question_row(line, passage.where, guide) : with_facts(line, passage.where, guide) + "\n";
    }
    end_paragraph();
}

// The prose of a passage, without the empty lines round it.
void write_prose(Passage passage, Guide& guide)
{
    const auto hasText = [](const std::string& line) { return !line.empty(); };
    const auto first = std::ranges::find_if(passage.lines, hasText);
    passage.lines.erase(passage.lines.begin(), first);
    while (!passage.lines.empty() && passage.lines.back().empty()) passage.lines.pop_back();
    if (passage.lines.empty() && passage.numbers.empty()) return;
    if (passage.lines.empty()) fail(passage.where, "says nothing");
    write_lines(passage, guide);
    guide.text += "\n";
}

void write_commands(const Passage& passage, Guide& guide)
{
    std::vector<std::string> names;
    std::string heading, lines, refusal;
    for (const unsigned number : passage.numbers) {
        guide.commands.take(number, passage.where);
        if (std::ranges::find(names, keywords(number)) == names.end()) names.push_back(keywords(number));
        refusal = why_not_carried_out(number);
    }
    for (const std::string& name : names) heading += (heading.empty() ? "" : ", ") + name;
    if (std::ranges::find(guide.headings, heading) != guide.headings.end())
        fail(passage.where, "a second passage about " + heading);
    guide.headings.push_back(heading);
    guide.here = link_to(heading);
    for (const unsigned number : passage.numbers) {
        if (why_not_carried_out(number) != refusal)
            fail(passage.where, "some of these are carried out and some are not");
        const std::vector<std::string> whole = spellings(number), shortest = shortest_spellings(number);
        for (std::size_t i = 0; i < whole.size(); ++i) {
            lines += "    " + whole[i] + "\n";
            guide.index.push_back("| [`" + whole[i] + "`](#" + anchor_of(heading) + ") | `" + shortest[i] + "` |\n");
        }
    }
    guide.text += "### " + heading + "\n\n" + lines + "\n";
    if (!refusal.empty()) guide.text += "Not carried out on this device: the console answers `" + refusal + "`.\n\n";
    write_prose(passage, guide);
}

// "takes: a, b" and "refuses: c": asked of the parser itself.
std::string examples(const std::string& line, unsigned type, const std::string& where, Guide& guide)
{
    const bool takes = line.starts_with("takes: ");
    std::string out = takes ? "Accepted: " : "Refused: ", refusal;
    const std::vector<std::string> texts = split(line.substr(line.find(' ') + 1), ", ");
    for (const std::string& text : texts) {
        const unsigned number = parameter_refusal(type, text, refusal);
        if ((number == 0) != takes) fail(where, "the parser thinks otherwise of " + text);
        if (number != 0) mention(number, guide);
        out += "`" + text + "`" + (&text == &texts.back() ? "" : ", ");
    }
    return out + (takes ? "." : ", with `" + refusal + "`.");
}

void write_parameter(Passage passage, Guide& guide)
{
    guide.parameters.take(passage.numbers[0], passage.where);
    const std::string help = parameter_help(passage.numbers[0]);
    guide.here = link_to(help, "`");
    guide.text += "### `" + help + "`\n\n";
    for (std::string& line : passage.lines)
        if (line.starts_with("takes: ") || line.starts_with("refuses: "))
            line = examples(line, passage.numbers[0], passage.where, guide) + "  ";
    write_prose(passage, guide);
}

// Those that are told of somewhere, and those that only keep their number.
void write_messages(const std::map<unsigned, std::string>& meanings, Guide& guide)
{
    std::string others;
    guide.text += "| Number | Severity | Text | What it means | See |\n|---|---|---|---|---|\n";
    for (unsigned number = 0; !message(number).empty(); ++number) {
        const bool isTold = guide.mentions.contains(number) || meanings.contains(number);
        const std::string meaning = isTold && meanings.contains(number) ? trimmed(meanings.at(number)) : "";
        if (isTold)
            guide.text += message_row(number) + " " + meaning + " | " + guide.mentions[number] + " |\n";
        else
            others += message_row(number) + "\n";
    }
    guide.text += "\n### Messages that no command of this device shows\n\nThey keep their numbers.\n\n"
                  "| Number | Severity | Text |\n|---|---|---|\n" +
                  others + "\n### What the service refuses\n\n" + service_text_table();
}

void write_chapter(const ChapterFile& file, const std::string& folder, Guide& guide)
{
    const Chapter chapter = read_chapter(folder + "/" + file.name + ".md");
    guide.here = link_to(chapter.title);
    guide.contents += "- " + guide.here + "\n";
    guide.text += "## " + chapter.title + "\n\n";
    std::map<unsigned, std::string> meanings;
    for (const Passage& passage : chapter.passages) {
        if (!passage.numbers.empty() && file.numbers == ChapterFile::kNone) fail(passage.where, "no numbers here");
        if (passage.numbers.empty())
            write_prose(passage, guide);
        else if (file.numbers == ChapterFile::kCommands)
            write_commands(passage, guide);
        else if (file.numbers == ChapterFile::kParameters)
            write_parameter(passage, guide);
        for (const unsigned number : passage.numbers) {
            if (file.numbers != ChapterFile::kMessages) break;
            if (message(number).empty() || meanings.contains(number)) fail(passage.where, "no such message, or twice");
            for (const std::string& line : passage.lines) meanings[number] += line + " ";
        }
    }
    if (!std::strcmp(file.name, "index")) {
        std::ranges::sort(guide.index);
        guide.text += "| Command | Shortest |\n|---|---|\n";
        for (const std::string& row : guide.index) guide.text += row;
    }
    if (!std::strcmp(file.name, "settings")) guide.text += settings_table();
    if (file.numbers == ChapterFile::kMessages) write_messages(meanings, guide);
    guide.text += guide.text.ends_with("\n\n") ? "" : "\n";
}

std::string write_guide(const std::string& folder)
{
    Guide guide;
    for (const ChapterFile& file : kChapters) write_chapter(file, folder, guide);
    guide.commands.none_left();
    guide.parameters.none_left();
    for (const auto& file : std::filesystem::directory_iterator(folder))
        if (std::ranges::none_of(kChapters, [&](const ChapterFile& each) { return file.path().stem() == each.name; }))
            fail(file.path(), "is no chapter of the guide");
    while (guide.text.ends_with("\n\n")) guide.text.pop_back();
    return "<!-- Written by script/guide from docs/guide/ and the programs' tables; changes go there. -->\n"
           "# Operator's guide\n\n" +
           guide.contents + "\n" + guide.text;
}

int check(const std::string& guide, const std::string& path)
{
    if (read_file(path) == guide) return EXIT_SUCCESS;
    std::fprintf(stderr, "%s is not what script/guide would write now\n", path.c_str());
    return EXIT_FAILURE;
}
}  // namespace

int main(int count, char** words)
{
    if (count == 4 && std::strcmp(words[1], "--check") == 0) return check(write_guide(words[2]), words[3]);
    if (count != 2) fail("usage", "guide_generator [--check] GUIDE-FOLDER [GUIDE]");
    std::fputs(write_guide(words[1]).c_str(), stdout);
    return std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
