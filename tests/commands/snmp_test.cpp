// SNMP: communities, state, trap managers and the kernel's counters.
#include <fstream>
#include <unistd.h>

#include "commands/command_session.h"
#include "commands/handlers.h"
#include "commands/snmp_statistics.h"
#include "service/fields/snmp.h"
#include "service/fields/system.h"

namespace {
class Snmp : public CommandSession {
protected:
    Snmp() { snmp_record::readCommunity.set(held(), "public"); }
    ComParam& held() { return record(code::kReadSnmp); }
};

TEST_F(Snmp, TheWriteCommunityIsToldOnceAndNeverShown)
{
    run(CliSetComStrWrite, {text("fifteen-letters")});
    EXPECT_TRUE(was_sent(rewritten(code::kReadSnmp, code::kWriteSnmp, snmp_record::writeCommunity, "fifteen-letters")));
    EXPECT_EQ(snmp_record::writeCommunity.length(usrComParam), 0u);
}

TEST_F(Snmp, TrapManagersAreAddedSwitchedAndDeletedByName)
{
    struct Case {
        Action command;
        std::uint16_t code;
        std::uint8_t enabled;
        std::uint32_t address;
        const char* screen;
    };
    const Case kCases[] = {
        {CliAddTrapMgr, code::kAddTrapManager, 1, 0xC0A80105, "Trap manager office is added: 192.168.1.5\n"},
        {CliDelTrapMgr, code::kDeleteTrapManager, 0, 0, "Trap manager office is deleted.\n"},
        {CliDisableTrapMgr, code::kEnableTrapManager, 0, 0, "Trap manager office is disabled.\n"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(run(c.command, {text("office"), 0xC0A80105}), c.screen);
        EXPECT_TRUE(was_sent(request_of(c.code, trap_manager_request::name, "office", trap_manager_request::enabled,
                                        c.enabled, trap_manager_request::address, c.address)))
            << c.screen;
    }
}

class SnmpStatistics : public Snmp {
protected:
    SnmpStatistics()
    {
        fill(record(code::kReadSystem), system_record::name, "router", system_record::upTime, 90061);
        path_ = testing::TempDir() + "snmp-statistics-" + std::to_string(getpid());
        snmpStatisticsPath = path_.c_str();
    }
    ~SnmpStatistics() override
    {
        unlink(path_.c_str());
        snmpStatisticsPath = "/proc/net/snmp";
    }

    std::string shown(const std::string& content)
    {
        std::ofstream(path_) << content;
        const std::string head = "   System Name: router                    Up Time: 90061 seconds\n";
        const std::string printed = run(CliShowSnmpStat);
        EXPECT_EQ(printed.substr(0, head.size()), head);
        return printed.substr(std::min(head.size(), printed.size()));
    }

    std::string path_;
};

TEST_F(SnmpStatistics, PairsTheKernelsNamesAndValues)
{
    EXPECT_EQ(shown("Ip: Forwarding DefaultTTL InReceives\nIp: 2 64 4294967295\n"
                    "IcmpMsg: InType3\nIcmpMsg: 1\n"
                    "Tcp: MaxConn\nTcp: -1\n"),
              "\n   Ip\n     Forwarding                   2     DefaultTTL                  64\n"
              "     InReceives          4294967295\n"
              "\n   Tcp\n     MaxConn                     -1\n");
}

TEST_F(SnmpStatistics, ShowsWhatThereIsOfADamagedFile)
{
    EXPECT_EQ(shown("Ip: A B C\nIp: 1\n"), "\n   Ip\n     A                            1\n");
    for (const std::string& damaged : {std::string(), std::string("Ip: A\n"), std::string("Ip: A\nTcp: 1\n"),
                                       std::string("\n\n"), "Ip: " + std::string(5000, 'x') + "\nIp: 1\n"})
        EXPECT_EQ(shown(damaged), "") << damaged;
    snmpStatisticsPath = "/no/such/file";
    EXPECT_EQ(run(CliShowSnmpStat).substr(65), "Can't open /no/such/file\n");
}
}  // namespace
