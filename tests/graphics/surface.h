#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <winternl.h>

#include "support/zktest.h"

#include "examples/hello/png.h"
#include "graphics/device.h"

namespace zktest {

const COLORREF Red = RGB(255, 0, 0), Green = RGB(0, 255, 0), Blue = RGB(0, 0, 255);
const COLORREF White = RGB(255, 255, 255), Black = RGB(0, 0, 0);

// What a bitmap holds, read back pixel by pixel.
class Pixels {
public:
    explicit Pixels(const vMEMDEVICE& device)
        : Pixels(device.Bitmap(), device.Size().Width()(), device.Size().Height()()) {}

    Pixels(HBITMAP bitmap, int width, int height) : width(width), height(height), bits(width * height) {
        BITMAPINFO info = {{sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
        HDC screen = GetDC(nullptr);
        read = GetDIBits(screen, bitmap, 0, height, bits.data(), &info, DIB_RGB_COLORS) == height && width > 0;
        ReleaseDC(nullptr, screen);
    }

    int Read() const { return read; }
    COLORREF At(int x, int y) const {
        DWORD pixel = bits[y * width + x];
        return RGB(pixel >> 16, pixel >> 8, pixel);
    }
    int Count(COLORREF colour) const {
        int count = 0;
        for (int at = 0; at < width * height; ++at)
            count += At(at % width, at / width) == colour;
        return count;
    }
    bool operator==(const Pixels& other) const { return bits == other.bits; }
    // Left, top, right and bottom (the last two outside) of every pixel not
    // of the background; all zero when there is none.
    std::vector<long> Ink(COLORREF background = Black) const {
        std::vector<long> box = {width, height, 0, 0};
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                if (At(x, y) != background)
                    box = {std::min<long>(box[0], x), std::min<long>(box[1], y), std::max<long>(box[2], x + 1),
                           std::max<long>(box[3], y + 1)};
        return box[2] ? box : std::vector<long>{0, 0, 0, 0};
    }
    // For a person to look at: pngs/<name>.png under the current directory.
    void Save(const std::string& name) const {
        CreateDirectoryA("pngs", nullptr);
        std::vector<DWORD> opaque(bits);
        for (DWORD& pixel : opaque)
            pixel |= 0xFF000000;
        auto rgba = reinterpret_cast<const unsigned char*>(opaque.data());
        WritePng(("pngs/" + name + ".png").c_str(), rgba, width, height);
    }
private:
    int width, height;
    std::vector<DWORD> bits;
    int read;
};

inline vCOLOUR Colour(COLORREF colour) { return vCOLOUR(GetRValue(colour), GetGValue(colour), GetBValue(colour)); }

inline vLINESPEC Line(COLORREF colour, long width, vDASHTYPE dash = vDASH_SOLID, const unsigned char* pattern = nullptr)
{
    return vLINESPEC(vLINE_SOLID, Colour(colour), width, vCORNER_MITRE, dash, pattern);
}

inline vLINESPEC NoLine() { return vLINESPEC(vLINE_NONE, vCOLOUR(), 1, vCORNER_MITRE, vDASH_SOLID, nullptr); }

inline vFILLSPEC Fill(COLORREF colour, vFILLTYPE type = vFILL_SOLID, vFILLMODE mode = vFILL_ALTERNATE,
                      COLORREF back = Black)
{
    return vFILLSPEC(type, Colour(colour), Colour(back), vANGLE(), mode);
}

// How many GDI objects the process holds; where GetGuiResources answers 0, as
// Wine's does, the live entries (24 bytes, type at 14) of the process's table.
inline unsigned long LiveGdiObjects() {
    if (unsigned long reported = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return reported;
    const BYTE* environment = reinterpret_cast<const BYTE*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const BYTE* table = *reinterpret_cast<BYTE* const*>(environment + (sizeof(void*) == 4 ? 0x94 : 0xF8));
    unsigned long live = 0;
    for (unsigned long i = 0; table && i < 0x10000; ++i)
        live += table[24 * i + 14] != 0;
    return live;
}

// A context and bitmap of the test's own, black at first, as the platform
// hands them to an owner-drawn item; the bitmap goes with the context.
struct ForeignContext {
    explicit ForeignContext(int side = 20)
        : side(side), dc(CreateCompatibleDC(nullptr)), bitmap(CreateBitmap(side, side, 1, 32, nullptr))
    {
        SelectObject(dc, bitmap);
        PatBlt(dc, 0, 0, side, side, BLACKNESS);
    }
    ~ForeignContext() { DeleteDC(dc), DeleteObject(bitmap); }
    Pixels Read() const { return Pixels(bitmap, side, side); }
    const int side;
    HDC dc;
    HBITMAP bitmap;
};

// A black memory device of 100 by 100, gone before the leak check counts.
class SurfaceTest : public LeakFreeTest {
protected:
    static constexpr int Side = 100;
    void SetUp() override { LeakFreeTest::SetUp(), memory.emplace(vSIZE(Side, Side)); }
    void TearDown() override { memory.reset(), LeakFreeTest::TearDown(); }
    vMEMDEVICE& device() { return *memory; }
    Pixels Read() { return Pixels(*memory); }
private:
    std::optional<vMEMDEVICE> memory;
};

}  // namespace zktest
