#include "graphics/transform.h"

vTRANSFORM::vTRANSFORM() = default;

vTRANSFORM::vTRANSFORM(const vREAL& f1, const vREAL& f2, const vREAL& f3,
                       const vREAL& f4, const vREAL& f5, const vREAL& f6)
    : f1(f1), f2(f2), f3(f3), f4(f4), f5(f5), f6(f6)
{
}

vTRANSFORM::vTRANSFORM(const vTRANSFORM& other) = default;

vTRANSFORM& vTRANSFORM::operator=(const vTRANSFORM& other) = default;

vTRANSFORM::~vTRANSFORM() = default;

// The products are whole numbers times fixed point, the sums fixed point, and
// each result floors back to a whole number.
vPOINT vTRANSFORM::operator()(vPOINT point) const
{
    return vPOINT(vINT(point.x * f1 + point.y * f2 + f3), vINT(point.x * f4 + point.y * f5 + f6));
}
