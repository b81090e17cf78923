#pragma once

#include <windows.h>

#include "base/export.h"

// One edge of a polygon for scan-line filling, held top end first. An edge
// owns its top scan line and not its bottom one, so two edges that meet at a
// vertex do not both count it. Lengths and positions are 16 bits.
class ZKCORE_API LINESEG {
public:
    // Orders the ends by y; direction is 1 when the edge was given bottom end
    // first, level edges included.
    LINESEG(const POINT& a, const POINT& b);
    // Leaves every field as it is: a table of edges is filled in afterwards.
    LINESEG();

    POINT TopPoint() const;
    POINT BottomPoint() const;
    int Direction() const;

    int Intersect(short y) const;
    // The x of the edge on scan line y, rounded to the nearest. Only for a
    // line on which Intersect holds; a level edge would divide by zero.
    short CalcIntersect(short y) const;

private:
    POINT top;
    POINT bottom;
    int direction;
    short dy;
    short dx;
};
