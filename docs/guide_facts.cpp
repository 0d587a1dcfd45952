#include "guide_facts.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cstdio>
#include <cstring>
#include <span>

#include "cli/tables.h"
#include "cli/token.h"
#include "configd/operations.h"
#include "console/messages.h"
#include "platform/ipc_client.h"
#include "platform/log_messages.h"
#include "prompts/prompt_tables.h"
#include "service/status.h"
#include "service/time_zones.h"

namespace {
std::span<const CliCmdRow> command_rows() { return {gCliCmdTable.data(), gCliCmdTable.size() - 1}; }

std::string quoted(const std::string& text) { return "`" + text + "`"; }

// A cell of a table: its bars would be taken for the table's.
std::string cell(std::string text)
{
    for (std::size_t at = 0; (at = text.find('|', at)) != text.npos; at += 2) text.insert(at, 1, '\\');
    return text;
}

std::vector<std::uint32_t> tokens_of(const CliCmdRow& row)
{
    std::vector<std::uint32_t> tokens;
    while (const std::uint32_t token = token_at(row, static_cast<std::uint32_t>(tokens.size())))
        tokens.push_back(token);
    return tokens;
}

const char* text_of(std::uint32_t token)
{
    return is_keyword(token) ? CliLookupKeyword(token) : CliLookupParmDescription(token);
}

// Whether the rows have the same words in front of a place.
bool same_beginning(const CliCmdRow& a, const CliCmdRow& b, std::uint32_t place)
{
    for (std::uint32_t i = 0; i < place; ++i)
        if (token_at(a, i) != token_at(b, i)) return false;
    return true;
}

// The shortest beginning of the row's keyword at a place that no other keyword there has.
std::string shortest_keyword(const CliCmdRow& row, std::uint32_t place)
{
    const std::string own = text_of(token_at(row, place));
    std::size_t length = 1;
    for (const CliCmdRow& other : command_rows()) {
        const std::uint32_t token = token_at(other, place);
        if (!is_keyword(token) || token == token_at(row, place) || !same_beginning(row, other, place)) continue;
        const std::string text = text_of(token);
        while (length < own.size() && strncmp(own.c_str(), text.c_str(), length) == 0) ++length;
    }
    return own.substr(0, length);
}

// One spelling for each row of a command; rows of the same words give one.
template <class Spell> std::vector<std::string> each_row(unsigned command, Spell spell)
{
    std::vector<std::string> lines;
    for (const CliCmdRow& row : command_rows()) {
        if (row.cmdId != command) continue;
        std::string line;
        for (std::uint32_t place = 0; place < tokens_of(row).size(); ++place)
            if (const std::string word = spell(row, place); !word.empty()) line += (line.empty() ? "" : " ") + word;
        if (std::ranges::find(lines, line) == lines.end()) lines.push_back(line);
    }
    return lines;
}

struct PromptTable {
    const char* name;
    std::span<const char* const> prompts;
};
const PromptTable kPromptTables[] = {
    {"CliIpPrompt", CliIpPrompt},
    {"CliHttpPrompt", CliHttpPrompt},
    {"ClidhcpPrompt", ClidhcpPrompt},
    {"ClirmtmgntPrompt", ClirmtmgntPrompt},
    {"CliNatPrompt", CliNatPrompt},
    {"CliIpFtrPrompt", CliIpFtrPrompt},
    {"CliNtpClientPrompt", CliNtpClientPrompt},
    {"ddnsPrompt", ddnsPrompt},
    {"CliRadiusServerPrompt", CliRadiusServerPrompt},
    {"CliWlanPrompt", CliWlanPrompt},
    {"idsPrompt", idsPrompt},
    {"cliPrompt", cliPrompt},
};

std::string with_dots(std::string text)
{
    for (std::size_t at; (at = text.find('%')) != text.npos;) text.replace(at, 2, text[at + 1] == 'd' ? "N" : "...");
    return text;
}

const char* severity_of(const CatalogEntry& entry)
{
    switch (static_cast<Severity>((entry.flags & ~kPatched) >> 24)) {
    case Severity::warning: return "warning";
    case Severity::error: return "error";
    case Severity::snmp: return "SNMP";
    default: return "notice";
    }
}

std::string address_text(std::int64_t address)
{
    const in_addr wire{htonl(static_cast<std::uint32_t>(address))};
    char text[INET_ADDRSTRLEN] = "";
    return inet_ntop(AF_INET, &wire, text, sizeof text);
}

const char* word_of(const Setting& setting, std::int64_t value)
{
    const auto found = std::ranges::find(setting.choices, static_cast<std::uint32_t>(value), &Choice::value);
    return found == setting.choices.end() ? "" : found->word;
}

std::string what_it_takes(const Setting& setting)
{
    switch (setting.kind) {
    case Kind::kText:
    case Kind::kSecret: return "text, up to " + std::to_string(setting.max) + " characters";
    case Kind::kNumber: return std::to_string(setting.min) + " to " + std::to_string(setting.max);
    case Kind::kFlag: return "`true`, `false`";
    case Kind::kAddress: return "IP address";
    case Kind::kMac: return "MAC address";
    case Kind::kKey: return "hexadecimal digits";
    case Kind::kChoice: break;
    }
    constexpr std::size_t kMany = 20;
    if (setting.choices.size() > kMany)
        return quoted(setting.choices[0].word) + ", " + quoted(setting.choices[1].word) + " ... " +
               quoted(setting.choices.back().word);
    std::string choices;
    for (const Choice& each : setting.choices) choices += (choices.empty() ? "" : ", ") + quoted(each.word);
    return choices;
}

std::string factory_value(const Setting& setting)
{
    switch (setting.kind) {
    case Kind::kText:
    case Kind::kSecret: return *setting.factoryText ? quoted(setting.factoryText) : "";
    case Kind::kNumber: return std::to_string(setting.factoryNumber);
    case Kind::kFlag: return setting.factoryNumber ? "`true`" : "`false`";
    case Kind::kAddress: return setting.factoryNumber ? quoted(address_text(setting.factoryNumber)) : "none";
    case Kind::kChoice: return quoted(word_of(setting, setting.factoryNumber));
    default: return "";
    }
}

// The rows of a section. A section with a row for every facility is one row here.
std::string section_rows(const Section& section)
{
    std::string name = section.key;
    if (*section.name) name += "." + std::string(section.name);
    const bool isOfFacilities = section.settings.size() > 1 && std::strstr(section.key, "_facilities");
    std::string rows;
    for (const Setting& each : section.settings) {
        const std::string key = isOfFacilities ? "FACILITY" : each.key;
        rows +=
            "| " + quoted(name + "." + key) + " | " + cell(what_it_takes(each)) + " | " + factory_value(each) + " |\n";
        if (isOfFacilities) break;
    }
    return rows;
}

std::string list_row(const List& list)
{
    std::string keys;
    for (const Column& each : list.columns) keys += (keys.empty() ? "" : ", ") + quoted(each.setting.key);
    return "| " + quoted(list.key) + " | " + std::to_string(list.capacity) + " | " + keys + " |\n";
}
}  // namespace

