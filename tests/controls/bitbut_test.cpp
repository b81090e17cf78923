#include "controls/buttontest.h"

using namespace buttontest;

namespace {

const COLORREF Key = RGB(192, 192, 192);
const COLORREF Plain = RGB(255, 0, 0);
const COLORREF Selected = RGB(0, 255, 0);
const COLORREF Focused = RGB(0, 0, 255);
const COLORREF Disabled = RGB(255, 255, 0);
// Faces are 16 pixels square: a frame of 2 in the key colour round 12 by 12
// in the face's colour. The disabled face has a hole of 4 by 4 in the key
// colour in its middle, through which a face drawn before it shows.
const int Side = 16;
const int Core = 12 * 12;
const int Hole = 4 * 4;

HBITMAP DisabledFace()
{
    HBITMAP bitmap = SolidFace(Side, Disabled, 2, Key);
    HDC dc = CreateCompatibleDC(nullptr);
    HGDIOBJ old = SelectObject(dc, bitmap);
    HBRUSH key = CreateSolidBrush(Key);
    RECT hole = {6, 6, 10, 10};
    FillRect(dc, &hole, key);
    DeleteObject(key);
    SelectObject(dc, old);
    DeleteDC(dc);
    return bitmap;
}

class PROBE : public vBITBUT {
public:
    PROBE(const vWIN& parent, const vCTRLID& id, const vBITMAP& face, const vRECT& rect, int isDefault = 0)
        : vBITBUT(parent, id, face, rect, isDefault)
    {
    }

    using vBITBUT::disabledFace;
    using vBITBUT::face;
    using vBITBUT::flags;
    using vBITBUT::focusFace;
    using vBITBUT::selectedFace;
};

class BitBut : public ButtonTest {};

// Pressed goes before focused; disabled is drawn over whatever was drawn,
// and alone it leaves the plain face out.
TEST_F(BitBut, EachStateShowsItsFaceWithoutTheKeyColour)
{
    struct {
        const char* state;
        int focus;
        int press;
        int disable;
        std::vector<int> counts;  // plain, selected, focused, disabled
    } rows[] = {
        {"normal", 0, 0, 0, {Core, 0, 0, 0}},
        {"pressed", 0, 1, 0, {0, Core, 0, 0}},
        {"focused", 1, 0, 0, {0, 0, Core, 0}},
        {"disabled", 0, 0, 1, {0, 0, 0, Core - Hole}},
        {"focused-pressed", 1, 1, 0, {0, Core, 0, 0}},
        {"pressed-disabled", 0, 1, 1, {0, Hole, 0, Core - Hole}},
    };
    vBITMAP plain(SolidFace(Side, Plain, 2, Key));
    vBITMAP selected(SolidFace(Side, Selected, 2, Key));
    vBITMAP focus(SolidFace(Side, Focused, 2, Key));
    vBITMAP disabled(DisabledFace());
    for (const auto& row : rows) {
        SCOPED_TRACE(row.state);
        PROBE* button = new PROBE(*parent, vCTRLID(7), plain, vRECT(20, 20, 70, 60));
        EXPECT_EQ(button->Bitmaps(&selected, &focus, &disabled, nullptr), 1);
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
        shot.Save(std::string("bitbut-") + row.state);
        EXPECT_EQ(std::vector<int>({shot.Count(Plain), shot.Count(Selected), shot.Count(Focused),
                                    shot.Count(Disabled)}),
                  row.counts);
        if (GetSysColor(COLOR_BTNFACE) != Key) {
            EXPECT_EQ(shot.Count(Key), 0);
        }
        DestroyWindow((*button)());
    }
}

// A null argument leaves its state alone; an invalid bitmap drops it.
TEST_F(BitBut, BitmapsReplacesOnlyWhatItIsGiven)
{
    vBITMAP plain(SolidFace(Side, Plain, 2, Key));
    vBITMAP other(SolidFace(8, Selected, 0, Key));
    vBITMAP invalid(static_cast<HBITMAP>(nullptr));
    PROBE* button = new PROBE(*parent, vCTRLID(7), plain, vRECT(20, 20, 70, 60));
    button->Bitmaps(&other, &other, &other, nullptr);
    vBITMAP* before[] = {button->selectedFace, button->focusFace, button->disabledFace, button->face};

    EXPECT_EQ(button->Bitmaps(nullptr, nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(std::vector<vBITMAP*>({button->selectedFace, button->focusFace, button->disabledFace, button->face}),
              std::vector<vBITMAP*>(std::begin(before), std::end(before)));

    EXPECT_EQ(button->Bitmaps(&invalid, nullptr, &plain, &invalid), 1);
    EXPECT_EQ(button->selectedFace, nullptr);
    EXPECT_EQ(button->focusFace, before[1]);
    ASSERT_NE(button->disabledFace, nullptr);
    EXPECT_NE(button->disabledFace, &plain);
    EXPECT_EQ(button->disabledFace->Size(), plain.Size());
    EXPECT_EQ(button->face, nullptr);
    DestroyWindow((*button)());
}

TEST_F(BitBut, ResizedOnlyWhenTheFaceDoesNotFitAndDefaultWhenAsked)
{
    wintest::Watched().insert(DM_SETDEFID);
    vBITMAP plain(SolidFace(Side, Plain, 2, Key));
    PROBE* kept = new PROBE(*parent, vCTRLID(7), plain, vRECT(0, 0, 22, 22));
    PROBE* grown = new PROBE(*parent, vCTRLID(8), plain, vRECT(0, 0, 22, 21), 1);
    RECT client;
    GetClientRect((*kept)(), &client);
    EXPECT_EQ(std::vector<long>({client.right, client.bottom}), std::vector<long>({22, 22}));
    GetClientRect((*grown)(), &client);
    EXPECT_EQ(std::vector<long>({client.right, client.bottom}), std::vector<long>({28, 28}));
    EXPECT_EQ(kept->flags & WINF_ERASE, 0);
    EXPECT_EQ(GetWindowLongA((*kept)(), GWL_STYLE) & 0xF, BS_PUSHBUTTON);
    EXPECT_EQ(GetWindowLongA((*grown)(), GWL_STYLE) & 0xF, BS_DEFPUSHBUTTON);
    EXPECT_EQ(Only("default"), Lines({"parent default " + std::to_string(DM_SETDEFID)}));
    DestroyWindow((*kept)());
    DestroyWindow((*grown)());
}

// The base library holds no bitmap of that number: the button is made all
// the same, with an empty face and the smallest size.
TEST_F(BitBut, NewWithAMissingBitmapMakesAnEmptyButton)
{
    vCTRLID id(7);
    vRESID resource(32000, vSYSTEM::Pointer());
    vCONTROL* control = vBITBUT::New(*parent, id, resource);
    ASSERT_NE(control, nullptr);
    RECT client;
    GetClientRect((*control)(), &client);
    EXPECT_EQ(std::vector<long>({client.right, client.bottom}), std::vector<long>({12, 12}));
    EXPECT_STREQ(control->Text()(), "");
    ShowPainted((*control)());
    DestroyWindow((*control)());
}

}  // namespace
