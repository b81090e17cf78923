#pragma once

#include "graphics/device.h"

// A device on a bitmap of its own in memory, made like the screen: drawing
// off screen, to be shown or read back later.
class ZKCORE_API vMEMDEVICE : public vDEVICE {
public:
    // A black bitmap of the size; it is not Valid when that cannot be had.
    explicit vMEMDEVICE(const vSIZE& size);
    vMEMDEVICE(const vMEMDEVICE&) = delete;
    vMEMDEVICE& operator=(const vMEMDEVICE&) = delete;
    ~vMEMDEVICE() override;

    vDEV_TYPE DeviceType() override;
    HDC GetWinDC() override;
    int ReleaseWinDC() override;

    int Valid() const;
    vSIZE Size() const;
    // The bitmap drawn on, still the device's.
    HBITMAP Bitmap() const;
    // Applies to every context taken after it.
    void DrawMode(vDRAWMODE mode);

protected:
    HDC GetMSDC() override;
    int ReleaseMSDC() override;

private:
    HDC memory;
    HBITMAP bitmap;
    HGDIOBJ previous;
    unsigned short width;
    unsigned short height;
    vDRAWMODE drawMode;
};
