// SNMP: the write community and the trap managers.
#include "commands/command_session.h"
#include "commands/handlers.h"
#include "service/fields/snmp.h"

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

}  // namespace
