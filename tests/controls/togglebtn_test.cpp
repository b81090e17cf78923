#include "controls/buttontest.h"

using namespace buttontest;

namespace {

// The grey of the lines that show a toggle held in.
const COLORREF Recess = RGB(127, 127, 127);

class PROBE : public vTOGGLEBTN {
public:
    using vTOGGLEBTN::vTOGGLEBTN;
    // recessed, tracking, pressed, toggled, and whether it holds the capture.
    std::vector<long> State() const { return {recessed, tracking, pressed, toggled, ::GetCapture() == hWnd}; }
};

class ToggleTest : public ControlTest {};

// One toggle through the mouse's inputs; each row starts where the row above
// ended. Presses alternate between two points, so that only the last press
// pairs with the one before it into a double click. Once the button is let
// go it shows the lasting state, pressed in or out. The platform's button
// never sees a click, so the parent hears no command.
TEST_F(ToggleTest, TheMouseFlipsTheLastingStateOnlyByAReleaseStrictlyInside)
{
    enum INPUTKIND { MOVE, DOWN, UP };
    const POINT left = {30, 15}, right = {70, 15}, edge = {0, 15}, away = {150, 15};
    const struct {
        const char* what;
        INPUTKIND input;
        POINT at;
        std::vector<long> state;
    } rows[] = {
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
    PROBE* toggle = new PROBE(*parent, vCTRLID(7), vSTRING("Bold"), vRECT(20, 20, 120, 50));
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
        if (row.state[0])
            shot.Save("togglebtn-recessed");
    }
    EXPECT_EQ(Only("WM_COMMAND"), Lines{});
    EXPECT_STREQ(toggle->Text()(), "Bold");
}

// A dialog hands the toggle one byte of its data, or nothing; the view then
// shows the state held in.
TEST_F(ToggleTest, TheViewShowsTheByteOfTheDataBlock)
{
    const struct {
        char* value;
        long shown;
    } rows[] = {{const_cast<char*>("\1"), 1}, {nullptr, 1}, {const_cast<char*>("\0"), 0}};
    PROBE* toggle = new PROBE(*parent, vCTRLID(7), vSTRING("Bold"), vRECT(20, 20, 120, 50));
    for (const auto& row : rows) {
        toggle->SetupView(row.value, 1);
        toggle->UpdateView(vCTRLID(0));
        EXPECT_EQ(toggle->Selected(), row.shown) << (row.value ? "a byte" : "no data");
    }
    SendMessageA((*toggle)(), BM_SETSTATE, 1, 0);
    ShowPainted((*toggle)());
    Shot((*toggle)()).Save("togglebtn-toggled");
}

}  // namespace
