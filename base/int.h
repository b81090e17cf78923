#pragma once

#include "base/object.h"

class vREAL;
class vSTREAM;

// A signed 32-bit whole number. Arithmetic wraps as the processor's does and
// division has no guard: a zero divisor is the caller's fault.
class ZKCORE_API vINT : public vOBJECT {
public:
    vINT(long value);
    // Takes the floor of the fixed-point value.
    vINT(const vREAL& real);
    vINT();

    long operator()() const;

    vINT operator-() const;
    int operator!() const;

    vINT operator+(const vINT& other) const;
    vINT operator-(const vINT& other) const;
    vINT operator*(const vINT& other) const;
    vINT operator/(const vINT& other) const;

    vINT operator<<(unsigned short bits) const;
    // Arithmetic: the sign fills in from the left.
    vINT operator>>(unsigned short bits) const;

    int operator==(const vINT& other) const;
    int operator!=(const vINT& other) const;
    int operator<(const vINT& other) const;
    int operator<=(const vINT& other) const;
    int operator>(const vINT& other) const;
    int operator>=(const vINT& other) const;

    vREAL operator*(const vREAL& real) const;
    // A zero divisor is the caller's fault; it is answered with 0.
    vREAL operator/(const vREAL& real) const;

    // The value stands left of the arrow: >> writes it to the stream and <<
    // reads it from there. Both answer the stream.
    vSTREAM& operator>>(vSTREAM& stream) const;
    vSTREAM& operator<<(vSTREAM& stream);


private:
    long value;
};
