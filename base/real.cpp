#include "base/real.h"

#include <cmath>

#include "streams/stream.h"

namespace {

const long One = 0x10000;
const long Half = 0x8000;

// 90 and 360 degrees as raw words.
const long QuarterTurn = 90 * One;
const long FullTurn = 360 * One;

// sin(n degrees) in 16.16 for n from 0 to 90, exact at both ends.
const long SineTable[91] = {
    0, 1144, 2287, 3430, 4572, 5712, 6850, 7987,
    9121, 10252, 11380, 12505, 13626, 14742, 15855, 16962,
    18064, 19161, 20252, 21336, 22415, 23486, 24550, 25607,
    26656, 27697, 28729, 29753, 30767, 31772, 32768, 33754,
    34729, 35693, 36647, 37590, 38521, 39441, 40348, 41243,
    42126, 42995, 43852, 44695, 45525, 46341, 47143, 47930,
    48703, 49461, 50203, 50931, 51643, 52339, 53020, 53684,
    54332, 54963, 55578, 56175, 56756, 57319, 57865, 58393,
    58903, 59396, 59870, 60326, 60764, 61183, 61584, 61966,
    62328, 62672, 62997, 63303, 63589, 63856, 64104, 64332,
    64540, 64729, 64898, 65048, 65177, 65287, 65376, 65446,
    65496, 65526, 65536,
};

// The low 32 bits of a wider result, read as signed: the word wraps silently.
long LowWord(long long wide)
{
    return static_cast<long>(static_cast<unsigned long>(wide));
}

long ShiftUp(long whole)
{
    return LowWord(static_cast<long long>(whole) * One);
}

// An arithmetic shift, so it floors for either sign.
vINT WholePart(long long raw)
{
    return static_cast<long>(raw >> 16);
}

long FromDouble(double number)
{
    double product = std::trunc(number * 65536.0);
    return LowWord(static_cast<long long>(std::fmod(product, 4294967296.0)));
}

}  // namespace

vREAL::vREAL(const vINT& whole) : value(ShiftUp(whole())) {}

vREAL::vREAL(short whole) : value(ShiftUp(whole)) {}

vREAL::vREAL(int whole) : value(ShiftUp(whole)) {}

vREAL::vREAL(double number) : value(FromDouble(number)) {}

vREAL::vREAL() : value(0) {}

vREAL::vREAL(long raw) : value(raw) {}

vREAL vREAL::Raw(long long raw)
{
    return vREAL(LowWord(raw));
}

vREAL& vREAL::operator=(const vINT& whole)
{
    value = ShiftUp(whole());
    return *this;
}

long vREAL::operator()() const
{
    return value;
}

vREAL vREAL::operator+(const vREAL& other) const
{
    return Raw(static_cast<long long>(value) + other.value);
}

vREAL vREAL::operator-(const vREAL& other) const
{
    return Raw(static_cast<long long>(value) - other.value);
}

vREAL vREAL::operator-() const
{
    return Raw(-static_cast<long long>(value));
}

// The product of two 16.16 words is 32.32, so it comes back down by 16 bits.
vREAL vREAL::operator*(const vREAL& other) const
{
    return Raw(static_cast<long long>(value) * other.value >> 16);
}

// The dividend is raised by 16 bits first so that the quotient stays 16.16.
vREAL vREAL::operator/(const vREAL& other) const
{
    if (other.value == 0)
        return vREAL();
    return Raw(static_cast<long long>(value) * One / other.value);
}

int vREAL::operator==(const vREAL& other) const
{
    return value == other.value;
}

int vREAL::operator!=(const vREAL& other) const
{
    return value != other.value;
}

int vREAL::operator<(const vREAL& other) const
{
    return value < other.value;
}

int vREAL::operator<=(const vREAL& other) const
{
    return value <= other.value;
}

int vREAL::operator>(const vREAL& other) const
{
    return value > other.value;
}

int vREAL::operator>=(const vREAL& other) const
{
    return value >= other.value;
}

// Zero takes the negative arm, so its Round is -1.
vINT vREAL::Round() const
{
    long long raw = value;
    return WholePart(value > 0 ? raw + Half : raw - Half);
}

// A negative fraction goes down by a whole unit before the shift floors it
// once more, so -0.25 gives -2: intended, the drawing depends on it.
vINT vREAL::Ceil() const
{
    if ((value & 0xFFFF) == 0)
        return Floor();
    long long raw = value;
    return WholePart(value > 0 ? raw + One : raw - One);
}

vINT vREAL::Floor() const
{
    return WholePart(value);
}

vANGLE::vANGLE(short degrees) : vREAL(static_cast<short>(degrees % 360)) {}

vANGLE::vANGLE(double degrees) : vREAL(degrees) {}

vANGLE::vANGLE() = default;

vREAL vANGLE::Sin() const
{
    return SineOf((*this)());
}

vREAL vANGLE::Cos() const
{
    return SineOf(static_cast<long long>((*this)()) + QuarterTurn);
}

// Folds the angle into the first quarter, where the table lies: the second and
// fourth quarters read it backwards, the third and fourth negate it.
vREAL vANGLE::SineOf(long long raw)
{
    long turn = static_cast<long>((raw % FullTurn + FullTurn) % FullTurn);
    long quarter = turn / QuarterTurn;
    long within = turn % QuarterTurn;
    if (quarter % 2 == 1)
        within = QuarterTurn - within;
    long sine = QuarterSine(within);
    return vREAL(quarter < 2 ? sine : -sine);
}

// Interpolates between whole degrees. A whole degree is read straight from
// the table, which also keeps 90 degrees from reading past its end.
long vANGLE::QuarterSine(long raw)
{
    long degree = raw >> 16;
    long fraction = raw & 0xFFFF;
    if (fraction == 0)
        return SineTable[degree];
    long step = SineTable[degree + 1] - SineTable[degree];
    return SineTable[degree] + step * fraction / One;
}

// The raw 16.16 word, as it stands.
vSTREAM& vREAL::operator>>(vSTREAM& stream) const
{
    stream.WriteSLong(value);
    return stream;
}

vSTREAM& vREAL::operator<<(vSTREAM& stream)
{
    value = stream.ReadSLong();
    return stream;
}
