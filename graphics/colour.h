#pragma once

#include "base/object.h"

class vDEVICE;
class vSTREAM;

// A colour as the platform packs it: red in the low byte, then green, then
// blue. The native format and the tint travel with it; a fresh colour has
// format 0 and a full tint of 100 percent.
class ZKCORE_API vCOLOUR : public vOBJECT {
public:
    vCOLOUR(unsigned char red, unsigned char green, unsigned char blue);
    // The packed value as the platform gives it, and its native format.
    vCOLOUR(long rgb, int nativeFormat);
    // Black.
    vCOLOUR();

    unsigned char Red() const;
    unsigned char Green() const;
    unsigned char Blue() const;
    unsigned long PackedRGB() const;
    unsigned char GetNativeFormat() const;

    // All four fields, the tint and the spare word included.
    int operator==(const vCOLOUR& other) const;
    int operator!=(const vCOLOUR& other) const;
    int EqualsWithoutTint(const vCOLOUR& other) const;

    // The value stands left of the arrow: >> writes it to the stream and <<
    // reads it from there. Both answer the stream.
    vSTREAM& operator>>(vSTREAM& stream) const;
    vSTREAM& operator<<(vSTREAM& stream);


private:
    // The device hands the packed value straight to the platform.
    friend class vDEVICE;

    void Init(long rgb);
    unsigned long operator()() const;

    unsigned long rgb;
    unsigned char nativeFormat;
    unsigned char tint;
    unsigned short spare;
};
