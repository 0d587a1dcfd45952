// Dynamic DNS: switched, and set in a dialogue. Its password is typed unseen, handed over and forgotten.
#include "service/fields/ddns.h"

#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/management_access.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"
#include "values/parsers.h"

namespace {
using namespace ddns_record;

enum Stage : std::uint32_t {
    kOver = 0,
    kAskEnable = 131,
    kAskHostname,
    kAskUsername,
    kAskPassword = kUnseenStage | 134,
};

constexpr char kUnspecified[] = "Unspecified", kHidden[] = "********";
constexpr char kRow[] = "   %-24s %s\n";

// Takes the password out of the working records when a command is done: they go out with later requests.
struct ForgetPassword {
    ~ForgetPassword()
    {
        for (ComParam* held : {&usrComParam, &wizardParam, &oldWizardParam})
            explicit_bzero(held->bytes + password.at.offset, password.at.width);
    }
};

const char* text_or_unspecified(const TextField& field, ComParam& ddns)
{
    return field.length(ddns) ? field.get(ddns) : kUnspecified;
}
const char* password_of(const ComParam& ddns) { return passwordSet.get(ddns) ? kHidden : kUnspecified; }

const char* enable_shown() { return CliFormatYesNo(enabled.get(wizardParam)); }
const char* hostname_shown() { return text_or_unspecified(hostname, wizardParam); }
const char* username_shown() { return text_or_unspecified(username, wizardParam); }
const char* password_shown() { return password_of(wizardParam); }

std::uint32_t validate_hostname(char* text, ParmList&) { return parse_ddns_hostname(text, std::strlen(text)); }

Next after_enable(Answer answer)
{
    if (answer.given) enabled.set(wizardParam, static_cast<std::uint8_t>(answer.value));
    return {kAskHostname};
}

Next take_text(Answer answer, const TextField& field, Stage asked, Stage next, std::uint32_t ifMissing)
{
    if (answer.given) field.set(wizardParam, answer.text);
    const bool missing = enabled.get(wizardParam) && field.length(wizardParam) == 0;
    return missing ? Next{asked, ifMissing} : Next{next};
}

Next after_hostname(Answer answer) { return take_text(answer, hostname, kAskHostname, kAskUsername, kHostNameEmpty); }
Next after_username(Answer answer) { return take_text(answer, username, kAskUsername, kAskPassword, kUserNameEmpty); }

Next after_password(Answer answer)
{
    if (answer.given) password.set(wizardParam, answer.text);
    return {kOver};
}

// clang-format off
constexpr Question kQuestions[] = {
    {.stage = kAskEnable,   .text = ddnsPrompt[0], .shown = enable_shown,   .validate = parse_yesno,       .after = after_enable},
    {.stage = kAskHostname, .text = ddnsPrompt[1], .shown = hostname_shown, .validate = validate_hostname, .after = after_hostname},
    {.stage = kAskUsername, .text = ddnsPrompt[2], .shown = username_shown, .validate = CliParseString60,  .after = after_username},
    {.stage = kAskPassword, .text = ddnsPrompt[3], .shown = password_shown, .validate = CliParseString60,  .after = after_password},
};
// clang-format on

bool begin()
{
    if (!report_access(read_record(code::kReadDdns))) return false;
    wizardParam = oldWizardParam = usrComParam;
    return true;
}

void print_settings()
{
    std::printf(kRow, "DDNS:", enabled.get(usrComParam) ? "enabled" : "disabled");
    std::printf(kRow, "Hostname:", text_or_unspecified(hostname, usrComParam));
    std::printf(kRow, "Username:", text_or_unspecified(username, usrComParam));
    std::printf(kRow, "Password:", password_of(usrComParam));
}

void finish()
{
    const ForgetPassword forget;
    usrComParam = wizardParam;
    const bool changed = std::memcmp(&wizardParam, &oldWizardParam, sizeof wizardParam) != 0;
    if (changed && !report_access(write_record(code::kWriteDdns))) return;
    print_settings();
}

void switch_ddns(std::uint8_t on)
{
    enabled.set(usrComParam, on);
    if (report_access(write_record(code::kWriteDdns)))
        std::printf(kRow, "DDNS:", enabled.get(usrComParam) ? "enabled" : "disabled");
}
}  // namespace

void CliSetDdns(ActionBlock& call, int term)
{
    if (call.stage == kOver && !begin()) return;
    if (run_dialogue(kQuestions, call, term) == kOver) finish();
}

void CliEnableDdns(ActionBlock&, int term)
{
    if (!report_access(read_record(code::kReadDdns))) return;
    if (hostname.length(usrComParam) == 0)
        PrintMsg(term, kHostNameEmpty);
    else if (username.length(usrComParam) == 0)
        PrintMsg(term, kUserNameEmpty);
    else
        switch_ddns(1);
}

void CliDisableDdns(ActionBlock&, int)
{
    if (report_access(read_record(code::kReadDdns))) switch_ddns(0);
}
