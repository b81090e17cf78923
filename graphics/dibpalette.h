#pragma once

#include <windows.h>

#include "graphics/palette.h"

// The colours of a device-independent picture, as the platform's bitmap
// header lists them: one RGBQUAD for each colour. The array is the palette's
// own.
class ZKCORE_API oDIBPALETTE final : public oPALETTE {
public:
    oDIBPALETTE(PALETTEENTRY* entries, unsigned short count);
    // The colours as a picture's stream form lists them.
    oDIBPALETTE(const RGBQUAD* quads, unsigned short count);
    oDIBPALETTE(const oDIBPALETTE& other);
    oDIBPALETTE& operator=(const oDIBPALETTE& other);
    ~oDIBPALETTE();

    int SetColour(unsigned short index, const vCOLOUR& colour) override;
    int GetColour(unsigned short index, vCOLOUR& colour) const override;
    unsigned short NearestColour(const vCOLOUR& colour, unsigned short below) const override;

    const RGBQUAD* GetRgbQuad() const;

private:
    // Pictures that were copied from one another hold one palette together;
    // the last of them to let it go deletes it.
    friend class oDIB;

    // Takes count entries from the quads, or keeps none when memory runs out.
    void Take(const RGBQUAD* quads, unsigned short count);

    RGBQUAD* rgbQuads;
    unsigned short holders;
};
