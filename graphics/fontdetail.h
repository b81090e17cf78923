#pragma once

#include <windows.h>

#include "graphics/fontspec.h"

class vDEVICE;

// A font spec as one device makes it: the device it belongs to, the measures
// of the font there in the device's logical units, and the platform font that
// the device draws text with.
class ZKCORE_API vFONTDETAIL : public vFONTSPEC {
public:
    vFONTDETAIL(const vFONTSPEC& spec, const vDEVICE& device);
    // Belongs to no device and measures nothing.
    vFONTDETAIL();

    // Measures the font on its device; 0 when there is no context to measure on.
    int Init();
    // The width of the text in this font, in logical units; 0 without a context.
    vINT GetDefStringWidth(const vSTRING& text);

    vINT Ascent() const;
    vINT Descent() const;
    vINT AverageWidth() const;

private:
    friend class vDEVICE;

    // A fresh platform font for the spec on the device; the caller deletes it.
    HFONT MakeFont();
    // The font with the characters' natural width.
    LOGFONTA Describe();
    vREAL DeviceHeight();
    // Measures the text in a fresh font of the spec.
    int Measure(const vSTRING& text, TEXTMETRICA& metrics, SIZE& extent);
    // Selects the font into the device's context and measures with it.
    int Measure(HFONT font, const vSTRING& text, TEXTMETRICA& metrics, SIZE& extent);

    // Measuring borrows the device's context, which changes nothing that
    // the device's users can see, so a const device is measured too.
    vDEVICE* device;
    vINT ascent;
    vINT descent;
    vINT averageWidth;
};
