#include <functional>

#include "controls/controltest.h"

using namespace controltest;

namespace {

// A line that notes when its view is drawn.
struct LINE : vEDITLINE {
    using vEDITLINE::vEDITLINE, vEDITLINE::keyPending;
    int vDraw(const vRECT& area) override {
        Note("line.vDraw");
        return vEDITLINE::vDraw(area);
    }
};

LOGFONTA FontOf(HWND window) {
    LOGFONTA font = {};
    GetObjectA(reinterpret_cast<HFONT>(SendMessageA(window, WM_GETFONT, 0, 0)), sizeof font, &font);
    return font;
}

using EditLine = ControlTest;

// A parent's font height below 1 is the size as it stands, one above counts 3/4, only weight 700 is bold; without a
// parent's font the size is 2/3 of the client height (the platform's frame is inside), 40 and then 22. The face is
// "Helv". The recessed edge goes over the left and top of what the platform painted, and an empty line shows no
// mnemonic.
TEST_F(EditLine, TheFontFollowsTheParentsFontOrTheHeightAndTheEdgeFollowsThePlatformsPaint) {
    const struct { LONG height, weight, size, bold, resized; } rows[] = {
        {0, 0, 27, 0, 15}, {-13, 700, 13, 1, 13}, {16, 400, 12, 0, 12}, {20, 800, 15, 0, 15}};
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW), field = GetSysColor(COLOR_WINDOW);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.height);
        HWND holder = CreateWindowExA(0, "static", "", WS_CHILD | WS_VISIBLE, 0, 0, 200, 100, (*parent)(), 0, 0, 0);
        HFONT font = nullptr;
        if (row.height)
            font = CreateFontA(row.height, 0, 0, 0, row.weight, 0, 0, 0, 0, 0, 0, 0, 0, "Arial");
        SendMessageA(holder, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
        wintest::RECORDER owner(holder, "holder");
        LINE line(owner, vCTRLID(5), vSTRING(), vRECT(0, 0, 100, 40));
        LOGFONTA made = FontOf(line());
        line.Size(vRECT(0, 0, 100, 22));
        ShowPainted(line());
        zktest::Pixels edged = Shot(line());
        EXPECT_EQ(std::vector<LONG>({made.lfHeight, made.lfWeight >= FW_BOLD, FontOf(line()).lfHeight}),
                  std::vector<LONG>({row.size, row.bold, row.resized}));
        EXPECT_EQ(line.Length()(), 0);
        EXPECT_STREQ(made.lfFaceName, "Helv");
        EXPECT_EQ(std::vector<COLORREF>({edged.At(0, 11), edged.At(50, 0), edged.At(50, 11)}),
                  std::vector<COLORREF>({shadow, shadow, field}));
        edged.Save("editline-edge");
        DestroyWindow(holder);
        DeleteObject(font);
    }
}

// A change updates the view once if a key went down since the last one, never for a program's text, which Text() never
// gives back. The platform's own limit holds until MaxLength sets one; typing then stops there, and a line reads at
// most 200 characters.
TEST_F(EditLine, TypedChangesUpdateTheViewAndTheLimitStopsTyping) {
    LINE* line = new LINE(*parent, vCTRLID(5), vSTRING("ab"), vRECT(10, 10, 150, 34));
    HWND h = (*line)();
    ShowPainted(h);
    SetFocus(h);
    EXPECT_NE(SendMessageA(h, EM_GETLIMITTEXT, 0, 0), line->MaxLength()());
    auto send = [h](UINT message, WPARAM wParam) { return [=] { SendMessageA(h, message, wParam, 0); }; };
    auto text = [line](const std::string& s) { return [=] { line->Text(vSTRING("%s", s.c_str())); }; };
    auto type = [line](const char* keys) {
        return [=] {
            line->Select(line->Length(), line->Length());
            Type(keys);
        };
    };
    auto limited = [=] {
        line->MaxLength(vINT(5));
        type("345")();
    };
    const WPARAM change = MAKEWPARAM(5, EN_CHANGE);
    const struct { const char* input; std::function<void()> act; long pending; size_t views; std::string shown; }
    rows[] = {
        {"a change with a key pending", send(WM_COMMAND, change), 0, 1, "ab"},
        {"a change with none pending", send(WM_COMMAND, change), 0, 0, "ab"},
        {"a key that changes nothing", send(WM_KEYDOWN, VK_SHIFT), 1, 0, "ab"},
        {"a program's text", text("cd"), 1, 0, "cd"},
        {"two typed keys", type("12"), 0, 2, "cd12"},
        {"typed past a limit of 5", limited, 0, 3, "cd123"},
        {"a program's long text", text(std::string(300, 'x')), 0, 0, std::string(200, 'x')}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.input);
        Log().clear();
        row.act();
        EXPECT_EQ(line->keyPending, row.pending);
        EXPECT_EQ(Only("vDraw").size(), row.views);
        EXPECT_EQ(line->GetLine()(), row.shown);
    }
    EXPECT_EQ(SendMessageA(h, EM_GETLIMITTEXT, 0, 0), 5);
    EXPECT_STREQ(line->Text()(), "ab");
}

