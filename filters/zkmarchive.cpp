#include "filters/zkmarchive.h"

ZKMARCHIVE::ZKMARCHIVE() : vARCHIVETYPE(vSTRING("QXF"), vSTRING("QXF"), vSTRING())
{
    vARCHIVECAT metafile;
    metafile.Metafile();
    SetCategory(metafile);
}
