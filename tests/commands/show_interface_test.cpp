#include <gtest/gtest.h>

#include "commands/command_session.h"
#include "commands/interface_table.h"
#include "commands/running_action.h"
#include "service/fields/ports.h"

namespace {
constexpr std::uint32_t kShow = 153;

class ShowInterface : public CommandSession {
protected:
    ShowInterface()
    {
        std::string lan = interface_row("eth0", interface_entry::kEthernet, "lan");
        auto* bytes = reinterpret_cast<unsigned char*>(lan.data());
        interface_entry::flags.set(bytes, interface_entry::kSystemLan | interface_entry::kPingAllowed);
        interface_entry::mtu.set(bytes, 1492);
        interface_entry::address.set(bytes, 0xC0A80101);
        interface_entry::netmask.set(bytes, 0xFFFFFF00);
        set_table(code::kReadPort, lan + interface_row("wlan0", interface_entry::kWireless, "wlan") +
                                       interface_row("odd", 200, "odd", 0));
    }
    std::string show(const char* name) { return RunningAction(kShow).text(name).run(); }
};

TEST_F(ShowInterface, TellsEverythingAboutOne)
{
    const std::string shown = show("eth0");
    EXPECT_TRUE(shown.starts_with(" name:            eth0\n"
                                  " type:            ethernet\n"
                                  " state:           up\n"
                                  " port:            lan\n"
                                  " side:            system LAN\n"
                                  " H/W address:     02-00-5e-10-00-ab\n"
                                  " MTU:             1492\n"
                                  " IP address:      192.168.1.1\n"
                                  " IP netmask:      255.255.255.0\n"
                                  " ping:            allowed\n"))
        << shown;
    EXPECT_NE(shown.find(" good Received Packets     "), shown.npos);

    port_statistics_record::wirelessReceived.set(record(code::kReadPortStatistics), 7);
    EXPECT_TRUE(show("wlan0").ends_with(" rx-packet:       7\n rx-error:        0\n"
                                        " tx-packet:       0\n tx-error:        0\n"));
}

TEST_F(ShowInterface, WithoutWhatItCannotKnow)
{
    EXPECT_EQ(show("eth9"), " no such interface!\n");
    EXPECT_EQ(show("ETH0"), " no such interface!\n");
    EXPECT_NE(show("odd").find(" type:            unknown\n state:           down\n"), std::string::npos);
    refused[code::kReadPortStatistics] = kStatusNoDevice;
    EXPECT_TRUE(show("eth0").ends_with(" counters:        none, the interface is not there\n"));
    refused[code::kReadPort] = kStatusBadRequest;
    EXPECT_EQ(show("eth0"), "\aThe configuration service did not understand the request\n");
}
}  // namespace
