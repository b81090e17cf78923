#include "graphics/surface.h"

#include "graphics/deviceid.h"
#include "graphics/elpsshape.h"
#include "graphics/rectshape.h"

using namespace zktest;

namespace {

class DrawTest : public SurfaceTest {};

TEST_F(DrawTest, RectOutlineCoversLeftAndTopButNotRightAndBottom)
{
    device().LineSpec(Line(Red, 1));
    ASSERT_TRUE(device().DrawRect(vRECT(10, 10, 30, 20)));
    Pixels pixels = Read();
    ASSERT_TRUE(pixels.Read());
    EXPECT_EQ(pixels.At(10, 10), Red);
    EXPECT_EQ(pixels.At(29, 19), Red);
    EXPECT_EQ(pixels.At(29, 10), Red);
    EXPECT_EQ(pixels.At(10, 19), Red);
    EXPECT_EQ(pixels.At(30, 15), Black);
    EXPECT_EQ(pixels.At(20, 20), Black);
    EXPECT_EQ(pixels.At(20, 15), Black) << "a fresh device fills nothing";
    EXPECT_EQ(Edges(pixels.Ink()), (std::vector<long>{10, 10, 30, 20}));
}

TEST_F(DrawTest, FillCoversTheSameAreaAsTheOutline)
{
    device().LineSpec(NoLine());
    device().FillSpec(Fill(Blue));
    ASSERT_TRUE(device().DrawRect(vRECT(10, 10, 30, 20)));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.Count(Blue), 20 * 10);
    EXPECT_EQ(Edges(pixels.Ink()), (std::vector<long>{10, 10, 30, 20}));
}

TEST_F(DrawTest, ARectangleDrawsItselfWithTheDevicesSpecs)
{
    device().LineSpec(Line(Red, 1));
    device().FillSpec(Fill(Blue));
    vRECT(vINT(5), vINT(6), vINT(25), vINT(16)).Draw(device());
    Pixels pixels = Read();
    EXPECT_EQ(pixels.At(5, 6), Red);
    EXPECT_EQ(pixels.At(24, 15), Red);
    EXPECT_EQ(pixels.Count(Blue), 18 * 8);
    EXPECT_EQ(pixels.At(25, 16), Black);
}

TEST_F(DrawTest, OutlineIsDrawnOverTheFill)
{
    device().LineSpec(Line(Red, 1));
    device().FillSpec(Fill(Blue));
    device().DrawRect(vRECT(10, 10, 30, 20));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.At(10, 15), Red);
    EXPECT_EQ(pixels.At(11, 15), Blue);
    EXPECT_EQ(pixels.Count(Blue), 18 * 8);
}

TEST_F(DrawTest, WideOutlineStaysInsideTheRectangle)
{
    device().LineSpec(Line(Red, 4));
    device().DrawRect(vRECT(10, 10, 50, 50));
    Pixels pixels = Read();
    EXPECT_EQ(Edges(pixels.Ink()), (std::vector<long>{10, 10, 50, 50}));
    EXPECT_EQ(pixels.At(13, 30), Red);
    EXPECT_EQ(pixels.At(14, 30), Black);
}

int InkRowsAt(Pixels& pixels, int x)
{
    int rows = 0;
    for (int y = 0; y < 100; ++y)
        rows += pixels.At(x, y) != Black;
    return rows;
}

TEST_F(DrawTest, LineWidthSetsTheRowsOfInk)
{
    device().LineSpec(Line(Green, 1));
    device().DrawLine(vPOINT(10, 20), vPOINT(40, 20));
    device().LineSpec(Line(Green, 5));
    device().DrawLine(vPOINT(50, 60), vPOINT(90, 60));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.At(10, 20), Green);
    EXPECT_EQ(pixels.At(40, 20), Black) << "the last point is left out";
    EXPECT_EQ(InkRowsAt(pixels, 25), 1);
    EXPECT_EQ(InkRowsAt(pixels, 70), 5);
    EXPECT_EQ(pixels.At(70, 58), Green);
    EXPECT_EQ(pixels.At(70, 62), Green);
}

