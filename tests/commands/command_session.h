// Commands called as the executor calls them, against a service that keeps records: what a write code sends is what the
// read code of its area then gives back.
#pragma once

#include <gtest/gtest.h>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

#include "commands/service_stand_in.h"
#include "console/session.h"
#include "service/client.h"

class CommandSession : public testing::Test {
protected:
    CommandSession();
    ~CommandSession() override;

    // Both return what was printed. Words are parameters that the command line's parsers have made.
    std::string run(Action command, std::initializer_list<Word> words = {});
    std::string answer(const char* text);
    std::string answers(std::initializer_list<const char*> texts);  // what the last of them printed

    bool asking() const { return call_.stage != 0; }
    std::uint32_t stage() const { return call_.stage; }

    static std::vector<std::uint16_t> codes() { return service_stand_in::codes_sent(); }
    static const ComParam& last_request() { return service_stand_in::requests().back(); }
    // Requests of that code, since the session began.
    static std::size_t sent(std::uint16_t code);

    ComParam& record(std::uint16_t readCode) { return records_[readCode]; }
    void set_table(std::uint16_t readCode, std::string table) { tables_[readCode] = std::move(table); }
    std::map<std::uint16_t, std::uint32_t> exchangeFails;  // by code: what the exchange fails with
    std::map<std::uint16_t, std::uint32_t> refused;        // by code: the status of the answer

private:
    std::uint32_t serve(ComParam& request, std::string& table);

    Action command_ = nullptr;
    ActionBlock call_{};
    std::map<std::uint16_t, ComParam> records_;
    std::map<std::uint16_t, std::string> tables_;
};

// The request as it must have been sent: kind, code, and nothing else yet.
ComParam bare_request(std::uint16_t code);
// But for the words of an attached table, which a request never carries whatever they hold.
testing::AssertionResult same_record(const ComParam& sent, const ComParam& wanted);
