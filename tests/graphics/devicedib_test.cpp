#include "graphics/surface.h"

#include "graphics/dib.h"

using namespace zktest;

namespace {

// Draws a picture of 4 by 2 in distinct colours, or of a size and colour given.
class DrawDibTest : public SurfaceTest {
protected:
    // The top row red, green, blue, white; the bottom row white, blue, green, red.
    void SetUp() override
    {
        SurfaceTest::SetUp();
        picture.emplace();
        picture->SetHeader(oDIBHEADER(4, 2, 0, 0, oMODEL_RGB));
        const COLORREF rows[2][4] = {{White, Blue, Green, Red}, {Red, Green, Blue, White}};
        for (unsigned long line = 0; line < 2; ++line) {
            unsigned char bytes[12];
            for (int x = 0; x < 4; ++x) {
                bytes[3 * x] = GetBValue(rows[line][x]);
                bytes[3 * x + 1] = GetGValue(rows[line][x]);
                bytes[3 * x + 2] = GetRValue(rows[line][x]);
            }
            picture->SetImageLines(bytes, oMODEL_RGB, line, line);
        }
    }

    void TearDown() override
    {
        picture.reset();
        SurfaceTest::TearDown();
    }

    // The colours at the centres of the cells of a picture drawn 10 units a pixel from the corner.
    std::vector<COLORREF> Cells(const Pixels& pixels, int left, int top, int columns, int rows)
    {
        std::vector<COLORREF> cells;
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column)
                cells.push_back(pixels.At(left + 10 * column + 5, top + 10 * row + 5));
        return cells;
    }

    std::optional<oMEMDIB> picture;
};

TEST_F(DrawDibTest, TheWholePictureIsStretchedIntoTheTarget)
{
    ASSERT_TRUE(device().DrawDIB(*picture, vRECT(10, 10, 50, 30), nullptr));
    Pixels pixels = Read();
    EXPECT_EQ(Cells(pixels, 10, 10, 4, 2),
              std::vector<COLORREF>({Red, Green, Blue, White, White, Blue, Green, Red}));
    EXPECT_EQ(Edges(pixels.Ink()), (std::vector<long>{10, 10, 50, 30}));
}

TEST_F(DrawDibTest, TheKeyColourIsLeftUndrawn)
{
    device().FillSpec(Fill(RGB(9, 9, 9)));
    device().DrawRect(vRECT(0, 0, 100, 100));
    vCOLOUR key = Colour(Green);
    unsigned long objects = LiveGdiObjects();
    for (int round = 0; round < 20; ++round)
        ASSERT_TRUE(device().DrawDIB(*picture, vRECT(10, 10, 50, 30), &key));
    EXPECT_EQ(LiveGdiObjects(), objects) << "the masking picture is let go each time";
    EXPECT_EQ(Cells(Read(), 10, 10, 4, 2),
              std::vector<COLORREF>({Red, RGB(9, 9, 9), Blue, White, White, Blue, RGB(9, 9, 9), Red}));
}

TEST_F(DrawDibTest, WithoutATargetOnePixelIsOneUnitAtTheOrigin)
{
    ASSERT_TRUE(device().DrawDIB(*picture, nullptr, nullptr, 0, -1, nullptr, 0, nullptr));
    Pixels pixels = Read();
    EXPECT_EQ(Edges(pixels.Ink()), (std::vector<long>{0, 0, 4, 2}));
    EXPECT_EQ(std::vector<COLORREF>({pixels.At(0, 0), pixels.At(3, 0), pixels.At(0, 1), pixels.At(3, 1)}),
              std::vector<COLORREF>({Red, White, White, Red}));
}

TEST_F(DrawDibTest, ASourceRectangleTakesPartOfThePicture)
{
    vRECT source(1, 0, 3, 2);
    vRECT target(10, 10, 30, 30);
    ASSERT_TRUE(device().DrawDIB(*picture, &source, nullptr, 0, -1, &target, 0, nullptr));
    Pixels pixels = Read();
    EXPECT_EQ(Cells(pixels, 10, 10, 2, 2), std::vector<COLORREF>({Green, Blue, Blue, Green}));
    EXPECT_EQ(Edges(pixels.Ink()), (std::vector<long>{10, 10, 30, 30}));
}

