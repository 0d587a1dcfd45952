// The names of the device's interfaces, in the order of the service's interface table.
#pragma once

inline constexpr int kMaxInterfaces = 11;  // more are not looked at
inline constexpr int kInterfaceNameSize = 16;

struct InterfaceNames {
    char name[kMaxInterfaces][kInterfaceNameSize];
    int count;
    bool has(const char* wanted) const;
};

// Fills the list and returns its count; 0 after reporting why, when the service refuses.
int CliGetIfNames(InterfaceNames& names);

// The same from the service's list of interfaces, which tells their number as well. A refusal is not reported.
int CliQueryIfNumber();
int CliGetIfList(InterfaceNames& names);
