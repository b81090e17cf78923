#include "controls/listtest.h"

using namespace listtest;

namespace {

const unsigned short DropId = 41;

class DROP : public vDROPLISTBOX {
public:
    DROP(const vWIN& parent, unsigned short rows, unsigned short form)
        : vDROPLISTBOX(parent, vCTRLID(DropId), rows, form, vSIZE(0, 16), vRECT(10, 10, 160, 34))
    {
    }

    void vSelectionChange(unsigned short index) override
    {
        Note("drop.vSelectionChange(" + std::to_string(index) + ")");
    }

    using vLISTBOX::selection;
    using vLISTBOX::selectionCount;
    HWND Handle() const { return hWnd; }
};

using ComboBox = ListTest;

TEST_F(ComboBox, ADropListIsAnOwnerDrawnDropDownListOfStrings)
{
    DROP* drop = new DROP(*parent, 4, CBF_SORTED);
    DWORD style = GetWindowLongA(drop->Handle(), GWL_STYLE);
    // The scroll bar is asked for too; it belongs to the dropped list.
    const DWORD made = CBS_HASSTRINGS | CBS_OWNERDRAWFIXED | CBS_DROPDOWNLIST | CBS_SORT;
    EXPECT_EQ(style & made, made);
    for (const char* item : {"pear", "apple", "fig"})
        drop->Append(vSTRING("%s", item), nullptr);
    EXPECT_STREQ((*drop)[0](), "apple");
    EXPECT_EQ(drop->Index(vSTRING("fi")), -1);
    EXPECT_EQ(drop->Search(vSTRING("fi")), 1);
    EXPECT_EQ(SendMessageA(drop->Handle(), CB_GETITEMHEIGHT, 0, 0), 16);
}

// The rows lengthen the window from where it ends now. The platform keeps
// a combo box's window at the height of its field and the rest as the
// dropped list's, so a second call starts from the field again.
TEST_F(ComboBox, DropRowsSetTheLengthOfTheDroppedList)
{
    DROP* drop = new DROP(*parent, 0, 0);
    for (int call = 0; call < 2; ++call) {
        drop->NoDropRows(5);
        RECT dropped;
        SendMessageA(drop->Handle(), CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
        EXPECT_EQ(dropped.bottom - dropped.top, 5 * 16 + 1);
    }
    EXPECT_EQ(drop->NoDropRows(), 5);
}

TEST_F(ComboBox, ASnapshotAlwaysHoldsOneEntry)
{
    DROP* drop = new DROP(*parent, 3, 0);
    drop->Append(vSTRING("one"), nullptr);
    drop->Append(vSTRING("two"), drop);
    EXPECT_EQ(drop->GetSel(), 0);
    EXPECT_EQ(drop->selectionCount, 1);
    EXPECT_EQ(drop->selection[0], -1);
    EXPECT_EQ(drop->Select(vSTRING("zzz")), CB_ERR);
    EXPECT_EQ(drop->Select(vSTRING("tw")), 1);
    EXPECT_EQ(drop->GetSel(), 1);
    EXPECT_EQ(drop->GetSelData(0), drop);
    EXPECT_STREQ(drop->SelectedItems(0)(), "two");
    EXPECT_STREQ(drop->SelectedItems(1)(), "");
    EXPECT_EQ(drop->GetData(9), nullptr);
}

// Opened and closed by real clicks; the choice reaches the list's hook with
// the index 0, since the list's number is asked of a combo box, then the
// parent's vCommand.
TEST_F(ComboBox, AClickDropsTheListAndAChoiceClosesIt)
{
    DROP* drop = new DROP(*parent, 4, 0);
    for (const char* item : {"red", "green", "blue"})
        drop->Append(vSTRING("%s", item), nullptr);
    drop->Show();
    Settle();
    POINT field = {60, 8};
    ClientToScreen(drop->Handle(), &field);
    Click(field);
    EXPECT_TRUE(SendMessageA(drop->Handle(), CB_GETDROPPEDSTATE, 0, 0));
    RECT box;
    GetWindowRect(drop->Handle(), &box);
    Log().clear();
    Click(POINT{box.left + 50, box.bottom + 1 + 16 * 2 + 8});
    EXPECT_FALSE(SendMessageA(drop->Handle(), CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_EQ(SendMessageA(drop->Handle(), CB_GETCURSEL, 0, 0), 2);
    EXPECT_EQ(Taken({"parent.WM_COMMAND(41,9)", "drop.", "parent.vCommand("}),
              (Lines{"parent.WM_COMMAND(41,9)", "drop.vSelectionChange(0)", "parent.vCommand(41)"}));
    drop->DropDown();
    EXPECT_TRUE(SendMessageA(drop->Handle(), CB_GETDROPPEDSTATE, 0, 0));
    drop->CloseUp();
    EXPECT_FALSE(SendMessageA(drop->Handle(), CB_GETDROPPEDSTATE, 0, 0));
}

TEST_F(ComboBox, TheEditableFormsMakeTheirWindowButKeepNoItems)
{
    vCOMBOBOX* simple = new vCOMBOBOX(*parent, vCTRLID(42), CBF_SORTED, vSIZE(0, 0), vRECT(10, 40, 160, 120));
    const LONG open = CBS_SIMPLE | CBS_SORT;
    EXPECT_EQ(GetWindowLongA((*simple)(), GWL_STYLE) & open, open);
    simple->Append(vSTRING("ignored"));
    EXPECT_EQ(simple->NoItems(), vINT(0));
    EXPECT_EQ(simple->Search(vSTRING("ignored")), -1);
    vDROPCOMBOBOX* drop = new vDROPCOMBOBOX(*parent, vCTRLID(43), 5, 0, vSIZE(0, 0), vRECT(10, 130, 160, 150));
    EXPECT_EQ(GetWindowLongA((*drop)(), GWL_STYLE) & CBS_DROPDOWNLIST, static_cast<LONG>(CBS_DROPDOWN));
    EXPECT_EQ(drop->vDropDown(), 0);
}

}  // namespace