std::vector<unsigned> command_numbers()
{
    std::vector<unsigned> numbers;
    for (const CliCmdRow& row : command_rows())
        if (std::ranges::find(numbers, row.cmdId) == numbers.end()) numbers.push_back(row.cmdId);
    return numbers;
}

std::vector<std::string> spellings(unsigned command)
{
    return each_row(
        command, [](const CliCmdRow& row, std::uint32_t place) { return std::string(text_of(token_at(row, place))); });
}

std::string keywords(unsigned command)
{
    return each_row(command,
                    [](const CliCmdRow& row, std::uint32_t place) {
                        const std::uint32_t token = token_at(row, place);
                        return std::string(is_keyword(token) ? text_of(token) : "");
                    })
        .front();
}

std::vector<std::string> shortest_spellings(unsigned command)
{
    return each_row(command, [](const CliCmdRow& row, std::uint32_t place) {
        return is_keyword(token_at(row, place)) ? shortest_keyword(row, place) : std::string("<>");
    });
}

std::string why_not_carried_out(unsigned command)
{
    const auto row = std::ranges::find(gCliCmdDispTable, command, &CliCmdDispRow::cmdId);
    if (row == gCliCmdDispTable.end()) return "Command dispatch entry not found";
    return row->action || command == kLogoutCommand ? "" : "Action function is not supported";
}

