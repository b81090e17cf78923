#include "controls/buttontest.h"

using namespace buttontest;
using wintest::RECORDER;

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
        return 5;
    }
    short vCompare(const vSTRING& first, const vSTRING& second) override
    {
        Note(name + ".vCompare(" + first() + "," + second() + ")");
        return -2;
    }

    HWND Handle() const { return hWnd; }

    std::string name;
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

// Made in a window without a template, a control takes its rectangle as it
// is, or nothing at all for the adoption mark, shows only its mnemonic, and
// stands in the tab order.
TEST_F(ControlTest, MadeInAPlainWindowCreatesItsOwnWindow)
{
    const struct {
        vRECT rect;
        const char* text;
        vRECT bound;
        const char* title;
    } rows[] = {
        {vRECT(-1, -1, -1, -1), "&Open", vRECT(0, 0, 0, 0), "&O"},
        {vRECT(5, 6, 50, 30), "Fi&le", vRECT(5, 6, 50, 30), "&l"},
        {vRECT(5, 6, 50, 30), "End&", vRECT(5, 6, 50, 30), "&"},
        {vRECT(5, 6, 50, 30), "", vRECT(5, 6, 50, 30), "&"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        PROBE* probe = new PROBE(*parent, 7, row.rect, row.text);
        ASSERT_TRUE(IsWindow(probe->Handle()));
        EXPECT_EQ(GetParent(probe->Handle()), (*parent)());
        EXPECT_TRUE(*probe->Bound() == row.bound);
        EXPECT_TRUE(PlaceInParent(probe->Handle()) == row.bound);
        EXPECT_EQ(Title(probe->Handle()), row.title);
        EXPECT_STREQ(probe->Text()(), row.text);
        EXPECT_EQ(GetDlgCtrlID(probe->Handle()), 7);
        const DWORD childClippedGroupTab = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_GROUP | WS_TABSTOP;
        EXPECT_EQ(GetWindowLongA(probe->Handle(), GWL_STYLE) & childClippedGroupTab, childClippedGroupTab);
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
    struct TEMPLATED : RECORDER {
        explicit TEMPLATED(HWND dialog) : RECORDER(dialog, "dialog") { resTemplate = vRESID(500, vSYSTEM::Pointer()); }
    } templated(dialog);
    vRECT mark(-1, -1, -1, -1);
    PROBE* edit = new PROBE(templated, 101, mark, "", "EDIT");
    PROBE* oneCharacter = new PROBE(templated, 102, mark, "", "STATIC");
    PROBE* button = new PROBE(templated, 103, mark, "Given", "BUTTON");
    PROBE* beside = new PROBE(templated, 104, vRECT(10, 50, 60, 70), "New", "BUTTON");
    PROBE* missing = new PROBE(templated, 105, mark, "", "BUTTON");
    EXPECT_EQ(edit->Handle(), GetDlgItem(dialog, 101));
    EXPECT_STREQ(edit->Text()(), "Hello");
    EXPECT_TRUE(*edit->Bound() == PlaceInParent(GetDlgItem(dialog, 101)));
    EXPECT_STREQ(oneCharacter->Text()(), "") << "a one-character title is deliberately not read";
    EXPECT_STREQ(button->Text()(), "Given") << "a text given wins over the item's title";
    EXPECT_EQ(Title(button->Handle()), "Fi&le") << "an adopted item keeps its title";
    EXPECT_EQ(RECORDER::Instance(GetDlgItem(dialog, 103)), button) << "and reports through its object";
    EXPECT_NE(beside->Handle(), GetDlgItem(dialog, 101));
    EXPECT_EQ(GetParent(beside->Handle()), dialog);
    EXPECT_TRUE(*beside->Bound() == vRECT(10, 50, 60, 70));
    EXPECT_EQ(Title(beside->Handle()), "&");
    EXPECT_EQ(missing->ItemSize().Width()(), 0) << "an item the template lacks is made at no size";
    EXPECT_EQ(missing->ItemSize().Height()(), 0);
    DestroyWindow(dialog);
}

// The parent hears of the control under the pointer once per control, and
// of the pointer leaving for a window without identifier once the timer
// runs out; leaving the system altogether lets the hint stand.
TEST_F(ControlTest, HintsFollowThePointerAcrossControls)
{
    PROBE* first = new PROBE(*parent, 7, vRECT(10, 10, 60, 40), "A");
    PROBE* second = new PROBE(*parent, 8, vRECT(70, 10, 120, 40), "B");
    first->Show(1);
    second->Show(1);
    wintest::Pump();
    const struct {
        HWND from;
        int x, y;
        Lines hints;
    } rows[] = {
        {first->Handle(), 85, 15, {"parent.vCommandHint(7)", "parent.vCommandHint(8)"}},
        {first->Handle(), 200, 150, {"parent.vCommandHint(7)", "parent.vCommandHint(0)"}},
        {second->Handle(), -5000, 1000, {"parent.vCommandHint(8)"}},
    };
    for (const auto& row : rows) {
        Log().clear();
        MouseTo(row.from, 25, 15);
        wintest::Pump();
        MouseTo(first->Handle(), row.x - 10, row.y - 10);
        PumpFor(500);
        EXPECT_EQ(Only("vCommandHint"), row.hints);
    }
    EXPECT_EQ(vCONTROL::CurHintedCtr, vCTRLID(8)) << "the hint stands";
}

// The parent hands owner-drawn items to the control of the identifier and
// leaves the others to the default processing; while a control is being
// made the window under construction answers the measure, narrowed to 16
// signed bits.
TEST_F(ControlTest, OwnerDrawingMessagesReachTheControl)
{
    static char apple[] = "apple";
    static char pear[] = "pear";
    const struct {
        UINT message;
        unsigned short controlId;
        Lines calls;
        LRESULT result;
        bool creating;
    } rows[] = {
        {WM_DRAWITEM, 7, {"probe7.ccPaint(7)"}, 5, false},
        {WM_DRAWITEM, 9, {"parent default 43"}, 0, false},
        {WM_MEASUREITEM, 7, {}, 1, false},
        {WM_MEASUREITEM, 9, {"parent default 44"}, 0, false},
        {WM_MEASUREITEM, 12, {}, 1, true},
        {WM_COMPAREITEM, 7, {"probe7.vCompare(apple,pear)"}, -2, false},
        {WM_COMPAREITEM, 9, {"parent default 57"}, 0, false},
        {WM_DELETEITEM, 9, {}, 1, false},
    };
    PROBE* probe = new PROBE(*parent, 7, vRECT(10, 10, 70, 35), "A");
    PROBE* made = new PROBE(*parent, 8, vRECT(0, 0, 33, 70000), "B");
    wintest::Watched() = {WM_DRAWITEM, WM_MEASUREITEM, WM_COMPAREITEM, WM_DELETEITEM};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.message) + " for " + std::to_string(row.controlId));
        Log().clear();
        DRAWITEMSTRUCT draw = {};
        MEASUREITEMSTRUCT measure = {};
        COMPAREITEMSTRUCT compare = {};
        DELETEITEMSTRUCT gone = {};
        draw.CtlID = measure.CtlID = compare.CtlID = gone.CtlID = row.controlId;
        compare.itemData1 = reinterpret_cast<ULONG_PTR>(apple);
        compare.itemData2 = reinterpret_cast<ULONG_PTR>(pear);
        void* records[] = {&draw, &measure, &gone};
        void* record = row.message == WM_COMPAREITEM ? &compare : records[row.message - WM_DRAWITEM];
        vWIN::NewedThis = row.creating ? made : nullptr;
        LRESULT result = SendMessageA((*parent)(), row.message, row.controlId, reinterpret_cast<LPARAM>(record));
        vWIN::NewedThis = nullptr;
        EXPECT_EQ(Log(), row.calls);
        if (row.calls.empty() || row.calls[0].find("default") == std::string::npos) {
            EXPECT_EQ(result, row.result);
        }
        if (row.message == WM_MEASUREITEM && row.result) {
            vRECT size = *(row.creating ? made : probe)->Bound();
            EXPECT_EQ(measure.itemWidth, static_cast<UINT>(size.Width()()));
            EXPECT_EQ(measure.itemHeight, static_cast<UINT>(static_cast<short>(size.Height()())));
        }
    }
    // The platform's own owner-drawn button asks its parent to draw.
    Log().clear();
    PROBE* owned = new PROBE(*parent, 9, vRECT(10, 40, 70, 65), "C", "BUTTON", BS_OWNERDRAW | WS_VISIBLE);
    UpdateWindow(owned->Handle());
    wintest::Pump();
    EXPECT_EQ(Only("ccPaint"), Lines{"probe9.ccPaint(9)"});
}

