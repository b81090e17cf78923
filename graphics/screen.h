#pragma once

#include "graphics/device.h"

// The whole screen as a device; there is one, reached by vDEVICE::GetScreen.
// It also names the colours that the library's controls paint with.
class ZKCORE_API vSCREEN : public vDEVICE {
public:
    vSCREEN(const vSCREEN&) = delete;
    vSCREEN& operator=(const vSCREEN&) = delete;
    ~vSCREEN() override;

    vDEV_TYPE DeviceType() override;
    HDC GetWinDC() override;
    int ReleaseWinDC() override;

    // Below 100 the platform's system colour of that number; 100 to 104 the
    // five colours of three-dimensional drawing, each a system colour: light
    // highlight, highlight, face, shadow and dark shadow; black otherwise.
    vCOLOUR Colour(vSCREENCOLOUR colour);
    // Applies to every context taken after it.
    void DrawMode(vDRAWMODE mode);
    static HPALETTE Palette();
    vSIZE Size();
    long NoColours();
    int PaletteEnabled();

protected:
    // A fresh context with the draw mode applied; a mode other than copy or
    // exclusive-or leaves the platform's.
    HDC GetMSDC() override;
    int ReleaseMSDC() override;

private:
    friend class vDEVICE;

    vSCREEN();

    long noColours;
    long paletteEnabled;
    long drawMode;
};
