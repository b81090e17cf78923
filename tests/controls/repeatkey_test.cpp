#include "controls/controltest.h"

using namespace controltest;

namespace {

using RepeatKeyTest = ControlTest;

// A repeat key that notes each timer tick it gets.
class REPEATKEY : public vREPEATKEY {
public:
    using vREPEATKEY::vREPEATKEY;
    int vTimer(const vRESID& id) override {
        Note("key.vTimer");
        return vREPEATKEY::vTimer(id);
    }
};

// Held down, a key made as a bit button commands its parent again and again: the first message after the press arms the
// timer, every tick sends a command with the handle's low word and arms it again. The platform's own click on release
// comes last, with the whole handle.
TEST_F(RepeatKeyTest, ARepeatKeyHeldDownCommandsTheParentAgainAndAgain) {
    vBITMAP face(Face(Plain));
    REPEATKEY* key = new REPEATKEY(*parent, vCTRLID(7), face, vRECT(20, 20, 70, 60));
    HWND window = (*key)();
    ShowPainted(window);
    Hold(window, 25, 20, 700);
    size_t held = parent->senders.size() - 1;
    ASSERT_GE(held, 2u);
    std::vector<LPARAM> sent(held, LOWORD(window));
    sent.push_back(reinterpret_cast<LPARAM>(window));
    EXPECT_EQ(parent->senders, sent);
    EXPECT_EQ(Only("vTimer").size(), held);
    EXPECT_EQ(Only("WM_COMMAND"), Lines(held + 1, "parent.WM_COMMAND(7,0)"));
}

}  // namespace
