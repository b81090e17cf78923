#include "base/link.h"

fLINK::fLINK(const vOBJECT& object, fLINK* prev, fLINK* next)
    : prev(prev), next(next), object(const_cast<vOBJECT*>(&object))
{
}

fLINK::fLINK(const fLINK& other) = default;

fLINK& fLINK::operator=(const fLINK& other) = default;

fLINK::~fLINK()
{
    if (next)
        next->prev = prev;
    if (prev)
        prev->next = next;
    prev = nullptr;
    next = nullptr;
}

int fLINK::Compare(const vOBJECT& object) const
{
    return this->object == &object;
}

vOBJECT* fLINK::Object() const
{
    return object;
}
