// Keeps every processor from sleeping while it lives: on each a process of the lowest priority runs, and yields to
// whoever else wants the processor. What is measured then is work, and not how long a processor takes to wake up.
#pragma once

#include <sys/types.h>
#include <vector>

class Awake {
public:
    Awake();
    ~Awake();
    Awake(const Awake&) = delete;
    Awake& operator=(const Awake&) = delete;

private:
    std::vector<pid_t> running_;
};
