#pragma once

#include "base/int.h"
#include "graphics/colour.h"

// Whether a line is drawn at all.
enum vLINETYPE {
    vLINE_NONE = 0,
    vLINE_SOLID = 1
};

// How two segments of a line meet; the numbers are the platform's joins.
enum vCORNERTYPE {
    vCORNER_ROUND = 0,
    vCORNER_BEVEL = 1,
    vCORNER_MITRE = 2
};

// The run of dashes along a line; the numbers are the platform's pen styles,
// and the last takes its run from the six pattern bytes of the spec.
enum vDASHTYPE {
    vDASH_SOLID = 0,
    vDASH_DASH = 1,
    vDASH_DOT = 2,
    vDASH_DASHDOT = 3,
    vDASH_DASHDOTDOT = 4,
    vDASH_PATTERN = 5
};

// How a device draws lines: a plain value that the device turns into a pen.
class ZKCORE_API vLINESPEC : public vOBJECT {
public:
    // A null pattern means six zero bytes.
    vLINESPEC(vLINETYPE lineType, const vCOLOUR& colour, const vINT& width,
              vCORNERTYPE cornerType, vDASHTYPE dashType, const unsigned char* pattern);
    // A solid black hairline, then whatever the stream holds.
    explicit vLINESPEC(vSTREAM& stream);

    vLINETYPE LineType() const;
    vCOLOUR Colour() const;
    void Colour(const vCOLOUR& colour);
    vINT Width() const;
    void Width(const vINT& width);
    vCORNERTYPE CornerType() const;
    void CornerType(vCORNERTYPE cornerType);
    vDASHTYPE DashType() const;
    void DashType(vDASHTYPE dashType);
    // 0 for an index past the six bytes.
    unsigned char Pattern(unsigned short index) const;

    // The pattern is copied by assignment but left out of the comparison:
    // two specs that differ only in pattern are equal.
    int operator==(const vLINESPEC& other) const;
    int operator!=(const vLINESPEC& other) const;

    // The spec stands left of the arrow: >> writes its fields in order, the
    // pattern included, and << reads them. Both answer the stream.
    vSTREAM& operator>>(vSTREAM& stream) const;
    vSTREAM& operator<<(vSTREAM& stream);

private:
    static const unsigned short PatternLength = 6;

    vCOLOUR colour;
    vINT width;
    vLINETYPE lineType;
    vCORNERTYPE cornerType;
    vDASHTYPE dashType;
    unsigned char pattern[PatternLength];
};
