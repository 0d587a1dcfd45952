// What tests and converts the answers of a dialogue: like the parsers of command parameters, an appending validator
// adds one word to the vector and returns 0, or returns the number of the message that refuses and leaves the count
// alone. Several ranges are not the ones that their questions and messages name; that is on purpose.
#pragma once

#include <cstddef>
#include <cstdint>

#include "values/parm_list.h"
#include "values/selection.h"

// The value of the first of `count` texts that the answer, leading blanks aside, begins in either case; an answer
// shorter than `minLength` begins none. A failure is above kLastSelection.
std::uint32_t find_sel(const char* text, const char* const* texts, const std::uint32_t* values, std::size_t count,
                       std::size_t minLength);

// Numbers.
std::uint32_t parse_radius_port(char* text, ParmList& words);
std::uint32_t parse_private_port_num(char* text, ParmList& words);
std::uint32_t parse_channel_fcc(char* text, ParmList& words);
std::uint32_t parse_channel_etsi_spain(char* text, ParmList& words);
std::uint32_t parse_channel_telec(char* text, ParmList& words);
std::uint32_t parse_channel_france(char* text, ParmList& words);
std::uint32_t parse_key_activate(char* text, ParmList& words);
std::uint32_t parse_rts_cts_threshold(char* text, ParmList& words);
std::uint32_t parse_fragment_threshold(char* text, ParmList& words);
std::uint32_t parse_beacon_int(char* text, ParmList& words);
std::uint32_t parse_dtim_int(char* text, ParmList& words);
std::uint32_t parse_wepkey_length(char* text, ParmList& words);  // appends the key's bytes: 5 or 13

// Selections.
std::uint32_t parse_yesno(char* text, ParmList& words);            // 1 or 0
std::uint32_t parse_wlan_reg_domain(char* text, ParmList& words);  // wireless_record::Domain

std::uint32_t parse_timezone(char* text, ParmList& words);  // signed minutes east of UTC, as a signed-extended word
std::uint32_t parse_ip_addr(char* text, ParmList& words);   // host order

// Texts of a known length; nothing is appended.
std::uint32_t parse_domainname(const char* text, std::size_t length);
std::uint32_t parse_ddns_hostname(const char* text, std::size_t length);

// A key of up to `octets` hexadecimal octets with dashes between them. Returns 0, the octets that the text does not
// reach left as they were; or 1, all of them cleared.
int parse_hex_wepkey(const char* text, unsigned char* key, unsigned octets);
