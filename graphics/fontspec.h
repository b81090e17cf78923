#pragma once

#include "base/real.h"
#include "base/string.h"

// The look of a typeface, as flags that combine: the edit line asks for bold
// with 2 when its parent's font has a weight of 700.
enum vFONTSTYLE {
    vFONT_NORMAL = 0,
    vFONT_ITALIC = 1,
    vFONT_BOLD = 2,
    vFONT_UNDERLINE = 4,
    vFONT_STRIKEOUT = 8
};

// Whether the size given to a font spec is in points or in pixels.
enum vFONT_HEIGHT {
    vFONT_POINTS = 0,
    vFONT_PIXELS = 1
};

// How text looks: a plain value that the device turns into a font. The size
// is held either as a point size or, when the point size is 0, as a height in
// pixels.
class ZKCORE_API vFONTSPEC : public vOBJECT {
public:
    // Callers pass 100 in the fifth place; no field keeps it.
    vFONTSPEC(const vSTRING& name, vFONTSTYLE style, const vINT& size,
              const vREAL& expansion, unsigned short, vFONT_HEIGHT heightMode,
              const vANGLE& angle);
    // No name, normal style, the platform's default size, no turn.
    vFONTSPEC();

    vSTRING Name() const;
    void Name(const vSTRING& name);
    vFONTSTYLE Style() const;
    void Style(vFONTSTYLE style);
    void Height(const vINT& height);
    void PointSize(const vINT& pointSize);
    vREAL Expansion() const;
    void Expansion(const vREAL& expansion);
    vANGLE Angle() const;
    void Angle(const vANGLE& angle);

    int Pixels() const;

    // The angle is left out: a turned font is the same font.
    int operator==(const vFONTSPEC& other) const;

protected:
    vSTRING name;
    vFONTSTYLE style;
    vINT pointSize;
    vINT height;
    vREAL expansion;
    vANGLE angle;
};
