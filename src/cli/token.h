// The tokens that command rows are made of: kw is a keyword, pm a parameter type. The numbers are one space, and no
// token stands for the numbers 141 and 147 to 150.
#pragma once

#include <cstdint>

#include "cli/tables.h"

// clang-format off
enum class Token : std::uint16_t {
    none = 0,  // ends a command

    kwQuestion = 1,   kwAccesspoint = 2,  kwAdd = 3,             kwAll = 4,         kwAp = 5,
    kwArp = 6,        kwBridge = 7,       kwChange = 8,          kwClear = 9,       kwClient = 10,
    kwCommunity = 11, kwConfig = 12,      kwContact = 13,        kwDate = 14,       kwDdns = 15,
    kwDefault = 16,   kwDelete = 17,      kwDeny = 18,           kwDhcp = 19,       kwDisable = 20,
    kwEnable = 21,    kwFilter = 22,      kwGrant = 23,          kwHelp = 24,       kwHttp = 25,
    kwIp = 26,        kwLan = 27,         kwLevel = 28,          kwLocation = 29,   kwLog = 30,
    kwLogout = 31,    kwMac = 32,         kwManager = 33,        kwManagement = 34, kwMode = 35,
    kwName = 36,      kwOperational = 37, kwPassword = 38,       kwPeer = 39,       kwPing = 40,
    kwPort = 41,      kwPrimary = 42,     kwPrompt = 43,         kwRadius = 44,     kwRead = 45,
    kwReattempt = 46, kwRetry = 47,       kwAuthentication = 48, kwRemote = 49,     kwRepeater = 50,
    kwReset = 51,     kwRouting = 52,     kwRoute = 53,          kwRip = 54,        kwSave = 55,
    kwSecondary = 56, kwServer = 57,      kwSet = 58,            kwShow = 59,       kwSnmp = 60,
    kwSsid = 61,      kwStatic = 62,      kwStatistics = 63,     kwStp = 64,        kwString = 65,
    kwSyslan = 66,    kwSyslogd = 67,     kwSystem = 68,         kwSyswan = 69,     kwTable = 70,
    kwTelnet = 71,    kwTime = 72,        kwTimes = 73,          kwTimeout = 74,    kwTimezone = 75,
    kwTrace = 76,     kwTrap = 77,        kwUpnp = 78,           kwWan = 79,        kwWanip = 80,
    kwWds = 81,       kwWireless = 82,    kwWlan = 83,           kwWrite = 84,      kwZDebug = 85,
    kwZShell = 86,    kwNat = 87,         kwDmz = 88,            kwMdmz = 89,       kwRedirect = 90,
    kwActive = 91,    kwPassive = 92,     kwDown = 93,           kwIcmp = 94,       kwInterface = 95,
    kwProfile = 96,   kwRip1 = 97,        kwRip2 = 98,           kwTcp = 99,        kwUdp = 100,
    kwUp = 101,       kwNtp = 102,        kwBuild = 103,         kwShell = 104,     kwSignature = 105,
    kwWlanrd = 106,   kwPrekey = 107,
    kwEnd = kKeywordEnd,

    pmString15 = 109,           pmString30 = 110,        pmString60 = 111,         pmPrompt = 112,
    pmName30 = 113,             pmName60 = 114,          pmPortName = 115,         pmLocationInfo = 116,
    pmTCPUDPPort = 117,         pmTimeout = 118,         pmDate = 119,             pmTime = 120,
    pmTimezone = 121,           pmMACAddress = 122,      pmReattempt = 123,        pmRetry = 124,
    pmIPAddress = 125,          pmDestIP = 126,          pmDestNetmask = 127,      pmGatewayOrIfName = 128,
    pmGatewayAddress = 129,     pmHopCounts = 130,       pmPingRequest = 131,      pmPingSize = 132,
    pmLogLevel = 133,           pmFacility = 134,        pmMACFilterMode = 135,    pmInterfaceName = 136,
    pmInterfaceNameOrAll = 137, pmProfileName = 138,     pmProfileNameOrAll = 139, pmOperationalMode = 140,
    pmNatMdmzName = 142,        pmNatRedirectName = 143, pmMACFilterName = 144,    pmIpFilterName = 145,
    pmIpFilterAction = 146,     pmChannel = 151,         pmDecInt = 152,           pmString63 = 153,
    pmEnd = kParmEnd,
};
// clang-format on

constexpr std::uint32_t number_of(Token token) { return static_cast<std::uint32_t>(token); }

constexpr bool is_keyword(std::uint32_t token) { return token != 0 && token < kKeywordEnd; }
constexpr bool is_parameter(std::uint32_t token)
{
    return token >= kParmFirst && token < kParmEnd && token != 141 && (token < 147 || token > 150);
}
