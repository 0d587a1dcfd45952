// The console's program: takes a terminal line over in place of a login program and serves it.
#include "login/front_end.h"

int main(int argc, char** argv) { run_front_end(argc, argv); }
