// The service killed without warning at any moment of a stream of changes and saves. It always comes back, with a whole
// configuration that is one of the two it may be: as it was before the request on its way, or as that request made it.
#include <algorithm>
#include <chrono>
#include <random>
#include <set>
#include <thread>

#include "configd/daemon.h"
#include "service/attached_table.h"
#include "service/fields/dhcp.h"
#include "service/fields/system.h"

namespace {
constexpr int kKills = 200;
constexpr std::chrono::microseconds kLongestLife{12000};  // of a service at work, some twenty requests

// What the changes leave: one number in three texts of one section, and a list.
struct Contents {
    unsigned stamp = 0;
    std::set<std::uint32_t> reserved;
    auto operator<=>(const Contents&) const = default;
};
void PrintTo(const Contents& c, std::ostream* out) { *out << c.stamp << " with " << c.reserved.size() << " entries"; }

class Kill : public RunningDaemon {
protected:
    static constexpr std::uint32_t kFirst = 0x0A000001;

    // The number of a change decides what it is, so that the stream of them is the same in the service and here.
    bool is_save() const { return number_ % 4 == 0; }
    ComParam request() const
    {
        if (is_save()) return RawClient::request(code::kSaveConfiguration);
        if (number_ % 4 != 1) return list_request();
        ComParam made = system_;
        const std::string text = std::to_string(number_);
        for (const TextField& field : {system_record::name, system_record::contact, system_record::location})
            field.set(made, text.c_str());
        return made;
    }
    ComParam list_request() const
    {
        const bool adds = number_ % 4 == 2;
        ComParam made = RawClient::request(adds ? code::kAddDhcpStatic : code::kDeleteDhcpStatic);
        dhcp_static_request::address.set(made, adds ? kFirst + number_ : oldest(running_));
        if (adds) dhcp_static_request::mac.set(made, &number_);
        return made;
    }
    static std::uint32_t oldest(const Contents& contents) { return *contents.reserved.begin(); }
    Contents changed() const
    {
        Contents next = running_;
        if (number_ % 4 == 1) next.stamp = number_;
        if (number_ % 4 == 2) next.reserved.insert(kFirst + number_);
        if (number_ % 4 == 3 && next.reserved.size() > 1) next.reserved.erase(next.reserved.begin());
        return next;
    }

    Contents read_back()
    {
        Contents read;
        auto system = client->ask(code::kReadSystem);
        auto list = client->ask(code::kReadDhcpStatic);
        if (!system || !list) return read;
        system_ = system->record;
        record::code.set(system_, code::kWriteSystem);
        const std::string name = system_record::name.get(system_);
        EXPECT_EQ(name, system_record::contact.get(system_)) << "half a change";
        EXPECT_EQ(name, system_record::location.get(system_)) << "half a change";
        read.stamp = static_cast<unsigned>(std::strtoul(name.c_str(), nullptr, 10));
        for (std::size_t at = 0; at < list->table.size(); at += dhcp_entry::kSize)
            read.reserved.insert(dhcp_entry::address.get(list->table.data() + at));
        return read;
    }

    // One request after the other until the service is gone. What the last one may have done is in `trying`.
    void work_until_killed()
    {
        for (;;) {
            number_++;
            trying_ = is_save() ? running_ : changed();
            if (is_save()) saved_.insert(running_);
            if (number_ % 4 == 3 && running_.reserved.size() <= 1) continue;
            const auto answer = client->ask(request());
            if (!answer) return;
            ASSERT_EQ(status_of(answer), kStatusOk) << "request " << number_;
            if (is_save()) saved_ = {running_};
            running_ = trying_;
        }
    }

    unsigned number_ = 0;
    ComParam system_{};
    Contents running_, trying_;
    std::set<Contents> saved_;  // what may be the saved one
};

TEST_F(Kill, AlwaysComesBackWithOneOfTheTwoConfigurations)
{
    std::mt19937 random(20);
    start();
    system_ = client->ask(code::kReadSystem)->record;
    record::code.set(system_, code::kWriteSystem);
    number_ = 1;
    running_ = changed();
    ASSERT_EQ(status_of(client->ask(request())), kStatusOk);
    ASSERT_EQ(save(), kStatusOk);
    saved_ = {running_};

    for (int i = 0; i < kKills && !HasFatalFailure(); i++) {
        const std::chrono::microseconds life(random() % kLongestLife.count());
        std::thread killer([&] {
            std::this_thread::sleep_for(life);
            daemon.signal(SIGKILL);
        });
        work_until_killed();
        killer.join();
        ASSERT_TRUE(daemon.wait_exit(kPatience));

        const bool powerCut = i % 3 == 0;  // nothing in the runtime folder survives one
        if (powerCut) std::filesystem::remove_all(runtime);
        start();
        const Contents now = read_back();
        if (powerCut)
            ASSERT_TRUE(saved_.contains(now)) << testing::PrintToString(now) << " was never saved last";
        else
            ASSERT_TRUE(now == running_ || now == trying_)
                << testing::PrintToString(now) << " is neither " << testing::PrintToString(running_) << " nor "
                << testing::PrintToString(trying_);
        if (powerCut) saved_ = {now};
        running_ = now;
    }
    EXPECT_EQ(logged().find("cannot be used"), std::string::npos) << logged();
}
}  // namespace
