#include "base/values.h"
#include "bench/bench.h"
#include "graphics/device.h"

namespace {

const unsigned long shapes = 10000;
const unsigned long texts = 2000;
const int side = 512;

vCOLOUR Colour(COLORREF colour)
{
    return vCOLOUR(GetRValue(colour), GetGValue(colour), GetBValue(colour));
}

vSIZE Surface()
{
    return vSIZE(vINT(side), vINT(side));
}

vRECT Box(unsigned long n)
{
    long x = static_cast<long>(n * 7 % (side - 40));
    long y = static_cast<long>(n * 13 % (side - 30));
    return vRECT(vINT(x), vINT(y), vINT(x + 37), vINT(y + 23));
}

// The baseline draws on a memory context of its own, with pens, brushes and
// fonts made once before the clock starts.
class PlainSurface {
public:
    PlainSurface()
    {
        HDC screen = GetDC(nullptr);
        dc = CreateCompatibleDC(screen);
        bitmap = CreateCompatibleBitmap(screen, side, side);
        ReleaseDC(nullptr, screen);
        old = SelectObject(dc, bitmap);
    }
    ~PlainSurface()
    {
        SelectObject(dc, old);
        DeleteObject(bitmap);
        DeleteDC(dc);
    }
    HDC dc;

private:
    HBITMAP bitmap;
    HGDIOBJ old;
};

void Rectangles()
{
    vMEMDEVICE device(Surface());
    device.LineSpec(vLINESPEC(vLINE_SOLID, Colour(RGB(200, 0, 0)), vINT(1), vCORNER_MITRE, vDASH_SOLID, nullptr));
    device.FillSpec(vFILLSPEC(vFILL_SOLID, Colour(RGB(0, 0, 200)), vCOLOUR(), vANGLE(), vFILL_ALTERNATE));
    PlainSurface plain;
    HPEN pen = CreatePen(PS_SOLID, 1, RGB(200, 0, 0));
    HBRUSH brush = CreateSolidBrush(RGB(0, 0, 200));
    HGDIOBJ oldPen = SelectObject(plain.dc, pen);
    HGDIOBJ oldBrush = SelectObject(plain.dc, brush);
    zkbench::Record("draw.rect", "Rectangle, pre-made pen", zkbench::Compare([&device] {
        for (unsigned long n = 0; n < shapes; ++n)
            device.DrawRect(Box(n));
    }, [&plain] {
        for (unsigned long n = 0; n < shapes; ++n) {
            vRECT box = Box(n);
            Rectangle(plain.dc, box.Left()(), box.Top()(), box.Right()(), box.Bottom()());
        }
    }, shapes));
    SelectObject(plain.dc, oldPen);
    SelectObject(plain.dc, oldBrush);
    DeleteObject(pen);
    DeleteObject(brush);
}

void Lines()
{
    vMEMDEVICE device(Surface());
    device.LineSpec(vLINESPEC(vLINE_SOLID, Colour(RGB(0, 160, 0)), vINT(2), vCORNER_MITRE, vDASH_SOLID, nullptr));
    PlainSurface plain;
    HPEN pen = CreatePen(PS_SOLID, 2, RGB(0, 160, 0));
    HGDIOBJ oldPen = SelectObject(plain.dc, pen);
    zkbench::Record("draw.line", "MoveToEx+LineTo", zkbench::Compare([&device] {
        for (unsigned long n = 0; n < shapes; ++n) {
            vRECT box = Box(n);
            device.DrawLine(box.TopLeft(), box.BottomRight());
        }
    }, [&plain] {
        for (unsigned long n = 0; n < shapes; ++n) {
            vRECT box = Box(n);
            MoveToEx(plain.dc, box.Left()(), box.Top()(), nullptr);
            LineTo(plain.dc, box.Right()(), box.Bottom()());
        }
    }, shapes));
    SelectObject(plain.dc, oldPen);
    DeleteObject(pen);
}

void Texts()
{
    vSTRING text("Centred text");
    vMEMDEVICE device(Surface());
    device.LineSpec(vLINESPEC(vLINE_SOLID, Colour(RGB(255, 255, 255)), vINT(1), vCORNER_MITRE, vDASH_SOLID, nullptr));
    device.FontSpec(vFONTSPEC(vSTRING("Arial"), vFONT_NORMAL, vINT(14), vREAL(1), 100, vFONT_PIXELS, vANGLE()));
    PlainSurface plain;
    HFONT font = CreateFontA(-14, 0, 0, 0, FW_NORMAL, 0, 0, 0, ANSI_CHARSET, 0, 0, 0, 0, "Arial");
    HGDIOBJ oldFont = SelectObject(plain.dc, font);
    SetTextColor(plain.dc, RGB(255, 255, 255));
    SetBkMode(plain.dc, TRANSPARENT);
    zkbench::Record("draw.text", "DrawTextA, pre-made font", zkbench::Compare([&] {
        for (unsigned long n = 0; n < texts; ++n)
            device.DrawTextA(text, Box(n), vTEXT_CENTRE);
    }, [&] {
        for (unsigned long n = 0; n < texts; ++n) {
            vRECT box = Box(n);
            RECT area = {box.Left()(), box.Top()(), box.Right()(), box.Bottom()()};
            DrawTextA(plain.dc, text(), text.Length(), &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        }
    }, texts));
    SelectObject(plain.dc, oldFont);
    DeleteObject(font);
}

}  // namespace

void BenchDrawing()
{
    Rectangles();
    Lines();
    Texts();
}
