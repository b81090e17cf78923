#include <algorithm>
#include <iterator>

#include "app/recorder.h"
#include "controls/control.h"

using wintest::Log;
using wintest::Note;
using wintest::RECORDER;
using Lines = std::vector<std::string>;

namespace {

// A control of an application: it records the hooks the library calls, and
// either lets the control base create its window or creates one of the
// platform class it names.
class PROBE : public vCONTROL {
public:
    PROBE(const vWIN& parent, unsigned short controlId, const vRECT& rect, const char* caption,
          const char* platformClass = nullptr, DWORD style = 0)
        : vCONTROL(parent, vCTRLID(controlId), rect, vSTRING("%s", caption),
                   platformClass ? static_cast<vCLASSID>(1) : CLASSID_CONTROL),
          name("probe" + std::to_string(controlId))
    {
        if (!platformClass)
            return;
        lstrcpyA(CreateParams.szClassName, platformClass);
        CreateParams.dwStyle |= style;
        if (!hWnd) {
            CreateWin();
        } else {
            BindInstance(hWnd);
            SubClass();
        }
    }

    void SetupView(char*, unsigned short) override {}
    void UpdateData(void*) override {}
    int ccPaint(tagDRAWITEMSTRUCT* item) override
    {
        Note(name + ".ccPaint(" + std::to_string(item->CtlID) + ")");
        return paintAnswer;
    }
    short vCompare(const vSTRING& first, const vSTRING& second) override
    {
        Note(name + ".vCompare(" + first() + "," + second() + ")");
        return -2;
    }

    HWND Handle() const { return hWnd; }

    std::string name;
    int paintAnswer = 5;
};

// A platform dialog made from the test template, seen as a window whose
// template is that resource.
class TEMPLATED : public RECORDER {
public:
    explicit TEMPLATED(HWND dialog) : RECORDER(dialog, "dialog") { resTemplate = vRESID(500, vSYSTEM::Pointer()); }
};

INT_PTR CALLBACK PlainDialog(HWND, UINT message, WPARAM, LPARAM)
{
    return message == WM_INITDIALOG;
}

std::string Title(HWND window)
{
    char title[64] = "";
    GetWindowTextA(window, title, sizeof title);
    return title;
}

vRECT PlaceInParent(HWND window)
{
    RECT box;
    GetWindowRect(window, &box);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&box), 2);
    return vRECT(box.left, box.top, box.right, box.bottom);
}

COLORREF PixelOf(HWND window, int x, int y)
{
    HDC dc = GetDC(window);
    COLORREF colour = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return colour;
}

void PumpFor(DWORD ms)
{
    DWORD end = GetTickCount() + ms;
    while (static_cast<long>(end - GetTickCount()) > 0) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        wintest::Pump();
    }
}

// Puts the mouse on the screen point and reports a move there.
void MoveTo(POINT at)
{
    SetCursorPos(at.x, at.y);
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_MOVE;
    SendInput(1, &input, sizeof input);
    wintest::Pump();
}

POINT CentreOf(HWND window)
{
    RECT box;
    GetWindowRect(window, &box);
    return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
}

Lines Only(const std::string& handler)
{
    Lines picked;
    std::copy_if(Log().begin(), Log().end(), std::back_inserter(picked),
                 [&](const std::string& line) { return line.find(handler) != std::string::npos; });
    return picked;
}

class ControlTest : public wintest::WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        vCONTROL::CurHintedCtr = vCTRLID(0);
    }
};

struct MADE {
    vRECT rect;
    const char* text;
    vRECT bound;
    const char* title;
};

// Made in a window without a template, a control takes its rectangle as it
// is, or nothing at all for the adoption mark, and shows only its mnemonic.
TEST_F(ControlTest, MadeInAPlainWindowCreatesItsOwnWindow)
{
    const MADE rows[] = {
        {vRECT(-1, -1, -1, -1), "&Open", vRECT(0, 0, 0, 0), "&O"},
        {vRECT(5, 6, 50, 30), "Fi&le", vRECT(5, 6, 50, 30), "&l"},
        {vRECT(5, 6, 50, 30), "End&", vRECT(5, 6, 50, 30), "&"},
        {vRECT(5, 6, 50, 30), "", vRECT(5, 6, 50, 30), "&"},
    };
    RECORDER parent(Top(), vRECT(0, 0, 200, 100), "parent");
    for (const MADE& row : rows) {
        SCOPED_TRACE(row.text);
        PROBE* probe = new PROBE(parent, 7, row.rect, row.text);
        ASSERT_TRUE(IsWindow(probe->Handle()));
        EXPECT_EQ(GetParent(probe->Handle()), parent());
        EXPECT_TRUE(*probe->Bound() == row.bound);
        EXPECT_TRUE(PlaceInParent(probe->Handle()) == row.bound);
        EXPECT_EQ(Title(probe->Handle()), row.title);
        EXPECT_STREQ(probe->Text()(), row.text);
        EXPECT_EQ(GetDlgCtrlID(probe->Handle()), 7);
        DWORD style = GetWindowLongA(probe->Handle(), GWL_STYLE);
        EXPECT_EQ(style & 0x46030000u, 0x46030000u);
        EXPECT_EQ(RECORDER::Instance(probe->Handle()), probe) << "bound to its object";
        DestroyWindow(probe->Handle());
    }
}