// ViewRow sums the lengths of the rows holding the characters 0, 1, 2..., so it answers a later row than the caret's
// (truly 0, 0, 0, 1, 2 below); ViewRow(row) puts the caret at the sum of the starts of the rows before.
TEST_F(EditLine, AnEditBoxsViewRowsCountByCharactersAndSumTheRowStarts) {
    vEDITBOX* box = new vEDITBOX(*parent, vCTRLID(5), vSTRING("abc\r\ndefgh\r\nij"), vINT(9), vRECT(10, 10, 200, 100));
    HWND h = (*box)();
    auto held = [box] { return std::to_string(box->Length()()) + box->Text()() + std::to_string(box->MaxRows()()); };
    EXPECT_EQ(held(), "14abc\r\ndefgh\r\nij3");
    const struct { int caret, row, row2, caret2; } rows[] = {
        {0, 0, 0, 0}, {3, 0, 1, 0}, {4, 1, 2, 5}, {7, 2, 3, 14}, {13, 3, 4, 9}};
    for (const auto& row : rows) {
        SendMessageA(h, EM_SETSEL, row.caret, row.caret);
        EXPECT_EQ(box->ViewRow()(), row.row) << row.caret;
        SendMessageA(h, EM_SETSEL, 9, 9);
        box->ViewRow(vINT(row.row2));
        EXPECT_EQ(SendMessageA(h, EM_GETSEL, 0, 0), MAKELONG(row.caret2, row.caret2)) << row.row2;
    }
    box->Text(static_cast<char*>(nullptr));
    EXPECT_EQ(held(), "01");
}

// A nudge whose value shows before its text.
struct NUDGE : vNUDGE {
    using vNUDGE::vNUDGE, vNUDGE::value;
    std::string Shown() { return std::to_string(value) + GetLine()(); }
};

// A nudge with its keys, shown in a plain window, whose logical units are its pixels.
NUDGE* Made(vWIN& in) {
    NUDGE* made = new NUDGE(in, vCTRLID(5), vRECT(200, 10, 260, 90));
    for (HWND shown : {(*made)(), GetDlgItem(in(), 100), GetDlgItem(in(), 101)})
        ShowPainted(shown);
    return made;
}

class NudgeTest : public ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        nudge = Made(*parent);
        up = GetDlgItem((*parent)(), 100);
        down = GetDlgItem((*parent)(), 101);
    }
    NUDGE* nudge = nullptr;
    HWND up = nullptr, down = nullptr;
};

// Each key is half the field high, right of the field in the parent's units; its face is the marks sheet's black arrow
// cell, the light-grey triangle see-through.
TEST_F(NudgeTest, KeysStandBesideTheFieldWithArrowFaces) {
    const long top = 10, bottom = 90, right = 260, half = (bottom - top) / 2;
    EXPECT_EQ(wintest::Placed(up), wintest::Text(vRECT(right + 3, top - 1, half + right + 3, top + half - 1)));
    EXPECT_EQ(wintest::Placed(down), wintest::Text(vRECT(right + 3, bottom - half + 1, half + right + 3, bottom + 1)));
    const struct { HWND key; const char* name; std::vector<int> black; } faces[] = {
        {up, "nudge-up", {10, 8, 6, 4, 2, 10}}, {down, "nudge-down", {10, 2, 4, 6, 8, 10}}};
    for (const auto& face : faces) {
        zktest::Pixels shot = Shot(face.key);
        shot.Save(face.name);
        std::vector<int> rows;  // the black pixels of each row that has any
        for (int y = 3; y < half - 3; ++y) {
            int black = 0;
            for (int x = 3; x < half - 3; ++x)
                black += shot.At(x, y) == zktest::Black;
            if (black)
                rows.push_back(black);
        }
        rows.resize(face.black.size());
        EXPECT_EQ(rows, face.black) << face.name;
        EXPECT_EQ(shot.Count(Key), 0) << face.name;
    }
}

