// One row of a parser's table, and what must hold for it: the message, the word, and a vector left alone by a refusal.
#pragma once

#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>

#include "console/messages.h"
#include "values/parm_list.h"

// The text in memory of exactly its size: a parser that looks behind its end is caught.
struct TypedText {
    std::unique_ptr<char[]> memory;
    explicit TypedText(const char* text) : memory(new char[std::strlen(text) + 1])
    {
        std::memcpy(memory.get(), text, std::strlen(text) + 1);
    }
    operator char*() const { return memory.get(); }
};

struct ParserCase {
    const char* name;
    Parser parser;
    const char* text;
    std::uint32_t message;
    std::int32_t value = 0;
};

class ParserTest : public testing::TestWithParam<ParserCase> {
protected:
    void appends_or_refuses() const
    {
        const auto& [name, parser, text, message, value] = GetParam();
        ParmList words{};
        words.count = 2;
        EXPECT_EQ(parser(TypedText(text), words), message);
        EXPECT_EQ(words.count, message == kOk ? 3u : 2u);
        EXPECT_EQ(static_cast<std::int32_t>(words.value[2]), value);
        EXPECT_EQ(words.value[3], 0u);
    }
};

inline constexpr auto kCaseName = [](const auto& info) { return info.param.name; };
