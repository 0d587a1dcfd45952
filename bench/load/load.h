// Many clients at one service: they read, change what they own and save, and both sides are killed in the middle of it.
// Whatever was answered must be there afterwards.
#pragma once

#include <string>

struct LoadPlan {
    std::string configd;  // the program's path
    unsigned clients = 64, requests = 100000;
    unsigned clientKills = 200, serviceKills = 20;
    unsigned seed = 20;  // decides what is asked and who is killed, not when it happens
};

struct LoadReport {
    std::string fault;  // the first promise that was not kept; empty: all were
    unsigned requests = 0, changes = 0, saves = 0, clientKills = 0, serviceKills = 0;
    double seconds = 0, slowestAnswer = 0;  // of an answer, in seconds; restarts of the service are not one
    // Kilobytes of the service's own memory, after a while at work without a restart, and at the end.
    long memoryAtWork = 0, memoryAtEnd = 0;
};

LoadReport run_load(const LoadPlan& plan);
