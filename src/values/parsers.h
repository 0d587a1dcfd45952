// The parsers of the command parameters, one for each parameter type of the command language, and the scanners they
// are built on. A parser never prints: it appends what its text means and returns 0, or returns the number of the
// message that says why not and leaves the count of the vector as it was.
#pragma once

#include <cstdint>

#include "values/parm_list.h"

// Texts: one word, the address of the parameter's own text, which loses its quotes in place. Refusing a text that is
// too long or badly quoted, they patch kStringRule so that its next print names their limit.
std::uint32_t CliParseString15(char* text, ParmList& words);
std::uint32_t CliParseString30(char* text, ParmList& words);
std::uint32_t CliParseString60(char* text, ParmList& words);
std::uint32_t CliParseString63(char* text, ParmList& words);
std::uint32_t CliParsePrompt(char* text, ParmList& words);
std::uint32_t CliParsePortName(char* text, ParmList& words);
std::uint32_t CliParseInterfaceName(char* text, ParmList& words);
std::uint32_t CliParseProfileName(char* text, ParmList& words);
std::uint32_t CliParseName30(char* text, ParmList& words);
std::uint32_t CliParseGatewayOrIfName(char* text, ParmList& words);
std::uint32_t CliParseName60(char* text, ParmList& words);
std::uint32_t CliParseLocationInfo(char* text, ParmList& words);
std::uint32_t CliParseFacility(char* text, ParmList& words);      // any text; logNameToFacility knows the names
std::uint32_t CliParseMacEapOrBoth(char* text, ParmList& words);  // of no parameter type of its own

// Numbers: one word.
std::uint32_t CliParseDecInt(char* text, ParmList& words);
std::uint32_t CliParseTCPUDPPort(char* text, ParmList& words);
std::uint32_t CliParseTimeout(char* text, ParmList& words);
std::uint32_t CliParseReattempt(char* text, ParmList& words);
std::uint32_t CliParseRetry(char* text, ParmList& words);
std::uint32_t CliParsePingRequest(char* text, ParmList& words);
std::uint32_t CliParsePingSize(char* text, ParmList& words);
std::uint32_t CliParseLogLevel(char* text, ParmList& words);

// Selections: one word, the value that stands for the chosen text.
std::uint32_t CliParseMACFilterMode(char* text, ParmList& words);
std::uint32_t CliParseOperationalMode(char* text, ParmList& words);
std::uint32_t CliParseRadioName(char* text, ParmList& words);       // of no parameter type of its own
std::uint32_t CliParseRadioOrLanName(char* text, ParmList& words);  // of no parameter type of its own

// Addresses: an IPv4 address is one word in host order; a MAC address is six bytes from the first byte of its first
// word, and takes two words.
std::uint32_t CliParseIPAddress(char* text, ParmList& words);
std::uint32_t CliParseDestIP(char* text, ParmList& words);
std::uint32_t CliParseDestNetmask(char* text, ParmList& words);
std::uint32_t CliParseGatewayAddress(char* text, ParmList& words);
std::uint32_t CliParseMACAddress(char* text, ParmList& words);

// Dates and times: packed BCD in the first three bytes of one word. A time (hours, minutes, seconds) takes that word;
// a date (month, day, year) takes three, one for each of its fields, though it fills only the first. A time zone is
// one word, the signed minutes east of UTC.
std::uint32_t CliParseDate(char* text, ParmList& words);
std::uint32_t CliParseTime(char* text, ParmList& words);
std::uint32_t CliParseTimezone(char* text, ParmList& words);
