// The MAC filter, the WDS peers and the operation mode: what they send and what they print.
#include "commands/command_session.h"
#include "platform/ipc_client.h"
#include "service/fields/mac_filter.h"
#include "service/fields/operation_mode.h"
#include "service/fields/wds.h"

namespace {
constexpr std::uint32_t kAddFilter = 2, kAddPeer = 7, kDeleteFilter = 14, kDeletePeer = 19, kSetOperationMode = 52,
                        kShowFilters = 83, kShowPeers = 107;
constexpr char kMac[] = "02-ab-5e-10-00-0f", kMacBytes[] = "\x02\xab\x5e\x10\x00\x0f";
const std::string kFilterHead = "Filter Name     MAC address\n---------------------------------\n";

std::string entry_of(const std::string& name, unsigned char lastOfMac)
{
    const unsigned char mac[] = {2, 0xAB, 0x5E, 0x10, 0, lastOfMac};
    return row_of<named_mac_entry::kSize>(named_mac_entry::name, name.c_str(), named_mac_entry::mac, mac);
}

using NamedMacs = CommandSession;

TEST_F(NamedMacs, AnAddedFilterIsShownWithItsNameInTwoLinesIfNeedBe)
{
    for (const auto& [name, row] :
         {std::pair{"a", "a               02-AB-5E-10-00-0F\n"},
          {"sixteen-letters!", "sixteen-letters 02-AB-5E-10-00-0F\n!              \n"},
          {"a name of thirty characters is", "a name of thirt 02-AB-5E-10-00-0F\ny characters is\n"}}) {
        EXPECT_EQ(RunningAction(kAddFilter).text(name).mac(kMac).run(), kFilterHead + row);
        EXPECT_TRUE(was_sent(
            request_of(code::kAddMacFilter, mac_filter_record::name, name, mac_filter_record::mac, kMacBytes)));
        set_table(code::kReadMacFilter, entry_of(name, 0x0F));
        EXPECT_EQ(RunningAction(kShowFilters).run(), kFilterHead + row);
    }
}

TEST_F(NamedMacs, FiltersAreShownInTableOrder)
{
    std::string endless = entry_of("", 1);
    std::memset(endless.data(), 'n', named_mac_entry::name.at.width);
    set_table(code::kReadMacFilter, entry_of("two", 2) + entry_of("one", 1) + endless + "cut short");
    EXPECT_EQ(RunningAction(kShowFilters).run(), kFilterHead +
                                                     "two             02-AB-5E-10-00-02\n"
                                                     "one             02-AB-5E-10-00-01\n" +
                                                     std::string(15, 'n') + " 02-AB-5E-10-00-01\n" +
                                                     std::string(15, 'n') + "\n");
    refused[code::kDeleteMacFilter] = kStatusUnknownName;
    EXPECT_EQ(RunningAction(kDeleteFilter).text("guest").run(),
              "\aThere is no MAC filter of that name\nDelete Mac Filter: guest Fail\r\n");
}

TEST_F(NamedMacs, PeersHaveTablesOfTheirOwn)
{
    EXPECT_EQ(RunningAction(kAddPeer).text("sixteen-letters!").mac(kMac).run(),
              "Peer Name                 MAC Address\r\n-------------------------------------------------\r\n"
              "sixteen-letters           02-AB-5E-10-00-0F \r\n!              \n");
    EXPECT_TRUE(
        was_sent(request_of(code::kAddWdsPeer, wds_record::name, "sixteen-letters!", wds_record::mac, kMacBytes)));

    set_table(code::kReadWdsPeers, entry_of("roof", 1) + entry_of("sixteen-letters!", 2));
    wds_record::count.set(record(code::kReadWdsPeers), 9);  // at most what is attached
    EXPECT_EQ(RunningAction(kShowPeers).run(),
              "Peer Name                  Mac Address\r\n---------------------------------------\r\n"
              "roof                       02-AB-5E-10-00-01 \r\n"
              "sixteen-letters            02-AB-5E-10-00-02 \r\n!              \n");
    refused[code::kDeleteWdsPeer] = kStatusUnknownName;
    EXPECT_EQ(RunningAction(kDeletePeer).text("roof").run(), "\aThere is no WDS peer of that name\n");
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
