// Redirections: what arrives at a public port goes to a server in the LAN, or traffic from the LAN to a triggering port
// opens ports towards its sender for a while.
#include <cstring>

#include "commands/answers.h"
#include "commands/command.h"
#include "commands/nat.h"
#include "console/messages.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"
#include "service/fields/nat.h"

namespace {
namespace server = nat_server_entry;
namespace trigger = nat_trigger_entry;

enum Stage : std::uint32_t {
    kOver = 0,
    kAskType = 131,
    kAskInterface,
    kAskProtocol,
    kAskPublicKind,
    kAskPublicPort,
    kAskPublicFirst,
    kAskPublicLast,
    kAskLocalKind,
    kAskLocalPort,
    kAskLocalFirst,
    kAskServer,
    kAskTriggeringProtocol,
    kAskTriggeringPort,
    kAskOpenedProtocol,
    kAskOpenedRange,
    kAskAnotherRange,
};

enum Type : std::uint32_t { kServerType, kTriggerType };
constexpr SelectEntry kTypes[] = {{kServerType, "server"}, {kTriggerType, "trigger"}, {kNoSelection, nullptr}};
constexpr SelectEntry kProtocols[] = {{kNatTcp, "tcp"}, {kNatUdp, "udp"}, {kNatBoth, "both"}, {kNoSelection, nullptr}};
constexpr char kServerProtocolQuestion[] = " select protocol (%s, tcp/udp/both): ";
constexpr unsigned kLastPort = 65535;

// Of the dialogue that is under way.
NatSurroundings surroundings;
Type type;

unsigned char* edited() { return carried_entry(wizardParam); }
unsigned public_ports() { return server::publicLast.get(edited()) - server::publicFirst.get(edited()) + 1u; }

std::uint32_t parse_type(char* text, ParmList& words)
{
    return parse_selection(text, words, kTypes, kRedirectionTypeRule);
}
std::uint32_t parse_protocol(char* text, ParmList& words)
{
    return parse_selection(text, words, kProtocols, kNatProtocolRule);
}

// "6970" or "6970-6999": the first port in the upper half of the word, the last one in the lower.
constexpr unsigned kUpperHalf = 16;
std::uint32_t parse_opened_range(char* text, ParmList& words)
{
    ParmList ports{};
    char* const dash = std::strchr(text, '-');
    if (dash) *dash = '\0';
    std::uint32_t refusal = parse_private_port_num(text, ports);
    if (refusal == kOk && dash) refusal = parse_private_port_num(dash + 1, ports);
    if (dash) *dash = '-';
    if (refusal != kOk) return kOpenedPortRange;

    const Word first = ports.value[0], last = ports.value[ports.count - 1];
    if (last < first) return kEndingPortBelowStarting;
    append_word(words, first << kUpperHalf | last);
    return kOk;
}

const char* type_shown() { return selected_text(kServerType, kTypes); }
const char* interface_shown()
{
    const char* name = server::interface.get(edited());
    return *name ? name : kUnspecified;
}
const char* protocol_shown() { return selected_text(server::protocol.get(edited()), kProtocols); }
const char* single_shown() { return selected_text(kSingle, kSingleOrRangeTable); }
std::uint32_t public_first_number() { return server::publicFirst.get(edited()); }
std::uint32_t public_last_number() { return server::publicLast.get(edited()); }
const char* local_kind_shown() { return selected_text(public_ports() > 1 ? kRange : kSingle, kSingleOrRangeTable); }
std::uint32_t local_first_number() { return server::localFirst.get(edited()); }
const char* server_shown() { return kUnspecified; }
const char* triggering_protocol_shown() { return selected_text(trigger::protocol.get(edited()), kProtocols); }
std::uint32_t triggering_port_number() { return trigger::port.get(edited()); }
const char* opened_protocol_shown() { return selected_text(trigger::openedProtocol.get(edited()), kProtocols); }
const char* no_shown() { return CliFormatYesNo(0); }

std::size_t opened_ranges()
{
    std::size_t used = 0;
    while (used < trigger::kMostRanges && trigger::kOpened[used].first.get(edited()) != 0) ++used;
    return used;
}

const char* opened_shown()
{
    const std::size_t used = opened_ranges();
    if (used == 0) return kUnspecified;
    const trigger::Range& range = trigger::kOpened[used - 1];
    return ports_text(range.first.get(edited()), range.last.get(edited()));
}

void begin_server()
{
    server::protocol.set(edited(), kNatBoth);
    if (surroundings.interfaces.count > 0) server::interface.set(edited(), surroundings.interfaces.name[0]);
}

void begin_trigger()
{
    trigger::protocol.set(edited(), kNatBoth);
    trigger::openedProtocol.set(edited(), kNatBoth);
}

Next after_type(Answer answer)
{
    type = answer.given ? static_cast<Type>(answer.value) : kServerType;
    if (type == kTriggerType) {
        begin_trigger();
        return {kAskTriggeringProtocol};
    }
    begin_server();
    return {kAskInterface};
}

Next after_interface(Answer answer)
{
    const std::uint32_t refusal = take_interface(answer, surroundings.interfaces, server::interface, edited());
    return refusal == kOk ? Next{kAskProtocol} : Next{kAskInterface, refusal};
}

Next after_protocol(Answer answer)
{
    if (answer.given) server::protocol.set(edited(), static_cast<std::uint8_t>(answer.value));
    return {kAskPublicKind};
}

Next after_public_kind(Answer answer)
{
    return {answer.given && answer.value == kRange ? kAskPublicFirst : kAskPublicPort};
}

// As long as nothing else is said, a local port is the public one.
Next to_local_ports()
{
    server::localFirst.set(edited(), server::publicFirst.get(edited()));
    return {kAskLocalKind};
}

Next after_public_port(Answer answer)
{
    if (const std::uint32_t refusal = take_port(answer, server::publicFirst, edited(), kPublicPortRange);
        refusal != kOk)
        return {kAskPublicPort, refusal};
    server::publicLast.set(edited(), server::publicFirst.get(edited()));
    return to_local_ports();
}

Next after_public_first(Answer answer)
{
    const std::uint32_t refusal = take_port(answer, server::publicFirst, edited(), kPublicPortRange);
    return refusal == kOk ? Next{kAskPublicLast} : Next{kAskPublicFirst, refusal};
}

Next after_public_last(Answer answer)
{
    if (const std::uint32_t refusal = take_port(answer, server::publicLast, edited(), kPublicPortRange); refusal != kOk)
        return {kAskPublicLast, refusal};
    if (server::publicLast.get(edited()) >= server::publicFirst.get(edited())) return to_local_ports();
    server::publicLast.set(edited(), 0);
    return {kAskPublicLast, kEndingPortBelowStarting};
}

// A range inside is as long as the one outside, so it needs one.
Next after_local_kind(Answer answer)
{
    const bool range = answer.given ? answer.value == kRange : public_ports() > 1;
    if (range && public_ports() == 1) return {kAskLocalKind, kInvalidPortRange};
    return {range ? kAskLocalFirst : kAskLocalPort};
}

Next after_local_port(Answer answer)
{
    if (const std::uint32_t refusal = take_port(answer, server::localFirst, edited(), kLocalPortRange); refusal != kOk)
        return {kAskLocalPort, refusal};
    server::localLast.set(edited(), server::localFirst.get(edited()));
    return {kAskServer};
}

// The ending port follows from the starting one.
Next after_local_first(Answer answer)
{
    if (const std::uint32_t refusal = take_port(answer, server::localFirst, edited(), kLocalPortRange); refusal != kOk)
        return {kAskLocalFirst, refusal};
    const unsigned first = server::localFirst.get(edited()), last = first + public_ports() - 1;
    const bool moved = first != server::publicFirst.get(edited());
    if (last > kLastPort || (moved && public_ports() > server::kMostMoved)) {
        server::localFirst.set(edited(), server::publicFirst.get(edited()));
        return {kAskLocalFirst, kInvalidPortRange};
    }
    server::localLast.set(edited(), static_cast<std::uint16_t>(last));
    return {kAskServer};
}

Next after_server(Answer answer)
{
    const auto address = static_cast<std::uint32_t>(answer.value);
    if (!answer.given || !surroundings.is_lan_host(address)) return {kAskServer, kLocalServerRule};
    server::server.set(edited(), address);
    return {kOver};
}

Next after_triggering_protocol(Answer answer)
{
    if (answer.given) trigger::protocol.set(edited(), static_cast<std::uint8_t>(answer.value));
    return {kAskTriggeringPort};
}

Next after_triggering_port(Answer answer)
{
    const std::uint32_t refusal = take_port(answer, trigger::port, edited(), kTriggeringPortRange);
    return refusal == kOk ? Next{kAskOpenedProtocol} : Next{kAskTriggeringPort, refusal};
}

Next after_opened_protocol(Answer answer)
{
    if (answer.given) trigger::openedProtocol.set(edited(), static_cast<std::uint8_t>(answer.value));
    return {kAskOpenedRange};
}

// Without an answer the ranges stay as they are, and one is needed.
Next after_opened_range(Answer answer)
{
    const std::size_t used = opened_ranges();
    if (!answer.given) return used ? Next{kOver} : Next{kAskOpenedRange, kOpenedPortRange};
    const trigger::Range& range = trigger::kOpened[used];
    range.first.set(edited(), static_cast<std::uint16_t>(answer.value >> kUpperHalf));
    range.last.set(edited(), static_cast<std::uint16_t>(answer.value));
    return {used + 1 < trigger::kMostRanges ? kAskAnotherRange : kOver};
}

Next after_another_range(Answer answer) { return {answer.given && answer.value ? kAskOpenedRange : kOver}; }

// clang-format off
constexpr Question kQuestions[] = {
    {.stage = kAskType,         .text = CliNatPrompt[3],         .shown = type_shown,       .validate = parse_type,            .after = after_type},

    {.stage = kAskInterface,    .text = CliNatPrompt[0],         .shown = interface_shown,                                     .after = after_interface},
    {.stage = kAskProtocol,     .text = kServerProtocolQuestion, .shown = protocol_shown,   .validate = parse_protocol,        .after = after_protocol},
    {.stage = kAskPublicKind,   .text = CliNatPrompt[4],         .shown = single_shown,     .validate = parse_single_or_range, .after = after_public_kind},
    {.stage = kAskPublicPort,   .text = CliNatPrompt[7],         .number = public_first_number, .validate = parse_private_port_num, .after = after_public_port},
    {.stage = kAskPublicFirst,  .text = CliNatPrompt[8],         .number = public_first_number, .validate = parse_private_port_num, .after = after_public_first},
    {.stage = kAskPublicLast,   .text = CliNatPrompt[9],         .number = public_last_number,  .validate = parse_private_port_num, .after = after_public_last},
    {.stage = kAskLocalKind,    .text = CliNatPrompt[5],         .shown = local_kind_shown, .validate = parse_single_or_range, .after = after_local_kind},
    {.stage = kAskLocalPort,    .text = CliNatPrompt[7],         .number = local_first_number,  .validate = parse_private_port_num, .after = after_local_port},
    {.stage = kAskLocalFirst,   .text = CliNatPrompt[8],         .number = local_first_number,  .validate = parse_private_port_num, .after = after_local_first},
    {.stage = kAskServer,       .text = CliNatPrompt[10],        .shown = server_shown,     .validate = parse_ip_addr,         .after = after_server},

    {.stage = kAskTriggeringProtocol, .text = CliNatPrompt[6],  .shown = triggering_protocol_shown, .validate = parse_protocol,     .after = after_triggering_protocol},
    {.stage = kAskTriggeringPort,     .text = CliNatPrompt[11], .number = triggering_port_number,   .validate = parse_private_port_num, .after = after_triggering_port},
    {.stage = kAskOpenedProtocol,     .text = CliNatPrompt[14], .shown = opened_protocol_shown,     .validate = parse_protocol,     .after = after_opened_protocol},
    {.stage = kAskOpenedRange,        .text = CliNatPrompt[12], .shown = opened_shown,              .validate = parse_opened_range, .after = after_opened_range},
    {.stage = kAskAnotherRange,       .text = CliNatPrompt[13], .shown = no_shown,                  .validate = parse_yesno,        .after = after_another_range},
};
// clang-format on

// Both kinds share their names. When a table cannot be read the write at the end tells.
bool is_in_use(const char* name)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    if (has_name(Exchange(code::kReadNatRedirect), server::kSize, server::name, name)) return true;
    return has_name(Exchange(code::kReadNatTrigger), trigger::kSize, trigger::name, name);
}

