#include "controls/controltest.h"

using namespace controltest;

namespace {

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
