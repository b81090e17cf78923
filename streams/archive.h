#pragma once

#include "base/object.h"

// The root of everything that holds data: serial streams and storages of
// named elements. It asks whether the holder at hand is a stream.
class ZKCORE_API vARCHIVE : public vOBJECT {
public:
    virtual ~vARCHIVE();
    virtual int IsStream() const;
};