// In a window made from a template the adoption mark takes over the item of
// the same identifier, with its place and title; any other rectangle makes
// a window beside the items.
TEST_F(ControlTest, AdoptsTheTemplateItemOfItsIdentifier)
{
    HWND dialog = CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(500), Top()(), PlainDialog, 0);
    ASSERT_TRUE(dialog);
    TEMPLATED parent(dialog);
    vRECT mark(-1, -1, -1, -1);
    PROBE* edit = new PROBE(parent, 101, mark, "", "EDIT");
    PROBE* oneCharacter = new PROBE(parent, 102, mark, "", "STATIC");
    PROBE* button = new PROBE(parent, 103, mark, "Given", "BUTTON");
    PROBE* beside = new PROBE(parent, 104, vRECT(10, 50, 60, 70), "New", "BUTTON");
    PROBE* missing = new PROBE(parent, 105, mark, "", "BUTTON");

    EXPECT_EQ(edit->Handle(), GetDlgItem(dialog, 101));
    EXPECT_STREQ(edit->Text()(), "Hello");
    EXPECT_TRUE(*edit->Bound() == PlaceInParent(GetDlgItem(dialog, 101)));
    EXPECT_STREQ(oneCharacter->Text()(), "") << "a one-character title is deliberately not read";
    EXPECT_STREQ(button->Text()(), "Given") << "a text given wins over the item's title";
    EXPECT_EQ(Title(button->Handle()), "Fi&le") << "an adopted item keeps its title";
    EXPECT_NE(beside->Handle(), GetDlgItem(dialog, 101));
    EXPECT_EQ(GetParent(beside->Handle()), dialog);
    EXPECT_TRUE(*beside->Bound() == vRECT(10, 50, 60, 70));
    EXPECT_EQ(Title(beside->Handle()), "&");
    EXPECT_EQ(missing->ItemSize().Width()(), 0) << "an item the template lacks is made at no size";
    EXPECT_EQ(missing->ItemSize().Height()(), 0);

    // The adopted item now reports through its object.
    EXPECT_EQ(RECORDER::Instance(GetDlgItem(dialog, 103)), button);
    DestroyWindow(dialog);
    EXPECT_EQ(RECORDER::Instance(GetDlgItem(dialog, 103)), nullptr);
}

// The parent hears of the control under the pointer once per control, and
// of the pointer leaving for a window without identifier once the timer
// runs out; leaving the system altogether lets the hint stand.
TEST_F(ControlTest, HintsFollowThePointerAcrossControls)
{
    RECORDER parent(Top(), vRECT(0, 0, 300, 200), "parent");
    PROBE* first = new PROBE(parent, 7, vRECT(10, 10, 60, 40), "A");
    PROBE* second = new PROBE(parent, 8, vRECT(70, 10, 120, 40), "B");
    first->Show(1);
    second->Show(1);
    parent.Show(1);
    wintest::Pump();
    POINT open = {parent.ClientToScreen(vPOINT(200, 150)).x(), parent.ClientToScreen(vPOINT(200, 150)).y()};

    MoveTo(CentreOf(first->Handle()));
    MoveTo(CentreOf(second->Handle()));
    PumpFor(500);
    EXPECT_EQ(Only("vCommandHint"), (Lines{"parent.vCommandHint(7)", "parent.vCommandHint(8)"}));

    Log().clear();
    MoveTo(CentreOf(first->Handle()));
    MoveTo(open);
    PumpFor(500);
    EXPECT_EQ(Only("vCommandHint"), (Lines{"parent.vCommandHint(7)", "parent.vCommandHint(0)"}));

    Log().clear();
    MoveTo(CentreOf(second->Handle()));
    MoveTo({5, 1000});
    PumpFor(500);
    EXPECT_EQ(Only("vCommandHint"), (Lines{"parent.vCommandHint(8)"}));
    EXPECT_EQ(vCONTROL::CurHintedCtr, vCTRLID(8)) << "the hint stands";
    DestroyWindow(parent());
}

struct OWNERROW {
    const char* what;
    UINT message;
    unsigned short controlId;
    Lines calls;
    bool toDefault;
    LRESULT result;
};

