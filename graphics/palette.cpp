#include "graphics/palette.h"

oPALETTE::oPALETTE()
    : colours(0)
{
}

oPALETTE::oPALETTE(const oPALETTE& other)
    : colours(other.colours)
{
}

oPALETTE& oPALETTE::operator=(const oPALETTE& other)
{
    colours = other.colours;
    return *this;
}

void oPALETTE::SetNumColours(unsigned short count)
{
    colours = count;
}

unsigned short oPALETTE::GetNumColours() const
{
    return colours;
}
