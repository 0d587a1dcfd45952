// The counters of the machine's protocols, as the kernel keeps them for SNMP (/proc/net/snmp, proc(5)).
#pragma once

extern const char* snmpStatisticsPath;  // tests put their own file in its place
