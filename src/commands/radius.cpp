// The two RADIUS servers: shown, enabled, disabled, deleted, and the settings that hold for both. Which failures are
// examined differs from command to command, on purpose.
#include "commands/radius.h"

#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "commands/command.h"
#include "service/fields/radius.h"
#include "values/format.h"

namespace {
using namespace radius_record;

constexpr Word kLeastRetries = 1, kMostRetries = 5, kLeastReattempt = 5, kMostReattempt = 60;

bool report(std::uint32_t reason)
{
    if (reason) CliPrintServiceError(reason, kRadiusGroup);
    return reason == 0;
}

const char* state(const ComParam& entry) { return enabled.get(entry) == 1 ? "Enabled" : "Disabled"; }

struct BothEntries {
    ComParam primary, secondary;
    Outcome first, second;
    bool ok() const { return first.ok() && second.ok(); }
    std::uint32_t reason() const { return first.ok() ? second.reason() : first.reason(); }
};

BothEntries read_both()
{
    BothEntries both;
    both.first = radius_request(kPrimaryRadius, code::kReadRadius);
    both.primary = usrComParam;
    both.second = radius_request(kSecondaryRadius, code::kReadRadius);
    both.secondary = usrComParam;
    return both;
}

Outcome write_entry(const ComParam& entry)
{
    usrComParam = entry;
    return write_record(code::kWriteRadius);
}

void enable_entry(const RadiusEntry& entry)
{
    const ForgetSecret forget;
    if (!report(radius_request(entry, code::kReadRadius).reason())) return;
    enabled.set(usrComParam, 1);
    if (!report(radius_request(entry, code::kWriteRadius).reason())) return;
    if (!report(radius_request(entry, code::kApplyRadius).reason())) return;
    std::printf("%s radius server is enabled.\n", entry.title);
}

// A read that failed leaves the record as it is, and it is written all the same; only what applies it is examined.
void disable_entry(const RadiusEntry& entry)
{
    const ForgetSecret forget;
    if (report(radius_request(entry, code::kReadRadius).exchange)) enabled.set(usrComParam, 0);
    radius_request(entry, code::kWriteRadius);
    if (report(radius_request(entry, code::kApplyRadius).exchange))
        std::printf("%s radius server is disabled.\n", entry.title);
}

void DeleteRadiusSrv(const RadiusEntry& entry)
{
    name.clear(usrComParam);
    if (report(radius_request(entry, code::kDeleteRadius).reason()))
        std::printf("%s radius server is deleted\r\n ", entry.name);
}

void print_entry_row(const RadiusEntry& entry, const ComParam& values)
{
    std::printf("\n %-31s %s                   %s/%d ", entry.title, state(values), CliFormatIPv4(address.get(values)),
                port.get(values));
}
}  // namespace

Outcome radius_request(const RadiusEntry& entry, std::uint16_t code)
{
    name.set(usrComParam, entry.name);
    return write_record(code);
}

void DisplayRadiusServer(const RadiusEntry& entry)
{
    const ForgetSecret forget;
    if (!report(radius_request(entry, code::kReadRadius).reason())) return;
    std::printf("   RADIUS Server: %s\n   State: %s\n   Server IP: %s\n   Port Number: %d\n   Shared Secret: %s\n",
                entry.name, state(usrComParam), CliFormatIPv4(address.get(usrComParam)), port.get(usrComParam),
                secret.get(usrComParam));
}

void forget_secret(std::initializer_list<ComParam*> records)
{
    for (ComParam* held : records) explicit_bzero(held->bytes + secret.at.offset, secret.at.width);
}

ForgetSecret::~ForgetSecret() { forget_secret({&usrComParam, &wizardParam, &oldWizardParam}); }

