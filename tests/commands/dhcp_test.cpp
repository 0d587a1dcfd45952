#include <cstdlib>
#include <cstring>
#include <ctime>
#include <ostream>

#include "commands/command_session.h"
#include "commands/handlers.h"
#include "commands/lan_address.h"
#include "platform/ipc_client.h"
#include "service/fields/address.h"
#include "service/fields/dhcp.h"

namespace {
constexpr std::uint32_t ip(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d)
{
    return a << 24 | b << 16 | c << 8 | d;
}

constexpr char kShown[] = "        DHCP server status:       disabled\n"
                          "        IP address range:         192.168.1.100 to 192.168.1.199\n"
                          "        Network mask:             255.255.255.0\n"
                          "        Lease time:               1440 minutes\n"
                          "        Gateway IP address: 192.168.1.254\n"
                          "        Primary DNS IP address:   8.8.8.8\n"
                          "        Secondary DNS IP address: 0.0.0.0\n";
constexpr char kAskLower[] = " enter lower IP address of address pool (192.168.1.100): ";
constexpr char kAskUpper[] = " enter upper IP address of address pool (192.168.1.199): ";
constexpr char kAskGateway[] = " enter gateway IP address (192.168.1.254): ";
constexpr char kAskLease[] = " enable lease time (1440, 1-525600): ";
constexpr char kAskDnsNo[] = " do you want to assign DNS server (no, yes/no): ";
constexpr char kAskDnsYes[] = " do you want to assign DNS server (yes, yes/no): ";
constexpr char kAskPrimary[] = " enter IP address of the primary DNS (8.8.8.8): ";
constexpr char kAskSecondary[] = " enter IP address of the secondary DNS (Unspecified): ";
constexpr char kAskNoPrimary[] = " enter IP address of the primary DNS (Unspecified): ";

std::string refusal(const std::string& text, const char* question = "")
{
    return " Error: " + text + "\a\n" + question;
}

class Dhcp : public CommandSession {
protected:
    Dhcp()
    {
        using namespace dhcp_record;
        netmask.set(server(), 0xFFFFFF00);
        state.set(server(), 2);  // anything but 1 is off
        lowerAddress.set(server(), ip(192, 168, 1, 100));
        upperAddress.set(server(), ip(192, 168, 1, 199));
        leaseTime.set(server(), 1440);
        gateway.set(server(), ip(192, 168, 1, 254));
        primaryDns.set(server(), ip(8, 8, 8, 8));
        address_record::address.set(record(code::kReadAddress), ip(192, 168, 1, 1));
        address_record::netmask.set(record(code::kReadAddress), 0xFFFFFF00);
    }
    ComParam& server() { return record(code::kReadDhcpServer); }
};

TEST_F(Dhcp, ShowsTheSettings)
{
    EXPECT_EQ(run(CliShowDhcpSrv), kShown);
    dhcp_record::primaryDns.set(server(), 0);
    dhcp_record::state.set(server(), 1);
    const std::string shown = run(CliShowDhcpSrv);
    EXPECT_NE(shown.find("status:       enabled\n"), shown.npos);
    EXPECT_NE(shown.find("Primary DNS IP address:   0.0.0.0\n"), shown.npos);
}

TEST_F(Dhcp, SwitchingChangesOneByte)
{
    for (const std::uint8_t state : {dhcp_record::kEnabled, dhcp_record::kDisabled}) {
        ComParam wanted = server();
        dhcp_record::state.set(wanted, state);
        record::kind.set(wanted, record::kRequest);
        record::code.set(wanted, code::kWriteDhcpServer);
        const std::string shown = run(state ? CliEnableDhcpSrv : CliDisableDhcpSrv);
        EXPECT_NE(shown.find(state ? "status:       enabled" : "status:       disabled"), shown.npos);
        ASSERT_EQ(sent(code::kWriteDhcpServer), state ? 1u : 2u);
        EXPECT_TRUE(same_record(service_stand_in::requests().end()[-2], wanted));
    }
}

TEST_F(Dhcp, EnterThroughoutWritesNothing)
{
    EXPECT_EQ(run(CliSetDhcpSrv), kAskLower);
    EXPECT_EQ(answer(""), kAskUpper);
    EXPECT_EQ(answer(""), kAskGateway);
    EXPECT_EQ(answer(""), kAskLease);
    EXPECT_EQ(answer(""), kAskDnsNo);
    EXPECT_EQ(answer(""), kShown);
    EXPECT_FALSE(asking());
    EXPECT_EQ(codes(), (std::vector<std::uint16_t>{code::kReadDhcpServer, code::kReadDhcpServer}));
}

TEST_F(Dhcp, EnterThroughoutAsksForAPrimaryServerThatIsMissing)
{
    dhcp_record::primaryDns.set(server(), 0);
    run(CliSetDhcpSrv);
    EXPECT_EQ(answers({"", "", "", ""}), kAskDnsYes);
    EXPECT_EQ(answer(""), kAskNoPrimary);
    EXPECT_EQ(answer(""), kAskNoPrimary);
    EXPECT_EQ(answer("9.9.9.9"), kAskSecondary);
    EXPECT_EQ(answer("").substr(0, 8), "        ");
    EXPECT_EQ(dhcp_record::primaryDns.get(server()), ip(9, 9, 9, 9));
}

TEST_F(Dhcp, EveryAnswerReachesItsField)
{
    ComParam wanted = server();
    dhcp_record::lowerAddress.set(wanted, ip(192, 168, 1, 10));
    dhcp_record::upperAddress.set(wanted, ip(192, 168, 1, 20));
    dhcp_record::gateway.set(wanted, ip(192, 168, 1, 253));
    dhcp_record::leaseTime.set(wanted, 525600);
    dhcp_record::primaryDns.set(wanted, ip(1, 1, 1, 1));
    dhcp_record::secondaryDns.set(wanted, ip(9, 9, 9, 9));
    record::kind.set(wanted, record::kRequest);
    record::code.set(wanted, code::kWriteDhcpServer);

    run(CliSetDhcpSrv);
    answers({"192.168.1.10", "192.168.1.20", "192.168.1.253"});
    EXPECT_EQ(answer("525600"), kAskDnsYes) << "after a lease time the default is always yes";
    EXPECT_EQ(answer("y"), kAskPrimary);
    answers({"1.1.1.1", "9.9.9.9"});
    ASSERT_EQ(sent(code::kWriteDhcpServer), 1u);
    EXPECT_TRUE(same_record(service_stand_in::requests().end()[-2], wanted));
}

struct Refused {
    const char* name;
    std::vector<const char*> before;
    const char* answer;
    std::string printed;
};
void PrintTo(const Refused& c, std::ostream* out) { *out << c.name; }
const Refused kRefused[] = {
    {"NoAddress", {}, "192.168.1", refusal("Invalid IP address", kAskLower)},
    {"Loopback", {}, "127.0.0.1", refusal("IP Address can not be the Loopback", kAskLower)},
    {"Network", {}, "192.168.1.0", refusal("IP Address can not be the same as Network IP address ", kAskLower)},
    {"Broadcast", {}, "192.168.1.255", refusal("IP Address can not be the same as Broadcast address ", kAskLower)},
    {"Own", {}, "192.168.1.1", refusal("IP Address can not be the same as AP's IP ", kAskLower)},
    {"Zero", {}, "0.0.0.0", refusal("IP address can not be 0.0.0.0 ", kAskLower)},
    {"AllOnes", {}, "255.255.255.255", refusal("IP address can not be 255.255.255.255 ", kAskLower)},
    {"UpperIsNoAddress", {"192.168.1.10"}, "x", refusal("Invalid IP address", kAskUpper)},
    {"UpperRefusedShowsTheLower",
     {"192.168.1.10"},
     "192.168.1.255",
     refusal("IP Address can not be the same as Broadcast address ",
             " enter upper IP address of address pool (192.168.1.10): ")},
    {"UpperBelowLowerGoesBack",
     {"192.168.1.50"},
     "192.168.1.49",
     refusal("Invalid Dhcp Ip address range ", " enter lower IP address of address pool (192.168.1.50): ")},
    {"UpperInAnotherNetwork",
     {"192.168.0.10"},
     "192.168.1.200",
     refusal("IP address and Default gateway must be in the same subnet.", kAskUpper)},
    {"PoolTooWide", {"10.0.0.0"}, "10.0.0.254", refusal("The number of Dhcp server host ip exceeds 253 ", kAskUpper)},
    {"GatewayIsOwn", {"", ""}, "192.168.1.1", refusal("IP Address can not be the same as AP's IP ", kAskGateway)},
    {"NoLease", {"", "", ""}, "0", refusal("Invalid lease time range ", kAskLease)},
    {"LeaseTooLong", {"", "", ""}, "525601", refusal("Invalid lease time range ", kAskLease)},
    {"LeaseIsNoNumber", {"", "", ""}, "60m", refusal("Invalid lease time range ", kAskLease)},
    {"NeitherYesNorNo", {"", "", "", ""}, "maybe", refusal("Action confirm word must be \"yes\" or \"no\"", kAskDnsNo)},
    {"PrimaryIsOwn",
     {"", "", "", "", "yes"},
     "192.168.1.1",
     refusal("IP Address can not be the same as AP's IP ", kAskPrimary)},
    {"SecondaryIsLoopback",
     {"", "", "", "", "yes", ""},
     "127.1.1.1",
     refusal("IP Address can not be the Loopback", kAskSecondary)},
};
class DhcpRefusal : public Dhcp, public testing::WithParamInterface<Refused> {};
TEST_P(DhcpRefusal, BringsTheMessageAndAQuestion)
{
    run(CliSetDhcpSrv);
    for (const char* before : GetParam().before) answer(before);
    EXPECT_EQ(answer(GetParam().answer), GetParam().printed);
    EXPECT_TRUE(asking());
    EXPECT_EQ(sent(code::kWriteDhcpServer), 0u);
}
INSTANTIATE_TEST_SUITE_P(Answers, DhcpRefusal, testing::ValuesIn(kRefused), [](const auto& c) { return c.param.name; });

TEST_F(Dhcp, APoolLiesInOneNetworkOf256)
{
    EXPECT_EQ(CliVerifyDhcpIpRange(ip(192, 168, 1, 10), ip(192, 168, 1, 200)), 0u);
    EXPECT_EQ(CliVerifyDhcpIpRange(ip(192, 168, 2, 10), ip(192, 168, 1, 200)), 390u);
}

TEST_F(Dhcp, WidestPoolIsTaken)
{
    run(CliSetDhcpSrv);
    EXPECT_EQ(answers({"10.0.0.1", "10.0.0.254"}), kAskGateway);
}

TEST_F(Dhcp, AfterARefusedPoolTheCurrentUpperAddressShowsAgain)
{
    run(CliSetDhcpSrv);
    EXPECT_EQ(answers({"", "192.168.1.255", "10.0.0.1"}), refusal("Invalid Dhcp Ip address range ", kAskLower));
    EXPECT_EQ(answer(""), kAskUpper);
}

TEST_F(Dhcp, OnlyALowerCaseYAssignsServers)
{
    for (const char* no : {"YES", "Y", "no", "N"}) {
        run(CliSetDhcpSrv);
        EXPECT_EQ(answers({"", "", "", "", no}), kShown) << no;
    }
    for (const char* yes : {"yes", "y", "Yy"}) {
        run(CliSetDhcpSrv);
        const std::string printed = answers({"", "", "", "", yes});
        EXPECT_EQ(printed, std::string(yes) == "Yy"
                               ? refusal("Action confirm word must be \"yes\" or \"no\"", kAskDnsNo)
                               : kAskPrimary)
            << yes;
    }
}

TEST_F(Dhcp, AFailedReadAsksNothingAndAFailedWriteSaysWhy)
{
    refused[code::kReadDhcpServer] = kStatusBadRequest;
    EXPECT_EQ(run(CliSetDhcpSrv), "\aThe configuration service did not understand the request\n");
    EXPECT_FALSE(asking());
    refused.clear();

    refused[code::kWriteDhcpServer] = kStatusPoolRefused;
    run(CliSetDhcpSrv);
    EXPECT_EQ(answers({"192.168.1.10", "", "", "", ""}),
              "\aThe addresses of the pool are not a range of hosts in one network\n");
    EXPECT_FALSE(asking());

    refused.clear();
    exchangeFails[code::kWriteDhcpServer] = IPC_NOT_RUNNING;
    run(CliSetDhcpSrv);
    EXPECT_EQ(answers({"192.168.1.10", "", "", "", ""}), "\aThe configuration service is not running\n");
}

TEST_F(Dhcp, AnyAddressPassesWhileTheLanIsNotKnown)
{
    refused[code::kReadAddress] = kStatusUnknownName;
    for (const std::uint32_t address : {ip(127, 0, 0, 1), ip(192, 168, 1, 1), 0u}) EXPECT_EQ(CliVerifyIP(address), 0u);
}

// The words of 02:00:5e:10:00:01 as the parser of MAC addresses lays them.
struct MacWords {
    MacWords() { std::memcpy(words, "\x02\x00\x5e\x10\x00\x01", 6); }
    Word words[2] = {};
};

TEST_F(Dhcp, AStaticEntryIsAddedAndDeleted)
{
    const MacWords mac;
    std::string entry(dhcp_entry::kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(entry.data());
    dhcp_entry::address.set(bytes, ip(192, 168, 1, 7));
    dhcp_entry::mac.set(bytes, mac.words);
    set_table(code::kReadDhcpStatic, entry + entry);
    dhcp_table_record::count.set(record(code::kReadDhcpStatic), 1);  // the smaller of count and table counts
    const std::string table = "IP Address        MAC Address \n"
                              "------------------------------------\n"
                              "192.168.1.7       02-00-5e-10-00-01\n";
    EXPECT_EQ(run(CliAddDhcpStatic, {ip(192, 168, 1, 7), mac.words[0], mac.words[1]}), table);
    EXPECT_EQ(codes(), (std::vector<std::uint16_t>{code::kReadAddress, code::kAddDhcpStatic, code::kReadDhcpStatic}));
    ComParam wanted = bare_request(code::kReadAddress);
    std::memcpy(wanted.bytes + 24, "lan", 3);
    EXPECT_TRUE(same_record(service_stand_in::requests()[0], wanted));
    wanted = bare_request(code::kAddDhcpStatic);
    const std::uint32_t address = ip(192, 168, 1, 7);
    std::memcpy(wanted.bytes + 12, &address, 4);
    std::memcpy(wanted.bytes + 16, "\x02\x00\x5e\x10\x00\x01", 6);
    EXPECT_TRUE(same_record(service_stand_in::requests()[1], wanted));

    EXPECT_EQ(run(CliDelDhcpStatic, {address}), table);
    wanted = bare_request(code::kDeleteDhcpStatic);
    std::memcpy(wanted.bytes + 12, &address, 4);
    EXPECT_TRUE(same_record(service_stand_in::requests()[3], wanted));
}

TEST_F(Dhcp, AStaticEntryIsRefused)
{
    const MacWords mac;
    struct Case {
        std::uint32_t address;
        const char* printed;
    };
    for (const Case& each : {Case{ip(192, 168, 1, 1), "IP Address can not be the same as AP's IP "},
                             Case{ip(192, 168, 1, 255), "IP Address can not be the same as Broadcast address "},
                             Case{ip(192, 168, 1, 0), "IP Address can not be the same as Network IP address "}})
        EXPECT_EQ(run(CliAddDhcpStatic, {each.address, mac.words[0], mac.words[1]}), refusal(each.printed));
    EXPECT_EQ(sent(code::kAddDhcpStatic), 0u);

    refused[code::kAddDhcpStatic] = kStatusTableFull;
    EXPECT_EQ(run(CliAddDhcpStatic, {ip(10, 0, 0, 1), 0, 0}), "\aThe table of static DHCP entries is full\n");
    refused[code::kDeleteDhcpStatic] = kStatusUnknownAddress;
    EXPECT_EQ(run(CliDelDhcpStatic, {ip(10, 0, 0, 1)}), "\aThere is no static DHCP entry of that address\n");
    refused[code::kReadAddress] = kStatusUnknownName;
    EXPECT_EQ(run(CliAddDhcpStatic, {ip(10, 0, 0, 1), 0, 0}), "\aThere is no entry of that name\n");
}

TEST_F(Dhcp, LeasesAreShownInLocalTime)
{
    setenv("TZ", "<+0530>-5:30", 1);
    std::string entry(dhcp_entry::kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(entry.data());
    dhcp_entry::address.set(bytes, ip(192, 168, 1, 150));
    dhcp_entry::mac.set(bytes, MacWords().words);
    dhcp_entry::hostName.set(bytes, "laptop");
    dhcp_entry::flags.set(bytes, 0xFE);
    dhcp_entry::expiry.set(bytes, 1000000000);  // 2001-09-09 01:46:40 UTC
    std::string table = entry;
    dhcp_entry::flags.set(bytes, 0x81);
    std::memset(bytes + 12, 'x', 31);  // a name without its NUL
    table += entry;
    set_table(code::kReadLeases, table);
    dhcp_table_record::count.set(record(code::kReadLeases), 2);
    EXPECT_EQ(run(CliShowDchpCntTbl), "Host Name IP Address        Mac Address         Lease-Expires  Entry   Network\n"
                                      "------------------------------------------------------------------------------\n"
                                      "laptop    192.168.1.150     02-00-5e-10-00-01   9-9-2001 7:16:40dynamic LAN \n" +
                                          std::string(30, 'x') +
                                          "192.168.1.150     02-00-5e-10-00-01   9-9-2001 7:16:40static  LAN \n");
    unsetenv("TZ");
    tzset();
}
}  // namespace
