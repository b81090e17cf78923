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

volatile LONG liveBlocks = 0;
volatile LONG liveBytes = 0;
vNEWHANDLER newHandler = nullptr;

HANDLE Heap()
{
    static HANDLE heap = GetProcessHeap();
    return heap;
}

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
    InterlockedIncrement(&liveBlocks);
    InterlockedExchangeAdd(&liveBytes, static_cast<LONG>(size));
    return header + 1;
}

void Retire(BlockHeader* header)
{
    header->mark = deadMark;
    InterlockedDecrement(&liveBlocks);
    InterlockedExchangeAdd(&liveBytes, -static_cast<LONG>(header->size));
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
    void* raw = HeapAlloc(Heap(), 0, sizeof(BlockHeader) + size);
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
    HeapFree(Heap(), 0, header);
}

void* vMemRealloc(void* block, unsigned long size)
{
    if (!block)
        return vMemAlloc(size);
    BlockHeader* header = HeaderOf(block);
    if (!IsLive(header) || TooLarge(size))
        return nullptr;
    unsigned long oldSize = header->size;
    void* raw = HeapReAlloc(Heap(), 0, header, sizeof(BlockHeader) + size);
    if (!raw)
        return nullptr;
    InterlockedExchangeAdd(&liveBytes, static_cast<LONG>(size) - static_cast<LONG>(oldSize));
    static_cast<BlockHeader*>(raw)->size = size;
    return static_cast<BlockHeader*>(raw) + 1;
}

unsigned long vMemLiveBlocks()
{
    return static_cast<unsigned long>(liveBlocks);
}

unsigned long vMemLiveBytes()
{
    return static_cast<unsigned long>(liveBytes);
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
