#include <string>
#include <vector>

#include "app/appaccess.h"
#include "graphics/bitmap.h"
#include "support/zktest.h"

namespace {

typedef std::vector<std::string> LIST;

class MenuTest : public zktest::LeakFreeTest {};

TEST_F(MenuTest, PositionsOutsideTheCountGiveNothing)
{
    vMENU menu;
    menu.Append(vCTRLID(10), vSTRING("Ten"));
    menu.Append(vCTRLID(11), vSTRING("Eleven"));
    EXPECT_EQ(menu.NoItem(), 2);
    EXPECT_EQ(menu.Label(0), vSTRING("Ten"));
    EXPECT_EQ(menu.ItemID(1), vCTRLID(11));
    EXPECT_TRUE(menu.Label(-1).Null());
    EXPECT_TRUE(menu.Label(2).Null());
    EXPECT_EQ(menu.ItemID(-1), vCTRLID(0));
    EXPECT_EQ(menu.ItemID(2), vCTRLID(0));
    EXPECT_EQ(menu.Position(vCTRLID(11)), 1);
    EXPECT_EQ(menu.Position(vSTRING("Ten")), 0);
    EXPECT_EQ(static_cast<unsigned short>(menu.Position(vCTRLID(12))), 65535);
    EXPECT_EQ(menu.Position(vSTRING("Twelve")), -1);
}

// More fixed items than items: the count wraps to beyond what a position
// holds, and a lookup must still end with nothing found.
TEST_F(MenuTest, ALookupEndsWhenTheCountExceedsAnyPosition)
{
    vMENU menu;
    menu.Append(vCTRLID(10), vSTRING("Ten"));
    vAPPACCESS::Fixed(menu, 3);
    ASSERT_EQ(menu.NoItem(), 65534);
    ASSERT_EQ(menu.Position(vCTRLID(0)), -1);
    EXPECT_EQ(menu.Position(vCTRLID(10)), 0);
    EXPECT_EQ(menu.Position(vCTRLID(12)), -1);
    EXPECT_EQ(menu.Position(vSTRING("Twelve")), -1);
}

TEST_F(MenuTest, FixedItemsAtTheEndAreNotCountedAndNotPassed)
{
    vMENU bar;
    vMENU window;
    vMENU help;
    bar.Append(window, vSTRING("Window"));
    bar.Append(help, vSTRING("Help"));
    vAPPACCESS::Fixed(bar, 2);
    EXPECT_EQ(bar.NoItem(), 0);
    EXPECT_TRUE(bar.Label(0).Null());

    vMENU file;
    bar.Append(file, vSTRING("File"));
    bar.Append(vCTRLID(5), vSTRING("Go"));
    bar.Append();
    EXPECT_EQ(apptest::Items(vAPPACCESS::Handle(bar)),
              (LIST{"popup:File", "5 Go", "-", "popup:Window", "popup:Help"}));
    EXPECT_EQ(bar.NoItem(), 3);
    EXPECT_EQ(vAPPACCESS::Parent(file), vAPPACCESS::Handle(bar));
    EXPECT_EQ(vAPPACCESS::Parent(window), nullptr);
}

TEST_F(MenuTest, InsertingAndRemovingByPosition)
{
    vMENU menu;
    vMENU sub;
    menu.Append(vCTRLID(1), vSTRING("One"));
    menu.Insert(0, vCTRLID(2), vSTRING("Two"));
    menu.Insert(1);
    menu.Insert(0, sub, vSTRING("Sub"));
    EXPECT_EQ(apptest::Items(vAPPACCESS::Handle(menu)), (LIST{"popup:Sub", "2 Two", "-", "1 One"}));
    EXPECT_EQ(vAPPACCESS::Parent(sub), vAPPACCESS::Handle(menu));
    menu.Remove(0);
    menu.Remove(1);
    EXPECT_EQ(apptest::Items(vAPPACCESS::Handle(menu)), (LIST{"2 Two", "1 One"}));
    EXPECT_TRUE(IsMenu(vAPPACCESS::Handle(sub)));
}

// Each object destroys only its own handle: a copy destroys nothing, and a
// popup outlives the menu that showed it.
TEST_F(MenuTest, AMenuDestroysOnlyItsOwnHandle)
{
    HMENU handle = nullptr;
    vMENU popup;
    {
        vMENU menu;
        handle = vAPPACCESS::Handle(menu);
        menu.Append(popup, vSTRING("Popup"));
        {
            vMENU view(menu);
            EXPECT_EQ(vAPPACCESS::Handle(view), handle);
            EXPECT_EQ(view.NoItem(), 1);
        }
        EXPECT_TRUE(IsMenu(handle));
    }
    EXPECT_FALSE(IsMenu(handle));
    EXPECT_TRUE(IsMenu(vAPPACCESS::Handle(popup)));
}

class MenuBarTest : public zktest::LeakFreeTest {
protected:
    vAPP* Make(int mdi)
    {
        app = new vAPP(vSTRING("ZkMenuFrame"), vSTRING("Menus"), mdi);
        frame = vAPPACCESS::Frame(*app);
        return app;
    }
    void TearDown() override
    {
        apptest::End(frame);
        zktest::LeakFreeTest::TearDown();
    }

