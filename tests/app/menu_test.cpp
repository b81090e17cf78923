#include "app/appaccess.h"
#include "app/popupmenu.h"
#include "graphics/bitmap.h"
#include "graphics/screen.h"

using wintest::Lines;
using apptest::Items;

namespace {

HMENU H(const vMENU& menu) { return vAPPACCESS::Handle(menu); }

class MenuTest : public zktest::LeakFreeTest {};

// Items are added, found, changed and removed by position, identifier or
// label; positions outside the count give nothing, bitmap items are refused.
TEST_F(MenuTest, ItemsAreFoundAndChangedInPlace)
{
    vMENU menu, sub, other;
    menu.Append(vCTRLID(1), vSTRING("One"));
    menu.Insert(0, vCTRLID(2), vSTRING("Two"));
    menu.Insert(1);
    menu.Insert(0, sub, vSTRING("Sub"));
    EXPECT_EQ(Items(H(menu)), (Lines{"popup:Sub", "2 Two", "-", "1 One"}));
    EXPECT_EQ(vAPPACCESS::Parent(sub), H(menu));
    EXPECT_EQ(menu.Label(1), vSTRING("Two"));
    EXPECT_EQ(menu.ItemID(3), vCTRLID(1));
    EXPECT_TRUE(menu.Label(-1).Null() && menu.Label(4).Null() && menu.Label(vCTRLID(3)).Null());
    EXPECT_TRUE(menu.ItemID(-1) == vCTRLID(0) && menu.ItemID(4) == vCTRLID(0));
    EXPECT_EQ(menu.Position(vCTRLID(1)), 3);
    EXPECT_EQ(menu.Position(vSTRING("Two")), 1);
    EXPECT_EQ(static_cast<unsigned short>(menu.Position(vCTRLID(12))), 65535);
    EXPECT_EQ(menu.Position(vSTRING("Twelve")), -1);
    EXPECT_EQ(menu.ItemID(vSTRING("Two")), vCTRLID(2));
    EXPECT_EQ(menu.Label(vCTRLID(1)), vSTRING("One"));
    menu.Remove(0);
    menu.Remove(1);
    EXPECT_TRUE(IsMenu(H(sub)));
    menu.Modify(0, vCTRLID(4), vSTRING("Four"));
    menu.Modify(1, other, vSTRING("Other"));
    vBITMAP picture(vRESID(32000, vSYSTEM::Pointer()));
    EXPECT_EQ(menu.Insert(0, picture) + menu.Append(vCTRLID(5), picture) + menu.Modify(static_cast<unsigned short>(0), picture), 0);
    EXPECT_EQ(Items(H(menu)), (Lines{"4 Four", "popup:Other"}));
    EXPECT_EQ(vAPPACCESS::Parent(other), H(menu));
    menu.Remove(1);

    // The states an item goes through, and what each change reports.
    const struct { int (vMENU::*change)(short); int answer; unsigned state; } steps[] = {
        {&vMENU::CheckItem, 1, MF_CHECKED},       {&vMENU::CheckItem, 0, MF_CHECKED},
        {&vMENU::UnCheckItem, 1, MF_UNCHECKED},   {&vMENU::UnCheckItem, 0, MF_UNCHECKED},
        {&vMENU::DisableItem, MF_ENABLED, MF_GRAYED}, {&vMENU::DeactivateItem, MF_GRAYED, MF_DISABLED}};
    for (const auto& step : steps) {
        EXPECT_EQ((menu.*step.change)(0), step.answer);
        EXPECT_EQ(menu.MenuState(0), step.state);
    }
    menu.EnableItem(0);
    EXPECT_EQ(menu.MenuState(0), static_cast<unsigned>(MF_ENABLED));
}

// Fixed items at the end are neither counted nor passed; more fixed items
// than items wrap the count beyond any position, and a lookup still ends.
TEST_F(MenuTest, FixedItemsAtTheEndAreNotTheProgramsItems)
{
    vMENU bar, window, help, file;
    bar.Append(window, vSTRING("Window"));
    bar.Append(help, vSTRING("Help"));
    vAPPACCESS::Fixed(bar, 2);
    EXPECT_EQ(bar.NoItem(), 0);
    EXPECT_TRUE(bar.Label(0).Null());
    bar.Append(file, vSTRING("File"));
    bar.Append(vCTRLID(5), vSTRING("Go"));
    bar.Append();
    EXPECT_EQ(Items(H(bar)), (Lines{"popup:File", "5 Go", "-", "popup:Window", "popup:Help"}));
    EXPECT_EQ(bar.NoItem(), 3);
    EXPECT_EQ(vAPPACCESS::Parent(window), nullptr);

    vMENU one;
    one.Append(vCTRLID(10), vSTRING("Ten"));
    vAPPACCESS::Fixed(one, 3);
    ASSERT_EQ(one.NoItem(), 65534);
    EXPECT_EQ(one.Position(vCTRLID(10)), 0);
    EXPECT_EQ(one.Position(vCTRLID(12)), -1);
    EXPECT_EQ(one.Position(vSTRING("Twelve")), -1);
}

// Each object destroys only its own handle: a copy destroys nothing, and a
// popup outlives the menu that showed it.
TEST_F(MenuTest, AMenuDestroysOnlyItsOwnHandle)
{
    HMENU handle = nullptr;
    vMENU popup;
    {
        vMENU menu;
        handle = H(menu);
        menu.Append(popup, vSTRING("Popup"));
        vMENU view(menu);
        EXPECT_EQ(H(view), handle);
    }
    EXPECT_FALSE(IsMenu(handle));
    EXPECT_TRUE(IsMenu(H(popup)));
}

// Nothing is asked of the help engine before the file is named; naming it
// makes a hidden owner that goes with the menu, which is a menu of its own.
TEST_F(MenuTest, TheHelpMenuOwnsItsHiddenWindow)
{
    HWND owner = nullptr;
    {
        wintest::TraceLevel level(3);
        zktest::TraceCapture capture;
        vHELP help;
        EXPECT_EQ(help.Contents() + help.Context(12) + help.HelpOnHelp() + help.SearchDialog(), 0);
        vSTRING topic("Printing"), file("C:\\NOWHERE\\ZKSHELL.HLP");
        EXPECT_EQ(help.FindTopic(topic), 0);
        vAPPACCESS::SetHelp(help, GetModuleHandleA(nullptr), file);
        EXPECT_EQ(capture.Lines(), Lines{"Trace: vHELP::vHELP(...)"});
        owner = vAPPACCESS::HelpWindow(help);
        char name[32] = {};
        GetClassNameA(owner, name, sizeof name);
        EXPECT_STRCASEEQ(name, "LISTBOX");
        EXPECT_EQ(GetWindowLongA(owner, GWL_STYLE) & (WS_POPUP | WS_VISIBLE), static_cast<LONG>(WS_POPUP));
        help.Append(vCTRLID(9), vSTRING("&Contents"));
        EXPECT_EQ(help.ItemID(0), vCTRLID(9));
    }
    EXPECT_FALSE(IsWindow(owner));
}

using MenuBarTest = apptest::FrameTest;

// A document program's bar ends in its Window and Help menus; the bar shows
// on the frame when updated or set, and the application's own bar, once
// asked for, replaces whatever bar was set.
TEST_F(MenuBarTest, TheBarEndsInTheFixedMenusAndFollowsTheFrame)
{
    vAPP* documents = new vAPP(vSTRING("ZkMenuFrame"), vSTRING("Menus"), 1);
    HWND documentFrame = vAPPACCESS::Frame(*documents);
    vMENU* bar = documents->Menu();
    EXPECT_EQ(documents->Menu(), bar);
    EXPECT_EQ(bar->NoItem(), 0);
    vMENU file;
    bar->Append(file, vSTRING("&File"));
    EXPECT_EQ(Items(H(*bar)), (Lines{"popup:&File", "popup:&Window", "popup:&Help"}));
    EXPECT_EQ(GetSubMenu(H(*bar), 1), H(vAPPACCESS::WindowMenu(*documents)));
    EXPECT_EQ(GetSubMenu(H(*bar), 2), H(documents->Help()));
    EXPECT_EQ(GetMenu(documentFrame), nullptr);
    documents->UpdateMenuBar();
    EXPECT_EQ(GetMenu(documentFrame), H(*bar));
    bar->Remove(0);
    documents->ClearMenuBar();
    EXPECT_EQ(documents->Menu()->NoItem() + vAPPACCESS::Fixed(*documents->Menu()), 0);
    EXPECT_TRUE(IsMenu(H(documents->Help())) && IsMenu(H(vAPPACCESS::WindowMenu(*documents))));
    apptest::End(documentFrame);

    vMENU own;
    app->SetMenuBar(own);
    app->Language(1031);
    vMENU* made = app->Menu();
    EXPECT_NE(made, &own);
    EXPECT_EQ(Items(H(*made)), Lines{"popup:&Hilfe"});
    EXPECT_EQ(GetMenu(frame), nullptr);
    app->SetMenuBar(own);
    EXPECT_EQ(app->Menu(), &own);
    EXPECT_EQ(GetMenu(frame), H(own));
    app->HideMenuBar();
    EXPECT_EQ(GetMenu(frame), nullptr);
    app->ShowMenuBar();
    EXPECT_EQ(GetMenu(frame), H(own));
    app->ClearMenuBar();
    EXPECT_EQ(GetMenu(frame), nullptr);
    // The selection hands the handler a view that does not own the menu.
    HMENU popup = CreatePopupMenu();
    SendMessageA(frame, WM_MENUSELECT, MAKEWPARAM(3, 0), reinterpret_cast<LPARAM>(popup));
    EXPECT_TRUE(DestroyMenu(popup));
}

// Where the menu stood on the screen while it was up; the menu loop's timer
// reads it and ends the menu.
RECT shown;

void CALLBACK NoteAndEnd(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    if (HWND menu = FindWindowA("#32768", nullptr))
        GetWindowRect(menu, &shown);
    EndMenu();
}

using PopupMenuTest = wintest::WindowTest;

// Left of a third of the half screen the menu opens to the right of the
// point, beyond it to the left; the point is the window's client point.
TEST_F(PopupMenuTest, TheMenuOpensAwayFromTheScreensEdgeAtTheClientPoint)
{
    vPOPUPMENU menu;
    menu.Append(vCTRLID(1), vSTRING("First item"));
    long half = vDEVICE::GetScreen().Size().Width()() / 2;
    for (long x : {10L, half - half / 3 - 1, half - half / 3}) {
        SCOPED_TRACE(x);
        vPOINT screen = Top().ClientToScreen(vPOINT(x, 20));
        SetTimer(nullptr, 0, 50, NoteAndEnd);
        EXPECT_EQ(menu.Show(Top(), vPOINT(x, 20)), 1);
        EXPECT_EQ(x < half - half / 3 ? shown.left : shown.right, screen.x());
        EXPECT_EQ(shown.top, screen.y());
    }
}

}  // namespace
