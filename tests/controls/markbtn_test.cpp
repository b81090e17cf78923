#include <functional>

#include "controls/buttontest.h"
#include "core/resources/resourceids.h"
#include "dialogs/dialog.h"

using namespace buttontest;

namespace {

// The template of controls_tests.rc and its items.
enum : unsigned short { MARKS_TEMPLATE = 510, ONE = 511, TWO, THREE, BOX, TOGGLE };

// A mark is 15 pixels square; in a control 30 high it stands at (1, 8).
const int MarkSide = 15;
const POINT MarkAt = {1, 8};
// Where the label starts: the mark's width and a gap of 6.
const int LabelLeft = MarkSide + 6;

vRESID Template()
{
    static struct PROGRAM : vMODULE { PROGRAM() : vMODULE(GetModuleHandleA(nullptr)) {} } program;
    return vRESID(MARKS_TEMPLATE, &program);
}

class DIALOG : public vDIALOG {
public:
    DIALOG(const vWIN& parent, const vCONTROLMAP* map, void* data)
        : vDIALOG(parent, Template(), map, data, vSTRING(), 0)
    {
        Init();
    }
};

// The marks sheet as the base library holds it.
zktest::Pixels Sheet()
{
    HANDLE sheet = LoadImageA(GetModuleHandleA("zkcore.dll"), MAKEINTRESOURCEA(BMP_MARKS), IMAGE_BITMAP, 0, 0, 0);
    zktest::Pixels pixels(static_cast<HBITMAP>(sheet), 65, 33);
    DeleteObject(sheet);
    return pixels;
}

// A real click some way into a window, half-way down.
void Click(HWND window, int x)
{
    RECT client;
    GetClientRect(window, &client);
    MouseTo(window, x, client.bottom / 2);
    Mouse(MOUSEEVENTF_LEFTDOWN), Mouse(MOUSEEVENTF_LEFTUP), PumpFor(60);
}

class MarkTest : public ControlTest {};

// The map's factories adopt the template's items. Clicks select within the
// group that SetGroup gave, and a radio button in no group checks nothing;
// the check box flips between checked and clear, and any other state goes
// to checked. Each row starts where the row above ended.
TEST_F(MarkTest, ClicksSelectWithinTheGroupAndFlipTheCheckBox)
{
    static const vCONTROLMAP map[] = {{vRADIOBTN::New, ONE, 0, 0, 0},   {vRADIOBTN::New, TWO, 0, 0, 0},
                                      {vRADIOBTN::New, THREE, 0, 0, 0}, {vCHECKBOX::New, BOX, 0, 0, 0},
                                      {vTOGGLEBTN::New, TOGGLE, 0, 0, 1}, {nullptr, 0, 0, 0, 0}};
    char data[] = {1};
    DIALOG* dialog = new DIALOG(*parent, map, data);
    HWND window = (*dialog)();
    for (unsigned short id = ONE; id <= TOGGLE; ++id)
        ASSERT_EQ((*dialog->Child(vCTRLID(id)))(), GetDlgItem(window, id)) << id;
    vRADIOBTN* one = dynamic_cast<vRADIOBTN*>(dialog->Child(vCTRLID(ONE)));
    vRADIOBTN* two = dynamic_cast<vRADIOBTN*>(dialog->Child(vCTRLID(TWO)));
    vRADIOBTN* three = dynamic_cast<vRADIOBTN*>(dialog->Child(vCTRLID(THREE)));
    vCHECKBOX* box = dynamic_cast<vCHECKBOX*>(dialog->Child(vCTRLID(BOX)));
    ASSERT_TRUE(one && two && three && box);
    EXPECT_EQ(dynamic_cast<vTOGGLEBTN*>(dialog->Child(vCTRLID(TOGGLE)))->Selected(), 1) << "the data block's byte";
    EXPECT_STREQ(box->Text()(), "Check");
    EXPECT_EQ(one->SetGroup(*one, *two), 1);
    auto click = [&](unsigned short id, int x) { return [=] { Click(GetDlgItem(window, id), x); }; };
    const struct {
        const char* what;
        std::function<void()> act;
        std::vector<int> after;  // one, two, three selected; the box checked, in the third state
    } rows[] = {
        {"click two", click(TWO, 10), {0, 1, 0, 0, 0}},
        {"click one", click(ONE, 40), {1, 0, 0, 0, 0}},
        {"click three, in no group", click(THREE, 10), {1, 0, 0, 0, 0}},
        {"crossed ends give no group", [&] { EXPECT_EQ(three->SetGroup(*three, *one), 0), Click(GetDlgItem(window, THREE), 40); },
         {1, 0, 0, 0, 0}},
        {"click the box", click(BOX, 10), {1, 0, 0, 1, 0}},
        {"click it again", click(BOX, 40), {1, 0, 0, 0, 0}},
        {"the third state", [&] { SendMessageA((*box)(), BM_SETCHECK, 2, 0); }, {1, 0, 0, 0, 1}},
        {"click from the third state", click(BOX, 10), {1, 0, 0, 1, 0}},
        {"Confuse gives neither", [&] { box->Confuse(); }, {1, 0, 0, 0, 0}},
        {"click after Confuse", click(BOX, 40), {1, 0, 0, 1, 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        row.act();
        EXPECT_EQ(std::vector<int>({one->Selected(), two->Selected(), three->Selected(), box->Checked(), box->Confused()}),
                  row.after);
    }
    DestroyWindow(window);
}

// The mark of each state is its cell of the sheet, the radio marks with
// their red left out; disabled shows the disabled mark whatever the state.
// The label stands to the right of the mark, on the face colour.
TEST_F(MarkTest, EachStateShowsItsCellOfTheSheetAndTheLabelBehindIt)
{
    const struct {
        const char* name;
        bool radio;
        int check;  // 5 by Confuse
        bool disable;
        vRECT cell;
    } rows[] = {
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
    zktest::Pixels sheet = Sheet();
    ASSERT_TRUE(sheet.Read());
    const COLORREF face = vDEVICE::GetScreen().Colour(vSCREEN_3DFACE).PackedRGB();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
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
        for (int y = 0; y < MarkSide; ++y)
            for (int x = 0; x < MarkSide; ++x) {
                COLORREF cell = sheet.At(row.cell.Left()() + x, row.cell.Top()() + y);
                wrong += shot.At(MarkAt.x + x, MarkAt.y + y) != (row.radio && cell == zktest::Red ? face : cell);
            }
        EXPECT_EQ(wrong, 0);
        COLORREF ink = row.disable ? GetSysColor(COLOR_GRAYTEXT) : GetSysColor(COLOR_BTNTEXT);
        std::vector<int> inkAt(3, 0);  // mark's column, the gap, the label's place
        for (int y = 0; y < 30; ++y)
            for (int x = MarkAt.x + MarkSide; x < 140; ++x)
                inkAt[x < LabelLeft ? 1 : 2] += shot.At(x, y) == ink;
        EXPECT_EQ(inkAt[1], 0);
        EXPECT_GT(inkAt[2], 0);
        EXPECT_EQ(shot.At(MarkSide + 3, 2), face);
        DestroyWindow(window);
    }
}

// Made, painted in each state and destroyed, a control leaves as many GDI
// objects as it found; the first round warms the caches.
TEST_F(MarkTest, AControlsLifeLeavesNoGdiObject)
{
    const std::function<vBUTTON*(const vRECT&)> makers[] = {
        [&](const vRECT& r) { return new vTOGGLEBTN(*parent, vCTRLID(7), vSTRING("Bold"), r); },
        [&](const vRECT& r) { return new vRADIOBTN(*parent, vCTRLID(7), vSTRING("One"), r); },
        [&](const vRECT& r) { return new vCHECKBOX(*parent, vCTRLID(7), vSTRING("Box"), r); },
    };
    for (int round = 0; round < 2; ++round)
        for (const auto& make : makers) {
            unsigned long before = zktest::LiveGdiObjects();
            HWND window = (*make(vRECT(10, 10, 150, 40)))();
            for (int state : {0, 1, 2}) {
                SendMessageA(window, BM_SETCHECK, state, 0), SendMessageA(window, BM_SETSTATE, state & 1, 0);
                EnableWindow(window, state != 2), SetFocus(window), ShowPainted(window);
            }
            DestroyWindow(window), wintest::Pump();
            if (round) {
                EXPECT_EQ(zktest::LiveGdiObjects(), before);
            }
        }
}

}  // namespace
