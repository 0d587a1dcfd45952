// set system name | contact | location, and set prompt.
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "service/fields/system.h"

namespace {
struct SystemText {
    TextField field;
    std::uint32_t Outcome::*onRead;  // which number a failure shows; the three differ on purpose
    std::uint32_t Outcome::*onWrite;
    const char* confirmation;
};
// clang-format off
constexpr SystemText kContact {system_record::contact,  &Outcome::status,   &Outcome::status,   "System contact: %s\n"};
constexpr SystemText kLocation{system_record::location, &Outcome::status,   &Outcome::exchange, "System location: %s\n"};
constexpr SystemText kName    {system_record::name,     &Outcome::exchange, &Outcome::status,   "System Name: %s\n"};
// clang-format on

void set_system_text(const SystemText& what, const char* text)
{
    if (const Outcome read = read_record(code::kReadSystem); !read.ok()) {
        CliPrintServiceError(read.*what.onRead, kSystemGroup);
        return;
    }
    what.field.set(usrComParam, text);
    if (const Outcome written = write_record(code::kWriteSystem); !written.ok()) {
        CliPrintServiceError(written.*what.onWrite, kSystemGroup);
        return;
    }
    std::printf(what.confirmation, text);
}
}  // namespace

void CliSetSystemContact(ActionBlock& call, int) { set_system_text(kContact, text_parm(call, 0)); }
void CliSetSystemLocation(ActionBlock& call, int) { set_system_text(kLocation, text_parm(call, 0)); }
void CliSetSystemName(ActionBlock& call, int) { set_system_text(kName, text_parm(call, 0)); }

// The record is not read first: it goes out as the last answer left it, and the service takes the prompt alone from
// such a record.
void CliSetSystemPrompt(ActionBlock& call, int)
{
    const char* text = text_parm(call, 0);
    if (std::strlen(text) >= system_record::prompt.at.width) {
        std::printf("Prompt string length should be less than 16\r\n");
        return;
    }
    system_record::prompt.set(usrComParam, text);
    if (const Outcome written = write_record(code::kWriteSystem); !written.ok()) {
        CliPrintServiceError(written.reason(), kSystemGroup);
        return;
    }
    std::printf("Set prompt to %s success, next time you login will take effect\r\n", text);
}
