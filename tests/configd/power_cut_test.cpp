// The power goes behind every single operation of the store on its files, and every disk that this may leave is started
// from: what was in force, or what was about to be, must be there, whole.
#include <cerrno>
#include <cstdio>
#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <unordered_map>

#include "configd/recording_disk.h"
#include "configd/sample_model.h"
#include "configd/store.h"

namespace {
const Model kModel = sample::model();
const Folders kFolders{"run", "disk/lib/state"};
constexpr int kFactoryPort = 80;

int port_of(const Store& store) { return sample::port.get(store.running().values(sample::kSections[0]).data()); }

// What may be found, by the port that tells the configurations apart.
struct Possible {
    std::set<int> saved, running;
};

// Does things to a store on the disk, and knows for each operation on the disk what may be found behind it.
class Player {
public:
    Player(RecordingDisk& disk, int found) : disk_(disk), now_{{found}, {found}}, behind_{now_} {}

    void start()
    {
        step({}, {}, [this] { restart(); });
    }
    void change(int port)
    {
        step({}, {port}, [&] {
            Configuration next = store_->running();
            sample::port.set(next.values(sample::kSections[0]).data(), static_cast<std::uint16_t>(port));
            if (store_->change(std::move(next)) == kStatusOk) now_.running = {port};
        });
    }
    void save()
    {
        step({port_of(*store_)}, {}, [this] {
            if (store_->save() == kStatusOk) now_.saved = {port_of(*store_)};
        });
    }
    void clear()
    {
        step({kFactoryPort}, {kFactoryPort}, [this] {
            if (store_->clear() == kStatusOk) now_ = {{kFactoryPort}, {kFactoryPort}};
        });
    }
    void restore()
    {
        step({}, now_.saved, [this] { store_->restore(); });
    }
    void restart_device()
    {
        step({}, now_.saved, [this] {
            disk_.empty_memory();
            restart();
            EXPECT_TRUE(now_.saved.contains(port_of(*store_)));
            now_.running = {port_of(*store_)};
        });
    }
    void damage_saved(int savedBefore)
    {
        step({savedBefore}, {}, [&] {
            disk_.damage(kFolders.state + "/config.json");
            now_.saved = {savedBefore};
        });
    }

    const Possible& behind(std::size_t operations) const { return behind_[operations]; }

private:
    void restart()
    {
        store_.emplace(kModel, disk_.operations(), kFolders);
        store_->start();
        EXPECT_TRUE(now_.running.contains(port_of(*store_)));
    }
    // What was there and what is to come are both possible until the action says which it is.
    template <class Action> void step(const std::set<int>& saved, const std::set<int>& running, Action action)
    {
        now_.saved.insert(saved.begin(), saved.end());
        now_.running.insert(running.begin(), running.end());
        const Possible during = now_;
        action();
        behind_.resize(disk_.recorded() + 1, during);
        behind_.back() = now_;
    }

    RecordingDisk& disk_;
    Possible now_;
    std::vector<Possible> behind_;
    std::optional<Store> store_;
};

void play_all(Player& player)
{
    player.start();
    player.change(1);
    player.save();
    player.change(2);
    player.save();
    player.change(3);
    player.restore();
    player.change(4);
    player.save();
    player.restart_device();
    player.change(5);
    player.start();
    player.save();
    player.clear();
    player.change(6);
    player.save();
}

void play_on(Player& player)
{
    player.start();
    player.change(9);
    player.save();
    player.clear();
}

void play_damage(Player& player)
{
    player.start();
    for (const int port : {1, 2}) {
        player.change(port);
        player.save();
    }
    player.damage_saved(1);
    player.restart_device();
    player.change(3);
    player.save();
    player.change(4);
    player.save();
    player.damage_saved(3);
    player.change(5);
    player.save();
    player.damage_saved(3);
    player.restart_device();
    player.clear();
}

using Scenario = void (*)(Player&);

class PowerCuts : public testing::Test {
protected:
    PowerCuts() { testing::internal::CaptureStderr(); }  // each start says what it starts from
    ~PowerCuts() override { testing::internal::GetCapturedStderr(); }