// Only key code 43 goes to the parent's Enter handler, whose answer is the
// control's.
TEST_F(ControlTest, OnlyKeyCode43GoesToTheParentsEnterHandler)
{
    PROBE* probe = new PROBE(*parent, 7, vRECT(10, 10, 70, 35), "A");
    parent->Answer("vEnterKey", 6);
    const struct {
        vKEYCODE key;
        int answer;
        Lines calls;
    } rows[] = {{13, 0, {}}, {9, 0, {}}, {43, 6, {"parent.vEnterKey()"}}};
    for (const auto& row : rows) {
        Log().clear();
        EXPECT_EQ(probe->vProcessKeyboard(row.key), row.answer) << row.key;
        EXPECT_EQ(Log(), row.calls) << row.key;
    }
}

// Three columns left of the control tell the frames apart; the light grey
// band of the wipe shows wherever a frame draws nothing.
TEST_F(ControlTest, BorderWipesItsBandAndDrawsTheFrameOfItsType)
{
    const COLORREF grey = RGB(0xC0, 0xC0, 0xC0), white = RGB(0xFF, 0xFF, 0xFF), black = RGB(0, 0, 0);
    const struct {
        int type;
        COLORREF outer, middle, inner;
    } rows[] = {{vBOX_RAISED, black, white, grey}, {vBOX_ETCHED, white, grey, black}, {5, grey, grey, grey}};
    PROBE* probe = new PROBE(*parent, 7, vRECT(40, 40, 100, 70), "A");
    probe->Show(1);
    UpdateWindow((*parent)());
    for (const auto& row : rows) {
        SCOPED_TRACE(row.type);
        EXPECT_EQ(probe->Border(static_cast<vBOXTYPE>(row.type)), 1);
        EXPECT_EQ(std::vector<COLORREF>({PixelOf((*parent)(), 35, 55), PixelOf((*parent)(), 37, 55),
                                         PixelOf((*parent)(), 38, 55), PixelOf((*parent)(), 39, 55)}),
                  std::vector<COLORREF>({grey, row.outer, row.middle, row.inner}));
    }
}

