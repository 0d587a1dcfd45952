// The console password: whether the factory one is still in force is worth a warning.
#pragma once

#include "configd/service.h"

// At the start of the service.
void warn_of_factory_password(const Service& service);
