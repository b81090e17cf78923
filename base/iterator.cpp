#include "base/iterator.h"

#include "base/link.h"

ITERATOR::ITERATOR() : index(0), link(nullptr) {}

void ITERATOR::Reset()
{
    index = 0;
    link = nullptr;
}

void ITERATOR::SetLink(fLINK* link)
{
    this->link = link;
}

fLINK* ITERATOR::GetLink() const
{
    return link;
}

// The count moves even without a link, so the iterator also serves as a counter.
void ITERATOR::Next()
{
    ++index;
    if (link)
        link = link->next;
}

void ITERATOR::Previous()
{
    --index;
    if (link)
        link = link->prev;
}

unsigned short ITERATOR::operator()() const
{
    return index;
}

int ITERATOR::operator==(const ITERATOR& other) const
{
    return index == other.index;
}
