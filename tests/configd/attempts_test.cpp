#include <cerrno>
#include <gtest/gtest.h>

#include "configd/attempts.h"
#include "configd/memory_storage.h"

namespace {
using std::chrono::milliseconds;

TEST(Attempts, EachWrongOneCostsMoreUpToALimitAndARestartDoesNotHelp)
{
    MemoryStorage storage;
    for (const int wanted : {100, 200, 400, 800, 1600, 3200, 5000, 5000})
        EXPECT_EQ(Attempts(storage.operations(), "run").wrong(), milliseconds(wanted));
    for (const char* damaged : {"", "x", "-1", "99999999999"}) {
        storage.files["run/wrong-passwords"] = damaged;
        EXPECT_EQ(Attempts(storage.operations(), "run").wrong(), Attempts::kLongest) << damaged;
    }
    storage.readOnly = true;
    Attempts attempts(storage.operations(), "run");
    EXPECT_EQ(attempts.wrong(), Attempts::kLongest);
    attempts.right();
    EXPECT_EQ(attempts.wrong(), Attempts::kFirst) << "without a file it is counted all the same";
}
}  // namespace
