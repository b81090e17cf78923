#pragma once

#include "base/real.h"

// The low and high ends of a scroll range. It has no accessors: the scroll
// bar reads the ends as its friend.
class ZKCORE_API vRANGE : public vOBJECT {
public:
    vRANGE(const vREAL& low, const vREAL& high);
    vRANGE(const vINT& low, const vINT& high);
    vRANGE();

    vRANGE operator+(const vRANGE& other) const;
    vRANGE operator-(const vRANGE& other) const;
    vRANGE operator*(const vREAL& factor) const;
    vRANGE operator/(const vREAL& divisor) const;

    // As for points: an ordering holds only when it holds for both ends.
    int operator==(const vRANGE& other) const;
    int operator!=(const vRANGE& other) const;
    int operator<(const vRANGE& other) const;
    int operator<=(const vRANGE& other) const;
    int operator>(const vRANGE& other) const;
    int operator>=(const vRANGE& other) const;

    // The value stands left of the arrow: >> writes it to the stream and <<
    // reads it from there. Both answer the stream.
    vSTREAM& operator>>(vSTREAM& stream) const;
    vSTREAM& operator<<(vSTREAM& stream);


private:
    friend class vSCROLLBAR;

    vREAL low;
    vREAL high;
};
