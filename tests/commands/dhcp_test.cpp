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

constexpr char kAskLower[] = " enter lower IP address of address pool (192.168.1.100): ";
constexpr char kAskUpper[] = " enter upper IP address of address pool (192.168.1.199): ";
constexpr char kAskLease[] = " enable lease time (1440, 1-525600): ";
constexpr char kAskDnsNo[] = " do you want to assign DNS server (no, yes/no): ";
constexpr char kAskDnsYes[] = " do you want to assign DNS server (yes, yes/no): ";

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

TEST_F(Dhcp, EveryAnswerReachesItsField)
{
    const ComParam wanted =
        rewritten(code::kReadDhcpServer, code::kWriteDhcpServer, lowerAddress, kLan + 10, upperAddress, kLan + 10,
                  gateway, kLan + 253, leaseTime, 525600, primaryDns, ip(1, 1, 1, 1), secondaryDns, ip(9, 9, 9, 9));
    run(CliSetDhcpSrv);
    answers({"192.168.1.10", "192.168.1.10", "192.168.1.253"});
    EXPECT_EQ(answer("525600"), kAskDnsYes) << "after a lease time the default is always yes";
    answers({"y", "1.1.1.1", "9.9.9.9"});
    EXPECT_TRUE(was_sent(wanted));

    run(CliSetDhcpSrv);
    EXPECT_EQ(answers({"", "", "", ""}), kAskDnsNo);
    answer("YES");  // only a lower-case y assigns servers
    EXPECT_FALSE(asking());
    EXPECT_EQ(sent(code::kWriteDhcpServer), 1u) << "nothing changed";
}

TEST_F(Dhcp, EnterThroughoutAsksForAPrimaryServerThatIsMissing)
{
    const std::string askAgain = " enter IP address of the primary DNS (Unspecified): ";
    primaryDns.set(server(), 0);
    run(CliSetDhcpSrv);
    EXPECT_EQ(answers({"", "", "", ""}), kAskDnsYes);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(answer(""), askAgain);
    answers({"9.9.9.9", ""});
    EXPECT_EQ(primaryDns.get(server()), ip(9, 9, 9, 9));
}

struct Refused {
    const char* name;
    std::vector<const char*> before;
    const char* answer;
    std::string printed;
};
// clang-format off
const Refused kRefused[] = {
    {"Own",                     {},                "192.168.1.1",   refusal("IP Address can not be the same as AP's IP ", kAskLower)},
    {"UpperShowsTheLower",      {"192.168.1.10"},  "192.168.1.255", refusal("IP Address can not be the same as Broadcast address ",
                                                                            " enter upper IP address of address pool (192.168.1.10): ")},
    {"UpperBelowLowerGoesBack", {"192.168.1.50"},  "192.168.1.49",  refusal("Invalid Dhcp Ip address range ",
                                                                            " enter lower IP address of address pool (192.168.1.50): ")},
    {"PoolTooWide",             {"10.0.0.0"},      "10.0.0.254",    refusal("The number of Dhcp server host ip exceeds 253 ", kAskUpper)},
    {"LeaseTooLong",            {"", "", ""},      "525601",        refusal("Invalid lease time range ", kAskLease)},
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

TEST_F(Dhcp, AsksForEverAndTheVectorIsNeverFull)
{
    run(CliSetDhcpSrv);
    for (int i = 0; i < 50; ++i) answers({"192.168.1.50", "192.168.1.49"});
    EXPECT_EQ(answer("192.168.1.0"), refusal("IP Address can not be the same as Network IP address ",
                                             " enter lower IP address of address pool (192.168.1.50): "));
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
    EXPECT_TRUE(run(CliAddDhcpStatic, {kLan + 7, mac.words[0], mac.words[1]})
                    .ends_with("192.168.1.7       02-00-5e-10-00-01\n"));
    EXPECT_EQ(codes(), (Codes{code::kReadAddress, code::kAddDhcpStatic, code::kReadDhcpStatic}));
    EXPECT_TRUE(was_sent(request_of(code::kReadAddress, address_record::interface, "lan")));
    EXPECT_TRUE(was_sent(
        request_of(code::kAddDhcpStatic, dhcp_static_request::address, kLan + 7, dhcp_static_request::mac, mac.words)));
    run(CliDelDhcpStatic, {kLan + 7});
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