    struct Found {
        int port;
        bool rejected;
    };
    const Found& start_from(const RecordingDisk::Image& image)
    {
        std::string key;
        for (const auto& [path, content] : image) (key += path + '\0' + content) += '\0';
        const auto [place, isNew] = started.try_emplace(key);
        if (isNew) {
            RecordingDisk disk(image);
            Store store(kModel, disk.operations(), kFolders);
            store.start();
            place->second = {port_of(store), !store.notice().empty()};
            if (keepImages && !image.contains("run/")) images.push_back(image);
        }
        return place->second;
    }

    void judge(const RecordingDisk::Image& image, const std::set<int>& possible, std::size_t behind)
    {
        tried++;
        const Found& found = start_from(image);
        if (possible.contains(found.port) && (mayReject || !found.rejected)) return;
        if (lost++ == 0) first = "behind operation " + std::to_string(behind) + ": " + std::to_string(found.port);
    }
    void cut_everywhere(const RecordingDisk& disk, const Player& player)
    {
        for (std::size_t behind = disk.failedBehind; behind <= disk.recorded(); behind++) {
            const Possible& possible = player.behind(behind);
            const std::uint64_t ways =
                disk.cut(behind, [&](const auto& image) { judge(image, possible.saved, behind); });
            sampled += ways > RecordingDisk::kExhaustive ? 1 : 0;
            judge(disk.crash(behind), possible.running, behind);
        }
    }
    void play(Scenario scenario, const RecordingDisk& like, int found = kFactoryPort)
    {
        RecordingDisk disk = like;
        Player player(disk, found);
        scenario(player);
        cut_everywhere(disk, player);
    }
    void report(const char* what) const
    {
        std::printf("%s: %zu cuts tried, %zu different disks, configurations lost: %zu\n", what, tried, started.size(),
                    lost);
        if (sampled == 0) return;
        std::printf("  %zu places have more ways than %zu; so many of them were tried, chosen by a fixed seed\n",
                    sampled, std::size_t{RecordingDisk::kExhaustive});
    }

    std::unordered_map<std::string, Found> started;
    std::vector<RecordingDisk::Image> images;
    bool keepImages = false, mayReject = false;
    std::size_t tried = 0, lost = 0, sampled = 0;
    std::string first;
};

RecordingDisk empty_disk(bool hasLinks = true)
{
    RecordingDisk disk;
    disk.hasLinks = hasLinks;
    return disk;
}

// Also from every disk that a first cut has left.
TEST_F(PowerCuts, LoseNothing)
{
    keepImages = true;
    for (const bool hasLinks : {true, false}) play(play_all, empty_disk(hasLinks));
    keepImages = false;
    for (const RecordingDisk::Image& image : std::exchange(images, {})) {
        RecordingDisk disk(image);
        play(play_on, disk, start_from(image).port);
    }
    report("power cut twice");
    EXPECT_EQ(lost, 0u) << first;
}

TEST_F(PowerCuts, LoseNothingOnAFullOrFailingDisk)
{
    constexpr struct {
        int error, failures;
        bool hasLinks = true;
    } kFailures[] = {{ENOSPC, 1}, {ENOSPC, 1, false}, {ENOSPC, 5},  {ENOSPC, 1000},
                     {EIO, 1},    {EIO, 1000},        {EROFS, 1000}};
    for (const auto& failure : kFailures) {
        int changes = 1;
        for (int step = 0; step < changes; step++) {
            RecordingDisk disk = empty_disk(failure.hasLinks);
            disk.failAt = step;
            disk.failures = failure.failures;
            disk.error = failure.error;
            Player player(disk, kFactoryPort);
            play_all(player);
            cut_everywhere(disk, player);
            changes = disk.changes;
        }
    }
    report("a write fails, then a power cut");
    EXPECT_EQ(lost, 0u) << first;
}

TEST_F(PowerCuts, LoseNothingMoreOfADamagedFile)
{
    mayReject = true;
    for (const bool hasLinks : {true, false}) play(play_damage, empty_disk(hasLinks));
    report("a damaged file, then a power cut");
    EXPECT_EQ(lost, 0u) << first;
}

// That the cuts would find a store that forgets to sync.
TEST_F(PowerCuts, FindADiskThatDoesNotSync)
{
    RecordingDisk forgetful, disordered;
    forgetful.syncs = false;
    play(play_on, forgetful);
    EXPECT_GT(std::exchange(lost, 0), 0u);
    disordered.syncsFolders = false;
    play(play_on, disordered);
    EXPECT_GT(lost, 0u);
}
}  // namespace
