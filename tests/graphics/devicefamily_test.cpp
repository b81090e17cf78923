#include "graphics/surface.h"

#include <functional>
#include <utility>
#include <vector>

#include "base/system.h"
#include "graphics/deviceid.h"
#include "graphics/rectshape.h"

using namespace zktest;

namespace {

class ScreenTest : public LeakFreeTest {};

TEST_F(ScreenTest, ThereIsOneScreen)
{
    EXPECT_EQ(&vDEVICE::GetScreen(), &vDEVICE::GetScreen());
    EXPECT_EQ(vDEVICE::GetScreen().DeviceType(), vDEV_SCREEN);
    vSIZE size = vDEVICE::GetScreen().Size();
    EXPECT_EQ(size.Width()(), GetSystemMetrics(SM_CXSCREEN));
    EXPECT_EQ(size.Height()(), GetSystemMetrics(SM_CYSCREEN));
    EXPECT_GT(vDEVICE::GetScreen().NoColours(), 255);
    EXPECT_NE(vSCREEN::Palette(), nullptr);
}

TEST_F(ScreenTest, ColoursBelowAHundredAreTheSystemsOwn)
{
    vSCREEN& screen = vDEVICE::GetScreen();
    for (int number : {5, 8, 13, 14, 15, 16, 17, 20})
        EXPECT_EQ(screen.Colour(static_cast<vSCREENCOLOUR>(number)).PackedRGB(), GetSysColor(number)) << number;
}

TEST_F(ScreenTest, NamedColoursRunFromLightToDark)
{
    vSCREEN& screen = vDEVICE::GetScreen();
    const int system[] = {COLOR_3DHILIGHT, COLOR_3DLIGHT, COLOR_3DFACE, COLOR_3DSHADOW, COLOR_3DDKSHADOW};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(screen.Colour(static_cast<vSCREENCOLOUR>(100 + i)).PackedRGB(), GetSysColor(system[i])) << i;
    EXPECT_EQ(screen.Colour(static_cast<vSCREENCOLOUR>(105)).PackedRGB(), 0u);
    vCOLOUR light = screen.Colour(vSCREEN_3DLIGHTHIGHLIGHT);
    vCOLOUR dark = screen.Colour(vSCREEN_3DDARKSHADOW);
    EXPECT_GT(light.Red() + light.Green() + light.Blue(), dark.Red() + dark.Green() + dark.Blue());
}

TEST_F(ScreenTest, DrawModeIsAppliedToEachFreshContext)
{
    vSCREEN& screen = vDEVICE::GetScreen();
    screen.DrawMode(vDRAW_XOR);
    HDC dc = screen.GetWinDC();
    ASSERT_NE(dc, nullptr);
    EXPECT_EQ(GetROP2(dc), R2_XORPEN);
    ReleaseDC(nullptr, dc);
    screen.DrawMode(vDRAW_COPY);
    dc = screen.GetWinDC();
    EXPECT_EQ(GetROP2(dc), R2_COPYPEN);
    ReleaseDC(nullptr, dc);
}

class ContextTest : public SurfaceTest {};

TEST_F(ContextTest, WindowDeviceWithoutAWindowDrawsNothing)
{
    vWINDOWID nowhere(nullptr);
    EXPECT_EQ(nowhere.GetWinDC(), nullptr);
    EXPECT_FALSE(nowhere.DrawRect(vRECT(0, 0, 10, 10)));
    EXPECT_FALSE(nowhere.DrawLine(vPOINT(0, 0), vPOINT(5, 5)));
}

TEST_F(ContextTest, WindowDeviceTakesAndGivesBackAContextPerDrawing)
{
    HWND window = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    {
        vWINDOWID device(window);
        EXPECT_EQ(device(), window);
        EXPECT_EQ(device.DeviceType(), vDEV_WINDOW);
        EXPECT_TRUE(device.DrawRect(vRECT(0, 0, 10, 10)));
        EXPECT_EQ(vDEVICE::GetZKDC(), nullptr);
    }
    DestroyWindow(window);
}

TEST_F(ContextTest, ContextDeviceDrawsOnTheContextAndLeavesItAlive)
{
    ForeignContext foreign;
    {
        vDEVICEID device(foreign.dc);
        EXPECT_EQ(device(), foreign.dc);
        device.LineSpec(Line(Red, 1));
        EXPECT_TRUE(device.DrawLine(vPOINT(0, 5), vPOINT(10, 5)));
    }
    EXPECT_EQ(GetPixel(foreign.dc, 3, 5), Red);
    EXPECT_EQ(GetObjectType(foreign.dc), static_cast<DWORD>(OBJ_MEMDC));
}

// What a context holds that a pass may change.
struct CONTEXTSTATE {
    HGDIOBJ pen, brush, font;
    int bkMode;
    COLORREF bkColour, textColour;
    int fillMode;

