// A console session in memory: keys in, what it prints thrown away. The service is a stand-in, and the programs and
// files of the machine are none that exist.
#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>

#include "commands/service_stand_in.h"
#include "fuzz/streams.h"

class FuzzedConsole {
public:
    explicit FuzzedConsole(service_stand_in::Answer answer);
    ~FuzzedConsole();

    // As long as the session lasts; the banner comes with the first key.
    void press(std::span<const std::uint8_t> keys);
    void type(std::string_view keys);

    // Calls the action of a command whether a typed line reaches it or not, with these words for its parameters.
    // Questions that it then asks are answered by what is typed next.
    void call(std::uint32_t cmdId, std::string_view words);

private:
    Silence silence_;
    std::deque<std::string> parameters_;  // none of them moves
};
