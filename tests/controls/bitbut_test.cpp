#include "controls/controltest.h"

using namespace controltest;

namespace {

using BitButTest = ControlTest;

class BITBUT : public vBITBUT {
public:
    using vBITBUT::vBITBUT, vBITBUT::flags;
};

// A face needs a margin of 3 all round; the base library holds no bitmap of the number New is given, and the button is
// made all the same, empty and of the smallest size.
TEST_F(BitButTest, ABitButtonIsResizedOnlyWhenTheFaceDoesNotFitAndDefaultWhenAsked) {
    wintest::Watched().insert(DM_SETDEFID);
    vBITMAP plain(Face(Plain));
    BITBUT* kept = new BITBUT(*parent, vCTRLID(7), plain, vRECT(0, 0, 22, 22));
    BITBUT* grown = new BITBUT(*parent, vCTRLID(8), plain, vRECT(0, 0, 22, 21), 1);
    vCTRLID id(9);
    vRESID missing(32099, vSYSTEM::Pointer());
    vCONTROL* empty = vBITBUT::New(*parent, id, missing);
    const struct { HWND window; long width, height; LONG kind; } rows[] = {
        {(*kept)(), 22, 22, BS_PUSHBUTTON}, {(*grown)(), 28, 28, BS_DEFPUSHBUTTON},
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
