// Texts as an HTML form sends them.
#pragma once

// "+" becomes a blank and "%" with two hexadecimal digits that byte; everything else is copied. The destination takes
// the source's length plus one byte and may be the source. Returns 0.
int filterPercentSign(const char* source, char* destination);

// Cuts the source at its first CR, or LF when it has no CR, then as above.
int transCGITexttoString(char* source, char* destination);
