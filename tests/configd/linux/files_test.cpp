// The files of other programs: name servers and leases, whatever may stand in them, and what is written for them.
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "configd/linux/leases.h"
#include "configd/linux/resolver.h"
#include "configd/linux/temporary_file.h"
#include "configd/linux/text_file.h"
#include "configd/linux/time_zone.h"
#include "service/time_zones.h"

namespace {
constexpr std::uint32_t kFirst = 0xC0A80101, kSecond = 0x08080808;  // 192.168.1.1, 8.8.8.8

struct ResolverCase {
    const char* name;
    std::string text;
    std::uint32_t primary, secondary;
};
const ResolverCase kResolverCases[] = {
    {"Two", "nameserver 192.168.1.1\nnameserver 8.8.8.8\nnameserver 9.9.9.9\n", kFirst, kSecond},
    {"CommentsAndOtherLines", "# nameserver 1.1.1.1\nsearch lan\n;x\nnameserver\t192.168.1.1 # here\n", kFirst, 0},
    {"Ipv6IsPassedOver", "nameserver fe80::1%eth0\nnameserver 8.8.8.8\n", kSecond, 0},
    {"NoAddress", "nameserver\nnameserver \nnameserver 1.2.3\nnameserver 1.2.3.4.5\nnameserver 256.1.1.1\n", 0, 0},
    {"BinaryBytes", std::string("\0\xff\x80nameserver 1.1.1.1\nnameserver 8.8.8.8\n", 42), kSecond, 0},
};
TEST(NameServers, AreTheFirstTwoOfTheFile)
{
    for (const ResolverCase& each : kResolverCases) {
        const TemporaryFile file(each.text);
        const std::array<std::uint32_t, 2> wanted{each.primary, each.secondary};
        EXPECT_EQ(device::read_name_servers(file.path()), wanted) << each.name;
    }
}

struct LeaseCase {
    const char* name;
    std::string text;
    std::size_t count;
    const char* lastHostName;
};
const LeaseCase kLeaseCases[] = {
    {"Two", "1700000000 02:00:5e:00:00:09 192.168.1.10 laptop 01:02\n1700000001 02:00:5E:AA:bb:0A 192.168.1.11 * *\n",
     2, ""},
    {"Ipv6Part", "0 02:00:5e:00:00:09 192.168.1.10 tv *\nduid 00:01:00\n1700000000 12345 fd00::10 tv 00:01:00\n", 1,
     "tv"},
    {"StillBeingWritten", "1 02:00:5e:00:00:09 192.168.1.10 a *\n1 02:00:5e:00:00:0a 192.168.1.1", 1, "a"},
    {"LongHostName", "1 02:00:5e:00:00:09 192.168.1.10 " + std::string(300, 'n') + " *\n", 1,
     "nnnnnnnnnnnnnnnnnnnnnnnnnnnnnn"},
    {"EscapesInHostName", "1 02:00:5e:00:00:09 192.168.1.10 \x1b[2Jx\x7f *\n", 1, "?[2Jx?"},
    {"NoExpiry", "soon 02:00:5e:00:00:09 192.168.1.10 a *\n-1 02:00:5e:00:00:09 192.168.1.10 a *\n", 0, ""},
    {"NoMac",
     "1 02:00:5e:00:00 192.168.1.10 a *\n1 02-00-5e-00-00-09 192.168.1.10 a *\n1 06-02:00:5e:00:00:09 1.1.1.1 a *\n"
     "1 0x:00:5e:00:00:09 192.168.1.10 a *\n",
     0, ""},
};
TEST(Leases, AreTheLinesThatAreOne)
{
    for (const LeaseCase& each : kLeaseCases) {
        const TemporaryFile file(each.text);
        std::vector<device::Lease> leases;
        EXPECT_EQ(device::read_leases(file.path(), leases), 0) << each.name;
        ASSERT_EQ(leases.size(), each.count) << each.name;
        EXPECT_STREQ(leases.empty() ? "" : leases.back().hostName, each.lastHostName) << each.name;
    }
}

TEST(LeaseFile, IsBounded)
{
    std::string text;
    for (std::size_t i = 0; i < device::kMaxLeases * 2; i++) text += "1 02:00:5e:00:00:09 192.168.1.10 a *\n";
    const TemporaryFile file(text);
    std::vector<device::Lease> leases;
    EXPECT_EQ(device::read_leases(file.path(), leases), 0);
    EXPECT_EQ(leases.size(), device::kMaxLeases);
}

TEST(LeaseFile, ThatIsNoFileIsRefusedAtOnce)
{
    const TemporaryFile file("");
    std::vector<device::Lease> leases(1);
    EXPECT_EQ(device::read_leases("/nowhere/at/all", leases), ENOENT);
    EXPECT_TRUE(leases.empty());
    EXPECT_EQ(device::read_leases("/dev/zero", leases), EINVAL);
    const std::string pipe = std::string(file.path()) + ".pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(device::read_leases(pipe.c_str(), leases), EINVAL);
    unlink(pipe.c_str());
}

TEST(NameServerFile, HoldsWhatWasSet)
{
    const TemporaryFile file("search lan\nnameserver 9.9.9.9\n");
    std::string text;
    EXPECT_EQ(device::set_name_servers(file.path(), {kFirst, kSecond}), 0);
    EXPECT_EQ(device::read_text_file(file.path(), 1000, text), 0);
    EXPECT_EQ(text, "nameserver 192.168.1.1\nnameserver 8.8.8.8\n");
    struct stat about {};
    EXPECT_EQ(stat(file.path(), &about), 0);
    EXPECT_EQ(about.st_mode & 07777, 0644u) << "every program asks name servers";
    EXPECT_EQ(device::set_name_servers(file.path(), {kSecond, 0}), 0);
    EXPECT_EQ(device::read_name_servers(file.path()), (std::array<std::uint32_t, 2>{kSecond, 0}));
    EXPECT_EQ(device::set_name_servers("/nowhere/at/all", {kFirst, 0}), ENOENT);
}

TEST(TimeZoneFile, IsWhatTheCLibraryReads)
{
    const TemporaryFile file("no zone");
    setenv("TZ", (std::string(":") + file.path()).c_str(), 1);
    for (const std::int32_t offset : tzTimeOffset) {
        ASSERT_EQ(device::set_time_zone(file.path(), offset), 0);
        setenv("TZ", (std::string(":/") + file.path()).c_str(), 1);  // written otherwise, so that it is read anew
        tzset();
        setenv("TZ", (std::string(":") + file.path()).c_str(), 1);
        tzset();
        const std::time_t moment = 1'000'000'000;
        std::tm local{};
        localtime_r(&moment, &local);
        EXPECT_EQ(local.tm_gmtoff, offset);
        EXPECT_EQ(local.tm_isdst, 0);
        const char* name = offset == 0 ? "GMT" : offset == -12600 ? "-0330" : local.tm_zone;
        EXPECT_STREQ(local.tm_zone, name);
    }
    unsetenv("TZ");
    tzset();
}

}  // namespace
