// The service killed without warning at any moment of a stream of changes and saves. It always comes back, with a whole
// configuration that is one of the two it may be: as it was before the request on its way, or as that request made it.
#include <chrono>
#include <random>
#include <set>
#include <thread>

#include "configd/daemon.h"
#include "service/fields/system.h"

namespace {
constexpr int kKills = 200;
constexpr std::chrono::microseconds kLongestLife{12000};  // of a service at work, some twenty requests

class Kill : public RunningDaemon {
protected:
    // Every fourth request saves; the others leave their number in three texts of one section.
    bool is_save() const { return number_ % 4 == 0; }
    ComParam request() const
    {
        const std::string text = std::to_string(number_);
        ComParam made = is_save() ? RawClient::request(code::kSaveConfiguration) : system_;
        if (is_save()) return made;
        for (const TextField& field : {system_record::name, system_record::contact, system_record::location})
            field.set(made, text.c_str());
        return made;
    }
    unsigned read_back()
    {
        auto system = client->ask(code::kReadSystem);
        if (!system) return 0;
        system_ = system->record;
        record::code.set(system_, code::kWriteSystem);
        const std::string name = system_record::name.get(system_);
        EXPECT_EQ(name, system_record::contact.get(system_)) << "half a change";
        EXPECT_EQ(name, system_record::location.get(system_)) << "half a change";
        return static_cast<unsigned>(std::strtoul(name.c_str(), nullptr, 10));
    }
    // One request after the other until the service is gone. What the last one may have done is in `trying_`.
    void work_until_killed()
    {
        for (;;) {
            number_++;
            trying_ = is_save() ? running_ : number_;
            if (is_save()) saved_.insert(running_);
            const auto answer = client->ask(request());
            if (!answer) return;
            ASSERT_EQ(status_of(answer), kStatusOk) << "request " << number_;
            if (is_save()) saved_ = {running_};
            running_ = trying_;
        }
    }

    unsigned number_ = 0, running_ = 0, trying_ = 0;
    ComParam system_{};
    std::set<unsigned> saved_;  // what may be the saved one
};

TEST_F(Kill, AlwaysComesBackWithOneOfTheTwoConfigurations)
{
    std::mt19937 random(20);
    start();
    system_ = client->ask(code::kReadSystem)->record;
    record::code.set(system_, code::kWriteSystem);
    running_ = number_ = 1;
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
        const unsigned now = read_back();
        if (powerCut)
            ASSERT_TRUE(saved_.contains(now)) << now << " was never saved last";
        else
            ASSERT_TRUE(now == running_ || now == trying_) << now << ": not " << running_ << " or " << trying_;
        if (powerCut) saved_ = {now};
        running_ = now;
    }
    EXPECT_EQ(logged().find("cannot be used"), std::string::npos) << logged();
}
}  // namespace
