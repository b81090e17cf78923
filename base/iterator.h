#pragma once

#include "base/export.h"

class fLINK;

// A cursor over a chain with a running count. The count goes on when the link
// has run out, so a walk may use it as a plain counter with a null link.
class ZKCORE_API ITERATOR {
public:
    ITERATOR();
    void Reset();

    void SetLink(fLINK* link);
    fLINK* GetLink() const;

    void Next();
    // At a count of 0 this wraps to 65535.
    void Previous();

    unsigned short operator()() const;
    // Compares the counts alone, whatever the links.
    int operator==(const ITERATOR& other) const;
    ITERATOR& operator=(const ITERATOR& other) = default;

private:
    unsigned short index;
    fLINK* link;
};
