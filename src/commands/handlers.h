// The action functions of the commands. An action is called with the command's parameters and the terminal that they
// came from; one that asks questions leaves its stage in the call and is called again with each answer.
#pragma once

#include "console/session.h"

// System
void CliChangePassword(ActionBlock& call, int term);
void CliClearConfig(ActionBlock& call, int term);
void CliRestSystem(ActionBlock& call, int term);
void CliSaveConfig(ActionBlock& call, int term);
void CliSetSystemPrompt(ActionBlock& call, int term);
void CliSetSystemContact(ActionBlock& call, int term);
void CliSetSystemIP(ActionBlock& call, int term);
void CliSetSystemLocation(ActionBlock& call, int term);
void CliSetSystemName(ActionBlock& call, int term);
void CliShowSystem(ActionBlock& call, int term);
void CliShowSystemIp(ActionBlock& call, int term);

// Date, time, time server
void CliSetDate(ActionBlock& call, int term);
void CliSetTime(ActionBlock& call, int term);
void CliSetTimezone(ActionBlock& call, int term);
void CliShowDate(ActionBlock& call, int term);
void CliShowTime(ActionBlock& call, int term);
void CliSetNtpClient(ActionBlock& call, int term);
void CliShowNtpClient(ActionBlock& call, int term);
void CliEnableNtpClient(ActionBlock& call, int term);
void CliDisableNtpClient(ActionBlock& call, int term);

// Management access
void CliDisableUpnp(ActionBlock& call, int term);
void CliEnableUpnp(ActionBlock& call, int term);
void CliSetHttpPort(ActionBlock& call, int term);
void CliSetHttpTimeout(ActionBlock& call, int term);
void CliSetTelnetPort(ActionBlock& call, int term);
void CliSetTelnetTimeout(ActionBlock& call, int term);
void CliShowHttp(ActionBlock& call, int term);
void CliShowTelnet(ActionBlock& call, int term);
void CliShowUpnp(ActionBlock& call, int term);
void CliEnableDdns(ActionBlock& call, int term);
void CliDisableDdns(ActionBlock& call, int term);
void CliSetDdns(ActionBlock& call, int term);
void CliSetRmtmgnt(ActionBlock& call, int term);
void CliShowRmtmgnt(ActionBlock& call, int term);
void CliEnableRmtmgnt(ActionBlock& call, int term);
void CliDisableRmtmgnt(ActionBlock& call, int term);
void CliShowPing(ActionBlock& call, int term);
void CliShowPingParm(ActionBlock& call, int term);
void CliEnablePing(ActionBlock& call, int term);
void CliDisablePing(ActionBlock& call, int term);

// DHCP server
void CliAddDhcpStatic(ActionBlock& call, int term);
void CliDelDhcpStatic(ActionBlock& call, int term);
void CliDisableDhcpSrv(ActionBlock& call, int term);
void CliEnableDhcpSrv(ActionBlock& call, int term);
void CliSetDhcpSrv(ActionBlock& call, int term);
void CliShowDchpCntTbl(ActionBlock& call, int term);
void CliShowDhcpSrv(ActionBlock& call, int term);
void CliShowDhcpStatic(ActionBlock& call, int term);

// SNMP
void CliAddTrapMgr(ActionBlock& call, int term);
void CliDelTrapMgr(ActionBlock& call, int term);
void CliDisableTrapMgr(ActionBlock& call, int term);
void CliEnableTrapMgr(ActionBlock& call, int term);
void CliSetComStrRead(ActionBlock& call, int term);
void CliSetComStrWrite(ActionBlock& call, int term);
void CliShowComStrRead(ActionBlock& call, int term);
void CliShowSnmpStat(ActionBlock& call, int term);
void CliShowTrapMgr(ActionBlock& call, int term);
void CliShowTrapMgrParm(ActionBlock& call, int term);
void CliEnableSnmp(ActionBlock& call, int term);
void CliDisableSnmp(ActionBlock& call, int term);
void CliShowSnmp(ActionBlock& call, int term);

// Log, trace, diagnostics
void CliDisableLogFac(ActionBlock& call, int term);
void CliDisableSyslogd(ActionBlock& call, int term);
void CliDisableTraceFac(ActionBlock& call, int term);
void CliEnableLogFac(ActionBlock& call, int term);
void CliEnableLogFacLel(ActionBlock& call, int term);
void CliEnableSyslogd(ActionBlock& call, int term);
void CliEnableTraceFac(ActionBlock& call, int term);
void CliEnableTraceFacLvl(ActionBlock& call, int term);
void CliPing(ActionBlock& call, int term);
void CliPingParm(ActionBlock& call, int term);
void CliSetLogLvl(ActionBlock& call, int term);
void CliSetSyslogd(ActionBlock& call, int term);
void CliShowLogTbl(ActionBlock& call, int term);
void CliShowLogTblFac(ActionBlock& call, int term);
void CliShowArpTable(ActionBlock& call, int term);
void CliShowSyslogd(ActionBlock& call, int term);
void CliShowLogLvl(ActionBlock& call, int term);

