// For tests only: how long the IPC client waits for a whole answer, which nobody wants to wait for in a test run.
#pragma once

extern int ipcTimeoutMilliseconds;  // IPC_TIMEOUT_SECONDS at start
