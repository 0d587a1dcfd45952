// What the device's interfaces are called: the names that Linux knows, and the port names that operators see.
#pragma once

// An index without an interface gives an empty text.
const char* GetLanIfName(unsigned index);   // "eth0" to "eth4"
const char* GetWLanIfName(unsigned index);  // "wlan0" to "wlan5"
const char* GetWanIfName(unsigned index);   // the LAN names from "eth1" on: the WAN ports stand behind the LAN port

// "lan", "wan" or "wlan" for the ports of this device; any other name is its own port name.
const char* GetPortNameFromInterface(const char* name);
