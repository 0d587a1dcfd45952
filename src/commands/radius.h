// What the RADIUS handlers share: the two entries and how they are read and written.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "service/client.h"

struct RadiusEntry {
    const char* name;   // the key of every request
    const char* title;  // at the start of a sentence
};
inline constexpr RadiusEntry kPrimaryRadius{"primary", "Primary"};
inline constexpr RadiusEntry kSecondaryRadius{"secondary", "Secondary"};

// One request about the entry: its name goes into usrComParam, the rest of which is left as it stands.
Outcome radius_request(const RadiusEntry& entry, std::uint16_t code);

void DisplayRadiusServer(const RadiusEntry& entry);

// Takes the shared secret out of records that go out with later requests.
void forget_secret(std::initializer_list<ComParam*> records);

// Does so with all the working records when a command is done.
struct ForgetSecret {
    ~ForgetSecret();
};