TEST_F(DrawTest, PolyLineVisitsEveryPointAndRemembersTheLast)
{
    device().LineSpec(Line(White, 1));
    ASSERT_TRUE(device().DrawLine(vINT(3), vPOINT(10, 10), vPOINT(50, 10), vPOINT(50, 40)));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.At(30, 10), White);
    EXPECT_EQ(pixels.At(50, 25), White);
    EXPECT_EQ(pixels.At(30, 25), Black);
    POINT last;
    struct Reader : vMEMDEVICE {
        using vDEVICE::LastPoint;
    };
    static_cast<Reader&>(device()).LastPoint(last);
    EXPECT_EQ(last.x, 50);
    EXPECT_EQ(last.y, 40);
}

TEST_F(DrawTest, DashesLeaveGapsAlongTheLine)
{
    device().LineSpec(Line(White, 1, vDASH_DASH));
    device().DrawLine(vPOINT(0, 10), vPOINT(Side, 10));
    const unsigned char pattern[6] = {2, 2};
    device().LineSpec(vLINESPEC(vLINE_SOLID, Colour(Red), 1, vCORNER_MITRE, vDASH_PATTERN, pattern));
    device().DrawLine(vPOINT(0, 20), vPOINT(Side, 20));
    Pixels pixels = Read();
    int dashed = 0;
    int patterned = 0;
    for (int x = 0; x < Side; ++x) {
        dashed += pixels.At(x, 10) == White;
        patterned += pixels.At(x, 20) == Red;
    }
    EXPECT_GT(dashed, Side / 3);
    EXPECT_LT(dashed, Side - 10);
    EXPECT_NEAR(patterned, Side / 2, 4) << "as much on as off";
}

TEST_F(DrawTest, PieFillsItsWedgeAndArcFillsNothing)
{
    device().LineSpec(Line(Red, 1));
    device().FillSpec(Fill(Blue));
    // Anticlockwise from the right middle to the top middle: the top right quarter.
    device().DrawPie(vRECT(0, 0, 80, 80), vPOINT(80, 40), vPOINT(40, 0));
    device().DrawArc(vRECT(0, 0, 80, 80), vPOINT(40, 80), vPOINT(0, 40));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.At(55, 25), Blue);
    EXPECT_EQ(pixels.At(25, 25), Black);
    EXPECT_EQ(pixels.At(25, 55), Black);
    RECT ink = pixels.Ink();
    EXPECT_EQ(ink.left, 0) << "the arc reaches the left edge";
    EXPECT_EQ(ink.bottom, 80);
}

TEST_F(DrawTest, ChordFillsOnlyBeyondItsLine)
{
    device().LineSpec(NoLine());
    device().FillSpec(Fill(Blue));
    device().DrawChord(vRECT(0, 0, 80, 80), vPOINT(80, 40), vPOINT(40, 0));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.At(66, 14), Blue);
    EXPECT_EQ(pixels.At(50, 30), Black);
}

TEST_F(DrawTest, RoundRectLeavesItsCornersOut)
{
    device().LineSpec(NoLine());
    device().FillSpec(Fill(Blue));
    device().DrawRoundRect(vRECT(10, 10, 60, 60), vSIZE(20, 20));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.At(11, 11), Black);
    EXPECT_EQ(pixels.At(35, 11), Blue);
    EXPECT_EQ(pixels.At(11, 35), Blue);
}

TEST_F(DrawTest, EllipseFillStaysInsideItsBox)
{
    device().LineSpec(NoLine());
    device().FillSpec(Fill(Blue));
    device().DrawEllipse(vRECT(20, 20, 60, 60));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.At(40, 40), Blue);
    EXPECT_EQ(pixels.At(21, 21), Black);
    RECT ink = pixels.Ink();
    EXPECT_EQ(ink.left, 20);
    EXPECT_EQ(ink.right, 60);
}