    vAPP* app = nullptr;
    HWND frame = nullptr;
};

TEST_F(MenuBarTest, ADocumentProgramsBarEndsInItsWindowAndHelpMenus)
{
    Make(1);
    vMENU* bar = app->Menu();
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(app->Menu(), bar);
    EXPECT_EQ(vAPPACCESS::Fixed(*bar), 2);
    EXPECT_EQ(bar->NoItem(), 0);
    vMENU file;
    bar->Append(file, vSTRING("&File"));
    EXPECT_EQ(apptest::Items(vAPPACCESS::Handle(*bar)), (LIST{"popup:&File", "popup:&Window", "popup:&Help"}));
    HMENU window = GetSubMenu(vAPPACCESS::Handle(*bar), 1);
    EXPECT_EQ(window, vAPPACCESS::Handle(vAPPACCESS::WindowMenu(*app)));
    EXPECT_EQ(GetSubMenu(vAPPACCESS::Handle(*bar), 2), vAPPACCESS::Handle(app->Help()));
    EXPECT_EQ(GetMenu(frame), nullptr);
    app->UpdateMenuBar();
    EXPECT_EQ(GetMenu(frame), vAPPACCESS::Handle(*bar));
    bar->Remove(0);
}

TEST_F(MenuBarTest, AProgramWithoutDocumentsHasHelpAloneInItsLanguage)
{
    Make(0);
    app->Language(1031);
    vMENU* bar = app->Menu();
    EXPECT_EQ(vAPPACCESS::Fixed(*bar), 1);
    EXPECT_EQ(apptest::Items(vAPPACCESS::Handle(*bar)), LIST{"popup:&Hilfe"});
}

TEST_F(MenuBarTest, ShowingHidingAndClearingTheBar)
{
    Make(0);
    vMENU own;
    own.Append(vCTRLID(3), vSTRING("Three"));
    vMENU* made = app->Menu();
    app->SetMenuBar(own);
    EXPECT_NE(made, &own);
    EXPECT_EQ(app->Menu(), &own);
    EXPECT_EQ(GetMenu(frame), vAPPACCESS::Handle(own));
    app->HideMenuBar();
    EXPECT_EQ(GetMenu(frame), nullptr);
    app->ShowMenuBar();
    EXPECT_EQ(GetMenu(frame), vAPPACCESS::Handle(own));

    app->ClearMenuBar();
    EXPECT_EQ(GetMenu(frame), nullptr);
    EXPECT_EQ(app->Menu(), &own);
}

// The application's own bar, once asked for, replaces whatever bar was set.
TEST_F(MenuBarTest, TheFirstRequestForTheBarMakesTheApplicationsOwn)
{
    Make(0);
    vMENU own;
    app->SetMenuBar(own);
    vMENU* made = app->Menu();
    EXPECT_NE(made, &own);
    EXPECT_EQ(vAPPACCESS::Fixed(*made), 1);
    EXPECT_EQ(GetMenu(frame), nullptr);
}

TEST_F(MenuBarTest, ClearingTheBarThatTheApplicationMadeForgetsIt)
{
    Make(1);
    app->Menu();
    app->UpdateMenuBar();
    app->ClearMenuBar();
    vMENU* cleared = app->Menu();
    EXPECT_NE(cleared, nullptr);
    EXPECT_EQ(cleared->NoItem(), 0);
    EXPECT_EQ(vAPPACCESS::Fixed(*cleared), 0);
    EXPECT_TRUE(IsMenu(vAPPACCESS::Handle(app->Help())));
    EXPECT_TRUE(IsMenu(vAPPACCESS::Handle(vAPPACCESS::WindowMenu(*app))));
}

TEST_F(MenuBarTest, MenuSelectionHandsTheHandlerAViewThatDoesNotOwnTheMenu)
{
    Make(0);
    HMENU popup = CreatePopupMenu();
    SendMessageA(frame, WM_MENUSELECT, MAKEWPARAM(3, 0), reinterpret_cast<LPARAM>(popup));
    EXPECT_TRUE(IsMenu(popup));
    DestroyMenu(popup);
}

}  // namespace

