// The stored file, of this format and older ones, whole or torn: the service starts with it or sets it aside, and what
// it then holds can be stored. The input is the file.
#include "fuzz/device.h"
#include "fuzz/fuzzing.h"
#include "fuzz/streams.h"

namespace {
std::string start_from(const std::string& path, std::string content)
{
    FuzzedDevice device;
    device.storage.files[path] = std::move(content);
    device.start();
    device.check_stored_form();
    holds(device.service->store.save() == kStatusOk, "what was started from cannot be saved");
    return device.service->store.running().text();
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Silence silence;
    const std::string content(reinterpret_cast<const char*>(data), size);
    const std::string started = start_from(kSavedFile, content);
    holds(start_from(kRunningFile, content) == started, "the file means one thing when saved, another when running");
    return 0;
}
