// The engineering and bridge commands against a service that answers as each test says.
#include <algorithm>
#include <gtest/gtest.h>

#include "commands/handlers.h"
#include "commands/running_action.h"
#include "commands/service_stand_in.h"
#include "service/client.h"
#include "service/fields/address.h"
#include "service/fields/bridge.h"
#include "service/fields/engineering.h"
#include "service/fields/wireless_port.h"
#include "service/fields/wireless_settings.h"

namespace {
constexpr std::uint32_t kMacRead = 177, kMacWrite = 178, kHttpLogout = 179, kWanIp = 180, kAddSsid = 181,
                        kSetPort = 182, kRegDomainWrite = 186, kPreKeyRead = 187, kPreKeyWrite = 188,
                        kSignatureDisable = 189, kDisableStp = 114, kShowBridgeTable = 116, kShowStp = 117,
                        kShowStpOf = 118;

// Keeps the last record of each code, and gives a read code the record of its write code.
class Engineering : public testing::Test {
protected:
    void SetUp() override
    {
        service_stand_in::reset([this](ComParam& record, std::string& attached) {
            const auto code = static_cast<std::uint16_t>(record::code.get(record));
            ComParam& kept = code == code::kReadBridgeTable || code == code::kWriteBridge ? bridge : answers[code];
            if (kept.bytes[0] != 0 || code == code::kReadBridgeTable) record = kept;
            record::status.set(record, status);
            attached = table;
            return std::uint32_t{0};
        });
    }
    void TearDown() override { EXPECT_EQ(service_stand_in::unreleased(), 0); }

    void answer_with(std::uint16_t code, ComParam record)
    {
        record.bytes[0] = 1;
        answers[code] = record;
    }
    static const ComParam& last_request() { return service_stand_in::requests().back(); }
    static bool record_has(const ComParam& record, std::string_view text)
    {
        return std::search(std::begin(record.bytes), std::end(record.bytes), text.begin(), text.end()) !=
               std::end(record.bytes);
    }

