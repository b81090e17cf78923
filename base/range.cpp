#include "base/range.h"

#include "streams/stream.h"

vRANGE::vRANGE(const vREAL& low, const vREAL& high) : low(low), high(high) {}

vRANGE::vRANGE(const vINT& low, const vINT& high) : low(low), high(high) {}

vRANGE::vRANGE() = default;

vRANGE vRANGE::operator+(const vRANGE& other) const
{
    return vRANGE(low + other.low, high + other.high);
}

vRANGE vRANGE::operator-(const vRANGE& other) const
{
    return vRANGE(low - other.low, high - other.high);
}

vRANGE vRANGE::operator*(const vREAL& factor) const
{
    return vRANGE(low * factor, high * factor);
}

vRANGE vRANGE::operator/(const vREAL& divisor) const
{
    return vRANGE(low / divisor, high / divisor);
}

int vRANGE::operator==(const vRANGE& other) const
{
    return low == other.low && high == other.high;
}

int vRANGE::operator!=(const vRANGE& other) const
{
    return low != other.low || high != other.high;
}

int vRANGE::operator<(const vRANGE& other) const
{
    return low < other.low && high < other.high;
}

int vRANGE::operator<=(const vRANGE& other) const
{
    return low <= other.low && high <= other.high;
}

int vRANGE::operator>(const vRANGE& other) const
{
    return low > other.low && high > other.high;
}

int vRANGE::operator>=(const vRANGE& other) const
{
    return low >= other.low && high >= other.high;
}

vSTREAM& vRANGE::operator>>(vSTREAM& stream) const
{
    low >> stream;
    return high >> stream;
}

vSTREAM& vRANGE::operator<<(vSTREAM& stream)
{
    low << stream;
    return high << stream;
}