TEST_F(DrawTest, ShapeIsFilledAndOutlinedAlongItsPath)
{
    device().LineSpec(Line(Red, 1));
    device().FillSpec(Fill(Blue));
    device().DrawShape(vRECTSHAPE(vRECT(10, 10, 40, 40)));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.At(10, 10), Red);
    EXPECT_EQ(pixels.At(40, 40), Red);
    EXPECT_EQ(pixels.At(25, 25), Blue);
    EXPECT_EQ(pixels.At(45, 25), Black);
}

TEST_F(DrawTest, HatchedFillLeavesTheBackgroundBetweenItsLines)
{
    device().LineSpec(NoLine());
    device().FillSpec(Fill(Green, vFILL_HATCH_CROSS));
    device().DrawRect(vRECT(0, 0, 40, 40));
    Pixels pixels = Read();
    int green = pixels.Count(Green);
    EXPECT_GT(green, 0);
    EXPECT_LT(green, 40 * 40 / 2);
}

// The same stripes of colour each time, for mixes to work against.
void Stripes(const ForeignContext& context)
{
    for (int band = 0; band < 10; ++band) {
        HBRUSH brush = CreateSolidBrush(RGB(25 * band, 255 - 20 * band, band % 2 ? 200 : 40));
        RECT row = {0, band * context.side / 10, context.side, (band + 1) * context.side / 10};
        FillRect(context.dc, &row, brush);
        DeleteObject(brush);
    }
}

struct FILLCASE {
    vFILLTYPE type;
    int transparent;
    int hatch;
};

// A fill is painted as a pattern; every mix mode, every kind of brush and
// rectangles in order, reversed, empty and of one pixel must come out as the
// platform's pen-less rectangle one pixel larger each way. The device draws
// on a context handed in, whose mix mode it leaves alone.
TEST_F(DrawTest, FillPaintsWhatAPenlessRectanglePaints)
{
    const FILLCASE fills[] = {{vFILL_SOLID, 0, -1}, {vFILL_HATCH_CROSS, 0, HS_CROSS},
                              {vFILL_HATCH_CROSS, 1, HS_CROSS}};
    const RECT rects[] = {{10, 12, 40, 30}, {40, 30, 10, 12}, {20, 5, 20, 50}, {21, 5, 20, 50}, {60, 60, 61, 61}};
    const COLORREF ink = RGB(90, 160, 30);
    const COLORREF paper = RGB(200, 20, 120);
    ForeignContext target(Side);
    ForeignContext reference(Side);
    HGDIOBJ originalPen = SelectObject(reference.dc, GetStockObject(NULL_PEN));
    {
        vDEVICEID device(target.dc);
        device.LineSpec(NoLine());
        for (int mix = R2_BLACK; mix <= R2_WHITE; ++mix) {
            SetROP2(target.dc, mix);
            SetROP2(reference.dc, mix);
            for (const FILLCASE& fill : fills) {
                device.Transparency(fill.transparent);
                device.FillSpec(vFILLSPEC(fill.type, Colour(ink), Colour(paper), vANGLE(), vFILL_ALTERNATE));
                SetBkMode(reference.dc, fill.transparent ? TRANSPARENT : OPAQUE);
                SetBkColor(reference.dc, paper);
                HBRUSH brush = fill.hatch < 0 ? CreateSolidBrush(ink) : CreateHatchBrush(fill.hatch, ink);
                HGDIOBJ before = SelectObject(reference.dc, brush);
                for (const RECT& rect : rects) {
                    Stripes(target);
                    Stripes(reference);
                    device.DrawRect(vRECT(rect.left, rect.top, rect.right, rect.bottom));
                    Rectangle(reference.dc, rect.left, rect.top, rect.right + 1, rect.bottom + 1);
                    EXPECT_TRUE(target.Read() == reference.Read())
                        << "mix " << mix << ", brush " << fill.hatch << ", transparent " << fill.transparent
                        << ", rect " << rect.left << "," << rect.top << "," << rect.right << "," << rect.bottom;
                }
                DeleteObject(SelectObject(reference.dc, before));
            }
        }
    }
    SelectObject(reference.dc, originalPen);
}

