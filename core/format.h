#pragma once

#include <cstdarg>

// Formats text in the manner of the platform's wsprintfA, with the same
// conversions and flags but without its limit of 1024 bytes, so that a caller
// can measure a result first and then allocate exactly the room it needs.
//
// Returns the length of the whole result. Only its first `capacity` bytes are
// stored in `out`, which may be null when only the length is wanted; no NUL
// is written.
unsigned long FormatText(char* out, unsigned long capacity, const char* format, va_list arguments);
