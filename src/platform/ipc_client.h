/* The IPC client library: one request record to the configuration service, one response from it.
 * A device maker may replace it; this one speaks over a stream socket of the local host (unix(7)). */
#ifndef PLATFORM_IPC_CLIENT_H
#define PLATFORM_IPC_CLIENT_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* What IPCServiceClient returns when the exchange did not work. logGetMsgX has a text for each. */
enum {
    IPC_OK = 0,
    IPC_NOT_RUNNING = 0x10001, /* nobody listens at the socket */
    IPC_NOT_ALLOWED = 0x10002, /* the service may not be asked by this user */
    IPC_NO_ANSWER = 0x10003,   /* none within IPC_TIMEOUT_SECONDS */
    IPC_BROKEN = 0x10004,      /* the service went away before its answer was whole */
    IPC_BAD_ANSWER = 0x10005,  /* a table above IPC_MAX_TABLE */
    IPC_NO_MEMORY = 0x10006
};
enum { IPC_TIMEOUT_SECONDS = 10, IPC_MAX_TABLE = 1 << 20 };

/* Sends the 3604-byte record at `request` and waits for the answer. On IPC_OK `*response` is the response memory: the
 * record and, behind it, its attached table; it stays valid until IPCServiceDone. On any other result it is null.
 * The request's attached words travel as 0 whatever the record holds. Connects when needed; never raises SIGPIPE. */
uint32_t IPCServiceClient(const void* request, void** response);

/* Releases a response; null is nothing to release. Returns 0. */
uint32_t IPCServiceDone(void* response);

/* Bytes of response memory behind the last response: the record and the table that really arrived. */
size_t IPCResponseSize(void);

#ifdef __cplusplus
}
#endif
#endif
