#pragma once

#include "base/object.h"

// One node of a list: the neighbours either side and the object it carries,
// which it does not own.
class ZKCORE_API fLINK {
public:
    // Stores the three; the neighbours are not told.
    fLINK(const vOBJECT& object, fLINK* prev, fLINK* next);
    // A copy points at the same neighbours without being linked into them.
    fLINK(const fLINK& other);
    fLINK& operator=(const fLINK& other);
    // Joins the neighbours to each other. The list's head, tail and count are
    // the list's to fix: a link does not know its list.
    virtual ~fLINK();

    // 1 when the link carries this very object: identity, never equal content.
    int Compare(const vOBJECT& object) const;
    vOBJECT* Object() const;

private:
    friend class fLIST;
    friend class ITERATOR;

    fLINK* prev;
    fLINK* next;
    vOBJECT* object;
};
