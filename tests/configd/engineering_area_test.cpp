#include "configd/area_session.h"
#include "service/fields/engineering.h"

namespace {
class EngineeringArea : public AreaSession {
protected:
    std::uint32_t write_key(std::uint8_t index, const char* key)
    {
        ComParam wanted = request(code::kWritePresetKey);
        preset_key_record::index.set(wanted, index);
        preset_key_record::key.set(wanted, key);
        return ask(wanted);
    }
};

struct KeyCase {
    const char* name;
    std::uint8_t index;
    const char* key;
    std::uint32_t status;
    int octets;
};
constexpr KeyCase kKeyCases[] = {
    {"Short", 1, "0A-1b-2C-3d-4E", kStatusOk, 5},
    {"Long", 4, "00-01-02-03-04-05-06-07-08-09-0a-0b-0c", kStatusOk, 13},
    {"Forgotten", 1, "", kStatusOk, 0},
    {"NoHex", 1, "0a-1b-2c-3d-4g", kStatusValueRefused, 0},
    {"NoDashes", 1, "0a1b2c3d4e5f60", kStatusValueRefused, 0},
    {"IndexFive", 5, "0a-1b-2c-3d-4e", kStatusUnknownName, 0},
};
TEST_F(EngineeringArea, APresetKeyIsKeptAndNeverAnswered)
{
    for (const KeyCase& each : kKeyCases) {
        EXPECT_EQ(write_key(each.index, each.key), each.status) << each.name;
        if (*each.key) {
            EXPECT_FALSE(answer_shows(each.key)) << each.name;
        }
        ASSERT_EQ(ask(code::kReadPresetKey), kStatusOk);
        if (each.status == kStatusOk) {
            EXPECT_EQ(preset_key_record::length[each.index - 1].get(answer.record), each.octets) << each.name;
        }
        EXPECT_FALSE(answer_shows("-0")) << each.name;
    }
    start();
    ask(code::kReadPresetKey);
    EXPECT_EQ(preset_key_record::length[3].get(answer.record), 13);
}

}  // namespace
