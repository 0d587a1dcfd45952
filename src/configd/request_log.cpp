#include "configd/request_log.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <syslog.h>

#include "configd/areas/system_log.h"
#include "configd/changes.h"
#include "configd/log.h"
#include "configd/system_log.h"
#include "platform/log_messages.h"
#include "service/codes.h"

namespace {
struct Subject {
    std::uint32_t code;
    Facility facility;
    const char* change;      // what the request changes; nullptr: it only reads
    int level = LOG_NOTICE;  // of what was done; 0: the area says it in its own words, and no setting needs a line
};
// clang-format off
constexpr Subject kSubjects[] = {
    {code::kCheckPassword,         Facility::kLogin,     "console password", LOG_INFO},
    {code::kReadRegDomain,         Facility::kWireless,  nullptr},
    {code::kWriteRegDomain,        Facility::kWireless,  "regulatory domain"},
    {code::kReadPresetKey,         Facility::kWireless,  nullptr},
    {code::kWritePresetKey,        Facility::kWireless,  "preset key"},
    {code::kReadWirelessPort,      Facility::kWireless,  nullptr},
    {code::kWriteWirelessPort,     Facility::kWireless,  "wireless port settings"},
    {code::kReadSystem,            Facility::kSystem,    nullptr},
    {code::kReadLeases,            Facility::kDhcp,      nullptr},
    {code::kReadWirelessClients,   Facility::kWireless,  nullptr},
    {code::kReadBridgeTable,       Facility::kBridge,    nullptr},
    {code::kWriteBridge,           Facility::kBridge,    "spanning tree"},
    {code::kChangePassword,        Facility::kLogin,     "new console password", 0},
    {code::kReadManagement,        Facility::kHttp,      nullptr},
    {code::kWriteManagement,       Facility::kHttp,      "management access settings"},
    {code::kReadDhcpStatic,        Facility::kDhcp,      nullptr},
    {code::kAddDhcpStatic,         Facility::kDhcp,      "new static address"},
    {code::kDeleteDhcpStatic,      Facility::kDhcp,      "deletion of a static address"},
    {code::kWriteDhcpServer,       Facility::kDhcp,      "DHCP server settings"},
    {code::kReadMacFilter,         Facility::kMacFilter, nullptr},
    {code::kAddMacFilter,          Facility::kMacFilter, "new MAC filter"},
    {code::kDeleteMacFilter,       Facility::kMacFilter, "deletion of a MAC filter"},
    {code::kWriteMacFilterMode,    Facility::kMacFilter, "MAC filter mode"},
    {code::kReadSnmp,              Facility::kSnmp,      nullptr},
    {code::kAddTrapManager,        Facility::kSnmp,      "new trap manager"},
    {code::kDeleteTrapManager,     Facility::kSnmp,      "deletion of a trap manager"},
    {code::kWriteSnmp,             Facility::kSnmp,      "SNMP settings"},
    {code::kEnableTrapManager,     Facility::kSnmp,      "trap manager setting"},
    {code::kReadWdsPeers,          Facility::kWds,       nullptr},
    {code::kAddWdsPeer,            Facility::kWds,       "new WDS peer"},
    {code::kDeleteWdsPeer,         Facility::kWds,       "deletion of a WDS peer"},
    {code::kReadRadius,            Facility::kRadius,    nullptr},
    {code::kWriteRadius,           Facility::kRadius,    "RADIUS server settings"},
    {code::kWriteRadiusReattempt,  Facility::kRadius,    "RADIUS re-attempt interval"},
    {code::kApplyRadius,           Facility::kRadius,    "RADIUS server in force", 0},
    {code::kDeleteRadius,          Facility::kRadius,    "deletion of a RADIUS server"},
    {code::kReadDdns,              Facility::kDdns,      nullptr},
    {code::kWriteDdns,             Facility::kDdns,      "dynamic DNS settings"},
    {code::kReadNatRedirect,       Facility::kNat,       nullptr},
    {code::kAddNatRedirect,        Facility::kNat,       "new redirection"},
    {code::kDeleteNatRedirect,     Facility::kNat,       "deletion of a redirection"},
    {code::kReadIpFilter,          Facility::kFilter,    nullptr},
    {code::kAddIpFilter,           Facility::kFilter,    "new IP filter"},
    {code::kDeleteIpFilter,        Facility::kFilter,    "deletion of an IP filter"},
    {code::kWriteIpFilter,         Facility::kFilter,    "IP filter setting"},
    {code::kReadNatTrigger,        Facility::kNat,       nullptr},
    {code::kAddNatTrigger,         Facility::kNat,       "new trigger"},
    {code::kDeleteNatTrigger,      Facility::kNat,       "deletion of a trigger"},
    {code::kReadOperationMode,     Facility::kWireless,  nullptr},
    {code::kWriteOperationMode,    Facility::kWireless,  "operation mode"},
    {code::kReadDmz,               Facility::kNat,       nullptr},
    {code::kAddDmz,                Facility::kNat,       "new DMZ host"},
    {code::kDeleteDmz,             Facility::kNat,       "deletion of a DMZ host"},
    {code::kReadTime,              Facility::kNtp,       nullptr},
    {code::kReadPort,              Facility::kInterface, nullptr},
    {code::kReadInterfaces,        Facility::kInterface, nullptr},
    {code::kReadNat,               Facility::kNat,       nullptr},
    {code::kClearConfiguration,    Facility::kConfig,    "clearing of the configuration", 0},
    {code::kRestart,               Facility::kSystem,    "restart", 0},
    {code::kSaveConfiguration,     Facility::kConfig,    "saving of the configuration", 0},
    {code::kWriteNtpClient,        Facility::kNtp,       "NTP client settings"},
    {code::kWriteTime,             Facility::kSystem,    "date, time or time zone"},
    {code::kReadWirelessSettings,  Facility::kWireless,  nullptr},
    {code::kWriteWirelessSettings, Facility::kWireless,  "wireless settings"},
    {code::kWriteSystem,           Facility::kSystem,    "system settings"},
    {code::kWriteLogFacility,      Facility::kSystem,    "log facility setting"},
    {code::kWriteTraceFacility,    Facility::kSystem,    "trace facility setting"},
    {code::kWriteLogLevel,         Facility::kSystem,    "log level"},
    {code::kReadLogTable,          Facility::kSystem,    nullptr},
    {code::kReadLogFacilities,     Facility::kSystem,    nullptr},
    {code::kClearWirelessClients,  Facility::kWireless,  "clearing of the client statistics"},
    {code::kClearWirelessPort,     Facility::kWireless,  "clearing of the radio's statistics"},
    {code::kWriteSyslog,           Facility::kSystem,    "remote log server"},
    {code::kReadSystemLog,         Facility::kSystem,    nullptr},
    {code::kWriteUpnp,             Facility::kUpnp,      "UPnP setting"},
    {code::kReadUpnp,              Facility::kUpnp,      nullptr},
    {code::kReadDhcpServer,        Facility::kDhcp,      nullptr},
    {code::kAddRoute,              Facility::kRoute,     "new route"},
    {code::kDeleteRoute,           Facility::kRoute,     "deletion of a route"},
    {code::kReadRoutes,            Facility::kRoute,     nullptr},
    {code::kReadRip,               Facility::kRip,       nullptr},
    {code::kWriteRip,              Facility::kRip,       "RIP setting"},
    {code::kEnableNat,             Facility::kNat,       "NAT setting"},
    {code::kWriteAddress,          Facility::kInterface, "IP settings"},
    {code::kReadAddress,           Facility::kInterface, nullptr},
    {code::kWriteDefaultProfile,   Facility::kInterface, "default profile"},
    {code::kReadPingAllowance,     Facility::kInterface, nullptr},
    {code::kReadPortStatistics,    Facility::kInterface, nullptr},
    {code::kReadLink,              Facility::kInterface, nullptr},
    {code::kClearPortStatistics,   Facility::kInterface, "clearing of a port's statistics"},
    {code::kReadMacRegister,       Facility::kSystem,    nullptr},
    {code::kWriteMacRegister,      Facility::kSystem,    "base register"},
};
// clang-format on
constexpr Subject kUnknown{0, Facility::kConfig, nullptr};

const Subject& subject_of(std::uint32_t code)
{
    const auto* found = std::ranges::find(kSubjects, code, &Subject::code);
    return found == std::end(kSubjects) ? kUnknown : *found;
}

std::string outcome_of(ServiceStatus status)
{
    if (status == kStatusOk) return "accepted";
    char text[LOG_MESSAGE_SIZE];
    logGetMsgX(status, 0, text, 0);
    return std::string("refused: ") + text;
}
}  // namespace

