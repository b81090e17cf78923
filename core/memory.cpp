#include "base/memory.h"
#include "core/memory.h"

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

vNEWHANDLER newHandler = nullptr;

// Every thread counts its blocks and bytes in a record of its own with plain
// writes, for an interlocked update on each allocation costs as much again as
// the rest of the library's share. The live counts are the sum of all records
// and of what ended threads left; a block made by one thread and freed by
// another leaves one record above and one below, which the sum evens out.
struct COUNTS {
    volatile unsigned long blocks;
    volatile unsigned long bytes;
    volatile LONG taken;
    COUNTS* next;
};

// Records are never freed: a thread's end gives its counts to the totals of
// ended threads and its record to the next thread that allocates.
COUNTS* volatile records = nullptr;
volatile LONG endedBlocks = 0;
volatile LONG endedBytes = 0;

// Made on first use, so that an allocation from any library's start-up finds it.
DWORD CountsSlot()
{
    static const DWORD slot = TlsAlloc();
    return slot;
}

COUNTS* Recorded()
{
    DWORD slot = CountsSlot();
    return slot == TLS_OUT_OF_INDEXES ? nullptr : static_cast<COUNTS*>(TlsGetValue(slot));
}

COUNTS* Claim()
{
    for (COUNTS* record = records; record; record = record->next)
        if (!InterlockedCompareExchange(&record->taken, 1, 0))
            return record;
    return nullptr;
}

COUNTS* MakeRecord()
{
    COUNTS* record = static_cast<COUNTS*>(HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, sizeof(COUNTS)));
    if (!record)
        return nullptr;
    record->taken = 1;
    do
        record->next = records;
    while (InterlockedCompareExchangePointer(reinterpret_cast<void* volatile*>(&records), record, record->next) !=
           record->next);
    return record;
}

COUNTS* Adopt()
{
    if (CountsSlot() == TLS_OUT_OF_INDEXES)
        return nullptr;
    COUNTS* record = Claim();
    if (!record)
        record = MakeRecord();
    TlsSetValue(CountsSlot(), record);
    return record;
}

COUNTS* ThreadCounts()
{
    COUNTS* mine = Recorded();
    return mine ? mine : Adopt();
}

// Without a record of its own a thread counts in the shared totals.
void Count(long blocks, long bytes)
{
    COUNTS* mine = ThreadCounts();
    if (!mine) {
        InterlockedExchangeAdd(&endedBlocks, blocks);
        InterlockedExchangeAdd(&endedBytes, bytes);
        return;
    }
    mine->blocks += blocks;
    mine->bytes += bytes;
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
    Count(1, static_cast<long>(size));
    return header + 1;
}

void Retire(BlockHeader* header)
{
    header->mark = deadMark;
    Count(-1, -static_cast<long>(header->size));
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
    Count(0, static_cast<long>(size - oldSize));
    static_cast<BlockHeader*>(raw)->size = size;
    return static_cast<BlockHeader*>(raw) + 1;
}

// Taken while other threads count, the sum is as good as the moment allows.
unsigned long vMemLiveBlocks()
{
    unsigned long blocks = static_cast<unsigned long>(endedBlocks);
    for (COUNTS* record = records; record; record = record->next)
        blocks += record->blocks;
    return blocks;
}

unsigned long vMemLiveBytes()
{
    unsigned long bytes = static_cast<unsigned long>(endedBytes);
    for (COUNTS* record = records; record; record = record->next)
        bytes += record->bytes;
    return bytes;
}

void vMemThreadEnds()
{
    COUNTS* mine = Recorded();
    if (!mine)
        return;
    TlsSetValue(CountsSlot(), nullptr);
    InterlockedExchangeAdd(&endedBlocks, static_cast<LONG>(mine->blocks));
    InterlockedExchangeAdd(&endedBytes, static_cast<LONG>(mine->bytes));
    mine->blocks = 0;
    mine->bytes = 0;
    InterlockedExchange(&mine->taken, 0);
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
