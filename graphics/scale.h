#pragma once

#include "graphics/transform.h"

// Scales by sx across and sy down. The origin is scaled and added rather than
// held still: (x, y) goes to (sx (x + origin.x), sy (y + origin.y)). That is
// the mapping as it stands, with no (1 - s) factor, and it is kept.
class ZKCORE_API vSCALE : public vTRANSFORM {
public:
    vSCALE(const vPOINT& origin, const vREAL& sx, const vREAL& sy);
    vSCALE(const vSCALE& other);
    vSCALE& operator=(const vSCALE& other);
};
