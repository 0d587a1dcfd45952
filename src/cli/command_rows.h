// The commands in the order in which they were added: id, what the area's commands share, mode word, and the words of
// the command. command_table.cpp makes the live table of them; the dispatch table is checked against them.
#pragma once

#include <array>

#include "cli/token.h"

namespace command_rows {
// What the commands of an area share. Bits 0 to 10 of `category` are the headings of the help command; bits 11, 12, 14
// and 15 have none. A row that leaves its area names the column in which it does.
struct Area {
    std::uint32_t category, featureAny, interfaceAny;

    constexpr Area categories(std::uint32_t bits) const { return {bits, featureAny, interfaceAny}; }
    constexpr Area feature(std::uint32_t bits) const { return {category, bits, interfaceAny}; }
    constexpr Area interface(std::uint32_t bits) const { return {category, featureAny, bits}; }
};
constexpr std::uint32_t kEvery = 0xffffffff;  // of the interfaces
constexpr Area kSystem{.category = 0x1, .featureAny = 0x1, .interfaceAny = kEvery};
constexpr Area kUpnp{.category = 0x1, .featureAny = 0x200, .interfaceAny = 1};
constexpr Area kIp{.category = 0x2, .featureAny = 0x2, .interfaceAny = kEvery};
constexpr Area kMacFilter{.category = 0x10, .featureAny = 0x10, .interfaceAny = 2};
constexpr Area kDhcp{.category = 0x20, .featureAny = 0x20, .interfaceAny = 3};
constexpr Area kSnmp{.category = 0x40, .featureAny = 0x40, .interfaceAny = kEvery};
constexpr Area kLog{.category = 0x80, .featureAny = 0x80, .interfaceAny = kEvery};
constexpr Area kSecurity{.category = 0x100, .featureAny = 0x1, .interfaceAny = kEvery};
constexpr Area kRadius{.category = 0x100, .featureAny = 0x100, .interfaceAny = 2};
constexpr Area kInternet{.category = 0x800, .featureAny = 0x40, .interfaceAny = kEvery};  // DDNS, answers to ping
constexpr Area kInterface{.category = 0x1000, .featureAny = 0x1, .interfaceAny = kEvery};
constexpr Area kNat{.category = 0x4000, .featureAny = 0, .interfaceAny = kEvery};
constexpr Area kIpFilter{.category = 0x8000, .featureAny = 0, .interfaceAny = kEvery};
constexpr Area kEngineering{.category = 0, .featureAny = 0x1, .interfaceAny = kEvery};
constexpr Area kUnfiltered{};

constexpr std::uint32_t kTopBit = 0x80000000, kAllBits = 0xffffffff;  // nothing reads the mode word: named by its bits

constexpr CliCmdRow row(std::uint32_t cmdId, Area area, std::uint32_t modeWord, decltype(CliCmdRow::tokens) tokens)
{
    return {.cmdId = cmdId,
            .tokens = tokens,
            .category = area.category,
            .featureAny = area.featureAny,
            .featureAll = 0,
            .interfaceAny = area.interfaceAny,
            .interfaceAll = 0,
            .modeWord = modeWord};
}
using enum Token;

// clang-format off
inline constexpr auto kRows = std::to_array<CliCmdRow>({
    row(  1, kDhcp,        kTopBit,  {kwAdd, kwDhcp, kwStatic, pmIPAddress, pmMACAddress}),
    row( 51, kMacFilter,   kTopBit,  {kwSet, kwMac, kwFilter, kwMode, pmMACFilterMode}),
    row(  2, kMacFilter,   kTopBit,  {kwAdd, kwMac, kwFilter, pmString30, pmMACAddress}),
    row( 14, kMacFilter,   kTopBit,  {kwDelete, kwMac, kwFilter, pmString30}),
    row( 83, kMacFilter,   kAllBits, {kwShow, kwMac, kwFilter}),
    row( 84, kMacFilter,   kAllBits, {kwShow, kwMac, kwFilter, kwMode}),
    row( 85, kMacFilter,   kAllBits, {kwShow, kwMac, kwFilter, pmString30}),
    row(  3, kRadius,      kTopBit,  {kwAdd, kwRadius, kwServer, kwPrimary}),
    row(  4, kRadius,      kTopBit,  {kwAdd, kwRadius, kwServer, kwSecondary}),
    row(  8, kSecurity,    kTopBit,  {kwChange, kwPassword}),
    row(  9, kSystem,      kTopBit,  {kwClear, kwConfig}),
    row( 13, kDhcp,        kTopBit,  {kwDelete, kwDhcp, kwStatic, pmIPAddress}),
    row( 20, kDhcp,        kTopBit,  {kwDisable, kwDhcp, kwServer}),
    row( 21, kLog,         kTopBit,  {kwDisable, kwLog, pmFacility}),
    row( 22, kRadius,      kTopBit,  {kwDisable, kwRadius, kwServer, kwPrimary}),
    row( 23, kRadius,      kTopBit,  {kwDisable, kwRadius, kwServer, kwSecondary}),
    row( 24, kLog,         kTopBit,  {kwDisable, kwSyslogd}),
    row( 25, kLog,         kTopBit,  {kwDisable, kwTrace, pmFacility}),
    row( 27, kUpnp,        kTopBit,  {kwDisable, kwUpnp}),
    row( 28, kDhcp,        kTopBit,  {kwEnable, kwDhcp, kwServer}),
    row( 29, kLog,         kTopBit,  {kwEnable, kwLog, pmFacility}),
    row( 30, kLog,         kTopBit,  {kwEnable, kwLog, pmFacility, pmLogLevel}),
    row( 31, kRadius,      kTopBit,  {kwEnable, kwRadius, kwServer, kwPrimary}),
    row( 32, kRadius,      kTopBit,  {kwEnable, kwRadius, kwServer, kwSecondary}),
    row( 33, kLog,         kTopBit,  {kwEnable, kwSyslogd}),
    row( 34, kLog,         kTopBit,  {kwEnable, kwTrace, pmFacility}),
    row( 35, kLog,         kTopBit,  {kwEnable, kwTrace, pmFacility, pmLogLevel}),
    row( 37, kUpnp,        kTopBit,  {kwEnable, kwUpnp}),
    row( 38, kSystem,      kAllBits, {kwHelp}),
    row( 39, kSystem,      kAllBits, {kwLogout}),
    row( 40, kSystem,      kAllBits, {kwPing, pmIPAddress}),
    row( 42, kSystem,      kTopBit | 1, {kwReset, kwSystem}),
    row( 43, kSystem,      kTopBit,  {kwSave, kwConfig}),
    row( 44, kSnmp,        kTopBit,  {kwSet, kwCommunity, kwString, kwRead, pmString15}),
    row( 45, kSnmp.feature(0x20), kTopBit,  {kwSet, kwCommunity, kwString, kwWrite, pmString15}),
    row( 47, kDhcp,        kTopBit,  {kwSet, kwDhcp, kwServer}),
    row( 48, kSystem,      kTopBit,  {kwSet, kwHttp, kwPort, pmTCPUDPPort}),
    row( 49, kSystem,      kTopBit,  {kwSet, kwHttp, kwTimeout, pmTimeout}),
    row( 50, kLog,         kTopBit,  {kwSet, kwLog, kwLevel, pmLogLevel}),
    row( 54, kSystem,      kTopBit,  {kwSet, kwPrompt, pmString15}),
    row( 55, kRadius,      kTopBit,  {kwSet, kwRadius, kwServer, kwReattempt, pmReattempt}),
    row( 56, kRadius,      kTopBit,  {kwSet, kwRadius, kwServer, kwRetry, pmRetry}),
    row( 57, kRadius,      kTopBit,  {kwEnable, kwRadius, kwMac, kwAuthentication}),
    row( 58, kRadius,      kTopBit,  {kwDisable, kwRadius, kwMac, kwAuthentication}),
    row( 66, kLog,         kTopBit,  {kwSet, kwSyslogd, pmIPAddress}),
    row( 67, kSystem,      kTopBit,  {kwSet, kwSystem, kwContact, pmString60}),
    row( 68, kSystem,      kTopBit,  {kwSet, kwSystem, kwIp}),
    row( 69, kSystem,      kTopBit,  {kwSet, kwSystem, kwLocation, pmString60}),
    row( 70, kSystem,      kTopBit,  {kwSet, kwSystem, kwName, pmString30}),
    row( 71, kSystem,      kTopBit,  {kwSet, kwTelnet, kwPort, pmTCPUDPPort}),
    row( 72, kSystem,      kTopBit,  {kwSet, kwTelnet, kwTimeout, pmTimeout}),
    row( 75, kSnmp,        kAllBits, {kwShow, kwCommunity, kwString, kwRead}),
    row( 77, kDhcp,        kAllBits, {kwShow, kwDhcp, kwClient, kwTable}),
    row( 78, kDhcp,        kAllBits, {kwShow, kwDhcp, kwServer}),
    row( 79, kDhcp,        kAllBits, {kwShow, kwDhcp, kwStatic}),
    row( 80, kSystem,      kAllBits, {kwShow, kwHttp}),
    row( 81, kLog,         kAllBits, {kwShow, kwLog, kwTable}),
    row( 82, kLog,         kAllBits, {kwShow, kwLog, kwTable, pmFacility}),
    row( 91, kRadius,      kAllBits, {kwShow, kwRadius, kwServer}),
    row( 92, kRadius,      kAllBits, {kwShow, kwRadius, kwServer, kwPrimary}),
    row( 93, kRadius,      kAllBits, {kwShow, kwRadius, kwServer, kwSecondary}),
    row(130, kIp,          kAllBits, {kwShow, kwIp, kwRouting, kwTable}),
    row( 96, kSystem,      kAllBits, {kwShow, kwArp, kwTable}),
    row( 98, kSnmp.categories(0x440), kAllBits, {kwShow, kwSnmp, kwStatistics}),
    row( 99, kLog,         kAllBits, {kwShow, kwSyslogd}),
    row(100, kSystem,      kAllBits, {kwShow, kwSystem}),
    row(101, kSystem,      kAllBits, {kwShow, kwSystem, kwIp}),
    row(102, kSystem,      kAllBits, {kwShow, kwTelnet}),
    row(104, kSnmp,        kAllBits, {kwShow, kwTrap, kwManager}),
    row(105, kSnmp,        kAllBits, {kwShow, kwTrap, kwManager, pmString30}),
    row(106, kUpnp,        kAllBits, {kwShow, kwUpnp}),
    row(176, kEngineering, kTopBit,  {kwZDebug}),
    row(177, kEngineering, kTopBit,  {kwZDebug, kwMac, kwRead}),
    row(178, kEngineering, kTopBit,  {kwZDebug, kwMac, kwWrite, pmMACAddress}),
    row(191, kEngineering, kTopBit,  {kwZShell}),
    row(179, kUnfiltered,  0,        {kwZDebug, kwHttp, kwLogout}),
    row(180, kEngineering, kTopBit,  {kwZDebug, kwWanip, pmIPAddress, pmIPAddress, pmIPAddress}),
    row(181, kEngineering, kTopBit,  {kwZDebug, kwAdd, kwSsid, pmString30}),
    row(181, kEngineering, kTopBit,  {kwZDebug, kwAdd, kwSsid, pmString30}),  // twice, kept on purpose
    row(182, kEngineering, kTopBit,  {kwZDebug, kwSet, kwPort, pmString30, pmString30, pmChannel}),
    row(182, kEngineering, kTopBit,  {kwZDebug, kwSet, kwPort, pmString30, pmString30, pmChannel, pmString30}),
    row(189, kUnfiltered,  0,        {kwZDebug, kwSignature, kwDisable}),
    row(190, kUnfiltered,  0,        {kwZDebug, kwSignature, kwEnable}),
    row(183, kEngineering, kTopBit,  {kwZDebug, kwBuild}),
    row(184, kEngineering, kTopBit,  {kwZDebug, kwShell, pmString60}),
    row(185, kEngineering, kTopBit,  {kwZDebug, kwWlanrd, kwRead}),
    row(186, kEngineering, kTopBit,  {kwZDebug, kwWlanrd, kwWrite}),
    row(186, kEngineering, kTopBit,  {kwZDebug, kwWlanrd, kwWrite, pmDecInt}),
    row(187, kEngineering, kTopBit,  {kwZDebug, kwPrekey, kwRead}),
    row(188, kEngineering, kTopBit,  {kwZDebug, kwPrekey, kwWrite}),
    row(188, kEngineering, kTopBit,  {kwZDebug, kwPrekey, kwWrite, pmDecInt, pmString63}),
    row(110, kSnmp,        kTopBit,  {kwEnable, kwSnmp}),
    row(111, kSnmp,        kTopBit,  {kwDisable, kwSnmp}),
    row(112, kSnmp,        kAllBits, {kwShow, kwSnmp}),
    row(113, kLog,         kAllBits, {kwShow, kwLog, kwLevel}),
    row(135, kNat,         kTopBit,  {kwShow, kwNat}),
    row(136, kNat,         kTopBit,  {kwShow, kwNat, pmInterfaceName}),
    row(137, kNat,         kTopBit,  {kwEnable, kwNat, pmInterfaceName}),
    row(138, kNat,         kTopBit,  {kwDisable, kwNat, pmInterfaceName}),
    row(139, kNat,         kTopBit,  {kwAdd, kwNat, kwDmz, kwDefault}),
    row(140, kNat,         kTopBit,  {kwDelete, kwNat, kwDmz, kwDefault, pmInterfaceName}),
    row(141, kNat,         kTopBit,  {kwAdd, kwNat, kwMdmz, pmNatMdmzName}),
    row(142, kNat,         kTopBit,  {kwDelete, kwNat, kwMdmz, pmNatMdmzName}),
    row(143, kNat,         kTopBit,  {kwAdd, kwNat, kwRedirect, pmNatRedirectName}),
    row(144, kNat,         kTopBit,  {kwDelete, kwNat, kwRedirect, pmNatRedirectName}),
    row(145, kIpFilter,    kTopBit,  {kwAdd, kwIp, kwFilter, pmIpFilterName}),
    row(146, kIpFilter,    kTopBit,  {kwDelete, kwIp, kwFilter, pmIpFilterName}),
    row(147, kIpFilter,    kTopBit,  {kwShow, kwIp, kwFilter}),
    row(148, kIpFilter,    kTopBit,  {kwShow, kwIp, kwFilter, pmInterfaceName}),
    row(149, kIpFilter,    kTopBit,  {kwSet, kwIp, kwFilter, pmInterfaceName, pmIpFilterAction}),
    row(152, kInterface,   kAllBits, {kwShow, kwInterface}),
    row(153, kInterface,   kAllBits, {kwShow, kwInterface, pmInterfaceName}),
    row(154, kInterface,   kAllBits, {kwShow, kwInterface, kwStatistics}),
    row(155, kInterface,   kAllBits, {kwShow, kwInterface, kwStatistics, pmInterfaceName}),
    row(156, kIp,          kTopBit,  {kwAdd, kwIp, kwRoute, pmDestIP, pmDestNetmask, pmGatewayOrIfName, pmHopCounts}),
    row(157, kIp,          kTopBit,  {kwAdd, kwIp, kwDefault, kwRoute, pmGatewayAddress}),
    row(158, kIp,          kTopBit,  {kwDelete, kwIp, kwRoute, pmDestIP, pmDestNetmask}),
    row(159, kIp,          kTopBit,  {kwDelete, kwIp, kwDefault, kwRoute}),
    row(119, kIp,          kAllBits, {kwShow, kwRip}),
    row(120, kIp,          kAllBits, {kwShow, kwRip, pmInterfaceName}),
    row(122, kIp,          kAllBits, {kwEnable, kwRip1, kwActive}),
    row(124, kIp,          kAllBits, {kwEnable, kwRip1, kwPassive}),
    row(123, kIp,          kAllBits, {kwEnable, kwRip2, kwActive}),
    row(125, kIp,          kAllBits, {kwEnable, kwRip2, kwPassive}),
    row(126, kIp,          kAllBits, {kwEnable, kwRip1, kwActive, pmInterfaceName}),
    row(128, kIp,          kAllBits, {kwEnable, kwRip1, kwPassive, pmInterfaceName}),
    row(127, kIp,          kAllBits, {kwEnable, kwRip2, kwActive, pmInterfaceName}),
    row(129, kIp,          kAllBits, {kwEnable, kwRip2, kwPassive, pmInterfaceName}),
    row(121, kIp,          kAllBits, {kwDisable, kwRip, pmInterfaceName}),
    row(160, kInternet,    kAllBits, {kwEnable, kwDdns}),
    row(161, kInternet,    kAllBits, {kwDisable, kwDdns}),
    row(162, kInternet,    kAllBits, {kwSet, kwDdns}),
    row(167, kInternet,    kAllBits, {kwShow, kwPing}),
    row(168, kInternet,    kAllBits, {kwShow, kwPing, pmInterfaceName}),
    row(169, kInternet,    kAllBits, {kwEnable, kwPing, pmInterfaceName}),
    row(170, kInternet,    kAllBits, {kwDisable, kwPing, pmInterfaceName}),
    row(171, kSystem,      kTopBit,  {kwSet, kwNtp, kwClient}),
    row(172, kSystem.interface(2), kTopBit,  {kwShow, kwNtp, kwClient}),
    row(173, kSystem.interface(2), kTopBit,  {kwEnable, kwNtp, kwClient}),
    row(174, kSystem.interface(2), kTopBit,  {kwDisable, kwNtp, kwClient}),
    row(192, {},           0,        {}),
});
// clang-format on
}  // namespace command_rows
