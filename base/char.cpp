#include "base/char.h"

#include "streams/stream.h"

namespace {

int Between(unsigned char code, unsigned char low, unsigned char high)
{
    return code >= low && code <= high;
}

}  // namespace

vCHAR::vCHAR(unsigned short code) : character(static_cast<char>(code & 0xFF)) {}

vCHAR::vCHAR() : character(0) {}

char vCHAR::operator()() const
{
    return character;
}

vCHAR& vCHAR::Next()
{
    character = static_cast<char>(Code() + 1);
    return *this;
}

char vCHAR::Symbol(char& out) const
{
    out = character;
    return character;
}

int vCHAR::operator==(const vCHAR& other) const
{
    return character == other.character;
}

int vCHAR::operator!=(const vCHAR& other) const
{
    return character != other.character;
}

// Signed on purpose: a byte of 0x80 or above sorts below the letter A.
int vCHAR::operator<(const vCHAR& other) const
{
    return Signed() < other.Signed();
}

int vCHAR::operator<=(const vCHAR& other) const
{
    return Signed() <= other.Signed();
}

int vCHAR::operator>(const vCHAR& other) const
{
    return Signed() > other.Signed();
}

int vCHAR::operator>=(const vCHAR& other)
{
    return Signed() >= other.Signed();
}

// Plain ASCII, whatever the locale: a byte of 0x80 or above is none of these.
int vCHAR::IsCharAlphaA() const
{
    return IsCharUpperA() || IsCharLowerA();
}

int vCHAR::IsCharNumeric() const
{
    return Between(Code(), '0', '9');
}

int vCHAR::IsCharUpperA() const
{
    return Between(Code(), 'A', 'Z');
}

int vCHAR::IsCharLowerA() const
{
    return Between(Code(), 'a', 'z');
}

signed char vCHAR::Signed() const
{
    return static_cast<signed char>(character);
}

unsigned char vCHAR::Code() const
{
    return static_cast<unsigned char>(character);
}

vSTREAM& vCHAR::operator>>(vSTREAM& stream) const
{
    stream.WriteSByte(Signed());
    return stream;
}

vSTREAM& vCHAR::operator<<(vSTREAM& stream)
{
    character = static_cast<char>(stream.ReadSByte());
    return stream;
}
