#include "graphics/dibpalette.h"

#include <cstring>

#include "base/memory.h"
#include "graphics/colour.h"

oDIBPALETTE::oDIBPALETTE(PALETTEENTRY* entries, unsigned short count)
    : rgbQuads(nullptr), holders(0)
{
    Take(nullptr, entries ? count : 0);
    for (unsigned short i = 0; i < GetNumColours(); ++i)
        rgbQuads[i] = RGBQUAD{entries[i].peBlue, entries[i].peGreen, entries[i].peRed, 0};
}

oDIBPALETTE::oDIBPALETTE(const RGBQUAD* quads, unsigned short count)
    : rgbQuads(nullptr), holders(0)
{
    Take(quads, count);
}

oDIBPALETTE::oDIBPALETTE(const oDIBPALETTE& other)
    : oPALETTE(other), rgbQuads(nullptr), holders(0)
{
    Take(other.rgbQuads, other.GetNumColours());
}

oDIBPALETTE& oDIBPALETTE::operator=(const oDIBPALETTE& other)
{
    if (this != &other) {
        vMemFree(rgbQuads);
        rgbQuads = nullptr;
        Take(other.rgbQuads, other.GetNumColours());
    }
    return *this;
}

oDIBPALETTE::~oDIBPALETTE()
{
    vMemFree(rgbQuads);
}

int oDIBPALETTE::SetColour(unsigned short index, const vCOLOUR& colour)
{
    if (index >= GetNumColours())
        return 0;
    rgbQuads[index] = RGBQUAD{colour.Blue(), colour.Green(), colour.Red(), 0};
    return 1;
}

int oDIBPALETTE::GetColour(unsigned short index, vCOLOUR& colour) const
{
    if (index >= GetNumColours())
        return 0;
    const RGBQUAD& quad = rgbQuads[index];
    colour = vCOLOUR(quad.rgbRed, quad.rgbGreen, quad.rgbBlue);
    return 1;
}

unsigned short oDIBPALETTE::NearestColour(const vCOLOUR& colour, unsigned short below) const
{
    unsigned short count = below < GetNumColours() ? below : GetNumColours();
    unsigned short nearest = 0;
    long best = -1;
    for (unsigned short i = 0; i < count && best != 0; ++i) {
        long red = rgbQuads[i].rgbRed - colour.Red();
        long green = rgbQuads[i].rgbGreen - colour.Green();
        long blue = rgbQuads[i].rgbBlue - colour.Blue();
        long distance = red * red + green * green + blue * blue;
        if (best < 0 || distance < best) {
            best = distance;
            nearest = i;
        }
    }
    return nearest;
}

const RGBQUAD* oDIBPALETTE::GetRgbQuad() const
{
    return rgbQuads;
}

void oDIBPALETTE::Take(const RGBQUAD* quads, unsigned short count)
{
    rgbQuads = count ? static_cast<RGBQUAD*>(vMemAlloc(count * sizeof(RGBQUAD))) : nullptr;
    SetNumColours(rgbQuads ? count : 0);
    if (rgbQuads && quads)
        std::memcpy(rgbQuads, quads, count * sizeof(RGBQUAD));
}
