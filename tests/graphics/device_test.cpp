#include "graphics/surface.h"

#include <functional>

#include "graphics/dib.h"
#include "graphics/elpsshape.h"
#include "graphics/rectshape.h"
#include "support/zktest.h"

using namespace zktest;

namespace {

using Ints = std::vector<long>;
using Colours = std::vector<COLORREF>;
using Spots = std::vector<std::pair<POINT, COLORREF>>;

// Two squares overlapping from (30, 30) to (50, 50), traced the same way round.
vSHAPE Overlapping() {
    vSHAPE shape;
    for (long at : {10, 30})
        for (const vBEZPOINT& corner : {vBEZPOINT(vPOINT(at, at), 9), vBEZPOINT(vPOINT(at + 40, at), 8),
                                        vBEZPOINT(vPOINT(at + 40, at + 40), 8), vBEZPOINT(vPOINT(at, at + 40), 10)})
            shape.AppendPoint(corner);
    return shape;
}

// Logical units per inch as a multiple of the device's, in halves.
void Halves(vDEVICE& device, long halves) {
    device.LogUnitsPerHorzInch(device.DevUnitsPerHorzInch()() * halves / 2);
    device.LogUnitsPerVertInch(device.DevUnitsPerVertInch()() * halves / 2);
}
void Solid(vDEVICE& device, COLORREF colour, vFILLMODE mode = vFILL_ALTERNATE) {
    device.LineSpec(NoLine());
    device.FillSpec(Fill(colour, vFILL_SOLID, mode));
}
void ExpectSpots(const Pixels& pixels, const Spots& spots) {
    for (const auto& spot : spots)
        EXPECT_EQ(pixels.At(spot.first.x, spot.first.y), spot.second) << spot.first.x << "," << spot.first.y;
}

const unsigned char TwoOnTwoOff[6] = {2, 2};

// A drawing on a fresh black memory device: its ink's box (if given), pixels, how many of a colour.
const struct {
    const char* what;
    Ints ink;
    Spots spots;
    COLORREF counted;
    int least, most;
    std::function<void(vMEMDEVICE&)> draw;
} Drawings[] = {
    {"an outline covers its left and top edges, not its right and bottom ones; a fresh device fills nothing",
     {10, 10, 30, 20}, {{{20, 15}, Black}}, Red, 56, 56,
     [](vMEMDEVICE& d) { d.LineSpec(Line(Red, 1)); d.DrawRect(vRECT(10, 10, 30, 20)); }},
    {"a fill without a pen covers what the outline does", {10, 10, 30, 20}, {}, Blue, 200, 200,
     [](vMEMDEVICE& d) { Solid(d, Blue); d.DrawRect(vRECT(10, 10, 30, 20)); }},
    {"a wide outline stays inside the rectangle", {10, 10, 50, 50}, {{{13, 30}, Red}, {{14, 30}, Black}}, Red, 1, 576,
     [](vMEMDEVICE& d) { d.LineSpec(Line(Red, 4)); d.DrawRect(vRECT(10, 10, 50, 50)); }},
    {"lines leave out their last point, poly-lines visit every point, and a line is as thick as it is wide",
     {}, {{{10, 20}, Green}, {{40, 30}, Green}, {{40, 40}, Black}, {{70, 57}, Black},
          {{70, 58}, Green}, {{70, 62}, Green}, {{70, 63}, Black}}, Green, 1, 9999,
     [](vMEMDEVICE& d) {
         d.LineSpec(Line(Green, 1));
         d.DrawLine(vINT(3), vPOINT(10, 20), vPOINT(40, 20), vPOINT(40, 40));
         d.LineSpec(Line(Green, 5));
         d.DrawLine(vPOINT(50, 60), vPOINT(90, 60));
     }},
    {"a dash pattern of two on and two off is as much on as off", {}, {}, Red, 46, 54, [](vMEMDEVICE& d) {
         d.LineSpec(Line(Red, 1, vDASH_PATTERN, TwoOnTwoOff));
         d.DrawLine(vPOINT(0, 20), vPOINT(100, 20));
     }},
    {"a pie fills its wedge anticlockwise from the first ray",
     {}, {{{55, 25}, Blue}, {{25, 25}, Black}, {{55, 55}, Black}}, Blue, 1, 1600,
     [](vMEMDEVICE& d) { Solid(d, Blue); d.DrawPie(vRECT(0, 0, 80, 80), vPOINT(80, 40), vPOINT(40, 0)); }},
    {"a shape is filled, then outlined along its path",
     {10, 10, 41, 41}, {{{10, 10}, Red}, {{40, 40}, Red}, {{10, 25}, Red}, {{11, 25}, Blue}}, Blue, 1, 900,
     [](vMEMDEVICE& d) {
         d.LineSpec(Line(Red, 1));
         d.FillSpec(Fill(Blue));
         d.DrawShape(vRECTSHAPE(vRECT(10, 10, 40, 40)));
     }},
    {"the alternate rule leaves the overlap of two contours empty",
     {10, 10, 70, 70}, {{{20, 20}, Blue}, {{40, 40}, Black}}, Blue, 1, 3200,
     [](vMEMDEVICE& d) { Solid(d, Blue); d.DrawShape(Overlapping()); }},
    {"the winding rule fills it", {10, 10, 70, 70}, {{{40, 40}, Blue}}, Blue, 1, 3200,
     [](vMEMDEVICE& d) { Solid(d, Blue, vFILL_WINDING); d.DrawShape(Overlapping()); }},
    {"a hatch leaves the background between its lines", {}, {}, Green, 1, 799,
     [](vMEMDEVICE& d) { d.FillSpec(Fill(Green, vFILL_HATCH_CROSS)); d.DrawRect(vRECT(0, 0, 40, 40)); }},
    {"with two logical units to a pixel, drawing lands where the conversion says", {1, 1, 5, 5}, {}, White, 16, 16,
     [](vMEMDEVICE& d) { Halves(d, 4); Solid(d, White); d.DrawRect(vRECT(3, 3, 9, 9)); }},
    {"a line's width is in logical units",
     {}, {{{50, 37}, Black}, {{50, 38}, Red}, {{50, 41}, Red}, {{50, 42}, Black}}, Red, 1, 9999,
     [](vMEMDEVICE& d) { Halves(d, 1); d.LineSpec(Line(Red, 2)); d.DrawLine(vPOINT(5, 20), vPOINT(40, 20)); }},
    {"a clip rectangle keeps drawing inside", {20, 30, 40, 70}, {}, White, 800, 800,
     [](vMEMDEVICE& d) { d.ClipArea(vRECT(20, 30, 40, 70)); Solid(d, White); d.DrawRect(vRECT(0, 0, 100, 100)); }},
    {"a clip ellipse cuts the corners",
     {}, {{{40, 12}, White}, {{12, 12}, Black}, {{67, 67}, Black}, {{8, 40}, Black}, {{72, 40}, Black}},
     White, 2601, 2999, [](vMEMDEVICE& d) {
         d.ClipArea(vELPSSHAPE(vRECT(10, 10, 70, 70)));
         Solid(d, White);
         d.DrawRect(vRECT(0, 0, 100, 100));
     }},
    {"exclusive or drawn twice leaves no trace", {0, 0, 50, 100}, {}, RGB(200, 100, 50), 5000, 5000,
     [](vMEMDEVICE& d) {
         Solid(d, RGB(200, 100, 50));
         d.DrawRect(vRECT(0, 0, 50, 100));
         d.DrawMode(vDRAW_XOR);
         d.LineSpec(Line(RGB(10, 200, 30), 3));
         d.FillSpec(Fill(RGB(90, 60, 255)));
         for (int twice = 0; twice < 2; ++twice) {
             d.DrawRect(vRECT(20, 20, 80, 80));
             d.DrawEllipse(vRECT(10, 30, 90, 70));
             d.DrawLine(vPOINT(0, 5), vPOINT(99, 95));
         }
     }},
};

class DeviceTest : public SurfaceTest {};

TEST_F(DeviceTest, EveryDrawingPutsItsInkWhereItBelongs) {
    for (const auto& drawing : Drawings) {
        SCOPED_TRACE(drawing.what);
        vMEMDEVICE device(vSIZE(Side, Side));
        drawing.draw(device);
        Pixels pixels(device);
        EXPECT_EQ(drawing.ink.empty() ? drawing.ink : pixels.Ink(), drawing.ink);
        ExpectSpots(pixels, drawing.spots);
        EXPECT_TRUE(pixels.Count(drawing.counted) >= drawing.least && pixels.Count(drawing.counted) <= drawing.most)
            << pixels.Count(drawing.counted);
    }
}

// A fill is a pattern: in every mix of a context handed in, with every kind of brush, over rectangles
// in order, reversed, empty and of one pixel, it paints a pen-less rectangle one pixel larger each way.
TEST_F(DeviceTest, AFillPaintsWhatAPenlessRectanglePaintsInEveryMix) {
    const int fills[][3] = {{vFILL_SOLID, 0, -1}, {vFILL_HATCH_CROSS, 0, HS_CROSS},
                            {vFILL_HATCH_DIAGCROSS, 1, HS_DIAGCROSS}};
    const RECT rects[] = {{10, 12, 40, 30}, {40, 30, 10, 12}, {20, 5, 20, 50}, {21, 5, 20, 50}, {60, 60, 61, 61}};
    const COLORREF ink = RGB(90, 160, 30), paper = RGB(200, 20, 120);
    ForeignContext target(Side), reference(Side);
    SelectObject(reference.dc, GetStockObject(NULL_PEN));
    vDEVICEID device(target.dc);
    device.LineSpec(NoLine());
    for (int mix = R2_BLACK; mix <= R2_WHITE; ++mix)
        for (const auto& fill : fills) {
            device.Transparency(fill[1]);
            device.FillSpec(Fill(ink, vFILLTYPE(fill[0]), vFILL_ALTERNATE, paper));
            SetBkMode(reference.dc, fill[1] ? TRANSPARENT : OPAQUE);
            SetBkColor(reference.dc, paper);
            HBRUSH brush = fill[2] < 0 ? CreateSolidBrush(ink) : CreateHatchBrush(fill[2], ink);
            HGDIOBJ before = SelectObject(reference.dc, brush);
            for (const RECT& r : rects) {
                for (RECT band = {0, 0, Side, 10}; band.top < Side; band.top += 10, band.bottom += 10)
                    for (const ForeignContext* context : {&target, &reference})
                        FillRect(context->dc, &band, HBRUSH(GetStockObject(band.top / 10 % 5)));
                device.DrawRect(vRECT(r.left, r.top, r.right, r.bottom));
                Rectangle(reference.dc, r.left, r.top, r.right + 1, r.bottom + 1);
                EXPECT_TRUE(target.Read() == reference.Read())
                    << "mix " << mix << ", fill " << fill[0] << ", rect " << r.left << "," << r.top;
            }
            DeleteObject(SelectObject(reference.dc, before));
        }
}

// Fresh specs each time make every pen, brush, font and region again; none stays once the device is gone.
TEST_F(DeviceTest, NoDrawingLeavesAnObjectBehind) {
    unsigned long before = LiveGdiObjects();
    {
        vMEMDEVICE other(vSIZE(Side, Side));
        for (int round = 0; round <= 300; ++round) {
            other.PushState();
            other.LineSpec(Line(RGB(round, 1, 2), 1 + round % 4, vDASHTYPE(round % 5)));
            other.FillSpec(Fill(RGB(round, 1, 2), vFILLTYPE(round % 2 ? vFILL_SOLID : vFILL_HATCH_CROSS)));
            other.FontSpec(vFONTSPEC(vSTRING(), vFONT_BOLD, 8 + round % 5, vREAL(1.5), 100, vFONT_POINTS, vANGLE()));
            other.ClipArea(vELPSSHAPE(vRECT(0, 0, 90, 90)));
            other.DrawShape(vRECTSHAPE(vRECT(20, 20, 30, 30)));
            other.DrawTextA(vSTRING("Leak"), vRECT(0, 0, 100, 30), vTEXT_CENTRE);
            if (round < 300)
                other.PopState();
        }
    }
    EXPECT_EQ(LiveGdiObjects(), before);
}

// Each pop takes the newest entry of its kind wherever it stands; a whole state's pop ignores single pushes and
// restores specs, clip and origin; a copy, made or assigned, carries the stack in its order as its own.
TEST_F(DeviceTest, EachPopFindsTheNewestEntryOfItsOwnKind) {
    vFONTSPEC bold(vSTRING("Arial"), vFONT_BOLD, 12, vREAL(1), 100, vFONT_POINTS, vANGLE());
    device().LineSpec(Line(Red, 1));
    device().FontSpec(bold);
    ASSERT_TRUE(device().PushLineSpec() && device().PushFontSpec());
    for (COLORREF colour : {Red, Green, Blue}) {
        device().FillSpec(Fill(colour));
        if (colour != Blue)
            device().PushFillSpec();
    }
    device().ClipArea(vRECT(1, 2, 3, 4));
    device().LineSpec(Line(Green, 1));
    device().FontSpec(vFONTSPEC());
    vDEVICEID assigned(nullptr);
    static_cast<vDEVICE&>(assigned) = device();
    vDEVICEID made(assigned);
    ASSERT_TRUE(device().PopLineSpec() && !device().PopLineSpec() && device().PopFontSpec());
    EXPECT_TRUE(device().FontSpec() == bold && made.PopLineSpec() && made.LineSpec() == Line(Red, 1));
    for (vDEVICE* copy : std::initializer_list<vDEVICE*>{&made, &assigned, &device()}) {
        EXPECT_TRUE(copy->FillSpec() == Fill(Blue));
        for (COLORREF colour : {Green, Red})
            EXPECT_TRUE(copy->PopFillSpec() && copy->FillSpec() == Fill(colour));
        EXPECT_EQ(Ints({copy->PopFillSpec(), copy->ClipAreaIntersect(vPOINT(1, 2)),
                        copy->ClipAreaIntersect(vPOINT(5, 5))}), Ints({0, 1, 0}));
    }
    device().ClipArea(vRECT(0, 0, 50, 50));
    ASSERT_TRUE(device().PushLineSpec() && !device().PopState() && device().PopLineSpec() && device().PushState());
    device().LineSpec(Line(Green, 3));
    device().ClearClipArea();
    device().Origin(vPOINT(-20, -20));
    ASSERT_TRUE(device().PopState());
    device().DrawLine(vPOINT(0, 40), vPOINT(90, 40));
    EXPECT_EQ(Read().Ink(), Ints({0, 40, 50, 41})) << "a red line of one pixel, clipped, at no origin";
    EXPECT_EQ(Ints({Read().Count(Red), device().ClipAreaIntersect(vRECT(45, 45, 60, 60)),
                    device().ClipAreaIntersect(vRECT(50, 0, 60, 9))}), Ints({50, 1, 0}));
}

// Positions floor; a rectangle's far edges and a device length take the ceiling,
// so nothing given vanishes; a logical length floors. A colour shades by a fraction.
TEST_F(DeviceTest, UnitsConvertByTheirRoundingRules) {
    auto point = [](const vPOINT& p) { return Ints{p.x(), p.y()}; };
    auto rect = [](const vRECT& r) { return Ints{r.Left()(), r.Top()(), r.Right()(), r.Bottom()()}; };
    const std::tuple<long, std::function<Ints(vDEVICE&)>, Ints> rows[] = {
        {0, [&](vDEVICE& d) { return point(d.LPtoDP(vPOINT(-7, 13))); }, {-7, 13}},
        {4, [&](vDEVICE& d) { return point(d.LPtoDP(vPOINT(3, 4))); }, {1, 2}},
        {4, [&](vDEVICE& d) { return rect(d.LPtoDP(vRECT(3, 3, 9, 10))); }, {1, 1, 5, 5}},
        {4, [&](vDEVICE& d) { return rect(d.LPtoDP(vRECT(-3, -3, -1, -1))); }, {-2, -2, -2, -2}},
        {1, [&](vDEVICE& d) { return rect(d.DPtoLP(vRECT(1, 1, 3, 3))); }, {0, 0, 2, 2}},
        {4, [](vDEVICE& d) { return Ints{d.LHtoDH(1)(), d.LVtoDV(0)(), d.LHtoDH(4)(), d.LVtoDV(-1)(), d.DHtoLH(3)()}; },
         {1, 0, 2, -2, 6}},
        {1, [](vDEVICE& d) { return Ints{d.DHtoLH(3)(), d.DVtoLV(-3)(), d.LVtoDV(3)()}; }, {1, -2, 6}},
        {2, [&](vDEVICE& d) { d.Origin(vPOINT(10, 20)); return point(d.DPtoLP(vPOINT(0, 0))); }, {10, 20}},
    };
    vCOLOUR colour(200, 100, 50);
    EXPECT_TRUE(device().DisplayMode(vDISPLAY_SHADE, colour, 1, 2) && colour == vCOLOUR(100, 50, 25));
    EXPECT_FALSE(device().DisplayMode(vDISPLAY_SHADE, colour, 1, 0));
    EXPECT_TRUE(device().DisplayMode(vDISPLAY_NEAREST, colour, 0, 0) && colour == vCOLOUR(100, 50, 25))
        << "a deep device shows every colour";
    EXPECT_TRUE(device().LogUnitsPerVertInch() == device().DevUnitsPerVertInch() && device().GetNoColours()() > 255);
    for (const auto& row : rows) {
        vMEMDEVICE fresh(vSIZE(10, 10));
        Halves(fresh, std::get<0>(row));
        EXPECT_EQ(std::get<1>(row)(fresh), std::get<2>(row)) << "at " << std::get<0>(row) << " halves";
    }
}

vFONTSPEC Font() { return vFONTSPEC(vSTRING(), vFONT_BOLD, 20, vREAL(1), 100, vFONT_PIXELS, vANGLE()); }
long Height(vDEVICE& device) { return (device.GetCurFontDetail()->Ascent() + device.GetCurFontDetail()->Descent())(); }

// "HIH" 20 units high lies across the band from 20 to 60 as aligned and as wide as measured, centred from top to
// bottom, in the line colour, an opaque device filling its box first. Heights are in logical units, and a character's
// cell starts at its point.
TEST_F(DeviceTest, TextLiesAsAlignedAndMeasuresFollowTheSpecAndTheUnits) {
    device().FontSpec(Font());
    const long width = device().GetCurFontDetail()->GetDefStringWidth(vSTRING("HIH"))();
    for (const auto& row :
         {std::make_pair(vTEXT_LEFT, 0L), {vTEXT_RIGHT, Side - width}, {vTEXT_CENTRE, (Side - width) / 2}}) {
        vMEMDEVICE fresh(vSIZE(Side, Side));
        fresh.FontSpec(Font());
        fresh.LineSpec(Line(White, 1));
        fresh.Transparency(row.first != vTEXT_CENTRE);
        fresh.FillSpec(Fill(Blue));
        fresh.DrawTextA(vSTRING("HIH"), vRECT(0, 20, Side, 60), row.first);
        Pixels pixels(fresh);
        Ints ink = pixels.Ink();
        EXPECT_EQ(Ints({std::abs(ink[0] - row.second) <= 3, std::abs(ink[2] - row.second - width) <= 3,
                        std::abs(ink[1] + ink[3] - 80) <= 8, ink[1] >= 20 && ink[3] <= 60, pixels.Count(Blue) > 0,
                        row.first != vTEXT_CENTRE || pixels.At(1, 40) == Black}),
                  Ints({1, 1, 1, 1, row.first == vTEXT_CENTRE, 1})) << row.first;
    }
    EXPECT_EQ(Height(device()), 20);
    device().LogUnitsPerVertInch(device().DevUnitsPerVertInch() * vINT(2));
    device().LineSpec(Line(White, 1));
    device().DrawChar(vCHAR('H'), vPOINT(30, 30));
    Ints ink = Read().Ink();
    EXPECT_TRUE(Height(device()) == 20 && ink[0] >= 30 && ink[0] <= 33 && ink[1] >= 15 && ink[3] - ink[1] <= 11)
        << "still 20 units high";
    EXPECT_EQ(vFONTDETAIL().GetDefStringWidth(vSTRING("HIH"))(), 0) << "a detail without a device measures nothing";
}

// A picture of 4 by 2, top row red, green, blue, white, bottom row the other way round, drawn whole into a target, or
// without one a unit a pixel at the origin; a source takes part of it, a band of lines lands where it belongs, a kept
// aspect centres it on the background, the key colour stays undrawn.
TEST_F(DeviceTest, APictureIsDrawnByItsSourceTargetBandAspectAndKey) {
    oMEMDIB picture, wide;
    picture.SetHeader(oDIBHEADER(4, 2, 0, 0, oMODEL_RGB));
    unsigned char lines[24] = {255, 255, 255, 255, 0, 0, 0, 255, 0, 0, 0, 255,
                               0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255};
    picture.SetImageLines(lines, oMODEL_RGB, 0, 1);
    vRECT part(1, 0, 3, 2), square(10, 10, 30, 30), band(10, 10, 50, 30), all(0, 0, 80, 80), outside(10, 10, 20, 20);
    const COLORREF grey = RGB(9, 9, 9);
    vCOLOUR background = Colour(grey), key = Colour(Green);
    const struct {
        vRECT *source, *target;
        int first, last, keepAspect;
        vCOLOUR* key;
        Ints ink;
        Spots spots;
    } rows[] = {
        {nullptr, &band, 0, -1, 0, nullptr, {10, 10, 50, 30},
         {{{15, 15}, Red}, {{25, 15}, Green}, {{35, 15}, Blue}, {{45, 15}, White},
          {{15, 25}, White}, {{25, 25}, Blue}, {{35, 25}, Green}, {{45, 25}, Red}}},
        {nullptr, &band, 0, -1, 0, &key, {10, 10, 50, 30},
         {{{15, 15}, Red}, {{25, 15}, Black}, {{35, 25}, Black}, {{45, 25}, Red}}},
        {nullptr, nullptr, 0, -1, 0, nullptr, {0, 0, 4, 2},
         {{{0, 0}, Red}, {{3, 0}, White}, {{0, 1}, White}, {{3, 1}, Red}}},
        {&part, &square, 0, -1, 0, nullptr, {10, 10, 30, 30}, {{{15, 15}, Green}, {{25, 15}, Blue}, {{15, 25}, Blue}}},
        {nullptr, &band, 1, 1, 0, nullptr, {10, 10, 50, 20}, {}},
        {nullptr, &all, 0, -1, 1, nullptr, {0, 0, 80, 80},
         {{{40, 10}, grey}, {{40, 70}, grey}, {{10, 30}, Red}, {{70, 50}, Red}}},
        {nullptr, &band, 2, 5, 0, nullptr, {0, 0, 0, 0}, {}},
        {&outside, nullptr, 0, -1, 0, nullptr, {0, 0, 0, 0}, {}},
    };
    unsigned long objects = LiveGdiObjects();
    for (const auto& r : rows) {
        vMEMDEVICE fresh(vSIZE(Side, Side));
        vCOLOUR* around = r.keepAspect ? &background : nullptr;
        const int drawn = fresh.DrawDIB(picture, r.source, r.key, r.first, r.last, r.target, r.keepAspect, around);
        EXPECT_EQ(drawn, r.ink[2] != 0) << &r - rows;
        Pixels pixels(fresh);
        EXPECT_EQ(pixels.Ink(), r.ink) << &r - rows;
        ExpectSpots(pixels, r.spots);
        EXPECT_EQ(pixels.Count(grey), r.keepAspect ? 80 * 40 : 0);
    }
    EXPECT_EQ(LiveGdiObjects(), objects) << "the masking picture is let go each time";
    EXPECT_FALSE(device().DrawDIB(oMEMDIB(), vRECT(0, 0, 50, 50), nullptr)) << "an empty picture draws nothing";
    std::vector<unsigned char> line(9000 * 23, 255);
    wide.SetHeader(oDIBHEADER(3000, 23, 0, 0, oMODEL_RGB));
    ASSERT_TRUE(wide.SetImageLines(line.data(), oMODEL_RGB, 0, 22));
    ASSERT_TRUE(device().DrawDIB(wide, vRECT(0, 0, 100, 100), nullptr));
    EXPECT_EQ(Read().Count(White), 100 * 100) << "a wide picture goes in many bands without seams";
}

// A device on a context handed in draws with its own pen and puts back all a pass changed; between BeginDraw and
// EndDraw any device draws there in its mix, its clip narrowing the context's own. A window device takes and gives back
// a context for each drawing, and draws nothing without a window.
TEST_F(DeviceTest, ContextAndWindowDevicesLeaveTheContextsAsTheyFoundThem) {
    ForeignContext foreign;
    HGDIOBJ pen = SelectObject(foreign.dc, CreatePen(PS_DOT, 1, RGB(1, 2, 3)));
    HGDIOBJ brush = SelectObject(foreign.dc, CreateSolidBrush(Green));
    SetBkMode(foreign.dc, TRANSPARENT);
    auto state = [dc = foreign.dc] {
        return std::vector<UINT_PTR>{UINT_PTR(GetCurrentObject(dc, OBJ_PEN)), UINT_PTR(GetCurrentObject(dc, OBJ_BRUSH)),
                                     UINT_PTR(GetCurrentObject(dc, OBJ_FONT)), UINT_PTR(GetBkMode(dc)), GetBkColor(dc),
                                     GetTextColor(dc), UINT_PTR(GetPolyFillMode(dc))};
    };
    const std::vector<UINT_PTR> before = state();
    {
        vDEVICEID context(foreign.dc);
        EXPECT_EQ(Ints({context() == foreign.dc, context.DeviceType()}), Ints({1, vDEV_CONTEXT}));
        context.LineSpec(Line(Red, 1));
        context.FillSpec(Fill(Blue, vFILL_HATCH_CROSS, vFILL_WINDING, White));
        const std::function<int()> passes[] = {
            [&] { return context.DrawLine(vPOINT(0, 5), vPOINT(10, 5)); },
            [&] { return context.DrawRect(vRECT(1, 8, 15, 15)); },
            [&] { return context.DrawEllipse(vRECT(2, 8, 12, 12)); },
            [&] { return context.DrawShape(vRECTSHAPE(vRECT(3, 9, 9, 12))); },
            [&] { return context.DrawTextA(vSTRING("Ab"), vRECT(0, 10, 20, 20), vTEXT_LEFT); }};
        for (const auto& pass : passes)
            EXPECT_TRUE(pass() && state() == before) << &pass - passes;
    }
    EXPECT_EQ(Ints({GetPixel(foreign.dc, 3, 5) == Red, GetObjectType(foreign.dc) == OBJ_MEMDC}), Ints({1, 1}));
    DeleteObject(SelectObject(foreign.dc, pen));
    DeleteObject(SelectObject(foreign.dc, brush));
    PatBlt(foreign.dc, 0, 0, 20, 20, BLACKNESS);
    IntersectClipRect(foreign.dc, 0, 0, 10, 20);
    SetROP2(foreign.dc, R2_NOT);
    device().ClipArea(vRECT(5, 0, 20, 20));
    Solid(device(), Green);
    device().BeginDraw(foreign.dc);
    device().DrawRect(vRECT(0, 0, 8, 20));
    EXPECT_EQ(vDEVICE::GetZKDC(), foreign.dc) << "the context stays while the pass lasts";
    device().EndDraw();
    SelectClipRgn(foreign.dc, nullptr);
    EXPECT_EQ(Colours({GetPixel(foreign.dc, 4, 5), GetPixel(foreign.dc, 5, 5), GetPixel(foreign.dc, 7, 19),
                       GetPixel(foreign.dc, 8, 5)}), Colours({Black, White, White, Black}))
        << "a mix that ignores the pen still fills all of the area";
    EXPECT_TRUE(vDEVICE::GetZKDC() == nullptr && Read().Count(Green) == 0);
    vWINDOWID nowhere(nullptr);
    EXPECT_FALSE(nowhere.GetWinDC() || nowhere.DrawRect(vRECT(0, 0, 10, 10)));
    HWND window = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr);
    {
        vWINDOWID onWindow(window);
        EXPECT_EQ(Ints({onWindow() == window, onWindow.DeviceType(), onWindow.DrawRect(vRECT(0, 0, 10, 10)),
                        vDEVICE::GetZKDC() == nullptr}), Ints({1, vDEV_WINDOW, 1, 1}));
    }
    DestroyWindow(window);
}

}  // namespace
