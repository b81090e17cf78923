#include "base/memory.h"

#include <windows.h>

// Each block carries a small header in front of what the caller sees: its size,
// for the byte count, and a mark that tells our blocks from anything else, so
// that a double free or a foreign pointer is refused instead of corrupting the heap.
namespace {

struct BlockHeader {
    unsigned long size;
    unsigned long mark;
};

const unsigned long liveMark = 0x5A4B4D42;
const unsigned long deadMark = 0x44454144;

// Both counts in one word, blocks above and bytes below, so that each
// allocation and each free costs one interlocked update. Live bytes cannot
// pass 32 bits in a 32-bit process, so the halves never run into each other.
volatile LONGLONG liveCounts = 0;
const LONGLONG oneBlock = 1LL << 32;
vNEWHANDLER newHandler = nullptr;

void Count(LONGLONG change)
{
    InterlockedExchangeAdd64(&liveCounts, change);
}

// The process heap, fetched once when the library loads.
const HANDLE heap = GetProcessHeap();

BlockHeader* HeaderOf(void* block)
{
    return static_cast<BlockHeader*>(block) - 1;
}

bool IsLive(const BlockHeader* header)
{
    return header->mark == liveMark;
}

void* Publish(BlockHeader* header, unsigned long size)
{
    header->size = size;
    header->mark = liveMark;
    Count(oneBlock + static_cast<LONGLONG>(size));
    return header + 1;
}

void Retire(BlockHeader* header)
{
    header->mark = deadMark;
    Count(-oneBlock - static_cast<LONGLONG>(header->size));
}

bool TooLarge(unsigned long size)
{
    return size > 0x7FFFFFFFUL - sizeof(BlockHeader);
}

}  // namespace

void* vMemAlloc(unsigned long size)
{
    if (TooLarge(size))
        return nullptr;
    void* raw = HeapAlloc(heap, 0, sizeof(BlockHeader) + size);
    return raw ? Publish(static_cast<BlockHeader*>(raw), size) : nullptr;
}

void vMemFree(void* block)
{
    if (!block)
        return;
    BlockHeader* header = HeaderOf(block);
    if (!IsLive(header))
        return;
    Retire(header);
    HeapFree(heap, 0, header);
}

void* vMemRealloc(void* block, unsigned long size)
{
    if (!block)
        return vMemAlloc(size);
    BlockHeader* header = HeaderOf(block);
    if (!IsLive(header) || TooLarge(size))
        return nullptr;
    unsigned long oldSize = header->size;
    void* raw = HeapReAlloc(heap, 0, header, sizeof(BlockHeader) + size);
    if (!raw)
        return nullptr;
    Count(static_cast<LONGLONG>(size) - static_cast<LONGLONG>(oldSize));
    static_cast<BlockHeader*>(raw)->size = size;
    return static_cast<BlockHeader*>(raw) + 1;
}

// A 64-bit read is not one access on this processor; an interlocked read is.
LONGLONG LiveCounts()
{
    return InterlockedCompareExchange64(&liveCounts, 0, 0);
}

unsigned long vMemLiveBlocks()
{
    return static_cast<unsigned long>(LiveCounts() >> 32);
}

unsigned long vMemLiveBytes()
{
    return static_cast<unsigned long>(LiveCounts() & 0xFFFFFFFF);
}

vNEWHANDLER vMemSetNewHandler(vNEWHANDLER handler)
{
    vNEWHANDLER previous = newHandler;
    newHandler = handler;
    return previous;
}

void* vMemNew(unsigned long size)
{
    for (;;) {
        void* block = vMemAlloc(size);
        if (block)
            return block;
        if (!newHandler || !newHandler(size))
            return nullptr;
    }
}
