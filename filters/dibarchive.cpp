#include "filters/dibarchive.h"

DIBARCHIVE::DIBARCHIVE() : vARCHIVETYPE(vSTRING("Nerin Bitmap Format"), vSTRING("DIB"), vSTRING("DIB"))
{
    vARCHIVECAT bitmap;
    bitmap.Bitmap();
    SetCategory(bitmap);
}
