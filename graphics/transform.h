#pragma once

#include "base/point.h"

// A mapping of points through six fixed-point coefficients:
// x' = x f1 + y f2 + f3 and y' = x f4 + y f5 + f6, floored back to whole
// numbers. The plain transform has all six at 0 and maps every point to the
// origin; the derived classes set them.
class ZKCORE_API vTRANSFORM : public vOBJECT {
public:
    vTRANSFORM();
    vTRANSFORM(const vTRANSFORM& other);
    vTRANSFORM& operator=(const vTRANSFORM& other);
    virtual ~vTRANSFORM();

    vPOINT operator()(vPOINT point) const;

protected:
    vTRANSFORM(const vREAL& f1, const vREAL& f2, const vREAL& f3,
               const vREAL& f4, const vREAL& f5, const vREAL& f6);

    vREAL f1;
    vREAL f2;
    vREAL f3;
    vREAL f4;
    vREAL f5;
    vREAL f6;
};
