#include "graphics/fillspec.h"

#include <initializer_list>

#include "streams/stream.h"

vFILLSPEC::vFILLSPEC(vFILLTYPE type, const vCOLOUR& from, const vCOLOUR& to,
                     const vANGLE& angle, vFILLMODE mode)
    : colourFrom(from), colourTo(to), angle(angle), type(type), mode(mode), special(0)
{
}

vFILLSPEC::vFILLSPEC(vSTREAM& stream)
    : vFILLSPEC(vFILL_HOLLOW, vCOLOUR(), vCOLOUR(), vANGLE(), vFILL_ALTERNATE)
{
    *this << stream;
}

vCOLOUR vFILLSPEC::Colour() const
{
    return ColourFrom();
}

void vFILLSPEC::Colour(const vCOLOUR& colour)
{
    ColourFrom(colour);
}

vCOLOUR vFILLSPEC::ColourFrom() const
{
    return colourFrom;
}

void vFILLSPEC::ColourFrom(const vCOLOUR& colour)
{
    colourFrom = colour;
}

vCOLOUR vFILLSPEC::ColourTo() const
{
    return colourTo;
}

void vFILLSPEC::ColourTo(const vCOLOUR& colour)
{
    colourTo = colour;
}

vFILLTYPE vFILLSPEC::Type() const
{
    return type;
}

void vFILLSPEC::Type(vFILLTYPE type)
{
    this->type = type;
}

vFILLMODE vFILLSPEC::Mode() const
{
    return mode;
}

void vFILLSPEC::Mode(vFILLMODE mode)
{
    this->mode = mode;
}

vANGLE vFILLSPEC::Angle() const
{
    return angle;
}

void vFILLSPEC::Angle(const vANGLE& angle)
{
    this->angle = angle;
}

int vFILLSPEC::Hatched() const
{
    return type >= vFILL_HATCH_HORIZONTAL && type <= vFILL_HATCH_DIAGCROSS;
}

int vFILLSPEC::GemBrush() const
{
    return type >= vFILL_GEM_FIRST && type <= vFILL_GEM_LAST;
}

// The left side alone decides: a special left side answers 0 even when the
// right side is the same object.
int vFILLSPEC::operator==(const vFILLSPEC& other) const
{
    if (special != 0)
        return 0;
    return colourFrom == other.colourFrom && colourTo == other.colourTo
        && type == other.type && angle == other.angle && mode == other.mode;
}

int vFILLSPEC::operator!=(const vFILLSPEC& other) const
{
    return !(*this == other);
}

vSTREAM& vFILLSPEC::operator>>(vSTREAM& stream) const
{
    colourFrom >> stream;
    colourTo >> stream;
    angle >> stream;
    for (long field : {long(type), long(mode), special})
        stream.WriteSLong(field);
    return stream;
}

vSTREAM& vFILLSPEC::operator<<(vSTREAM& stream)
{
    colourFrom << stream;
    colourTo << stream;
    angle << stream;
    type = static_cast<vFILLTYPE>(stream.ReadSLong());
    mode = static_cast<vFILLMODE>(stream.ReadSLong());
    special = stream.ReadSLong();
    return stream;
}
