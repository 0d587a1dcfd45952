// The exchanges that the port commands share: counters of a named interface, in a record of their own.
#pragma once

#include "service/client.h"

// "Error occurs: N" for a refusal, the reason in words when the exchange itself failed; nothing when all went well.
// Returns whether all went well. The display goes on either way, so that what is known is still seen.
bool report_port_error(const Outcome& outcome);

// One request with the interface's name in `key` and its release; `answer` is cleared first and holds what came back.
Outcome ask_about_interface(ComParam& answer, std::uint16_t code, const TextField& key, const char* interface);
