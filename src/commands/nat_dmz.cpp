// DMZ hosts: the one that gets what nothing else on an interface takes, and those with an address of their own outside.
#include <cstring>

#include "commands/answers.h"
#include "commands/command.h"
#include "commands/nat.h"
#include "console/messages.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"
#include "service/fields/nat.h"
#include "values/format.h"
#include "values/ip_address.h"

namespace {
using namespace dmz_entry;

enum Stage : std::uint32_t { kOver = 0, kAskInterface = 131, kAskNatAddress, kAskHost };

NatSurroundings surroundings;  // of the dialogue that is under way

unsigned char* edited() { return carried_entry(wizardParam); }

const char* interface_shown()
{
    const char* name = interface.get(edited());
    return *name ? name : kUnspecified;
}
const char* nat_address_shown() { return address_or_unspecified(natAddress.get(edited())); }
const char* host_shown() { return address_or_unspecified(dmzAddress.get(edited())); }

// The host that the interface has now is what the question shows and what an empty answer keeps.
void load_default_host()
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange hosts(code::kReadDmz);
    if (!hosts.ok()) return;  // the write at the end reports what is wrong
    for (unsigned char* entry : hosts.table(kSize))
        if (std::strcmp(name.get(entry), kDefault) == 0 &&
            std::strcmp(interface.get(entry), interface.get(edited())) == 0)
            std::memcpy(edited(), entry, kSize);
    oldWizardParam = wizardParam;
}

Next after_default_interface(Answer answer)
{
    const std::uint32_t refusal = take_interface(answer, surroundings.interfaces, interface, edited());
    if (refusal != kOk) return {kAskInterface, refusal};
    load_default_host();
    return {kAskHost};
}

Next after_interface(Answer answer)
{
    const std::uint32_t refusal = take_interface(answer, surroundings.interfaces, interface, edited());
    return refusal == kOk ? Next{kAskNatAddress} : Next{kAskInterface, refusal};
}

Next after_nat_address(Answer answer)
{
    if (!answer.given && natAddress.get(edited()) == 0) return {kAskNatAddress, kNatAddressRule};
    if (!answer.given) return {kAskHost};
    const auto address = static_cast<std::uint32_t>(answer.value);
    if (ValidIP(address) != 0) return {kAskNatAddress, kInvalidNatAddress};
    natAddress.set(edited(), address);
    return {kAskHost};
}

Next after_host(Answer answer)
{
    if (!answer.given) return dmzAddress.get(edited()) ? Next{kOver} : Next{kAskHost, kDmzHostRule};
    const auto address = static_cast<std::uint32_t>(answer.value);
    if (!surroundings.is_lan_host(address)) return {kAskHost, kDmzHostRule};
    dmzAddress.set(edited(), address);
    return {kOver};
}

// clang-format off
constexpr Question kHostQuestion{.stage = kAskHost, .text = CliNatPrompt[2], .shown = host_shown, .validate = parse_ip_addr, .after = after_host};
constexpr Question kDefaultQuestions[] = {
    {.stage = kAskInterface,  .text = CliNatPrompt[0], .shown = interface_shown, .after = after_default_interface},
    kHostQuestion,
};
constexpr Question kQuestions[] = {
    {.stage = kAskInterface,  .text = CliNatPrompt[0], .shown = interface_shown, .after = after_interface},
    {.stage = kAskNatAddress, .text = CliNatPrompt[1], .shown = nat_address_shown, .validate = parse_ip_addr, .after = after_nat_address},
    kHostQuestion,
};
// clang-format on

bool begin(const char* entryName)
{
    if (!read_nat_surroundings(surroundings)) return false;
    unsigned char* entry = new_nat_entry(entryName);
    if (surroundings.interfaces.count > 0) interface.set(entry, surroundings.interfaces.name[0]);
    wizardParam = oldWizardParam = usrComParam;
    return true;
}

void finish(int term, Message confirmation)
{
    if (std::memcmp(&wizardParam, &oldWizardParam, sizeof wizardParam) != 0) {
        usrComParam = wizardParam;
        if (!report_nat(write_record(code::kAddDmz))) return;
        PrintMsg(term, confirmation);
    }
    show_dmz_hosts(interface.get(edited()), name.get(edited()));
}

void delete_host(unsigned char* entry, const char* interfaceName, int term, Message confirmation)
{
    interface.set(entry, interfaceName);
    if (report_nat(write_record(code::kDeleteDmz))) PrintMsg(term, confirmation);
}

bool is_reserved(const char* entryName) { return std::strcmp(entryName, kDefault) == 0; }

bool is_in_use(const char* entryName)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    return is_reserved(entryName) || has_name(Exchange(code::kReadDmz), kSize, name, entryName);
}
}  // namespace

void CliAddNatDmzDefault(ActionBlock& call, int term)
{
    if (call.stage == kOver && !begin(kDefault)) return;
    if (run_dialogue(kDefaultQuestions, call, term) == kOver) finish(term, kDefaultDmzChanged);
}

void CliDeleteNatDmzDefault(ActionBlock& call, int term)
{
    delete_host(new_nat_entry(kDefault), text_parm(call, 0), term, kDefaultDmzChanged);
}

void CliAddNatMdmz(ActionBlock& call, int term)
{
    if (call.stage == kOver) {
        const char* entryName = text_parm(call, 0);
        if (!begin(entryName)) return;
        if (*entryName == '\0' || is_in_use(entryName)) {
            PrintMsg(term, *entryName ? kNameInUse : kMultiDmzNameRule);
            return;
        }
    }
    if (run_dialogue(kQuestions, call, term) == kOver) finish(term, kDmzTableChanged);
}

void CliDeleteNatMdmz(ActionBlock& call, int term)
{
    if (is_reserved(text_parm(call, 0)))
        PrintMsg(term, kNameNotFound);
    else
        delete_host(new_nat_entry(text_parm(call, 0)), "", term, kDmzTableChanged);
}
