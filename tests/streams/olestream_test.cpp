#include "support/zktest.h"

#include "streams/streamkinds.h"

namespace {

// A platform stream of the bytes 0 to 9, standing at 4.
class OleStreamTest : public zktest::LeakFreeTest {
protected:
    void SetUp() override {
        zktest::LeakFreeTest::SetUp();
        const unsigned char ten[10] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
        platform->Write(ten, sizeof ten, nullptr);
        platform->Seek(LARGE_INTEGER{{4, 0}}, STREAM_SEEK_SET, nullptr);
    }
    void TearDown() override { platform->Release(), zktest::LeakFreeTest::TearDown(); }

    ULONG References() { return platform->AddRef(), platform->Release(); }

    IStream* platform = zktest::EmptyPlatformStream();
};

// A read that cannot be filled answers 0 and leaves both positions and the status as they were; a move the platform
// refuses leaves the position. The stream takes no reference of its own, and a copy carries on where its source stood.
TEST_F(OleStreamTest, TakesSizeAndPositionFromThePlatformAndKeepsThemThroughFailures) {
    ULONG before = References();
    vOLESTREAM stream(&platform, vSTRING("part"), 0);
    EXPECT_EQ(stream.Size() * 100 + stream.CurrentPos(), 1004UL);
    EXPECT_EQ(stream.ReadULong(), 0x07060504UL);
    EXPECT_TRUE(stream.ReadULong() == 0 && stream.CurrentPos() == 8 && stream.Status() == vSTREAM_GOOD);
    EXPECT_EQ(stream.ReadUByte(), 8) << "the platform's position was given back";
    EXPECT_EQ(stream.MoveFromCur(-11), 9UL);
    {
        vOLESTREAM copy(stream);
        EXPECT_EQ(copy.Size() * 100 + copy.CurrentPos(), 1009UL);
        EXPECT_TRUE(copy.ReadUByte() == 9 && copy.AtEnd() && References() == before);
    }
    EXPECT_EQ(stream.MoveFromEnd(3), 7UL);
    stream.MoveFromEnd(0);
    EXPECT_TRUE(stream.WriteULong(1) == 4 && stream.Size() == 14);
    STATSTG about;
    platform->Stat(&about, STATFLAG_NONAME);
    EXPECT_EQ(about.cbSize.LowPart, 14UL);
    EXPECT_EQ(References(), before);
}

}  // namespace
