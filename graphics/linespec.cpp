#include "graphics/linespec.h"

#include <algorithm>
#include <initializer_list>

#include "streams/stream.h"

vLINESPEC::vLINESPEC(vLINETYPE lineType, const vCOLOUR& colour, const vINT& width,
                     vCORNERTYPE cornerType, vDASHTYPE dashType, const unsigned char* pattern)
    : colour(colour), width(width), lineType(lineType), cornerType(cornerType),
      dashType(dashType), pattern()
{
    if (pattern)
        std::copy(pattern, pattern + PatternLength, this->pattern);
}

vLINESPEC::vLINESPEC(vSTREAM& stream)
    : vLINESPEC(vLINE_SOLID, vCOLOUR(), vINT(), vCORNER_ROUND, vDASH_SOLID, nullptr)
{
    *this << stream;
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

vSTREAM& vLINESPEC::operator>>(vSTREAM& stream) const
{
    colour >> stream;
    width >> stream;
    for (long field : {long(lineType), long(cornerType), long(dashType)})
        stream.WriteSLong(field);
    for (unsigned char byte : pattern)
        stream.WriteUByte(byte);
    return stream;
}

vSTREAM& vLINESPEC::operator<<(vSTREAM& stream)
{
    colour << stream;
    width << stream;
    lineType = static_cast<vLINETYPE>(stream.ReadSLong());
    cornerType = static_cast<vCORNERTYPE>(stream.ReadSLong());
    dashType = static_cast<vDASHTYPE>(stream.ReadSLong());
    for (unsigned char& byte : pattern)
        byte = stream.ReadUByte();
    return stream;
}
