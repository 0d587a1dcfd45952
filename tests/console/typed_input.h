// A session whose keys come from a text instead of a terminal, and the capture of what it prints.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "console/session.h"

// What reached the command line and the dialogues in place of their editors.
struct Reached {
    int key;
    bool dialogue;
    bool operator==(const Reached&) const = default;
};
extern std::vector<Reached> reached;

// Slot 0 is logged in when a test begins.
class TypedInput : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // The keys become the whole of standard input, which ends behind them.
    static void type(std::string_view keys);

    // Serves keys until they end; what that printed. `passes` counts the passes that found the session still open.
    std::string serve();

    Session& slot = session[0];
    int passes = 0;

private:
    int input_ = -1;  // standard input as found
};
