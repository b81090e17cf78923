#pragma once

#include <optional>
#include <string>
#include <vector>

#include <winternl.h>

#include "support/zktest.h"

#include "examples/hello/png.h"
#include "graphics/device.h"

namespace zktest {

// What a bitmap holds, read back pixel by pixel.
class Pixels {
public:
    explicit Pixels(const vMEMDEVICE& device)
        : Pixels(device.Bitmap(), device.Size().Width()(), device.Size().Height()())
    {
    }

    Pixels(HBITMAP bitmap, int width, int height) : width(width), height(height), bits(width * height)
    {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        HDC screen = GetDC(nullptr);
        read = GetDIBits(screen, bitmap, 0, height, bits.data(), &info, DIB_RGB_COLORS);
        ReleaseDC(nullptr, screen);
    }

    int Read() const
    {
        return height > 0 && width > 0 && read == height;
    }

    COLORREF At(int x, int y) const
    {
        DWORD pixel = bits[y * width + x];
        return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
    }

    // The smallest rectangle, right and bottom outside, round every pixel
    // that differs from the background; all zero when there is none.
    RECT Ink(COLORREF background = RGB(0, 0, 0)) const
    {
        RECT box = {width, height, 0, 0};
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (At(x, y) == background)
                    continue;
                box.left = x < box.left ? x : box.left;
                box.top = y < box.top ? y : box.top;
                box.right = x + 1 > box.right ? x + 1 : box.right;
                box.bottom = y + 1 > box.bottom ? y + 1 : box.bottom;
            }
        }
        return box.right ? box : RECT{0, 0, 0, 0};
    }

    int operator==(const Pixels& other) const
    {
        return bits == other.bits;
    }

    int Count(COLORREF colour) const
    {
        int count = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                count += At(x, y) == colour;
        return count;
    }

    // For a person to look at: pngs/<name>.png under the current directory.
    void Save(const std::string& name) const
    {
        CreateDirectoryA("pngs", nullptr);
        std::vector<DWORD> opaque(bits);
        for (DWORD& pixel : opaque)
            pixel |= 0xFF000000;
        WritePng(("pngs/" + name + ".png").c_str(), reinterpret_cast<const unsigned char*>(opaque.data()), width,
                 height);
    }

private:
    int width;
    int height;
    std::vector<DWORD> bits;
    int read = 0;
};

// The edges of what was drawn, right and bottom outside, as one comparison.
inline std::vector<long> Edges(const RECT& box)
{
    return {box.left, box.top, box.right, box.bottom};
}

inline vCOLOUR Colour(COLORREF colour)
{
    return vCOLOUR(GetRValue(colour), GetGValue(colour), GetBValue(colour));
}

inline vLINESPEC Line(COLORREF colour, long width, vDASHTYPE dash = vDASH_SOLID)
{
    return vLINESPEC(vLINE_SOLID, Colour(colour), width, vCORNER_MITRE, dash, nullptr);
}

inline vLINESPEC NoLine()
{
    return vLINESPEC(vLINE_NONE, vCOLOUR(), 1, vCORNER_MITRE, vDASH_SOLID, nullptr);
}

inline vFILLSPEC Fill(COLORREF colour, vFILLTYPE type = vFILL_SOLID)
{
    return vFILLSPEC(type, Colour(colour), vCOLOUR(), vANGLE(), vFILL_ALTERNATE);
}

inline vFILLSPEC Hollow()
{
    return Fill(RGB(0, 0, 0), vFILL_HOLLOW);
}

// The platform's handle table as the process sees it: one entry of 24 bytes
// for each possible handle, the type byte 0 when the entry is free.
struct GdiHandleEntry {
    unsigned long long object;
    ULONG owner;
    USHORT unique;
    UCHAR type;
    UCHAR flags;
    unsigned long long user;
};

// Where the process environment block keeps its pointer to that table.
const size_t GdiHandleTableAt = sizeof(void*) == 4 ? 0x94 : 0xF8;

// How many GDI objects the process holds. Wine answers GetGuiResources with
// 0, so there the live entries of the handle table that the process
// environment block points at are counted instead.
inline unsigned long LiveGdiObjects()
{
    unsigned long reported = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    if (reported)
        return reported;
    const BYTE* environment = reinterpret_cast<const BYTE*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const GdiHandleEntry* table = *reinterpret_cast<GdiHandleEntry* const*>(environment + GdiHandleTableAt);
    unsigned long live = 0;
    for (unsigned long i = 0; table && i < 0x10000; ++i)
        live += table[i].type != 0;
    return live;
}

const COLORREF Red = RGB(255, 0, 0);
const COLORREF Green = RGB(0, 255, 0);
const COLORREF Blue = RGB(0, 0, 255);
const COLORREF White = RGB(255, 255, 255);
const COLORREF Black = RGB(0, 0, 0);

// A context and bitmap of the test's own, black at first, as the platform
// hands them to an owner-drawn item.
class ForeignContext {
public:
    explicit ForeignContext(int side = 20) : side(side)
    {
        HDC screen = GetDC(nullptr);
        dc = CreateCompatibleDC(screen);
        bitmap = CreateCompatibleBitmap(screen, side, side);
        ReleaseDC(nullptr, screen);
        previous = SelectObject(dc, bitmap);
        PatBlt(dc, 0, 0, side, side, BLACKNESS);
    }

    ~ForeignContext()
    {
        SelectObject(dc, previous);
        DeleteObject(bitmap);
        DeleteDC(dc);
    }

    Pixels Read() const
    {
        return Pixels(bitmap, side, side);
    }

    const int side;
    HDC dc;

private:
    HBITMAP bitmap;
    HGDIOBJ previous;
};

// A fixture with a black memory device to draw on, checked for leaks.
class SurfaceTest : public LeakFreeTest {
protected:
    static constexpr int Side = 100;

    // The device dies before the leak check counts.
    void SetUp() override
    {
        LeakFreeTest::SetUp();
        memory.emplace(vSIZE(Side, Side));
    }

    void TearDown() override
    {
        memory.reset();
        LeakFreeTest::TearDown();
    }

    vMEMDEVICE& device()
    {
        return *memory;
    }

    Pixels Read()
    {
        return Pixels(*memory);
    }

private:
    std::optional<vMEMDEVICE> memory;
};

}  // namespace zktest
