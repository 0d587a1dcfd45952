#include "prompts/validators.h"

#include <algorithm>
#include <cstring>
#include <strings.h>

#include "console/messages.h"
#include "service/fields/wireless_settings.h"
#include "values/parsers.h"
#include "values/range.h"
#include "values/scanners.h"

namespace {
constexpr std::size_t kLongestHostName = 50;

// Half hours that exist: 3:30 on both sides, +5:30 and +9:30.
bool half_hour_allowed(std::uint32_t hours, bool west) { return hours == 3 || (!west && (hours == 5 || hours == 9)); }

template <class Allowed>
std::uint32_t check_host_name(const char* text, std::size_t length, Allowed allowed, Message refusal)
{
    if (length > kLongestHostName) return kLineTooLong;
    return std::all_of(text, text + length, allowed) ? kOk : refusal;
}

bool take_octet(const char*& text, unsigned char& octet)
{
    std::uint32_t value;
    if (!parse_hex(&text, &value, kAnyTerminator) || value > 255) return false;
    octet = static_cast<unsigned char>(value);
    return true;
}

bool scan_key(const char* text, unsigned char* key, unsigned octets)
{
    for (unsigned i = 0; i < octets; ++i) {
        if (!take_octet(text, key[i])) return false;
        if (i + 1 < octets && *text == '-')
            ++text;
        else if (*text)
            return false;
        if (*text == 0) return true;
    }
    return false;
}
}  // namespace

std::uint32_t find_sel(const char* text, const char* const* texts, const std::uint32_t* values, std::size_t count,
                       std::size_t minLength)
{
    while (*text == ' ') ++text;
    const std::size_t length = std::strlen(text);
    if (length < minLength) return kSelectionTooShort;
    for (std::size_t i = 0; i < count; ++i)
        if (strncasecmp(text, texts[i], length) == 0) return values[i];
    return kNoSelection;
}

// clang-format off
// Each range as it is enforced; behind a row the one that its question or message names instead.
std::uint32_t parse_radius_port       (char* t, ParmList& w) { return parse_range(t, w, {  1, 65535, kRadiusPortRange}); }
std::uint32_t parse_channel_fcc       (char* t, ParmList& w) { return parse_range(t, w, {  1,    11, kChannelOutsideDomain}); }
std::uint32_t parse_channel_etsi_spain(char* t, ParmList& w) { return parse_range(t, w, {  1,    13, kChannelOutsideDomain}); }
std::uint32_t parse_channel_telec     (char* t, ParmList& w) { return parse_range(t, w, {  1,    14, kChannelOutsideDomain}); }  // 1-13
std::uint32_t parse_channel_france    (char* t, ParmList& w) { return parse_range(t, w, { 10,    13, kChannelOutsideDomain}); }
std::uint32_t parse_key_activate      (char* t, ParmList& w) { return parse_range(t, w, {  1,     4, kKeyIndexRange}); }
std::uint32_t parse_rts_cts_threshold (char* t, ParmList& w) { return parse_range(t, w, {  0,  2347, kRtsCtsRange}); }   // 256 to 2432
std::uint32_t parse_fragment_threshold(char* t, ParmList& w) { return parse_range(t, w, {256,  2346, kFragmentRange}); }
std::uint32_t parse_beacon_int        (char* t, ParmList& w) { return parse_range(t, w, { 20,  1000, kBeaconRange}); }   // 1 to 1000
std::uint32_t parse_dtim_int          (char* t, ParmList& w) { return parse_range(t, w, {  1,   255, kDtimRange}); }     // 1 to 65535
// clang-format on

// The only port that is compared unsigned.
std::uint32_t parse_private_port_num(char* text, ParmList& words)
{
    const char* at = text;
    std::uint32_t port;
    if (!parse_dec_int(&at, &port, 0, 0xffffffff, 1, true) || port > 65535) return kInvalidPrivatePort;
    append_word(words, port);
    return kOk;
}

// The question offers 152 bits as well; they are refused, on purpose, like every other length.
std::uint32_t parse_wepkey_length(char* text, ParmList& words)
{
    struct Length {
        std::uint32_t bits, keyBytes;
    };
    for (const Length length : {Length{64, 5}, Length{128, 13}}) {
        const char* at = text;
        std::uint32_t bits;
        if (!parse_dec(&at, &bits, 0, length.bits, length.bits)) continue;
        append_word(words, length.keyBytes);
        return kOk;
    }
    return kWepKeyLength;
}

std::uint32_t parse_yesno(char* text, ParmList& words)
{
    static constexpr const char* kTexts[] = {"yes", "no"};
    static constexpr std::uint32_t kValues[] = {1, 0};
    const std::uint32_t value = find_sel(text, kTexts, kValues, 2, 1);
    if (value > kLastSelection) return kYesOrNo;
    append_word(words, value);
    return kOk;
}

std::uint32_t parse_wlan_reg_domain(char* text, ParmList& words)
{
    using namespace wireless_record;
    static constexpr const char* kTexts[] = {"fcc", "etsi", "france", "spain", "japan"};
    static constexpr std::uint32_t kValues[] = {kFcc, kEtsi, kFrance, kSpain, kJapan};
    static_assert(std::size(kTexts) == std::size(kValues));
    const std::uint32_t value = find_sel(text, kTexts, kValues, std::size(kTexts), 2);
    if (value > kLastSelection) return kRegulatoryDomain;
    append_word(words, value);
    return kOk;
}

std::uint32_t parse_timezone(char* text, ParmList& words)
{
    const bool west = *text == '-';
    const char* at = west || *text == '+' ? text + 1 : text;
    std::uint32_t hours, minutes;
    if (!parse_dec(&at, &hours, kAnyTerminator, 12, 0) || *at++ != ':') return kInvalidTimezone;
    if (!parse_dec(&at, &minutes, kAnyTerminator, 30, 0)) return kInvalidTimezone;
    if (minutes != 0 && (minutes != 30 || !half_hour_allowed(hours, west))) return kInvalidTimezone;
    const auto offset = static_cast<std::int32_t>(hours * 60 + minutes);
    append_signed(words, west ? -offset : offset);
    return kOk;
}

std::uint32_t parse_ip_addr(char* text, ParmList& words) { return CliParseIPAddress(text, words); }

std::uint32_t parse_domainname(const char* text, std::size_t length)
{
    return check_host_name(
        text, length, [](char c) { return c > 32 && isPrint(c); }, kTimeServerName);
}

std::uint32_t parse_ddns_hostname(const char* text, std::size_t length)
{
    const auto allowed = [](char c) {
        return isDec(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
    };
    return check_host_name(text, length, allowed, kInvalidCharacter);
}

int parse_hex_wepkey(const char* text, unsigned char* key, unsigned octets)
{
    if (scan_key(text, key, octets)) return 0;
    std::memset(key, 0, octets);
    return 1;
}
