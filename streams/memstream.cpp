#include "streams/memstream.h"

#include <cstring>

#include "base/memory.h"

// The one copy of the primitives that every caller uses.
template class vSTREAMPRIMITIVES<vMEMSTREAM>;

namespace {

// What a fresh stream allocates before its first write.
const unsigned long FirstCapacity = 10;

}  // namespace

vMEMSTREAM::vMEMSTREAM() : vMEMSTREAM(vSTRING(), 0)
{
}

vMEMSTREAM::vMEMSTREAM(const vSTRING& name, unsigned long mode)
    : vSTREAMPRIMITIVES(name, mode),
      data(static_cast<unsigned char*>(vMemAlloc(FirstCapacity))),
      position(0),
      size(0),
      capacity(data ? FirstCapacity : 0),
      delegate(nullptr),
      handle(nullptr),
      owner(1)
{
}

vMEMSTREAM::vMEMSTREAM(unsigned char** block, unsigned long size, const vSTRING& name, int owner,
                       unsigned long mode)
    : vSTREAMPRIMITIVES(name, mode),
      data(block ? *block : nullptr),
      position(0),
      size(data ? size : 0),
      capacity(this->size),
      delegate(nullptr),
      handle(block),
      owner(owner)
{
}

// The block has one owner; a view that freed or moved it would pull it from
// under the other.
vMEMSTREAM::vMEMSTREAM(const vMEMSTREAM& other)
    : vSTREAMPRIMITIVES(other),
      data(other.data),
      position(other.position),
      size(other.size),
      capacity(other.capacity),
      delegate(nullptr),
      handle(other.handle),
      owner(0)
{
}

vMEMSTREAM::~vMEMSTREAM()
{
    Release();
}

vMEMSTREAM& vMEMSTREAM::operator=(vMEMSTREAM& other)
{
    if (this == &other)
        return *this;
    Release();
    data = other.data;
    position = 0;
    capacity = 0;
    handle = nullptr;
    owner = 0;
    return *this;
}

void vMEMSTREAM::Release()
{
    if (!owner || !data)
        return;
    vMemFree(data);
    data = nullptr;
    if (handle)
        *handle = nullptr;
}

int vMEMSTREAM::Get(void* out, unsigned long width)
{
    if (position > size || size - position < width) {
        status = vSTREAM_END;
        return 0;
    }
    std::memcpy(out, data + position, width);
    position += width;
    return 1;
}

long vMEMSTREAM::ReadByteString(unsigned char* buffer, unsigned long count)
{
    if (delegate)
        return delegate->ReadByteString(buffer, count);
    if (!buffer)
        return 0;
    unsigned long available = position < size ? size - position : 0;
    unsigned long taken = count < available ? count : available;
    if (taken)
        std::memcpy(buffer, data + position, taken);
    position += taken;
    if (taken < count)
        status = vSTREAM_END;
    return static_cast<long>(taken);
}

// Grows the block by doubling, so that a run of small writes costs few moves.
int vMEMSTREAM::Reserve(unsigned long needed)
{
    if (needed <= capacity)
        return 1;
    if (!owner || capacity == 0)
        return 0;
    unsigned long grown = capacity;
    while (grown < needed)
        grown = grown > ~0UL / 2 ? needed : grown * 2;
    void* moved = vMemRealloc(data, grown);
    if (!moved)
        return 0;
    data = static_cast<unsigned char*>(moved);
    capacity = grown;
    if (handle)
        *handle = data;
    return 1;
}

// A write beyond the end, after a move there, fills the gap with zeros.
unsigned long vMEMSTREAM::Put(const void* in, unsigned long width)
{
    if (width > ~0UL - position || !Reserve(position + width)) {
        status = vSTREAM_WRITEFAIL;
        return 0;
    }
    if (position > size)
        std::memset(data + size, 0, position - size);
    std::memcpy(data + position, in, width);
    position += width;
    if (position > size)
        size = position;
    return width;
}

// Taken as unsigned, a move to before the start lands beyond the end, so
// it too stops at the end.
unsigned long vMEMSTREAM::MoveTo(unsigned long target)
{
    position = target;
    if (position > size) {
        position = size;
        status = vSTREAM_END;
    }
    return position;
}

unsigned long vMEMSTREAM::MoveFromCur(long distance)
{
    if (delegate)
        return delegate->MoveFromCur(distance);
    return MoveTo(position + static_cast<unsigned long>(distance));
}

// The end is cleared before the delegate is asked, on purpose: a new start
// is a new chance for this stream whoever serves it.
unsigned long vMEMSTREAM::MoveFromStart(unsigned long target)
{
    if (status == vSTREAM_END)
        status = vSTREAM_GOOD;
    if (delegate)
        return delegate->MoveFromStart(target);
    return MoveTo(target);
}

unsigned long vMEMSTREAM::MoveFromEnd(long distance)
{
    if (delegate)
        return delegate->MoveFromEnd(distance);
    position = size - static_cast<unsigned long>(distance);
    return position;
}

unsigned long vMEMSTREAM::CurrentPos() const
{
    return delegate ? delegate->CurrentPos() : position;
}

unsigned long vMEMSTREAM::Size() const
{
    return delegate ? delegate->Size() : size;
}

int vMEMSTREAM::AtEnd() const
{
    return delegate ? delegate->AtEnd() : position >= size;
}
