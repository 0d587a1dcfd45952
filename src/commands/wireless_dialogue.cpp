// The wireless port in a dialogue: network name, broadcasting, domain and channel, WEP keys, radio timing.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "commands/command.h"
#include "console/messages.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"
#include "service/fields/wireless_settings.h"
#include "values/wep_key.h"

namespace {
using namespace wireless_record;

enum Stage : std::uint32_t {
    kOver = 0,
    kAskName = 169,
    kAskHidden = 170,
    kAskDomain = 172,
    kAskChannel = 173,
    kAskWep = 174,
    kAskUsePassphrase = 176,
    kAskKeyLength = 177,
    kAskPassphrase = 178,
    kAskKeyIndex = 184,
    kAskKey1 = 185,
    kAskRts = 191,
    kAskFragment,
    kAskBeacon,
    kAskDtim,
};
constexpr int kKeys = 4;

struct DomainRow {
    const char* word;
    std::uint16_t code;
    const char* question;
    Parser validate;
};
// japan takes channel 14 although its question says 1-13, on purpose. The first row stands for any other code too.
constexpr DomainRow kDomains[] = {
    {"fcc", wireless_record::kFcc, CliWlanPrompt[4], parse_channel_fcc},
    {"etsi", wireless_record::kEtsi, CliWlanPrompt[5], parse_channel_etsi_spain},
    {"spain", wireless_record::kSpain, CliWlanPrompt[5], parse_channel_etsi_spain},
    {"france", wireless_record::kFrance, CliWlanPrompt[6], parse_channel_france},
    {"japan", wireless_record::kJapan, CliWlanPrompt[7], parse_channel_telec},
};

const DomainRow& current_domain()
{
    const auto* row = std::find_if(std::begin(kDomains), std::end(kDomains),
                                   [](const DomainRow& d) { return d.code == domain.get(wizardParam); });
    return row == std::end(kDomains) ? kDomains[0] : *row;
}

const char* yes_or_no(bool on) { return on ? "yes" : "no"; }
const char* text_shown(const TextField& field)
{
    return field.length(wizardParam) ? field.get(wizardParam) : "Unspecified";
}

const char* name_shown() { return text_shown(networkName); }
const char* hidden_shown() { return yes_or_no(hidden.get(wizardParam) == 1); }
const char* domain_shown() { return current_domain().word; }
const char* channel_wording() { return current_domain().question; }
std::uint32_t channel_number() { return channel.get(wizardParam); }
std::uint32_t validate_channel(char* text, ParmList& words) { return current_domain().validate(text, words); }
const char* wep_shown() { return yes_or_no(keyIndex.get(wizardParam) != 0); }
const char* use_passphrase_shown() { return "no"; }
const char* passphrase_shown() { return text_shown(passphrase); }
std::uint32_t key_index_number() { return keyIndex.get(wizardParam); }
std::uint32_t rts_number() { return rtsThreshold.get(wizardParam); }
std::uint32_t fragment_number() { return fragmentThreshold.get(wizardParam); }
std::uint32_t beacon_number() { return beaconInterval.get(wizardParam); }
std::uint32_t dtim_number() { return dtimInterval.get(wizardParam); }

const char* key_length_shown()
{
    const std::uint8_t length = keyLength.get(wizardParam);
    return length == 3 || length == 4 ? "128" : "64";
}

// A generated key is raw bytes and is shown in hexadecimal; a typed one is shown as it was typed.
template <int N> const char* key_shown()
{
    const std::uint8_t type = keyType[N].get(wizardParam);
    if (type != wireless_record::kHex64 && type != wireless_record::kHex128) return text_shown(key[N]);
    static char text[kWepKeyTextSize];
    return TransWepKey(text, wizardParam.bytes + key[N].at.offset, type);
}

// Stores a text as typed, or asks again when its field cannot hold it.
Next take_text(Answer answer, const TextField& field, std::uint32_t asked, std::uint32_t next)
{
    if (!answer.given) return {next};
    if (std::strlen(answer.text) >= field.at.width) return {asked, kLineTooLong};
    field.set(wizardParam, answer.text);
    return {next};
}

template <class T> Next take_number(Answer answer, const Field<T>& field, std::uint32_t next)
{
    if (answer.given) field.set(wizardParam, static_cast<T>(answer.value));
    return {next};
}

void generate_keys()
{
    unsigned char keys[kKeys * kWep64KeySize];
    static_assert(sizeof keys >= kWep128KeySize);
    const std::uint8_t length = keyLength.get(wizardParam);
    if (length != k64Bit && length != k128Bit) return;

    const bool four = length == k64Bit;
    const unsigned size = four ? kWep64KeySize : kWep128KeySize;
    if (four)
        wep_keygen64(passphrase.get(wizardParam), keys);
    else
        wep_keygen128(passphrase.get(wizardParam), keys);
    for (unsigned n = 0; n < kKeys; ++n) {
        keyType[n].set(wizardParam, four ? wireless_record::kHex64 : wireless_record::kHex128);
        std::memcpy(wizardParam.bytes + key[n].at.offset, keys + (four ? n * size : 0), size);
    }
    explicit_bzero(keys, sizeof keys);
}

Next after_name(Answer a) { return take_text(a, networkName, kAskName, kAskHidden); }
Next after_hidden(Answer a) { return take_number(a, hidden, kAskDomain); }
Next after_domain(Answer a) { return take_number(a, domain, kAskChannel); }
Next after_channel(Answer a) { return take_number(a, channel, kAskWep); }

// Yes makes key 1 the active one, whichever was; the key index question comes later.
Next after_wep(Answer answer)
{
    if (answer.given) keyIndex.set(wizardParam, answer.value ? 1 : 0);
    return {keyIndex.get(wizardParam) ? kAskKeyLength : kAskRts};
}

// The validator gives the key's bytes (5, 13) and these are bits, so every accepted answer ends as the 64-bit code.
// The pairing is kept on purpose.
Next after_key_length(Answer answer)
{
    if (answer.given)
        keyLength.set(wizardParam, answer.value == 128 ? k128Bit : answer.value == 152 ? k152Bit : k64Bit);
    return {kAskUsePassphrase};
}

Next after_use_passphrase(Answer answer) { return {answer.given && answer.value ? kAskPassphrase : kAskKey1}; }

Next after_passphrase(Answer answer)
{
    const Next next = take_text(answer, passphrase, kAskPassphrase, kAskKeyIndex);
    if (next.refusal == kOk) generate_keys();
    return next;
}

template <int N> Next after_key(Answer answer)
{
    const Next next = take_text(answer, key[N], kAskKey1 + N, N + 1 < kKeys ? kAskKey1 + N + 1 : kAskKeyIndex);
    if (answer.given && next.refusal == kOk) keyType[N].set(wizardParam, keyLength.get(wizardParam));
    return next;
}

Next after_key_index(Answer a) { return take_number(a, keyIndex, kAskRts); }
Next after_rts(Answer a) { return take_number(a, rtsThreshold, kAskFragment); }
Next after_fragment(Answer a) { return take_number(a, fragmentThreshold, kAskBeacon); }
Next after_beacon(Answer a) { return take_number(a, beaconInterval, kAskDtim); }
Next after_dtim(Answer a) { return take_number(a, dtimInterval, kOver); }

// clang-format off
constexpr Question kQuestions[] = {
    {.stage = kAskName,          .text = CliWlanPrompt[0],  .shown = name_shown,           .after = after_name},
    {.stage = kAskHidden,        .text = CliWlanPrompt[1],  .shown = hidden_shown,         .validate = parse_yesno, .after = after_hidden},
    {.stage = kAskDomain,        .text = CliWlanPrompt[3],  .shown = domain_shown,         .validate = parse_wlan_reg_domain, .after = after_domain},
    {.stage = kAskChannel,       .number = channel_number,  .wording = channel_wording,    .validate = validate_channel, .after = after_channel},
    {.stage = kAskWep,           .text = CliWlanPrompt[9],  .shown = wep_shown,            .validate = parse_yesno, .after = after_wep},
    {.stage = kAskKeyLength,     .text = CliWlanPrompt[11], .shown = key_length_shown,     .validate = parse_wepkey_length, .after = after_key_length},
    {.stage = kAskUsePassphrase, .text = CliWlanPrompt[10], .shown = use_passphrase_shown, .validate = parse_yesno, .after = after_use_passphrase},
    {.stage = kAskPassphrase,    .text = CliWlanPrompt[12], .shown = passphrase_shown,     .after = after_passphrase},
    {.stage = kAskKey1,          .text = CliWlanPrompt[18], .shown = key_shown<0>,         .after = after_key<0>},
    {.stage = kAskKey1 + 1,      .text = CliWlanPrompt[19], .shown = key_shown<1>,         .after = after_key<1>},
    {.stage = kAskKey1 + 2,      .text = CliWlanPrompt[20], .shown = key_shown<2>,         .after = after_key<2>},
    {.stage = kAskKey1 + 3,      .text = CliWlanPrompt[21], .shown = key_shown<3>,         .after = after_key<3>},
    {.stage = kAskKeyIndex,      .text = CliWlanPrompt[17], .number = key_index_number,    .validate = parse_key_activate, .after = after_key_index},
    {.stage = kAskRts,           .text = CliWlanPrompt[26], .number = rts_number,          .validate = parse_rts_cts_threshold, .after = after_rts},
    {.stage = kAskFragment,      .text = CliWlanPrompt[27], .number = fragment_number,     .validate = parse_fragment_threshold, .after = after_fragment},
    {.stage = kAskBeacon,        .text = CliWlanPrompt[28], .number = beacon_number,       .validate = parse_beacon_int, .after = after_beacon},
    {.stage = kAskDtim,          .text = CliWlanPrompt[29], .number = dtim_number,         .validate = parse_dtim_int, .after = after_dtim},
};
// clang-format on

// The keys and the passphrase do not stay in records that go out with later requests.
void forget_keys(std::initializer_list<ComParam*> records)
{
    for (ComParam* held : records)
        explicit_bzero(held->bytes + keyType[0].at.offset, hidden.at.offset - keyType[0].at.offset);
}

// The record is not cleared before the request, and the answer's status is not looked at.
bool begin()
{
    const Outcome read = write_record(code::kReadWirelessSettings);
    wizardParam = oldWizardParam = usrComParam;
    forget_keys({&usrComParam});  // the dialogue may be left without an end
    if (read.exchange) CliPrintServiceError(read.exchange, kRadiusGroup);
    return read.exchange == 0;
}

void finish()
{
    if (std::memcmp(&wizardParam, &oldWizardParam, sizeof wizardParam) != 0) {
        usrComParam = wizardParam;
        if (const Outcome written = write_record(code::kWriteWirelessSettings); !written.ok())
            CliPrintServiceError(written.reason(), kRadiusGroup);
    }
    forget_keys({&usrComParam, &wizardParam, &oldWizardParam});
}
}  // namespace

void CliSetPortWlan(ActionBlock& call, int term)
{
    if (call.stage == kOver && !begin()) return;
    if (run_dialogue(kQuestions, call, term) == kOver) finish();
}
