// WEP keys: derived from a passphrase, and shown.
#pragma once

inline constexpr unsigned kWep64KeySize = 5, kWep128KeySize = 13, kWepKeys = 4;

void wep_keygen64(const char* passphrase, unsigned char* keys);  // kWepKeys keys of kWep64KeySize bytes, key 1 first
void wep_keygen128(const char* passphrase, unsigned char* key);  // one key of kWep128KeySize bytes

// A key as text into `out` (kWepKeyTextSize bytes) by its wireless_record::KeyType: ASCII keys as characters,
// hexadecimal keys as 0A-1B-2C-3D-4E, any other type as an empty text. `key` holds as many bytes as the type says.
// Returns `out`.
inline constexpr unsigned kWepKeyTextSize = 3 * kWep128KeySize;
char* TransWepKey(char* out, const unsigned char* key, unsigned char type);
