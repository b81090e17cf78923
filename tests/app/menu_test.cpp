#include "app/appaccess.h"
#include "app/popupmenu.h"
#include "graphics/bitmap.h"
#include "graphics/screen.h"

using wintest::Lines;
using apptest::Items;

namespace {

HMENU H(const vMENU& menu) { return vAPPACCESS::Handle(menu); }

using MenuTest = zktest::LeakFreeTest;

// Items are added, found, changed and removed by position, identifier or label; positions outside the count give
// nothing, bitmap items are refused; each change of state reports what it changed.
TEST_F(MenuTest, ItemsAreFoundAndChangedInPlace) {
    vMENU menu, sub;
    menu.Append(vCTRLID(1), vSTRING("One")), menu.Insert(0, vCTRLID(2), vSTRING("Two")), menu.Insert(1);
    menu.Insert(0, sub, vSTRING("Sub"));
    EXPECT_EQ(Items(H(menu)), (Lines{"popup:Sub", "2 Two", "-", "1 One"}));
    EXPECT_EQ(vAPPACCESS::Parent(sub), H(menu));
    EXPECT_EQ(menu.Label(1), vSTRING("Two"));
    EXPECT_TRUE(menu.Label(-1).Null() && menu.Label(4).Null() && menu.Label(vCTRLID(3)).Null());
    EXPECT_TRUE(menu.ItemID(3) == vCTRLID(1) && menu.ItemID(-1) == vCTRLID(0) && menu.ItemID(4) == vCTRLID(0));
    EXPECT_TRUE(menu.Position(vCTRLID(1)) == 3 && menu.Position(vSTRING("Two")) == 1);
    EXPECT_EQ(static_cast<unsigned short>(menu.Position(vCTRLID(12))), 65535);
    EXPECT_EQ(menu.Position(vSTRING("Twelve")), -1);
    EXPECT_TRUE(menu.ItemID(vSTRING("Two")) == vCTRLID(2) && menu.Label(vCTRLID(1)) == vSTRING("One"));
    menu.Remove(0), menu.Remove(1), menu.Modify(0, vCTRLID(4), vSTRING("Four"));
    vBITMAP picture(vRESID(32099, vSYSTEM::Pointer()));
    EXPECT_EQ(menu.Insert(0, picture) + menu.Append(vCTRLID(5), picture) +
                  menu.Modify(static_cast<unsigned short>(0), picture), 0);
    EXPECT_EQ(Items(H(menu)), (Lines{"4 Four", "1 One"}));
    EXPECT_TRUE(IsMenu(H(sub)));

    const struct { int (vMENU::*change)(short); int answer; unsigned state; } steps[] = {
        {&vMENU::CheckItem, 1, MF_CHECKED},           {&vMENU::CheckItem, 0, MF_CHECKED},
        {&vMENU::UnCheckItem, 1, MF_UNCHECKED},       {&vMENU::UnCheckItem, 0, MF_UNCHECKED},
        {&vMENU::DisableItem, MF_ENABLED, MF_GRAYED}, {&vMENU::DeactivateItem, MF_GRAYED, MF_DISABLED},
        {&vMENU::EnableItem, MF_DISABLED, MF_ENABLED}};
    for (const auto& step : steps)
        EXPECT_TRUE((menu.*step.change)(0) == step.answer && menu.MenuState(0) == step.state) << step.state;
}

// The fixed Window and Help menus at the end of a bar are neither counted nor passed; more fixed items than items wrap
// the count beyond any position, and a lookup still ends.
TEST_F(MenuTest, FixedItemsAtTheEndAreNotTheProgramsItems) {
    vMENU bar, window, help, file;
    bar.Append(window, vSTRING("Window")), bar.Append(help, vSTRING("Help")), vAPPACCESS::Fixed(bar, 2);
    EXPECT_TRUE(bar.NoItem() == 0 && bar.Label(0).Null());
    bar.Append(file, vSTRING("File")), bar.Append(vCTRLID(5), vSTRING("Go"));
    EXPECT_EQ(Items(H(bar)), (Lines{"popup:File", "5 Go", "popup:Window", "popup:Help"}));
    EXPECT_EQ(bar.NoItem(), 2);
    vAPPACCESS::Fixed(bar, 5);
    ASSERT_EQ(bar.NoItem(), 65535);
    EXPECT_EQ(bar.Position(vCTRLID(5)), 1);
    EXPECT_TRUE(bar.Position(vCTRLID(12)) == -1 && bar.Position(vSTRING("Twelve")) == -1);
    vMENU view(bar);
    EXPECT_EQ(H(view), H(bar));
}

// A document program's bar ends in its Window and Help menus and shows on the
// frame when updated; a set bar shows, hides and clears.
using MenuBarTest = apptest::FrameTest;

TEST_F(MenuBarTest, TheBarEndsInTheFixedMenusAndFollowsTheFrame) {
    vAPP* documents = new vAPP(vSTRING("ZkMenuFrame"), vSTRING("Menus"), 1);
    vMENU* bar = documents->Menu();
    EXPECT_EQ(Items(H(*bar)), (Lines{"popup:&Window", "popup:&Help"}));
    EXPECT_EQ(GetSubMenu(H(*bar), 0), H(vAPPACCESS::WindowMenu(*documents)));
    EXPECT_EQ(GetSubMenu(H(*bar), 1), H(documents->Help()));
    documents->UpdateMenuBar();
    EXPECT_EQ(GetMenu(vAPPACCESS::Frame(*documents)), H(*bar));
    apptest::End(vAPPACCESS::Frame(*documents));

    vMENU own;
    app->Language(1031);
    EXPECT_EQ(Items(H(*app->Menu())), Lines{"popup:&Hilfe"});
    app->SetMenuBar(own);
    EXPECT_TRUE(app->Menu() == &own && GetMenu(frame) == H(own));
    EXPECT_EQ((app->HideMenuBar(), GetMenu(frame)), nullptr);
    EXPECT_EQ((app->ShowMenuBar(), GetMenu(frame)), H(own));
    EXPECT_EQ((app->ClearMenuBar(), GetMenu(frame)), nullptr);
}

// Where the menu stood on the screen while it was up; the menu loop's timer reads it and ends the menu.
RECT shown;

void CALLBACK NoteAndEnd(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    if (HWND menu = FindWindowA("#32768", nullptr)) GetWindowRect(menu, &shown);
    EndMenu();
}

// Left of a third of the half screen the menu opens to the right of the
// point, beyond it to the left; the point is the window's client point.
TEST_F(MenuBarTest, APopupMenuOpensAwayFromTheScreensEdge) {
    vPOPUPMENU menu;
    menu.Append(vCTRLID(1), vSTRING("First item"));
    long half = vDEVICE::GetScreen().Size().Width()() / 2;
    for (long x : {10L, half - half / 3 - 1, half - half / 3}) {
        vPOINT screen = Top().ClientToScreen(vPOINT(x, 20));
        SetTimer(nullptr, 0, 50, NoteAndEnd);
        EXPECT_EQ(menu.Show(Top(), vPOINT(x, 20)), 1);
        EXPECT_TRUE((x < half - half / 3 ? shown.left : shown.right) == screen.x() && shown.top == screen.y()) << x;
    }
}

}  // namespace
