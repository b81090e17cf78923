#pragma once

#include "base/object.h"

// The identifier of a control or a command.
class ZKCORE_API vCTRLID : public vOBJECT {
public:
    vCTRLID(unsigned short id) : id(id) {}
    vCTRLID() : id(0) {}

    operator unsigned short() const { return id; }
    int operator==(const vCTRLID& other) const { return id == other.id; }

private:
    unsigned short id;
};
