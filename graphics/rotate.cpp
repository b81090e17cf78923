#include "graphics/rotate.h"

vROTATE::vROTATE(const vPOINT& origin, const vANGLE& angle)
    : vROTATE(origin, angle.Cos(), angle.Sin())
{
}

vROTATE::vROTATE(const vPOINT& origin, const vREAL& cosine, const vREAL& sine)
    : vTRANSFORM(cosine, -sine, origin.x * cosine + origin.y * sine,
                 sine, cosine, origin.y * cosine - origin.x * sine)
{
}

vROTATE::vROTATE(const vROTATE& other) = default;

vROTATE& vROTATE::operator=(const vROTATE& other) = default;
