#include <cstdlib>
#include <cstring>
#include <ctime>

#include "commands/command_session.h"
#include "commands/handlers.h"
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
const Refused kRefused[] = {
    {"Loopback", {}, "127.0.0.1", refusal("IP Address can not be the Loopback", kAskLower)},
    {"Own", {}, "192.168.1.1", refusal("IP Address can not be the same as AP's IP ", kAskLower)},
    {"Zero", {}, "0.0.0.0", refusal("IP address can not be 0.0.0.0 ", kAskLower)},
    {"UpperRefusedShowsTheLower",
     {"192.168.1.10"},
     "192.168.1.255",
     refusal("IP Address can not be the same as Broadcast address ",
             " enter upper IP address of address pool (192.168.1.10): ")},
    {"UpperBelowLowerGoesBack",
     {"192.168.1.50"},
     "192.168.1.49",
     refusal("Invalid Dhcp Ip address range ", " enter lower IP address of address pool (192.168.1.50): ")},
    {"PoolTooWide", {"10.0.0.0"}, "10.0.0.254", refusal("The number of Dhcp server host ip exceeds 253 ", kAskUpper)},
};
TEST_F(Dhcp, ARefusedAnswerBringsItsMessageAndAQuestion)
{
    for (const Refused& each : kRefused) {
        run(CliSetDhcpSrv);
        for (const char* before : each.before) answer(before);
        EXPECT_EQ(answer(each.answer), each.printed) << each.name;
    }
    EXPECT_EQ(sent(code::kWriteDhcpServer), 0u);
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
