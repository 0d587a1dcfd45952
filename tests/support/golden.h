// A text that is kept beside the tests, so that a change of it is seen in review. After a change that is meant:
//
//     ROUTER_WRITE_GOLDEN=1 script/test -R NAME-OF-THE-TEST
#pragma once

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

inline void expect_golden(const char* file, const std::string& text)
{
    const std::string path = std::string(ROUTER_GOLDEN_FOLDER "/") + file;
    if (std::getenv("ROUTER_WRITE_GOLDEN")) std::ofstream(path) << text;
    std::ifstream kept(path);
    EXPECT_EQ((std::string{std::istreambuf_iterator<char>(kept), {}}), text) << path << " does not hold what is so now";
}
