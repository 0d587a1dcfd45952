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

constexpr std::uint32_t kShowPort = 86, kClientTable = 109, kShowSyslan = 131, kClearSyslan = 132;
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

std::string client_entry(unsigned char lastOfMac, std::uint8_t state)
{
    std::string entry(wireless_client_entry::kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(entry.data());
    const unsigned char mac[] = {2, 0, 0x5E, 0x20, 0xAB, lastOfMac};
    wireless_client_entry::mac.set(bytes, mac);
    wireless_client_entry::state.set(bytes, state);
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
                asks.back() += std::string(" ") + counters::interface.get(record);
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
            system_record::links.set(record, system_record::kLanUp);
            system_record::lanMac.set(record, kLanMac);
            system_record::wirelessMac.set(record, kWlanMac);
        }
    }

    std::string run(std::uint32_t cmdId)
    {
        asks.clear();
        return RunningAction(cmdId).run();
    }

    std::string table;
    std::uint32_t status = 0;
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

TEST_F(PortCommands, TheLastInterfaceWithTheFlagIsShown)
{
    table = port_entry(interface_entry::kEthernet, "eth0", "lan", interface_entry::kSystemLan) +
            port_entry(interface_entry::kEthernet, "eth1", "wan", interface_entry::kWan) +
            port_entry(interface_entry::kBridge, "br0", "lan", interface_entry::kSystemLan);
    run(kShowSyslan);
    EXPECT_EQ(asks, (std::vector<std::string>{"810", "4000 br0"})) << "the last one that has it";
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
}

constexpr char kTableHead[] = "MAC Address          State\n----------------------------------\n";
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
}
}  // namespace
