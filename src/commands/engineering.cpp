// Engineering: the base register, the WAN address, the build, and the two that ask before they do anything.
#include "service/fields/engineering.h"

#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/confirmation.h"
#include "commands/named_mac.h"
#include "prompts/prompts.h"
#include "service/fields/address.h"
#include "service/fields/system.h"
#include "values/format.h"

namespace {
constexpr int kHttpLogout = 42, kDisableSignature = 43, kEnableSignature = 44;  // in cliPrompt
constexpr char kWan[] = "wan";
#ifdef __clang__
constexpr char kCompiler[] = __VERSION__;
#else
constexpr char kCompiler[] = "GCC " __VERSION__;
#endif

bool report(const Outcome& outcome, std::uint32_t group = kSystemGroup)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), group);
    return outcome.ok();
}

void print_mac()
{
    std::printf("MAC address: %s%s\n", upper_mac(base_register_record::mac.get(usrComParam)),
                base_register_record::macWritten.get(usrComParam) ? "" : " (of the LAN interface, none was written)");
}

void switch_signature(ActionBlock& call, int term, int question, bool on)
{
    if (confirm(call, term, cliPrompt[question]) != Confirmation::yes) return;
    if (!report(read_record(code::kReadMacRegister))) return;
    base_register_record::signatureCheck.set(usrComParam, on);
    if (report(write_record(code::kWriteMacRegister)))
        std::printf("Signature check: %s\n", on ? "enabled" : "disabled");
}
}  // namespace

void CliDebugMacRead(ActionBlock&, int)
{
    if (report(read_record(code::kReadMacRegister))) print_mac();
}

void CliDebugMacWrite(ActionBlock& call, int)
{
    if (!report(read_record(code::kReadMacRegister))) return;
    base_register_record::mac.set(usrComParam, last_mac_parm(call));
    base_register_record::macWritten.set(usrComParam, 1);
    if (report(write_record(code::kWriteMacRegister))) print_mac();
}

void CliZDebugWanIP(ActionBlock& call, int)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    address_record::interface.set(usrComParam, kWan);
    if (!report(write_record(code::kReadAddress), kAddressGroup)) return;

    address_record::interface.set(usrComParam, kWan);
    address_record::mode.set(usrComParam, address_record::kStatic);
    address_record::address.set(usrComParam, static_cast<std::uint32_t>(call.parms.value[0]));
    address_record::netmask.set(usrComParam, static_cast<std::uint32_t>(call.parms.value[1]));
    address_record::gateway.set(usrComParam, static_cast<std::uint32_t>(call.parms.value[2]));
    if (!report(write_record(code::kWriteAddress), kAddressGroup)) return;

    // One formatter buffer: each address is printed before the next is made.
    std::printf("WAN IP/Netmask: %s/", CliFormatIPv4(address_record::address.get(usrComParam)));
    std::printf("%s\n", CliFormatIPv4(address_record::netmask.get(usrComParam)));
    std::printf("Gateway: %s\n", CliFormatIPv4(address_record::gateway.get(usrComParam)));
}

// The console's own build; the version that it greets with is the device's, which the service knows.
void CliZDebugBuild(ActionBlock&, int)
{
    const Outcome read = read_record(code::kReadSystem);
    std::printf("Version:  %s\n", read.ok() ? system_record::version.get(usrComParam) : "not known");
    std::printf("Compiler: %s\n", kCompiler);
    std::printf("Target:   %u bits, %s-endian\n", static_cast<unsigned>(sizeof(void*) * 8),
                __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ ? "little" : "big");
    std::printf("Record:   %u bytes\n", static_cast<unsigned>(kRecordSize));
    if (!read.ok()) report(read);
}

// The web management would have to hold the connection for it to be closed here.
void CliZDebugHttpLogout(ActionBlock& call, int term)
{
    if (confirm(call, term, cliPrompt[kHttpLogout]) == Confirmation::yes)
        std::printf("There is no HTTP connection to close: no web management runs on this device\n");
}

void CliZDebugSignatureDisable(ActionBlock& call, int term) { switch_signature(call, term, kDisableSignature, false); }
void CliZDebugSignatureEnable(ActionBlock& call, int term) { switch_signature(call, term, kEnableSignature, true); }
