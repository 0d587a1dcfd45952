// A configuration service with its files in memory and a machine that is only described. Nothing that it sends leaves
// it, and passwords are hashed cheaply: that the real hash is slow is all that it would add.
#pragma once

#include <memory>
#include <string>

#include "configd/machine_stand_in.h"
#include "configd/memory_storage.h"
#include "configd/operations.h"

class FuzzedDevice {
public:
    FuzzedDevice();

    // As main.cpp takes the steps, with what is stored.
    void start();

    // What the running configuration is stored as must be understood again, and as the same.
    void check_stored_form() const;

    MemoryStorage storage;
    std::unique_ptr<Service> service;

private:
    const Model model_ = model_of(areas());
};

inline const std::string kRunningFile = "run/running.json", kSavedFile = "state/config.json";
