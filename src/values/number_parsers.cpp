#include "values/parsers.h"
#include "values/range.h"
#include "values/scanners.h"

std::uint32_t parse_range(const char* text, ParmList& words, Range range)
{
    std::uint32_t number;
    if (!parse_dec(&text, &number, 0, range.max, range.min)) return range.refusal;
    append_word(words, number);
    return kOk;
}

// The whole range of 32 signed bits: any digits pass, though the message speaks of 0 - 65535.
std::uint32_t CliParseDecInt(char* text, ParmList& words)
{
    return parse_range(text, words, {.min = 0x80000000, .max = 0x7fffffff, .refusal = kInvalidDecimal});
}

// clang-format off
std::uint32_t CliParseTCPUDPPort (char* t, ParmList& w) { return parse_range(t, w, {  1, 65535, kTcpUdpPortRange}); }
std::uint32_t CliParseTimeout    (char* t, ParmList& w) { return parse_range(t, w, {  1,    60, kSessionTimeoutRange}); }
std::uint32_t CliParseReattempt  (char* t, ParmList& w) { return parse_range(t, w, {  5,    60, kRadiusReattemptRange}); }
std::uint32_t CliParseRetry      (char* t, ParmList& w) { return parse_range(t, w, {  1,     5, kRadiusRetryRange}); }
std::uint32_t CliParsePingRequest(char* t, ParmList& w) { return parse_range(t, w, {  1,   100, kPingRequestRange}); }
std::uint32_t CliParsePingSize   (char* t, ParmList& w) { return parse_range(t, w, { 56,  1932, kPingSizeRange}); }
std::uint32_t CliParseLogLevel   (char* t, ParmList& w) { return parse_range(t, w, {  1,     7, kLogLevelRange}); }
// clang-format on
