// The engineering and bridge commands against a service that answers as each test says.
#include <algorithm>
#include <gtest/gtest.h>

#include "commands/handlers.h"
#include "commands/running_action.h"
#include "commands/service_stand_in.h"
#include "service/client.h"
#include "service/fields/bridge.h"
#include "service/fields/engineering.h"

namespace {
constexpr std::uint32_t kPreKeyWrite = 188, kShowStp = 117;

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
}

TEST_F(Engineering, ABridgeOfMorePortsThanARecordHasIsShown)
{
    bridge_record::ports.set(bridge, 0xFFFF);
    EXPECT_FALSE(RunningAction(kShowStp).run().empty());
}
}  // namespace
