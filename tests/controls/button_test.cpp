#include "controls/buttontest.h"

using namespace buttontest;

namespace {

const COLORREF Key = RGB(192, 192, 192);
const COLORREF Plain = RGB(255, 0, 0);
const COLORREF Pressed = RGB(0, 255, 0);
const COLORREF Focused = RGB(0, 0, 255);
const COLORREF Disabled = RGB(255, 255, 0);
// A face is 16 pixels square: a frame of 2 in the key colour round 12 by 12
// in its own colour.
const int Side = 16;
const int Core = 12 * 12;

// A button that notes each state change and each drawing, and that lets
// the test give it the extra faces an application may give.
class PROBE : public vBUTTON {
public:
    PROBE(const vWIN& parent, const vCTRLID& id, const vSTRING& text, const vRECT& rect, int isDefault = 0)
        : vBUTTON(parent, id, text, rect, isDefault)
    {
    }
    PROBE(const vWIN& parent, const vCTRLID& id, const vBITMAP& face, const vRECT& rect, int isDefault = 0)
        : vBUTTON(parent, id, face, rect, isDefault)
    {
    }

    using vBUTTON::bitmap;
    using vBUTTON::flags;
    using vBUTTON::labelBottom;
    using vBUTTON::labelLeft;
    using vBUTTON::labelRight;
    using vBUTTON::labelTop;
    using vBUTTON::pressed;

    void ExtraFaces()
    {
        pressedBitmap = new vBITMAP(SolidFace(Side, Pressed, 2, Key));
        focusBitmap = new vBITMAP(SolidFace(Side, Focused, 2, Key));
        disabledBitmap = new vBITMAP(SolidFace(Side, Disabled, 2, Key));
    }

