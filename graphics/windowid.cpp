#include "graphics/device.h"

vWINDOWID::vWINDOWID(HWND hWnd) : vHANDLEDEVICE(hWnd) {}

vWINDOWID::~vWINDOWID()
{
    ReleaseDC();
}

HDC vWINDOWID::GetMSDC()
{
    HWND window = (*this)();
    return window ? GetDC(window) : nullptr;
}

int vWINDOWID::ReleaseMSDC()
{
    return ::ReleaseDC((*this)(), GetZKDC());
}