std::vector<unsigned> parameter_numbers()
{
    std::vector<unsigned> numbers;
    for (const CliCmdRow& row : command_rows())
        for (const std::uint32_t token : tokens_of(row))
            if (is_parameter(token)) numbers.push_back(token);
    std::ranges::sort(numbers);
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

std::string parameter_help(unsigned type) { return CliLookupParmDescription(type); }

unsigned parameter_refusal(unsigned type, const std::string& text, std::string& refusal)
{
    char typed[128] = "";
    text.copy(typed, sizeof typed - 1);
    ParmList words{};
    const std::uint32_t number = CliGetParserFunc(type)(typed, words);
    if (number != kOk) refusal = GetMsgText(number);
    return number;
}

std::string question(const std::string& table, unsigned index)
{
    const auto found = std::ranges::find(kPromptTables, table, &PromptTable::name);
    if (found == std::end(kPromptTables) || index >= found->prompts.size()) return {};
    return with_dots(found->prompts[index] + 1);  // every one begins with a blank
}

std::string message(unsigned number) { return number < kMessages ? errMsg[number].text : ""; }

std::string service_text(std::uint32_t status, std::uint32_t group)
{
    char text[LOG_MESSAGE_SIZE];
    logGetMsgX(status, group, text, 0);
    return text;
}

std::string message_row(unsigned number)
{
    return "| " + std::to_string(number) + " | " + severity_of(errMsg[number]) + " | " + quoted(cell(message(number))) +
           " |";
}

std::string service_text_table()
{
    constexpr std::uint32_t kGroups[] = {0,
                                         kManagementGroup,
                                         kSystemGroup,
                                         kDhcpGroup,
                                         kWirelessGroup,
                                         kLogGroup,
                                         kAddressGroup,
                                         kInterfaceGroup,
                                         kNatGroup,
                                         kFilterGroup,
                                         kRadiusGroup,
                                         kOperationModeGroup,
                                         kTimeGroup};
    std::string table = "| Status | Texts |\n|---|---|\n";
    const auto add = [&](std::uint32_t status) {
        std::vector<std::string> texts;
        for (const std::uint32_t group : kGroups)
            if (const std::string text = service_text(status, group); std::ranges::find(texts, text) == texts.end())
                texts.push_back(text);
        table += "| " + std::to_string(status) + " | ";
        for (std::size_t i = 0; i < texts.size(); ++i) table += (i ? "<br>" : "") + quoted(texts[i]);
        table += " |\n";
    };
    for (std::uint32_t status = 0; status < kStatusEnd; ++status) add(status);
    for (std::uint32_t error = IPC_NOT_RUNNING; error <= IPC_NO_MEMORY; ++error) add(error);
    return table;
}

std::string settings_table()
{
    const Model model = model_of(areas());
    std::string table = "| Setting | Takes | Factory value |\n|---|---|---|\n";
    for (const Section* section : model.sections) table += section_rows(*section);
    table += "\n| List | Most entries | Each entry has |\n|---|---|---|\n";
    for (const List* list : model.lists) table += list_row(*list);
    return table;
}

std::string facility_list()
{
    std::string list;
    for (const FacilityName* each = facilitynames; each->name; ++each)
        list += (list.empty() ? "" : ", ") + quoted(each->name);
    return list;
}

std::string zone_list()
{
    std::string list;
    for (const ZoneName& each : tzFileName) list += (list.empty() ? "" : ", ") + quoted(each.display);
    return list;
}
