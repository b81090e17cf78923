#include <vector>

#include "base/memory.h"
#include "bench/bench.h"

namespace {

const unsigned long pairs = 1000000;
const unsigned long batch = 1000;

// One block at a time, as short-lived objects come and go.
void AllocateAndFreeEach()
{
    HANDLE heap = GetProcessHeap();
    zkbench::Record("memory.pair", "HeapAlloc+HeapFree", zkbench::Compare([] {
        for (unsigned long n = 0; n < pairs; ++n)
            vMemFree(vMemAlloc(32 + (n & 31)));
    }, [heap] {
        for (unsigned long n = 0; n < pairs; ++n)
            HeapFree(heap, 0, HeapAlloc(heap, 0, 32 + (n & 31)));
    }, pairs));
}

// A thousand blocks alive at once, freed in the order they were made.
void AllocateBatches()
{
    HANDLE heap = GetProcessHeap();
    std::vector<void*> blocks(batch);
    const unsigned long rounds = pairs / batch;
    zkbench::Record("memory.batch", "HeapAlloc+HeapFree", zkbench::Compare([&] {
        for (unsigned long round = 0; round < rounds; ++round) {
            for (unsigned long n = 0; n < batch; ++n)
                blocks[n] = vMemAlloc(16 + (n & 63));
            for (void* block : blocks)
                vMemFree(block);
        }
    }, [&] {
        for (unsigned long round = 0; round < rounds; ++round) {
            for (unsigned long n = 0; n < batch; ++n)
                blocks[n] = HeapAlloc(heap, 0, 16 + (n & 63));
            for (void* block : blocks)
                HeapFree(heap, 0, block);
        }
    }, pairs));
}

}  // namespace

void BenchMemory()
{
    AllocateAndFreeEach();
    AllocateBatches();
}
