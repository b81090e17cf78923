#include "controls/control.h"

// Created as a bit button, never the default one.
vREPEATKEY::vREPEATKEY(const vWIN& parent, const vCTRLID& id, const vBITMAP& face, const vRECT& rect)
    : vBITBUT(parent, id, face, rect, 0, CLASSID_BITBUT)
{
}

// Every message that arrives while the button is down arms the timer again,
// so a steady stream of messages postpones the next repeat; that is how it
// has always behaved.
int vREPEATKEY::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    if (pressed)
        SetTimer(200);
    else
        KillTimer();
    return vBUTTON::MsgHandler(message, wParam, lParam, result);
}

int vREPEATKEY::vTimer(const vRESID&)
{
    SendMessageA((*Parent())(), WM_COMMAND, id, LOWORD(hWnd));
    return 1;
}
