#include <functional>

#include "controls/controltest.h"

using namespace controltest;

namespace {

// Push buttons with a text or a face, and bit buttons.

// A button that notes each state change and each drawing, and that lets the test give it the extra faces an application
// may give.
class PROBE : public vBUTTON {
public:
    using vBUTTON::vBUTTON;

    std::vector<long> Label() const { return {labelLeft, labelTop, labelRight, labelBottom}; }
    void ExtraFaces() {
        pressedBitmap = new vBITMAP(Face(Pressed));
        focusBitmap = new vBITMAP(Face(Focused));
        disabledBitmap = new vBITMAP(Face(Disabled));
    }
    int vDraw(const vRECT& area) override {
        Note("button.vDraw(" + std::to_string(pressed) + ")");
        return vBUTTON::vDraw(area);
    }

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
        if (message == BM_SETSTATE)
            Note("button.BM_SETSTATE(" + std::to_string(wParam) + ")");
        return vBUTTON::MsgHandler(message, wParam, lParam, result);
    }
};

using ButtonTest = ControlTest;

// Where a colour first shows in a shot of a button 50 wide, row by row: the top left corner of a face.
int FirstOf(const zktest::Pixels& shot, COLORREF colour) {
    int at = 0;
    while (at < 50 * 40 && shot.At(at % 50, at / 50) != colour)
        ++at;
    return at;
}

// The text lives in the platform's button, so a button without a window has none; New takes its text from the base
// library's resources.
TEST_F(ButtonTest, ATextButtonIsThePlatformsOwnAndKeepsItsTextThere) {
    for (int isDefault : {0, 1}) {
        PROBE* button = new PROBE(*parent, vCTRLID(7), vSTRING("&Save"), vRECT(10, 10, 90, 40), isDefault);
        HWND window = (*button)();
        char name[32] = "";
        GetClassNameA(window, name, sizeof name);
        EXPECT_STREQ(name, "Button");
        EXPECT_EQ(GetWindowLongA(window, GWL_STYLE) & 0xF, isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
        EXPECT_STREQ(button->FontSpec().Name()(), "MS Sans Serif");
        DestroyWindow(window);
    }
    EXPECT_STREQ(vBUTTON(*parent, vCTRLID(8), vSTRING("Gone"), vRECT(0, 0, 1, 1), 0, CLASSID_TEXT).Text()(), "");
    for (unsigned short resource : {31127, 31128, 31131}) {
        vCTRLID id(resource - 31000);
        vRESID text(resource, vSYSTEM::Pointer());
        vCONTROL* control = vBUTTON::New(*parent, id, text);
        EXPECT_STREQ(control->Text()(), vSTRING(text)()) << resource;
        EXPECT_GT(control->Text().Length(), 0) << resource;
        DestroyWindow((*control)());
    }
}

// The label is measured on the text without "&"; without any "&" the last character is left out as well. Too narrow a
// button starts it at 6.
TEST_F(ButtonTest, LabelIsMeasuredWithoutAmpersandsAndOneShortWithoutThem) {
    const struct { const char* text; const char* measured; int width; } rows[] = {
        {"Cancel", "Cance", 120}, {"&Cancel", "Cancel", 120}, {"Can&cel", "Cancel", 120},
        {"W", "", 120},           {"Cancel", "Cance", 12},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.text) + " in " + std::to_string(row.width));
        PROBE* button = new PROBE(*parent, vCTRLID(7), vSTRING(row.text), vRECT(0, 0, row.width, 30));
        HDC dc = GetDC((*button)());
        SIZE whole, part;
        GetTextExtentPoint32A(dc, row.text, lstrlenA(row.text), &whole);
        GetTextExtentPoint32A(dc, row.measured, lstrlenA(row.measured), &part);
        ReleaseDC((*button)(), dc);
        bool fits = row.width >= part.cx;
        long top = 15 - whole.cy / 2;
        EXPECT_EQ(button->Label(), std::vector<long>({fits ? (row.width - part.cx) / 2 : 6, top,
                                                      fits ? part.cx + 6 : row.width - 6, top + whole.cy}));
        DestroyWindow((*button)());
    }
}

