#include "graphics/colour.h"

#include "streams/stream.h"

namespace {

const unsigned char FullTint = 100;

unsigned char ByteAt(unsigned long packed, int shift)
{
    return static_cast<unsigned char>(packed >> shift);
}

}  // namespace

vCOLOUR::vCOLOUR(unsigned char red, unsigned char green, unsigned char blue)
{
    Init(static_cast<long>(red | green << 8 | blue << 16));
}

vCOLOUR::vCOLOUR(long rgb, int nativeFormat)
{
    Init(rgb);
    this->nativeFormat = static_cast<unsigned char>(nativeFormat);
}

vCOLOUR::vCOLOUR()
{
    Init(0);
}

void vCOLOUR::Init(long rgb)
{
    this->rgb = static_cast<unsigned long>(rgb);
    nativeFormat = 0;
    tint = FullTint;
    spare = 0;
}

unsigned long vCOLOUR::operator()() const
{
    return PackedRGB();
}

unsigned char vCOLOUR::Red() const
{
    return ByteAt((*this)(), 0);
}

unsigned char vCOLOUR::Green() const
{
    return ByteAt((*this)(), 8);
}

unsigned char vCOLOUR::Blue() const
{
    return ByteAt((*this)(), 16);
}

unsigned long vCOLOUR::PackedRGB() const
{
    return rgb;
}

unsigned char vCOLOUR::GetNativeFormat() const
{
    return nativeFormat;
}

int vCOLOUR::operator==(const vCOLOUR& other) const
{
    return EqualsWithoutTint(other) && tint == other.tint;
}

int vCOLOUR::operator!=(const vCOLOUR& other) const
{
    return !(*this == other);
}

int vCOLOUR::EqualsWithoutTint(const vCOLOUR& other) const
{
    return rgb == other.rgb && nativeFormat == other.nativeFormat && spare == other.spare;
}

// Eight bytes: the packed value, the format, the tint and the spare word.
vSTREAM& vCOLOUR::operator>>(vSTREAM& stream) const
{
    stream.WriteULong(rgb);
    stream.WriteUByte(nativeFormat);
    stream.WriteUByte(tint);
    stream.WriteUWord(spare);
    return stream;
}

vSTREAM& vCOLOUR::operator<<(vSTREAM& stream)
{
    rgb = stream.ReadULong();
    nativeFormat = stream.ReadUByte();
    tint = stream.ReadUByte();
    spare = stream.ReadUWord();
    return stream;
}
