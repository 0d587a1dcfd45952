// MAC addresses as text. The addresses of all zero bits and all one bits belong to no station and are refused.
#pragma once

inline constexpr unsigned kMacSize = 6;

// Six hexadecimal octets with `separator` (':' or '-') between them into `mac` (kMacSize bytes). Returns 0; or 1, the
// bytes left as they were.
int parse_mac_address(const char* text, unsigned char* mac, char separator);

bool isValidMacAddr(const char* text);  // exactly XX-XX-XX-XX-XX-XX, either case
bool isValidMacMask(const char* text);  // exactly 12 hexadecimal digits