// What the button and its parent hear of each way of pressing it; the platform's own mouse handling presses, releases
// and reports the click, with the button's handle.
TEST_F(ButtonTest, PressingRedrawsOnEachChangeAndOnlyAClickCommands) {
    const struct { const char* what; bool face; std::function<void(PROBE&)> press; Lines calls; } rows[] = {
        {"Push, then a state that is no change", false,
         [](PROBE& b) {
             b.Push();
             SendMessageA(b(), BM_SETSTATE, 0, 0);
         },
         {"button.BM_SETSTATE(1)", "button.vDraw(1)", "button.BM_SETSTATE(0)", "button.vDraw(0)",
          "button.BM_SETSTATE(0)"}},
        {"a real click", false, [](PROBE& b) { Hold(b(), 40, 15, 50, true); },
         {"button.BM_SETSTATE(1)", "button.vDraw(1)", "button.BM_SETSTATE(0)", "button.vDraw(0)",
          "parent.WM_COMMAND(7,0)"}},
        {"a double press of a face, then the capture let go", true,
         [](PROBE& b) {
             SendMessageA(b(), WM_LBUTTONDBLCLK, 0, MAKELPARAM(5, 5));
             ReleaseCapture();
         },
         {"button.BM_SETSTATE(1)", "button.vDraw(1)", "button.vDraw(1)", "button.BM_SETSTATE(0)", "button.vDraw(0)"}},
    };
    vBITMAP face(Face(Plain));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        PROBE* button = row.face ? new PROBE(*parent, vCTRLID(7), face, vRECT(10, 10, 90, 40))
                                 : new PROBE(*parent, vCTRLID(7), vSTRING("Go"), vRECT(10, 10, 90, 40));
        ShowPainted((*button)());
        Log().clear();
        parent->senders.clear();
        row.press(*button);
        PumpFor(50);
        EXPECT_EQ(Taken({"button.", "parent.WM_COMMAND("}), row.calls);
        bool commanded = row.calls.back() == "parent.WM_COMMAND(7,0)";
        EXPECT_EQ(parent->senders, std::vector<LPARAM>(commanded, LPARAM((*button)())));
        DestroyWindow((*button)());
    }
}

// The disabled face of a bit button has a hole of 4 by 4 in the key colour, through which a face drawn before it shows.
const int Hole = 4 * 4;

class BITBUT : public vBITBUT {
public:
    using vBITBUT::vBITBUT, vBITBUT::flags;
};

// Each state of a button with faces, and of a bit button. A button: focus goes before pressed, pressed before
// disabled; the face is drawn whole, its key colour too, and a pressed one one pixel right and two down, as the
// platform's pressed label moves. A bit button: pressed goes before focused; disabled is drawn over whatever was
// drawn, and alone it leaves the plain face out; the key colour never shows.
TEST_F(ButtonTest, EachStateShowsItsFace) {
    // In the order of States: the button's face; the bit button's plain, pressed, focused and disabled pixels.
    const struct { COLORREF shown; std::vector<int> counts; } rows[] = {
        {Plain, {Core, 0, 0, 0}},    {Pressed, {0, Core, 0, 0}},           {Focused, {0, 0, Core, 0}},
        {Disabled, {0, 0, 0, Core - Hole}}, {Focused, {0, Core, 0, 0}}, {Pressed, {0, Hole, 0, Core - Hole}},
    };
    vBITMAP plain(Face(Plain)), selected(Face(Pressed)), focus(Face(Focused)), disabled(Face(Disabled, Side, 4));
    const bool keyShows = GetSysColor(COLOR_BTNFACE) != Key;
    int rest = 0;
    for (int row = 0; row < 6; ++row) {
        const STATE& state = States[row];
        SCOPED_TRACE(state.name);
        PROBE* button = new PROBE(*parent, vCTRLID(7), plain, vRECT(20, 20, 70, 60));
        button->ExtraFaces();
        zktest::Pixels shot = ShotIn((*button)(), state);
        ASSERT_TRUE(shot.Read());
        shot.Save(std::string("button-") + state.name);
        for (COLORREF colour : {Plain, Pressed, Focused, Disabled})
            EXPECT_EQ(shot.Count(colour), colour == rows[row].shown ? Core : 0) << std::hex << colour;
        EXPECT_TRUE(!keyShows || shot.Count(Key) == Side * Side - Core);
        rest = row ? rest : FirstOf(shot, Plain);
        EXPECT_EQ(FirstOf(shot, rows[row].shown) - rest, state.press ? 1 + 2 * 50 : 0) << "one right and two down";
        DestroyWindow((*button)());
        BITBUT* bitbut = new BITBUT(*parent, vCTRLID(7), plain, vRECT(20, 20, 70, 60));
        EXPECT_EQ(bitbut->Bitmaps(&selected, &focus, &disabled, nullptr), 1);
        shot = ShotIn((*bitbut)(), state);
        shot.Save(std::string("bitbut-") + state.name);
        EXPECT_EQ(std::vector<int>({shot.Count(Plain), shot.Count(Pressed), shot.Count(Focused), shot.Count(Disabled)}),
                  rows[row].counts);
        EXPECT_TRUE(!keyShows || shot.Count(Key) == 0);
        DestroyWindow((*bitbut)());
    }
}

}  // namespace