RequestLog::RequestLog(Service& service, const ComParam& request, const Asker& asker)
    : service_(service), code_(record::code.get(request))
{
    service.store.begin_request(asker.connection);
    system_log().follow(log_rules(service));
    system_log().attribute_lines_to(subject_of(code_).facility, asker.name);
}

// false: there are none.
bool RequestLog::log_changes(int level) const
{
    const Store& store = service_.store;
    if (!store.before()) return false;
    const auto lines = changes_between(store.model(), *store.before(), store.running());
    for (const std::string& line : lines) log_line(level, "%s", line.c_str());
    return !lines.empty();
}

void RequestLog::done(ServiceStatus status)
{
    SystemLog& log = system_log();
    const Subject& subject = subject_of(code_);
    if (log.traces(subject.facility, LOG_DEBUG))
        log.trace(subject.facility, LOG_DEBUG, "request " + std::to_string(code_) + " " + outcome_of(status));
    const bool hasItsLine = status == kStatusOk ? subject.level == 0 : status == kStatusWrongPassword;
    const bool told = subject.level != 0 && log_changes(subject.level);
    if (subject.change && !hasItsLine && !(told && status == kStatusOk))
        log_line(status == kStatusOk ? subject.level : LOG_WARNING, "%s %s", subject.change,
                 outcome_of(status).c_str());

    log.attribute_lines_to(Facility::kSystem);
    if (service_.store.before()) log.follow(log_rules(service_));  // the request may have changed them
}

bool is_logged(std::uint32_t code) { return &subject_of(code) != &kUnknown; }
