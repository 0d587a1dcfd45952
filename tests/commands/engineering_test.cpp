// The engineering and bridge commands.
#include "commands/command_session.h"
#include "service/fields/bridge.h"
#include "service/fields/engineering.h"

namespace {
constexpr std::uint32_t kPreKeyWrite = 188, kShowStp = 117;

using Engineering = CommandSession;

TEST_F(Engineering, APresetKeyGoesOutOnceAndIsForgotten)
{
    constexpr char kUsage[] = "A preset key has an index from 1 to 4 and 5 or 13 hexadecimal octets:\n"
                              "z_debug prekey write 1 0a-1b-2c-3d-4e\n";
    EXPECT_EQ(RunningAction(kPreKeyWrite).run(), kUsage);
    for (const char* bad : {"0a-1b-2c-3d-4g", "00-01-02-03-04-05-06-07-08-09-0a-0b-0c-0d", "100-00-00-00-00", "-"})
        EXPECT_EQ(RunningAction(kPreKeyWrite).number(1).text(bad).run(), kUsage) << bad;
    EXPECT_EQ(RunningAction(kPreKeyWrite).number(5).text("0a-1b-2c-3d-4e").run(),
              refusal("Key index should be 1 to 4"));
    EXPECT_TRUE(codes().empty());

    RunningAction(kPreKeyWrite).number(2).text("0a-1b-2c-3d-4e").run();
    EXPECT_TRUE(was_sent(
        request_of(code::kWritePresetKey, preset_key_record::index, 2, preset_key_record::key, "0A-1B-2C-3D-4E")));
    const std::string_view kept(reinterpret_cast<const char*>(usrComParam.bytes), kRecordSize);
    EXPECT_EQ(kept.find("0A-1B"), kept.npos);
}

TEST_F(Engineering, ABridgeOfMorePortsThanARecordHasIsShown)
{
    bridge_record::ports.set(record(code::kReadBridgeTable), 0xFFFF);
    EXPECT_FALSE(RunningAction(kShowStp).run().empty());
}
}  // namespace
