#include "commands/command_session.h"
#include "commands/interface_table.h"
#include "service/fields/ip_filter.h"

namespace {
constexpr std::uint32_t kAdd = 145, kSet = 149;

using namespace ip_filter_entry;

struct End {
    std::uint32_t address, netmask;
    std::uint16_t first, last;
};

std::string filter_row(std::uint8_t number, const End& from, const End& to)
{
    return row_of<kSize>(name, "f", interface, "eth1", direction, kInbound, protocol, number, sourceAddress,
                         from.address, sourceNetmask, from.netmask, sourceFirst, from.first, sourceLast, from.last,
                         destinationAddress, to.address, destinationNetmask, to.netmask, destinationFirst, to.first,
                         destinationLast, to.last);
}

class IpFilter : public CommandSession {
protected:
    IpFilter()
    {
        std::string wan = interface_row("eth1");
        interface_entry::flags.set(reinterpret_cast<unsigned char*>(wan.data()), interface_entry::kWan);
        set_table(code::kReadPort, interface_row("eth0") + wan);
    }
    std::string add(const std::vector<const char*>& texts)
    {
        RunningAction action(kAdd);
        action.text("f").run();
        std::string printed;
        for (const char* text : texts) printed = action.answer(text);
        stage = action.call.stage;
        return printed;
    }
    std::uint32_t stage = 0;
};

struct Case {
    const char* name;
    std::vector<const char*> answers;
    std::string entry;
};
// clang-format off
const Case kCases[] = {
    {"OneHost",    {"eth1", "in", "icmp", "any", "s", "10.0.0.1"},                 filter_row(kIcmp, {}, {0x0A000001, 0xFFFFFFFF, 0, 0})},
    {"Network",    {"", "", "ig", "n", "10.1.2.3", "255.255.0.0", ""},             filter_row(kIgmp, {0x0A010000, 0xFFFF0000, 0, 0}, {})},
    {"BothPorts",  {"", "", "udp", "", "", "r", "9", "8", "65535", "r", "1", "1"}, filter_row(kUdp,  {0, 0, 9, 65535}, {0, 0, 1, 1})},
};
// clang-format on
TEST_F(IpFilter, EveryAnswerReachesItsField)
{
    for (const Case& each : kCases) {
        add(each.answers);
        EXPECT_EQ(stage, 0u) << each.name;
        EXPECT_TRUE(was_sent(carrying(code::kAddIpFilter, each.entry))) << each.name;
    }
    EXPECT_EQ(sent(code::kAddIpFilter), std::size(kCases));
}

struct RefusedCase {
    std::vector<const char*> answers;
    std::string printed;  // after the last of them
};
// clang-format off
const RefusedCase kRefused[] = {
    {{"", "", "i"},                                 refusal("Protocol must be any, tcp, udp, icmp or igmp", " select ip protocol (any, any/tcp/udp/icmp/igmp): ")},
    {{"", "", "", "s", ""},                         refusal("Invalid IP address", " enter ip address (Unspecified): ")},
    {{"", "", "", "n", "10.0.0.0", "255.0.255.0"},  refusal("IP netmask must be one bits followed by zero bits", " enter netmask (Unspecified): ")},
    {{"", "", "tcp", "", "", "s", ""},              refusal("Port number should be 1 to 65535", " enter port number (0, 1-65535): ")},
    {{"", "", "tcp", "", "", "r", "9", "8"},        refusal("Ending port should not be below the starting port", " enter ending port number (0, 1-65535): ")},
};
// clang-format on
TEST_F(IpFilter, ARefusedAnswerBringsTheQuestionAgain)
{
    for (const RefusedCase& each : kRefused) {
        EXPECT_EQ(add(each.answers), each.printed);
        EXPECT_NE(stage, 0u) << each.printed;
    }
    EXPECT_EQ(sent(code::kAddIpFilter), 0u);
}

TEST_F(IpFilter, TheDefaultActionIsAWord)
{
    for (const char* word : {"", "d", "denying"})
        EXPECT_EQ(RunningAction(kSet).text("eth1").text(word).run(),
                  refusal("Default action must be grant, deny or disable"));
    EXPECT_TRUE(codes().empty());
    for (const auto& [word, action] : {std::pair{"grant", ip_filter_record::kGrant},
                                       {"DE", ip_filter_record::kDeny},
                                       {"disable", ip_filter_record::kDisable}}) {
        RunningAction(kSet).text("eth1").text(word).run();
        EXPECT_TRUE(was_sent(
            request_of(code::kWriteIpFilter, ip_filter_record::interface, "eth1", ip_filter_record::action, action)))
            << word;
    }
}
}  // namespace
