#include "graphics/scale.h"

vSCALE::vSCALE(const vPOINT& origin, const vREAL& sx, const vREAL& sy)
    : vTRANSFORM(sx, 0, origin.x * sx, 0, sy, origin.y * sy)
{
}

vSCALE::vSCALE(const vSCALE& other) = default;

vSCALE& vSCALE::operator=(const vSCALE& other) = default;
