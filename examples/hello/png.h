#pragma once

#include <windows.h>

// Writes the pixels of a 32-bit top-down bitmap as a PNG file, uncompressed;
// false if the file could not be written.
bool WritePng(const char* path, const unsigned char* bgra, int width, int height);
