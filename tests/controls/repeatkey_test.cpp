#include "controls/buttontest.h"

using namespace buttontest;

namespace {

const COLORREF Key = RGB(192, 192, 192);
const COLORREF Plain = RGB(255, 0, 0);

// A repeat key that notes each timer tick it gets.
class PROBE : public vREPEATKEY {
public:
    PROBE(const vWIN& parent, const vCTRLID& id, const vBITMAP& face, const vRECT& rect)
        : vREPEATKEY(parent, id, face, rect)
    {
    }

    using vREPEATKEY::flags;

    int vTimer(const vRESID& id) override
    {
        Note("key.vTimer");
        return vREPEATKEY::vTimer(id);
    }
};

class RepeatKey : public ButtonTest {
protected:
    void SetUp() override
    {
        ButtonTest::SetUp();
        key = new PROBE(*parent, vCTRLID(7), face, vRECT(20, 20, 70, 60));
        ShowPainted((*key)());
        wintest::Log().clear();
    }

    void TearDown() override
    {
        DestroyWindow((*key)());
        ButtonTest::TearDown();
    }

    std::string Command() const
    {
        return "parent.WM_COMMAND(7,0," + std::to_string(LOWORD((*key)())) + ")";
    }

    vBITMAP face{SolidFace(16, Plain, 2, Key)};
    PROBE* key = nullptr;
};

TEST_F(RepeatKey, IsMadeAsABitButton)
{
    zktest::Pixels shot = Shot((*key)());
    ASSERT_TRUE(shot.Read());
    EXPECT_EQ(shot.Count(Plain), 12 * 12);
    EXPECT_EQ(key->flags & WINF_ERASE, 0);
    EXPECT_EQ(GetWindowLongA((*key)(), GWL_STYLE) & 0xF, BS_PUSHBUTTON);
}

// The release arms the timer and the next message kills it. When no other
// message comes first, that next message is the tick itself: it kills the
// timer and still sends one command.
TEST_F(RepeatKey, PushArmsThenKillsItsTimer)
{
    key->Push();
    EXPECT_TRUE(KillTimer((*key)(), 1));
    struct {
        const char* what;
        int messageAfter;
        size_t commands;
    } rows[] = {{"a message after the push", 1, 0}, {"nothing after the push", 0, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        wintest::Log().clear();
        key->Push();
        if (row.messageAfter)
            PostMessageA((*key)(), WM_NULL, 0, 0);
        PumpFor(500);
        EXPECT_FALSE(KillTimer((*key)(), 1));
        EXPECT_EQ(Only("WM_COMMAND"), Lines(row.commands, Command()));
        EXPECT_EQ(Only("vTimer").size(), row.commands);
    }
}

// The first message after the press arms the timer; every tick sends a
// command and arms it again.
TEST_F(RepeatKey, HeldDownItCommandsTheParentAgainAndAgain)
{
    MouseTo((*key)(), 25, 20);
    PumpFor(50);
    wintest::Log().clear();
    Press(MOUSEEVENTF_LEFTDOWN);
    PumpFor(20);
    MouseTo((*key)(), 26, 20);
    PumpFor(700);
    Lines held = Only("WM_COMMAND");
    Press(MOUSEEVENTF_LEFTUP);
    PumpFor(50);
    ASSERT_GE(held.size(), 2u);
    EXPECT_EQ(held, Lines(held.size(), Command()));
    EXPECT_EQ(Only("vTimer").size(), held.size());
    // The platform's own click on release comes last, with the whole handle.
    EXPECT_EQ(Only("WM_COMMAND").back(), "parent.WM_COMMAND(7,0," + std::to_string(reinterpret_cast<LPARAM>((*key)())) + ")");
}

}  // namespace
