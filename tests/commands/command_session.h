// Commands called as the executor calls them, against a service that keeps records: what a write code sends is what the
// read code of its area then gives back.
#pragma once

#include <gtest/gtest.h>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

#include "commands/running_action.h"
#include "commands/service_stand_in.h"
#include "console/session.h"
#include "service/client.h"
#include "service/fields/carried_entry.h"
#include "support/fields.h"

using Codes = std::vector<std::uint16_t>;

class CommandSession : public testing::Test {
protected:
    CommandSession();
    ~CommandSession() override;

    // All return what was printed. Words are parameters that the command line's parsers have made.
    std::string run(Action command, std::initializer_list<Word> words = {});
    std::string answer(const std::string& text);
    std::string answers(std::initializer_list<const char*> texts);  // what the last of them printed

    bool asking() const { return call_.stage != 0; }
    std::uint32_t stage() const { return call_.stage; }

    static Codes codes() { return service_stand_in::codes_sent(); }
    static std::size_t sent(std::uint16_t code);  // requests of that code, since the session began
    static ComParam& last_request() { return service_stand_in::requests().back(); }
    // The last request of the wanted one's code is the wanted one.
    static testing::AssertionResult was_sent(const ComParam& wanted);

    // What is read, as it goes out with the write code and these changes.
    template <class... Fields> ComParam rewritten(std::uint16_t read, std::uint16_t write, const Fields&... fields)
    {
        ComParam request = records_[read];
        fill(request, record::kind, record::kRequest, record::code, write, fields...);
        return request;
    }

    ComParam& record(std::uint16_t readCode) { return records_[readCode]; }
    void set_table(std::uint16_t readCode, std::string table) { tables_[readCode] = std::move(table); }
    std::map<std::uint16_t, std::uint32_t> exchangeFails;  // by code: what the exchange fails with
    std::map<std::uint16_t, std::uint32_t> refused;        // by code: the status of the answer

    // What a service does that is not enough described by the above; false: as above.
    virtual bool serve_otherwise(ComParam&) { return false; }

private:
    std::uint32_t serve(ComParam& request, std::string& table);

    Action command_ = nullptr;
    ActionBlock call_{};
    std::map<std::uint16_t, ComParam> records_;
    std::map<std::uint16_t, std::string> tables_;
};

inline Word text(const char* parameter) { return reinterpret_cast<Word>(parameter); }
// A request that carries an entry and nothing else.
ComParam carrying(std::uint16_t code, const std::string& entry);
// But for the words of an attached table, which a request never carries whatever they hold.
testing::AssertionResult same_record(const ComParam& sent, const ComParam& wanted);

inline std::string refusal(const std::string& text, const std::string& question = "")
{
    return " Error: " + text + "\a\n" + question;
}
