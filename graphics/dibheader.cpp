#include "graphics/dibheader.h"

namespace {

// Pixels for each metre over dots per inch. Kept at 40 rather than 39.37 on
// purpose: the factor is part of the stored form, and it makes a round trip
// through this class exact.
const unsigned long MetreFactor = 40;

}  // namespace

oDIBHEADER::oDIBHEADER()
    : oDIBHEADER(0, 0, 0, 0, oMODEL_RGB)
{
}

oDIBHEADER::oDIBHEADER(unsigned long width, unsigned long height, unsigned long horzDPI,
                       unsigned long vertDPI, oCOLOUR_MODEL model)
    : info(), colourModel(model), palette(nullptr)
{
    info.biSize = sizeof info;
    info.biWidth = static_cast<LONG>(width);
    info.biHeight = static_cast<LONG>(height);
    info.biPlanes = 1;
    info.biBitCount = DepthOf(model);
    info.biCompression = BI_RGB;
    HorzDPI(horzDPI);
    VertDPI(vertDPI);
    Resize();
}

unsigned long oDIBHEADER::Width() const
{
    return static_cast<unsigned long>(info.biWidth);
}

unsigned long oDIBHEADER::Height() const
{
    return static_cast<unsigned long>(info.biHeight);
}

unsigned long oDIBHEADER::Size() const
{
    return info.biSizeImage;
}

unsigned short oDIBHEADER::ColourDepth() const
{
    return info.biBitCount;
}

oCOLOUR_MODEL oDIBHEADER::ColourModel() const
{
    return colourModel;
}

unsigned long oDIBHEADER::HorzDPI() const
{
    return static_cast<unsigned long>(info.biXPelsPerMeter) / MetreFactor;
}

unsigned long oDIBHEADER::VertDPI() const
{
    return static_cast<unsigned long>(info.biYPelsPerMeter) / MetreFactor;
}

oPALETTE* oDIBHEADER::Palette() const
{
    return palette;
}

unsigned long oDIBHEADER::BytesPerLine() const
{
    return info.biHeight ? info.biSizeImage / Height() : 0;
}

void oDIBHEADER::Width(unsigned long width)
{
    info.biWidth = static_cast<LONG>(width);
    Resize();
}

void oDIBHEADER::Height(unsigned long height)
{
    info.biHeight = static_cast<LONG>(height);
    Resize();
}

void oDIBHEADER::ColourModel(oCOLOUR_MODEL model)
{
    colourModel = model;
    info.biBitCount = DepthOf(model);
    Resize();
}

void oDIBHEADER::HorzDPI(unsigned long dpi)
{
    info.biXPelsPerMeter = static_cast<LONG>(dpi * MetreFactor);
}

void oDIBHEADER::VertDPI(unsigned long dpi)
{
    info.biYPelsPerMeter = static_cast<LONG>(dpi * MetreFactor);
}

void oDIBHEADER::Palette(oPALETTE* newPalette)
{
    palette = newPalette;
}

const BITMAPINFOHEADER& oDIBHEADER::Info() const
{
    return info;
}

unsigned short oDIBHEADER::DepthOf(oCOLOUR_MODEL model)
{
    switch (model) {
    case oMODEL_MONO:
        return 1;
    case oMODEL_16:
        return 4;
    case oMODEL_256:
        return 8;
    default:
        return 24;
    }
}

unsigned long oDIBHEADER::LineBytes(unsigned long width, unsigned short depth)
{
    return static_cast<unsigned long>((static_cast<unsigned long long>(width) * depth + 31) / 32 * 4);
}

void oDIBHEADER::Resize()
{
    info.biSizeImage = LineBytes(Width(), ColourDepth()) * Height();
}
