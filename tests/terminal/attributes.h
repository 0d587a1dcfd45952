// Compares a line's attributes with those it had before the console took it over.
#pragma once

#include <gtest/gtest.h>
#include <termios.h>

inline testing::AssertionResult same_attributes(const termios& now, const termios& found)
{
    if (now.c_iflag != found.c_iflag) return testing::AssertionFailure() << "input modes";
    if (now.c_oflag != found.c_oflag) return testing::AssertionFailure() << "output modes";
    if (now.c_cflag != found.c_cflag) return testing::AssertionFailure() << "control modes";
    if (now.c_lflag != found.c_lflag) return testing::AssertionFailure() << "local modes";
    for (unsigned key = 0; key < NCCS; ++key)
        if (now.c_cc[key] != found.c_cc[key])
            return testing::AssertionFailure() << "control character " << key << " is " << int{now.c_cc[key]}
                                               << " and was " << int{found.c_cc[key]};
    return testing::AssertionSuccess();
}
