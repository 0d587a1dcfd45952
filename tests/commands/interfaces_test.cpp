#include <cstring>
#include <gtest/gtest.h>

#include "commands/command_session.h"
#include "commands/handlers.h"
#include "commands/interface_table.h"
#include "service/fields/profile.h"

namespace {
Word text(const char* parameter) { return reinterpret_cast<Word>(parameter); }

using Interfaces = CommandSession;

TEST_F(Interfaces, AreListedAsTheServiceHasThem)
{
    std::string table = interface_row("eth0", interface_entry::kEthernet, "lan");
    table += interface_row("wlan0", interface_entry::kWireless, "wlan", 2);  // neither up nor 0
    table += interface_row("tun0", 8);                                       // a type without a name
    table += interface_row("fifteen-letters", interface_entry::kBonding);
    table.resize(table.size() + 95);  // an entry that is not whole
    set_table(code::kReadPort, table);
    EXPECT_EQ(run(CliShowIf), " name  state  type                port    MTU   H/W address        bridge\n"
                              " eth0  up     ethernet            lan     1500  02-00-5e-10-00-ab  -\n"
                              " wlan0 down   ethernet(wireless)  wlan    1500  02-00-5e-10-00-ab  -\n"
                              " tun0  up     ethernet(wireless)          1500  02-00-5e-10-00-ab  -\n"
                              " fifteen-letters up     bonding                     1500  02-00-5e-10-00-ab  -\n");
    EXPECT_TRUE(same_record(last_request(), bare_request(code::kReadPort)));

    refused[code::kReadPort] = kStatusNotPermitted;
    EXPECT_EQ(run(CliShowIf), "\aThe configuration service is not allowed to do that on this device\n");
}

TEST_F(Interfaces, DefaultProfileLeavesTheRestOfTheRecordAsItStands)
{
    std::memset(&usrComParam, 7, sizeof usrComParam);
    ComParam wanted = usrComParam;
    record::kind.set(wanted, record::kRequest);
    record::code.set(wanted, code::kWriteDefaultProfile);
    default_profile_record::interface.set(wanted, "eth1");
    default_profile_record::profile.set(wanted, "home");
    EXPECT_EQ(run(CliSetIfDftProf, {text("eth1"), text("home")}), "");
    EXPECT_TRUE(same_record(last_request(), wanted));

    refused[code::kWriteDefaultProfile] = kStatusUnknownName;
    EXPECT_EQ(run(CliSetIfDftProf, {text("eth9"), text("home")}), "\aThere is no interface of that name\n");
}
}  // namespace
