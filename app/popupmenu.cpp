#include "app/popupmenu.h"

#include "app/window.h"
#include "graphics/screen.h"

vPOPUPMENU::vPOPUPMENU()
    : vMENU(CreatePopupMenu(), 1)
{
}

// The side is chosen from the client coordinate, not the screen one, and a
// third of the half screen is kept in hand: the programs built on the library
// place their menus by that rule, so it is kept on purpose
// (PopupMenuTest.TheMenuOpensAwayFromTheScreensEdgeAtTheClientPoint pins it).
int vPOPUPMENU::Show(const vWIN& win, const vPOINT& point)
{
    vWIN& owner = const_cast<vWIN&>(win);
    vPOINT screen = owner.ClientToScreen(point);
    vINT half = vDEVICE::GetScreen().Size().Width() / vINT(2);
    UINT flags = half > point.x + half / vINT(3) ? TPM_RIGHTBUTTON : TPM_RIGHTBUTTON | TPM_RIGHTALIGN;
    return TrackPopupMenu(hMenu, flags, screen.x(), screen.y(), 0, win(), nullptr);
}