// A memory device's context keeps the settings and objects of one pass for
// the next; whatever else changes them in between, the next pass still draws
// with its own. The hatch repeats every 8 pixels, so a copy 48 pixels along
// each way must match to the pixel.
TEST_F(DrawTest, ALastingContextStillDrawsWithItsOwnSettings)
{
    device().LineSpec(Line(Red, 1));
    device().FillSpec(vFILLSPEC(vFILL_HATCH_CROSS, Colour(Blue), Colour(White), vANGLE(), vFILL_ALTERNATE));
    device().Transparency(0);
    device().DrawRect(vRECT(0, 0, 40, 40));
    HDC dc = device().GetWinDC();
    SetBkMode(dc, TRANSPARENT);
    SetBkColor(dc, Green);
    SetTextColor(dc, Green);
    SetPolyFillMode(dc, WINDING);
    SelectObject(dc, GetStockObject(WHITE_PEN));
    SelectObject(dc, GetStockObject(GRAY_BRUSH));
    device().DrawRect(vRECT(48, 48, 88, 88));
    Pixels pixels = Read();
    int differing = 0;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 40; ++x)
            differing += pixels.At(x, y) != pixels.At(x + 48, y + 48);
    EXPECT_EQ(differing, 0);
    EXPECT_GT(pixels.Count(White), 0) << "the gaps of the hatch are painted";
}

class ClipTest : public SurfaceTest {
protected:
    void FloodAll()
    {
        device().LineSpec(NoLine());
        device().FillSpec(Fill(White));
        device().DrawRect(vRECT(0, 0, Side, Side));
    }
};

TEST_F(ClipTest, RectangleKeepsDrawingInside)
{
    ASSERT_TRUE(device().ClipArea(vRECT(20, 30, 40, 70)));
    FloodAll();
    Pixels pixels = Read();
    EXPECT_EQ(Edges(pixels.Ink()), (std::vector<long>{20, 30, 40, 70}));
    EXPECT_EQ(pixels.Count(White), 20 * 40);
}

TEST_F(ClipTest, EllipseShapeCutsTheCorners)
{
    ASSERT_TRUE(device().ClipArea(vELPSSHAPE(vRECT(10, 10, 70, 70))));
    FloodAll();
    Pixels pixels = Read();
    EXPECT_EQ(pixels.At(40, 40), White);
    EXPECT_EQ(pixels.At(40, 12), White);
    EXPECT_EQ(pixels.At(12, 12), Black);
    EXPECT_EQ(pixels.At(67, 67), Black);
    RECT ink = pixels.Ink();
    EXPECT_GE(ink.left, 9);
    EXPECT_LE(ink.right, 72);
    EXPECT_GT(pixels.Count(White), 2600);
    EXPECT_LT(pixels.Count(White), 3000);
}

TEST_F(ClipTest, IntersectTellsWhatLiesInside)
{
    EXPECT_TRUE(device().ClipAreaIntersect(vPOINT(500, 500))) << "no clip lets everything through";
    device().ClipArea(vRECT(20, 20, 40, 40));
    EXPECT_TRUE(device().ClipAreaIntersect(vPOINT(20, 20)));
    EXPECT_FALSE(device().ClipAreaIntersect(vPOINT(40, 30)));
    EXPECT_TRUE(device().ClipAreaIntersect(vRECT(35, 35, 60, 60)));
    EXPECT_FALSE(device().ClipAreaIntersect(vRECT(45, 45, 60, 60)));
    EXPECT_TRUE(device().ClipArea() == vRECT(20, 20, 40, 40));
    device().ClearClipArea();
    EXPECT_TRUE(device().ClipArea() == vRECT(0, 0, Side, Side));
}

}  // namespace

