// Tells the supervisor that started the service what state it is in (the NOTIFY_SOCKET protocol of systemd and others).
#pragma once

// "READY=1" or "STOPPING=1"; without a supervisor nothing happens.
void notify_supervisor(const char* state);
