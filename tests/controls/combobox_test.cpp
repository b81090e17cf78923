#include "controls/controltest.h"

using namespace controltest;

namespace {

// A drop list that notes the selection hook the library calls.
class DROP : public vDROPLISTBOX {
public:
    DROP(const vWIN& parent, unsigned short rows, unsigned short form)
        : vDROPLISTBOX(parent, vCTRLID(41), rows, form, vSIZE(0, 16), vRECT(10, 10, 160, 34)) {}

    void vSelectionChange(unsigned short at) override { Note("drop.vSelectionChange(" + std::to_string(at) + ")"); }
    bool Dropped() { return SendMessageA(hWnd, CB_GETDROPPEDSTATE, 0, 0); }
    using vLISTBOX::selection, vLISTBOX::selectionCount;
    HWND Handle() const { return hWnd; }
};

using ComboBox = ControlTest;

// A drop list is an owner-drawn drop-down list of strings (the scroll bar asked for belongs to the dropped list). Its
// rows lengthen the window from where it ends now; the platform keeps a combo box's window at the height of its field,
// so a second call starts from the field again. Its snapshot always holds one entry, the current item or -1.
TEST_F(ComboBox, ADropListIsAnOwnerDrawnDropDownListWithOneSelectionAndTheEditableFormsKeepNoItems) {
    DROP* drop = new DROP(*parent, 4, CBF_SORTED);
    const DWORD made = CBS_HASSTRINGS | CBS_OWNERDRAWFIXED | CBS_DROPDOWNLIST | CBS_SORT;
    EXPECT_EQ(GetWindowLongA(drop->Handle(), GWL_STYLE) & made, made);
    EXPECT_EQ(SendMessageA(drop->Handle(), CB_GETITEMHEIGHT, 0, 0), 16);
    for (const char* item : {"pear", "apple", "fig"})
        drop->Append(vSTRING("%s", item), nullptr);
    EXPECT_STREQ((*drop)[0](), "apple");
    EXPECT_EQ(drop->Index(vSTRING("fi")), -1);
    EXPECT_EQ(drop->Search(vSTRING("fi")), 1);
    EXPECT_EQ(drop->GetSel(), 0);
    EXPECT_EQ(drop->selectionCount, 1);
    EXPECT_EQ(drop->selection[0], -1);
    EXPECT_EQ(drop->Select(vSTRING("zzz")), CB_ERR);
    EXPECT_EQ(drop->Select(vSTRING("fi")), 1);
    EXPECT_EQ(drop->GetSel(), 1);
    EXPECT_STREQ(drop->SelectedItems(0)(), "fig");
    EXPECT_STREQ(drop->SelectedItems(1)(), "");
    for (int call = 0; call < 2; ++call) {
        drop->NoDropRows(5);
        RECT dropped;
        SendMessageA(drop->Handle(), CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
        EXPECT_EQ(dropped.bottom - dropped.top, 5 * 16 + 1) << call;
    }
    // The editable forms make their window but keep no items.
    vCOMBOBOX* simple = new vCOMBOBOX(*parent, vCTRLID(42), CBF_SORTED, vSIZE(0, 0), vRECT(10, 40, 160, 120));
    const LONG open = CBS_SIMPLE | CBS_SORT;
    EXPECT_EQ(GetWindowLongA((*simple)(), GWL_STYLE) & open, open);
    simple->Append(vSTRING("ignored"));
    EXPECT_EQ(simple->NoItems(), vINT(0));
    EXPECT_EQ(simple->Search(vSTRING("ignored")), -1);
    vDROPCOMBOBOX* editable = new vDROPCOMBOBOX(*parent, vCTRLID(43), 5, 0, vSIZE(0, 0), vRECT(10, 130, 160, 150));
    EXPECT_EQ(GetWindowLongA((*editable)(), GWL_STYLE) & CBS_DROPDOWNLIST, static_cast<LONG>(CBS_DROPDOWN));
    EXPECT_EQ(editable->vDropDown(), 0);
}

// Opened and closed by real clicks; the choice reaches the list's hook with the index 0, since the list's number is
// asked of a combo box, then the parent's vCommand.
TEST_F(ComboBox, AClickDropsTheListAndAChoiceClosesIt) {
    DROP* drop = new DROP(*parent, 4, 0);
    for (const char* item : {"red", "green", "blue"})
        drop->Append(vSTRING("%s", item), nullptr);
    drop->Show();
    PumpFor(100);
    POINT field = {60, 8};
    ClientToScreen(drop->Handle(), &field);
    Click(field);
    EXPECT_TRUE(drop->Dropped());
    RECT box;
    GetWindowRect(drop->Handle(), &box);
    Log().clear();
    Click(POINT{box.left + 50, box.bottom + 1 + 16 * 2 + 8});
    EXPECT_FALSE(drop->Dropped());
    EXPECT_EQ(SendMessageA(drop->Handle(), CB_GETCURSEL, 0, 0), 2);
    EXPECT_EQ(Taken({"parent.WM_COMMAND(41,9)", "drop.", "parent.vCommand("}),
              (Lines{"parent.WM_COMMAND(41,9)", "drop.vSelectionChange(0)", "parent.vCommand(41)"}));
}

}  // namespace
