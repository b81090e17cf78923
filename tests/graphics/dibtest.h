#pragma once

#include <windows.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "graphics/dib.h"
#include "streams/stream.h"
#include "support/streamform.h"

namespace dibtest {

using Bytes = std::vector<unsigned char>;
using Pixels = std::vector<COLORREF>;

inline void Put(Bytes& bytes, size_t at, unsigned long value, int width) {
    for (int i = 0; i < width; ++i)
        bytes[at + i] = static_cast<unsigned char>(value >> 8 * i);
}

// The colour that Archive gives to palette index i: distinct, and not a grey ramp.
inline COLORREF PaletteColour(unsigned long i) { return RGB(i * 91 % 256, 255 - i, i * 37 % 256); }

// A picture in the stream form built byte by byte, without the library: the value of each pixel (an index, or 0xBBGGRR
// for 24 bits) from the function of its column and its row counted from the top.
inline Bytes Archive(long width, long height, int depth, int topDown,
                     const std::function<unsigned long(long, long)>& pixel)
{
    unsigned long colours = depth <= 8 ? 1UL << depth : 0, offset = 54 + 4 * colours;
    unsigned long stride = (width * depth + 31) / 32 * 4;
    Bytes bytes(offset + stride * height, 0);
    const std::pair<size_t, unsigned long> fields[] = {
        {2, bytes.size()}, {10, offset}, {14, 40}, {18, width}, {22, topDown ? -height : height},
        {26, 1 | depth << 16}, {34, stride * height}, {38, 2835}, {42, 2835}};
    Put(bytes, 0, 0x4D42, 2);
    for (const auto& field : fields)
        Put(bytes, field.first, field.second, 4);
    for (unsigned long i = 0; i < colours; ++i)
        Put(bytes, 54 + 4 * i,
            GetBValue(PaletteColour(i)) | GetGValue(PaletteColour(i)) << 8 | GetRValue(PaletteColour(i)) << 16, 3);
    for (long row = 0; row < height; ++row) {
        size_t line = offset + stride * (topDown ? row : height - 1 - row);
        for (long x = 0; x < width; ++x) {
            if (depth == 24)
                Put(bytes, line + 3 * x, pixel(x, row), 3);
            else
                bytes[line + x * depth / 8] |= static_cast<unsigned char>(pixel(x, row) << (8 - depth - x * depth % 8));
        }
    }
    return bytes;
}

// A stream over a copy of the bytes; the stream neither grows nor frees them.
class MemoryStream {
public:
    explicit MemoryStream(const Bytes& source)
        : bytes(source), block(bytes.empty() ? nullptr : bytes.data()),
          stream(&block, static_cast<unsigned long>(bytes.size()), vSTRING("picture.dib"), 0,
                 vSTREAM_READ | vSTREAM_WRITE) {}
    vSTREAM& operator*() { return stream; }
    vMEMSTREAM* operator->() { return &stream; }
private:
    Bytes bytes;
    unsigned char* block;
    vMEMSTREAM stream;
};

// What a picture writes on a memory stream.
inline Bytes Written(const oDIB& dib) { return zktest::StreamForm(dib); }

// Every pixel as a colour, rows from the top, through lines asked for in 24 bits.
inline Pixels Colours(const oDIB& dib) {
    long width = static_cast<long>(dib.GetHeader()->Width());
    Bytes line(oDIBHEADER::LineBytes(width, 24));
    Pixels pixels;
    for (long row = static_cast<long>(dib.GetHeader()->Height()) - 1; row >= 0; --row) {
        oCOLOUR_MODEL model = oMODEL_RGB;
        for (long x = 0; dib.GetImageLines(row, row, line.data(), &model) && x < width; ++x)
            pixels.push_back(RGB(line[3 * x + 2], line[3 * x + 1], line[3 * x]));
    }
    return pixels;
}

// A plain PPM as ImageMagick writes it: "P6", width, height, 255, pixels.
inline Pixels ReadPpm(const std::string& path, long& width, long& height) {
    FILE* file = std::fopen(path.c_str(), "rb");
    int most = 0;
    unsigned char rgb[3];
    Pixels pixels;
    bool read = file && std::fscanf(file, "P6 %ld %ld %d", &width, &height, &most) == 3 && most == 255;
    if (read && std::fgetc(file) != EOF)
        while (static_cast<long>(pixels.size()) < width * height && std::fread(rgb, 1, 3, file) == 3)
            pixels.push_back(RGB(rgb[0], rgb[1], rgb[2]));
    if (file)
        std::fclose(file);
    return pixels;
}

inline void WritePpm(const std::string& path, long width, long height, const Pixels& pixels) {
    FILE* file = std::fopen(path.c_str(), "wb");
    std::fprintf(file, "P6\n%ld %ld\n255\n", width, height);
    for (COLORREF pixel : pixels)
        std::fprintf(file, "%c%c%c", GetRValue(pixel), GetGValue(pixel), GetBValue(pixel));
    std::fclose(file);
}

}  // namespace dibtest
