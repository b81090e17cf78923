#include "support/zktest.h"

#include <cstring>
#include <functional>
#include <vector>

#include "base/memory.h"
#include "streams/stream.h"

namespace {

class MemStreamTest : public zktest::LeakFreeTest {};

// A stream over the caller's block of the given bytes, which it owns.
unsigned char* BlockOf(unsigned long size, unsigned char fill)
{
    unsigned char* block = static_cast<unsigned char*>(vMemAlloc(size));
    std::memset(block, fill, size);
    return block;
}

TEST_F(MemStreamTest, ANewStreamIsEmptyAndAtItsEnd)
{
    vMEMSTREAM stream;
    EXPECT_EQ(stream.Size(), 0UL);
    EXPECT_TRUE(stream.AtEnd());
    EXPECT_EQ(stream.CurrentPos(), 0UL);
    EXPECT_EQ(stream.Status(), vSTREAM_GOOD);
}

// The moves on a stream of 100 bytes, each step seeing the state the one
// before left: where it lands and what the status is then.
TEST_F(MemStreamTest, MovesClampToTheEndAndOnlyAMoveFromTheStartClearsIt)
{
    unsigned char* block = BlockOf(100, 0);
    vMEMSTREAM stream(&block, 100, vSTRING(), 1, 0);
    struct Step {
        const char* what;
        std::function<unsigned long()> move;
        unsigned long position;
        vSTREAMSTATUS status;
    };
    const Step steps[] = {
        {"past the end", [&] { return stream.MoveFromStart(200); }, 100, vSTREAM_END},
        {"back from the start", [&] { return stream.MoveFromStart(10); }, 10, vSTREAM_GOOD},
        {"forward past the end", [&] { return stream.MoveFromCur(95); }, 100, vSTREAM_END},
        {"back again keeps the end", [&] { return stream.MoveFromCur(-50); }, 50, vSTREAM_END},
        {"from the start clears", [&] { return stream.MoveFromStart(0); }, 0, vSTREAM_GOOD},
        {"before the start wraps to the end", [&] { return stream.MoveFromCur(-1); }, 100, vSTREAM_END},
        {"back from the end", [&] { return stream.MoveFromStart(0) + stream.MoveFromEnd(10); }, 90,
         vSTREAM_GOOD},
        {"beyond the end from the end, unchecked", [&] { return stream.MoveFromEnd(-10); }, 110,
         vSTREAM_GOOD},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.what);
        EXPECT_EQ(step.move(), step.position);
        EXPECT_EQ(stream.Status(), step.status);
    }
    EXPECT_TRUE(stream.AtEnd());
}

TEST_F(MemStreamTest, ReadsStayInsideTheValidBytes)
{
    unsigned char* block = BlockOf(6, 0x11);
    vMEMSTREAM stream(&block, 6, vSTRING(), 1, 0);
    stream.MoveFromEnd(-10);
    EXPECT_EQ(stream.ReadULong(), 0UL);
    EXPECT_EQ(stream.Status(), vSTREAM_END);

    stream.MoveFromStart(0);
    unsigned char read[10];
    std::memset(read, 0, sizeof read);
    EXPECT_EQ(stream.ReadByteString(read, 10), 6);
    EXPECT_EQ(read[5], 0x11);
    EXPECT_EQ(read[6], 0);
    EXPECT_EQ(stream.Status(), vSTREAM_END);
    EXPECT_EQ(stream.CurrentPos(), 6UL);
}

// Growth writes the moved block's address through the caller's pointer,
// and the owning stream frees it at its end.
TEST_F(MemStreamTest, AnOwningStreamGrowsTheCallersBlockAndFreesIt)
{
    unsigned char* block = BlockOf(4, 0xEE);
    {
        vMEMSTREAM stream(&block, 4, vSTRING("block"), 1, 0);
        stream.MoveFromEnd(0);
        for (unsigned long i = 0; i < 1000; ++i)
            ASSERT_EQ(stream.WriteULong(i), 4);
        EXPECT_EQ(stream.Size(), 4004UL);
        unsigned long fifth = 0;
        std::memcpy(&fifth, block + 4 + 4 * 5, 4);
        EXPECT_EQ(fifth, 5UL);
        EXPECT_EQ(block[0], 0xEE);
    }
    EXPECT_EQ(block, nullptr);
}

