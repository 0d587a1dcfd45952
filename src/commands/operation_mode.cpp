// What the radio does: access point, WDS bridge, or repeater. Only the last needs a question: which access point.
#include "service/fields/operation_mode.h"

#include <algorithm>
#include <cstdio>

#include "commands/command.h"
#include "console/messages.h"
#include "prompts/prompts.h"
#include "values/format.h"
#include "values/parsers.h"

namespace {
using namespace operation_mode_record;

enum Stage : std::uint32_t { kOver = 0, kAskMac = 195 };
constexpr int kEnterMac = 20;  // in ftrPrompt

constexpr const char* kNames[] = {"accesspoint", "wds", "repeater"};

ComParam modeRecord;  // as read when the dialogue began; the answer goes into it

const char* mode_name(std::uint8_t value)
{
    return value >= kAccessPoint && value <= kRepeater ? kNames[value - kAccessPoint] : "unknown";
}

void read_mode()
{
    write_record(code::kReadOperationMode);
    modeRecord = usrComParam;
}

const char* repeated_mac() { return CliFormatMAC(repeated.get(modeRecord)); }

// A repeated access point counts as stored while its first four octets are not all zero.
bool mac_stored()
{
    const unsigned char* mac = repeated.get(modeRecord);
    return std::any_of(mac, mac + 4, [](unsigned char octet) { return octet != 0; });
}

void ask_mac(ActionBlock& call)
{
    read_mode();
    CliPromptX(ftrPrompt[kEnterMac], mode.get(modeRecord) == kRepeater ? repeated_mac() : "Unspecified");
    call.stage = kAskMac;
}

void take_mac(ActionBlock& call, int term)
{
    char* answer = reinterpret_cast<char*>(call.parms.value[call.parms.count]);
    if (*answer == 0) {
        if (mac_stored())
            call.stage = kOver;
        else
            CliPromptLast();
        return;
    }
    if (const std::uint32_t refusal = CliParseMACAddress(answer, call.parms); refusal != kOk) {
        PrintMsg(term, refusal);
        CliPromptLast();
        return;
    }
    repeated.set(modeRecord, &call.parms.value[call.parms.count - 2]);
    call.stage = kOver;
}

void write_mode(std::uint8_t wanted)
{
    mode.set(usrComParam, wanted);
    if (wanted == kRepeater) repeated.set(usrComParam, repeated.get(modeRecord));
    if (const Outcome written = write_record(code::kWriteOperationMode); !written.ok()) {
        CliPrintServiceError(written.reason(), kOperationModeGroup);
        return;
    }
    std::printf("Operation mode: %s\r\n", mode_name(mode.get(usrComParam)));
    std::fflush(stdout);
}
}  // namespace

void CliSetOperationMode(ActionBlock& call, int term)
{
    const auto wanted = static_cast<std::uint8_t>(call.parms.value[0]);
    if (wanted == kRepeater) {
        if (call.stage == kOver)
            ask_mac(call);
        else
            take_mac(call, term);
        if (call.stage != kOver) return;
    }
    write_mode(wanted);
}

void CliShowRepeaterAp(ActionBlock&, int)
{
    read_mode();
    std::printf("The Repeater AP is set to engineering %s\r\n",
                mode.get(modeRecord) == kRepeater ? repeated_mac() : "Unspecified");
}

void CliShowOperationMode(ActionBlock&, int)
{
    read_mode();
    std::printf("Operational mode         : %s\r\n", mode_name(mode.get(modeRecord)));
    if (mode.get(modeRecord) == kRepeater) std::printf("The Repeater MAC Address : %s\r\n", repeated_mac());
}