namespace {

class DrawModeTest : public SurfaceTest {};

TEST_F(DrawModeTest, ExclusiveOrDrawnTwiceLeavesNoTrace)
{
    device().LineSpec(NoLine());
    device().FillSpec(Fill(RGB(200, 100, 50)));
    device().DrawRect(vRECT(0, 0, 50, Side));
    Pixels before = Read();
    device().DrawMode(vDRAW_XOR);
    device().LineSpec(Line(RGB(10, 200, 30), 3));
    device().FillSpec(Fill(RGB(90, 60, 255)));
    device().DrawRect(vRECT(20, 20, 80, 80));
    device().DrawEllipse(vRECT(10, 30, 90, 70));
    device().DrawLine(vPOINT(0, 5), vPOINT(99, 95));
    Pixels once = Read();
    EXPECT_FALSE(once == before);
    EXPECT_EQ(once.At(30, 25), RGB(200 ^ 90, 100 ^ 60, 50 ^ 255));
    device().DrawRect(vRECT(20, 20, 80, 80));
    device().DrawEllipse(vRECT(10, 30, 90, 70));
    device().DrawLine(vPOINT(0, 5), vPOINT(99, 95));
    EXPECT_TRUE(Read() == before);
}

class GdiLeakTest : public SurfaceTest {
protected:
    // Every kind of drawing, each with fresh specs, so that every pen, brush,
    // font and region the device makes is made again.
    void DrawEverything(int round)
    {
        COLORREF colour = RGB(round & 0xFF, 100, 200);
        device().PushState();
        device().LineSpec(Line(colour, 1 + round % 4, static_cast<vDASHTYPE>(round % 5)));
        device().FillSpec(Fill(colour, round % 2 ? vFILL_SOLID : vFILL_HATCH_CROSS));
        device().FontSpec(vFONTSPEC(vSTRING(), vFONT_BOLD, 8 + round % 5, vREAL(1.5), 100,
                                    vFONT_POINTS, vANGLE()));
        device().ClipArea(vELPSSHAPE(vRECT(0, 0, 90, 90)));
        device().PushClipArea();
        device().ClipArea(vRECT(5, 5, 95, 95));
        device().DrawRect(vRECT(1, 1, 50, 50));
        device().DrawEllipse(vRECT(10, 10, 60, 40));
        device().DrawRoundRect(vRECT(10, 10, 60, 40), vSIZE(6, 6));
        device().DrawPie(vRECT(10, 10, 60, 60), vPOINT(60, 35), vPOINT(35, 10));
        device().DrawShape(vRECTSHAPE(vRECT(20, 20, 30, 30)));
        device().Transparency(round % 2);
        device().DrawTextA(vSTRING("Leak"), vRECT(0, 0, 100, 30), vTEXT_CENTRE);
        device().DrawChar(vCHAR('x'), vPOINT(3, 3));
        device().GetCurFontDetail()->GetDefStringWidth(vSTRING("width"));
        device().PopClipArea();
        device().PopState();
    }
};

TEST_F(GdiLeakTest, ManyDrawingsHoldNoMoreObjectsThanOne)
{
    DrawEverything(0);
    unsigned long before = LiveGdiObjects();
    ASSERT_GT(before, 0u);
    for (int round = 1; round <= 300; ++round)
        DrawEverything(round);
    EXPECT_EQ(LiveGdiObjects(), before);
}

TEST_F(GdiLeakTest, ADeviceGivesBackAllItMadeWhenItDies)
{
    unsigned long before = LiveGdiObjects();
    {
        vMEMDEVICE other(vSIZE(30, 30));
        other.LineSpec(Line(Red, 2));
        other.FillSpec(Fill(Blue));
        other.ClipArea(vRECT(0, 0, 10, 10));
        other.PushState();
        other.DrawRect(vRECT(0, 0, 20, 20));
        other.DrawTextA(vSTRING("x"), vRECT(0, 0, 20, 20), vTEXT_LEFT);
    }
    EXPECT_EQ(LiveGdiObjects(), before);
}

}  // namespace
