#include "base/list.h"

fLIST::fLIST() : head(nullptr), tail(nullptr), count(0) {}

// The library's allocator answers null instead of throwing, and new is
// checked, so a failed allocation shows as a null link.
int fLIST::Append(const vOBJECT& object)
{
    fLINK* link = new fLINK(object, tail, nullptr);
    if (!link)
        return 0;
    if (tail)
        tail->next = link;
    else
        head = link;
    tail = link;
    ++count;
    return 1;
}

int fLIST::Prepend(const vOBJECT& object)
{
    fLINK* link = new fLINK(object, nullptr, head);
    if (!link)
        return 0;
    if (head)
        head->prev = link;
    else
        tail = link;
    head = link;
    ++count;
    return 1;
}

int fLIST::Remove(const vOBJECT& object)
{
    fLINK* link = Find(object);
    if (!link)
        return 0;
    Unlink(link);
    return 1;
}

int fLIST::Search(const vOBJECT& object) const
{
    return Find(object) != nullptr;
}

vOBJECT* fLIST::First() const
{
    return head ? head->object : nullptr;
}

vOBJECT* fLIST::Last() const
{
    return tail ? tail->object : nullptr;
}

int fLIST::IsEmpty() const
{
    return head == nullptr;
}

unsigned short fLIST::NoItems() const
{
    return count;
}

fLINK* fLIST::Next(const fLINK* link) const
{
    return link ? link->next : head;
}

fLINK* fLIST::Prev(const fLINK* link) const
{
    return link ? link->prev : tail;
}

fLIST::fLIST(const fLIST& other) = default;

fLIST& fLIST::operator=(const fLIST& other) = default;

fLIST::~fLIST()
{
    while (head)
        Unlink(head);
}

vOBJECT* fLIST::Pop()
{
    return head ? Unlink(head) : nullptr;
}

vOBJECT* fLIST::Pull()
{
    return tail ? Unlink(tail) : nullptr;
}

fLINK* fLIST::Find(const vOBJECT& object) const
{
    for (fLINK* link = head; link; link = link->next) {
        if (link->Compare(object))
            return link;
    }
    return nullptr;
}

// The link joins its neighbours as it dies; the ends and the count are ours.
vOBJECT* fLIST::Unlink(fLINK* link)
{
    vOBJECT* object = link->object;
    if (link == head)
        head = link->next;
    if (link == tail)
        tail = link->prev;
    delete link;
    --count;
    return object;
}

fQUEUE::fQUEUE() = default;

fQUEUE::fQUEUE(const fQUEUE& other) = default;

fQUEUE& fQUEUE::operator=(const fQUEUE& other) = default;

fQUEUE::~fQUEUE() = default;

int fQUEUE::Push(const vOBJECT& object)
{
    return Prepend(object);
}

vOBJECT* fQUEUE::Pull()
{
    return fLIST::Pull();
}

vOBJECT* fQUEUE::Top() const
{
    return First();
}

vOBJECT* fQUEUE::Bottom() const
{
    return Last();
}

fSTACK::fSTACK() = default;

fSTACK::fSTACK(const fSTACK& other) = default;

fSTACK::~fSTACK() = default;

int fSTACK::Push(const vOBJECT& object)
{
    return Prepend(object);
}

vOBJECT* fSTACK::Pop()
{
    return fLIST::Pop();
}

vOBJECT* fSTACK::Top() const
{
    return First();
}

fSTACK fSTACK::operator=(fSTACK& other)
{
    fLIST::operator=(other);
    return *this;
}