    explicit CONTEXTSTATE(HDC dc)
        : pen(GetCurrentObject(dc, OBJ_PEN)), brush(GetCurrentObject(dc, OBJ_BRUSH)),
          font(GetCurrentObject(dc, OBJ_FONT)), bkMode(GetBkMode(dc)), bkColour(GetBkColor(dc)),
          textColour(GetTextColor(dc)), fillMode(GetPolyFillMode(dc))
    {
    }

    bool operator==(const CONTEXTSTATE& other) const
    {
        return pen == other.pen && brush == other.brush && font == other.font && bkMode == other.bkMode &&
               bkColour == other.bkColour && textColour == other.textColour && fillMode == other.fillMode;
    }
};

// A context handed in belongs to someone else: after every kind of pass it
// holds what it held before.
TEST_F(ContextTest, AContextHandedInGetsBackWhatEveryPassChanged)
{
    ForeignContext foreign;
    HPEN pen = CreatePen(PS_DOT, 1, RGB(1, 2, 3));
    HBRUSH brush = CreateSolidBrush(RGB(4, 5, 6));
    SelectObject(foreign.dc, pen);
    SelectObject(foreign.dc, brush);
    SetBkMode(foreign.dc, TRANSPARENT);
    SetBkColor(foreign.dc, RGB(7, 8, 9));
    SetTextColor(foreign.dc, RGB(10, 11, 12));
    SetPolyFillMode(foreign.dc, WINDING);
    const CONTEXTSTATE before(foreign.dc);
    {
        vDEVICEID device(foreign.dc);
        device.LineSpec(Line(Red, 2));
        device.FillSpec(vFILLSPEC(vFILL_HATCH_CROSS, Colour(Blue), Colour(White), vANGLE(), vFILL_ALTERNATE));
        const std::vector<std::pair<const char*, std::function<int()>>> passes = {
            {"rectangle", [&] { return device.DrawRect(vRECT(1, 1, 15, 15)); }},
            {"ellipse", [&] { return device.DrawEllipse(vRECT(2, 2, 12, 12)); }},
            {"shape", [&] { return device.DrawShape(vRECTSHAPE(vRECT(3, 3, 9, 9))); }},
            {"line", [&] { return device.DrawLine(vPOINT(0, 0), vPOINT(19, 19)); }},
            {"text", [&] { return device.DrawTextA(vSTRING("Ab"), vRECT(0, 0, 20, 20), vTEXT_LEFT); }},
        };
        for (const auto& pass : passes) {
            EXPECT_TRUE(pass.second()) << pass.first;
            EXPECT_TRUE(CONTEXTSTATE(foreign.dc) == before) << pass.first;
        }
    }
    SelectObject(foreign.dc, GetStockObject(BLACK_PEN));
    SelectObject(foreign.dc, GetStockObject(WHITE_BRUSH));
    DeleteObject(pen);
    DeleteObject(brush);
}

TEST_F(ContextTest, BetweenBeginAndEndDrawingGoesToTheContextHandedIn)
{
    ForeignContext foreign;
    device().LineSpec(NoLine());
    device().FillSpec(Fill(Green));
    device().BeginDraw(foreign.dc);
    EXPECT_EQ(vDEVICE::GetZKDC(), foreign.dc);
    device().DrawRect(vRECT(0, 0, 5, 5));
    EXPECT_EQ(vDEVICE::GetZKDC(), foreign.dc) << "the context stays while the pass lasts";
    device().EndDraw();
    EXPECT_EQ(vDEVICE::GetZKDC(), nullptr);
    EXPECT_EQ(GetPixel(foreign.dc, 2, 2), Green);
    EXPECT_EQ(Read().Count(Green), 0);
    device().DrawRect(vRECT(0, 0, 5, 5));
    EXPECT_EQ(Read().Count(Green), 25);
}

TEST_F(ContextTest, ClipAreaNarrowsTheClipOfAContextHandedIn)
{
    ForeignContext foreign;
    HRGN given = CreateRectRgn(0, 0, 10, 20);
    SelectClipRgn(foreign.dc, given);
    DeleteObject(given);
    device().ClipArea(vRECT(5, 0, 20, 20));
    device().LineSpec(NoLine());
    device().FillSpec(Fill(Green));
    device().BeginDraw(foreign.dc);
    device().DrawRect(vRECT(0, 0, 20, 20));
    device().EndDraw();
    SelectClipRgn(foreign.dc, nullptr);
    EXPECT_EQ(GetPixel(foreign.dc, 4, 5), Black);
    EXPECT_EQ(GetPixel(foreign.dc, 5, 5), Green);
    EXPECT_EQ(GetPixel(foreign.dc, 9, 5), Green);
    EXPECT_EQ(GetPixel(foreign.dc, 10, 5), Black);
}

TEST_F(ContextTest, DisplayModeShadesAndFindsTheNearestColour)
{
    vCOLOUR colour(200, 100, 50);
    ASSERT_TRUE(device().DisplayMode(vDISPLAY_SHADE, colour, 1, 2));
    EXPECT_TRUE(colour == vCOLOUR(100, 50, 25));
    EXPECT_FALSE(device().DisplayMode(vDISPLAY_SHADE, colour, 1, 0));
    ASSERT_TRUE(device().DisplayMode(vDISPLAY_NEAREST, colour, 0, 0));
    EXPECT_EQ(colour.PackedRGB(), static_cast<unsigned long>(RGB(100, 50, 25))) << "a deep device shows every colour";
    EXPECT_GT(device().GetNoColours()(), 255);
}

// A 10 by 10 bitmap, red on the left half and green on the right.
HBITMAP TwoColourBitmap()
{
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 10, 10);
    HDC dc = CreateCompatibleDC(screen);
    ReleaseDC(nullptr, screen);
    HGDIOBJ previous = SelectObject(dc, bitmap);
    RECT left = {0, 0, 5, 10};
    RECT right = {5, 0, 10, 10};
    HBRUSH red = CreateSolidBrush(Red);
    HBRUSH green = CreateSolidBrush(Green);
    FillRect(dc, &left, red);
    FillRect(dc, &right, green);
    DeleteObject(red);
    DeleteObject(green);
    SelectObject(dc, previous);
    DeleteDC(dc);
    return bitmap;
}

