// The one terminal: standard input and output, which the login front end has bound to the operator's line. Nothing is
// interpreted: a caller that wants a new line on a raw terminal writes it. Every writer flushes at once, unless the
// text is being gathered. The terminal number that they take first is accepted for uniformity and not looked at.
#pragma once

#include <cstdio>

// 1 while the attributes as found are kept aside and the line is in raw key mode.
extern int ttyRaw;

int save_tty_info();     // keeps standard input's attributes aside; result of tcgetattr(3)
int restore_tty_info();  // ttyRaw = 0, the kept attributes back; result of tcsetattr(3); async-signal-safe
// Takes away the line's keys that would stop output or become signals (VSTOP, VINTR, VQUIT) by giving them the value
// `disabled` in `attributes`, which the caller writes back. From then on restore_tty_info gives them back as they were
// found, and raw key mode takes them again.
struct termios;
void take_keys(termios& attributes, unsigned char disabled);

int echo_off(std::FILE* stream);      // clears ECHO
int set_keypress(std::FILE* stream);  // clears ICANON; VMIN 1, VTIME 0

// A byte, 0 to 255, or EOF; enters raw key mode first when it is not on, and shows what was written so far.
int get_char(int term);
int put_char(int term, int c);
int prn_msg(int term, const char* text);                                              // bytes written
int Printf(int term, const char* format, ...) __attribute__((format(printf, 2, 3)));  // bytes written

// While one exists the writers gather; its end shows the text, in one write where the buffer holds it. Where further
// keys have come already, as in a paste, what they bring goes out with it: a slow line and a slow processor pay once
// for all that one read gave. Nothing waits with text unseen: show_output comes before a read, a request and a
// program's start.
class GatheredOutput {
public:
    GatheredOutput();
    ~GatheredOutput();
    GatheredOutput(const GatheredOutput&) = delete;
    GatheredOutput& operator=(const GatheredOutput&) = delete;
};
void show_output();

// A text that contains new lines is one write, too. Before anything is written.
void buffer_output();

char* strset(char* s, int c);
char* strnset(char* s, int c, unsigned n);
int strnicmp(const char* a, const char* b, unsigned n);  // case-insensitive, at most n characters
