// The MAC filter, the WDS peers and the operation mode: what they send and what they print.
#include <cstring>
#include <gtest/gtest.h>

#include "commands/running_action.h"
#include "commands/service_stand_in.h"
#include "platform/ipc_client.h"
#include "service/client.h"
#include "service/fields/mac_filter.h"
#include "service/fields/operation_mode.h"
#include "service/fields/wds.h"

namespace {
constexpr std::uint32_t kAddFilter = 2, kAddPeer = 7, kDeleteFilter = 14, kDeletePeer = 19, kSetOperationMode = 52,
                        kShowFilters = 83, kShowPeers = 107;
constexpr char kMac[] = "02-ab-5e-10-00-0f";
const std::string kFilterHead = "Filter Name     MAC address\n---------------------------------\n";

std::string entry_of(const std::string& name, unsigned char lastOfMac)
{
    std::string entry(named_mac_entry::kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(entry.data());
    const unsigned char mac[] = {2, 0xAB, 0x5E, 0x10, 0, lastOfMac};
    named_mac_entry::name.set(bytes, name.c_str());
    named_mac_entry::mac.set(bytes, mac);
    return entry;
}

class NamedMacs : public testing::Test {
protected:
    NamedMacs()
    {
        service_stand_in::reset([this](ComParam& record, std::string& attached) {
            attached = table;
            wds_record::count.set(record, count);
            record::status.set(record, status);
            return failure;
        });
    }

    // The only request, its code checked; nothing but what the code carries stands in it.
    static ComParam sent(std::uint16_t code)
    {
        EXPECT_EQ(service_stand_in::codes_sent(), std::vector<std::uint16_t>{code});
        ComParam request = service_stand_in::requests().front();
        service_stand_in::requests().clear();
        EXPECT_EQ(record::kind.get(request), record::kRequest);
        return request;
    }

    std::string table;
    std::uint16_t count = 0;
    std::uint32_t status = 0, failure = 0;
};

struct NameCase {
    const char *name, *row;
};
constexpr NameCase kNames[] = {
    {"a", "a               02-AB-5E-10-00-0F\n"},
    {"sixteen-letters!", "sixteen-letters 02-AB-5E-10-00-0F\n!              \n"},
    {"a name of thirty characters is", "a name of thirt 02-AB-5E-10-00-0F\ny characters is\n"},
};

TEST_F(NamedMacs, AnAddedFilterIsShownWithItsNameInTwoLinesIfNeedBe)
{
    for (const NameCase& c : kNames) {
        EXPECT_EQ(RunningAction(kAddFilter).text(c.name).mac(kMac).run(), kFilterHead + c.row);
        ComParam request = sent(code::kAddMacFilter);
        EXPECT_STREQ(mac_filter_record::name.get(request), c.name);
        EXPECT_EQ(std::memcmp(mac_filter_record::mac.get(request), "\x02\xab\x5e\x10\x00\x0f", 6), 0);

        table = entry_of(c.name, 0x0F);
        EXPECT_EQ(RunningAction(kShowFilters).run(), kFilterHead + c.row);
        sent(code::kReadMacFilter);
    }
}

TEST_F(NamedMacs, FiltersAreShownInTableOrderOrByName)
{
    table = entry_of("one", 1) + entry_of("two", 2) + entry_of("One", 3) + "cut short";
    EXPECT_EQ(RunningAction(kShowFilters).run(), kFilterHead + "one             02-AB-5E-10-00-01\n"
                                                               "two             02-AB-5E-10-00-02\n"
                                                               "One             02-AB-5E-10-00-03\n");
    table = entry_of("", 1);
    std::memset(table.data(), 'n', named_mac_entry::name.at.width);
    EXPECT_EQ(RunningAction(kShowFilters).run(),
              kFilterHead + std::string(15, 'n') + " 02-AB-5E-10-00-01\n" + std::string(15, 'n') + "\n")
        << "a name without its end";
}

TEST_F(NamedMacs, FilterRefusals)
{
    status = kStatusUnknownName;
    EXPECT_EQ(RunningAction(kDeleteFilter).text("guest").run(),
              "\aThere is no MAC filter of that name\nDelete Mac Filter: guest Fail\r\n");
}

constexpr char kAddedHead[] = "Peer Name                 MAC Address\r\n"
                              "-------------------------------------------------\r\n";
constexpr char kPeersHead[] = "Peer Name                  Mac Address\r\n"
                              "---------------------------------------\r\n";

TEST_F(NamedMacs, PeersHaveTablesOfTheirOwn)
{
    EXPECT_EQ(RunningAction(kAddPeer).text("sixteen-letters!").mac(kMac).run(),
              kAddedHead + std::string("sixteen-letters           02-AB-5E-10-00-0F \r\n!              \n"));
    ComParam request = sent(code::kAddWdsPeer);
    EXPECT_STREQ(wds_record::name.get(request), "sixteen-letters!");
    EXPECT_EQ(std::memcmp(wds_record::mac.get(request), "\x02\xab\x5e\x10\x00\x0f", 6), 0);

    table = entry_of("roof", 1) + entry_of("sixteen-letters!", 2);
    count = 9;
    EXPECT_EQ(RunningAction(kShowPeers).run(),
              kPeersHead + std::string("roof                       02-AB-5E-10-00-01 \r\n"
                                       "sixteen-letters            02-AB-5E-10-00-02 \r\n!              \n"))
        << "at most what is attached";
}

TEST_F(NamedMacs, PeerRefusals)
{
    status = kStatusUnknownName;
    EXPECT_EQ(RunningAction(kDeletePeer).text("roof").run(), "\aThere is no WDS peer of that name\n");
    failure = IPC_NO_ANSWER;
    EXPECT_EQ(RunningAction(kDeletePeer).text("roof").run(), " Error: Delete wds peer roof fail\a\n");
}

constexpr char kUnspecified[] = " enter MAC address (Unspecified): ";

class OperationMode : public testing::Test {
protected:
    OperationMode()
    {
        operation_mode_record::mode.set(stored, operation_mode_record::kAccessPoint);
        service_stand_in::reset([this](ComParam& record, std::string&) {
            const bool isRead = record::code.get(record) == code::kReadOperationMode;
            (isRead ? record : stored) = isRead ? stored : record;
            record::status.set(record, 0);
            return std::uint32_t{0};
        });
        std::memset(&usrComParam, 0, sizeof usrComParam);
    }
    void store(std::uint8_t mode, const char* mac)
    {
        operation_mode_record::mode.set(stored, mode);
        operation_mode_record::repeated.set(stored, mac);
    }
    std::string stored_mac() const
    {
        return {reinterpret_cast<const char*>(operation_mode_record::repeated.get(stored)), 6};
    }

    ComParam stored{};
    RunningAction repeater = std::move(RunningAction(kSetOperationMode).number(3));
};

TEST_F(OperationMode, ARepeaterNeedsAnAccessPoint)
{
    const std::string refused =
        " Error: MAC address format must be aa-bb-cc-dd-ee-ff, \"*\" is not supported\a\n" + std::string(kUnspecified);
    EXPECT_EQ(repeater.run(), kUnspecified);
    EXPECT_EQ(repeater.answer(""), kUnspecified);
    EXPECT_EQ(repeater.answer("00-00-00-00-00-00"), refused);
    EXPECT_EQ(repeater.answer("*"), refused);
    EXPECT_EQ(repeater.call.stage, 195u);
    EXPECT_EQ(repeater.answer(kMac), "Operation mode: repeater\r\n");
    EXPECT_EQ(repeater.call.stage, 0u);
    EXPECT_EQ(stored_mac(), std::string("\x02\xab\x5e\x10\x00\x0f", 6));
}

TEST_F(OperationMode, AStoredAccessPointIsKept)
{
    store(3, "\x00\x00\x00\x00\x05\x07");
    RunningAction zeros = std::move(RunningAction(kSetOperationMode).number(3));
    zeros.run();
    EXPECT_EQ(zeros.answer(""), " enter MAC address (00-00-00-00-05-07): ") << "the first four octets decide";
}
}  // namespace
