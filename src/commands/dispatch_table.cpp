// What each command runs, by command id. A command without an action of its own has a null one: the executor handles
// logout itself, and z_debug alone does nothing. Some actions belong to commands that no row spells.
#include <algorithm>

#include "cli/command_rows.h"
#include "cli/help_topic.h"
#include "cli/tables.h"
#include "commands/handlers.h"

namespace {
struct Record {
    std::uint32_t cmdId;
    Action action;
    bool null;

    constexpr Record(std::uint32_t id, Action runs) : cmdId(id), action(runs), null(false) {}
    constexpr Record(std::uint32_t id, std::nullptr_t) : cmdId(id), action(nullptr), null(true) {}
};

// clang-format off
constexpr auto kRows = std::to_array<Record>({
    {  1, CliAddDhcpStatic},
    {  2, CliAddMacFtr},
    {  3, CliAddRadiusSrvPrimary},
    {  4, CliAddRadiusSrvSecondary},
    {  5, nullptr},
    {  6, CliAddTrapMgr},
    {  7, CliAddWDSPeerSvr},
    {  8, CliChangePassword},
    {  9, CliClearConfig},
    { 10, CliClearPortStatsAll},
    { 11, CliClearPortStatsWlan},
    { 12, CliClearWirelessCltStatics},
    { 13, CliDelDhcpStatic},
    { 14, CliDeleteMacFtr},
    { 15, CliDeleteRadiusPrimary},
    { 16, CliDeleteRadiusSecondary},
    { 17, nullptr},
    { 18, CliDelTrapMgr},
    { 19, CliDeleteWDSPeerSvr},
    { 20, CliDisableDhcpSrv},
    { 21, CliDisableLogFac},
    { 22, CliDisableRadiusSrvPrimary},
    { 23, CliDisableRadiusSrvSecondary},
    { 24, CliDisableSyslogd},
    { 25, CliDisableTraceFac},
    { 26, CliDisableTrapMgr},
    { 27, CliDisableUpnp},
    { 28, CliEnableDhcpSrv},
    { 29, CliEnableLogFac},
    { 30, CliEnableLogFacLel},
    { 31, CliEnableRadiusSrvPrimary},
    { 32, CliEnableRadiusSrvSecondary},
    { 33, CliEnableSyslogd},
    { 34, CliEnableTraceFac},
    { 35, CliEnableTraceFacLvl},
    { 36, CliEnableTrapMgr},
    { 37, CliEnableUpnp},
    { 38, help_topic},
    { 39, nullptr},
    { 40, CliPing},
    { 41, CliPingParm},
    { 42, CliRestSystem},
    { 43, CliSaveConfig},
    { 44, CliSetComStrRead},
    { 45, CliSetComStrWrite},
    { 46, CliSetDate},
    { 47, CliSetDhcpSrv},
    { 48, CliSetHttpPort},
    { 49, CliSetHttpTimeout},
    { 50, CliSetLogLvl},
    { 51, CliSetMacFtrMode},
    { 52, CliSetOperationMode},
    { 53, CliSetPortWlan},
    { 54, CliSetSystemPrompt},
    { 55, CliSetRadiusReattempt},
    { 56, CliSetRadiusRetry},
    { 57, CliEnableRadiusMAC},
    { 58, CliDisableRadiusMAC},
    { 66, CliSetSyslogd},
    { 67, CliSetSystemContact},
    { 68, CliSetSystemIP},
    { 69, CliSetSystemLocation},
    { 70, CliSetSystemName},
    { 71, CliSetTelnetPort},
    { 72, CliSetTelnetTimeout},
    { 73, CliSetTime},
    { 74, CliSetTimezone},
    { 75, CliShowComStrRead},
    { 76, CliShowDate},
    { 77, CliShowDchpCntTbl},
    { 78, CliShowDhcpSrv},
    { 79, CliShowDhcpStatic},
    { 80, CliShowHttp},
    { 81, CliShowLogTbl},
    { 82, CliShowLogTblFac},
    { 83, CliShowMacFtr},
    { 84, CliShowMacFtrMode},
    { 85, CliShowMacFtrName},
    { 86, CliShowPort},
    { 87, CliShowPortLan},
    { 89, CliShowPortStats},
    { 90, CliShowPortStatsWlan},
    { 91, CliShowRadiusServerAll},
    { 92, CliShowRadiusSrvPrimary},
    { 93, CliShowRadiusSrvSecondary},
    { 94, CliShowRepeaterAp},
    { 95, CliShowOperationMode},
    { 96, CliShowArpTable},
    { 98, CliShowSnmpStat},
    { 99, CliShowSyslogd},
    {100, CliShowSystem},
    {101, CliShowSystemIp},
    {102, CliShowTelnet},
    {103, CliShowTime},
    {104, CliShowTrapMgr},
    {105, CliShowTrapMgrParm},
    {106, CliShowUpnp},
    {107, CliShowWDSPeer},
    {108, CliShowWirelessCltStatics},
    {109, CliShowWirelessCltTable},
    {110, CliEnableSnmp},
    {111, CliDisableSnmp},
    {112, CliShowSnmp},
    {113, CliShowLogLvl},
    {114, CliDisableStpRouter},
    {115, CliEnableStpRouter},
    {116, CliShowBrgTblRouter},
    {117, CliShowStpRouter},
    {118, CliShowStpParmRouter},
    {131, CliShowPortStatsSyslan},
    {132, CliClearPortStatsSyslan},
    {133, CliShowPortStatsSyswan},
    {134, CliClearPortStatsSyswan},
    {135, CliShowNat},
    {136, CliShowNatParm},
    {137, CliEnableNat},
    {138, CliEnableNat},
    {139, CliAddNatDmzDefault},
    {140, CliDeleteNatDmzDefault},
    {141, CliAddNatMdmz},
    {142, CliDeleteNatMdmz},
    {143, CliAddNatRedirect},
    {144, CliDeleteNatRedirect},
    {145, CliAddIpFilter},
    {146, CliDeleteIpFilter},
    {147, CliShowIpFilter},
    {148, CliShowIpFilterParm},
    {149, CliSetIpFilter},
    {150, CliClearIfStats},
    {151, CliSetIfDftProf},
    {152, CliShowIf},
    {153, CliShowIfParm},
    {154, CliShowIfStats},
    {155, CliShowIfStats},
    {156, CliAddIpRoute},
    {157, CliAddIpDftRoute},
    {158, CliDelIpRoute},
    {159, CliDelIpDftRoute},
    {160, CliEnableDdns},
    {161, CliDisableDdns},
    {162, CliSetDdns},
    {163, CliSetRmtmgnt},
    {164, CliShowRmtmgnt},
    {165, CliEnableRmtmgnt},
    {166, CliDisableRmtmgnt},
    {167, CliShowPing},
    {168, CliShowPingParm},
    {169, CliEnablePing},
    {170, CliDisablePing},
    {171, CliSetNtpClient},
    {172, CliShowNtpClient},
    {173, CliEnableNtpClient},
    {174, CliDisableNtpClient},
    {176, nullptr},
    {177, CliDebugMacRead},
    {178, CliDebugMacWrite},
    {179, CliZDebugHttpLogout},
    {180, CliZDebugWanIP},
    {181, CliZDebugAddSsid},
    {182, CliZDebugSetPortRadio},
    {183, CliZDebugBuild},
    {184, CliZDebugShell},
    {185, CliZDebugWRegDomRead},
    {186, CliZDebugWRegDomWrite},
    {187, CliZDebugPreKeyRead},
    {188, CliZDebugPreKeyWrite},
    {189, CliZDebugSignatureDisable},
    {190, CliZDebugSignatureEnable},
    {191, CliZShell},
    {kCommandEnd, nullptr},
});
// clang-format on

constexpr bool has_record(std::uint32_t cmdId)
{
    return std::ranges::any_of(kRows, [=](const Record& r) { return r.cmdId == cmdId; });
}
constexpr bool has_command(std::uint32_t cmdId)
{
    return std::ranges::any_of(command_rows::kRows, [=](const CliCmdRow& r) { return r.cmdId == cmdId; });
}
constexpr bool stands_once(const Record& r) { return std::ranges::count(kRows, r.cmdId, &Record::cmdId) == 1; }
constexpr bool null_where_it_should_be(const Record& r)
{
    const bool none =
        r.cmdId == 5 || r.cmdId == 17 || r.cmdId == kLogoutCommand || r.cmdId == 176 || r.cmdId == kCommandEnd;
    return r.null == none;
}
// The commands of the routing protocol have no actions in this product.
constexpr bool has_record_unless_routing(const CliCmdRow& r)
{
    return has_record(r.cmdId) != (r.cmdId >= 119 && r.cmdId <= 130);
}

static_assert(kRows.size() == 170 && kRows.back().cmdId == kCommandEnd);
static_assert(std::ranges::all_of(kRows, stands_once) && std::ranges::all_of(kRows, null_where_it_should_be));
static_assert(std::ranges::all_of(command_rows::kRows, has_record_unless_routing));
static_assert(std::ranges::count_if(kRows, [](const Record& r) { return !has_command(r.cmdId); }) == 45);
}  // namespace

constexpr std::array<CliCmdDispRow, 170> gCliCmdDispTable = [] {
    std::array<CliCmdDispRow, 170> table{};
    std::ranges::transform(kRows, table.begin(), [](const Record& r) { return CliCmdDispRow{r.cmdId, r.action}; });
    return table;
}();
