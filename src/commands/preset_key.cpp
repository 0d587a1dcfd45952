// Engineering: the preset WEP keys. What a key is never comes back from the service, only how long it is.
#include <array>
#include <cstdio>
#include <cstring>
#include <strings.h>

#include "commands/command.h"
#include "console/messages.h"
#include "prompts/validators.h"
#include "service/fields/engineering.h"
#include "values/format.h"
#include "values/scanners.h"

namespace {
using namespace preset_key_record;
constexpr char kWhatItTakes[] = "A preset key has an index from 1 to 4 and 5 or 13 hexadecimal octets:\n"
                                "z_debug prekey write 1 0a-1b-2c-3d-4e\n";

void print_keys()
{
    for (unsigned i = 0; i < kKeys; ++i) {
        const unsigned octets = length[i].get(usrComParam);
        if (octets)
            std::printf("Preset key %u: %u octets\n", i + 1, octets);
        else
            std::printf("Preset key %u: not set\n", i + 1);
    }
}

// A key of one of the two lengths; 0 when the text is none. Octets that it leaves out at the end are zero.
unsigned scan_key(const char* text, std::array<unsigned char, kLongKey>& octets)
{
    for (const unsigned size : {kShortKey, kLongKey}) {
        octets = {};
        if (parse_hex_wepkey(text, octets.data(), size) == 0) return size;
    }
    return 0;
}

void put_key(const unsigned char* octets, unsigned size)
{
    char text[kLongKey * 3 + 1] = {};
    for (unsigned i = 0; i < size; ++i) {
        if (i > 0) text[i * 3 - 1] = '-';
        fillHex(text + i * 3, octets[i]);
    }
    key.set(usrComParam, text);
    explicit_bzero(text, sizeof text);
}
}  // namespace

void CliZDebugPreKeyRead(ActionBlock&, int)
{
    if (const Outcome read = read_record(code::kReadPresetKey); !read.ok())
        CliPrintServiceError(read.reason(), kWirelessGroup);
    else
        print_keys();
}

// Without its two parameters it says what they are.
void CliZDebugPreKeyWrite(ActionBlock& call, int term)
{
    if (call.parms.count < 2) {
        std::printf("%s", kWhatItTakes);
        return;
    }
    if (call.parms.value[0] < 1 || call.parms.value[0] > kKeys) {
        PrintMsg(term, kKeyIndexRange);
        return;
    }
    std::array<unsigned char, kLongKey> octets;
    const unsigned size = scan_key(text_parm(call, 1), octets);
    if (size == 0) {
        std::printf("%s", kWhatItTakes);
        return;
    }
    std::memset(&usrComParam, 0, sizeof usrComParam);
    preset_key_record::index.set(usrComParam, static_cast<std::uint8_t>(call.parms.value[0]));
    put_key(octets.data(), size);
    explicit_bzero(octets.data(), octets.size());
    const Outcome written = write_record(code::kWritePresetKey);
    key.clear(usrComParam);  // a request that failed leaves it there
    if (written.ok())
        print_keys();
    else
        CliPrintServiceError(written.reason(), kWirelessGroup);
}
