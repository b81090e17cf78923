#include <cstring>
#include <functional>
#include <thread>
#include <vector>

#include "support/zktest.h"

namespace {

class MemoryTest : public zktest::LeakFreeTest {
protected:
    void ExpectLive(unsigned long blocks, unsigned long bytes) {
        EXPECT_EQ(vMemLiveBlocks(), blocksBefore + blocks);
        EXPECT_EQ(vMemLiveBytes(), bytesBefore + bytes);
    }
    unsigned long blocksBefore = vMemLiveBlocks(), bytesBefore = vMemLiveBytes();
};

// Blocks are aligned for any value and keep their contents as they grow and shrink.
TEST_F(MemoryTest, CountsLiveBlocksAndBytesThroughAllocFreeAndRealloc) {
    char* first = static_cast<char*>(vMemAlloc(16));
    void* second = vMemAlloc(3);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(second) % 8, 0u);
    ExpectLive(2, 19);
    std::memcpy(first, "fifteen letters", 16);
    char* grown = static_cast<char*>(vMemRealloc(first, 100000));
    EXPECT_STREQ(grown, "fifteen letters");
    ExpectLive(2, 100003);
    char* shrunk = static_cast<char*>(vMemRealloc(grown, 8));
    EXPECT_EQ(std::memcmp(shrunk, "fifteen ", 8), 0);
    ExpectLive(2, 11);
    vMemFree(shrunk);
    vMemFree(second);
    void* fromNull = vMemRealloc(nullptr, 40);
    ExpectLive(1, 40);
    vMemFree(fromNull);
}

// A block freed twice, a pointer into something else, a size the heap cannot give: all refused, none counted.
TEST_F(MemoryTest, RefusesWhatIsNotALiveBlock) {
    vMemFree(nullptr);
    std::vector<void*> blocks;
    for (int n = 0; n < 32; ++n)
        blocks.push_back(vMemAlloc(48));
    for (int round = 0; round < 2; ++round)
        for (void* block : blocks)
            vMemFree(block);
    ExpectLive(0, 0);
    alignas(8) char foreign[64] = {};
    vMemFree(foreign + 16);
    EXPECT_TRUE(vMemRealloc(foreign + 16, 10) == nullptr && vMemAlloc(0xFFFFFFFFUL) == nullptr);
    void* block = vMemAlloc(10);
    EXPECT_EQ(vMemRealloc(block, 0xFFFFFFF0UL), nullptr);
    vMemFree(block);
    ExpectLive(0, 0);
}

// Blocks outlive the threads that made them and other threads free them: the counts stay exact.
TEST_F(MemoryTest, CountsStayExactAcrossThreads) {
    std::vector<void*> made[8];
    auto inThreads = [&made](void (*body)(std::vector<void*>&)) {
        std::vector<std::thread> threads;
        for (std::vector<void*>& blocks : made)
            threads.emplace_back(body, std::ref(blocks));
        for (std::thread& thread : threads)
            thread.join();
    };
    inThreads([](std::vector<void*>& blocks) { for (int n = 0; n < 100; ++n) blocks.push_back(vMemAlloc(24)); });
    ExpectLive(800, 800 * 24);
    inThreads([](std::vector<void*>& blocks) { for (void* block : blocks) vMemFree(block); });
    ExpectLive(0, 0);
}

int handlerCalls = 0;
unsigned lastFailedSize = 0;

TEST_F(MemoryTest, FailedNewAsksTheHandlerUntilItGivesUp) {
    vNEWHANDLER previous = vMemSetNewHandler(nullptr);
    EXPECT_EQ(vMemNew(0xFFFFFFF0UL), nullptr);
    vNEWHANDLER retryOnce = [](unsigned size) -> int { return lastFailedSize = size, ++handlerCalls == 1; };
    vMemSetNewHandler(retryOnce);
    EXPECT_EQ(vMemNew(0xFFFFFFF0UL), nullptr);
    EXPECT_TRUE(handlerCalls == 2 && lastFailedSize == 0xFFFFFFF0U);
    void* block = vMemNew(64);
    EXPECT_TRUE(block && handlerCalls == 2);
    vMemFree(block);
    EXPECT_EQ(vMemSetNewHandler(previous), retryOnce);
}

}  // namespace