    int vDraw(const vRECT& rect) override
    {
        Note("button.vDraw(" + std::to_string(pressed) + ")");
        return vBUTTON::vDraw(rect);
    }

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override
    {
        if (message == BM_SETSTATE)
            Note("button.BM_SETSTATE(" + std::to_string(wParam) + ")");
        return vBUTTON::MsgHandler(message, wParam, lParam, result);
    }
};

std::string ClassOf(HWND window)
{
    char name[32] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

class ButtonText : public ButtonTest {};

TEST_F(ButtonText, MadeFromCodeOnThePlatformButton)
{
    struct {
        const char* text;
        int isDefault;
        LONG kind;
    } rows[] = {{"Apply", 0, BS_PUSHBUTTON}, {"&Save", 1, BS_DEFPUSHBUTTON}, {"", 0, BS_PUSHBUTTON}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        PROBE* button = new PROBE(*parent, vCTRLID(7), vSTRING(row.text), vRECT(10, 10, 90, 40), row.isDefault);
        HWND window = (*button)();
        ASSERT_TRUE(IsWindow(window));
        EXPECT_EQ(ClassOf(window), "Button");
        EXPECT_EQ(GetParent(window), (*parent)());
        EXPECT_EQ(GetDlgCtrlID(window), 7);
        EXPECT_EQ(GetWindowLongA(window, GWL_STYLE) & 0xF, row.kind);
        EXPECT_STREQ(button->Text()(), row.text);
        EXPECT_EQ(button->bitmap, nullptr);
        EXPECT_STREQ(button->FontSpec().Name()(), "MS Sans Serif");
        DestroyWindow(window);
    }
}

// Each text comes from the base library's resources; the button is the
// window's to delete.
TEST_F(ButtonText, NewTakesItsTextFromTheResource)
{
    for (unsigned short resource : {31127, 31128, 31131}) {
        vCTRLID id(resource - 31000);
        vRESID text(resource, vSYSTEM::Pointer());
        vCONTROL* control = vBUTTON::New(*parent, id, text);
        ASSERT_NE(control, nullptr);
        EXPECT_TRUE(IsWindow((*control)()));
        EXPECT_STREQ(control->Text()(), vSTRING(text)());
        EXPECT_GT(control->Text().Length(), 0);
        EXPECT_EQ(*control->Bound(), vRECT(0, 0, 0, 0));
        DestroyWindow((*control)());
    }
}

TEST_F(ButtonText, TextLivesInThePlatformWindow)
{
    PROBE* button = new PROBE(*parent, vCTRLID(7), vSTRING("One"), vRECT(10, 10, 90, 40));
    button->Text(vSTRING("Two"));
    char title[16] = "";
    GetWindowTextA((*button)(), title, sizeof title);
    EXPECT_STREQ(title, "Two");
    EXPECT_STREQ(button->Text()(), "Two");
    DestroyWindow((*button)());
    EXPECT_STREQ(vBUTTON(*parent, vCTRLID(8), vSTRING("Gone"), vRECT(0, 0, 1, 1), 0, CLASSID_TEXT).Text()(), "");
}

TEST_F(ButtonText, SetDefaultTellsTheParentAndTakesTheStyle)
{
    wintest::Watched().insert(DM_SETDEFID);
    PROBE* button = new PROBE(*parent, vCTRLID(7), vSTRING("Go"), vRECT(10, 10, 90, 40));
    button->SetDefault();
    EXPECT_EQ(Only("default"), Lines({"parent default " + std::to_string(DM_SETDEFID)}));
    EXPECT_EQ(GetWindowLongA((*button)(), GWL_STYLE) & 0xF, BS_DEFPUSHBUTTON);
    DestroyWindow((*button)());
}

// Enable ignores its argument; each answer is the platform's for the change.
TEST_F(ButtonText, EnableAndDisableOnlyChangeWhatDiffers)
{
    struct {
        const char* what;
        int startEnabled;
        int disable;
        int argument;
        int answers;
        int endEnabled;
    } rows[] = {
        {"Enable(0) on a disabled button", 0, 0, 0, 1, 1},
        {"Enable(1) on a disabled button", 0, 0, 1, 1, 1},
        {"Enable(1) on an enabled button", 1, 0, 1, 0, 1},
        {"Enable(0) on an enabled button", 1, 0, 0, 0, 1},
        {"Disable on an enabled button", 1, 1, 0, 0, 0},
        {"Disable on a disabled button", 0, 1, 0, 0, 0},
    };
    PROBE* button = new PROBE(*parent, vCTRLID(7), vSTRING("Go"), vRECT(10, 10, 90, 40));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        EnableWindow((*button)(), row.startEnabled);
        int answer = row.disable ? button->Disable() : button->Enable(row.argument);
        EXPECT_EQ(answer != 0, row.answers != 0);
        EXPECT_EQ(button->Enabled() != 0, row.endEnabled != 0);
    }
    DestroyWindow((*button)());
}

// The label is measured on the text without "&"; without any "&" the last
// character is left out as well.
TEST_F(ButtonText, LabelIsMeasuredWithoutAmpersandsAndOneShortWithoutThem)
{
    struct {
        const char* text;
        const char* measured;
        int width;
    } rows[] = {
        {"Cancel", "Cance", 120}, {"&Cancel", "Cancel", 120}, {"Can&cel", "Cancel", 120},
        {"W", "", 120},           {"Cancel", "Cance", 12},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.text) + " in " + std::to_string(row.width));
        PROBE* button = new PROBE(*parent, vCTRLID(7), vSTRING(row.text), vRECT(0, 0, row.width, 30));
        HDC dc = GetDC((*button)());
        SIZE whole, part;
        GetTextExtentPoint32A(dc, row.text, lstrlenA(row.text), &whole);
        GetTextExtentPoint32A(dc, row.measured, lstrlenA(row.measured), &part);
        ReleaseDC((*button)(), dc);
        EXPECT_EQ(button->labelTop, 15 - whole.cy / 2);
        EXPECT_EQ(button->labelBottom, button->labelTop + whole.cy);
        if (row.width >= part.cx) {
            EXPECT_EQ(button->labelLeft, (row.width - part.cx) / 2);
            EXPECT_EQ(button->labelRight, part.cx + 6);
        } else {
            EXPECT_EQ(button->labelLeft, 6);
            EXPECT_EQ(button->labelRight, row.width - 6);
        }
        DestroyWindow((*button)());
    }
}

TEST_F(ButtonText, PushFlashesOnceAndRedrawsOnlyOnAChange)
{
    PROBE* button = new PROBE(*parent, vCTRLID(7), vSTRING("Go"), vRECT(10, 10, 90, 40));
    button->Push();
    SendMessageA((*button)(), BM_SETSTATE, 0, 0);
    PumpFor(50);
    EXPECT_EQ(Only("button."), Lines({"button.BM_SETSTATE(1)", "button.vDraw(1)", "button.BM_SETSTATE(0)",
                                       "button.vDraw(0)", "button.BM_SETSTATE(0)"}));
    EXPECT_TRUE(Only("parent.WM_COMMAND").empty());
    DestroyWindow((*button)());
}