// The parent hands owner-drawn items to the control of the identifier and
// leaves the others to the default processing.
TEST_F(ControlTest, OwnerDrawingMessagesReachTheControl)
{
    static char apple[] = "apple";
    static char pear[] = "pear";
    const OWNERROW rows[] = {
        {"draw", WM_DRAWITEM, 7, {"probe7.ccPaint(7)"}, false, 5},
        {"draw, no control", WM_DRAWITEM, 9, {"parent default 43"}, true, 0},
        {"measure", WM_MEASUREITEM, 7, {}, false, 1},
        {"measure, no control", WM_MEASUREITEM, 9, {"parent default 44"}, true, 0},
        {"compare", WM_COMPAREITEM, 7, {"probe7.vCompare(apple,pear)"}, false, -2},
        {"compare, no control", WM_COMPAREITEM, 9, {"parent default 57"}, true, 0},
        {"delete", WM_DELETEITEM, 9, {}, false, 1},
    };
    RECORDER parent(Top(), vRECT(0, 0, 300, 200), "parent");
    new PROBE(parent, 7, vRECT(10, 10, 70, 35), "A");
    for (UINT message : {WM_DRAWITEM, WM_MEASUREITEM, WM_COMPAREITEM, WM_DELETEITEM})
        wintest::Watched().insert(message);
    for (const OWNERROW& row : rows) {
        SCOPED_TRACE(row.what);
        Log().clear();
        DRAWITEMSTRUCT draw = {};
        draw.CtlID = row.controlId;
        MEASUREITEMSTRUCT measure = {};
        measure.CtlID = row.controlId;
        COMPAREITEMSTRUCT compare = {};
        compare.CtlID = row.controlId;
        compare.itemData1 = reinterpret_cast<ULONG_PTR>(apple);
        compare.itemData2 = reinterpret_cast<ULONG_PTR>(pear);
        DELETEITEMSTRUCT gone = {};
        gone.CtlID = row.controlId;
        void* records[] = {&draw, &measure, &compare, &gone};
        int index = row.message == WM_DRAWITEM ? 0 : row.message == WM_MEASUREITEM ? 1 : row.message == WM_COMPAREITEM ? 2 : 3;
        LRESULT result = SendMessageA(parent(), row.message, row.controlId, reinterpret_cast<LPARAM>(records[index]));
        EXPECT_EQ(Log(), row.calls);
        if (!row.toDefault) {
            EXPECT_EQ(result, row.result);
        }
        if (row.message == WM_MEASUREITEM && !row.toDefault) {
            EXPECT_EQ(measure.itemWidth, 60u);
            EXPECT_EQ(measure.itemHeight, 25u);
        }
    }
    DestroyWindow(parent());
}

// A control being created is not bound yet; the window under construction
// answers the measure for it.
TEST_F(ControlTest, MeasureDuringCreationIsAnsweredByTheWindowBeingMade)
{
    RECORDER parent(Top(), vRECT(0, 0, 300, 200), "parent");
    PROBE* probe = new PROBE(parent, 7, vRECT(0, 0, 33, 70000), "A");
    vWIN::NewedThis = probe;
    MEASUREITEMSTRUCT measure = {};
    measure.CtlID = 12;
    LRESULT result = SendMessageA(parent(), WM_MEASUREITEM, 12, reinterpret_cast<LPARAM>(&measure));
    vWIN::NewedThis = nullptr;
    EXPECT_EQ(result, 1);
    EXPECT_EQ(measure.itemWidth, 33u);
    EXPECT_EQ(measure.itemHeight, static_cast<UINT>(static_cast<short>(70000))) << "narrowed to 16 signed bits";
    DestroyWindow(parent());
}

// The platform's own owner-drawn button asks its parent to draw, and the
// drawing lands in the control's ccPaint.
TEST_F(ControlTest, PlatformOwnerDrawReachesCcPaint)
{
    RECORDER parent(Top(), vRECT(0, 0, 300, 200), "parent");
    PROBE* probe = new PROBE(parent, 7, vRECT(10, 10, 70, 35), "A", "BUTTON", BS_OWNERDRAW | WS_VISIBLE);
    parent.Show(1);
    UpdateWindow(parent());
    UpdateWindow(probe->Handle());
    wintest::Pump();
    EXPECT_NE(std::find(Log().begin(), Log().end(), "probe7.ccPaint(7)"), Log().end());
    DestroyWindow(parent());
}

