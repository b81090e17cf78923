#pragma once

#include <windows.h>

#include "base/export.h"

class oPALETTE;

// How the lines of a picture are laid out. 1 and 2 are not used here.
enum oCOLOUR_MODEL {
    oMODEL_RGB = 0,      // 24 bits for each pixel, blue, green, red
    oMODEL_MONO = 3,     // 1 bit for each pixel (2 in a picture read so), palette
    oMODEL_16 = 4,       // 4 bits for each pixel, palette
    oMODEL_256 = 5       // 8 bits for each pixel, palette
};

// The description of a device-independent picture. Its first forty bytes are
// the platform's bitmap information header, the form that files and the
// clipboard carry, so that the picture can be handed to the platform as it
// stands. The image size always follows from width, height and depth, with
// each line padded to a whole number of 32-bit words.
class ZKCORE_API oDIBHEADER {
public:
    // Empty: no width, no height, 24 bits.
    oDIBHEADER();
    // The depth follows from the model; the resolutions are in dots per inch.
    oDIBHEADER(unsigned long width, unsigned long height, unsigned long horzDPI, unsigned long vertDPI,
               oCOLOUR_MODEL model);

    unsigned long Width() const;
    unsigned long Height() const;
    unsigned long Size() const;
    unsigned short ColourDepth() const;
    oCOLOUR_MODEL ColourModel() const;
    unsigned long HorzDPI() const;
    unsigned long VertDPI() const;
    oPALETTE* Palette() const;
    // The image size over the height, or 0 for a picture with no lines.
    unsigned long BytesPerLine() const;

    void Width(unsigned long width);
    void Height(unsigned long height);
    void ColourModel(oCOLOUR_MODEL model);
    void HorzDPI(unsigned long dpi);
    void VertDPI(unsigned long dpi);
    void Palette(oPALETTE* palette);

    // The forty bytes as the platform reads them.
    const BITMAPINFOHEADER& Info() const;

    // The bits for each pixel that a model's lines carry.
    static unsigned short DepthOf(oCOLOUR_MODEL model);
    // The bytes of one line of width pixels at depth bits, padded to 32 bits.
    static unsigned long LineBytes(unsigned long width, unsigned short depth);

private:
    // A picture read from a stream keeps the depth it came with, 2 included,
    // and sets it here.
    friend class oDIB;

    void Resize();

    BITMAPINFOHEADER info;
    oCOLOUR_MODEL colourModel;
    oPALETTE* palette;
};