// Ports and bridging
void CliClearPortStatsAll(ActionBlock& call, int term);
void CliClearPortStatsWlan(ActionBlock& call, int term);
void CliSetPortWlan(ActionBlock& call, int term);
void CliShowPort(ActionBlock& call, int term);
void CliShowPortLan(ActionBlock& call, int term);
void CliShowPortStats(ActionBlock& call, int term);
void CliShowPortStatsWlan(ActionBlock& call, int term);
void CliDisableStpRouter(ActionBlock& call, int term);
void CliEnableStpRouter(ActionBlock& call, int term);
void CliShowBrgTblRouter(ActionBlock& call, int term);
void CliShowStpRouter(ActionBlock& call, int term);
void CliShowStpParmRouter(ActionBlock& call, int term);
void CliShowPortStatsSyslan(ActionBlock& call, int term);
void CliClearPortStatsSyslan(ActionBlock& call, int term);
void CliShowPortStatsSyswan(ActionBlock& call, int term);
void CliClearPortStatsSyswan(ActionBlock& call, int term);

// Wireless stations, operation mode, peers
void CliAddWDSPeerSvr(ActionBlock& call, int term);
void CliClearWirelessCltStatics(ActionBlock& call, int term);
void CliDeleteWDSPeerSvr(ActionBlock& call, int term);
void CliSetOperationMode(ActionBlock& call, int term);
void CliShowRepeaterAp(ActionBlock& call, int term);
void CliShowOperationMode(ActionBlock& call, int term);
void CliShowWDSPeer(ActionBlock& call, int term);
void CliShowWirelessCltStatics(ActionBlock& call, int term);
void CliShowWirelessCltTable(ActionBlock& call, int term);

// MAC filter
void CliAddMacFtr(ActionBlock& call, int term);
void CliDeleteMacFtr(ActionBlock& call, int term);
void CliSetMacFtrMode(ActionBlock& call, int term);
void CliShowMacFtr(ActionBlock& call, int term);
void CliShowMacFtrMode(ActionBlock& call, int term);
void CliShowMacFtrName(ActionBlock& call, int term);

// RADIUS servers
void CliAddRadiusSrvPrimary(ActionBlock& call, int term);
void CliAddRadiusSrvSecondary(ActionBlock& call, int term);
void CliDeleteRadiusPrimary(ActionBlock& call, int term);
void CliDeleteRadiusSecondary(ActionBlock& call, int term);
void CliDisableRadiusSrvPrimary(ActionBlock& call, int term);
void CliDisableRadiusSrvSecondary(ActionBlock& call, int term);
void CliEnableRadiusSrvPrimary(ActionBlock& call, int term);
void CliEnableRadiusSrvSecondary(ActionBlock& call, int term);
void CliSetRadiusReattempt(ActionBlock& call, int term);
void CliSetRadiusRetry(ActionBlock& call, int term);
void CliEnableRadiusMAC(ActionBlock& call, int term);
void CliDisableRadiusMAC(ActionBlock& call, int term);
void CliShowRadiusServerAll(ActionBlock& call, int term);
void CliShowRadiusSrvPrimary(ActionBlock& call, int term);
void CliShowRadiusSrvSecondary(ActionBlock& call, int term);

// Interfaces
void CliClearIfStats(ActionBlock& call, int term);
void CliSetIfDftProf(ActionBlock& call, int term);
void CliShowIf(ActionBlock& call, int term);
void CliShowIfParm(ActionBlock& call, int term);
void CliShowIfStats(ActionBlock& call, int term);

// Routes
void CliAddIpRoute(ActionBlock& call, int term);
void CliAddIpDftRoute(ActionBlock& call, int term);
void CliDelIpRoute(ActionBlock& call, int term);
void CliDelIpDftRoute(ActionBlock& call, int term);

// NAT
void CliShowNat(ActionBlock& call, int term);
void CliShowNatParm(ActionBlock& call, int term);
void CliEnableNat(ActionBlock& call, int term);
void CliAddNatDmzDefault(ActionBlock& call, int term);
void CliDeleteNatDmzDefault(ActionBlock& call, int term);
void CliAddNatMdmz(ActionBlock& call, int term);
void CliDeleteNatMdmz(ActionBlock& call, int term);
void CliAddNatRedirect(ActionBlock& call, int term);
void CliDeleteNatRedirect(ActionBlock& call, int term);

// IP filter
void CliAddIpFilter(ActionBlock& call, int term);
void CliDeleteIpFilter(ActionBlock& call, int term);
void CliShowIpFilter(ActionBlock& call, int term);
void CliShowIpFilterParm(ActionBlock& call, int term);
void CliSetIpFilter(ActionBlock& call, int term);

// Engineering
void CliDebugMacRead(ActionBlock& call, int term);
void CliDebugMacWrite(ActionBlock& call, int term);
void CliZDebugHttpLogout(ActionBlock& call, int term);
void CliZDebugWanIP(ActionBlock& call, int term);
void CliZDebugAddSsid(ActionBlock& call, int term);
void CliZDebugSetPortRadio(ActionBlock& call, int term);
void CliZDebugBuild(ActionBlock& call, int term);
void CliZDebugShell(ActionBlock& call, int term);
void CliZDebugWRegDomRead(ActionBlock& call, int term);
void CliZDebugWRegDomWrite(ActionBlock& call, int term);
void CliZDebugPreKeyRead(ActionBlock& call, int term);
void CliZDebugPreKeyWrite(ActionBlock& call, int term);
void CliZDebugSignatureDisable(ActionBlock& call, int term);
void CliZDebugSignatureEnable(ActionBlock& call, int term);
void CliZShell(ActionBlock& call, int term);