// Setting the text wipes the control and draws the label where the style
// puts it, greyed while the control is disabled. The label is the text the
// control keeps: a button's window text may say something else.
TEST_F(ControlTest, TextSetsAndDrawsTheKeptLabel)
{
    const struct {
        const char* what;
        DWORD style;
        bool enabled;
        int third;
        COLORREF ink;
    } rows[] = {
        {"left", 0, true, 0, GetSysColor(COLOR_BTNTEXT)},
        {"centre", 1, true, 1, GetSysColor(COLOR_BTNTEXT)},
        {"right", 2, true, 2, GetSysColor(COLOR_BTNTEXT)},
        {"disabled", 0, false, 0, GetSysColor(COLOR_GRAYTEXT)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        PROBE* probe = new PROBE(*parent, 7, vRECT(10, 10, 250, 40), "Old", "GENERIC", row.style | WS_VISIBLE);
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
    vBUTTON* button = new vBUTTON(*parent, vCTRLID(7), vSTRING("%s", "A wide label"), vRECT(10, 10, 250, 40));
    vRECT area(0, 0, 240, 30);
    unsigned short kept = button->DrawLabel(area, vTEXT_LEFT, 0);
    SetWindowTextA((*button)(), "i");
    EXPECT_GT(kept, 0);
    EXPECT_EQ(button->DrawLabel(area, vTEXT_LEFT, 0), kept);
}

}  // namespace
