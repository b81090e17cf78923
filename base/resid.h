#pragma once

#include <windows.h>

#include "base/object.h"

class vMODULE;
class vSTREAM;

// A resource number and the module in whose resources it is looked up.
class ZKCORE_API vRESID : public vOBJECT {
public:
    vRESID(unsigned short id, const vMODULE* module);
    // Number 0 in the base library's own resources.
    vRESID();

    int operator()() const;
    // Compares the numbers alone: the same number from two modules is equal.
    // The resource tables rely on that, so it stays.
    int operator==(const vRESID& other) const;

    // The module handle that every resource loader needs.
    HINSTANCE Instance() const;

    // The value stands left of the arrow: >> writes it to the stream and <<
    // reads it from there. Both answer the stream.
    vSTREAM& operator>>(vSTREAM& stream) const;
    vSTREAM& operator<<(vSTREAM& stream);


private:
    vRESID(unsigned short id, HINSTANCE instance);

    HINSTANCE instance;
    unsigned short id;
};
