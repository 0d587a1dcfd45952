// How one configuration differs from another, in words for the log: which setting, its value before and after. Settings
// are called as in the stored file, and values look as they do there; a secret's are withheld. No area has a part in
// it: the rows of the model say all.
#pragma once

#include <string>
#include <vector>

#include "configd/configuration.h"

// A line each, in the order of the file.
std::vector<std::string> changes_between(const Model& model, const Configuration& before, const Configuration& after);
