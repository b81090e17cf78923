#pragma once

#include <windows.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "graphics/dib.h"
#include "streams/stream.h"

namespace dibtest {

using Bytes = std::vector<unsigned char>;
using Pixels = std::vector<COLORREF>;

inline void Put(Bytes& bytes, size_t at, unsigned long value, int width)
{
    for (int i = 0; i < width; ++i)
        bytes[at + i] = static_cast<unsigned char>(value >> 8 * i);
}

inline unsigned long Get(const Bytes& bytes, size_t at, int width)
{
    unsigned long value = 0;
    for (int i = 0; i < width; ++i)
        value |= static_cast<unsigned long>(bytes[at + i]) << 8 * i;
    return value;
}

inline unsigned long Stride(long width, int depth)
{
    return static_cast<unsigned long>((width * depth + 31) / 32 * 4);
}

// A picture in the stream form built byte by byte, without the library: the
// value of each pixel (an index, or 0xBBGGRR for 24 bits) from the function
// of its column and its row counted from the top.
inline Bytes Archive(long width, long height, int depth, int topDown,
                     const std::function<unsigned long(long, long)>& pixel)
{
    unsigned long colours = depth <= 8 ? 1UL << depth : 0;
    unsigned long offset = 54 + 4 * colours;
    unsigned long stride = Stride(width, depth);
    Bytes bytes(offset + stride * height, 0);
    Put(bytes, 0, 0x4D42, 2);
    Put(bytes, 2, bytes.size(), 4);
    Put(bytes, 10, offset, 4);
    Put(bytes, 14, 40, 4);
    Put(bytes, 18, width, 4);
    Put(bytes, 22, static_cast<unsigned long>(topDown ? -height : height), 4);
    Put(bytes, 26, 1, 2);
    Put(bytes, 28, depth, 2);
    Put(bytes, 34, stride * height, 4);
    Put(bytes, 38, 2835, 4);
    Put(bytes, 42, 2835, 4);
    // Colour i of a palette: distinct, and not a grey ramp.
    for (unsigned long i = 0; i < colours; ++i)
        Put(bytes, 54 + 4 * i, (i * 37 % 256) | (255 - i) << 8 | (i * 91 % 256) << 16, 3);
    for (long row = 0; row < height; ++row) {
        size_t line = offset + stride * (topDown ? row : height - 1 - row);
        for (long x = 0; x < width; ++x) {
            unsigned long value = pixel(x, row);
            if (depth == 24) {
                Put(bytes, line + 3 * x, value, 3);
                continue;
            }
            size_t bit = static_cast<size_t>(x) * depth;
            bytes[line + bit / 8] |= static_cast<unsigned char>(value << (8 - depth - bit % 8));
        }
    }
    return bytes;
}

// The colour that Archive gives to a palette index.
inline COLORREF PaletteColour(unsigned long index)
{
    return RGB(index * 91 % 256, 255 - index, index * 37 % 256);
}

// A stream over a copy of the bytes; the stream neither grows nor frees them.
class MemoryStream {
public:
    explicit MemoryStream(const Bytes& source)
        : bytes(source), block(bytes.empty() ? nullptr : bytes.data()),
          stream(&block, static_cast<unsigned long>(bytes.size()), vSTRING("picture.dib"), 0,
                 vSTREAM_READ | vSTREAM_WRITE)
    {
    }

    vSTREAM& operator*() { return stream; }
    vMEMSTREAM* operator->() { return &stream; }
    const Bytes& Content() const { return bytes; }

private:
    Bytes bytes;
    unsigned char* block;
    vMEMSTREAM stream;
};

// Every pixel of the picture as a colour, row by row from the top, through
// lines asked for in 24 bits.
inline Pixels Colours(const oDIB& dib)
{
    const oDIBHEADER& header = *dib.GetHeader();
    long width = static_cast<long>(header.Width());
    long height = static_cast<long>(header.Height());
    Bytes line(Stride(width, 24));
    Pixels pixels;
    for (long row = 0; row < height; ++row) {
        oCOLOUR_MODEL model = oMODEL_RGB;
        if (!dib.GetImageLines(height - 1 - row, height - 1 - row, line.data(), &model))
            return Pixels();
        for (long x = 0; x < width; ++x)
            pixels.push_back(RGB(line[3 * x + 2], line[3 * x + 1], line[3 * x]));
    }
    return pixels;
}

// A plain PPM as ImageMagick writes it: "P6", width, height, 255, and the
// pixels from the top, three bytes each.
inline Pixels ReadPpm(const std::string& path, long& width, long& height)
{
    std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
    int most = 0;
    if (!file || std::fscanf(file.get(), "P6 %ld %ld %d", &width, &height, &most) != 3 || most != 255)
        return Pixels();
    std::fgetc(file.get());
    Pixels pixels;
    for (long i = 0; i < width * height; ++i) {
        unsigned char rgb[3] = {};
        if (std::fread(rgb, 1, 3, file.get()) != 3)
            return Pixels();
        pixels.push_back(RGB(rgb[0], rgb[1], rgb[2]));
    }
    return pixels;
}

inline void WritePpm(const std::string& path, long width, long height, const Pixels& pixels)
{
    std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path.c_str(), "wb"), std::fclose);
    std::fprintf(file.get(), "P6\n%ld %ld\n255\n", width, height);
    for (COLORREF pixel : pixels) {
        unsigned char rgb[3] = {GetRValue(pixel), GetGValue(pixel), GetBValue(pixel)};
        std::fwrite(rgb, 1, 3, file.get());
    }
}

// The pictures that ImageMagick made for the tests, each bottom-up and
// top-down: name, depth, width and height.
struct MADE {
    const char* name;
    int depth;
    long width;
    long height;
};

const MADE Made[] = {
    {"mono13", 1, 13, 7}, {"mono33", 1, 33, 5},  {"pal16", 4, 17, 9},
    {"pal256", 8, 37, 23}, {"rgb13", 24, 13, 7}, {"rgb30", 24, 30, 11},
};

inline std::string MadePath(const std::string& file)
{
    return std::string(ZK_DIB_FILES) + "/" + file;
}

}  // namespace dibtest
