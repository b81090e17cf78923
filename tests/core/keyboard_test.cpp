#include <cstring>

#include "base/system.h"
#include "support/systemaccess.h"
#include "support/zktest.h"

namespace {

// Puts the platform's idea of the modifier keys in the state a key message would have been sent in.
void HoldKeys(bool shift, bool control) {
    BYTE state[256];
    GetKeyboardState(state);
    state[VK_SHIFT] = state[VK_LSHIFT] = shift ? 0x80 : 0;
    state[VK_CONTROL] = state[VK_LCONTROL] = control ? 0x80 : 0;
    SetKeyboardState(state);
}

class KeyboardTest : public zktest::LeakFreeTest {
protected:
    void TearDown() override { HoldKeys(false, false), vSYSTEMACCESS::KeyReset(), LeakFreeTest::TearDown(); }
    const vKEYBOARD& Keyboard() { return vSYSTEM::GetKeyboard(); }
};

// One row per message, in order: what is sent with which modifiers held, and the state it leaves. A
// character message keeps the key of the key press before it; a modifier that is itself the key counts as held.
TEST_F(KeyboardTest, EachMessageLeavesTheKeyItsModifiersAndItsCharacter) {
    const int none = -1;
    struct Row { UINT message; unsigned short key; bool shift, control; unsigned short keyCode; int character; };
    const Row rows[] = {
        {WM_KEYDOWN, 'A', false, false, 'A', 'a'},           {WM_KEYDOWN, 'A', true, false, 'A', 'A'},
        {WM_KEYDOWN, '7', false, false, '7', '7'},           {WM_KEYDOWN, VK_RETURN, false, false, VK_RETURN, 13},
        {WM_KEYDOWN, VK_F1, false, false, VK_F1, none},      {WM_KEYDOWN, VK_LEFT, true, false, VK_LEFT, none},
        {WM_KEYDOWN, 'Q', false, false, 'Q', 'q'},           {WM_CHAR, 0xE9, false, false, 'Q', 0xE9},
        {WM_SYSCHAR, 'x', false, true, 'Q', 'x'},            {WM_KEYDOWN, VK_SHIFT, false, false, VK_SHIFT, none},
        {WM_KEYDOWN, VK_CONTROL, false, false, VK_CONTROL, none},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(row.message) + " " + std::to_string(row.key));
        HoldKeys(row.shift, row.control);
        vCHAR* character = vSYSTEMACCESS::KeyEvent(row.message, row.key, 1);
        EXPECT_EQ(Keyboard().KeyCode(), row.keyCode);
        EXPECT_EQ(!!Keyboard().Shift(), row.shift || row.key == VK_SHIFT);
        EXPECT_EQ(!!Keyboard().Ctr(), row.control || row.key == VK_CONTROL);
        EXPECT_EQ(character ? static_cast<unsigned char>((*character)()) : none, row.character);
    }
}

// A copy is a value; the key code is the byte right after the first word of the record.
TEST_F(KeyboardTest, ResetClearsTheStateWhichCopiesKeep) {
    HoldKeys(true, true);
    vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, VK_ESCAPE, 1);
    vKEYBOARD copy = Keyboard();
    vSYSTEMACCESS::KeyReset();
    EXPECT_TRUE(Keyboard().KeyCode() == 0 && !Keyboard().Shift() && !Keyboard().Ctr());
    EXPECT_TRUE(copy.KeyCode() == VK_ESCAPE && copy.Shift() && copy.Ctr());
    unsigned char record[sizeof(vKEYBOARD)];
    std::memcpy(record, &copy, sizeof record);
    EXPECT_TRUE(sizeof(vKEYBOARD) >= 14u && record[4] == VK_ESCAPE);
}

}  // namespace
