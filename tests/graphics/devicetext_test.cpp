#include "graphics/surface.h"

using namespace zktest;

namespace {

class TextTest : public SurfaceTest {
protected:
    void SetUp() override
    {
        SurfaceTest::SetUp();
        device().FontSpec(vFONTSPEC(vSTRING(), vFONT_BOLD, 20, vREAL(1), 100, vFONT_PIXELS, vANGLE()));
        device().LineSpec(Line(White, 1));
    }

    RECT InkOf(vTEXTALIGN align)
    {
        device().DrawTextA(vSTRING("HIH"), vRECT(0, 20, Side, 60), align);
        return Read().Ink();
    }
};

TEST_F(TextTest, LeftAlignedInkStartsAtTheLeftEdge)
{
    RECT ink = InkOf(vTEXT_LEFT);
    ASSERT_GT(ink.right, ink.left);
    EXPECT_GE(ink.left, 0);
    EXPECT_LE(ink.left, 3);
    EXPECT_LT(ink.right, 60);
}

TEST_F(TextTest, RightAlignedInkEndsAtTheRightEdge)
{
    RECT ink = InkOf(vTEXT_RIGHT);
    ASSERT_GT(ink.right, ink.left);
    EXPECT_LE(ink.right, Side);
    EXPECT_GE(ink.right, Side - 3);
    EXPECT_GT(ink.left, 40);
}

TEST_F(TextTest, CentredInkIsCentredBothWays)
{
    RECT ink = InkOf(vTEXT_CENTRE);
    ASSERT_GT(ink.right, ink.left);
    EXPECT_NEAR((ink.left + ink.right) / 2.0, Side / 2.0, 2.0);
    EXPECT_NEAR((ink.top + ink.bottom) / 2.0, 40.0, 4.0);
    EXPECT_GE(ink.top, 20);
    EXPECT_LE(ink.bottom, 60);
}

TEST_F(TextTest, InkIsInTheLineColourAndAsWideAsMeasured)
{
    RECT ink = InkOf(vTEXT_LEFT);
    Pixels pixels = Read();
    EXPECT_GT(pixels.Count(White), 0);
    vINT measured = device().GetCurFontDetail()->GetDefStringWidth(vSTRING("HIH"));
    EXPECT_NEAR(ink.right - ink.left, measured(), 4);
}

TEST_F(TextTest, OpaqueTextFillsItsBoxFirst)
{
    device().Transparency(0);
    device().FillSpec(Fill(Blue));
    device().DrawTextA(vSTRING("HIH"), vRECT(0, 20, Side, 60), vTEXT_CENTRE);
    Pixels pixels = Read();
    EXPECT_GT(pixels.Count(Blue), 0);
    EXPECT_GT(pixels.Count(White), 0);
    EXPECT_EQ(pixels.At(1, 40), Black) << "only the text's own box is filled";
}

TEST_F(TextTest, FontHeightFollowsTheSpecAndTheLogicalUnits)
{
    vFONTDETAIL* detail = device().GetCurFontDetail();
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ((detail->Ascent() + detail->Descent())(), 20);
    device().LogUnitsPerVertInch(device().DevUnitsPerVertInch() * vINT(2));
    detail = device().GetCurFontDetail();
    EXPECT_EQ((detail->Ascent() + detail->Descent())(), 20) << "still 20 logical units high";
    device().DrawTextA(vSTRING("HIH"), vRECT(0, 0, Side, 40), vTEXT_LEFT);
    RECT ink = Read().Ink();
    EXPECT_LE(ink.bottom - ink.top, 11);
}

TEST_F(TextTest, ExpansionWidensTheCharacters)
{
    vINT natural = device().GetCurFontDetail()->GetDefStringWidth(vSTRING("HIH"));
    device().FontSpec(vFONTSPEC(vSTRING(), vFONT_BOLD, 20, vREAL(2), 100, vFONT_PIXELS, vANGLE()));
    vINT wide = device().GetCurFontDetail()->GetDefStringWidth(vSTRING("HIH"));
    EXPECT_GT(wide(), natural() * 3 / 2);
    EXPECT_LT(wide(), natural() * 5 / 2);
}

// A device whose fonts are scaled, as a dialog's are.
class RatioDevice : public vMEMDEVICE {
public:
    RatioDevice() : vMEMDEVICE(vSIZE(10, 10)) {}
    using vDEVICE::SetFontRatio;
};

TEST_F(TextTest, FontRatioScalesEveryFont)
{
    RatioDevice scaled;
    scaled.FontSpec(vFONTSPEC(vSTRING(), vFONT_NORMAL, 20, vREAL(1), 100, vFONT_PIXELS, vANGLE()));
    vFONTDETAIL* detail = scaled.GetCurFontDetail();
    EXPECT_EQ((detail->Ascent() + detail->Descent())(), 20);
    scaled.SetFontRatio(vREAL(2));
    detail = scaled.GetCurFontDetail();
    EXPECT_NEAR((detail->Ascent() + detail->Descent())(), 40, 1);
}

TEST_F(TextTest, DetailWithoutADeviceMeasuresNothing)
{
    vFONTDETAIL loose;
    EXPECT_FALSE(loose.Init());
    EXPECT_EQ(loose.GetDefStringWidth(vSTRING("HIH"))(), 0);
    EXPECT_EQ(loose.Ascent()(), 0);
}

TEST_F(TextTest, DrawCharPutsTheCellAtThePoint)
{
    device().DrawChar(vCHAR('H'), vPOINT(30, 30));
    RECT ink = Read().Ink();
    EXPECT_GE(ink.left, 30);
    EXPECT_LE(ink.left, 33);
    EXPECT_GE(ink.top, 30);
    EXPECT_LE(ink.bottom, 50);
}

TEST_F(TextTest, AdvancesSpaceTheCharacters)
{
    const short wide[] = {40, 40};
    device().DrawTextOnLine(vSTRING("II"), vPOINT(0, 0), wide);
    RECT ink = Read().Ink();
    EXPECT_GE(ink.right - ink.left, 40);
}

}  // namespace
