// The LAN address: shown with what Linux knows of gateway and resolver, and set in a dialogue.
#include <arpa/inet.h>
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/default_gateway.h"
#include "commands/lan_address.h"
#include "console/messages.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"
#include "service/fields/address.h"
#include "service/fields/system.h"
#include "values/format.h"

namespace {
using namespace address_record;

enum Stage : std::uint32_t { kOver = 0, kAskMode = 128, kAskAddress, kAskNetmask, kAskGateway, kAskDns };

constexpr char kResolverFile[] = "/etc/resolv.conf";

const char* address_or(std::uint32_t value, const char* none) { return value ? CliFormatIPv4(value) : none; }

// The second word of the file: where its first line names a server, the server's address. 0 when it is none.
std::uint32_t read_resolver()
{
    std::FILE* file = std::fopen(kResolverFile, "re");
    if (!file) {
        std::printf("Can't open %s\n", kResolverFile);
        return 0;
    }
    char word[64] = "";  // longer than any address; what is longer is none
    if (std::fscanf(file, "%63s", word) == 1) (void)!std::fscanf(file, "%63s", word);
    std::fclose(file);
    in_addr address{};
    return inet_aton(word, &address) ? ntohl(address.s_addr) : 0;
}

bool automatic() { return mode.get(wizardParam) == kAutomatic; }
bool fixed() { return mode.get(wizardParam) == kStatic; }
bool unchanged() { return std::memcmp(&wizardParam, &OldSettingsParam, sizeof wizardParam) == 0; }

const char* mode_shown() { return CliFormatYesNo(!fixed()); }
const char* address_shown() { return address_or(address.get(wizardParam), "Unspecified"); }
const char* netmask_shown() { return CliFormatIPv4(netmask.get(wizardParam)); }
const char* gateway_shown() { return CliFormatIPv4(gateway.get(wizardParam)); }
const char* dns_shown() { return CliFormatIPv4(primaryDns.get(wizardParam)); }

void store(const Field<std::uint32_t>& field, Answer answer)
{
    if (answer.given) field.set(wizardParam, static_cast<std::uint32_t>(answer.value));
}

Next after_mode(Answer answer)
{
    if (answer.given) mode.set(wizardParam, answer.value ? kAutomatic : kStatic);
    return {automatic() ? kOver : kAskAddress};
}
Next after_address(Answer answer)
{
    store(address, answer);
    return {kAskNetmask};
}
Next after_netmask(Answer answer)
{
    store(netmask, answer);
    return {kAskGateway};
}
Next after_gateway(Answer answer)
{
    store(gateway, answer);
    return {kAskDns};
}
Next after_dns(Answer answer)
{
    store(primaryDns, answer);
    return {kOver};
}

// clang-format off
constexpr Question kQuestions[] = {
    {.stage = kAskMode,    .text = CliIpPrompt[0], .shown = mode_shown,    .validate = parse_yesno,   .after = after_mode},
    {.stage = kAskAddress, .text = CliIpPrompt[1], .shown = address_shown, .validate = parse_ip_addr, .after = after_address},
    {.stage = kAskNetmask, .text = CliIpPrompt[2], .shown = netmask_shown, .validate = parse_ip_addr, .after = after_netmask},
    {.stage = kAskGateway, .text = CliIpPrompt[3], .shown = gateway_shown, .validate = parse_ip_addr, .after = after_gateway},
    {.stage = kAskDns,     .text = CliIpPrompt[4], .shown = dns_shown,     .validate = parse_ip_addr, .after = after_dns},
};
// clang-format on

bool begin()
{
    OldSettingsParam = {};
    if (const Outcome read = read_lan_record(); !read.ok()) {
        print_service_text(read.reason(), kAddressGroup);
        return false;
    }
    wizardParam = OldSettingsParam = usrComParam;
    return true;
}

// What is wrong with a static address; 0 when nothing is.
std::uint32_t static_refusal()
{
    const std::uint32_t mask = netmask.get(wizardParam), own = address.get(wizardParam);
    if ((own & mask) != (gateway.get(wizardParam) & mask)) return kNotInGatewaySubnet;
    return (own | mask) == 0xffffffff ? kAddressIsBroadcast : kOk;
}

void finish(ActionBlock& call, int term)
{
    if (fixed() && unchanged()) return CliShowSystemIp(call, term);
    if (const std::uint32_t refusal = fixed() ? static_refusal() : kOk; refusal != kOk) {
        PrintMsg(term, refusal);
        return;
    }
    usrComParam = wizardParam;
    if (const Outcome written = write_record(code::kWriteAddress); !written.ok())
        print_service_text(written.reason(), kAddressGroup);
    else
        CliShowSystemIp(call, term);
}
}  // namespace

void CliShowSystemIp(ActionBlock&, int)
{
    std::uint32_t lan = 0, mask = 0;
    const Outcome system = read_record(code::kReadSystem);
    if (system.ok()) {
        lan = system_record::lanAddress.get(usrComParam);
        mask = system_record::lanNetmask.get(usrComParam);
    }
    const DefaultGateway route = read_default_gateway();

    const std::uint32_t resolver = read_resolver();
    std::printf("        IP address :                %s\n", address_or(lan, "N/A"));
    std::printf("        IP netmask:                 %s\n", address_or(mask, "N/A"));
    std::printf("        Default gateway IP address: %s\n", address_or(route.address, "N/A"));
    std::printf("        DNS IP address:             %s\n", address_or(resolver, "N/A"));

    const Outcome& failed = route.outcome.ok() ? system : route.outcome;
    if (!failed.ok()) print_service_text(failed.reason(), kAddressGroup);
}

void CliSetSystemIP(ActionBlock& call, int term)
{
    if (call.stage == kOver && !begin()) return;
    if (run_dialogue(kQuestions, call, term) == kOver) finish(call, term);
}
