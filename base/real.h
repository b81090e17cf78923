#pragma once

#include "base/int.h"
// A signed fixed-point number in 16.16 form: the raw word over 65536. It is how
// coordinates are scaled without floating point.
class ZKCORE_API vREAL : public vOBJECT {
public:
    vREAL(const vINT& whole);
    vREAL(short whole);
    // A literal such as 0 or -1 is an int, which would otherwise be ambiguous
    // between the short, the double and the raw constructor. It means the
    // same whole number as the short form.
    vREAL(int whole);
    // Truncates towards zero; a value out of range keeps the low 32 bits.
    vREAL(double number);
    vREAL();

    vREAL& operator=(const vINT& whole);

    // The raw 16.16 word, not the whole part: use Floor or shift for that.
    long operator()() const;

    vREAL operator+(const vREAL& other) const;
    vREAL operator-(const vREAL& other) const;
    vREAL operator-() const;
    vREAL operator*(const vREAL& other) const;
    // A zero divisor is the caller's fault; it is answered with 0.
    vREAL operator/(const vREAL& other) const;

    int operator==(const vREAL& other) const;
    int operator!=(const vREAL& other) const;
    int operator<(const vREAL& other) const;
    int operator<=(const vREAL& other) const;
    int operator>(const vREAL& other) const;
    int operator>=(const vREAL& other) const;

    // The three roundings shift right arithmetically, which floors, so their
    // negative arms are not mirrors of the positive ones. Round of 0 is -1 and
    // Round of -1.0 is -2 on purpose: the drawing lands on those pixels.
    vINT Round() const;
    vINT Ceil() const;
    vINT Floor() const;

    // The value stands left of the arrow: >> writes it to the stream and <<
    // reads it from there. Both answer the stream.
    vSTREAM& operator>>(vSTREAM& stream) const;
    vSTREAM& operator<<(vSTREAM& stream);


private:
    friend class vINT;
    friend class vANGLE;

    // Stores the raw word. It stays private: in public it would be taken for
    // a whole number.
    vREAL(long raw);

    static vREAL Raw(long long raw);

    long value;
};

// An angle in degrees, in the same 16.16 form.
class ZKCORE_API vANGLE : public vREAL {
public:
    // Reduced by the remainder of a division by 360, which keeps the sign:
    // -390 becomes -30 and 360 becomes 0.
    vANGLE(short degrees);
    // Not reduced at all: 720.0 stays 720.0. The two constructors differ on
    // purpose, and AngleTest.ShortIsReducedKeepingTheSignAndDoubleIsNot pins
    // both.
    vANGLE(double degrees);
    vANGLE();

    vREAL Sin() const;
    vREAL Cos() const;

private:
    static vREAL SineOf(long long raw);
    static long QuarterSine(long raw);
};
