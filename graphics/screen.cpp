#include "graphics/device.h"

namespace {

const int FirstNamedColour = 100;

// The system colour behind each of the library's named colours, from 100 on.
const int NamedColours[] = {COLOR_3DHILIGHT, COLOR_3DLIGHT, COLOR_3DFACE, COLOR_3DSHADOW, COLOR_3DDKSHADOW};
const int NoNamedColours = sizeof NamedColours / sizeof NamedColours[0];

}  // namespace

vSCREEN::vSCREEN() : paletteEnabled(0), drawMode(vDRAW_COPY)
{
    noColours = GetNoColours()();
    int held;
    HDC dc = Borrow(held);
    paletteEnabled = dc && (GetDeviceCaps(dc, RASTERCAPS) & RC_PALETTE) != 0;
    GiveBack(held);
}

vSCREEN::~vSCREEN()
{
    ReleaseDC();
}

vDEV_TYPE vSCREEN::DeviceType()
{
    return vDEV_SCREEN;
}

HDC vSCREEN::GetWinDC()
{
    return GetMSDC();
}

int vSCREEN::ReleaseWinDC()
{
    return ReleaseMSDC();
}

vCOLOUR vSCREEN::Colour(vSCREENCOLOUR colour)
{
    int number = colour;
    if (number >= FirstNamedColour + NoNamedColours)
        return vCOLOUR();
    if (number >= FirstNamedColour)
        number = NamedColours[number - FirstNamedColour];
    return vCOLOUR(static_cast<long>(GetSysColor(number)), 0);
}

void vSCREEN::DrawMode(vDRAWMODE mode)
{
    drawMode = mode;
}

HPALETTE vSCREEN::Palette()
{
    return static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
}

vSIZE vSCREEN::Size()
{
    return vSIZE(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
}

long vSCREEN::NoColours()
{
    return noColours;
}

int vSCREEN::PaletteEnabled()
{
    return paletteEnabled;
}

HDC vSCREEN::GetMSDC()
{
    HDC dc = GetDC(nullptr);
    if (dc && drawMode == vDRAW_COPY)
        SetROP2(dc, R2_COPYPEN);
    else if (dc && drawMode == vDRAW_XOR)
        SetROP2(dc, R2_XORPEN);
    return dc;
}

int vSCREEN::ReleaseMSDC()
{
    return ::ReleaseDC(nullptr, GetZKDC());
}
