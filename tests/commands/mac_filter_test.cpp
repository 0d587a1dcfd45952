// The WDS peers and the operation mode: what they send and what they print.
#include "commands/command_session.h"
#include "platform/ipc_client.h"
#include "service/fields/mac_filter.h"
#include "service/fields/operation_mode.h"
#include "service/fields/wds.h"

namespace {
constexpr std::uint32_t kAddPeer = 7, kDeletePeer = 19, kSetOperationMode = 52, kShowPeers = 107;
constexpr char kMac[] = "02-ab-5e-10-00-0f", kMacBytes[] = "\x02\xab\x5e\x10\x00\x0f";

using NamedMacs = CommandSession;

TEST_F(NamedMacs, PeersHaveTablesOfTheirOwn)
{
    RunningAction(kAddPeer).text("sixteen-letters!").mac(kMac).run();
    EXPECT_TRUE(
        was_sent(request_of(code::kAddWdsPeer, wds_record::name, "sixteen-letters!", wds_record::mac, kMacBytes)));

    const unsigned char mac[] = {2, 0xAB, 0x5E, 0x10, 0, 2};
    set_table(code::kReadWdsPeers,
              row_of<named_mac_entry::kSize>(named_mac_entry::name, "sixteen-letters!", named_mac_entry::mac, mac));
    wds_record::count.set(record(code::kReadWdsPeers), 9);  // at most what is attached
    EXPECT_EQ(RunningAction(kShowPeers).run(),
              "Peer Name                  Mac Address\r\n---------------------------------------\r\n"
              "sixteen-letters            02-AB-5E-10-00-02 \r\n!              \n");
    exchangeFails[code::kDeleteWdsPeer] = IPC_NO_ANSWER;
    EXPECT_EQ(RunningAction(kDeletePeer).text("roof").run(), " Error: Delete wds peer roof fail\a\n");
}

TEST_F(NamedMacs, ARepeaterNeedsAnAccessPoint)
{
    using namespace operation_mode_record;
    ComParam& stored = record(code::kReadOperationMode);
    mode.set(stored, kAccessPoint);
    const std::string question = " enter MAC address (Unspecified): ";
    const std::string noMac = refusal("MAC address format must be aa-bb-cc-dd-ee-ff, \"*\" is not supported", question);
    RunningAction repeater(kSetOperationMode);
    EXPECT_EQ(repeater.number(3).run(), question);
    EXPECT_EQ(repeater.answer(""), question);
    EXPECT_EQ(repeater.answer("00-00-00-00-00-00"), noMac);
    EXPECT_EQ(repeater.answer("*"), noMac);
    EXPECT_EQ(repeater.call.stage, 195u);
    EXPECT_EQ(repeater.answer(kMac), "Operation mode: repeater\r\n");
    EXPECT_EQ(repeater.call.stage, 0u);
    EXPECT_EQ(std::memcmp(repeated.get(stored), kMacBytes, 6), 0);

    repeated.set(stored, "\x00\x00\x00\x00\x05\x07");
    RunningAction zeros(kSetOperationMode);
    zeros.number(3).run();
    EXPECT_EQ(zeros.answer(""), " enter MAC address (00-00-00-00-05-07): ") << "the first four octets decide";
}
}  // namespace
