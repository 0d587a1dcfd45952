// Answers of a service that may be broken or hostile, while commands run. The input is a script in the lines of
// record_script.h, which change the record that is answered with, and these:
//
//     s STATUS    its status                  f N        the exchange fails with N; 0: it works again
//     T HEX       the table behind it         r N        the table N times over
//     P PLACE     where it says that is       c CODE     only requests of this code get the record; 0: all do
//     > KEYS      a typed line                d ID WORDS calls that command's action with these words
//
// Requests that the record is not for come back as they were sent.
#include <algorithm>

#include "fuzz/console.h"
#include "fuzz/fuzzing.h"
#include "fuzz/record_script.h"

namespace {
constexpr int kMostLines = 200;
constexpr std::size_t kLargestTable = 1 << 16;

struct Script {
    ComParam record{};
    std::string table;
    std::uint32_t failure = 0, only = 0;

    std::uint32_t answer(ComParam& request, std::string& itsTable) const
    {
        const std::uint32_t code = record::code.get(request);
        if (only != 0 && only != code) return 0;
        request = record;
        record::code.set(request, code);
        itsTable = table;
        return failure;
    }

    void repeat_table(std::size_t times)
    {
        const std::string once = table;
        times = std::min(times, once.empty() ? 0 : kLargestTable / once.size());
        for (std::size_t i = 1; i < times; i++) table += once;
    }

    void obey(FuzzedConsole& console, char letter, Words words)
    {
        switch (letter) {
        case 's': record::status.set(record, words.number()); break;
        case 'P': record::attachedPosition.set(record, words.number()); break;
        case 'f': failure = words.number(); break;
        case 'c': only = words.number(); break;
        case 'T': table = words.bytes(); break;
        case 'r': repeat_table(words.number()); break;
        case '>': console.type(std::string(words.text()) + '\n'); break;
        case 'd': {
            const std::uint32_t cmdId = words.number();
            console.call(cmdId, words.text());
            break;
        }
        default: edit_record(record, letter, words);
        }
    }
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view text(reinterpret_cast<const char*>(data), size);
    Script script;
    FuzzedConsole console([&script](ComParam& request, std::string& table) { return script.answer(request, table); });
    console.type("admin\n");
    new_record(script.record);
    record::attachedPosition.set(script.record, kRecordSize);
    char letter;
    Words words;
    for (int i = 0; i < kMostLines && take_line(text, letter, words); i++) script.obey(console, letter, words);
    return 0;
}
