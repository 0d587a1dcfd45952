// The interfaces of the device by name: the ports of the profile, then what else this machine has.
#pragma once

#include <string>
#include <vector>

#include "configd/service.h"

std::vector<std::string> interface_names(const Service& service);  // in the order of the interface table
