#include "values/wep_key.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <md5.h>

#include "service/fields/wireless_settings.h"
#include "values/scanners.h"

namespace {
char* as_characters(char* out, const unsigned char* key, unsigned size)
{
    std::memcpy(out, key, size);
    out[size] = 0;
    return out;
}

char* as_hex_groups(char* out, const unsigned char* key, unsigned size)
{
    for (unsigned i = 0; i < size; ++i) {
        fillHex(out + 3 * i, key[i]);
        out[3 * i + 2] = '-';
    }
    out[3 * size - 1] = 0;
    return out;
}
}  // namespace

void wep_keygen64(const char* passphrase, unsigned char* keys)
{
    std::uint32_t state = 0;
    for (std::size_t i = 0; passphrase[i]; ++i) {
        // Bytes above 127 flip the upper bytes too: the keys must be those that other makers derive from the same text.
        const auto widened = static_cast<std::uint32_t>(static_cast<signed char>(passphrase[i]));
        state ^= widened << (8 * (i % 4));
    }
    for (unsigned k = 0; k < kWepKeys * kWep64KeySize; ++k) {
        state = state * 214013 + 2531011;
        keys[k] = static_cast<unsigned char>(state >> 16);
    }
}

void wep_keygen128(const char* passphrase, unsigned char* key)
{
    unsigned char block[64] = {};  // stays zero for an empty passphrase
    const std::size_t length = std::strlen(passphrase);
    for (std::size_t i = 0; i < sizeof block && length > 0; ++i)
        block[i] = static_cast<unsigned char>(passphrase[i % length]);

    unsigned char digest[MD5_DIGEST_LENGTH];
    MD5_CTX context;
    MD5Init(&context);
    MD5Update(&context, block, sizeof block);
    MD5Final(digest, &context);
    std::memcpy(key, digest, kWep128KeySize);
}

char* TransWepKey(char* out, const unsigned char* key, unsigned char type)
{
    using namespace wireless_record;
    switch (type) {
    case kAscii64: return as_characters(out, key, kWep64KeySize);
    case kAscii128: return as_characters(out, key, kWep128KeySize);
    case kHex64: return as_hex_groups(out, key, kWep64KeySize);
    case kHex128: return as_hex_groups(out, key, kWep128KeySize);
    default: *out = 0; return out;
    }
}
