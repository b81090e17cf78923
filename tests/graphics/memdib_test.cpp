#include "graphics/dibtest.h"
#include "support/zktest.h"

namespace {

using namespace dibtest;
using MemDibTest = zktest::LeakFreeTest;

// A 24-bit picture of 5 by 6 whose line n is filled with the byte n * 10 + 1.
void Fill(oDIB& dib)
{
    dib.SetHeader(oDIBHEADER(5, 6, 0, 0, oMODEL_RGB));
    Bytes band(16 * 3);
    for (unsigned long first = 0; first < 6; first += 3) {
        for (unsigned long i = 0; i < 3; ++i)
            std::fill(band.begin() + 16 * i, band.begin() + 16 * (i + 1), static_cast<unsigned char>((first + i) * 10 + 1));
        ASSERT_TRUE(dib.SetImageLines(band.data(), oMODEL_RGB, first, first + 2));
    }
}

TEST_F(MemDibTest, BandsLandWhereTheyAreNumbered)
{
    oMEMDIB dib;
    Fill(dib);
    Bytes all(16 * 6);
    ASSERT_TRUE(dib.GetImageLines(0, 5, all.data(), nullptr));
    for (unsigned long line = 0; line < 6; ++line)
        EXPECT_EQ(all[16 * line + 7], line * 10 + 1) << line;
    Bytes one(16);
    ASSERT_TRUE(dib.GetImageLines(4, 4, one.data(), nullptr));
    EXPECT_EQ(one[0], 41);
}

TEST_F(MemDibTest, BandsOutsideThePictureAnswerZero)
{
    oMEMDIB empty;
    Bytes buffer(16 * 8);
    EXPECT_FALSE(empty.GetImageLines(0, 0, buffer.data(), nullptr));
    EXPECT_FALSE(empty.SetImageLines(buffer.data(), oMODEL_RGB, 0, 0));
    oMEMDIB dib;
    Fill(dib);
    const unsigned long bands[][2] = {{0, 6}, {6, 6}, {3, 2}, {7, 9}};
    for (const auto& band : bands) {
        EXPECT_FALSE(dib.GetImageLines(band[0], band[1], buffer.data(), nullptr)) << band[0] << "-" << band[1];
        EXPECT_FALSE(dib.SetImageLines(buffer.data(), oMODEL_RGB, band[0], band[1])) << band[0] << "-" << band[1];
    }
    EXPECT_FALSE(dib.GetImageLines(0, 1, nullptr, nullptr));
}

TEST_F(MemDibTest, ALockInTheHeadersModelIsTheStoreItself)
{
    oMEMDIB dib;
    Fill(dib);
    unsigned char* lines = nullptr;
    ASSERT_TRUE(dib.LockImageLines(2, 3, &lines, oMODEL_RGB));
    EXPECT_EQ(lines[0], 21);
    unsigned char* again = nullptr;
    EXPECT_FALSE(dib.LockImageLines(0, 0, &again, oMODEL_RGB));
    lines[16] = 99;
    Bytes line(16);
    dib.GetImageLines(3, 3, line.data(), nullptr);
    EXPECT_EQ(line[0], 99);
    EXPECT_TRUE(dib.ReleaseImageLines(0));
    EXPECT_FALSE(dib.ReleaseImageLines(1));
    EXPECT_FALSE(dib.LockImageLines(5, 6, &lines, oMODEL_RGB));
}

TEST_F(MemDibTest, ALockInAnotherModelWorksOnACopyKeptOnlyWhenAsked)
{
    oMEMDIB dib;
    dib.SetHeader(oDIBHEADER(3, 2, 0, 0, oMODEL_MONO));
    unsigned char* lines = nullptr;
    for (int keep : {0, 1}) {
        ASSERT_TRUE(dib.LockImageLines(1, 1, &lines, oMODEL_RGB));
        std::fill(lines + 3, lines + 6, 255);  // the middle pixel white
        ASSERT_TRUE(dib.ReleaseImageLines(keep));
        unsigned char bits[4] = {};
        dib.GetImageLines(1, 1, bits, nullptr);
        EXPECT_EQ(bits[0], keep ? 0x40 : 0) << keep;
    }
}

TEST_F(MemDibTest, BlocksAreCutFromAndPutIntoTheLines)
{
    oMEMDIB dib;
    dib.SetHeader(oDIBHEADER(12, 3, 0, 0, oMODEL_MONO));
    unsigned char lines[12] = {0xF0, 0x0F, 0, 0, 0x33, 0xCC, 0, 0, 0xAA, 0x55, 0, 0};
    dib.SetImageLines(lines, oMODEL_MONO, 0, 2);
    // Five pixels from pixel 3 of lines 1 and 2.
    unsigned char block[8] = {};
    ASSERT_TRUE(dib.GetImageBlock(3, 1, 5, 2, block, nullptr));
    EXPECT_EQ(std::vector<int>({block[0], block[4]}), std::vector<int>({0x98, 0x50}));
    unsigned char patch[4] = {0xFF};
    ASSERT_TRUE(dib.SetImageBlock(patch, oMODEL_MONO, 10, 0, 2, 1));
    unsigned char line[4] = {};
    dib.GetImageLines(0, 0, line, nullptr);
    EXPECT_EQ(std::vector<int>({line[0], line[1]}), std::vector<int>({0xF0, 0x3F}));
    // Blocks in another model, and blocks that leave the picture.
    unsigned char rgb[12] = {};
    oCOLOUR_MODEL model = oMODEL_RGB;
    ASSERT_TRUE(dib.GetImageBlock(0, 2, 2, 1, rgb, &model));
    EXPECT_EQ(std::vector<int>({rgb[0], rgb[3]}), std::vector<int>({255, 0}));
    EXPECT_FALSE(dib.GetImageBlock(11, 0, 2, 1, block, nullptr));
    EXPECT_FALSE(dib.GetImageBlock(0, 2, 1, 2, block, nullptr));
    EXPECT_FALSE(dib.SetImageBlock(patch, oMODEL_MONO, 12, 0, 1, 1));
    EXPECT_FALSE(dib.SetImageBlock(patch, oMODEL_MONO, 0, 0, 0, 1));
    // No bytes to take from or to give to.
    EXPECT_FALSE(dib.GetImageBlock(0, 0, 2, 1, nullptr, nullptr));
    EXPECT_FALSE(dib.SetImageBlock(nullptr, oMODEL_MONO, 0, 0, 2, 1));
}

TEST_F(MemDibTest, CopiesHaveLinesOfTheirOwn)
{
    oMEMDIB dib;
    Fill(dib);
    oMEMDIB copy(dib);
    oMEMDIB assigned;
    assigned = dib;
    Bytes line(16, 7);
    dib.SetImageLines(line.data(), oMODEL_RGB, 0, 0);
    for (const oMEMDIB* other : {&copy, &assigned}) {
        Bytes seen(16);
        other->GetImageLines(0, 0, seen.data(), nullptr);
        EXPECT_EQ(seen[0], 1);
    }
}

TEST_F(MemDibTest, APictureJoinedToAStreamLandsThereAtItsEnd)
{
    vMEMSTREAM target;
    {
        oMEMDIB dib(target, 0);
        Fill(dib);
        EXPECT_EQ(target.Size(), 0UL);
    }
    target.MoveFromStart(0);
    oMEMDIB back;
    back << target;
    ASSERT_EQ(back.GetHeader()->Height(), 6UL);
    Bytes line(16);
    back.GetImageLines(5, 5, line.data(), nullptr);
    EXPECT_EQ(line[0], 51);
}

TEST_F(MemDibTest, AHeaderLargerThanMemoryLeavesNoLines)
{
    oMEMDIB dib;
    dib.SetHeader(oDIBHEADER(0x10000, 0x10000, 0, 0, oMODEL_RGB));
    Bytes line(16);
    EXPECT_FALSE(dib.GetImageLines(0, 0, line.data(), nullptr));
    vMEMSTREAM target;
    dib >> target;
    EXPECT_EQ(target.Size(), 0UL);
}

}  // namespace
