#include <functional>

#include "controls/controltest.h"
#include "core/resources/resourceids.h"
#include "dialogs/dialog.h"

using namespace controltest;

namespace {

// The template of controls_tests.rc and its items.
enum : unsigned short { MARKS_TEMPLATE = 510, ONE = 511, TWO, THREE, BOX, TOGGLE };

// A mark is 15 pixels square; in a control 30 high it stands at (1, 8), and the label starts 6 behind it.
const int Mark = 15, MarkLeft = 1, MarkTop = 8, LabelLeft = 21;

// The test program as a module, which holds the template.
struct PROGRAM : vMODULE {
    PROGRAM() : vMODULE(GetModuleHandleA(nullptr)) {}
} Program;

struct DIALOG : vDIALOG {
    DIALOG(const vWIN& parent, const vCONTROLMAP* map, void* data)
        : vDIALOG(parent, vRESID(MARKS_TEMPLATE, &Program), map, data, vSTRING(), 0) { Init(); }
};

using MarkTest = ControlTest;

// The map's factories adopt the template's items. Clicks select within the group that SetGroup gave, and a radio button
// in no group checks nothing; the check box flips between checked and clear, and any other state goes to checked. Each
// row starts where the row above ended; clicks alternate between two points so that none pairs into a double click.
TEST_F(MarkTest, ClicksSelectWithinTheGroupAndFlipTheCheckBox) {
    static const vCONTROLMAP map[] = {
        {vRADIOBTN::New, ONE, 0, 0, 0}, {vRADIOBTN::New, TWO, 0, 0, 0},   {vRADIOBTN::New, THREE, 0, 0, 0},
        {vCHECKBOX::New, BOX, 0, 0, 0}, {vTOGGLEBTN::New, TOGGLE, 0, 0, 1}, {nullptr, 0, 0, 0, 0}};
    char data[] = {1};
    DIALOG* dialog = new DIALOG(*parent, map, data);
    HWND window = (*dialog)();
    auto item = [&](unsigned short id) { return dialog->Child(vCTRLID(id)); };
    for (unsigned short id = ONE; id <= TOGGLE; ++id)
        ASSERT_EQ((*item(id))(), GetDlgItem(window, id)) << id;
    vRADIOBTN* one = dynamic_cast<vRADIOBTN*>(item(ONE));
    vRADIOBTN* two = dynamic_cast<vRADIOBTN*>(item(TWO));
    vRADIOBTN* three = dynamic_cast<vRADIOBTN*>(item(THREE));
    vCHECKBOX* box = dynamic_cast<vCHECKBOX*>(item(BOX));
    ASSERT_TRUE(one && two && three && box);
    EXPECT_EQ(dynamic_cast<vTOGGLEBTN*>(item(TOGGLE))->Selected(), 1) << "the data block's byte";
    EXPECT_EQ(one->SetGroup(*one, *two), 1);
    auto click = [&](unsigned short id, int x) {
        return [=] { Hold(GetDlgItem(window, id), x, 8, 0); };
    };
    auto crossed = [&] {
        EXPECT_EQ(three->SetGroup(*three, *one), 0);
        click(THREE, 40)();
    };
    // After each act: one, two, three selected; the box checked, in the third state.
    const struct { const char* what; std::function<void()> act; std::vector<int> after; } rows[] = {
        {"click two", click(TWO, 10), {0, 1, 0, 0, 0}},
        {"click one", click(ONE, 40), {1, 0, 0, 0, 0}},
        {"click three, in no group", click(THREE, 10), {1, 0, 0, 0, 0}},
        {"crossed ends give no group", crossed, {1, 0, 0, 0, 0}},
        {"the first group still holds", click(TWO, 10), {0, 1, 0, 0, 0}},
        {"click the box", click(BOX, 10), {0, 1, 0, 1, 0}},
        {"click it again", click(BOX, 40), {0, 1, 0, 0, 0}},
        {"the third state", [&] { SendMessageA((*box)(), BM_SETCHECK, 2, 0); }, {0, 1, 0, 0, 1}},
        {"click from the third state", click(BOX, 10), {0, 1, 0, 1, 0}},
        {"Confuse gives neither", [&] { box->Confuse(); }, {0, 1, 0, 0, 0}},
        {"click after Confuse", click(BOX, 40), {0, 1, 0, 1, 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        row.act();
        std::vector<int> after = {one->Selected(), two->Selected(), three->Selected(), box->Checked(), box->Confused()};
        EXPECT_EQ(after, row.after);
    }
    DestroyWindow(window);
}

// The mark of each state is its cell of the sheet, the radio marks with their red left out; disabled shows the disabled
// mark whatever the state. The label stands to the right of the mark, on the face colour. After a first of each kind, a
// control's life leaves no GDI object.
TEST_F(MarkTest, EachStateShowsItsCellOfTheSheetAndTheLabelBehindIt) {
    // The check state is set by BM_SETCHECK, 5 by Confuse.
    const struct { const char* name; bool radio; int check; bool disable; vRECT cell; } rows[] = {
        {"checkbox-clear", false, 0, false, vRECT(17, 1, 32, 16)},
        {"checkbox-checked", false, 1, false, vRECT(1, 1, 16, 16)},
        {"checkbox-third", false, 2, false, vRECT(33, 1, 48, 16)},
        {"checkbox-confused", false, 5, false, vRECT(17, 1, 32, 16)},
        {"checkbox-disabled-clear", false, 0, true, vRECT(49, 1, 64, 16)},
        {"checkbox-disabled-checked", false, 1, true, vRECT(49, 1, 64, 16)},
        {"checkbox-disabled-third", false, 2, true, vRECT(49, 1, 64, 16)},
        {"radio-normal", true, 0, false, vRECT(17, 17, 32, 32)},
        {"radio-selected", true, 1, false, vRECT(1, 17, 16, 32)},
        {"radio-disabled", true, 1, true, vRECT(49, 17, 64, 32)},
    };
    HANDLE marks = LoadImageA(GetModuleHandleA("zkcore.dll"), MAKEINTRESOURCEA(BMP_MARKS), IMAGE_BITMAP, 0, 0, 0);
    zktest::Pixels sheet(static_cast<HBITMAP>(marks), 65, 33);
    DeleteObject(marks);
    ASSERT_TRUE(sheet.Read());
    const COLORREF face = vDEVICE::GetScreen().Colour(vSCREEN_3DFACE).PackedRGB();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        unsigned long objects = zktest::LiveGdiObjects();
        vRECT rect(10, 10, 150, 40);
        vBUTTON* button = row.radio ? static_cast<vBUTTON*>(new vRADIOBTN(*parent, vCTRLID(7), vSTRING("Wide"), rect))
                                    : new vCHECKBOX(*parent, vCTRLID(7), vSTRING("Wide"), rect);
        HWND window = (*button)();
        EXPECT_EQ(GetWindowLongA(window, GWL_STYLE) & BS_TYPEMASK, row.radio ? BS_TYPEMASK : BS_OWNERDRAW);
        if (row.check == 5)
            dynamic_cast<vCHECKBOX*>(button)->Confuse();
        else
            SendMessageA(window, BM_SETCHECK, row.check, 0);
        EnableWindow(window, !row.disable);
        ShowPainted(window);
        zktest::Pixels shot = Shot(window);
        ASSERT_TRUE(shot.Read());
        shot.Save(row.name);
        int wrong = 0;
        for (int y = 0; y < Mark; ++y)
            for (int x = 0; x < Mark; ++x) {
                COLORREF cell = sheet.At(row.cell.Left()() + x, row.cell.Top()() + y);
                wrong += shot.At(MarkLeft + x, MarkTop + y) != (row.radio && cell == zktest::Red ? face : cell);
            }
        EXPECT_EQ(wrong, 0);
        COLORREF ink = GetSysColor(row.disable ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
        std::vector<int> inkAt(2, 0);  // between the mark and the label, behind
        for (int y = 0; y < 30; ++y)
            for (int x = MarkLeft + Mark; x < 140; ++x)
                inkAt[x >= LabelLeft] += shot.At(x, y) == ink;
        EXPECT_TRUE(inkAt[0] == 0 && inkAt[1] > 0 && shot.At(Mark + 3, 2) == face);
        DestroyWindow(window);
        wintest::Pump();
        if (&row != &rows[0] && &row != &rows[7]) {
            EXPECT_EQ(zktest::LiveGdiObjects(), objects);
        }
    }
}

}  // namespace