    std::map<std::uint16_t, ComParam> answers;
    ComParam bridge{};
    std::string table;
    std::uint32_t status = 0;
};

TEST_F(Engineering, TheBaseMacIsReadAndWritten)
{
    ComParam own{};
    base_register_record::mac.set(own, "\2\0\x5e\x10\0\1");
    answer_with(code::kReadMacRegister, own);
    EXPECT_EQ(RunningAction(kMacRead).run(),
              "MAC address: 02-00-5E-10-00-01 (of the LAN interface, none was written)\n");
    EXPECT_EQ(RunningAction(kMacWrite).mac("0a-1b-2c-3d-4e-5f").run(), "MAC address: 0A-1B-2C-3D-4E-5F\n");
    EXPECT_EQ(base_register_record::macWritten.get(last_request()), 1);
}

TEST_F(Engineering, TheWanAddressIsStatic)
{
    EXPECT_EQ(RunningAction(kWanIp).number(0x0A010102).number(0xFFFFFF00).number(0x0A010101).run(),
              "WAN IP/Netmask: 10.1.1.2/255.255.255.0\nGateway: 10.1.1.1\n");
    ComParam sent = last_request();
    EXPECT_STREQ(address_record::interface.get(sent), "wan");
    EXPECT_EQ(address_record::mode.get(sent), address_record::kStatic);
    status = kStatusAddressOutOfRange;
    EXPECT_EQ(RunningAction(kWanIp).number(0).number(0).number(0).run(),
              "\aThe IP address or gateway is not a host address of its network\n");
}

TEST_F(Engineering, APresetKeyGoesOutOnceAndIsForgotten)
{
    constexpr char kUsage[] = "A preset key has an index from 1 to 4 and 5 or 13 hexadecimal octets:\n"
                              "z_debug prekey write 1 0a-1b-2c-3d-4e\n";
    EXPECT_EQ(RunningAction(kPreKeyWrite).run(), kUsage);
    for (const char* bad : {"0a-1b-2c-3d-4g", "00-01-02-03-04-05-06-07-08-09-0a-0b-0c-0d", "100-00-00-00-00", "-"})
        EXPECT_EQ(RunningAction(kPreKeyWrite).number(1).text(bad).run(), kUsage) << bad;
    EXPECT_EQ(RunningAction(kPreKeyWrite).number(5).text("0a-1b-2c-3d-4e").run(),
              " Error: Key index should be 1 to 4\a\n");
    EXPECT_TRUE(service_stand_in::requests().empty());

    RunningAction(kPreKeyWrite).number(2).text("0a-1b-2c-3d-4e").run();
    ComParam sent = last_request();
    EXPECT_EQ(preset_key_record::index.get(sent), 2);
    EXPECT_STREQ(preset_key_record::key.get(sent), "0A-1B-2C-3D-4E");
    EXPECT_FALSE(record_has(usrComParam, "0A-1B"));

    ComParam known{};
    preset_key_record::length[1].set(known, 13);
    answer_with(code::kReadPresetKey, known);
    EXPECT_EQ(RunningAction(kPreKeyRead).run(), "Preset key 1: not set\nPreset key 2: 13 octets\n"
                                                "Preset key 3: not set\nPreset key 4: not set\n");
}

TEST_F(Engineering, TheRegulatoryDomainIsSavedAndItsChannelsChecked)
{
    const std::string list = RunningAction(kRegDomainWrite).run();
    EXPECT_TRUE(list.starts_with("Regulatory domains:\n   16  United States and Canada (FCC)\n")) << list;
    EXPECT_EQ(RunningAction(kRegDomainWrite).number(17).run(), "There is no regulatory domain 17\n" + list);
    EXPECT_TRUE(service_stand_in::requests().empty());

    ComParam radio{};
    wireless_port_record::mode.set(radio, 2);
    wireless_port_record::channel.set(radio, 13);
    answer_with(code::kReadWirelessPort, radio);
    EXPECT_EQ(RunningAction(kRegDomainWrite).number(48).run(), "Regulatory domain: 48, Europe (ETSI)\n");
    EXPECT_EQ(service_stand_in::codes_sent(),
              (std::vector<std::uint16_t>{code::kWriteRegDomain, code::kSaveConfiguration, code::kReadWirelessPort,
                                          code::kReadWirelessPort}));
    EXPECT_EQ(RunningAction(kRegDomainWrite).number(16).run(), "Regulatory domain: 16, United States and Canada (FCC)\n"
                                                               "radio1: channel 13 is not available in this domain\n"
                                                               "radio2: channel 13 is not available in this domain\n");
}

struct PortCase {
    const char *radio, *mode, *channel, *ssid, *printed;
};
constexpr char kChannel[] = " Error: Channel number should follow the range in the selected domain\a\n";
constexpr PortCase kPortCases[] = {
    {"radio1", "11B/G", "11", "lab", "radio1: mode 11B/G, channel 11, SSID lab\n"},
    {"radio2", "auto", "0", nullptr, "radio2: mode auto, channel auto, SSID \n"},
    {"radio1", "11a", "36", nullptr, "radio1: mode 11a, channel 36, SSID \n"},
    {"radio1", "11a", "37", nullptr, kChannel},
    {"radio1", "11b/g", "12", nullptr, kChannel},
    {"radio1", "11b/g", "1x", nullptr, kChannel},
    {"radio3", "11b/g", "1", nullptr, " Error: Please entry <radio1-radio6>\a\n"},
    {"radio1", "11z", "1", nullptr,
     "The mode is one of these: auto, 11b/g, 11g, 11a, 11a-turbo, super-g, super-g-dynamic-turbo, "
     "super-g-static-turbo, "
     "super-a, super-a-dynamic-turbo, super-a-static-turbo, 11g-turbo, 11b, ng\n"},
};
TEST_F(Engineering, ARadioTakesWhatItsDomainAllows)
{
    ComParam domain{};
    reg_domain_record::domain.set(domain, wireless_record::kFcc);
    answer_with(code::kReadRegDomain, domain);
    for (const PortCase& each : kPortCases) {
        RunningAction action(kSetPort);
        action.text(each.radio).text(each.mode).text(each.channel);
        if (each.ssid) action.text(each.ssid);
        EXPECT_EQ(action.run(), each.printed);
    }
    EXPECT_EQ(RunningAction(kAddSsid).text("attic").run(), "radio1: SSID attic\n");
}

TEST_F(Engineering, ADisabledCheckIsConfirmedFirst)
{
    constexpr char kAsked[] = " Do you really want to Disable signature check (Yes/No) : ";
    ComParam on{};
    base_register_record::signatureCheck.set(on, 1);
    answer_with(code::kReadMacRegister, on);
    RunningAction refused(kSignatureDisable);
    EXPECT_EQ(refused.play({"", "perhaps", "no"}),
              std::string(kAsked) + kAsked + " Error: Action confirm word must be \"yes\" or \"no\"\a\n" + kAsked);
    EXPECT_EQ(refused.call.stage, 0u);
    EXPECT_TRUE(service_stand_in::requests().empty());

    EXPECT_EQ(RunningAction(kSignatureDisable).play({"Y"}), std::string(kAsked) + "Signature check: disabled\n");
    EXPECT_EQ(record::code.get(last_request()), code::kWriteMacRegister);
    EXPECT_EQ(base_register_record::signatureCheck.get(last_request()), 0);
    EXPECT_EQ(RunningAction(kHttpLogout).play({"yes"}),
              " Force system to close the http connection (Yes/No) : "
              "There is no HTTP connection to close: no web management runs on this device\n");
}

TEST_F(Engineering, TheBridgeIsShownByItsPorts)
{
    bridge_record::name.set(bridge, "br0");
    bridge_record::stp.set(bridge, 1);
    bridge_record::id.set(bridge, "8000.02005e100001");
    bridge_record::root.set(bridge, "8000.02005e100001");
    bridge_record::ports.set(bridge, 1);
    unsigned char* port = bridge.bytes + bridge_record::kFirstPort;
    bridge_port::name.set(port, "eth0");
    bridge_port::number.set(port, 1);
    bridge_port::state.set(port, bridge_port::kForwarding);
    bridge_port::cost.set(port, 100);
    bridge_port::priority.set(port, 32);
    unsigned char entry[bridge_entry::kSize] = {2, 0, 0x5E, 1, 2, 3};
    bridge_entry::port.set(entry, 1);
    bridge_entry::age.set(entry, 1250);
    table.assign(reinterpret_cast<const char*>(entry), sizeof entry);
    bridge_entry::port.set(entry, 9);
    bridge_entry::own.set(entry, 1);
    table.append(reinterpret_cast<const char*>(entry), sizeof entry);

    constexpr char kPorts[] = "Port             State       Cost    Priority\n"
                              "----------------------------------------------\n"
                              "eth0             forwarding  100     32\n";
    EXPECT_EQ(RunningAction(kShowStp).run(), std::string("Spanning tree of br0: enabled\n"
                                                         "Bridge id: 8000.02005e100001\n"
                                                         "Root id:   8000.02005e100001, cost 0\n\n") +
                                                 kPorts);
    EXPECT_EQ(RunningAction(kShowStpOf).text("eth0").run(), kPorts);
    EXPECT_TRUE(RunningAction(kShowStpOf).text("eth1").run().ends_with("The bridge has no port of that name\n"));
    EXPECT_EQ(RunningAction(kShowBridgeTable).run(), "MAC Address        Port             Age (s)\n"
                                                     "-------------------------------------------\n"
                                                     "02-00-5E-01-02-03  eth0             12\n"
                                                     "02-00-5E-01-02-03  -                own\n");
    bridge_record::ports.set(bridge, 0xFFFF);
    EXPECT_FALSE(RunningAction(kShowStp).run().empty());

    status = kStatusUnknownInterface;
    for (const std::uint32_t command : {kShowStp, kShowBridgeTable, kDisableStp})
        EXPECT_EQ(RunningAction(command).run(), "This device has no bridge\n");
    status = kStatusNotPermitted;
    EXPECT_EQ(RunningAction(kDisableStp).run(),
              "\aThe configuration service is not allowed to do that on this device\n");
}
}  // namespace
