// A logged-in session without a terminal or handlers: keys in, what it writes out. Every command of its dispatch table
// runs one action, which a test can replace; logout and the routing commands (119 to 130) have none, as in the product.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "cli/edit_context.h"
#include "console/session.h"

class TypingSession {
public:
    explicit TypingSession(std::uint32_t editMode = kSmartEdit);
    ~TypingSession();

    std::string type(std::string_view keys);  // named as in typed_keys.h; returns what they wrote
    std::string press(int key);
    std::string line() const { return {edit.line.text, static_cast<std::size_t>(edit.line.length)}; }

    EditContext edit{};
    Session slot{};
    std::function<void(ActionBlock& call)> action;  // called when a command runs
    bool loggedOut = false;
};
