#include <cstdlib>
#include <ctime>

#include "commands/command_session.h"
#include "commands/handlers.h"
#include "service/fields/time.h"
#include "values/parsers.h"

namespace {
constexpr std::uint32_t kNow = 1000000000;  // 2001-09-09 01:46:40 UTC, a Sunday

class Clock : public CommandSession {
protected:
    Clock()
    {
        set_zone("UTC0");
        fill(time(), time_record::now, kNow, time_record::zone, time_record::kZoneNotSet);
    }
    ~Clock() override { unsetenv("TZ"), tzset(); }

    static void set_zone(const char* zone) { setenv("TZ", zone, 1), tzset(); }
    ComParam& time() { return record(code::kReadTime); }
    std::uint32_t now() { return time_record::now.get(time()); }

    // The command as its grammar would call it: with what the parser makes of the text.
    std::string set(Action command, Parser parse, std::string text)
    {
        ParmList words{};
        EXPECT_EQ(parse(text.data(), words), 0u) << text;
        return run(command, {words.value[0], words.value[1], words.value[2]});
    }
};

TEST_F(Clock, ADateKeepsTheTimeOfTheDay)
{
    for (const auto& [typed, shown] : {std::pair{"01-01-70", "1-1-1970"}, {"01-01-69", "1-1-2069"}}) {
        EXPECT_EQ(set(CliSetDate, CliParseDate, typed), std::string("        Date: ") + shown + "\n");
        EXPECT_EQ(now() % 86400, kNow % 86400) << typed;
    }
    EXPECT_TRUE(was_sent(rewritten(code::kReadTime, code::kWriteTime)));
}

// What is looked for has no colon, so no zone is ever found and the record goes back as it came.
TEST_F(Clock, AZoneIsWrittenBackUnchanged)
{
    time_record::zone.set(time(), 7);
    const ComParam wanted = rewritten(code::kReadTime, code::kWriteTime);
    for (const char* typed : {"-8", "35791395"}) {  // the second one wraps to the smallest number
        EXPECT_EQ(set(CliSetTimezone, CliParseTimezone, typed), "Time (GMT-05:00): Sun Sep  9 01:46:40 2001\n\n");
        EXPECT_TRUE(was_sent(wanted)) << typed;
    }
}
}  // namespace
