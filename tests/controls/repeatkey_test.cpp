#include "controls/buttontest.h"

using namespace buttontest;

namespace {

// A repeat key that notes each timer tick it gets.
class PROBE : public vREPEATKEY {
public:
    using vREPEATKEY::vREPEATKEY;

    int vTimer(const vRESID& id) override
    {
        Note("key.vTimer");
        return vREPEATKEY::vTimer(id);
    }
};

// A shown key, made as a bit button, and the command it sends its parent.
class RepeatKeyTest : public ControlTest {
protected:
    void SetUp() override
    {
        ControlTest::SetUp();
        key = new PROBE(*parent, vCTRLID(7), face, vRECT(20, 20, 70, 60));
        ShowPainted((*key)());
        Log().clear();
    }

    std::string Command(LPARAM window) const { return "parent.WM_COMMAND(7,0," + std::to_string(window) + ")"; }

    vBITMAP face{Face(Plain)};
    PROBE* key = nullptr;
};

// The release arms the timer and the next message kills it. When no other
// message comes first, that next message is the tick itself: it kills the
// timer and still sends one command, with the low word of the handle.
TEST_F(RepeatKeyTest, PushArmsThenKillsItsTimer)
{
    key->Push();
    EXPECT_TRUE(KillTimer((*key)(), 1));
    const struct {
        const char* what;
        int messageAfter;
        size_t commands;
    } rows[] = {{"a message after the push", 1, 0}, {"nothing after the push", 0, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Log().clear();
        key->Push();
        if (row.messageAfter)
            PostMessageA((*key)(), WM_NULL, 0, 0);
        PumpFor(500);
        EXPECT_FALSE(KillTimer((*key)(), 1));
        EXPECT_EQ(Only("WM_COMMAND"), Lines(row.commands, Command(LOWORD((*key)()))));
        EXPECT_EQ(Only("vTimer").size(), row.commands);
    }
}

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
