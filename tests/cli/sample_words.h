// What a parameter of each type may look like on a line.
#pragma once

#include <map>
#include <string>

#include "cli/token.h"

inline std::string sample_word(Token type)
{
    using enum Token;
    static const std::map<Token, std::string> kSamples = {
        {pmString30, "\"a name\""},
        {pmString60, "\"60 characters\""},
        {pmMACAddress, "00-11-22-33-44-55"},
        {pmIPAddress, "192.168.1.2"},
        {pmTCPUDPPort, "8080"},
        {pmTimeout, "10"},
        {pmLogLevel, "7"},
        {pmReattempt, "30"},
        {pmRetry, "5"},
        {pmMACFilterMode, "grant"},
        {pmDestIP, "10.0.0.0"},
        {pmDestNetmask, "255.0.0.0"},
        {pmGatewayAddress, "192.168.1.1"},
        {pmDecInt, "42"},
    };
    const auto found = kSamples.find(type);
    return found == kSamples.end() ? "x1" : found->second;
}
