// add ip filter: which packets a filter matches, question by question.
#include <cstdio>
#include <cstring>

#include "commands/answers.h"
#include "commands/command.h"
#include "commands/ip_filter.h"
#include "console/messages.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"
#include "service/fields/interfaces.h"
#include "service/fields/ip_filter.h"
#include "values/ip_address.h"

namespace {
using namespace ip_filter_entry;

enum Stage : std::uint32_t {
    kOver = 0,
    kAskInterface = 131,
    kAskDirection,
    kAskProtocol,
    kFirstOfSource = 140,
    kFirstOfDestination = 150
};

// The questions about one end of the connection, counted from its first stage.
enum EndStage : std::uint32_t { kAddressKind, kAddress, kNetmask, kPortKind, kPort, kStartingPort, kEndingPort };

enum AddressKind : std::uint32_t { kAnyAddress, kSingleAddress, kNetwork };
constexpr SelectEntry kAddressKinds[] = {
    {kAnyAddress, "any"}, {kSingleAddress, "single"}, {kNetwork, "network"}, {kNoSelection, nullptr}};
enum PortKind : std::uint32_t { kAnyPort, kSinglePort, kPortRange };
constexpr SelectEntry kPortKinds[] = {
    {kAnyPort, "any"}, {kSinglePort, "single"}, {kPortRange, "range"}, {kNoSelection, nullptr}};
constexpr std::uint32_t kSingleHost = 0xffffffff;

struct End {
    bool isSource;
    std::uint32_t first;  // the stage of its first question
    const At::Field<std::uint32_t>&address, &netmask;
    const At::Field<std::uint16_t>&firstPort, &lastPort;
};
constexpr End kSource{true, kFirstOfSource, sourceAddress, sourceNetmask, sourceFirst, sourceLast};
constexpr End kDestination{
    false, kFirstOfDestination, destinationAddress, destinationNetmask, destinationFirst, destinationLast};

InterfaceNames interfaces;  // of the dialogue that is under way

unsigned char* edited() { return carried_entry(wizardParam); }

std::uint32_t parse_direction(char* text, ParmList& words)
{
    return parse_selection(text, words, kFilterDirections, kFilterDirectionRule);
}
std::uint32_t parse_protocol(char* text, ParmList& words)
{
    return parse_selection(text, words, kFilterProtocols, kFilterProtocolRule);
}
std::uint32_t parse_address_kind(char* text, ParmList& words)
{
    return parse_selection(text, words, kAddressKinds, kFilterAddressRule);
}
std::uint32_t parse_port_kind(char* text, ParmList& words)
{
    return parse_selection(text, words, kPortKinds, kFilterPortRule);
}

const char* interface_shown()
{
    const char* name = interface.get(edited());
    return *name ? name : kUnspecified;
}
const char* direction_shown() { return selected_text(direction.get(edited()), kFilterDirections); }
const char* protocol_shown() { return selected_text(protocol.get(edited()), kFilterProtocols); }
const char* any_shown() { return selected_text(kAnyAddress, kAddressKinds); }
const char* unspecified_shown() { return kUnspecified; }
template <const End& end> std::uint32_t first_number() { return end.firstPort.get(edited()); }
template <const End& end> std::uint32_t last_number() { return end.lastPort.get(edited()); }

Next after_interface(Answer answer)
{
    const std::uint32_t refusal = take_interface(answer, interfaces, interface, edited());
    return refusal == kOk ? Next{kAskDirection} : Next{kAskInterface, refusal};
}

Next after_direction(Answer answer)
{
    if (answer.given) direction.set(edited(), static_cast<std::uint8_t>(answer.value));
    return {kAskProtocol};
}

Next after_protocol(Answer answer)
{
    if (answer.given) protocol.set(edited(), static_cast<std::uint8_t>(answer.value));
    return {kSource.first};
}

// Both addresses come first, then the ports of both where the protocol has them.
template <const End& end> Next behind_address()
{
    if (end.isSource) return {kDestination.first};
    return {has_ports(protocol.get(edited())) ? kSource.first + kPortKind : kOver};
}

template <const End& end> Next behind_ports() { return {end.isSource ? kDestination.first + kPortKind : kOver}; }

template <const End& end> Next after_address_kind(Answer answer)
{
    if (!answer.given || answer.value == kAnyAddress) return behind_address<end>();
    end.netmask.set(edited(), answer.value == kSingleAddress ? kSingleHost : 0);
    return {end.first + kAddress};
}

template <const End& end> Next after_address(Answer answer)
{
    if (!answer.given) return {end.first + kAddress, kInvalidIPAddress};
    end.address.set(edited(), static_cast<std::uint32_t>(answer.value));
    return end.netmask.get(edited()) == kSingleHost ? behind_address<end>() : Next{end.first + kNetmask};
}

// An address within the network stands for the network.
template <const End& end> Next after_netmask(Answer answer)
{
    const auto netmask = static_cast<std::uint32_t>(answer.value);
    if (!answer.given || ValidNetmask(netmask) != 0) return {end.first + kNetmask, kNetmaskRule};
    end.netmask.set(edited(), netmask);
    end.address.set(edited(), end.address.get(edited()) & netmask);
    return behind_address<end>();
}

template <const End& end> Next after_port_kind(Answer answer)
{
    if (!answer.given || answer.value == kAnyPort) return behind_ports<end>();
    return {end.first + (answer.value == kSinglePort ? kPort : kStartingPort)};
}

template <const End& end> Next after_port(Answer answer)
{
    if (const std::uint32_t refusal = take_port(answer, end.firstPort, edited(), kRadiusPortRange); refusal != kOk)
        return {end.first + kPort, refusal};
    end.lastPort.set(edited(), end.firstPort.get(edited()));
    return behind_ports<end>();
}

template <const End& end> Next after_starting_port(Answer answer)
{
    const std::uint32_t refusal = take_port(answer, end.firstPort, edited(), kRadiusPortRange);
    return {end.first + (refusal == kOk ? kEndingPort : kStartingPort), refusal};
}

template <const End& end> Next after_ending_port(Answer answer)
{
    if (const std::uint32_t refusal = take_port(answer, end.lastPort, edited(), kRadiusPortRange); refusal != kOk)
        return {end.first + kEndingPort, refusal};
    if (end.lastPort.get(edited()) >= end.firstPort.get(edited())) return behind_ports<end>();
    end.lastPort.set(edited(), 0);
    return {end.first + kEndingPort, kEndingPortBelowStarting};
}

// clang-format off
constexpr Question kQuestions[] = {
    {.stage = kAskInterface, .text = CliIpFtrPrompt[0], .shown = interface_shown, .after = after_interface},
    {.stage = kAskDirection, .text = CliIpFtrPrompt[1], .shown = direction_shown, .validate = parse_direction, .after = after_direction},
    {.stage = kAskProtocol,  .text = CliIpFtrPrompt[2], .shown = protocol_shown,  .validate = parse_protocol,  .after = after_protocol},

    {.stage = kSource.first + kAddressKind,  .text = CliIpFtrPrompt[3],  .shown = any_shown,         .validate = parse_address_kind, .after = after_address_kind<kSource>},
    {.stage = kSource.first + kAddress,      .text = CliIpFtrPrompt[7],  .shown = unspecified_shown, .validate = parse_ip_addr, .after = after_address<kSource>},
    {.stage = kSource.first + kNetmask,      .text = CliIpFtrPrompt[11], .shown = unspecified_shown, .validate = parse_ip_addr, .after = after_netmask<kSource>},
    {.stage = kSource.first + kPortKind,     .text = CliIpFtrPrompt[5],  .shown = any_shown,         .validate = parse_port_kind, .after = after_port_kind<kSource>},
    {.stage = kSource.first + kPort,         .text = CliIpFtrPrompt[8],  .number = first_number<kSource>, .validate = parse_private_port_num, .after = after_port<kSource>},
    {.stage = kSource.first + kStartingPort, .text = CliIpFtrPrompt[9],  .number = first_number<kSource>, .validate = parse_private_port_num, .after = after_starting_port<kSource>},
    {.stage = kSource.first + kEndingPort,   .text = CliIpFtrPrompt[10], .number = last_number<kSource>,  .validate = parse_private_port_num, .after = after_ending_port<kSource>},

    {.stage = kDestination.first + kAddressKind,  .text = CliIpFtrPrompt[4],  .shown = any_shown,         .validate = parse_address_kind, .after = after_address_kind<kDestination>},
    {.stage = kDestination.first + kAddress,      .text = CliIpFtrPrompt[7],  .shown = unspecified_shown, .validate = parse_ip_addr, .after = after_address<kDestination>},
    {.stage = kDestination.first + kNetmask,      .text = CliIpFtrPrompt[11], .shown = unspecified_shown, .validate = parse_ip_addr, .after = after_netmask<kDestination>},
    {.stage = kDestination.first + kPortKind,     .text = CliIpFtrPrompt[6],  .shown = any_shown,         .validate = parse_port_kind, .after = after_port_kind<kDestination>},
    {.stage = kDestination.first + kPort,         .text = CliIpFtrPrompt[8],  .number = first_number<kDestination>, .validate = parse_private_port_num, .after = after_port<kDestination>},
    {.stage = kDestination.first + kStartingPort, .text = CliIpFtrPrompt[9],  .number = first_number<kDestination>, .validate = parse_private_port_num, .after = after_starting_port<kDestination>},
    {.stage = kDestination.first + kEndingPort,   .text = CliIpFtrPrompt[10], .number = last_number<kDestination>,  .validate = parse_private_port_num, .after = after_ending_port<kDestination>},
};
// clang-format on

// The interfaces that there are; the WAN side is the one proposed.
bool read_interfaces(unsigned char* entry)
{
    interfaces = {};
    const Exchange list(code::kReadPort);
    if (!report_filter(list.outcome())) return false;
    for (unsigned char* each : list.table(interface_entry::kSize)) {
        if (interfaces.count == kMaxInterfaces) break;
        const char* found = interface_entry::name.get(each);
        std::snprintf(interfaces.name[interfaces.count++], kInterfaceNameSize, "%s", found);
        if ((interface_entry::flags.get(each) & interface_entry::kWan) && interface.length(entry) == 0)
            interface.set(entry, found);
    }
    return true;
}

bool is_in_use(const char* filterName)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    return has_name(Exchange(code::kReadIpFilter), kSize, name, filterName);
}

bool begin(const char* filterName, int term)
{
    std::memset(&wizardParam, 0, sizeof wizardParam);
    name.set(edited(), filterName);
    direction.set(edited(), kInbound);
    protocol.set(edited(), kAny);
    std::memset(&usrComParam, 0, sizeof usrComParam);
    if (!read_interfaces(edited())) return false;
    if (*filterName != '\0' && !is_in_use(filterName)) return true;
    PrintMsg(term, *filterName ? kNameInUse : kIpFilterNameRule);
    return false;
}

void finish()
{
    usrComParam = wizardParam;
    if (report_filter(write_record(code::kAddIpFilter))) show_filters("", name.get(edited()));
}
}  // namespace

void CliAddIpFilter(ActionBlock& call, int term)
{
    if (call.stage == kOver && !begin(text_parm(call, 0), term)) return;
    if (run_dialogue(kQuestions, call, term) == kOver) finish();
}
