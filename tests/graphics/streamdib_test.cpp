#include "graphics/dibtest.h"
#include "support/zktest.h"

namespace {

using namespace dibtest;
using StreamDibTest = zktest::LeakFreeTest;

unsigned long Value(long x, long y)
{
    return static_cast<unsigned long>(x * 0x010203 + y * 0x300000) & 0xFFFFFF;
}

TEST_F(StreamDibTest, TheLinesStayOnTheStream)
{
    MemoryStream source(Archive(400, 300, 24, 0, Value));
    unsigned long bytes = vMemLiveBytes();
    oSTREAMDIB dib;
    dib << *source;
    ASSERT_EQ(dib.GetHeader()->Height(), 300UL);
    EXPECT_LT(vMemLiveBytes() - bytes, 1024UL);
    EXPECT_EQ(source->CurrentPos(), source->Size());
    Bytes line(1200);
    ASSERT_TRUE(dib.GetImageLines(299, 299, line.data(), nullptr));
    EXPECT_EQ(Get(line, 3 * 17, 3), Value(17, 0));
}

TEST_F(StreamDibTest, SetLinesAreWrittenInPlaceOnTheStream)
{
    for (int topDown : {0, 1}) {
        MemoryStream source(Archive(4, 3, 8, topDown, [](long, long) { return 0UL; }));
        oSTREAMDIB dib;
        dib << *source;
        unsigned char line[4] = {9, 8, 7, 6};
        ASSERT_TRUE(dib.SetImageLines(line, oMODEL_256, 0, 0));
        // Line 0 is the bottom one, the first on the stream unless the stream runs top-down.
        unsigned long at = 54 + 1024 + (topDown ? 8 : 0);
        source->MoveFromStart(at);
        unsigned char stored[4] = {};
        source->ReadByteString(stored, 4);
        EXPECT_EQ(std::vector<int>(stored, stored + 4), std::vector<int>({9, 8, 7, 6})) << topDown;
        unsigned char* locked = nullptr;
        ASSERT_TRUE(dib.LockImageLines(1, 2, &locked, oMODEL_RGB));
        locked[0] = 200;
        ASSERT_TRUE(dib.ReleaseImageLines(1));
        unsigned char band[8] = {};
        dib.GetImageLines(1, 2, band, nullptr);
        EXPECT_NE(band[0], 0) << topDown;
    }
}

TEST_F(StreamDibTest, WithoutAStreamThereIsNowhereForLines)
{
    oSTREAMDIB dib;
    dib.SetHeader(oDIBHEADER(4, 2, 0, 0, oMODEL_256));
    unsigned char line[8] = {};
    unsigned char* locked = nullptr;
    EXPECT_FALSE(dib.SetImageLines(line, oMODEL_256, 0, 0));
    EXPECT_FALSE(dib.GetImageLines(0, 0, line, nullptr));
    EXPECT_FALSE(dib.LockImageLines(0, 0, &locked, oMODEL_256));
    vMEMSTREAM target;
    dib >> target;
    EXPECT_EQ(target.Size(), 0UL);
}

TEST_F(StreamDibTest, AHeaderOfAnotherShapeLeavesTheStreamsLinesBehind)
{
    MemoryStream source(Archive(4, 3, 8, 0, [](long x, long) { return static_cast<unsigned long>(x); }));
    oSTREAMDIB dib;
    dib << *source;
    oDIBHEADER header = *dib.GetHeader();
    header.HorzDPI(300);
    dib.SetHeader(header);
    unsigned char line[4] = {};
    ASSERT_TRUE(dib.GetImageLines(0, 0, line, nullptr));
    EXPECT_EQ(line[3], 3);
    header.Height(2);
    dib.SetHeader(header);
    EXPECT_FALSE(dib.GetImageLines(0, 0, line, nullptr));
}

TEST_F(StreamDibTest, CopiesReadTheSameStream)
{
    MemoryStream source(Archive(4, 3, 8, 1, [](long x, long y) { return static_cast<unsigned long>(x + 4 * y); }));
    oSTREAMDIB dib;
    dib << *source;
    oSTREAMDIB copy(dib);
    oSTREAMDIB assigned;
    assigned = dib;
    unsigned char line[4] = {};
    unsigned char changed[4] = {50, 51, 52, 53};
    dib.SetImageLines(changed, oMODEL_256, 2, 2);
    for (const oSTREAMDIB* other : {&copy, &assigned}) {
        other->GetImageLines(2, 2, line, nullptr);
        EXPECT_EQ(line[1], 51);
        other->GetImageLines(0, 0, line, nullptr);
        EXPECT_EQ(line[1], 9);  // the bottom row of a top-down stream is its last
    }
}

TEST_F(StreamDibTest, WritingCopiesTheLinesAcrossInBands)
{
    Bytes archive = Archive(300, 500, 24, 1, Value);
    MemoryStream source(archive);
    oSTREAMDIB dib;
    dib << *source;
    vMEMSTREAM target;
    dib >> target;
    // Written bottom-up, the top-down source comes out as the bottom-up form of the same picture.
    Bytes written(target.Size());
    target.MoveFromStart(0);
    target.ReadByteString(written.data(), target.Size());
    EXPECT_EQ(written, Archive(300, 500, 24, 0, Value));
}

}  // namespace
