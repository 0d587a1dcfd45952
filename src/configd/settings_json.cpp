#include "configd/settings_json.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cstdio>
#include <cstring>
#include <string>

namespace {
constexpr std::size_t kMacBytes = 6, kMacText = 3 * kMacBytes;  // two digits and a colon or the NUL each

json_t* address_to_json(std::int64_t address)
{
    const in_addr network{htonl(static_cast<std::uint32_t>(address))};
    char dotted[INET_ADDRSTRLEN];
    inet_ntop(AF_INET, &network, dotted, sizeof dotted);
    return json_string(dotted);
}

json_t* mac_to_json(const unsigned char* mac)
{
    char text[kMacText];
    std::snprintf(text, sizeof text, "%02x:%02x:%02x:%02x:%02x:%02x", mac[0], mac[1], mac[2], mac[3], mac[4], mac[5]);
    return json_string(text);
}

json_t* choice_to_json(const Setting& row, std::int64_t value)
{
    const auto found = std::ranges::find(row.choices, value, &Choice::value);
    return found == row.choices.end() ? nullptr : json_string(found->word);
}

bool set_taken_number(const Setting& row, unsigned char* value, std::int64_t number)
{
    if (!takes_number(row, number)) return false;  // before it is cut to the field's width
    set_number(row, value, number);
    return true;
}

bool text_from_json(const Setting& row, const json_t* json, unsigned char* value)
{
    const std::size_t length = json_string_length(json);
    if (length > static_cast<std::size_t>(row.max)) return false;
    set_text(row, value, {json_string_value(json), length});
    return takes(row, value);
}

bool address_from_json(const Setting& row, const json_t* json, unsigned char* value)
{
    in_addr network;
    if (inet_pton(AF_INET, json_string_value(json), &network) != 1) return false;
    return set_taken_number(row, value, ntohl(network.s_addr));
}

bool choice_from_json(const Setting& row, const json_t* json, unsigned char* value)
{
    const auto same = [json](const Choice& each) { return std::strcmp(each.word, json_string_value(json)) == 0; };
    const auto found = std::ranges::find_if(row.choices, same);
    return found != row.choices.end() && set_taken_number(row, value, found->value);
}

int hex_digit(char c)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    const std::size_t place = kDigits.find(static_cast<char>(c | ('a' ^ 'A')));
    return place == kDigits.npos ? -1 : static_cast<int>(place);
}

// The zeros behind the last other byte are left out.
json_t* key_to_json(const Setting& row, const unsigned char* value)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::size_t used = row.at.width;
    while (used > 0 && value[used - 1] == 0) used--;
    std::string text;
    for (std::size_t i = 0; i < used; i++) text += {kDigits[value[i] >> 4], kDigits[value[i] & 0xF]};
    return json_string(text.c_str());
}

bool key_from_json(const Setting& row, const json_t* json, unsigned char* value)
{
    const std::string_view text{json_string_value(json), json_string_length(json)};
    if (text.size() % 2 != 0 || text.size() / 2 > row.at.width) return false;
    std::memset(value, 0, row.at.width);
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int high = hex_digit(text[i]), low = hex_digit(text[i + 1]);
        if (high < 0 || low < 0) return false;
        value[i / 2] = static_cast<unsigned char>(high << 4 | low);
    }
    return true;
}

bool mac_from_json(const json_t* json, unsigned char* value)
{
    const std::string_view text{json_string_value(json), json_string_length(json)};
    if (text.size() != kMacText - 1) return false;
    for (std::size_t i = 0; i < kMacBytes; i++) {
        const int high = hex_digit(text[3 * i]), low = hex_digit(text[3 * i + 1]);
        if (high < 0 || low < 0 || (i > 0 && text[3 * i - 1] != ':')) return false;
        value[i] = static_cast<unsigned char>(high << 4 | low);
    }
    return true;
}
}  // namespace

json_t* value_to_json(const Setting& row, const unsigned char* value)
{
    switch (row.kind) {
    case Kind::kText:
    case Kind::kSecret: return json_stringn(get_text(row, value).data(), get_text(row, value).size());
    case Kind::kNumber: return json_integer(get_number(row, value));
    case Kind::kFlag: return json_boolean(get_number(row, value) != 0);
    case Kind::kChoice: return choice_to_json(row, get_number(row, value));
    case Kind::kAddress: return address_to_json(get_number(row, value));
    case Kind::kMac: return mac_to_json(value);
    case Kind::kKey: return key_to_json(row, value);
    }
    return nullptr;
}

bool value_from_json(const Setting& row, const json_t* json, unsigned char* value)
{
    if (row.kind == Kind::kNumber)
        return json_is_integer(json) && set_taken_number(row, value, json_integer_value(json));
    if (row.kind == Kind::kFlag) return json_is_boolean(json) && set_taken_number(row, value, json_is_true(json));
    if (!json_is_string(json)) return false;

    switch (row.kind) {
    case Kind::kChoice: return choice_from_json(row, json, value);
    case Kind::kAddress: return address_from_json(row, json, value);
    case Kind::kMac: return mac_from_json(json, value);
    case Kind::kKey: return key_from_json(row, json, value);
    default: return text_from_json(row, json, value);
    }
}