namespace {

// The states an item goes through, and what each change reports.
TEST_F(MenuTest, ItemStatesReportWhatChanged)
{
    vMENU menu;
    menu.Append(vCTRLID(7), vSTRING("Seven"));
    EXPECT_EQ(menu.CheckItem(0), 1);
    EXPECT_EQ(menu.CheckItem(0), 0);
    EXPECT_EQ(menu.MenuState(0), static_cast<unsigned>(MF_CHECKED));
    EXPECT_EQ(menu.UnCheckItem(0), 1);
    EXPECT_EQ(menu.UnCheckItem(0), 0);
    EXPECT_EQ(menu.DisableItem(0), static_cast<int>(MF_ENABLED));
    EXPECT_EQ(menu.MenuState(0), static_cast<unsigned>(MF_GRAYED));
    EXPECT_EQ(menu.DeactivateItem(0), static_cast<int>(MF_GRAYED));
    EXPECT_EQ(menu.MenuState(0), static_cast<unsigned>(MF_DISABLED));
    menu.EnableItem(0);
    EXPECT_EQ(menu.MenuState(0), static_cast<unsigned>(MF_ENABLED));
}

// Labels and identifiers lead to one another; replacing an item keeps its
// place; bitmap items are refused and change nothing.
TEST_F(MenuTest, ModifyingAndLookingUpItems)
{
    vMENU menu;
    vMENU sub;
    menu.Append(vCTRLID(1), vSTRING("One"));
    menu.Append(vCTRLID(2), vSTRING("Two"));
    EXPECT_EQ(menu.ItemID(vSTRING("Two")), vCTRLID(2));
    EXPECT_EQ(menu.Label(vCTRLID(1)), vSTRING("One"));
    EXPECT_TRUE(menu.Label(vCTRLID(3)).Null());

    menu.Modify(0, vCTRLID(4), vSTRING("Four"));
    menu.Modify(1, sub, vSTRING("Sub"));
    EXPECT_EQ(apptest::Items(vAPPACCESS::Handle(menu)), (LIST{"4 Four", "popup:Sub"}));
    EXPECT_EQ(vAPPACCESS::Parent(sub), vAPPACCESS::Handle(menu));

    vBITMAP picture(vRESID(32000, vSYSTEM::Pointer()));
    EXPECT_EQ(menu.Insert(0, picture), 0);
    EXPECT_EQ(menu.Append(vCTRLID(5), picture), 0);
    EXPECT_EQ(menu.Modify(static_cast<unsigned short>(0), picture), 0);
    EXPECT_EQ(apptest::Items(vAPPACCESS::Handle(menu)), (LIST{"4 Four", "popup:Sub"}));
    menu.Remove(1);
}

}  // namespace
