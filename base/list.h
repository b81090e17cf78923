#pragma once

#include "base/link.h"

// The one container: a doubly linked chain of objects known by address. It
// never owns what it carries. A walk starts from Next(nullptr), goes on until
// null and takes each object with fLINK::Object.
class ZKCORE_API fLIST : public vOBJECT {
public:
    fLIST();

    // Each answers non-zero on success and 0 when no link could be had.
    int Append(const vOBJECT& object);
    int Prepend(const vOBJECT& object);
    // Takes out the first link carrying the object; the object lives on.
    int Remove(const vOBJECT& object);
    int Search(const vOBJECT& object) const;

    vOBJECT* First() const;
    vOBJECT* Last() const;
    int IsEmpty() const;
    unsigned short NoItems() const;

    // From null, the head; from a link, the one after it.
    fLINK* Next(const fLINK* link) const;
    // From null, the tail; from a link, the one before it.
    fLINK* Prev(const fLINK* link) const;

    // A copy shares the chain with its source, and both believe they own it:
    // copy only for a short-lived reading view, and let at most one of the
    // two die while the chain is filled.
    fLIST(const fLIST& other);
    fLIST& operator=(const fLIST& other);
    // Frees the links that remain and leaves the objects alone.
    virtual ~fLIST();

private:
    friend class fQUEUE;
    friend class fSTACK;

    // Take the head and the tail off; null on an empty list.
    vOBJECT* Pop();
    vOBJECT* Pull();

    fLINK* Find(const vOBJECT& object) const;
    vOBJECT* Unlink(fLINK* link);

    fLINK* head;
    fLINK* tail;
    unsigned short count;
};

// First in, first out: items enter at the head and leave at the tail.
class ZKCORE_API fQUEUE : private fLIST {
public:
    fQUEUE();
    fQUEUE(const fQUEUE& other);
    fQUEUE& operator=(const fQUEUE& other);
    virtual ~fQUEUE();

    int Push(const vOBJECT& object);
    // The oldest item.
    vOBJECT* Pull();
    // The newest item.
    vOBJECT* Top() const;
    // The oldest item, the one Pull gives next.
    vOBJECT* Bottom() const;

    using fLIST::IsEmpty;
    using fLIST::NoItems;
    using fLIST::Remove;
    using fLIST::Next;
};

// Last in, first out.
class ZKCORE_API fSTACK : private fLIST {
public:
    fSTACK();
    fSTACK(const fSTACK& other);
    virtual ~fSTACK();

    int Push(const vOBJECT& object);
    vOBJECT* Pop();
    vOBJECT* Top() const;

    using fLIST::IsEmpty;
    using fLIST::NoItems;
    using fLIST::Next;

    // Answers a copy, as the device state stacks expect. The copy shares the
    // chain like every list copy, so the answer must not die while the chain
    // is filled: assign empty stacks, or keep the answer alive.
    fSTACK operator=(fSTACK& other);
};
