#include "graphics/device.h"

vMEMDEVICE::vMEMDEVICE(const vSIZE& size)
    : memory(nullptr), bitmap(nullptr), previous(nullptr),
      width(static_cast<unsigned short>(size.Width()())),
      height(static_cast<unsigned short>(size.Height()())), drawMode(vDRAW_COPY)
{
    HDC screen = GetDC(nullptr);
    memory = CreateCompatibleDC(screen);
    bitmap = CreateCompatibleBitmap(screen, width, height);
    ::ReleaseDC(nullptr, screen);
    if (memory && bitmap) {
        previous = SelectObject(memory, bitmap);
        PatBlt(memory, 0, 0, width, height, BLACKNESS);
    }
}

vMEMDEVICE::~vMEMDEVICE()
{
    ReleaseDC();
    if (previous)
        SelectObject(memory, previous);
    if (bitmap)
        DeleteObject(bitmap);
    if (memory)
        DeleteDC(memory);
}

vDEV_TYPE vMEMDEVICE::DeviceType()
{
    return vDEV_MEMORY;
}

HDC vMEMDEVICE::GetWinDC()
{
    return GetMSDC();
}

int vMEMDEVICE::ReleaseWinDC()
{
    return ReleaseMSDC();
}

int vMEMDEVICE::Valid() const
{
    return previous != nullptr;
}

vSIZE vMEMDEVICE::Size() const
{
    return vSIZE(width, height);
}

HBITMAP vMEMDEVICE::Bitmap() const
{
    return bitmap;
}

void vMEMDEVICE::DrawMode(vDRAWMODE mode)
{
    drawMode = mode;
}

HDC vMEMDEVICE::GetMSDC()
{
    if (!previous)
        return nullptr;
    SetROP2(memory, drawMode == vDRAW_XOR ? R2_XORPEN : R2_COPYPEN);
    return memory;
}

int vMEMDEVICE::ReleaseMSDC()
{
    return 1;
}
