#include "controls/controltest.h"

using namespace controltest;

namespace {

// A control of an application: it records the hooks the library calls, and either lets the control base create its
// window or creates one of the platform class it names.
class PROBE : public vCONTROL {
public:
    PROBE(const vWIN& parent, unsigned short id, const vRECT& rect, const char* caption,
          const char* platformClass = nullptr, DWORD style = 0)
        : vCONTROL(parent, vCTRLID(id), rect, vSTRING("%s", caption),
                   platformClass ? static_cast<vCLASSID>(1) : CLASSID_CONTROL),
          name("probe" + std::to_string(id))
    {
        if (!platformClass)
            return;
        lstrcpyA(CreateParams.szClassName, platformClass);
        CreateParams.dwStyle |= style;
        CreateWin();
    }

    void SetupView(char*, unsigned short) override {}
    void UpdateData(void*) override {}
    int ccPaint(tagDRAWITEMSTRUCT* item) override {
        return Noted(name + ".ccPaint(" + std::to_string(item->CtlID) + ")", 5);
    }
    short vCompare(const vSTRING& one, const vSTRING& two) override {
        return Noted(name + ".vCompare(" + one() + "," + two() + ")", short(-2));
    }
    HWND Handle() const { return hWnd; }
    std::string Title() const {
        char title[64] = "";
        GetWindowTextA(hWnd, title, sizeof title);
        return title;
    }

    std::string name;
};

// Made in a window without a template, a control takes its rectangle as it is, or nothing at all for the adoption mark,
// shows only its mnemonic, and stands in the tab order.
TEST_F(ControlTest, MadeInAPlainWindowCreatesItsOwnWindow) {
    const struct { vRECT rect; const char* text; vRECT bound; const char* title; } rows[] = {
        {vRECT(-1, -1, -1, -1), "&Open", vRECT(0, 0, 0, 0), "&O"},
        {vRECT(5, 6, 50, 30), "Fi&le", vRECT(5, 6, 50, 30), "&l"},
        {vRECT(5, 6, 50, 30), "End&", vRECT(5, 6, 50, 30), "&"},
        {vRECT(5, 6, 50, 30), "", vRECT(5, 6, 50, 30), "&"},
    };
    const DWORD childClippedGroupTab = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_GROUP | WS_TABSTOP;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        PROBE* probe = new PROBE(*parent, 7, row.rect, row.text);
        EXPECT_EQ(wintest::Placed(probe->Handle()), wintest::Text(row.bound));
        EXPECT_EQ(probe->Title(), row.title);
        EXPECT_STREQ(probe->Text()(), row.text);
        EXPECT_EQ(GetWindowLongA(probe->Handle(), GWL_STYLE) & childClippedGroupTab, childClippedGroupTab);
        EXPECT_EQ(wintest::RECORDER::Instance(probe->Handle()), probe) << "bound to its object";
        DestroyWindow(probe->Handle());
    }
}

// The parent hands owner-drawn items to the control of the identifier and leaves the others to the default processing;
// while a control is being made the window under construction answers the measure, narrowed to 16 signed bits. The
// platform's own owner-drawn button asks its parent to draw.
TEST_F(ControlTest, OwnerDrawingMessagesAndTheEnterKeyReachTheirHandlers) {
    static char apple[] = "apple", pear[] = "pear";
    const struct { UINT message; unsigned short controlId; Lines calls; LRESULT result; bool creating; } rows[] = {
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
        // Every record starts with the control's type and identifier.
        union { DRAWITEMSTRUCT draw; MEASUREITEMSTRUCT measure; COMPAREITEMSTRUCT compare; } record = {};
        record.draw.CtlID = row.controlId;
        if (row.message == WM_COMPAREITEM) {
            record.compare.itemData1 = reinterpret_cast<ULONG_PTR>(apple);
            record.compare.itemData2 = reinterpret_cast<ULONG_PTR>(pear);
        }
        vWIN::NewedThis = row.creating ? made : nullptr;
        LRESULT result = SendMessageA((*parent)(), row.message, row.controlId, reinterpret_cast<LPARAM>(&record));
        vWIN::NewedThis = nullptr;
        EXPECT_EQ(Log(), row.calls);
        EXPECT_EQ(row.result ? result : 0, row.result) << "the default's answer is the platform's";
        if (row.message == WM_MEASUREITEM && row.result) {
            vRECT size = *(row.creating ? made : probe)->Bound();
            EXPECT_EQ(record.measure.itemWidth, static_cast<UINT>(size.Width()()));
            EXPECT_EQ(record.measure.itemHeight, static_cast<UINT>(static_cast<short>(size.Height()())));
        }
    }
    Log().clear();
    PROBE* owned = new PROBE(*parent, 9, vRECT(10, 40, 70, 65), "C", "BUTTON", BS_OWNERDRAW | WS_VISIBLE);
    UpdateWindow(owned->Handle());
    wintest::Pump();
    EXPECT_EQ(Only("ccPaint"), Lines{"probe9.ccPaint(9)"});
    // Only key code 43 goes to the parent's Enter handler, whose answer is the control's.
    parent->Answer("vEnterKey", 6);
    const struct { vKEYCODE key; int answer; Lines calls; } keys[] = {
        {13, 0, {}}, {9, 0, {}}, {43, 6, {"parent.vEnterKey()"}}};
    for (const auto& row : keys) {
        Log().clear();
        EXPECT_EQ(probe->vProcessKeyboard(row.key), row.answer) << row.key;
        EXPECT_EQ(Log(), row.calls) << row.key;
    }
}

// Setting the text wipes the control and draws the label where the style puts it, greyed while the control is disabled;
// the window keeps only the mnemonic.
TEST_F(ControlTest, TextSetsAndDrawsTheKeptLabel) {
    const COLORREF ink = GetSysColor(COLOR_BTNTEXT);
    const struct { const char* what; DWORD style; bool enabled; int third; COLORREF ink; } rows[] = {
        {"left", 0, true, 0, ink}, {"centre", 1, true, 1, ink}, {"right", 2, true, 2, ink},
        {"disabled", 0, false, 0, GetSysColor(COLOR_GRAYTEXT)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        PROBE* probe = new PROBE(*parent, 7, vRECT(10, 10, 250, 40), "Old", "GENERIC", row.style | WS_VISIBLE);
        EnableWindow(probe->Handle(), row.enabled);
        UpdateWindow(probe->Handle());
        probe->Text(vSTRING("%s", "WW"));
        EXPECT_EQ(probe->Title(), "&");
        int inkIn[3] = {0, 0, 0};
        zktest::Pixels shot = Shot(probe->Handle());
        for (int x = 0; x < 240; ++x)
            for (int y = 0; y < 30; ++y)
                inkIn[x / 80] += shot.At(x, y) == row.ink;
        for (int third = 0; third < 3; ++third)
            EXPECT_EQ(inkIn[third] > 0, third == row.third) << "third " << third;
        DestroyWindow(probe->Handle());
    }
}

}  // namespace
