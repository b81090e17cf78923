#pragma once

#include "controls/buttontest.h"

namespace edittest {

using namespace buttontest;

// Presses and lets go of each character's key, for the window that has the focus.
inline void Type(const std::string& keys)
{
    for (char key : keys) {
        INPUT press[2] = {};
        press[0].type = press[1].type = INPUT_KEYBOARD;
        press[0].ki.wScan = press[1].ki.wScan = static_cast<unsigned char>(key);
        press[0].ki.dwFlags = KEYEVENTF_UNICODE, press[1].ki.dwFlags = KEYEVENTF_UNICODE | KEYEVENTF_KEYUP;
        SendInput(2, press, sizeof(INPUT)), PumpFor(40);
    }
}

// A line that notes when its view is drawn, and a nudge whose value shows before its text.
struct LINE : vEDITLINE {
    using vEDITLINE::vEDITLINE, vEDITLINE::keyPending;
    int vDraw(const vRECT& area) override { return Note("line.vDraw"), vEDITLINE::vDraw(area); }
};
struct NUDGE : vNUDGE {
    using vNUDGE::vNUDGE, vNUDGE::value;
    std::string Shown() { return std::to_string(value) + GetLine()(); }
};

}  // namespace edittest
