#pragma once

#include "filters/archivetype.h"

// The native bitmap format, built into the system.
class ZKSHELL_API DIBARCHIVE : public vARCHIVETYPE {
public:
    DIBARCHIVE();
};
