#pragma once

#include "base/point.h"

// The flags of a path point, to be combined: the tab label opens its outline
// with vBEZ_FIRST | vBEZ_LINETO (9) and closes it with vBEZ_LAST | vBEZ_LINETO (10).
enum vBEZFLAG {
    vBEZ_FIRST = 1,
    vBEZ_LAST = 2,
    vBEZ_LINETO = 8,
    vBEZ_CURVETO = 16,
    vBEZ_CONTROL = 32
};

// One point of a shape's path, with flags that tell the device how the path
// reaches it: a straight segment, the end of a Bézier segment whose two
// control points come just before it, or one of those control points; and
// whether it opens or closes a contour.
class ZKCORE_API vBEZPOINT : public vPOINT {
public:
    vBEZPOINT(const vPOINT& point, unsigned char flags);

    // Each getter answers its bit as it stands in the flags, so a set LineTo
    // reads as 8, not 1. Each setter sets the bit for a non-zero argument.
    int First() const;
    void First(int on);
    int Last() const;
    void Last(int on);
    int LineTo() const;
    void LineTo(int on);
    int CurveTo() const;
    void CurveTo(int on);
    int Control() const;
    void Control(int on);

private:
    int Flag(vBEZFLAG bit) const;
    void Flag(vBEZFLAG bit, int on);

    unsigned char flags;
};
