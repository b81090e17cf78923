#include "base/int.h"

#include "base/real.h"
#include "streams/stream.h"

namespace {

// Signed overflow is undefined in the language, so sums and products are
// formed unsigned and read back as signed: the processor's wrap-around.
long Wrap(unsigned long bits)
{
    return static_cast<long>(bits);
}

unsigned long Bits(long value)
{
    return static_cast<unsigned long>(value);
}

// The processor uses only the low five bits of a 32-bit shift count.
unsigned ShiftCount(unsigned short bits)
{
    return bits & 31u;
}

}  // namespace

vINT::vINT(long value) : value(value) {}

vINT::vINT(const vREAL& real) : vINT(real.Floor()) {}

vINT::vINT() : value(0) {}

long vINT::operator()() const
{
    return value;
}

vINT vINT::operator-() const
{
    return Wrap(0ul - Bits(value));
}

int vINT::operator!() const
{
    return value == 0;
}

vINT vINT::operator+(const vINT& other) const
{
    return Wrap(Bits(value) + Bits(other.value));
}

vINT vINT::operator-(const vINT& other) const
{
    return Wrap(Bits(value) - Bits(other.value));
}

vINT vINT::operator*(const vINT& other) const
{
    return Wrap(Bits(value) * Bits(other.value));
}

vINT vINT::operator/(const vINT& other) const
{
    return value / other.value;
}

vINT vINT::operator<<(unsigned short bits) const
{
    return Wrap(Bits(value) << ShiftCount(bits));
}

vINT vINT::operator>>(unsigned short bits) const
{
    return value >> ShiftCount(bits);
}

int vINT::operator==(const vINT& other) const
{
    return value == other.value;
}

int vINT::operator!=(const vINT& other) const
{
    return value != other.value;
}

int vINT::operator<(const vINT& other) const
{
    return value < other.value;
}

int vINT::operator<=(const vINT& other) const
{
    return value <= other.value;
}

int vINT::operator>(const vINT& other) const
{
    return value > other.value;
}

int vINT::operator>=(const vINT& other) const
{
    return value >= other.value;
}

// A whole number times a 16.16 number is already in 16.16 form.
vREAL vINT::operator*(const vREAL& real) const
{
    return vREAL::Raw(static_cast<long long>(value) * real());
}

// The whole number is raised to 32.32 so that the quotient comes out in 16.16.
vREAL vINT::operator/(const vREAL& real) const
{
    if (real() == 0)
        return vREAL();
    return vREAL::Raw(static_cast<long long>(value) * 65536 * 65536 / real());
}

vSTREAM& vINT::operator>>(vSTREAM& stream) const
{
    stream.WriteSLong(value);
    return stream;
}

vSTREAM& vINT::operator<<(vSTREAM& stream)
{
    value = stream.ReadSLong();
    return stream;
}
