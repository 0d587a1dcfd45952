#include "platform/socket_path.h"

const char kServiceSocket[] = ROUTER_RUNTIME_DIR "/configd.sock";