// A fresh nudge's 1 can neither rise past its highest 1 nor fall below its lowest 1. A range resets the value but not
// the text; a step may land exactly on either end, 0 shows as an empty field, and a held key repeats.
TEST_F(NudgeTest, ClickedOrHeldKeysStepTheValueWithinTheRange) {
    const struct { double highest; HWND key; int clicks; double value; const char* shown; } rows[] = {
        {0, up, 1, 1, "1"},  {0, down, 1, 1, "1"}, {10, up, 0, 0, "1"},   {0, up, 1, 2.5, "2.5"},
        {0, up, 4, 10, "10"}, {0, down, 4, 0, ""}, {100, up, 0, 0, ""}};
    for (const auto& row : rows) {
        if (row.highest) {
            nudge->Range(0, row.highest);
            nudge->Increment(2.5);
        }
        for (int click = 0; click < row.clicks; ++click)
            Hold(row.key, 8, 8, 0);
        EXPECT_EQ(nudge->Shown(), std::to_string(row.value) + row.shown) << row.clicks;
    }
    Hold(up, 8, 8, 900);
    EXPECT_EQ(nudge->GetLine()(), std::string(vSTRING(vREAL(nudge->value))()));
    EXPECT_GE(nudge->value, 3 * 2.5);
}

// Typed text is the value. Leaving brings a value out of range, crossed ranges too, to the nearer end, shown with the
// caret at its end; no number reads as 0. A character that no number has brings the value's text back.
TEST_F(NudgeTest, TypedTextIsTheValueAndLeavingClampsIt) {
    nudge->Range(0, 10);
    SetFocus((*nudge)());
    nudge->Select(0, nudge->Length());
    Type("9");
    EXPECT_EQ(nudge->Shown(), std::to_string(9.0) + "9");
    const struct { double lowest, highest; const char* typed; double value; const char* shown; } leaving[] = {
        {0, 10, "12", 10, "10"}, {0, 10, "-3", 0, "0"}, {0, 10, "7.5", 7.5, "7.5"},
        {0, 10, "abc", 0, "abc"}, {10, 0, "5", 10, "10"}};
    for (const auto& row : leaving) {
        nudge->Range(row.lowest, row.highest);
        SetWindowTextA((*nudge)(), row.typed);
        nudge->vReleaseFocus();
        EXPECT_EQ(nudge->Shown(), std::to_string(row.value) + row.shown) << row.typed;
    }
    EXPECT_EQ(SendMessageA((*nudge)(), EM_GETSEL, 0, 0), MAKELONG(2, 2));
    for (char ch : {'7', '.', '+', '-', '\b', 'x', 'e'}) {
        SetWindowTextA((*nudge)(), "9");
        EXPECT_EQ(nudge->vCharacter(vCHAR(ch)), 1);
        EXPECT_STREQ(nudge->GetLine()(), isdigit(ch) || ch < 'a' ? "9" : "10") << ch;
    }
}

// A second life of a nudge with its keys and of an edit box, made, stepped, held, resized and gone, leaves no GDI
// object behind.
TEST_F(NudgeTest, TheControlsLivesLeaveNoGdiObjectBehind) {
    unsigned long before = 0;
    for (int life = 0; life < 2; ++life) {
        before = zktest::LiveGdiObjects();
        PARENT* other = new PARENT(*parent, vRECT(0, 0, 300, 200));
        NUDGE* another = Made(*other);
        ShowPainted((*new vEDITBOX(*other, vCTRLID(6), vSTRING("a\r\nb"), vINT(2), vRECT(0, 100, 100, 150)))());
        another->Range(0, 9);
        Hold(GetDlgItem((*other)(), 101), 8, 8, 300);
        another->Size(vRECT(200, 10, 260, 50));
        DestroyWindow((*other)());
        wintest::Pump();
    }
    EXPECT_EQ(zktest::LiveGdiObjects(), before);
}

}  // namespace
