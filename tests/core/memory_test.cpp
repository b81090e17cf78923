#include <cstring>
#include <thread>
#include <vector>

#include "support/zktest.h"

namespace {

class MemoryTest : public zktest::LeakFreeTest {};

TEST_F(MemoryTest, CountsLiveBlocksAndBytes)
{
    unsigned long blocks = vMemLiveBlocks();
    unsigned long bytes = vMemLiveBytes();
    void* first = vMemAlloc(100);
    void* second = vMemAlloc(28);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(vMemLiveBlocks(), blocks + 2);
    EXPECT_EQ(vMemLiveBytes(), bytes + 128);
    vMemFree(first);
    EXPECT_EQ(vMemLiveBlocks(), blocks + 1);
    EXPECT_EQ(vMemLiveBytes(), bytes + 28);
    vMemFree(second);
    EXPECT_EQ(vMemLiveBytes(), bytes);
}

TEST_F(MemoryTest, BlocksAreAlignedForAnyValue)
{
    void* block = vMemAlloc(3);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % 8, 0u);
    vMemFree(block);
}

TEST_F(MemoryTest, ReallocKeepsContentAndMovesTheByteCount)
{
    unsigned long bytes = vMemLiveBytes();
    char* block = static_cast<char*>(vMemAlloc(16));
    std::memcpy(block, "fifteen letters", 16);
    char* grown = static_cast<char*>(vMemRealloc(block, 100000));
    ASSERT_NE(grown, nullptr);
    EXPECT_STREQ(grown, "fifteen letters");
    EXPECT_EQ(vMemLiveBytes(), bytes + 100000);
    char* shrunk = static_cast<char*>(vMemRealloc(grown, 8));
    EXPECT_EQ(std::memcmp(shrunk, "fifteen ", 8), 0);
    EXPECT_EQ(vMemLiveBytes(), bytes + 8);
    vMemFree(shrunk);
}

TEST_F(MemoryTest, ReallocOfNullAllocates)
{
    void* block = vMemRealloc(nullptr, 40);
    EXPECT_NE(block, nullptr);
    vMemFree(block);
}

TEST_F(MemoryTest, RefusesWhatIsNotALiveBlock)
{
    unsigned long blocks = vMemLiveBlocks();
    vMemFree(nullptr);
    char* block = static_cast<char*>(vMemAlloc(32));
    vMemFree(block);
    vMemFree(block);
    EXPECT_EQ(vMemLiveBlocks(), blocks);

    alignas(8) char foreign[64] = {};
    vMemFree(foreign + 16);
    EXPECT_EQ(vMemRealloc(foreign + 16, 10), nullptr);
    EXPECT_EQ(vMemLiveBlocks(), blocks);
}

TEST_F(MemoryTest, ImpossibleSizesFailWithNull)
{
    EXPECT_EQ(vMemAlloc(0xFFFFFFFFUL), nullptr);
    void* block = vMemAlloc(10);
    EXPECT_EQ(vMemRealloc(block, 0xFFFFFFF0UL), nullptr);
    vMemFree(block);
}

std::vector<void*> AllocateMany(int count, unsigned long size)
{
    std::vector<void*> blocks;
    for (int n = 0; n < count; ++n)
        blocks.push_back(vMemAlloc(size));
    return blocks;
}

void FreeAll(const std::vector<void*>& blocks)
{
    for (void* block : blocks)
        vMemFree(block);
}

// Blocks outlive the threads that made them, threads free what others made,
// and threads end in numbers: at each quiet moment the counts are exact.
TEST_F(MemoryTest, CountsStayExactAcrossThreads)
{
    unsigned long blocks = vMemLiveBlocks();
    unsigned long bytes = vMemLiveBytes();
    std::vector<std::vector<void*>> made(8);
    std::vector<std::thread> makers;
    for (size_t n = 0; n < made.size(); ++n)
        makers.emplace_back([&made, n] { made[n] = AllocateMany(100, 24); });
    for (std::thread& maker : makers)
        maker.join();
    EXPECT_EQ(vMemLiveBlocks(), blocks + 800);
    EXPECT_EQ(vMemLiveBytes(), bytes + 800 * 24);

    std::vector<void*> mine = AllocateMany(50, 40);
    std::vector<std::thread> freers;
    for (size_t n = 0; n < made.size(); ++n)
        freers.emplace_back([&made, n] { FreeAll(made[n]); });
    freers.emplace_back([&mine] { FreeAll(mine); });
    for (std::thread& freer : freers)
        freer.join();
    EXPECT_EQ(vMemLiveBlocks(), blocks);
    EXPECT_EQ(vMemLiveBytes(), bytes);

    std::vector<void*> left;
    for (int round = 0; round < 200; ++round)
        std::thread([&left] {
            FreeAll(AllocateMany(3, 16));
            left.push_back(vMemAlloc(8));
        }).join();
    EXPECT_EQ(vMemLiveBlocks(), blocks + 200);
    EXPECT_EQ(vMemLiveBytes(), bytes + 200 * 8);
    FreeAll(left);
    EXPECT_EQ(vMemLiveBlocks(), blocks);
}

int handlerCalls = 0;
unsigned lastFailedSize = 0;

int RetryOnce(unsigned size)
{
    lastFailedSize = size;
    return ++handlerCalls == 1;
}

TEST_F(MemoryTest, FailedNewAsksTheHandlerUntilItGivesUp)
{
    handlerCalls = 0;
    vNEWHANDLER previous = vMemSetNewHandler(RetryOnce);
    EXPECT_EQ(vMemNew(0xFFFFFFF0UL), nullptr);
    EXPECT_EQ(handlerCalls, 2);
    EXPECT_EQ(lastFailedSize, 0xFFFFFFF0U);

    void* block = vMemNew(64);
    EXPECT_NE(block, nullptr);
    EXPECT_EQ(handlerCalls, 2);
    vMemFree(block);
    EXPECT_EQ(vMemSetNewHandler(previous), RetryOnce);
}

TEST_F(MemoryTest, WithoutAHandlerFailedNewAnswersNull)
{
    vNEWHANDLER previous = vMemSetNewHandler(nullptr);
    EXPECT_EQ(vMemNew(0xFFFFFFF0UL), nullptr);
    vMemSetNewHandler(previous);
}

}  // namespace
