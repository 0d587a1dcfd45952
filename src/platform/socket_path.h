// Where the configuration service listens. Fixed when building, in a source of its own: a unit test links another one.
#pragma once

extern const char kServiceSocket[];