TEST_F(MemStreamTest, AStreamThatDoesNotOwnItsBlockOrHasNoRoomCannotGrow)
{
    unsigned char fixed[4] = {1, 2, 3, 4};
    unsigned char* block = fixed;
    vMEMSTREAM borrowed(&block, 4, vSTRING(), 0, 0);
    borrowed.MoveFromStart(2);
    EXPECT_EQ(borrowed.WriteUWord(0x0909), 2);
    EXPECT_EQ(borrowed.WriteUByte(5), 0);
    EXPECT_EQ(borrowed.Status(), vSTREAM_WRITEFAIL);
    EXPECT_EQ(fixed[3], 9);
    EXPECT_EQ(block, fixed);

    unsigned char* none = nullptr;
    vMEMSTREAM empty(&none, 0, vSTRING(), 1, 0);
    EXPECT_EQ(empty.WriteULong(1), 0);
    EXPECT_EQ(empty.Status(), vSTREAM_WRITEFAIL);
}

TEST_F(MemStreamTest, AWriteBeyondTheEndFillsTheGapWithZeros)
{
    vMEMSTREAM stream;
    stream.WriteUByte(7);
    EXPECT_EQ(stream.MoveFromEnd(-3), 4UL);
    const unsigned char nothing[1] = {};
    EXPECT_EQ(stream.WriteBlock(nothing, 0), 0UL);
    EXPECT_EQ(stream.Size(), 1UL) << "an empty block fills no gap";
    stream.WriteUByte(8);
    unsigned char read[5] = {9, 9, 9, 9, 9};
    stream.MoveFromStart(0);
    EXPECT_EQ(stream.ReadByteString(read, 5), 5);
    const unsigned char expected[5] = {7, 0, 0, 0, 8};
    EXPECT_EQ(std::memcmp(read, expected, 5), 0);
}

// The copy works on the same bytes, within the room they have, and leaves
// the block to its source.
TEST_F(MemStreamTest, ACopySharesTheBytesButNeitherGrowsNorFreesThem)
{
    vMEMSTREAM source;
    source.WriteULong(0xCAFEF00DUL);
    source.MoveFromStart(0);
    {
        vMEMSTREAM copy(source);
        EXPECT_EQ(copy.Size(), 4UL);
        EXPECT_EQ(copy.ReadULong(), 0xCAFEF00DUL);
        EXPECT_EQ(copy.WriteULong(0x12345678UL), 4);
        EXPECT_EQ(copy.WriteULong(1), 0);
        EXPECT_EQ(copy.Status(), vSTREAM_WRITEFAIL);
    }
    EXPECT_EQ(source.ReadULong(), 0xCAFEF00DUL);
    EXPECT_EQ(source.ReadULong(), 0UL);
    EXPECT_EQ(source.Status(), vSTREAM_END);
    EXPECT_EQ(source.WriteULong(0x12345678UL), 4);
    EXPECT_EQ(source.WriteULong(1), 4);
}

// The target reads the source's bytes from their start, keeps its own size,
// and cannot grow the block it now shares.
TEST_F(MemStreamTest, AssignmentSharesTheBytesKeepsTheSizeAndCannotGrow)
{
    vMEMSTREAM source;
    for (unsigned char i = 1; i <= 8; ++i)
        source.WriteUByte(i);
    vMEMSTREAM target;
    target.WriteUWord(0);
    target = source;
    EXPECT_EQ(target.Size(), 2UL);
    EXPECT_EQ(target.CurrentPos(), 0UL);
    EXPECT_EQ(target.ReadUWord(), 0x0201);
    EXPECT_EQ(target.WriteULong(1), 0);
    EXPECT_EQ(target.Status(), vSTREAM_WRITEFAIL);
}

}  // namespace