TEST_F(DrawDibTest, ABandOfLinesLandsWhereItBelongsInTheWhole)
{
    vRECT target(10, 10, 50, 30);
    const struct {
        int first;
        int last;
        std::vector<long> ink;
    } bands[] = {{1, 1, {10, 10, 50, 20}}, {0, 0, {10, 20, 50, 30}}, {0, 7, {10, 10, 50, 30}}};
    device().LineSpec(NoLine());
    device().FillSpec(Fill(Black));
    for (const auto& band : bands) {
        device().DrawRect(vRECT(0, 0, Side, Side));
        ASSERT_TRUE(device().DrawDIB(*picture, nullptr, nullptr, band.first, band.last, &target, 0, nullptr));
        EXPECT_EQ(Edges(Read().Ink()), band.ink) << band.first << "-" << band.last;
    }
    EXPECT_FALSE(device().DrawDIB(*picture, nullptr, nullptr, 2, 5, &target, 0, nullptr));
    EXPECT_FALSE(device().DrawDIB(*picture, nullptr, nullptr, -1, 1, &target, 0, nullptr));
}

TEST_F(DrawDibTest, KeepingTheAspectCentresThePictureOnTheBackground)
{
    vRECT target(0, 0, 80, 80);
    vCOLOUR background = Colour(RGB(9, 9, 9));
    ASSERT_TRUE(device().DrawDIB(*picture, nullptr, nullptr, 0, -1, &target, 1, &background));
    Pixels pixels = Read();
    EXPECT_EQ(std::vector<COLORREF>({pixels.At(40, 10), pixels.At(40, 70), pixels.At(10, 30), pixels.At(70, 50)}),
              std::vector<COLORREF>({RGB(9, 9, 9), RGB(9, 9, 9), Red, Red}));
    EXPECT_EQ(pixels.Count(RGB(9, 9, 9)), 80 * 40);
}

TEST_F(DrawDibTest, PaletteLinesAreDrawnInTheirColours)
{
    oMEMDIB mono;
    mono.SetHeader(oDIBHEADER(2, 1, 0, 0, oMODEL_MONO));
    PALETTEENTRY entries[] = {{0, 0, 255, 0}, {255, 255, 0, 0}};
    mono.SetPalette(oDIBPALETTE(entries, 2));
    unsigned char bits[4] = {0x40};
    mono.SetImageLines(bits, oMODEL_MONO, 0, 0);
    ASSERT_TRUE(device().DrawDIB(mono, vRECT(0, 0, 20, 10), nullptr));
    Pixels pixels = Read();
    EXPECT_EQ(std::vector<COLORREF>({pixels.At(5, 5), pixels.At(15, 5)}),
              std::vector<COLORREF>({Blue, RGB(255, 255, 0)}));
}

TEST_F(DrawDibTest, AWidePictureGoesInManyBandsWithoutSeams)
{
    oMEMDIB wide;
    wide.SetHeader(oDIBHEADER(3000, 23, 0, 0, oMODEL_RGB));
    std::vector<unsigned char> line(9000);
    for (size_t i = 0; i < line.size(); i += 3)
        line[i + 2] = 255;
    for (unsigned long n = 0; n < 23; ++n)
        wide.SetImageLines(line.data(), oMODEL_RGB, n, n);
    ASSERT_TRUE(device().DrawDIB(wide, vRECT(0, 0, 100, 100), nullptr));
    EXPECT_EQ(Read().Count(Red), 100 * 100);
}

TEST_F(DrawDibTest, AnEmptyPictureDrawsNothing)
{
    oMEMDIB empty;
    EXPECT_FALSE(device().DrawDIB(empty, vRECT(0, 0, 50, 50), nullptr));
    vRECT outside(10, 10, 20, 20);
    EXPECT_FALSE(device().DrawDIB(*picture, &outside, nullptr, 0, -1, nullptr, 0, nullptr));
    EXPECT_EQ(Edges(Read().Ink()), (std::vector<long>{0, 0, 0, 0}));
}

}  // namespace
