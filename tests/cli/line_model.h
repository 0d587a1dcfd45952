// The command line as its rules say it, in the plainest way: strings and the rows of the command table, everything
// found anew at every key. What the editors and the matcher do is held against it.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "cli/token.h"

class LineModel {
public:
    struct Word {
        std::string text;  // as it stands on the line
        Token token;       // what it was recognised as
    };
    struct Ran {
        std::uint32_t cmdId = 0;  // 0: nothing runs
        std::vector<Word> words{};
    };

    Ran press(int key);  // what it makes run; only Enter does
    void clear();

    bool smart = true;
    std::string line;
    std::size_t cursor = 0;  // in normal mode; may stand behind the end after Ctrl-W, which means the end

private:
    using Rows = std::vector<const CliCmdRow*>;
    struct Recognised {
        enum { refused, ambiguous, taken } as = refused;
        Token token = Token::none;
    };

    Rows candidates() const;  // rows that begin with the words accepted so far
    Token at_place(const CliCmdRow& row) const { return row.tokens[accepted_.size()]; }
    std::vector<Token> keywords(std::string_view beginning) const;  // that may stand here
    Recognised recognise(const std::string& text) const;
    bool nothing_may_follow() const;

    void press_smart(int key);
    void press_normal(int key);
    void append(char c);
    void accept(Token token);
    void end_word();
    void complete();
    void offer(int direction);
    void backspace();
    void drop_word();
    void parse(const std::string& text, bool fromHistory);
    Ran enter();
    Ran finish() const;
    bool recall(int key);

    std::vector<Word> accepted_;
    std::string word_;
    Token offered_ = Token::none;  // by Tab, up and down
    std::size_t selected_ = 0;     // the candidate that the offer came from
    std::deque<std::string> history_;
    std::size_t browse_ = 0;
};
