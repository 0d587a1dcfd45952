// add radius server primary | secondary: address, port, shared secret and state of an entry.
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/lan_address.h"
#include "commands/radius.h"
#include "console/messages.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"
#include "service/fields/radius.h"
#include "values/format.h"

namespace {
using namespace radius_record;

enum Stage : std::uint32_t { kOver = 0, kAskAddress = 144, kAskPort, kAskSecret, kAskEnable = 149 };

constexpr int kSecretSize = 64;  // characters and NUL
static_assert(kSecretSize == secret.at.width);

const RadiusEntry* asked = &kPrimaryRadius;  // the entry of the dialogue that is under way

const char* address_shown()
{
    const std::uint32_t value = address.get(wizardParam);
    return value ? CliFormatIPv4(value) : "Unspecified";
}
std::uint32_t port_number() { return port.get(wizardParam); }
const char* yes_shown() { return "yes"; }

// The enable question names the entry; what is left in it is the place of the value shown.
const char* enable_wording()
{
    static char text[64];
    std::snprintf(text, sizeof text, CliRadiusServerPrompt[6], asked->name, "%s");
    return text;
}

Next after_address(Answer answer)
{
    if (!answer.given) return {kAskPort};
    const auto value = static_cast<std::uint32_t>(answer.value);
    if (const std::uint32_t refusal = CliVerifyIP(value); refusal != kOk) return {kAskAddress, refusal};
    address.set(wizardParam, value);
    return {kAskPort};
}

Next after_port(Answer answer)
{
    if (answer.given) port.set(wizardParam, static_cast<std::uint16_t>(answer.value));
    return {kAskSecret};
}

// A secret that is too long is asked for again, and the dialogue goes on to the next question all the same; the secret
// stays as it was.
Next after_secret(Answer answer)
{
    if (!answer.given) {
        std::printf(" Enter shared secret string length < %d \r\n", kSecretSize);
        return {kAskSecret};
    }
    if (std::strlen(answer.text) >= kSecretSize) {
        std::printf(" Input secret string length > %d \r\n", kSecretSize);
        CliPromptX("%s", CliRadiusServerPrompt[3]);
    } else {
        secret.set(wizardParam, answer.text);
    }
    return {kAskEnable};
}

Next after_enable(Answer answer)
{
    enabled.set(wizardParam, answer.given ? static_cast<std::uint8_t>(answer.value) : 1);
    return {kOver};
}

// clang-format off
constexpr Question kQuestions[] = {
    {.stage = kAskAddress, .text = CliRadiusServerPrompt[1], .shown = address_shown, .validate = parse_ip_addr, .after = after_address},
    {.stage = kAskPort,    .text = CliRadiusServerPrompt[2], .number = port_number, .validate = parse_radius_port, .after = after_port},
    {.stage = kAskSecret,  .text = CliRadiusServerPrompt[3], .after = after_secret},
    {.stage = kAskEnable,  .shown = yes_shown, .wording = enable_wording, .validate = parse_yesno, .after = after_enable},
};
// clang-format on

bool begin(const RadiusEntry& entry)
{
    asked = &entry;
    const Outcome read = radius_request(entry, code::kReadRadius);
    wizardParam = oldWizardParam = usrComParam;
    forget_secret({&usrComParam});  // the dialogue may be left without an end
    if (read.exchange) CliPrintServiceError(read.exchange, kRadiusGroup);
    return read.exchange == 0;
}

void finish(const RadiusEntry& entry)
{
    const ForgetSecret forget;
    if (std::memcmp(&wizardParam, &oldWizardParam, sizeof wizardParam) == 0) return;
    usrComParam = wizardParam;
    const Outcome written = radius_request(entry, code::kWriteRadius);
    const Outcome applied = radius_request(entry, code::kApplyRadius);
    if (!applied.ok()) return void(CliPrintServiceError(applied.reason(), kRadiusGroup));
    if (!written.ok()) CliPrintServiceError(written.reason(), kRadiusGroup);
    DisplayRadiusServer(entry);
}

void AddRadiusServer(const RadiusEntry& entry, ActionBlock& call, int term)
{
    if (call.stage == kOver && !begin(entry)) return;
    if (run_dialogue(kQuestions, call, term) == kOver) finish(entry);
}
}  // namespace

void CliAddRadiusSrvPrimary(ActionBlock& call, int term) { AddRadiusServer(kPrimaryRadius, call, term); }
void CliAddRadiusSrvSecondary(ActionBlock& call, int term) { AddRadiusServer(kSecondaryRadius, call, term); }
