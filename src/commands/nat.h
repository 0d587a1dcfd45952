// What the NAT commands share: its tables on the screen, and what their dialogues ask about.
#pragma once

#include "commands/interface_list.h"
#include "service/client.h"

inline constexpr char kAnyOf[] = "";  // an interface or a name that does not narrow a table

// Each prints one table, of one interface or one name if so told; false: it could not be read, which has been reported.
bool show_nat_interfaces(const char* interface);
bool show_dmz_hosts(const char* interface, const char* name);
bool show_nat_servers(const char* interface, const char* name);
bool show_nat_triggers(const char* name);

bool report_nat(const Outcome& outcome);  // whether all went well

// The request that usrComParam becomes: an entry of that name, all else zero.
unsigned char* new_nat_entry(const char* name);

// What a dialogue must know before it asks: the interfaces that can translate, the LAN.
struct NatSurroundings {
    InterfaceNames interfaces;
    std::uint32_t lanAddress, lanNetmask;

    bool is_lan_host(std::uint32_t address) const;  // of another device in the LAN
};
bool read_nat_surroundings(NatSurroundings& found);
