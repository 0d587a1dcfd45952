#include "configd/area_session.h"
#include "service/fields/ports.h"

namespace {
namespace counters = port_statistics_record;

class CountersArea : public AreaSession {
protected:
    std::uint32_t received()
    {
        EXPECT_EQ(ask(code::kReadPortStatistics, counters::interface, "eth0"), kStatusOk);
        return counters::goodReceived.get(answer.record);
    }
    std::uint32_t clear() { return ask(code::kClearPortStatistics, counters::interface, "eth0"); }
};

TEST_F(CountersArea, CountOnFromWhereTheyWereCleared)
{
    machine.interfaces = {interface_named("eth0", 1)};
    machine.interfaces[0].counters.rxPackets = 10;
    storage.readOnly = true;
    EXPECT_EQ(clear(), kStatusStorageReadOnly);
    EXPECT_EQ(received(), 10u);
    storage.readOnly = false;
    EXPECT_EQ(clear(), kStatusOk);
    start();
    machine.interfaces[0].counters.rxPackets = 13;
    EXPECT_EQ(received(), 3u);

    for (const char* content : {"", "[]", "{\"interfaces\": 7}", "{\"interfaces\": {\"eth0\": [\"x\", -1, 1e9]}}"}) {
        storage.files["run/cleared-counters.json"] = content;
        start();
        EXPECT_EQ(received(), 13u) << content;
    }
}
}  // namespace
