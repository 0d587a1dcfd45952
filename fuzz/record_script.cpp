#include "fuzz/record_script.h"

#include <algorithm>
#include <arpa/inet.h>
#include <charconv>
#include <cstring>

namespace {
constexpr std::string_view kBlank = " ";

void put(ComParam& record, std::size_t place, std::string_view bytes)
{
    if (place >= kRecordSize) return;
    std::memcpy(record.bytes + place, bytes.data(), std::min(bytes.size(), kRecordSize - place));
}

void put_number(ComParam& record, Words& words, std::size_t width)
{
    const std::size_t place = words.number();
    const std::uint32_t value = words.number();
    char bytes[sizeof value];
    if (width == sizeof(std::uint8_t)) bytes[0] = static_cast<char>(value);
    if (width == sizeof(std::uint16_t)) {
        const auto cut = static_cast<std::uint16_t>(value);
        std::memcpy(bytes, &cut, sizeof cut);
    }
    if (width == sizeof value) std::memcpy(bytes, &value, sizeof value);
    put(record, place, {bytes, width});
}

std::string_view take(std::string_view& text, char separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}
}  // namespace

std::uint32_t Words::number()
{
    const std::string word(take(rest, kBlank[0]).substr(0, sizeof "255.255.255.255"));
    in_addr address{};
    return inet_aton(word.c_str(), &address) ? ntohl(address.s_addr) : 0;
}

std::string_view Words::text() { return rest; }

std::string Words::bytes()
{
    std::string made;
    for (unsigned value; rest.size() >= 2; rest.remove_prefix(2)) {
        const auto [end, error] = std::from_chars(rest.data(), rest.data() + 2, value, 16);
        if (error != std::errc() || end != rest.data() + 2) break;
        made += static_cast<char>(value);
    }
    return made;
}

bool take_line(std::string_view& script, char& letter, Words& words)
{
    if (script.empty()) return false;
    std::string_view line = take(script, '\n');
    letter = line.empty() ? '#' : line[0];
    line.remove_prefix(std::min<std::size_t>(line.size(), 1));
    if (line.starts_with(kBlank)) line.remove_prefix(kBlank.size());
    words.rest = line;
    return true;
}

void new_record(ComParam& record)
{
    std::memset(&record, 0, sizeof record);
    record::kind.set(record, record::kRequest);
}

void edit_record(ComParam& record, char letter, Words words)
{
    switch (letter) {
    case 'n': return new_record(record);
    case 'c': return record::code.set(record, words.number());
    case 'b': return put_number(record, words, sizeof(std::uint8_t));
    case 'h': return put_number(record, words, sizeof(std::uint16_t));
    case 'w': return put_number(record, words, sizeof(std::uint32_t));
    case 'x': {
        const std::size_t place = words.number();
        return put(record, place, words.bytes());
    }
    case 't': {
        const std::size_t place = words.number();
        return put(record, place, std::string(words.text()) + '\0');
    }
    default: return;
    }
}
