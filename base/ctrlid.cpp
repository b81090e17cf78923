#include "base/ctrlid.h"

#include "streams/stream.h"

vSTREAM& vCTRLID::operator>>(vSTREAM& stream) const
{
    stream.WriteUWord(id);
    return stream;
}

vSTREAM& vCTRLID::operator<<(vSTREAM& stream)
{
    id = stream.ReadUWord();
    return stream;
}
