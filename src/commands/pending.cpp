// Commands that are understood but not built yet. An action that is built loses its line here.
#include <cstdio>

#include "commands/handlers.h"

namespace {
void not_available_yet() { std::printf("Command not available yet\r\n"); }
}  // namespace

// Management access
void CliDisableUpnp(ActionBlock&, int) { not_available_yet(); }
void CliEnableUpnp(ActionBlock&, int) { not_available_yet(); }
void CliSetHttpPort(ActionBlock&, int) { not_available_yet(); }
void CliSetHttpTimeout(ActionBlock&, int) { not_available_yet(); }
void CliSetTelnetPort(ActionBlock&, int) { not_available_yet(); }
void CliSetTelnetTimeout(ActionBlock&, int) { not_available_yet(); }
void CliShowHttp(ActionBlock&, int) { not_available_yet(); }
void CliShowTelnet(ActionBlock&, int) { not_available_yet(); }
void CliShowUpnp(ActionBlock&, int) { not_available_yet(); }
void CliEnableDdns(ActionBlock&, int) { not_available_yet(); }
void CliDisableDdns(ActionBlock&, int) { not_available_yet(); }
void CliSetDdns(ActionBlock&, int) { not_available_yet(); }
void CliSetRmtmgnt(ActionBlock&, int) { not_available_yet(); }
void CliShowRmtmgnt(ActionBlock&, int) { not_available_yet(); }
void CliEnableRmtmgnt(ActionBlock&, int) { not_available_yet(); }
void CliDisableRmtmgnt(ActionBlock&, int) { not_available_yet(); }
void CliShowPing(ActionBlock&, int) { not_available_yet(); }
void CliShowPingParm(ActionBlock&, int) { not_available_yet(); }
void CliEnablePing(ActionBlock&, int) { not_available_yet(); }
void CliDisablePing(ActionBlock&, int) { not_available_yet(); }

// SNMP
void CliAddTrapMgr(ActionBlock&, int) { not_available_yet(); }
void CliDelTrapMgr(ActionBlock&, int) { not_available_yet(); }
void CliDisableTrapMgr(ActionBlock&, int) { not_available_yet(); }
void CliEnableTrapMgr(ActionBlock&, int) { not_available_yet(); }
void CliSetComStrRead(ActionBlock&, int) { not_available_yet(); }
void CliSetComStrWrite(ActionBlock&, int) { not_available_yet(); }
void CliShowComStrRead(ActionBlock&, int) { not_available_yet(); }
void CliShowSnmpStat(ActionBlock&, int) { not_available_yet(); }
void CliShowTrapMgr(ActionBlock&, int) { not_available_yet(); }
void CliShowTrapMgrParm(ActionBlock&, int) { not_available_yet(); }
void CliEnableSnmp(ActionBlock&, int) { not_available_yet(); }
void CliDisableSnmp(ActionBlock&, int) { not_available_yet(); }
void CliShowSnmp(ActionBlock&, int) { not_available_yet(); }

// Log, trace, diagnostics
void CliDisableLogFac(ActionBlock&, int) { not_available_yet(); }
void CliDisableSyslogd(ActionBlock&, int) { not_available_yet(); }
void CliDisableTraceFac(ActionBlock&, int) { not_available_yet(); }
void CliEnableLogFac(ActionBlock&, int) { not_available_yet(); }
void CliEnableLogFacLel(ActionBlock&, int) { not_available_yet(); }
void CliEnableSyslogd(ActionBlock&, int) { not_available_yet(); }
void CliEnableTraceFac(ActionBlock&, int) { not_available_yet(); }
void CliEnableTraceFacLvl(ActionBlock&, int) { not_available_yet(); }
void CliPing(ActionBlock&, int) { not_available_yet(); }
void CliPingParm(ActionBlock&, int) { not_available_yet(); }
void CliSetLogLvl(ActionBlock&, int) { not_available_yet(); }
void CliSetSyslogd(ActionBlock&, int) { not_available_yet(); }
void CliShowLogTbl(ActionBlock&, int) { not_available_yet(); }
void CliShowLogTblFac(ActionBlock&, int) { not_available_yet(); }
void CliShowArpTable(ActionBlock&, int) { not_available_yet(); }
void CliShowSyslogd(ActionBlock&, int) { not_available_yet(); }
void CliShowLogLvl(ActionBlock&, int) { not_available_yet(); }

// Ports and bridging
void CliDisableStpRouter(ActionBlock&, int) { not_available_yet(); }
void CliEnableStpRouter(ActionBlock&, int) { not_available_yet(); }
void CliShowBrgTblRouter(ActionBlock&, int) { not_available_yet(); }
void CliShowStpRouter(ActionBlock&, int) { not_available_yet(); }
void CliShowStpParmRouter(ActionBlock&, int) { not_available_yet(); }

// Interfaces
void CliShowIfParm(ActionBlock&, int) { not_available_yet(); }

// NAT
void CliShowNat(ActionBlock&, int) { not_available_yet(); }
void CliShowNatParm(ActionBlock&, int) { not_available_yet(); }
void CliEnableNat(ActionBlock&, int) { not_available_yet(); }
void CliAddNatDmzDefault(ActionBlock&, int) { not_available_yet(); }
void CliDeleteNatDmzDefault(ActionBlock&, int) { not_available_yet(); }
void CliAddNatMdmz(ActionBlock&, int) { not_available_yet(); }
void CliDeleteNatMdmz(ActionBlock&, int) { not_available_yet(); }
void CliAddNatRedirect(ActionBlock&, int) { not_available_yet(); }
void CliDeleteNatRedirect(ActionBlock&, int) { not_available_yet(); }

// IP filter
void CliAddIpFilter(ActionBlock&, int) { not_available_yet(); }
void CliDeleteIpFilter(ActionBlock&, int) { not_available_yet(); }
void CliShowIpFilter(ActionBlock&, int) { not_available_yet(); }
void CliShowIpFilterParm(ActionBlock&, int) { not_available_yet(); }
void CliSetIpFilter(ActionBlock&, int) { not_available_yet(); }

// Engineering
void CliDebugMacRead(ActionBlock&, int) { not_available_yet(); }
void CliDebugMacWrite(ActionBlock&, int) { not_available_yet(); }
void CliZDebugHttpLogout(ActionBlock&, int) { not_available_yet(); }
void CliZDebugWanIP(ActionBlock&, int) { not_available_yet(); }
void CliZDebugAddSsid(ActionBlock&, int) { not_available_yet(); }
void CliZDebugSetPortRadio(ActionBlock&, int) { not_available_yet(); }
void CliZDebugBuild(ActionBlock&, int) { not_available_yet(); }
void CliZDebugShell(ActionBlock&, int) { not_available_yet(); }
void CliZDebugWRegDomRead(ActionBlock&, int) { not_available_yet(); }
void CliZDebugWRegDomWrite(ActionBlock&, int) { not_available_yet(); }
void CliZDebugPreKeyRead(ActionBlock&, int) { not_available_yet(); }
void CliZDebugPreKeyWrite(ActionBlock&, int) { not_available_yet(); }
void CliZDebugSignatureDisable(ActionBlock&, int) { not_available_yet(); }
void CliZDebugSignatureEnable(ActionBlock&, int) { not_available_yet(); }
void CliZShell(ActionBlock&, int) { not_available_yet(); }
