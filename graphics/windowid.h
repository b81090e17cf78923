#pragma once

#include "graphics/device.h"

// A device on a window's client area, with a context taken for each drawing.
class ZKCORE_API vWINDOWID : public vDEVICE {
public:
    explicit vWINDOWID(HWND hWnd);
    ~vWINDOWID() override;

    vDEV_TYPE DeviceType() override;
    HDC GetWinDC() override;
    int ReleaseWinDC() override;
    HWND operator()() const;

protected:
    // Null when there is no window.
    HDC GetMSDC() override;
    int ReleaseMSDC() override;

private:
    HWND hWnd;
};
