#pragma once

#include "base/export.h"

// The root of everything that can be stored or put on a list. It holds no
// data and has no virtual operations, so it costs a derived class nothing.
class ZKCORE_API vOBJECT {
public:
    vOBJECT() = default;
};
