#include <gtest/gtest.h>

#include "commands/command_session.h"
#include "commands/interface_table.h"
#include "commands/rip.h"
#include "service/fields/rip.h"

namespace {
Word text(const char* parameter) { return reinterpret_cast<Word>(parameter); }

std::string rip_row(const char* interface, std::uint32_t mode)
{
    std::string row(rip_entry::kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(row.data());
    rip_entry::interface.set(bytes, interface);
    rip_entry::mode.set(bytes, mode);
    return row;
}

class Rip : public CommandSession {
protected:
    Rip()
    {
        set_table(code::kReadRip, rip_row("eth0", 4) + rip_row("eth1", 3) + rip_row("wlan0", 16));
        set_table(code::kReadInterfaces, interface_row("eth0") + interface_row("eth1") + interface_row("wlan0"));
        interface_record::count.set(record(code::kReadInterfaces), 3);
    }
    static std::string mode_sent(std::size_t index)
    {
        ComParam& request = service_stand_in::requests()[index];
        return std::string(rip_record::interface.get(request)) + " " + std::to_string(rip_record::mode.get(request));
    }
};

constexpr char kHead[] = "name      RIP state\n----------------------\n";
// A mode without a name shows the one above it.
const std::string kAll = std::string(kHead) + "eth0      Active ver.2\neth1      Active ver.2\nwlan0     Disabled\n";

TEST_F(Rip, IsSetForOneInterfaceAndShownForAll)
{
    const struct {
        Action command;
        const char* sent;
    } kCases[] = {
        {CliEnableRip1Active, "eth1 1"},  {CliEnableRip1Passive, "eth1 2"}, {CliEnableRip2Active, "eth1 4"},
        {CliEnableRip2Passive, "eth1 8"}, {CliDisableRip, "eth1 16"},
    };
    for (std::size_t i = 0; i < std::size(kCases); ++i) {
        EXPECT_EQ(run(kCases[i].command, {text("eth1")}), kAll) << kCases[i].sent;
        EXPECT_EQ(mode_sent(2 * i), kCases[i].sent);
    }
    EXPECT_EQ(sent(code::kWriteRip), std::size(kCases));
}

TEST_F(Rip, IsSetForEveryInterfaceUntilOneIsRefused)
{
    EXPECT_EQ(run(CliEnableRip2Passive), kAll);
    EXPECT_EQ(mode_sent(2), "eth0 8");
    EXPECT_EQ(mode_sent(3), "eth1 8");
    EXPECT_EQ(mode_sent(4), "wlan0 8");

    refused[code::kWriteRip] = kStatusTableFull;
    EXPECT_EQ(run(CliEnableRip2Passive), "\aThe table is full\n");
    EXPECT_EQ(sent(code::kWriteRip), 4u);

    interface_record::count.set(record(code::kReadInterfaces), 0);
    EXPECT_EQ(run(CliEnableRip1Active), " error while getting visible interface number\n");
}
}  // namespace
