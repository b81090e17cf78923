#include "controls/controltest.h"

using namespace controltest;

namespace {

// The disabled face has a hole of 4 by 4 in the key colour, through which a face drawn before it shows.
const int Hole = 4 * 4;

class PROBE : public vBITBUT {
public:
    using vBITBUT::vBITBUT;
    using vBITBUT::flags;
};

using BitButTest = ControlTest;

// Pressed goes before focused; disabled is drawn over whatever was drawn, and alone it leaves the plain face out. The
// key colour never shows.
TEST_F(BitButTest, EachStateShowsItsFaceWithoutTheKeyColour) {
    const std::vector<int> counts[] = {
        // plain, pressed, focused, disabled, in the order of States
        {Core, 0, 0, 0}, {0, Core, 0, 0}, {0, 0, Core, 0},
        {0, 0, 0, Core - Hole}, {0, Core, 0, 0}, {0, Hole, 0, Core - Hole},
    };
    vBITMAP plain(Face(Plain)), selected(Face(Pressed)), focus(Face(Focused)), disabled(Face(Disabled, Side, 4));
    for (int row = 0; row < 6; ++row) {
        SCOPED_TRACE(States[row].name);
        PROBE* button = new PROBE(*parent, vCTRLID(7), plain, vRECT(20, 20, 70, 60));
        EXPECT_EQ(button->Bitmaps(&selected, &focus, &disabled, nullptr), 1);
        zktest::Pixels shot = ShotIn((*button)(), States[row]);
        ASSERT_TRUE(shot.Read());
        shot.Save(std::string("bitbut-") + States[row].name);
        EXPECT_EQ(std::vector<int>({shot.Count(Plain), shot.Count(Pressed), shot.Count(Focused), shot.Count(Disabled)}),
                  counts[row]);
        if (GetSysColor(COLOR_BTNFACE) != Key) {
            EXPECT_EQ(shot.Count(Key), 0);
        }
        DestroyWindow((*button)());
    }
}

// A face needs a margin of 3 all round; the base library holds no bitmap of the number New is given, and the button is
// made all the same, empty and of the smallest size.
TEST_F(BitButTest, ResizedOnlyWhenTheFaceDoesNotFitAndDefaultWhenAsked) {
    wintest::Watched().insert(DM_SETDEFID);
    vBITMAP plain(Face(Plain));
    PROBE* kept = new PROBE(*parent, vCTRLID(7), plain, vRECT(0, 0, 22, 22));
    PROBE* grown = new PROBE(*parent, vCTRLID(8), plain, vRECT(0, 0, 22, 21), 1);
    vCTRLID id(9);
    vRESID missing(32099, vSYSTEM::Pointer());
    vCONTROL* empty = vBITBUT::New(*parent, id, missing);
    const struct { HWND window; long width, height; LONG kind; } rows[] = {{(*kept)(), 22, 22, BS_PUSHBUTTON},
                {(*grown)(), 28, 28, BS_DEFPUSHBUTTON},
                {(*empty)(), 12, 12, BS_PUSHBUTTON}};
    for (const auto& row : rows) {
        RECT client;
        GetClientRect(row.window, &client);
        EXPECT_EQ(std::vector<long>({client.right, client.bottom}), std::vector<long>({row.width, row.height}));
        EXPECT_EQ(GetWindowLongA(row.window, GWL_STYLE) & 0xF, row.kind);
    }
    EXPECT_EQ(kept->flags & WINF_ERASE, 0);
    EXPECT_EQ(Only("default"), Lines({"parent default " + std::to_string(DM_SETDEFID)}));
    EXPECT_STREQ(empty->Text()(), "");
    ShowPainted((*empty)());
}

}  // namespace
