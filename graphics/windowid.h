#pragma once

#include "graphics/device.h"

// A device on a window's client area, with a context taken for each drawing.
class ZKCORE_API vWINDOWID : public vHANDLEDEVICE<HWND, vDEV_WINDOW> {
public:
    explicit vWINDOWID(HWND hWnd);
    ~vWINDOWID() override;

protected:
    // Null when there is no window.
    HDC GetMSDC() override;
    int ReleaseMSDC() override;
};
