// Answers that the dialogues of NAT and of the IP filters have in common.
#pragma once

#include <cstring>

#include "commands/interface_list.h"
#include "console/messages.h"
#include "prompts/dialogue.h"
#include "service/client.h"
#include "values/parm_list.h"
#include "values/selection.h"

inline constexpr char kUnspecified[] = "Unspecified";  // what a question shows that has no current value

// Appends the value that the answer selects, or returns the refusal.
std::uint32_t parse_selection(const char* text, ParmList& words, const SelectEntry* table, Message refusal);
const char* selected_text(std::uint32_t value, const SelectEntry* table);  // "" when no entry has the value

extern const SelectEntry kSingleOrRangeTable[];
inline constexpr std::uint32_t kSingle = 0, kRange = 1;
std::uint32_t parse_single_or_range(char* text, ParmList& words);

const char* address_or_unspecified(std::uint32_t address);

// "80" or "80-90". Lives until the next call.
const char* ports_text(unsigned first, unsigned last);

// Whether the interface stays as it is or becomes one of `names`; an interface that is neither named nor known is
// refused. `bytes` is the entry that has the field.
template <class InterfaceField>
std::uint32_t take_interface(Answer answer, const InterfaceNames& names, const InterfaceField& field,
                             unsigned char* bytes)
{
    if (!answer.given) return field.length(bytes) > 0 ? kOk : kInvalidInterface;
    if (!names.has(answer.text)) return kInvalidInterface;
    field.set(bytes, answer.text);
    return kOk;
}

// Whether an entry of the answer's table has that name; an answer that did not come has none.
template <class NameField>
bool has_name(const Exchange& answer, std::size_t entrySize, const NameField& field, const char* name)
{
    if (!answer.ok()) return false;
    for (unsigned char* entry : answer.table(entrySize))
        if (std::strcmp(field.get(entry), name) == 0) return true;
    return false;
}

// Stores a port; without an answer the current one stays, and 0 is none.
template <class PortField>
std::uint32_t take_port(Answer answer, const PortField& field, unsigned char* bytes, Message refusal)
{
    if (answer.given) field.set(bytes, static_cast<std::uint16_t>(answer.value));
    return field.get(bytes) != 0 ? kOk : refusal;
}
