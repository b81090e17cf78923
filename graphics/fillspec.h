#pragma once

#include "base/real.h"
#include "graphics/colour.h"

// What fills an area. The numbers group: 8 to 13 are the platform's six
// hatches, and 15 to 50 the thirty-six brushes of the GEM pattern set, of
// which only the ends are named.
enum vFILLTYPE {
    vFILL_HOLLOW = 0,
    vFILL_SOLID = 1,
    vFILL_GRADIENT_LINEAR = 2,
    vFILL_GRADIENT_RADIAL = 3,
    vFILL_HATCH_HORIZONTAL = 8,
    vFILL_HATCH_VERTICAL = 9,
    vFILL_HATCH_FDIAGONAL = 10,
    vFILL_HATCH_BDIAGONAL = 11,
    vFILL_HATCH_CROSS = 12,
    vFILL_HATCH_DIAGCROSS = 13,
    vFILL_GEM_FIRST = 15,
    vFILL_GEM_LAST = 50
};

// Which parts of a self-crossing outline are inside; the platform's numbers.
enum vFILLMODE {
    vFILL_ALTERNATE = 1,
    vFILL_WINDING = 2
};

// How a device fills areas: a plain value that the device turns into a brush.
// A gradient runs from the first colour to the second at the angle.
class ZKCORE_API vFILLSPEC : public vOBJECT {
public:
    vFILLSPEC(vFILLTYPE type, const vCOLOUR& from, const vCOLOUR& to,
              const vANGLE& angle, vFILLMODE mode);
    // A hollow black fill, then whatever the stream holds.
    explicit vFILLSPEC(vSTREAM& stream);

    // Colour and ColourFrom are one field under two names.
    vCOLOUR Colour() const;
    void Colour(const vCOLOUR& colour);
    vCOLOUR ColourFrom() const;
    void ColourFrom(const vCOLOUR& colour);
    vCOLOUR ColourTo() const;
    void ColourTo(const vCOLOUR& colour);

    vFILLTYPE Type() const;
    void Type(vFILLTYPE type);
    vFILLMODE Mode() const;
    void Mode(vFILLMODE mode);
    vANGLE Angle() const;
    void Angle(const vANGLE& angle);

    int Hatched() const;
    int GemBrush() const;

    // A spec marked special equals nothing, not even itself.
    int operator==(const vFILLSPEC& other) const;
    int operator!=(const vFILLSPEC& other) const;

    // The spec stands left of the arrow: >> writes its fields in order and <<
    // reads them; the special word travels too, so a round trip keeps it.
    // Both answer the stream.
    vSTREAM& operator>>(vSTREAM& stream) const;
    vSTREAM& operator<<(vSTREAM& stream);

private:
    vCOLOUR colourFrom;
    vCOLOUR colourTo;
    vANGLE angle;
    vFILLTYPE type;
    vFILLMODE mode;
    long special;
};
