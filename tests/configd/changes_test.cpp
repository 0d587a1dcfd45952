// What the log says of a change, beginning with who asked for it.
#include <syslog.h>

#include "configd/area_session.h"
#include "configd/changes.h"
#include "configd/system_log.h"
#include "service/fields/dhcp.h"
#include "service/fields/mac_filter.h"
#include "service/fields/management.h"
#include "service/fields/password.h"
#include "service/fields/snmp.h"
#include "service/fields/system.h"

namespace {
constexpr unsigned char kMac[] = {2, 0, 0x5e, 0x10, 0, 7};

struct Case {
    const char* name;
    std::uint16_t read, write;  // read 0: the request is made from nothing
    void (*change)(ComParam& request);
    std::vector<std::string> lines;  // each level and text
};
void name_manager(ComParam& r)
{
    trap_manager_request::name.set(r, "nms");
    trap_manager_request::address.set(r, 0x0A000009);
}
// In this order, each on what those before it have left.
// clang-format off
const Case kCases[] = {
    {"Text", code::kReadSystem, code::kWriteSystem,
     [](ComParam& r) { system_record::name.set(r, "lab \"ap\""); },
     {R"(5 root on pts/3: system.name changed from "router" to "lab \"ap\"")"}},
    {"LongText", code::kReadSystem, code::kWriteSystem,
     [](ComParam& r) { system_record::location.set(r, std::string(60, 'x').c_str()); },
     {R"(5 root on pts/3: system.location changed from "" to ")" + std::string(27, 'x') + "...\""}},
    {"TwoSettings", code::kReadManagement, code::kWriteManagement,
     [](ComParam& r) {
         management_record::telnetPort.set(r, 2323);
         management_record::remoteMode.set(r, management_record::kRemoteAll);
     },
     {"5 root on pts/3: management.telnet_port changed from 23 to 2323",
      R"(5 root on pts/3: management.remote_management changed from "disabled" to "all")"}},
    {"Secret", code::kReadSnmp, code::kWriteSnmp,
     [](ComParam& r) { snmp_record::writeCommunity.set(r, "canary"); },
     {"5 root on pts/3: snmp.write_community changed"}},
    {"EntryAdded", 0, code::kAddMacFilter,
     [](ComParam& r) {
         mac_filter_record::name.set(r, "printer");
         mac_filter_record::mac.set(r, kMac);
     },
     {R"(5 root on pts/3: mac_filters "printer" added: mac "02:00:5e:10:00:07")"}},
    {"EntryDeleted", 0, code::kDeleteMacFilter,
     [](ComParam& r) { mac_filter_record::name.set(r, "printer"); },
     {R"(5 root on pts/3: mac_filters "printer" deleted: mac "02:00:5e:10:00:07")"}},
    {"ManagerAdded", 0, code::kAddTrapManager,
     [](ComParam& r) {
         name_manager(r);
         trap_manager_request::enabled.set(r, 1);
     },
     {R"(5 root on pts/3: trap_managers "nms" added: address "10.0.0.9", enabled true)"}},
    {"EntryChanged", 0, code::kEnableTrapManager, name_manager,
     {R"(5 root on pts/3: trap_managers "nms" enabled changed from true to false)"}},
    {"NothingNew", code::kReadSystem, code::kWriteSystem, [](ComParam&) {},
     {"5 root on pts/3: system settings accepted"}},
    {"Refused", code::kReadManagement, code::kWriteManagement,
     [](ComParam& r) { management_record::httpPort.set(r, 0); },
     {"4 root on pts/3: management access settings refused: A value is not acceptable for its setting"}},
    {"WrongPassword", 0, code::kCheckPassword,
     [](ComParam& r) { password_record::password.set(r, "canary"); },
     {"5 root on pts/3: a wrong password was given"}},
    {"Password", 0, code::kChangePassword,
     [](ComParam& r) {
         password_record::password.set(r, "admin");
         password_record::newPassword.set(r, "canary");
     },
     {"5 root on pts/3: the password was changed"}},
};
// clang-format on

class Changes : public AreaSession {
protected:
    // What was logged since the entry with that text.
    static std::vector<std::string> lines_since(const std::string& mark)
    {
        std::vector<std::string> lines;
        for (const LogEntry& entry : system_log().entries()) {
            if (entry.text == mark)
                lines.clear();
            else
                lines.push_back(std::to_string(entry.level) + " " + entry.text);
        }
        return lines;
    }
};

TEST_F(Changes, AreLoggedWithWhoAskedAndWhatItWasBefore)
{
    asker = {1, "root on pts/3"};
    for (const Case& each : kCases) {
        ComParam made = each.read ? to_write(each.read, each.write) : request_of(each.write);
        each.change(made);
        system_log().log(Facility::kSystem, LOG_NOTICE, each.name);
        ask(made);
        EXPECT_EQ(lines_since(each.name), each.lines) << each.name;
    }
    for (const LogEntry& entry : system_log().entries())
        EXPECT_EQ(entry.text.find("canary"), std::string::npos) << entry.text;
}

TEST_F(Changes, OfARequestThatIsTakenBackAreNone)
{
    service->dhcpRules = RuleFile(storage.operations(), "run", RuleFile::kDhcpName);
    storage.changes = 0;
    storage.failAt = 5;  // the configuration is written, what the DHCP server reads cannot be
    storage.error = ENOSPC;
    ComParam made = to_write(code::kReadDhcpServer, code::kWriteDhcpServer);
    dhcp_record::state.set(made, dhcp_record::kDisabled);
    system_log().log(Facility::kSystem, LOG_NOTICE, "mark");
    EXPECT_EQ(ask(made), kStatusStorageFull);
    EXPECT_TRUE(payload_is_empty()) << "a refusal carries nothing";
    const auto lines = lines_since("mark");
    EXPECT_NE(lines.back().find("DHCP server settings refused: "), std::string::npos) << lines.back();
    for (const std::string& line : lines) EXPECT_EQ(line.find("changed from"), std::string::npos) << line;
}
}  // namespace
