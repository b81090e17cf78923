#include "graphics/device.h"

vWINDOWID::vWINDOWID(HWND hWnd) : hWnd(hWnd) {}

vWINDOWID::~vWINDOWID()
{
    ReleaseDC();
}

vDEV_TYPE vWINDOWID::DeviceType()
{
    return vDEV_WINDOW;
}

HDC vWINDOWID::GetWinDC()
{
    return GetMSDC();
}

int vWINDOWID::ReleaseWinDC()
{
    return ReleaseMSDC();
}

HWND vWINDOWID::operator()() const
{
    return hWnd;
}

HDC vWINDOWID::GetMSDC()
{
    return hWnd ? GetDC(hWnd) : nullptr;
}

int vWINDOWID::ReleaseMSDC()
{
    return ::ReleaseDC(hWnd, GetZKDC());
}
