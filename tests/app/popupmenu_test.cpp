#include "app/appaccess.h"
#include "app/popupmenu.h"
#include "app/recorder.h"
#include "graphics/screen.h"

namespace {

// Where the menu stood on the screen while it was up; the menu loop's
// timer reads it and ends the menu.
RECT shown;

void CALLBACK NoteAndEnd(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    HWND menu = FindWindowA("#32768", nullptr);
    if (menu)
        GetWindowRect(menu, &shown);
    EndMenu();
}

class PopupMenuTest : public wintest::WindowTest {};

// Left of a third of the half screen the menu opens to the right of the
// point, beyond it to the left; the point is the window's client point.
TEST_F(PopupMenuTest, TheMenuOpensAwayFromTheScreensEdgeAtTheClientPoint)
{
    wintest::RECORDER& top = wintest::SharedTop();
    vPOPUPMENU menu;
    menu.Append(vCTRLID(1), vSTRING("First item"));
    long half = vDEVICE::GetScreen().Size().Width()() / 2;
    struct CASE {
        long x;
        bool toTheRight;
    };
    for (CASE given : {CASE{10, true}, CASE{half - half / 3 - 1, true}, CASE{half - half / 3, false}}) {
        SCOPED_TRACE(given.x);
        vPOINT point(vINT(given.x), vINT(20));
        vPOINT screen = top.ClientToScreen(point);
        shown = RECT{};
        SetTimer(nullptr, 0, 50, NoteAndEnd);
        EXPECT_EQ(menu.Show(top, point), 1);
        if (given.toTheRight)
            EXPECT_EQ(shown.left, screen.x());
        else
            EXPECT_EQ(shown.right, screen.x());
        EXPECT_EQ(shown.top, screen.y());
    }
}

}  // namespace
