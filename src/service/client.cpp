#include "service/client.h"

#include <cstring>

#include "console/terminal.h"
#include "platform/ipc_client.h"
#include "platform/log_messages.h"

ComParam usrComParam, wizardParam, oldWizardParam, OldSettingsParam;
void* sysComParam;

namespace {
constexpr std::uint32_t kTextFlags = 0xFDFDFDFD;  // what this system always passes to the log message library
constexpr char kBell = 7;

void release()
{
    IPCServiceDone(sysComParam);
    sysComParam = nullptr;
}

std::uint32_t send(ComParam& request, std::uint16_t code)
{
    record::kind.set(request, record::kRequest);
    record::code.set(request, code);
    show_output();  // the answer may take its time
    const std::uint32_t failed = IPCServiceClient(&request, &sysComParam);
    if (!failed) std::memcpy(&request, sysComParam, sizeof request);
    return failed;
}

Outcome exchange(ComParam& request, std::uint16_t code)
{
    const std::uint32_t failed = send(request, code);
    return {failed, record::status.get(request)};
}
}  // namespace

std::uint32_t CliServiceRoutine(std::uint32_t mode, std::uint16_t code)
{
    if (mode == 0) return send(usrComParam, code);
    if (mode != 1) return 0;
    const std::uint32_t result = IPCServiceDone(sysComParam);
    sysComParam = nullptr;
    return result;
}

int CliPrintServiceError(std::uint32_t status, std::uint32_t group)
{
    char text[1 + LOG_MESSAGE_SIZE] = {kBell};
    logGetMsgX(status, group, text + 1, kTextFlags);
    prn_msg(0, text);
    return prn_msg(0, "\n");
}

int print_service_text(std::uint32_t status, std::uint32_t group)
{
    char text[LOG_MESSAGE_SIZE];
    logGetMsgX(status, group, text, kTextFlags);
    prn_msg(0, text);
    return prn_msg(0, "\n");
}

Outcome read_record(std::uint16_t code)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    return write_record(code);
}

Outcome write_record(std::uint16_t code)
{
    const Outcome outcome = exchange(usrComParam, code);
    release();
    return outcome;
}

Exchange::Exchange(std::uint16_t code) : Exchange(usrComParam, code) {}

Exchange::Exchange(ComParam& request, std::uint16_t code) : outcome_(exchange(request, code)) {}

Exchange::~Exchange() { release(); }

AttachedTable Exchange::table(std::size_t entrySize) const { return {sysComParam, IPCResponseSize(), entrySize}; }
