// Keys written as an operator would name them: "sh<tab> sys<backspace><enter>".
#pragma once

#include <string_view>

#include "cli/line_edit.h"

struct NamedKey {
    std::string_view name;
    int key;
};
// clang-format off
inline constexpr NamedKey kNamedKeys[] = {
    {"<left>",   key::kLeft},   {"<right>",  key::kRight},  {"<up>",     key::kUp},     {"<down>",      key::kDown},
    {"<home>",   key::kHome},   {"<end>",    key::kEnd},    {"<delete>", key::kDelete}, {"<backspace>", key::kBackspace},
    {"<enter>",  key::kEnter},  {"<tab>",    key::kTab},    {"<ctrl-e>", key::kCtrlE},  {"<ctrl-l>",    key::kCtrlL},
    {"<ctrl-c>", key::kCtrlC},
    {"<ctrl-n>", key::kCtrlN},  {"<ctrl-p>", key::kCtrlP},  {"<ctrl-w>", key::kCtrlW},  {"<ctrl-x>",    key::kCtrlX},
};
// clang-format on

template <class Press> void type_keys(std::string_view keys, Press press)
{
    while (!keys.empty()) {
        NamedKey typed{keys.substr(0, 1), static_cast<int>(keys.front())};
        for (const NamedKey& named : kNamedKeys)
            if (keys.starts_with(named.name)) typed = named;
        press(typed.key);
        keys.remove_prefix(typed.name.size());
    }
}
