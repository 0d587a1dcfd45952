// The load that script/load puts on the service, for a few seconds.
#include <gtest/gtest.h>

#include "bench/load/load.h"

namespace {
TEST(Load, WhatWasAnsweredIsThereWhoeverIsKilled)
{
    const LoadReport report =
        run_load({.configd = CONFIGD, .clients = 16, .requests = 3000, .clientKills = 20, .serviceKills = 5});
    EXPECT_EQ(report.fault, "");
    EXPECT_GE(report.requests, 3000u);
    EXPECT_GT(report.saves, 0u);
    EXPECT_GT(report.clientKills, 0u);
    EXPECT_GT(report.serviceKills, 0u);
}
}  // namespace
