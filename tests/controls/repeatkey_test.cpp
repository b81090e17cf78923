#include "controls/buttontest.h"

using namespace buttontest;

namespace {

// A repeat key that notes each timer tick it gets.
class PROBE : public vREPEATKEY {
public:
    using vREPEATKEY::vREPEATKEY;

    int vTimer(const vRESID& id) override { return Note("key.vTimer"), vREPEATKEY::vTimer(id); }
};

// A shown key, made as a bit button, and the command it sends its parent.
class RepeatKeyTest : public ControlTest {
protected:
    void SetUp() override
    {
        ControlTest::SetUp();
        key = new PROBE(*parent, vCTRLID(7), face, vRECT(20, 20, 70, 60));
        ShowPainted((*key)()), Log().clear();
    }

    std::string Command(LPARAM window) const { return "parent.WM_COMMAND(7,0," + std::to_string(window) + ")"; }

    vBITMAP face{Face(Plain)};
    PROBE* key = nullptr;
};

// The first message after the press arms the timer; every tick sends a
// command and arms it again. The platform's own click on release comes
// last, with the whole handle.
TEST_F(RepeatKeyTest, HeldDownItCommandsTheParentAgainAndAgain)
{
    MouseTo((*key)(), 25, 20);
    PumpFor(50);
    Log().clear();
    Mouse(MOUSEEVENTF_LEFTDOWN);
    PumpFor(20);
    MouseTo((*key)(), 26, 20);
    PumpFor(700);
    Lines held = Only("WM_COMMAND");
    Mouse(MOUSEEVENTF_LEFTUP);
    PumpFor(50);
    ASSERT_GE(held.size(), 2u);
    EXPECT_EQ(held, Lines(held.size(), Command(LOWORD((*key)()))));
    EXPECT_EQ(Only("vTimer").size(), held.size());
    EXPECT_EQ(Only("WM_COMMAND").back(), Command(reinterpret_cast<LPARAM>((*key)())));
}

}  // namespace
