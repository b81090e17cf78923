#include "graphics/fontspec.h"

namespace {

vINT SizeIn(vFONT_HEIGHT wanted, vFONT_HEIGHT given, const vINT& size)
{
    return wanted == given ? size : vINT(0);
}

}  // namespace

vFONTSPEC::vFONTSPEC(const vSTRING& name, vFONTSTYLE style, const vINT& size,
                     const vREAL& expansion, unsigned short, vFONT_HEIGHT heightMode,
                     const vANGLE& angle)
    : name(name), style(style), pointSize(SizeIn(vFONT_POINTS, heightMode, size)),
      height(SizeIn(vFONT_PIXELS, heightMode, size)), expansion(expansion), angle(angle)
{
}

vFONTSPEC::vFONTSPEC() : style(vFONT_NORMAL) {}

vSTRING vFONTSPEC::Name() const
{
    return name;
}

void vFONTSPEC::Name(const vSTRING& name)
{
    this->name = name;
}

vFONTSTYLE vFONTSPEC::Style() const
{
    return style;
}

void vFONTSPEC::Style(vFONTSTYLE style)
{
    this->style = style;
}

void vFONTSPEC::Height(const vINT& height)
{
    this->height = height;
}

void vFONTSPEC::PointSize(const vINT& pointSize)
{
    this->pointSize = pointSize;
}

vREAL vFONTSPEC::Expansion() const
{
    return expansion;
}

void vFONTSPEC::Expansion(const vREAL& expansion)
{
    this->expansion = expansion;
}

vANGLE vFONTSPEC::Angle() const
{
    return angle;
}

void vFONTSPEC::Angle(const vANGLE& angle)
{
    this->angle = angle;
}

int vFONTSPEC::Pixels() const
{
    return !pointSize;
}

int vFONTSPEC::operator==(const vFONTSPEC& other) const
{
    return name == other.name && style == other.style && pointSize == other.pointSize
        && height == other.height && expansion == other.expansion;
}
