#include "commands/password.h"

#include <cstdio>
#include <cstring>

#include "console/messages.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "service/client.h"
#include "service/fields/password.h"

char g_chPWD[32];
char g_chNewPWD[32];

namespace {
enum Stage : std::uint32_t {
    kOver = 0,
    kAskNew = kUnseenStage | 1,
    kAskConfirmation = kUnseenStage | 2,
    kAskCurrent = kUnseenStage | 3,
};
constexpr int kCurrentPrompt = 32, kNewPrompt = 33, kConfirmationPrompt = 34;  // rows of idsPrompt

// One request over the password fields, which hold nothing any more when it returns.
Outcome password_request(std::uint16_t operation, const char* password, const char* newPassword)
{
    password_record::password.set(usrComParam, password);
    if (newPassword) password_record::newPassword.set(usrComParam, newPassword);
    password_record::notice.clear(usrComParam);  // what is there afterwards is the service's
    const Outcome outcome = write_record(operation);
    password_record::password.clear(usrComParam);
    password_record::newPassword.clear(usrComParam);
    return outcome;
}

void keep(char (&buffer)[32], const char* answer)
{
    explicit_bzero(buffer, sizeof buffer);
    std::snprintf(buffer, sizeof buffer, "%s", answer);
}

// Puts the text kept in `buffer` into the vector as the answer that stands.
void append_answer(ActionBlock& call, const char* buffer) { append_word(call.parms, reinterpret_cast<Word>(buffer)); }

void ask(ActionBlock& call, Stage stage, int prompt)
{
    call.stage = stage;
    CliPromptX("%s", idsPrompt[prompt]);
}

void take_current(ActionBlock& call, int term, const char* answer)
{
    std::uint32_t refusal;
    if (!parse_passwd_core(answer, &refusal)) {
        PrintMsg(term, refusal);
        return ask(call, kAskCurrent, kCurrentPrompt);
    }
    keep(g_chPWD, answer);
    if (!CheckPwd(term, g_chPWD)) {
        forget_passwords();
        return ask(call, kAskCurrent, kCurrentPrompt);
    }
    append_answer(call, g_chPWD);
    ask(call, kAskNew, kNewPrompt);
}

void take_new(ActionBlock& call, int term, const char* answer)
{
    std::uint32_t refusal;
    if (!parse_passwd(answer, &refusal)) {
        PrintMsg(term, refusal);
        return ask(call, kAskNew, kNewPrompt);
    }
    keep(g_chNewPWD, answer);
    append_answer(call, g_chNewPWD);
    ask(call, kAskConfirmation, kConfirmationPrompt);
}

void change_password(int term)
{
    const Outcome changed = password_request(code::kChangePassword, g_chPWD, g_chNewPWD);
    forget_passwords();
    if (!changed.ok()) {
        CliPrintServiceError(changed.reason(), kSystemGroup);
        return;
    }
    PrintMsg(term, kPasswordHasBeenChanged);
}

// A refusal here leaves the operator at the question without showing it again.
void take_confirmation(ActionBlock& call, int term, const char* answer)
{
    std::uint32_t refusal;
    if (!parse_passwd(answer, &refusal)) {
        PrintMsg(term, refusal);
        return;
    }
    // The answer's own length on purpose: a leading part of the new password confirms it.
    if (std::strncmp(answer, g_chNewPWD, std::strlen(answer)) != 0) {
        PrintMsg(term, kConfirmationDiffers);
        return;
    }
    call.stage = kOver;
    change_password(term);
}
}  // namespace

int check_password(int, const char* text) { return password_request(code::kCheckPassword, text, nullptr).ok(); }

int CheckPwd(int term, const char* text) { return check_password(term, text); }

void CliChangePassword(ActionBlock& call, int term)
{
    switch (call.stage) {
    case kAskCurrent: return take_current(call, term, answer_text(call));
    case kAskNew: return take_new(call, term, answer_text(call));
    case kAskConfirmation: return take_confirmation(call, term, answer_text(call));
    default: ask(call, kAskCurrent, kCurrentPrompt);
    }
}

void forget_passwords()
{
    explicit_bzero(g_chPWD, sizeof g_chPWD);
    explicit_bzero(g_chNewPWD, sizeof g_chNewPWD);
}

int parse_passwd(const char* text, std::uint32_t* err)
{
    if (std::strlen(text) >= kPasswordSize) {
        *err = kPasswordLength;
        return 0;
    }
    *err = encrypt_passwd(text);
    return 1;
}

int parse_passwd_core(const char* text, std::uint32_t* err) { return parse_passwd(text, err); }

std::uint32_t encrypt_passwd(const char* text)
{
    std::uint32_t crc = 0xFFFFFFFF;
    for (; *text; ++text) crc = calccrc08(static_cast<signed char>(*text), crc);
    return crc;
}

std::uint32_t calccrc08(signed char byte, std::uint32_t crc)
{
    constexpr std::uint32_t kPolynomial = 0x04C11DB7;
    auto bits = static_cast<unsigned char>(byte);
    for (int i = 0; i < 8; ++i) {
        const bool differ = (bits >> 7) != (crc >> 31);
        crc = (crc << 1) ^ (differ ? kPolynomial : 0);
        bits = static_cast<unsigned char>(bits << 1);
    }
    return crc;
}
