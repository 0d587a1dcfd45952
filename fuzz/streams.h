// Standard streams of the code under test, while it runs.
#pragma once

#include <cstdint>
#include <cstdio>
#include <span>

// What is printed or logged goes nowhere while this lives.
class Silence {
public:
    Silence();
    ~Silence();
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    std::FILE *output_, *errors_;
};

// Standard input has these bytes and then ends.
class Input {
public:
    explicit Input(std::span<const std::uint8_t> bytes);
    ~Input();
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

private:
    int kept_;  // standard input as found
};
