#include "base/point.h"

#include "streams/stream.h"

vPOINT::vPOINT(const vINT& x, const vINT& y) : x(x), y(y) {}

vPOINT::vPOINT() = default;

vPOINT vPOINT::operator+(const vPOINT& other) const
{
    return vPOINT(x + other.x, y + other.y);
}

vPOINT vPOINT::operator-(const vPOINT& other) const
{
    return vPOINT(x - other.x, y - other.y);
}

vPOINT vPOINT::operator*(const vREAL& factor) const
{
    return vPOINT(vINT(x * factor), vINT(y * factor));
}

vPOINT vPOINT::operator/(const vREAL& divisor) const
{
    return vPOINT(vINT(x / divisor), vINT(y / divisor));
}

int vPOINT::operator==(const vPOINT& other) const
{
    return x == other.x && y == other.y;
}

int vPOINT::operator!=(const vPOINT& other) const
{
    return x != other.x || y != other.y;
}

int vPOINT::operator<(const vPOINT& other) const
{
    return x < other.x && y < other.y;
}

int vPOINT::operator<=(const vPOINT& other) const
{
    return x <= other.x && y <= other.y;
}

int vPOINT::operator>(const vPOINT& other) const
{
    return x > other.x && y > other.y;
}

int vPOINT::operator>=(const vPOINT& other) const
{
    return x >= other.x && y >= other.y;
}

vINT vPOINT::ManDist() const
{
    return x + y;
}

vSIZE::vSIZE(const vINT& width, const vINT& height) : vPOINT(width, height) {}

vSIZE::vSIZE() = default;

const vINT& vSIZE::Width() const
{
    return x;
}

const vINT& vSIZE::Height() const
{
    return y;
}

vSTREAM& vPOINT::operator>>(vSTREAM& stream) const
{
    x >> stream;
    return y >> stream;
}

vSTREAM& vPOINT::operator<<(vSTREAM& stream)
{
    x << stream;
    return y << stream;
}
