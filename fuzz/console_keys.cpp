// The operator's keys: the password, both editors, history, help and every dialogue. The input is the keys; the service
// takes whatever is written and shows tables of two entries.
#include "fuzz/console.h"
#include "fuzz/fuzzing.h"

namespace {
constexpr std::size_t kMostKeys = 4096;

std::uint32_t agree(ComParam&, std::string& table)
{
    table.assign(192, '\1');
    return 0;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size > kMostKeys) return 0;
    FuzzedConsole console(agree);
    console.press({data, size});
    return 0;
}