void CliShowRadiusSrvPrimary(ActionBlock&, int) { DisplayRadiusServer(kPrimaryRadius); }
void CliShowRadiusSrvSecondary(ActionBlock&, int) { DisplayRadiusServer(kSecondaryRadius); }
void CliEnableRadiusSrvPrimary(ActionBlock&, int) { enable_entry(kPrimaryRadius); }
void CliEnableRadiusSrvSecondary(ActionBlock&, int) { enable_entry(kSecondaryRadius); }
void CliDisableRadiusSrvPrimary(ActionBlock&, int) { disable_entry(kPrimaryRadius); }
void CliDisableRadiusSrvSecondary(ActionBlock&, int) { disable_entry(kSecondaryRadius); }
void CliDeleteRadiusPrimary(ActionBlock&, int) { DeleteRadiusSrv(kPrimaryRadius); }
void CliDeleteRadiusSecondary(ActionBlock&, int) { DeleteRadiusSrv(kSecondaryRadius); }

void CliShowRadiusServerAll(ActionBlock&, int)
{
    const ForgetSecret forget;
    const BothEntries both = read_both();
    if (!both.ok()) {
        CliPrintServiceError(both.first.reason(), kRadiusGroup);  // the first read's result, whichever failed
        return;
    }
    std::printf("\n RADIUS Server                   State                IP/Port");
    std::printf("\n ----------------------------------------------------------------");
    print_entry_row(kPrimaryRadius, both.primary);
    print_entry_row(kSecondaryRadius, both.secondary);
    std::printf("\n\n RADIUS MAC Access Control: %s\n", macControl.get(both.primary) == 1 ? "Enable" : "Disable");
    std::printf(" RADIUS Server Retry:     %d times\n", retries.get(both.primary));
    std::printf(" RADIUS Server reattempt: %d minutes\n", reattempt.get(both.primary));
}

void CliSetRadiusRetry(ActionBlock& call, int)
{
    const Word times = call.parms.value[call.parms.count - 1];
    if (times < kLeastRetries || times > kMostRetries) {
        std::printf("Radius server reattempt should be between 1 to 5\r\n");
        return;
    }
    const ForgetSecret forget;
    BothEntries both = read_both();
    if (!report(both.reason())) return;
    retries.set(both.primary, static_cast<std::uint8_t>(times));
    retries.set(both.secondary, static_cast<std::uint8_t>(times));

    const Outcome first = write_entry(both.primary), second = write_entry(both.secondary);
    if (report(first.ok() ? second.reason() : first.reason()))
        std::printf("Radius server reattempt is %d times.\n", static_cast<int>(times));
}

void CliSetRadiusReattempt(ActionBlock& call, int)
{
    const Word minutes = call.parms.value[call.parms.count - 1];
    if (minutes < kLeastReattempt || minutes > kMostReattempt) {
        std::printf("Radius server reattempt should be between 5 to 60\r\n");
        return;
    }
    reattempt.set(usrComParam, static_cast<std::uint16_t>(minutes));
    if (report(write_record(code::kWriteRadiusReattempt).reason()))
        std::printf("Radius server reattempt is %d minutes.\n", static_cast<int>(minutes));
}

namespace {
struct MacControlWrites {
    bool read;
    Outcome first, second;
};

MacControlWrites write_mac_control(std::uint8_t on)
{
    const ForgetSecret forget;
    BothEntries both = read_both();
    if (!report(both.reason())) return {};
    macControl.set(both.primary, on);
    macControl.set(both.secondary, on);
    const Outcome first = write_entry(both.primary);
    return {true, first, write_entry(both.secondary)};
}
}  // namespace

void CliEnableRadiusMAC(ActionBlock&, int)
{
    const auto [read, first, second] = write_mac_control(1);
    if (read && report(first.ok() ? second.reason() : first.reason()))
        std::printf("RADIUS MAC access control is enabled\n");
}

// The write of the secondary entry is not examined.
void CliDisableRadiusMAC(ActionBlock&, int)
{
    const auto [read, first, second] = write_mac_control(0);
    if (read && report(first.reason())) std::printf("RADIUS MAC access control is disable\n");
}
