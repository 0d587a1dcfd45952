// What the service gives up before it listens to anybody, so that a fault in it is worth little to who finds one: the
// capabilities it does not use, the way to more of them, every system call that it does not make, and core dumps.
#pragma once

// What only some devices leave to the service.
struct Privileges {
    bool setClock = false;
    bool restartMachine = false;
};

// For good. 0, or an errno value; ENOSYS: this kernel knows no system-call filters, the rest is done. A call that is
// not allowed fails with EPERM from here on, and the kernel logs it.
int apply_sandbox(Privileges kept);

// The process holds passwords and keys: no core dump has them, and no debugger but root's.
void keep_memory_private();
