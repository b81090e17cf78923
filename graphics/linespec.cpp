#include "graphics/linespec.h"

#include <algorithm>

vLINESPEC::vLINESPEC(vLINETYPE lineType, const vCOLOUR& colour, const vINT& width,
                     vCORNERTYPE cornerType, vDASHTYPE dashType, const unsigned char* pattern)
    : colour(colour), width(width), lineType(lineType), cornerType(cornerType),
      dashType(dashType), pattern()
{
    if (pattern)
        std::copy(pattern, pattern + PatternLength, this->pattern);
}

vLINETYPE vLINESPEC::LineType() const
{
    return lineType;
}

vCOLOUR vLINESPEC::Colour() const
{
    return colour;
}

void vLINESPEC::Colour(const vCOLOUR& colour)
{
    this->colour = colour;
}

vINT vLINESPEC::Width() const
{
    return width;
}

void vLINESPEC::Width(const vINT& width)
{
    this->width = width;
}

vCORNERTYPE vLINESPEC::CornerType() const
{
    return cornerType;
}

void vLINESPEC::CornerType(vCORNERTYPE cornerType)
{
    this->cornerType = cornerType;
}

vDASHTYPE vLINESPEC::DashType() const
{
    return dashType;
}

void vLINESPEC::DashType(vDASHTYPE dashType)
{
    this->dashType = dashType;
}

unsigned char vLINESPEC::Pattern(unsigned short index) const
{
    return index < PatternLength ? pattern[index] : 0;
}

int vLINESPEC::operator==(const vLINESPEC& other) const
{
    return colour == other.colour && width == other.width && lineType == other.lineType
        && cornerType == other.cornerType && dashType == other.dashType;
}

int vLINESPEC::operator!=(const vLINESPEC& other) const
{
    return !(*this == other);
}