class BitmapTest : public SurfaceTest {};

TEST_F(BitmapTest, LanguageOffsetsHaveTheirOwnTable)
{
    EXPECT_EQ(vBITMAP::LanguageOffset(1036), 20);
    EXPECT_EQ(vBITMAP::LanguageOffset(1031), 40);
    EXPECT_EQ(vBITMAP::LanguageOffset(1053), 60);
    EXPECT_EQ(vBITMAP::LanguageOffset(2057), 0);
    EXPECT_EQ(vBITMAP::LanguageOffset(1033), 0);
}

TEST_F(BitmapTest, MissingResourceIsNotValidAndDrawsNothing)
{
    vBITMAP missing(vRESID(32000, vSYSTEM::Pointer()));
    EXPECT_FALSE(missing.Valid());
    EXPECT_TRUE(missing.Size() == vRECT());
    EXPECT_FALSE(missing.Draw(device(), vPOINT(0, 0)));
    vBITMAP cell(vRESID(32000, vSYSTEM::Pointer()), vRECT(0, 0, 5, 5));
    EXPECT_FALSE(cell.Valid());
}

TEST_F(BitmapTest, DrawsAtItsSizeOrStretched)
{
    vBITMAP bitmap(TwoColourBitmap());
    ASSERT_TRUE(bitmap.Valid());
    EXPECT_TRUE(bitmap.Size() == vRECT(0, 0, 10, 10));
    ASSERT_TRUE(bitmap.Draw(device(), vPOINT(10, 10))) << "centred on the point";
    ASSERT_TRUE(device().DrawBitmap(bitmap, vRECT(40, 40, 60, 60)));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.At(5, 5), Red);
    EXPECT_EQ(pixels.At(14, 14), Green);
    EXPECT_EQ(pixels.At(15, 15), Black);
    EXPECT_EQ(pixels.At(49, 59), Red);
    EXPECT_EQ(pixels.At(50, 40), Green);
    EXPECT_EQ(pixels.Count(Red) + pixels.Count(Green), 100 + 400);
}