bool begin(const char* name, int term)
{
    if (!read_nat_surroundings(surroundings)) return false;
    if (*name == '\0' || is_in_use(name)) {
        PrintMsg(term, *name ? kNameInUse : kRedirectNameRule);
        return false;
    }
    new_nat_entry(name);
    wizardParam = usrComParam;
    return true;
}

void finish(int term)
{
    usrComParam = wizardParam;
    if (!report_nat(write_record(type == kServerType ? code::kAddNatRedirect : code::kAddNatTrigger))) return;
    PrintMsg(term, kRedirectionAdded);
    if (type == kServerType)
        show_nat_servers(kAnyOf, server::name.get(edited()));
    else
        show_nat_triggers(trigger::name.get(edited()));
}
}  // namespace

void CliAddNatRedirect(ActionBlock& call, int term)
{
    if (call.stage == kOver && !begin(text_parm(call, 0), term)) return;
    if (run_dialogue(kQuestions, call, term) == kOver) finish(term);
}

// The two tables share their names; what the one does not know the other may.
void CliDeleteNatRedirect(ActionBlock& call, int term)
{
    new_nat_entry(text_parm(call, 0));
    Outcome deleted = write_record(code::kDeleteNatRedirect);
    if (deleted.exchange == 0 && deleted.status == kStatusUnknownName) {
        new_nat_entry(text_parm(call, 0));
        deleted = write_record(code::kDeleteNatTrigger);
    }
    if (report_nat(deleted)) PrintMsg(term, kRedirectionDeleted);
}
