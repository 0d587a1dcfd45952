#include "cli/line_model.h"

#include <algorithm>
#include <strings.h>
#include <utility>

#include "cli/line_edit.h"
#include "cli/shortest_words.h"

namespace {
constexpr std::size_t kLongestLine = 120, kLongestWord = 79, kRecallable = 15;

bool inside_quotes(const std::string& word) { return word.starts_with('"') && word.find('"', 1) == word.npos; }

const std::string& text_of(Token keyword)
{
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> all(kKeywordEnd);
        for (const CliKeywordRow& row : keyword_rows::kRows)
            if (row.id < kKeywordEnd) all[row.id] = row.text;
        return all;
    }();
    return texts[number_of(keyword)];
}

// A quoted word goes to its closing quote, which is added where it is missing; every other one to a blank.
std::vector<std::string> split(const std::string& text)
{
    std::vector<std::string> words;
    for (std::size_t at = 0; (at = text.find_first_not_of(' ', at)) != text.npos;) {
        const bool quoted = text[at] == '"';
        const std::size_t end = std::min(text.find(quoted ? '"' : ' ', at + quoted), text.size());
        words.push_back(text.substr(at, end - at) + (quoted ? "\"" : ""));
        at = std::min(end + 1, text.size());
    }
    return words;
}

std::size_t longest_word(const std::string& text)
{
    std::size_t longest = 0;
    for (const std::string& word : split(text)) longest = std::max(longest, word.size());
    return longest;
}

bool parser_takes(Token type, const std::string& text)
{
    char word[kWordCapacity + 1]{};
    text.copy(word, kWordCapacity);
    ParmList values{};
    return CliGetParserFunc(number_of(type))(word, values) == 0;
}
}  // namespace

LineModel::Rows LineModel::candidates() const
{
    Rows rows;
    for (const CliCmdRow* row = gCliCmdTable.data(); row->cmdId != kCommandEnd; ++row) {
        std::size_t same = 0;
        while (same < accepted_.size() && row->tokens[same] == accepted_[same].token) ++same;
        if (same == accepted_.size()) rows.push_back(row);
    }
    return rows;
}

std::vector<Token> LineModel::keywords(std::string_view beginning) const
{
    std::vector<Token> found;
    for (const CliCmdRow* row : candidates())
        if (const Token token = at_place(*row); is_word(token) && std::ranges::find(found, token) == found.end())
            if (strncasecmp(text_of(token).c_str(), beginning.data(), beginning.size()) == 0) found.push_back(token);
    return found;
}

LineModel::Recognised LineModel::recognise(const std::string& text) const
{
    const std::vector<Token> fitting = keywords(text);
    for (const Token each : fitting)
        if (fitting.size() == 1 || text_of(each).size() == text.size()) return {Recognised::taken, each};
    if (!fitting.empty()) return {Recognised::ambiguous};

    std::vector<Token> types;
    for (const CliCmdRow* row : candidates())
        if (at_place(*row) > Token::kwEnd) types.push_back(at_place(*row));
    if (types.size() > 2) types = {types.front(), types.back()};
    for (const Token each : types)
        if (parser_takes(each, text)) return {Recognised::taken, each};
    return {};
}

bool LineModel::nothing_may_follow() const
{
    return std::ranges::all_of(candidates(), [this](auto* row) { return at_place(*row) == Token::none; });
}

void LineModel::clear()
{
    accepted_.clear();
    word_.clear();
    line.clear();
    drop_word();
    cursor = 0;
}

LineModel::Ran LineModel::press(int key)
{
    if (key == key::kEnter) return enter();
    if (key == key::kCtrlE) return {};
    if (smart) {
        press_smart(key);
    } else if (key == key::kCtrlX) {
        smart = true;
        parse(line, true);
    } else {
        press_normal(key);
    }
    return {};
}

void LineModel::press_smart(int key)
{
    switch (key) {
    case key::kTab: return complete();
    case key::kBackspace: return backspace();
    case key::kCtrlL: return clear();
    case key::kUp: return offer(-1);
    case key::kDown: return offer(1);
    case key::kCtrlP:
    case key::kCtrlN:
        if (recall(key)) parse(line, true);
        return;
    }
    if (key == ' ' && !inside_quotes(word_)) return end_word();
    if (key == '?' && !inside_quotes(word_)) return;
    if (key >= ' ' && key <= '~') append(static_cast<char>(key));
}

void LineModel::append(char c)
{
    if (line.size() == kLongestLine || word_.size() == kLongestWord) return;
    word_ += c;
    line += c;
}

// The word is recognised: a keyword stands in full, and a blank behind it.
void LineModel::accept(Token token)
{
    const std::string missing = is_word(token) ? text_of(token).substr(word_.size()) : "";
    if (line.size() + missing.size() + 1 > kLongestLine) return;
    line += missing + ' ';
    accepted_.push_back({word_ + missing, token});
    word_.clear();
    drop_word();
}

