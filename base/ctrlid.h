#pragma once

#include "base/object.h"

class vSTREAM;

// The identifier of a control or a command.
class ZKCORE_API vCTRLID : public vOBJECT {
public:
    vCTRLID(unsigned short id) : id(id) {}
    vCTRLID() : id(0) {}

    operator unsigned short() const { return id; }
    int operator==(const vCTRLID& other) const { return id == other.id; }

    // The value stands left of the arrow: >> writes it to the stream and <<
    // reads it from there. Both answer the stream.
    vSTREAM& operator>>(vSTREAM& stream) const;
    vSTREAM& operator<<(vSTREAM& stream);

private:
    unsigned short id;
};