// The platform's own mouse handling presses and releases the button, and
// the release reports a click to the parent.
TEST_F(ButtonText, ARealClickPressesReleasesAndCommands)
{
    PROBE* button = new PROBE(*parent, vCTRLID(7), vSTRING("Go"), vRECT(10, 10, 90, 40));
    ShowPainted((*button)());
    MouseTo((*button)(), 40, 15);
    PumpFor(50);
    wintest::Log().clear();
    Press(MOUSEEVENTF_LEFTDOWN);
    PumpFor(50);
    Press(MOUSEEVENTF_LEFTUP);
    PumpFor(100);
    std::string handle = std::to_string(reinterpret_cast<LPARAM>((*button)()));
    Lines seen;
    for (const std::string& line : wintest::Log())
        if (line.find("button.") == 0 || line.find("WM_COMMAND") != std::string::npos)
            seen.push_back(line);
    EXPECT_EQ(seen, Lines({"button.BM_SETSTATE(1)", "button.vDraw(1)", "button.BM_SETSTATE(0)", "button.vDraw(0)",
                           "parent.WM_COMMAND(7,0," + handle + ")"}));
    DestroyWindow((*button)());
}

class ButtonBitmap : public ButtonTest {};

// The face needs a margin of 3 all round; a button without it grows from
// its corner to the face plus 12.
TEST_F(ButtonBitmap, ResizedOnlyWhenTheFaceDoesNotFit)
{
    struct {
        int width;
        int height;
        int kept;
    } rows[] = {{26, 16, 1}, {40, 30, 1}, {25, 16, 0}, {26, 15, 0}, {0, 0, 0}};
    vBITMAP face(CreateBitmap(20, 10, 1, 32, nullptr));
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.width) + "x" + std::to_string(row.height));
        PROBE* button = new PROBE(*parent, vCTRLID(7), face, vRECT(10, 20, 10 + row.width, 20 + row.height));
        RECT client;
        GetClientRect((*button)(), &client);
        if (row.kept) {
            EXPECT_EQ(client.right, row.width);
            EXPECT_EQ(client.bottom, row.height);
        } else {
            EXPECT_EQ(client.right, 32);
            EXPECT_EQ(client.bottom, 22);
        }
        EXPECT_EQ(button->bitmap->Size(), face.Size());
        EXPECT_EQ(button->flags & WINF_ERASE, 0);
        DestroyWindow((*button)());
    }
}

// Focus goes before pressed, pressed before disabled. The plain face is
// drawn whole, its key colour too.
TEST_F(ButtonBitmap, EachStateShowsItsFace)
{
    struct {
        const char* state;
        int focus;
        int press;
        int disable;
        COLORREF shown;
    } rows[] = {
        {"normal", 0, 0, 0, Plain},          {"pressed", 0, 1, 0, Pressed},
        {"focused", 1, 0, 0, Focused},       {"disabled", 0, 0, 1, Disabled},
        {"focused-pressed", 1, 1, 0, Focused}, {"pressed-disabled", 0, 1, 1, Pressed},
    };
    vBITMAP face(SolidFace(Side, Plain, 2, Key));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.state);
        PROBE* button = new PROBE(*parent, vCTRLID(7), face, vRECT(20, 20, 70, 60));
        button->ExtraFaces();
        ShowPainted((*button)());
        if (row.focus)
            SetFocus((*button)());
        if (row.press)
            SendMessageA((*button)(), BM_SETSTATE, 1, 0);
        if (row.disable)
            EnableWindow((*button)(), FALSE);
        ShowPainted((*button)());
        zktest::Pixels shot = Shot((*button)());
        ASSERT_TRUE(shot.Read());
        shot.Save(std::string("button-") + row.state);
        for (COLORREF colour : {Plain, Pressed, Focused, Disabled})
            EXPECT_EQ(shot.Count(colour), colour == row.shown ? Core : 0) << std::hex << colour;
        if (GetSysColor(COLOR_BTNFACE) != Key) {
            EXPECT_EQ(shot.Count(Key), Side * Side - Core);
        }
        DestroyWindow((*button)());
    }
}

TEST_F(ButtonBitmap, DoublePressRedrawsTheFace)
{
    vBITMAP face(SolidFace(Side, Plain, 2, Key));
    PROBE* button = new PROBE(*parent, vCTRLID(7), face, vRECT(20, 20, 70, 60));
    ShowPainted((*button)());
    wintest::Log().clear();
    SendMessageA((*button)(), WM_LBUTTONDBLCLK, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(Only("button."), Lines({"button.BM_SETSTATE(1)", "button.vDraw(1)", "button.vDraw(1)"}));
    ReleaseCapture();
    DestroyWindow((*button)());
}

}  // namespace
