#include "filters/archivecat.h"

namespace {

const unsigned short TextFlag = 1;
const unsigned short MetafileFlag = 2;
const unsigned short BitmapFlag = 4;
const unsigned short KindFlags = TextFlag | MetafileFlag | BitmapFlag;

}  // namespace

vARCHIVECAT::vARCHIVECAT() : flags(0)
{
}

void vARCHIVECAT::Text()
{
    flags |= TextFlag;
}

void vARCHIVECAT::Metafile()
{
    flags |= MetafileFlag;
}

void vARCHIVECAT::Bitmap()
{
    flags |= BitmapFlag;
}

int vARCHIVECAT::Has(unsigned short flag) const
{
    return (flags & flag) != 0;
}

int vARCHIVECAT::IsText() const
{
    return Has(TextFlag);
}

int vARCHIVECAT::IsMetafile() const
{
    return Has(MetafileFlag);
}

int vARCHIVECAT::IsBitmap() const
{
    return Has(BitmapFlag);
}

int vARCHIVECAT::IsPicture() const
{
    return Has(MetafileFlag | BitmapFlag);
}

int vARCHIVECAT::operator==(const vARCHIVECAT& other) const
{
    return (flags & KindFlags) == (other.flags & KindFlags);
}
