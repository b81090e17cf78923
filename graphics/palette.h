#pragma once

#include "base/export.h"

class vCOLOUR;

// A numbered set of colours, as a picture with palette lines refers to them.
// The store of the colours is the derived class's; the number of them is kept
// here.
class ZKCORE_API oPALETTE {
public:
    oPALETTE();
    oPALETTE(const oPALETTE& other);
    oPALETTE& operator=(const oPALETTE& other);

    // Each answers 0 for an index at or past the number of colours.
    virtual int SetColour(unsigned short index, const vCOLOUR& colour) = 0;
    virtual int GetColour(unsigned short index, vCOLOUR& colour) const = 0;
    // The entry nearest to the colour among the first `below` entries (and
    // the entries there are), by the sum of the squared differences.
    virtual unsigned short NearestColour(const vCOLOUR& colour, unsigned short below) const = 0;

    void SetNumColours(unsigned short count);
    unsigned short GetNumColours() const;

protected:
    // Deliberately not virtual: a palette is always deleted as what it is.
    ~oPALETTE() = default;

private:
    unsigned short colours;
};
