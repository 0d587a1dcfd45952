// The real configuration service on the folders that this build's programs use, wiped before the first start.
#pragma once

#include <string>

#include "support/process.h"

class Service {
public:
    Service();  // running on return, with factory values

    void start();    // with what is stored; waits until it takes connections
    void stop();     // asks it to end, and waits
    void kill();     // as a crash or the power would end it
    void suspend();  // it no longer answers, but the socket stays open
    void resume();
    void restart() { stop(), start(); }
    void restart_device();  // as restart, and what the device loses when it is off is gone

    static const std::string& socket_path();
    static const std::string& state_folder();
    static void wipe();  // no stored configuration, no socket
    static std::string log();

private:
    Process process_;
};
