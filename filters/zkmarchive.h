#pragma once

#include "filters/archivetype.h"

// The native metafile format, built into the system. It has no name.
class ZKSHELL_API ZKMARCHIVE : public vARCHIVETYPE {
public:
    ZKMARCHIVE();
};
