#include "graphics/lineseg.h"

namespace {

// Every step of the scan-line arithmetic is cut to 16 bits.
short Narrow(long value)
{
    return static_cast<short>(value);
}

}  // namespace

LINESEG::LINESEG(const POINT& a, const POINT& b)
    : top(a.y >= b.y ? b : a), bottom(a.y >= b.y ? a : b), direction(a.y >= b.y),
      dy(Narrow(bottom.y - top.y)), dx(Narrow(bottom.x - top.x))
{
}

LINESEG::LINESEG() {}

POINT LINESEG::TopPoint() const
{
    return top;
}

POINT LINESEG::BottomPoint() const
{
    return bottom;
}

int LINESEG::Direction() const
{
    return direction;
}

int LINESEG::Intersect(short y) const
{
    return top.y <= y && bottom.y > y;
}

// Half the height is added before the truncating division, away from zero on
// the side the edge leans to, which rounds the offset to the nearest.
short LINESEG::CalcIntersect(short y) const
{
    if (dx == 0)
        return Narrow(top.x);
    short run = Narrow(dx * Narrow(y - top.y));
    short half = Narrow(dy / 2);
    short offset = Narrow(dx > 0 ? run + half : run - half);
    return Narrow(top.x + offset / dy);
}