TEST_F(ControlTest, OnlyKeyCode43GoesToTheParentsEnterHandler)
{
    RECORDER parent(Top(), vRECT(0, 0, 300, 200), "parent");
    PROBE* probe = new PROBE(parent, 7, vRECT(10, 10, 70, 35), "A");
    parent.Answer("vEnterKey", 6);
    EXPECT_EQ(probe->vProcessKeyboard(13), 0);
    EXPECT_EQ(probe->vProcessKeyboard(9), 0);
    EXPECT_EQ(Log(), Lines{});
    EXPECT_EQ(probe->vProcessKeyboard(43), 6);
    EXPECT_EQ(Log(), Lines{"parent.vEnterKey()"});
    DestroyWindow(parent());
}

struct BORDERROW {
    int type;
    COLORREF outer;
    COLORREF middle;
    COLORREF inner;
};

// Three columns left of the control tell the frames apart; the light grey
// band of the wipe shows wherever a frame draws nothing.
TEST_F(ControlTest, BorderWipesItsBandAndDrawsTheFrameOfItsType)
{
    const COLORREF grey = RGB(0xC0, 0xC0, 0xC0);
    const COLORREF white = RGB(0xFF, 0xFF, 0xFF);
    const COLORREF black = RGB(0, 0, 0);
    const BORDERROW rows[] = {
        {vBOX_RAISED, black, white, grey},
        {vBOX_ETCHED, white, grey, black},
        {5, grey, grey, grey},
    };
    RECORDER parent(Top(), vRECT(0, 0, 300, 200), "parent");
    PROBE* probe = new PROBE(parent, 7, vRECT(40, 40, 100, 70), "A");
    probe->Show(1);
    parent.Show(1);
    UpdateWindow(parent());
    for (const BORDERROW& row : rows) {
        SCOPED_TRACE(row.type);
        EXPECT_EQ(probe->Border(static_cast<vBOXTYPE>(row.type)), 1);
        EXPECT_EQ(PixelOf(parent(), 37, 55), row.outer);
        EXPECT_EQ(PixelOf(parent(), 38, 55), row.middle);
        EXPECT_EQ(PixelOf(parent(), 39, 55), row.inner);
        EXPECT_EQ(PixelOf(parent(), 35, 55), grey) << "the outer rings of the band";
    }
    DestroyWindow(parent());
}

// The label is the text that the control keeps: a button's window text,
// which its own Text() reads back, may say something else.
TEST_F(ControlTest, DrawLabelShowsTheKeptText)
{
    RECORDER parent(Top(), vRECT(0, 0, 300, 200), "parent");
    vBUTTON* button = new vBUTTON(parent, vCTRLID(7), vSTRING("%s", "A wide label"), vRECT(10, 10, 250, 40));
    vRECT area(0, 0, 240, 30);
    unsigned short kept = button->DrawLabel(area, vTEXT_LEFT, 0);
    SetWindowTextA((*button)(), "i");
    EXPECT_GT(kept, 0);
    EXPECT_EQ(button->DrawLabel(area, vTEXT_LEFT, 0), kept);
    DestroyWindow((*button)());
    DestroyWindow(parent());
}

struct LABELROW {
    const char* what;
    DWORD style;
    bool enabled;
    int third;
    COLORREF ink;
};

// Setting the text wipes the control and draws the label where the style
// puts it, greyed while the control is disabled.
TEST_F(ControlTest, TextSetsAndDrawsTheLabel)
{
    const LABELROW rows[] = {
        {"left", 0, true, 0, GetSysColor(COLOR_BTNTEXT)},
        {"centre", 1, true, 1, GetSysColor(COLOR_BTNTEXT)},
        {"right", 2, true, 2, GetSysColor(COLOR_BTNTEXT)},
        {"disabled", 0, false, 0, GetSysColor(COLOR_GRAYTEXT)},
    };
    RECORDER parent(Top(), vRECT(0, 0, 300, 200), "parent");
    parent.Show(1);
    for (const LABELROW& row : rows) {
        SCOPED_TRACE(row.what);
        PROBE* probe = new PROBE(parent, 7, vRECT(10, 10, 250, 40), "Old", "GENERIC", row.style | WS_VISIBLE);
        if (!row.enabled)
            EnableWindow(probe->Handle(), FALSE);
        UpdateWindow(probe->Handle());
        probe->Text(vSTRING("%s", "WW"));
        EXPECT_STREQ(probe->Text()(), "WW");
        EXPECT_EQ(Title(probe->Handle()), "&") << "the window keeps only the mnemonic";
        int inkIn[3] = {0, 0, 0};
        for (int x = 0; x < 240; ++x)
            for (int y = 0; y < 30; ++y)
                inkIn[x / 80] += PixelOf(probe->Handle(), x, y) == row.ink;
        for (int third = 0; third < 3; ++third)
            EXPECT_EQ(inkIn[third] > 0, third == row.third) << "third " << third;
        DestroyWindow(probe->Handle());
    }
    DestroyWindow(parent());
}

}  // namespace
