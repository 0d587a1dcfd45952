// The real console on a real terminal line of its own, driven like an operator drives it:
//
//     Terminal t;
//     t.log_in();
//     t.type("show system\n");
//     EXPECT_EQ(t.until("Command> "), screen);
//
// Whatever is waited for has a deadline; a wait that fails throws and says what was seen instead.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <termios.h>
#include <vector>

#include "support/process.h"
#include "support/screen.h"

struct TerminalOptions {
    std::vector<std::string> arguments{};  // of the console program
    std::vector<std::string> command{};    // in its place; "LINE" in a word becomes the line's name below /dev
    std::function<void(std::string_view)> output{};  // sees all that is printed, as it comes
    unsigned short rows = 24, columns = 80;
    bool controlling = true;  // false: losing the line is an end of input, without a hang-up signal
};

class Terminal {
public:
    explicit Terminal(const TerminalOptions& options = {});
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    void log_in(const char* password = "admin");  // up to the first prompt
    std::string until_password_asked();           // and until the console reads keys one by one

    void type(std::string_view keys);   // as a keyboard sends them: Enter, "\n" here, is a carriage return
    void send(std::string_view bytes);  // as they are; reads what comes meanwhile, so that it never blocks for good

    // As a line of this speed brings them: what is due is sent whether or not anything is read at the other end.
    void send_paced(std::string_view bytes, int bytesPerSecond);

    // Everything printed since the last `until`, up to and with `text`, without carriage returns.
    std::string until(std::string_view text, Milliseconds limit = kPatience);
    // Waits until exactly `text` stands on the cursor's row, blanks behind it aside.
    void until_line(std::string_view text, Milliseconds limit = kPatience);
    const Screen& screen() const { return screen_; }

    void resize(unsigned short rows, unsigned short columns);
    termios attributes() const;                      // as the line has them now
    const termios& found() const { return found_; }  // as the console found them
    void hang_up();                                  // the other end of the line goes away
    Process& process() { return process_; }
    std::optional<int> wait_exit(Milliseconds limit = kPatience);  // reads on until the program has ended

private:
    bool read_some(const Deadline& deadline);  // false: nothing more will come, or not in time
    [[noreturn]] void give_up(std::string_view what);

    int line_ = -1;   // the operator's end
    int other_ = -1;  // the console's end, kept open so that its attributes outlive the program
    termios found_{};
    std::string unread_;
    Screen screen_;
    std::function<void(std::string_view)> output_;
    Process process_;
};
