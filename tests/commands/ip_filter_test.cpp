#include <gtest/gtest.h>
#include <vector>

#include "commands/command_session.h"
#include "commands/interface_table.h"
#include "commands/running_action.h"
#include "service/fields/ip_filter.h"

namespace {
constexpr std::uint32_t kAdd = 145, kSet = 149;

using namespace ip_filter_entry;

struct Ports {
    std::uint16_t first, last;
};

std::string filter_row(std::uint8_t number, std::uint32_t source, std::uint32_t sourceMask, Ports from,
                       std::uint32_t destination, std::uint32_t destinationMask, Ports to)
{
    std::string row(kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(row.data());
    name.set(bytes, "f");
    interface.set(bytes, "eth1");
    direction.set(bytes, kInbound);
    protocol.set(bytes, number);
    sourceAddress.set(bytes, source);
    sourceNetmask.set(bytes, sourceMask);
    sourceFirst.set(bytes, from.first);
    sourceLast.set(bytes, from.last);
    destinationAddress.set(bytes, destination);
    destinationNetmask.set(bytes, destinationMask);
    destinationFirst.set(bytes, to.first);
    destinationLast.set(bytes, to.last);
    return row;
}

class IpFilter : public CommandSession {
protected:
    IpFilter()
    {
        std::string wan = interface_row("eth1");
        interface_entry::flags.set(reinterpret_cast<unsigned char*>(wan.data()), interface_entry::kWan);
        set_table(code::kReadPort, interface_row("eth0") + wan);
    }
    std::string add(std::initializer_list<const char*> texts)
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
    std::initializer_list<const char*> answers;
    std::string entry;
};
// clang-format off
const Case kCases[] = {
    {"Everything",  {"", "", "", "", ""},                                               filter_row(kAny, 0, 0, {}, 0, 0, {})},
    {"OneHost",     {"eth1", "in", "icmp", "any", "s", "10.0.0.1"},                     filter_row(kIcmp, 0, 0, {}, 0x0A000001, 0xFFFFFFFF, {})},
    {"Network",     {"", "", "ig", "n", "10.1.2.3", "255.255.0.0", ""},                 filter_row(kIgmp, 0x0A010000, 0xFFFF0000, {}, 0, 0, {})},
    {"OnePort",     {"", "", "tcp", "", "", "s", "53", ""},                             filter_row(kTcp, 0, 0, {53, 53}, 0, 0, {})},
    {"BothPorts",   {"", "", "udp", "", "", "r", "9", "8", "65535", "r", "1", "1"},     filter_row(kUdp, 0, 0, {9, 65535}, 0, 0, {1, 1})},
};
// clang-format on
TEST_F(IpFilter, EveryAnswerReachesItsField)
{
    for (const Case& each : kCases) {
        service_stand_in::requests().clear();
        add(each.answers);
        ComParam wanted = bare_request(code::kAddIpFilter);
        std::memcpy(carried_entry(wanted), each.entry.data(), each.entry.size());
        EXPECT_EQ(stage, 0u) << each.name;
        ASSERT_EQ(sent(code::kAddIpFilter), 1u) << each.name;
        EXPECT_TRUE(same_record(service_stand_in::requests().end()[-2], wanted)) << each.name;
    }
}

TEST_F(IpFilter, TheDefaultActionIsAWord)
{
    constexpr char kRule[] = " Error: Default action must be grant, deny or disable\a\n";
    for (const char* word : {"", "d", "permit", "denying"})
        EXPECT_EQ(RunningAction(kSet).text("eth1").text(word).run(), kRule) << word;
    EXPECT_TRUE(codes().empty());
    for (const auto& [word, action] :
         {std::pair{"grant", ip_filter_record::kGrant}, {"disable", ip_filter_record::kDisable}}) {
        service_stand_in::requests().clear();
        RunningAction(kSet).text("eth1").text(word).run();
        ComParam wanted = bare_request(code::kWriteIpFilter);
        ip_filter_record::interface.set(wanted, "eth1");
        ip_filter_record::action.set(wanted, action);
        EXPECT_TRUE(same_record(service_stand_in::requests().front(), wanted)) << word;
    }
}
}  // namespace
