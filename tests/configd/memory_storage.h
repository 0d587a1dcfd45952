// Files in memory behind the service's storage interface: counts what is done with them and fails when it is told to.
#pragma once

#include <map>
#include <string>

#include "configd/storage.h"

class MemoryStorage {
public:
    // The operations refer to this object. Reading and looking are not counted: they change nothing.
    Storage operations();

    std::map<std::string, std::string> files;
    int changes = 0;        // operations so far that change something
    int failAt = -1;        // the number of the change that fails
    int error = 0;          // with this errno value
    bool failOn = false;    // and so do all behind it: the disk or the program is gone
    bool hasLinks = true;   // a file may have two names
    bool readOnly = false;  // every change fails with EROFS

private:
    int next();

    std::string open_;  // the one file that is open for writing
};