TEST_F(BitmapTest, CellIsCutFromTheSheet)
{
    vBITMAP sheet(TwoColourBitmap());
    vBITMAP cell(sheet, vRECT(3, 0, 8, 4));
    ASSERT_TRUE(cell.Valid());
    EXPECT_TRUE(cell.Size() == vRECT(0, 0, 5, 4));
    cell.Draw(device(), vPOINT(2, 2));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.Count(Red), 2 * 4);
    EXPECT_EQ(pixels.Count(Green), 3 * 4);
    EXPECT_EQ(pixels.At(1, 3), Red);
    EXPECT_EQ(pixels.At(2, 0), Green);
}

TEST_F(BitmapTest, SourceRectangleChoosesThePart)
{
    vBITMAP bitmap(TwoColourBitmap());
    device().DrawBitmap(bitmap, vRECT(5, 0, 10, 10), vRECT(0, 0, 5, 10));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.Count(Green), 50);
    EXPECT_EQ(pixels.Count(Red), 0);
}

TEST_F(BitmapTest, TransparentDrawLeavesTheKeyColourOut)
{
    device().LineSpec(NoLine());
    device().FillSpec(Fill(Blue));
    device().DrawRect(vRECT(0, 0, 20, 20));
    vBITMAP bitmap(TwoColourBitmap());
    ASSERT_TRUE(bitmap.DrawTransparent(device(), vPOINT(5, 5), Colour(Red)));
    Pixels pixels = Read();
    EXPECT_EQ(pixels.At(2, 2), Blue);
    EXPECT_EQ(pixels.At(7, 2), Green);
    EXPECT_EQ(pixels.Count(Red), 0);
    EXPECT_EQ(pixels.Count(Green), 50);
}

TEST_F(BitmapTest, SystemSheetLoadsFromResourcesAndCutsIntoCells)
{
    // The platform's own check box sheet, four cells across and three down.
    // A resource with no module is the platform's.
    const vMODULE* platform = nullptr;
    const unsigned short CheckBoxes = 32759;
    vBITMAP sheet(vRESID(CheckBoxes, platform));
    ASSERT_TRUE(sheet.Valid());
    long cellWidth = sheet.Size().Width()() / 4;
    long cellHeight = sheet.Size().Height()() / 3;
    vRECT second(cellWidth, 0, 2 * cellWidth, cellHeight);
    vBITMAP cell(vRESID(CheckBoxes, platform), second);
    ASSERT_TRUE(cell.Valid());
    EXPECT_TRUE(cell.Size() == vRECT(0, 0, cellWidth, cellHeight));
    sheet.Draw(device(), vPOINT(sheet.Size().Width()() / 2, sheet.Size().Height()() / 2));
    Pixels whole = Read();
    cell.Draw(device(), vPOINT(cellWidth / 2, 50 + cellHeight / 2));
    Pixels both = Read();
    for (int y = 0; y < cellHeight; ++y)
        for (int x = 0; x < cellWidth; ++x)
            ASSERT_EQ(both.At(x, 50 + y), whole.At(cellWidth + x, y)) << x << "," << y;
}

}  // namespace
