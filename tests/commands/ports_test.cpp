#include <cstring>
#include <functional>
#include <gtest/gtest.h>

#include "commands/port_statistics.h"
#include "commands/running_action.h"
#include "commands/service_stand_in.h"
#include "service/client.h"
#include "service/fields/interfaces.h"
#include "service/fields/ports.h"
#include "service/fields/system.h"

namespace {
namespace counters = port_statistics_record;

constexpr std::uint32_t kClearAll = 10, kClearWlan = 11, kClearClients = 12, kShowPort = 86, kShowLan = 87,
                        kShowStats = 89, kShowWlan = 90, kClientCounters = 108, kClientTable = 109, kShowSyslan = 131,
                        kClearSyslan = 132, kShowSyswan = 133, kClearSyswan = 134;
constexpr unsigned char kLanMac[] = {2, 0, 0x5E, 0x10, 0, 0xAB}, kWlanMac[] = {2, 0, 0x5E, 0x10, 0, 0x10};

std::string port_entry(std::uint8_t type, const char* name, const char* port, std::uint32_t flags = 0)
{
    std::string entry(interface_entry::kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(entry.data());
    interface_entry::type.set(bytes, type);
    interface_entry::flags.set(bytes, flags);
    interface_entry::name.set(bytes, name);
    interface_entry::port.set(bytes, port);
    return entry;
}

std::string client_entry(unsigned char lastOfMac, std::uint8_t state, std::uint32_t sent = 0)
{
    std::string entry(wireless_client_entry::kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(entry.data());
    const unsigned char mac[] = {2, 0, 0x5E, 0x20, 0xAB, lastOfMac};
    wireless_client_entry::mac.set(bytes, mac);
    wireless_client_entry::state.set(bytes, state);
    wireless_client_entry::transmittedFrames.set(bytes, sent);
    wireless_client_entry::receivedFrames.set(bytes, 2);
    wireless_client_entry::transmittedBytes.set(bytes, 3000);
    wireless_client_entry::receivedBytes.set(bytes, 4);
    return entry;
}

class PortCommands : public testing::Test {
protected:
    PortCommands()
    {
        service_stand_in::reset([this](ComParam& record, std::string& attached) {
            const auto asked = static_cast<std::uint16_t>(record::code.get(record));
            asks.push_back(std::to_string(asked));
            if (asked >= code::kReadPortStatistics) {
                const TextField key = asked == code::kReadLink ? link_record::interface : counters::interface;
                asks.back() += std::string(" ") + key.get(record);
            }
            answer(asked, record);
            if (asked == code::kReadPort || asked == code::kReadWirelessClients) attached = table;
            record::status.set(record, status);
            return std::uint32_t{0};
        });
    }

    void answer(std::uint16_t asked, ComParam& record) const
    {
        if (asked == code::kReadSystem) {
            system_record::links.set(record, links);
            system_record::lanMac.set(record, kLanMac);
            system_record::wirelessMac.set(record, kWlanMac);
        }
        if (asked == code::kReadLink) {
            link_record::up.set(record, link);
            link_record::speed.set(record, link);
            link_record::duplex.set(record, link);
            link_record::flowControl.set(record, link);
        }
        if (asked == code::kReadPortStatistics)
            for (std::uint32_t word = 0; word < 8; word++) {
                const std::uint32_t value = 11 * (word + 1);
                std::memcpy(record.bytes + counters::goodTransmitted.at.offset + 4 * word, &value, sizeof value);
            }
    }

    std::string run(std::uint32_t cmdId)
    {
        asks.clear();
        return RunningAction(cmdId).run();
    }

    std::string table;
    std::uint32_t status = 0;
    std::uint16_t links = system_record::kLanUp;
    std::uint8_t link = 1;
    std::vector<std::string> asks;  // code and interface of each request
};

TEST_F(PortCommands, ShowPortListsAllButBridges)
{
    table = port_entry(interface_entry::kEthernet, "eth1", "wan") +
            port_entry(interface_entry::kBridge, "br0", "bridge") +
            port_entry(interface_entry::kEthernet, "eth0", "lan") +
            port_entry(interface_entry::kWireless, "wlan0", "wlan") + "cut short";
    EXPECT_EQ(run(kShowPort), "Port Name   MAC address        Description     State\n"
                              "----------------------------------------------------\n"
                              "wan         n/a                wan             n/a  \n"
                              "lan         02-00-5e-10-00-ab  lan             Up   \n"
                              "wlan        02-00-5e-10-00-10  wlan            Down \n");
    EXPECT_EQ(asks, (std::vector<std::string>{"810", "200"}));
}

TEST_F(PortCommands, ShowPortLanShowsTheLink)
{
    EXPECT_EQ(run(kShowLan), "Port Name:          lan                      \n"
                             "Link State:         Up                       \n"
                             "Link Speed:         100Mbps                  \n"
                             "Duplex Mode:        Full                     \n"
                             "Flow Control:       Enabled                  \n"
                             "MAC Address:        02-00-5e-10-00-ab        \n");
    EXPECT_EQ(asks, (std::vector<std::string>{"4001 eth0", "200"}));
    link = 0;
    status = 15;
    EXPECT_EQ(run(kShowLan), "Error occurs: 15\n\n"
                             "Port Name:          lan                      \n"
                             "Link State:         Down                     \n"
                             "Link Speed:         10Mbps                   \n"
                             "Duplex Mode:        Half                     \n"
                             "Flow Control:       Disabled                 \n"
                             "MAC Address:        02-00-5e-10-00-ab        \n");
}

TEST_F(PortCommands, ShowPortStatsHasARowForEachPort)
{
    const std::string head = "Port        Received       Transmitted    Error       \n"
                             "Name        Frames         Frames         Frames      \n"
                             "------------------------------------------------\n";
    EXPECT_EQ(run(kShowStats), head + "lan         22             11             77          \n"
                                      "wlan        33             44             121         \n");
    EXPECT_EQ(asks, (std::vector<std::string>{"4000 eth0", "4000 wlan0"}));
    status = 15;
    EXPECT_EQ(run(kShowStats), head + "Error occurs: 15\n\nlan         22             11             77          \n"
                                      "Error occurs: 15\n\nwlan        33             44             121         \n");
}

constexpr char kLanRows[] = "Good Transmitted Packets               11          \n"
                            "Good Received Packets      22                      \n"
                            "Bad Transmitted Packets                33          \n"
                            "Bad Received Packets       44                      \n"
                            "Transmit Abort                         55          \n"
                            "Collision                              66          \n"
                            "Dropped Packets            88          77          \n";
constexpr char kGeneral[] = "                            received    transmitted \n"
                            " --------------------------------------------------\n"
                            " good Transmitted Packets               11          \n"
                            " good Received Packets      22                      \n"
                            " bad Transmitted Packets                33          \n"
                            " bad Received Packets       44                      \n"
                            " transmit Abort                         55          \n"
                            " collision                              66          \n"
                            " dropped Packets            88          77          \n";

TEST_F(PortCommands, DetailedCounters)
{
    ActionBlock call{};
    const std::string lan = "                           Received    Transmitted \n"
                            "--------------------------------------------------\n" +
                            std::string(kLanRows);
    EXPECT_EQ(written_by([&] { CliShowPortStatsLan(call, 0); }), lan);
    EXPECT_EQ(written_by([] { CliShowPortStatsGen("ppp0"); }), kGeneral);
    EXPECT_EQ(asks, (std::vector<std::string>{"4000 eth0", "4000 ppp0"}));
    status = 15;
    EXPECT_EQ(written_by([&] { CliShowPortStatsLan(call, 0); }), "Error occurs: 15\n\n" + lan);
    EXPECT_EQ(written_by([] { CliShowPortStatsGen("ppp0"); }), "Error occurs: 15\n\n");
}

TEST_F(PortCommands, TheInterfaceWithTheFlagIsShownAndCleared)
{
    table = port_entry(interface_entry::kEthernet, "eth0", "lan", interface_entry::kSystemLan) +
            port_entry(interface_entry::kEthernet, "eth1", "wan", interface_entry::kWan) +
            port_entry(interface_entry::kBridge, "br0", "lan", interface_entry::kSystemLan);
    EXPECT_EQ(run(kShowSyslan), kGeneral);
    EXPECT_EQ(asks, (std::vector<std::string>{"810", "4000 br0"})) << "the last one that has it";
    EXPECT_EQ(run(kShowSyswan), kGeneral);
    EXPECT_EQ(run(kClearSyslan), kGeneral);
    EXPECT_EQ(run(kClearSyswan), kGeneral);
    EXPECT_EQ(asks, (std::vector<std::string>{"810", "4002 eth1", "810", "4000 eth1"}));

    table.clear();
    EXPECT_EQ(run(kShowSyslan), "");
    EXPECT_EQ(run(kClearSyswan), "");
    status = kStatusBadRequest;
    EXPECT_EQ(run(kClearSyswan), "\aThe configuration service did not understand the request\n");
}

TEST_F(PortCommands, ARefusedClearingSaysSoInItsOwnWords)
{
    table = port_entry(interface_entry::kEthernet, "eth0", "lan", interface_entry::kSystemLan);
    service_stand_in::reset([this](ComParam& record, std::string& attached) {
        const bool isList = record::code.get(record) == code::kReadPort;
        if (isList) attached = table;
        record::status.set(record, isList ? 0 : 15);
        return std::uint32_t{0};
    });
    EXPECT_EQ(run(kClearSyslan), " error occurs: 15\n\n");
    EXPECT_EQ(run(kClearAll),
              "Error occurs: 15\n\nstatistics counter of lan cleared.\n\aThis device has no such radio\n");
}

TEST_F(PortCommands, ClearAllClearsBothPorts)
{
    EXPECT_EQ(run(kClearAll), "statistics counter of lan cleared.\nstatistics counter of wlan cleared.\n");
    EXPECT_EQ(asks, (std::vector<std::string>{"4002 eth0", "1231"}));
    EXPECT_EQ(run(kClearWlan), "statistics counter of wlan cleared.\n");
}

TEST_F(PortCommands, ShowPortStatsWlan)
{
    const std::string shown = "                              Received    Transmitted \n"
                              "-----------------------------------------------------\n"
                              "Total Octets                  n/a         n/a         \n"
                              "Total Packets                 33          44          \n"
                              "Total Error                   55          66          \n"
                              "\n[Reason for Receive Discards]\n"
                              "No Buffer                     n/a                     \n"
                              "Received WEP Errors           n/a                     \n"
                              "Frame Checksum Errors         n/a                     \n"
                              "\n[Reason for Transmit Discards]\n"
                              "Wrong Source Address                      n/a         \n"
                              "Retry Limit Exceeded                      n/a         \n"
                              "Other Reasons                             n/a         \n";
    EXPECT_EQ(run(kShowWlan), shown);
    EXPECT_EQ(asks, (std::vector<std::string>{"4000 wlan0"}));
    status = 15;
    EXPECT_EQ(run(kShowWlan), "Error occurs: 15\n\n" + shown);
}

constexpr char kTableHead[] = "MAC Address          State\n----------------------------------\n";
constexpr char kCounterHead[] = "MAC Address          TX         RX         TX         RX\n"
                                "                     Frames     Frames     Bytes      Bytes\n"
                                "---------------------------------------------------------------\n";

TEST_F(PortCommands, WirelessClients)
{
    table = client_entry(1, 1) + client_entry(2, 2) + client_entry(3, 3) + client_entry(4, 4) + client_entry(5, 5) +
            client_entry(0xFF, 6) + "cut short";
    EXPECT_EQ(run(kClientTable), kTableHead + std::string("02-00-5E-20-AB-01    Authenticated\n"
                                                          "02-00-5E-20-AB-02    Associated\n"
                                                          "02-00-5E-20-AB-03    Authorized\n"
                                                          "02-00-5E-20-AB-04    Deny by ACL\n"
                                                          "02-00-5E-20-AB-05    Unauthorized\n"
                                                          "02-00-5E-20-AB-FF    Unauthorized\n"));
    table = client_entry(1, 1, 0xFFFFFFFF) + client_entry(2, 2, 10);
    EXPECT_EQ(run(kClientCounters),
              kCounterHead + std::string("02-00-5E-20-AB-01    -1         2          3000       4\n"
                                         "02-00-5E-20-AB-02    10         2          3000       4\n"));
    EXPECT_EQ(asks, (std::vector<std::string>{"230"}));
}

TEST_F(PortCommands, NoWirelessClients)
{
    for (const char* length : {"", "less than one entry"}) {
        table = length;
        EXPECT_EQ(run(kClientTable), kTableHead);
        EXPECT_EQ(run(kClientCounters), kCounterHead);
    }
    EXPECT_EQ(run(kClearClients), "statistics counter of wireless client(s) cleared.\n");
    EXPECT_EQ(asks, (std::vector<std::string>{"1230"}));
    status = kStatusNoDevice;
    for (const std::uint32_t each : {kClientTable, kClientCounters, kClearClients})
        EXPECT_EQ(run(each), "\aThis device has no such radio\n") << each;
    EXPECT_EQ(service_stand_in::unreleased(), 0);
}
}  // namespace
