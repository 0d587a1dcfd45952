#include <cerrno>
#include <gtest/gtest.h>

#include "configd/memory_storage.h"
#include "configd/sample_model.h"
#include "configd/store.h"

namespace {
const Model kModel = sample::model();
const Section& kAlone = sample::kSections[0];
const char kRunning[] = "run/running.json", kSaved[] = "state/config.json", kPrevious[] = "state/config.previous.json",
           kRejected[] = "state/config.rejected-1.json", kNotice[] = "state/notice";

Store started(MemoryStorage& storage)
{
    Store store(kModel, storage.operations(), {"run", "state"});
    store.start();
    return store;
}

// The device starts again: the runtime folder is empty then.
Store restarted(MemoryStorage& storage)
{
    storage.files.erase(kRunning);
    return started(storage);
}

int port_of(const Store& store) { return sample::port.get(store.running().values(kAlone).data()); }

ServiceStatus set_port(Store& store, std::uint16_t port)
{
    Configuration next = store.running();
    sample::port.set(next.values(kAlone).data(), port);
    return store.change(std::move(next));
}

// Saved 1, then 2, and 3 is only running.
void prepare(MemoryStorage& storage)
{
    Store store = started(storage);
    for (std::uint16_t port = 1; port <= 2; port++) {
        ASSERT_EQ(set_port(store, port), kStatusOk);
        ASSERT_EQ(store.save(), kStatusOk);
    }
    ASSERT_EQ(set_port(store, 3), kStatusOk);
}

TEST(Store, DamagedFilesAreSetAsideAndTheNextGoodOneIsUsed)
{
    MemoryStorage storage;
    prepare(storage);
    storage.files[kRunning] = "bad 1";
    EXPECT_EQ(port_of(started(storage)), 2);
    EXPECT_EQ(storage.files["run/running.rejected-1.json"], "bad 1");
    storage.files[kSaved] = "bad 2";
    EXPECT_EQ(port_of(restarted(storage)), 1);
    EXPECT_EQ(storage.files[kRejected], "bad 2");
    storage.files[kPrevious] = "{\"format\": 1}" + std::string(Store::kLargestFile, ' ');
    EXPECT_EQ(port_of(restarted(storage)), 80);
    EXPECT_TRUE(storage.files.contains("state/config.previous.rejected-1.json"));
    EXPECT_EQ(storage.files[kRejected], "bad 2");
    Store store = started(storage);
    EXPECT_EQ(store.clear(), kStatusOk);
    EXPECT_EQ(store.notice(), "");
    EXPECT_FALSE(storage.files.contains(kRejected)) << "a cleared device keeps nothing";
}

TEST(Store, AFileThatCannotBeSetAsideIsNotOverwritten)
{
    MemoryStorage storage;
    prepare(storage);
    Store store = started(storage);
    Storage stuck = storage.operations();
    stuck.rename = [operations = storage.operations()](const std::string& from, const std::string& to) {
        return to == kRejected ? EIO : operations.rename(from, to);
    };
    storage.files[kSaved] = "bad";
    storage.files.erase(kRunning);
    Store hindered(kModel, stuck, {"run", "state"});
    hindered.start();
    EXPECT_EQ(port_of(hindered), 1);
    EXPECT_NE(hindered.notice().find("could not be set aside"), std::string::npos) << hindered.notice();
    EXPECT_EQ(hindered.save(), kStatusStorageFailed);
    EXPECT_EQ(storage.files[kSaved], "bad");
    EXPECT_NE(storage.files[kPrevious].find("\"port\": 1"), std::string::npos);
}

TEST(Store, AnOlderFormatIsWrittenOnlyByASave)
{
    const std::string older = R"({"format": 0, "alone": {"port": 5}, "lan": {"mode": "static"}})";
    MemoryStorage storage;
    storage.files[kSaved] = older;
    Store store = started(storage);
    EXPECT_EQ(port_of(store), 5);
    EXPECT_EQ(storage.files[kSaved], older);
    EXPECT_EQ(store.save(), kStatusOk);
    EXPECT_EQ(storage.files[kPrevious], older);
    EXPECT_EQ(port_of(restarted(storage)), 5);
    for (const char* part : {"\"format\": 1", "\"addresses\": {\n    \"lan\""})
        EXPECT_NE(storage.files[kSaved].find(part), std::string::npos) << storage.files[kSaved];
}

TEST(Store, RejectedFilesDoNotReplaceEachOtherOrFillTheDisk)
{
    MemoryStorage storage;
    for (int i = 1; i <= Store::kMostRejected + 2; i++) {
        storage.files[kSaved] = "bad " + std::to_string(i);
        restarted(storage);
    }
    std::erase_if(storage.files, [](const auto& file) { return file.first == kNotice; });
    EXPECT_EQ(storage.files.size(), static_cast<std::size_t>(Store::kMostRejected));
    EXPECT_EQ(storage.files[kRejected], "bad 1");
}

TEST(Store, ReadOnlyStorageStillStarts)
{
    MemoryStorage storage;
    storage.files[kSaved] = "no configuration";
    storage.readOnly = true;
    Store store = started(storage);
    EXPECT_EQ(port_of(store), 80);
    EXPECT_EQ(store.save(), kStatusStorageReadOnly);
    EXPECT_EQ(set_port(store, 5), kStatusStorageReadOnly);
    EXPECT_EQ(port_of(store), 80);
    EXPECT_EQ(storage.files[kSaved], "no configuration");
}
}  // namespace