void LineModel::end_word()
{
    if (word_.empty()) {
        if (line.size() < kLongestLine) line += ' ';
        return;
    }
    const Recognised word = recognise(word_);
    if (word.as == Recognised::taken) return accept(word.token);
    if (word.as == Recognised::refused) drop_word();
}

void LineModel::complete()
{
    if (word_.empty() || keywords("").empty()) return offer(1);
    if (const auto fitting = keywords(word_); fitting.size() == 1) accept(fitting[0]);
}

// The nearest candidate, from where the last offer came, with another keyword than the one that was offered.
void LineModel::offer(int direction)
{
    const Rows rows = candidates();
    for (std::size_t i = selected_; i < rows.size(); i += static_cast<std::size_t>(direction)) {
        const Token token = at_place(*rows[i]);
        if (!is_word(token) || token == offered_) continue;
        const std::string keyword = text_of(token);
        if (line.size() - word_.size() + keyword.size() > kLongestLine && keyword.size() > word_.size()) return;
        drop_word();
        line += word_ = keyword;
        offered_ = token;
        selected_ = i;
        return;
    }
}

void LineModel::backspace()
{
    if (line.empty()) return;
    const bool behindBlank = word_.empty() && line.ends_with(' ');
    if (word_.empty() && !line.ends_with("  ") && !accepted_.empty()) {
        word_ = accepted_.back().text;
        offered_ = accepted_.back().token;
        accepted_.pop_back();
    }
    if (!behindBlank && !word_.empty()) word_.pop_back();
    line.pop_back();
    selected_ = 0;
    if (!is_word(offered_) || word_.size() < text_of(offered_).size()) offered_ = Token::none;
}

void LineModel::drop_word()
{
    line.resize(line.size() - word_.size());
    word_.clear();
    offered_ = Token::none;
    selected_ = 0;
}

// Word by word up to the first that is refused. From the history the words come back with one blank behind each, and
// that word stays as the one being typed.
void LineModel::parse(const std::string& text, bool fromHistory)
{
    const std::vector<std::string> words = split(text);
    clear();
    for (const std::string& each : words) {
        word_ = each.substr(0, kLongestWord);
        line += word_;
        const Recognised word = recognise(word_);
        if (each.size() > kLongestWord || nothing_may_follow() || word.as != Recognised::taken) return;
        accepted_.push_back({std::exchange(word_, ""), word.token});
        if (fromHistory && line.size() < kLongestLine) line += ' ';
    }
}

LineModel::Ran LineModel::enter()
{
    if (!line.empty()) {
        history_.push_back(line);
        if (history_.size() > kRecallable) history_.pop_front();
        browse_ = history_.size();
    }
    if (!smart) parse(std::string(line), false);
    Ran ran;
    if (smart && !word_.empty() && !nothing_may_follow()) {
        if (const Recognised word = recognise(word_); word.as == Recognised::taken) {
            LineModel behind = *this;
            behind.accepted_.push_back({word_, word.token});
            ran = behind.finish();
        }
    } else if (word_.empty()) {
        ran = finish();
    }
    if (!smart || ran.cmdId != 0 || line.find_first_not_of(' ') == line.npos) clear();
    return ran;
}

// What the accepted words are the whole of.
LineModel::Ran LineModel::finish() const
{
    if (accepted_.empty()) return {};
    for (const CliCmdRow* row : candidates())
        if (at_place(*row) == Token::none) return {row->cmdId, accepted_};
    return {};
}

bool LineModel::recall(int key)
{
    if (key == key::kCtrlP ? history_.empty() : browse_ == history_.size()) return false;
    browse_ = key == key::kCtrlP ? browse_ - (browse_ > 0) : browse_ + 1;
    line = browse_ < history_.size() ? history_[browse_] : "";
    cursor = line.size();
    return true;
}

void LineModel::press_normal(int key)
{
    if (key == key::kCtrlP || key == key::kCtrlN) return static_cast<void>(recall(key));
    cursor = std::min(cursor, line.size());
    switch (key) {
    case key::kBackspace:
        if (cursor > 0) line.erase(--cursor, 1);
        return;
    case key::kDelete:
        if (cursor < line.size()) line.erase(cursor, 1);
        return;
    case key::kCtrlW:
        while (!line.empty() && line.back() != ' ') line.pop_back();
        return;
    case key::kCtrlL: return clear();
    case key::kLeft: cursor -= cursor > 0; return;
    case key::kRight: cursor += cursor < line.size(); return;
    case key::kHome: cursor = 0; return;
    case key::kEnd: cursor = line.size(); return;
    }
    if (key < ' ' || key > '~' || line.size() == kLongestLine) return;
    std::string grown = line;
    grown.insert(cursor, 1, static_cast<char>(key));
    if (grown.size() >= kLongestWord && longest_word(grown) > std::max(kLongestWord, longest_word(line))) return;
    line = grown;
    ++cursor;
}
