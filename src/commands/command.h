// What the handlers share: reaching a command's parameters, and the answer of a failed request.
#pragma once

#include <cstdint>

#include "commands/handlers.h"
#include "service/client.h"

// The text of the parameter at `index`.
inline const char* text_parm(const ActionBlock& call, Word index)
{
    return reinterpret_cast<const char*>(call.parms.value[index]);
}
