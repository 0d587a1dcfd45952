/* The log message library: texts for the status words of the configuration service, and the syslog facilities. */
#ifndef PLATFORM_LOG_MESSAGES_H
#define PLATFORM_LOG_MESSAGES_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { LOG_MESSAGE_SIZE = 135 };

/* Writes the text of `status` within the message `group` into `buffer`: at most LOG_MESSAGE_SIZE bytes, NUL included.
 * A pair without a text of its own gets the status's general text, an unknown status "Unknown error N".
 * `flags` is kept for other implementations of this library and not read. Returns 0. */
uint32_t logGetMsgX(uint32_t status, uint32_t group, char* buffer, uint32_t flags);

struct FacilityName {
    const char* name;
    uint32_t value; /* 192, 200 ... 384; 0xFFFFFFFF ends the table */
};
extern const struct FacilityName facilitynames[];

#ifdef __cplusplus
}
#endif
#endif
