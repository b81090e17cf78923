#include "support/zktest.h"

#include "base/memory.h"
#include "streams/streamkinds.h"

namespace {

using zktest::Bytes;

class MemStreamTest : public zktest::LeakFreeTest {};

// The moves on an owned block of 100 bytes, each step seeing the state the
// one before left; the block is freed with its stream and the caller hears.
TEST_F(MemStreamTest, MovesClampToTheEndAndOnlyAMoveFromTheStartClearsIt) {
    unsigned char* block = static_cast<unsigned char*>(vMemAlloc(100));
    auto* stream = new vMEMSTREAM(&block, 100, vSTRING(), 1, 0);
    const struct {
        const char* what;
        std::function<unsigned long()> move;
        unsigned long position;
        vSTREAMSTATUS status;
    } steps[] = {
        {"past the end", [&] { return stream->MoveFromStart(200); }, 100, vSTREAM_END},
        {"back from the start", [&] { return stream->MoveFromStart(10); }, 10, vSTREAM_GOOD},
        {"forward past the end", [&] { return stream->MoveFromCur(95); }, 100, vSTREAM_END},
        {"back again keeps the end", [&] { return stream->MoveFromCur(-50); }, 50, vSTREAM_END},
        {"from the start clears", [&] { return stream->MoveFromStart(0); }, 0, vSTREAM_GOOD},
        {"before the start wraps to the end", [&] { return stream->MoveFromCur(-1); }, 100, vSTREAM_END},
        {"back from the end", [&] { return stream->MoveFromStart(0) + stream->MoveFromEnd(10); }, 90, vSTREAM_GOOD},
        {"beyond the end from the end, unchecked", [&] { return stream->MoveFromEnd(-10); }, 110, vSTREAM_GOOD},
        {"a read there takes nothing", [&] { return stream->ReadULong() + stream->CurrentPos(); }, 110, vSTREAM_END},
    };
    for (const auto& step : steps) {
        EXPECT_EQ(step.move(), step.position) << step.what;
        EXPECT_EQ(stream->Status(), step.status) << step.what;
    }
    stream->MoveFromStart(0);
    Bytes read(100);
    EXPECT_EQ(stream->ReadByteString(read.data(), 10) + stream->ReadByteString(read.data(), 100), 100);
    EXPECT_EQ(stream->Status(), vSTREAM_END);
    delete stream;
    EXPECT_EQ(block, nullptr);
}

// Growth writes the moved block's address through the caller's pointer; a borrowed or empty block cannot grow. Whatever
// the block held past the end, a write beyond it fills the gap with zeros.
TEST_F(MemStreamTest, OnlyAnOwningStreamGrowsItsBlockAndFillsTheGapsWithZeros) {
    unsigned char* block = static_cast<unsigned char*>(vMemAlloc(4));
    vMEMSTREAM owning(&block, 4, vSTRING("block"), 1, 0);
    owning.MoveFromEnd(0);
    for (unsigned long i = 0; i < 1000; ++i)
        owning.WriteULong(i);
    unsigned long fifth = 0;
    std::memcpy(&fifth, block + 4 + 4 * 5, 4);
    EXPECT_EQ(fifth, 5UL) << "the caller's pointer follows";
    vMEMSTREAM fresh, view(fresh);
    view.WriteULong(0x09090909);  // old bytes past the end, in the shared block
    EXPECT_TRUE(fresh.MoveFromEnd(-3) == 3 && fresh.WriteBlock(block, 0) == 0);
    EXPECT_EQ(fresh.Size(), 0UL) << "an empty block fills no gap";
    fresh.WriteUByte(8);
    Bytes read(4);
    fresh.MoveFromStart(0);
    EXPECT_TRUE(fresh.ReadByteString(read.data(), 4) == 4 && read == (Bytes{0, 0, 0, 8}));
    unsigned char fixed[4] = {1, 2, 3, 4};
    unsigned char* borrowedBlock = fixed;
    unsigned char* none = nullptr;
    vMEMSTREAM borrowed(&borrowedBlock, 4, vSTRING(), 0, 0), empty(&none, 0, vSTRING(), 1, 0);
    borrowed.MoveFromStart(2);
    EXPECT_TRUE(borrowed.WriteUWord(0x0909) + borrowed.WriteUByte(5) + empty.WriteUByte(1) == 2 && fixed[3] == 9);
    EXPECT_EQ(borrowed.Status() + empty.Status(), 2 * vSTREAM_WRITEFAIL);
}

}  // namespace
