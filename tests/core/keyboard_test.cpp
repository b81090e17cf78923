#include <cstring>

#include "base/system.h"
#include "support/systemaccess.h"
#include "support/zktest.h"

namespace {

// Puts the platform's idea of the modifier keys in the state a key message
// would have been sent in.
void HoldKeys(bool shift, bool control)
{
    BYTE state[256];
    GetKeyboardState(state);
    state[VK_SHIFT] = shift ? 0x80 : 0;
    state[VK_LSHIFT] = state[VK_SHIFT];
    state[VK_CONTROL] = control ? 0x80 : 0;
    state[VK_LCONTROL] = state[VK_CONTROL];
    SetKeyboardState(state);
}

class KeyboardTest : public zktest::LeakFreeTest {
protected:
    void TearDown() override
    {
        HoldKeys(false, false);
        vSYSTEMACCESS::KeyReset();
        LeakFreeTest::TearDown();
    }
    const vKEYBOARD& Keyboard() { return vSYSTEM::GetKeyboard(); }
};

TEST_F(KeyboardTest, KeyDownGivesTheKeyAndItsCharacter)
{
    struct Row {
        unsigned short key;
        bool shift;
        bool control;
        int character;  // 0: the key stands for none
    };
    const Row rows[] = {
        {'A', false, false, 'a'},      {'A', true, false, 'A'},  {'7', false, false, '7'},
        {VK_RETURN, false, false, 13}, {VK_TAB, false, true, 0}, {VK_F1, false, false, 0},
        {VK_LEFT, true, false, 0},
    };
    for (const Row& row : rows) {
        HoldKeys(row.shift, row.control);
        vCHAR* character = vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, row.key, 1);
        EXPECT_EQ(Keyboard().KeyCode(), row.key);
        EXPECT_EQ(!!Keyboard().Shift(), row.shift) << row.key;
        EXPECT_EQ(!!Keyboard().Ctr(), row.control) << row.key;
        if (row.character) {
            ASSERT_NE(character, nullptr) << row.key;
            EXPECT_EQ(static_cast<unsigned char>((*character)()), row.character) << row.key;
        } else if (!row.control) {
            EXPECT_EQ(character, nullptr) << row.key;
        }
    }
}

TEST_F(KeyboardTest, ModifierKeysCountAsHeldWhenTheyAreTheKey)
{
    HoldKeys(false, false);
    vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, VK_SHIFT, 1);
    EXPECT_TRUE(Keyboard().Shift());
    vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, VK_CONTROL, 1);
    EXPECT_TRUE(Keyboard().Ctr());
}

TEST_F(KeyboardTest, CharacterMessagesCarryTheCharacterAndKeepTheKey)
{
    HoldKeys(false, false);
    vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, 'Q', 1);
    vCHAR* character = vSYSTEMACCESS::KeyEvent(WM_CHAR, 0xE9, 1);
    ASSERT_NE(character, nullptr);
    EXPECT_EQ(static_cast<unsigned char>((*character)()), 0xE9);
    EXPECT_EQ(Keyboard().KeyCode(), 'Q');
}

TEST_F(KeyboardTest, ResetClearsTheStateAndCopiesAreValues)
{
    HoldKeys(true, true);
    vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, 'Z', 1);
    vKEYBOARD copy = Keyboard();
    vSYSTEMACCESS::KeyReset();
    EXPECT_EQ(Keyboard().KeyCode(), 0);
    EXPECT_FALSE(Keyboard().Shift());
    EXPECT_FALSE(Keyboard().Ctr());
    EXPECT_EQ(copy.KeyCode(), 'Z');
    EXPECT_TRUE(copy.Shift());
    EXPECT_TRUE(copy.Ctr());
}

// The key code is the byte right after the first word of the record.
TEST_F(KeyboardTest, KeyCodeSitsAfterTheFirstWord)
{
    HoldKeys(false, false);
    vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, VK_ESCAPE, 1);
    unsigned char record[sizeof(vKEYBOARD)];
    std::memcpy(record, &Keyboard(), sizeof record);
    ASSERT_GE(sizeof(vKEYBOARD), 14u);
    EXPECT_EQ(record[4], VK_ESCAPE);
}

}  // namespace
