#include "support/zktest.h"

#include "streams/streamkinds.h"

namespace {

class OleStreamTest : public zktest::LeakFreeTest {
protected:
    void SetUp() override
    {
        zktest::LeakFreeTest::SetUp();
        platform = zktest::OleKind::Empty();
        ASSERT_NE(platform, nullptr);
        const unsigned char ten[10] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
        platform->Write(ten, sizeof ten, nullptr);
        LARGE_INTEGER four;
        four.QuadPart = 4;
        platform->Seek(four, STREAM_SEEK_SET, nullptr);
    }
    void TearDown() override
    {
        platform->Release();
        zktest::LeakFreeTest::TearDown();
    }

    // The platform stream's count of references, left as it was.
    ULONG References()
    {
        platform->AddRef();
        return platform->Release();
    }

    IStream* platform = nullptr;
};

TEST_F(OleStreamTest, TakesSizeAndPositionFromThePlatformStream)
{
    vOLESTREAM stream(&platform, vSTRING("part"), 0);
    EXPECT_EQ(stream.Size(), 10UL);
    EXPECT_EQ(stream.CurrentPos(), 4UL);
    EXPECT_EQ(stream.ReadULong(), 0x07060504UL);
    EXPECT_EQ(stream.CurrentPos(), 8UL);
    EXPECT_FALSE(stream.AtEnd());
}

// A read that cannot be filled answers 0 and leaves both positions and the
// status as they were.
TEST_F(OleStreamTest, AShortReadChangesNothing)
{
    vOLESTREAM stream(&platform, vSTRING(), 0);
    stream.MoveFromStart(8);
    EXPECT_EQ(stream.ReadULong(), 0UL);
    EXPECT_EQ(stream.CurrentPos(), 8UL);
    EXPECT_EQ(stream.Status(), vSTREAM_GOOD);
    EXPECT_EQ(stream.ReadUWord(), 0x0908);
    EXPECT_TRUE(stream.AtEnd());
}

TEST_F(OleStreamTest, AMoveThePlatformRefusesLeavesThePosition)
{
    vOLESTREAM stream(&platform, vSTRING(), 0);
    EXPECT_EQ(stream.MoveFromCur(-5), 4UL);
    EXPECT_EQ(stream.MoveFromEnd(3), 7UL);
}

TEST_F(OleStreamTest, WritesGrowTheSizeItKeeps)
{
    vOLESTREAM stream(&platform, vSTRING(), 0);
    stream.MoveFromEnd(0);
    EXPECT_EQ(stream.WriteULong(1), 4);
    EXPECT_EQ(stream.Size(), 14UL);
    EXPECT_TRUE(stream.AtEnd());
    STATSTG about;
    platform->Stat(&about, STATFLAG_NONAME);
    EXPECT_EQ(about.cbSize.LowPart, 14UL);
}

// The stream takes no reference of its own and gives none back; a copy
// carries on where its source stood.
TEST_F(OleStreamTest, NeitherTheStreamNorItsCopyTouchesTheReferenceCount)
{
    ULONG before = References();
    {
        vOLESTREAM stream(&platform, vSTRING(), 0);
        stream.ReadUByte();
        vOLESTREAM copy(stream);
        EXPECT_EQ(copy.CurrentPos(), 5UL);
        EXPECT_EQ(copy.Size(), 10UL);
        EXPECT_EQ(copy.ReadUByte(), 5);
        EXPECT_EQ(References(), before);
    }
    EXPECT_EQ(References(), before);
}

}  // namespace
