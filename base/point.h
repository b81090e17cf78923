#pragma once

#include "base/real.h"

// A position in whatever units the holder works in. The orderings hold only
// when they hold for both components: dominance, not a total order.
class ZKCORE_API vPOINT : public vOBJECT {
public:
    vPOINT(const vINT& x, const vINT& y);
    vPOINT();

    vPOINT operator+(const vPOINT& other) const;
    vPOINT operator-(const vPOINT& other) const;
    // Each component is scaled through vREAL and floored back to a whole number.
    vPOINT operator*(const vREAL& factor) const;
    vPOINT operator/(const vREAL& divisor) const;

    int operator==(const vPOINT& other) const;
    int operator!=(const vPOINT& other) const;
    // (1, 5) and (5, 1) are neither less nor greater than one another.
    int operator<(const vPOINT& other) const;
    int operator<=(const vPOINT& other) const;
    int operator>(const vPOINT& other) const;
    int operator>=(const vPOINT& other) const;

    // x + y with no absolute values: a city-block length only for a difference
    // known to be positive. (-3, 3) answers 0.
    vINT ManDist() const;

    // The value stands left of the arrow: >> writes it to the stream and <<
    // reads it from there. Both answer the stream.
    vSTREAM& operator>>(vSTREAM& stream) const;
    vSTREAM& operator<<(vSTREAM& stream);


    vINT x;
    vINT y;
};

// An extent: x is the width and y the height.
class ZKCORE_API vSIZE : public vPOINT {
public:
    vSIZE(const vINT& width, const vINT& height);
    vSIZE();

    const vINT& Width() const;
    const vINT& Height() const;
};
