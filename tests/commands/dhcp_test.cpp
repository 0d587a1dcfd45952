#include <cstdlib>
#include <ctime>

#include "commands/command_session.h"
#include "commands/handlers.h"
#include "service/fields/address.h"
#include "service/fields/dhcp.h"

namespace {
using namespace dhcp_record;

constexpr std::uint32_t ip(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d)
{
    return a << 24 | b << 16 | c << 8 | d;
}
constexpr std::uint32_t kLan = ip(192, 168, 1, 0);

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
constexpr char kAskNoPrimary[] = " enter IP address of the primary DNS (Unspecified): ";

class Dhcp : public CommandSession {
protected:
    Dhcp()
    {
        fill(server(), netmask, 0xFFFFFF00, state, 2, lowerAddress, kLan + 100, upperAddress, kLan + 199, leaseTime,
             1440, gateway, kLan + 254, primaryDns, ip(8, 8, 8, 8));  // a state of anything but 1 is off
        fill(record(code::kReadAddress), address_record::address, kLan + 1, address_record::netmask, 0xFFFFFF00);
    }
    ComParam& server() { return record(code::kReadDhcpServer); }
};

TEST_F(Dhcp, EnterThroughoutWritesNothing)
{
    EXPECT_EQ(run(CliSetDhcpSrv), kAskLower);
    for (const char* printed : {kAskUpper, kAskGateway, kAskLease, kAskDnsNo, kShown}) EXPECT_EQ(answer(""), printed);
    EXPECT_FALSE(asking());
    EXPECT_EQ(codes(), (Codes{code::kReadDhcpServer, code::kReadDhcpServer}));
}

TEST_F(Dhcp, EnterThroughoutAsksForAPrimaryServerThatIsMissing)
{
    primaryDns.set(server(), 0);
    run(CliSetDhcpSrv);
    EXPECT_EQ(answers({"", "", "", ""}), kAskDnsYes);
    EXPECT_EQ(answer(""), kAskNoPrimary);
    EXPECT_EQ(answer(""), kAskNoPrimary);
    answers({"9.9.9.9", ""});
    EXPECT_EQ(primaryDns.get(server()), ip(9, 9, 9, 9));
}

TEST_F(Dhcp, EveryAnswerReachesItsField)
{
    const ComParam wanted =
        rewritten(code::kReadDhcpServer, code::kWriteDhcpServer, lowerAddress, kLan + 10, upperAddress, kLan + 10,
                  gateway, kLan + 253, leaseTime, 525600, primaryDns, ip(1, 1, 1, 1), secondaryDns, ip(9, 9, 9, 9));
    run(CliSetDhcpSrv);
    answers({"192.168.1.10", "192.168.1.10", "192.168.1.253"});
    EXPECT_EQ(answer("525600"), kAskDnsYes) << "after a lease time the default is always yes";
    EXPECT_EQ(answer("y"), kAskPrimary);
    answers({"1.1.1.1", "9.9.9.9"});
    EXPECT_TRUE(was_sent(wanted));
    EXPECT_EQ(sent(code::kWriteDhcpServer), 1u);
}

struct Refused {
    const char* name;
    std::vector<const char*> before;
    const char* answer;
    std::string printed;
};
// clang-format off
const Refused kRefused[] = {
    {"Loopback",                {},                "127.0.0.1",     refusal("IP Address can not be the Loopback", kAskLower)},
    {"Own",                     {},                "192.168.1.1",   refusal("IP Address can not be the same as AP's IP ", kAskLower)},
    {"Zero",                    {},                "0.0.0.0",       refusal("IP address can not be 0.0.0.0 ", kAskLower)},
    {"UpperShowsTheLower",      {"192.168.1.10"},  "192.168.1.255", refusal("IP Address can not be the same as Broadcast address ",
                                                                            " enter upper IP address of address pool (192.168.1.10): ")},
    {"UpperBelowLowerGoesBack", {"192.168.1.50"},  "192.168.1.49",  refusal("Invalid Dhcp Ip address range ",
                                                                            " enter lower IP address of address pool (192.168.1.50): ")},
    {"PoolTooWide",             {"10.0.0.0"},      "10.0.0.254",    refusal("The number of Dhcp server host ip exceeds 253 ", kAskUpper)},
    {"GatewayIsOwn",            {"", ""},          "192.168.1.1",   refusal("IP Address can not be the same as AP's IP ", kAskGateway)},
    {"LeaseTooLong",            {"", "", ""},      "525601",        refusal("Invalid lease time range ", kAskLease)},
    {"NeitherYesNorNo",         {"", "", "", ""},  "Yy",            refusal("Action confirm word must be \"yes\" or \"no\"", kAskDnsNo)},
};
// clang-format on
TEST_F(Dhcp, ARefusedAnswerBringsItsMessageAndAQuestion)
{
    for (const Refused& each : kRefused) {
        run(CliSetDhcpSrv);
        for (const char* before : each.before) answer(before);
        EXPECT_EQ(answer(each.answer), each.printed) << each.name;
    }
    EXPECT_EQ(sent(code::kWriteDhcpServer), 0u);
}

TEST_F(Dhcp, OnlyALowerCaseYAssignsServers)
{
    for (const auto& [word, printed] :
         {std::pair{"YES", kShown}, {"N", kShown}, {"yes", kAskPrimary}, {"y", kAskPrimary}}) {
        run(CliSetDhcpSrv);
        EXPECT_EQ(answers({"", "", "", "", word}), printed) << word;
    }
}

struct MacWords {  // as the parser of MAC addresses lays them
    MacWords() { std::memcpy(words, "\x02\x00\x5e\x10\x00\x01", 6); }
    Word words[2] = {};
};

TEST_F(Dhcp, AStaticEntryIsAddedAndDeleted)
{
    const MacWords mac;
    const auto entry = row_of<dhcp_entry::kSize>(dhcp_entry::address, kLan + 7, dhcp_entry::mac, mac.words);
    set_table(code::kReadDhcpStatic, entry + entry);
    dhcp_table_record::count.set(record(code::kReadDhcpStatic), 1);  // the smaller of count and table counts
    const std::string table = "IP Address        MAC Address \n"
                              "------------------------------------\n"
                              "192.168.1.7       02-00-5e-10-00-01\n";
    EXPECT_EQ(run(CliAddDhcpStatic, {kLan + 7, mac.words[0], mac.words[1]}), table);
    EXPECT_EQ(codes(), (Codes{code::kReadAddress, code::kAddDhcpStatic, code::kReadDhcpStatic}));
    EXPECT_TRUE(was_sent(request_of(code::kReadAddress, address_record::interface, "lan")));
    EXPECT_TRUE(was_sent(
        request_of(code::kAddDhcpStatic, dhcp_static_request::address, kLan + 7, dhcp_static_request::mac, mac.words)));
    EXPECT_EQ(run(CliDelDhcpStatic, {kLan + 7}), table);
    EXPECT_TRUE(was_sent(request_of(code::kDeleteDhcpStatic, dhcp_static_request::address, kLan + 7)));

    for (const auto& [host, whose] :
         {std::pair{1, "AP's IP "}, {255, "Broadcast address "}, {0, "Network IP address "}})
        EXPECT_EQ(run(CliAddDhcpStatic, {kLan + static_cast<std::uint32_t>(host), 0, 0}),
                  refusal(std::string("IP Address can not be the same as ") + whose));
    EXPECT_EQ(sent(code::kAddDhcpStatic), 1u);
}

TEST_F(Dhcp, LeasesAreShownInLocalTime)
{
    setenv("TZ", "<+0530>-5:30", 1);
    const std::string endless(31, 'x');  // a name without its NUL
    std::string table = row_of<dhcp_entry::kSize>(dhcp_entry::address, kLan + 150, dhcp_entry::mac, MacWords().words,
                                                  dhcp_entry::hostName, "laptop", dhcp_entry::flags, 0xFE,
                                                  dhcp_entry::expiry, 1000000000);  // 2001-09-09 01:46:40 UTC
    std::string other = table;
    dhcp_entry::flags.set(reinterpret_cast<unsigned char*>(other.data()), 0x81);
    table += other.replace(dhcp_entry::hostName.at.offset, endless.size(), endless);
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
