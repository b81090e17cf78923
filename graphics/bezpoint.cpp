#include "graphics/bezpoint.h"

vBEZPOINT::vBEZPOINT(const vPOINT& point, unsigned char flags) : vPOINT(point), flags(flags) {}

int vBEZPOINT::First() const
{
    return Flag(vBEZ_FIRST);
}

void vBEZPOINT::First(int on)
{
    Flag(vBEZ_FIRST, on);
}

int vBEZPOINT::Last() const
{
    return Flag(vBEZ_LAST);
}

void vBEZPOINT::Last(int on)
{
    Flag(vBEZ_LAST, on);
}

int vBEZPOINT::LineTo() const
{
    return Flag(vBEZ_LINETO);
}

void vBEZPOINT::LineTo(int on)
{
    Flag(vBEZ_LINETO, on);
}

int vBEZPOINT::CurveTo() const
{
    return Flag(vBEZ_CURVETO);
}

void vBEZPOINT::CurveTo(int on)
{
    Flag(vBEZ_CURVETO, on);
}

int vBEZPOINT::Control() const
{
    return Flag(vBEZ_CONTROL);
}

void vBEZPOINT::Control(int on)
{
    Flag(vBEZ_CONTROL, on);
}

int vBEZPOINT::Flag(vBEZFLAG bit) const
{
    return flags & bit;
}

void vBEZPOINT::Flag(vBEZFLAG bit, int on)
{
    flags = static_cast<unsigned char>(on ? flags | bit : flags & ~bit);
}
