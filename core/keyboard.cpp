#include "base/keyboard.h"

#include <windows.h>

vKEYBOARD::vKEYBOARD()
    : message(0)
{
    reset();
}

vKEYCODE vKEYBOARD::KeyCode() const
{
    return keyCode;
}

int vKEYBOARD::Shift() const
{
    return shift;
}

int vKEYBOARD::Ctr() const
{
    return control;
}

namespace {

bool IsDown(int virtualKey)
{
    return GetKeyState(virtualKey) < 0;
}

// The character a key stands for with the modifiers as they were when the
// message was posted, or 0 for a key with none (arrows, function keys).
unsigned char CharacterOf(unsigned short key, unsigned char scanCode)
{
    BYTE state[256];
    if (!GetKeyboardState(state))
        return 0;
    WORD translated = 0;
    if (ToAscii(key, scanCode, state, &translated, 0) != 1)
        return 0;
    return static_cast<unsigned char>(translated & 0xFF);
}

}  // namespace

// Key-down messages carry a virtual key; character messages carry the
// character itself. Either way the modifiers are those of the message.
vCHAR* vKEYBOARD::event(unsigned short msg, unsigned short key, unsigned long flags)
{
    bool isCharacter = msg == WM_CHAR || msg == WM_SYSCHAR;
    message = msg;
    scanCode = static_cast<unsigned char>((flags >> 16) & 0xFF);
    extended = static_cast<unsigned char>((flags >> 24) & 1);
    repeat = static_cast<unsigned char>(flags & 0xFF);
    shift = key == VK_SHIFT || IsDown(VK_SHIFT);
    control = key == VK_CONTROL || IsDown(VK_CONTROL);
    alt = key == VK_MENU || IsDown(VK_MENU) || ((flags >> 29) & 1);
    if (!isCharacter)
        keyCode = static_cast<unsigned char>(key);
    unsigned char code = isCharacter ? static_cast<unsigned char>(key) : CharacterOf(key, scanCode);
    hasCharacter = code != 0;
    character = vCHAR(code);
    return hasCharacter ? &character : nullptr;
}

int vKEYBOARD::KeyboardType()
{
    return GetKeyboardType(0);
}

int vKEYBOARD::NumberOfFKeys()
{
    return GetKeyboardType(2);
}

void vKEYBOARD::reset()
{
    keyCode = shift = control = alt = scanCode = extended = repeat = hasCharacter = spare = 0;
    character = vCHAR();
}
