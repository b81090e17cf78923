#include "controls/controltest.h"

using namespace controltest;

namespace {

using ToggleTest = ControlTest;

// The grey of the lines that show a toggle held in.
const COLORREF Recess = RGB(127, 127, 127);

class TOGGLE : public vTOGGLEBTN {
public:
    using vTOGGLEBTN::vTOGGLEBTN;
    // recessed, tracking, pressed, toggled, and whether it holds the capture.
    std::vector<long> State() const { return {recessed, tracking, pressed, toggled, ::GetCapture() == hWnd}; }
};

// One toggle through the mouse's inputs; each row starts where the row above ended. Presses alternate between two
// points, so that only the last press pairs with the one before it into a double click. Once the button is let go it
// shows the lasting state, pressed in or out. The platform's button never sees a click, so the parent hears no command;
// a dialog without a data block changes nothing; and, after a first one, the toggle's life leaves no GDI object.
TEST_F(ToggleTest, TheMouseFlipsAToggleOnlyByAReleaseStrictlyInside) {
    enum INPUTKIND { MOVE, DOWN, UP };
    const POINT left = {30, 15}, right = {70, 15}, edge = {0, 15}, away = {150, 15};
    const struct { const char* what; INPUTKIND input; POINT at; std::vector<long> state; } rows[] = {
        {"press inside", DOWN, left, {1, 1, 1, 0, 1}},
        {"move out", MOVE, away, {0, 1, 0, 0, 1}},
        {"move back in", MOVE, right, {1, 1, 1, 0, 1}},
        {"release inside", UP, right, {0, 0, 1, 1, 0}},
        {"press when toggled", DOWN, right, {1, 1, 1, 1, 1}},
        {"move onto the edge", MOVE, edge, {0, 1, 1, 1, 1}},
        {"release on the edge", UP, edge, {0, 0, 1, 1, 0}},
        {"press again", DOWN, left, {1, 1, 1, 1, 1}},
        {"release inside", UP, left, {0, 0, 0, 0, 0}},
        {"second press of a double click", DOWN, left, {0, 1, 1, 0, 1}},
        {"its release", UP, left, {0, 0, 1, 1, 0}},
    };
    HWND warm = (*new TOGGLE(*parent, vCTRLID(8), vSTRING("Warm"), vRECT(0, 0, 9, 9)))();
    ShowPainted(warm);
    DestroyWindow(warm);
    wintest::Pump();
    unsigned long objects = zktest::LiveGdiObjects();
    TOGGLE* toggle = new TOGGLE(*parent, vCTRLID(7), vSTRING("Bold"), vRECT(20, 20, 120, 50));
    toggle->SetupView(nullptr, 0);
    ShowPainted((*toggle)());
    Log().clear();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        MouseTo((*toggle)(), row.at.x, row.at.y);
        if (row.input != MOVE)
            Mouse(row.input == DOWN ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP);
        PumpFor(60);
        EXPECT_EQ(toggle->State(), row.state);
        zktest::Pixels shot = Shot((*toggle)());
        ASSERT_TRUE(shot.Read());
        EXPECT_EQ(shot.At(2, 15) == Recess, row.state[0] == 1) << "the recess lines";
        shot.Save(std::string("togglebtn-") + (row.state[0] ? "recessed" : row.state[3] ? "toggled" : "out"));
    }
    EXPECT_EQ(Only("WM_COMMAND"), Lines{});
    EXPECT_STREQ(toggle->Text()(), "Bold");
    DestroyWindow((*toggle)());
    wintest::Pump();
    EXPECT_EQ(zktest::LiveGdiObjects(), objects);
}

}  // namespace
