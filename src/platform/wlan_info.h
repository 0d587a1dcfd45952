/* The wireless information library: the regulatory domains that a radio can follow, and the modes and channels that
 * each of them allows. */
#ifndef PLATFORM_WLAN_INFO_H
#define PLATFORM_WLAN_INFO_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The domain at `index`, in the order of numbers; 0 behind the last. */
uint32_t wlanGetDomain(size_t index);

/* The countries of a domain, in words. NULL: no domain of that number. */
const char* wlanGetCountryName(uint32_t domain);

struct WlanChannels {
    uint16_t first, last, step;
};

struct WlanModeInfo {
    uint8_t mode; /* as the wireless port record counts them */
    const char* name;
    const struct WlanChannels* channels; /* `ranges` of them */
    size_t ranges;
};

/* Fills `list` with the modes that the domain allows, `room` of them at most; returns their number, 0 for a domain that
 * is not known. */
size_t wlanGetModeInfoList(uint32_t domain, struct WlanModeInfo* list, size_t room);

enum { WLAN_MODES = 14 }; /* no domain allows more */

#ifdef __cplusplus
}
#endif
#endif
