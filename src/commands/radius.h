// What the RADIUS handlers share: the two entries and how they are read and written.
#pragma once

#include "service/client.h"

#include <cstdint>

struct RadiusEntry {
    const char* name;   // the key of every request
    const char* title;  // at the start of a sentence
};
inline constexpr RadiusEntry kPrimaryRadius{"primary", "Primary"};
inline constexpr RadiusEntry kSecondaryRadius{"secondary", "Secondary"};

// One request about the entry: its name goes into usrComParam, the rest of which is left as it stands.
Outcome radius_request(const RadiusEntry& entry, std::uint16_t code);

void DisplayRadiusServer(const RadiusEntry& entry);

// Takes the shared secret out of the working records when a command is done: they go out with later requests.
struct ForgetSecret {
    ~ForgetSecret();
};
