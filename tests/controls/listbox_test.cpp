#include <algorithm>

#include "controls/controltest.h"

using namespace controltest;

namespace {

// A list that notes the selection hooks the library calls.
class LIST : public vLISTBOX {
public:
    LIST(const vWIN& parent, unsigned short form, const vSIZE& size = vSIZE(0, 18))
        : vLISTBOX(parent, vCTRLID(40), form, size, vRECT(10, 10, 160, 130)) {}

    void vSelectionChange(unsigned short i) override { Note("list.vSelectionChange(" + std::to_string(i) + ")"); }
    int vSelectionDoubleClick(unsigned short i, const vPOINT&) override {
        return Noted("list.vSelectionDoubleClick(" + std::to_string(i) + ")", 1);
    }
    using vLISTBOX::fakeParent, vLISTBOX::MakeFileList, vLISTBOX::selectionCount;
    HWND Handle() const { return hWnd; }
};

const std::vector<std::string> Reporters = {"list.", "parent.WM_COMMAND(", "parent.vCommand("};

// A real click in the middle of an item.
void ClickItem(LIST& list, int index, const std::vector<WORD>& held = {}) {
    RECT item = {};
    SendMessageA(list.Handle(), LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&item));
    POINT at = {(item.left + item.right) / 2, (item.top + item.bottom) / 2};
    ClientToScreen(list.Handle(), &at);
    Click(at, held);
}

Lines Selected(LIST& list) {
    Lines items;
    for (long i = 0; i < list.NoItems()(); ++i)
        if (SendMessageA(list.Handle(), LB_GETSEL, i, 0) > 0)
            items.push_back(list[static_cast<unsigned short>(i)]());
    return items;
}

// What a change of selection reports when the platform's notification reaches the parent first.
Lines Changed(int index) {
    return {"parent.WM_COMMAND(40,1)", "list.vSelectionChange(" + std::to_string(index) + ")", "parent.vCommand(40)"};
}

class ListBox : public ControlTest {
protected:
    LIST* Filled(unsigned short form, std::vector<const char*> items = {"alpha", "beta", "gamma", "delta"}) {
        LIST* list = new LIST(*parent, form);
        for (const char* item : items)
            list->Append(vSTRING("%s", item), nullptr);
        list->Show();
        SetFocus(list->Handle());
        PumpFor(100);
        Log().clear();
        return list;
    }
};

// The scroll bars are asked for too; the platform keeps their bits only while they show.
TEST_F(ListBox, TheFlagWordChoosesThePlatformStyle) {
    const DWORD every = WS_BORDER | LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT;
    const struct { unsigned short form; DWORD with, without; } rows[] = {
        {0, LBS_OWNERDRAWFIXED, LBS_SORT | LBS_MULTICOLUMN | LBS_MULTIPLESEL | LBS_EXTENDEDSEL | WS_TABSTOP},
        {LBF_MULTICOLUMN, LBS_OWNERDRAWFIXED | LBS_MULTICOLUMN, 0},
        {LBF_SORTED, LBS_SORT, 0},
        {LBF_MULTIPLESEL, LBS_MULTIPLESEL, LBS_EXTENDEDSEL},
        {LBF_EXTENDEDSEL, LBS_EXTENDEDSEL | LBS_WANTKEYBOARDINPUT, LBS_MULTIPLESEL},
        {LBF_MULTIPLESEL | LBF_EXTENDEDSEL, LBS_MULTIPLESEL, LBS_EXTENDEDSEL},
    };
    for (const auto& row : rows) {
        LIST* list = new LIST(*parent, row.form);
        DWORD style = GetWindowLongA(list->Handle(), GWL_STYLE);
        EXPECT_EQ(style & (every | row.with), every | row.with) << row.form;
        EXPECT_EQ(style & row.without, 0u) << row.form;
        DestroyWindow(list->Handle());
    }
    LIST* list = new LIST(*parent, 0, vSIZE(0, 0));
    TEXTMETRICA metrics;
    HDC dc = GetDC(list->Handle());
    GetTextMetricsA(dc, &metrics);
    ReleaseDC(list->Handle(), dc);
    EXPECT_EQ(list->ItemSize().Width(), vINT(150)) << "a zero size is measured once created";
    EXPECT_EQ(list->ItemSize().Height(), vINT(metrics.tmHeight));
    list->ItemSize(vSIZE(0, 5));
    EXPECT_EQ(list->ItemSize().Width(), vINT(150)) << "and never answered as zero";
    EXPECT_EQ(SendMessageA(list->Handle(), LB_GETITEMHEIGHT, 0, 0), 5);
}

// Items are found whole or by prefix, sorted as the platform sorts; bad indexes answer nothing; an item of 255
// characters is the longest.
TEST_F(ListBox, ItemsAreFoundWholeOrByPrefixAndBadIndexesAnswerNothing) {
    LIST* list = Filled(0, {"apple", "banana", "apricot"});
    vINT marker(7);
    EXPECT_EQ(list->Index(vSTRING("ap")), -1);
    EXPECT_EQ(list->Search(vSTRING("ap")), 0);
    EXPECT_EQ(list->Index(vSTRING("banana")), 1);
    EXPECT_EQ(list->Select(vSTRING("apr"), 1), 1);
    EXPECT_EQ(Selected(*list), Lines{"apricot"});
    EXPECT_EQ(list->Select(vSTRING("zebra"), 1), 0);
    EXPECT_EQ(list->Select(marker, 1), 0) << "selecting by object never finds one";
    EXPECT_EQ(list->GetData(7), nullptr);
    EXPECT_STREQ((*list)[7](), "");
    std::string longest(255, 'x');
    list->Insert(vSTRING("%s", longest.c_str()), nullptr, 0);
    list->Insert(vSTRING("%s", (longest + "y").c_str()), &marker, 1);
    EXPECT_EQ(list->NoItems(), vINT(4)) << "255 characters are taken, 256 refused";
    EXPECT_EQ(list->GetData(1), &marker) << "but the data still land on the index asked for";
    list->Remove(marker, 1);
    list->Remove(vSTRING("ap"), 0);
    EXPECT_EQ(list->NoItems(), vINT(2));
    list->RemoveAll();
    list->Remove(0);
    list->Remove(vSTRING("x"), 0);
    EXPECT_EQ(list->NoItems(), vINT(0));
    LIST* sorted = Filled(LBF_SORTED, {"pear", "Apple", "fig"});
    EXPECT_EQ(std::string((*sorted)[0]()) + (*sorted)[2](), "Applepear");
    auto compare = [&](const char* one, const char* two) { return sorted->vCompare(vSTRING(one), vSTRING(two)); };
    EXPECT_EQ(std::vector<short>({compare("a", "b"), compare("b", "a"), compare("a", "a")}),
              std::vector<short>({-1, 1, 0})) << "compare answers by sign";
}

// Each state drawn: item 0 plain, item 1 selected, item 2 selected with the focus frame on it; then its selection
// snapshot taken. An empty list is not painted at all.
TEST_F(ListBox, ItemsAreDrawnPlainSelectedAndFocused) {
    LIST* list = Filled(LBF_MULTIPLESEL);
    HWND window = list->Handle();
    list->Select(1, 1);
    list->Select(2, 1);
    SendMessageA(window, LB_SETCARETINDEX, 2, 0);
    InvalidateRect(window, nullptr, TRUE);
    UpdateWindow(window);
    PumpFor(100);
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    const char* names[] = {"listbox-normal", "listbox-selected", "listbox-selected-focused"};
    const COLORREF background[] = {GetSysColor(COLOR_WINDOW), highlight, highlight};
    for (int item = 0; item < 3; ++item) {
        zktest::Pixels shot = Shot(window, 18 * item, 18);
        shot.Save(names[item]);
        EXPECT_EQ(shot.At(100, 9), background[item]) << names[item];
        EXPECT_GT(shot.Count(GetSysColor(COLOR_WINDOWTEXT)), 10) << names[item] << ": the text";
    }
    RECT client;
    GetClientRect(window, &client);
    EXPECT_GT(client.right - Shot(window, 36, 1).Count(highlight), 10) << "the focus frame";
    DRAWITEMSTRUCT none = {};
    none.itemID = 0xFFFF;
    none.itemAction = ODA_DRAWENTIRE;
    EXPECT_EQ(list->ccPaint(&none), 0);
    EXPECT_EQ(list->GetSel(), 1);
    EXPECT_STREQ(list->SelectedItems(1)(), "gamma");
    EXPECT_STREQ(list->SelectedItems(2)(), "");
    list->MultiClearSelection();
    EXPECT_EQ(list->GetSel(), 0);
    EXPECT_EQ(list->selectionCount, 2) << "nothing selected keeps the old snapshot";
    EXPECT_EQ(list->MultiSelectAll(), 1);
    EXPECT_EQ(list->NoItemsSel(), vINT(4));
    list->RemoveAll();
    InvalidateRect(window, nullptr, TRUE);
    SendMessageA(window, WM_PAINT, 0, 0);
    EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE));
}

// A list without the drag form leaves the mouse and keys to the platform, whose notifications reach the list's hook and
// then the parent. Off the item under the caret the platform has the double click, and its notification stops before
// vCommand.
TEST_F(ListBox, ThePlatformSelectsAndTheListHearsFirst) {
    LIST* list = Filled(0);
    ClickItem(*list, 2);
    for (WORD key : {WORD(VK_DOWN), WORD('B')}) {
        KeyTo(key, true);
        KeyTo(key, false);
    }
    Lines reports;
    for (int index : {2, 3, 1})
        for (const std::string& line : Changed(index))
            reports.push_back(line);
    EXPECT_EQ(Taken(Reporters), reports);
    SendMessageA(list->Handle(), WM_LBUTTONDBLCLK, 0, MAKELPARAM(20, 110));
    SendMessageA(list->Handle(), WM_LBUTTONDBLCLK, 0, MAKELPARAM(20, 27));
    EXPECT_EQ(Taken(Reporters), (Lines{"parent.WM_COMMAND(40,2)", "list.vSelectionDoubleClick(1)"}));
}

// In a drag list the press on a selection keeps it for a drag; the release finishes it and clears the drag zone. Ctrl
// takes a selected item out, Shift runs from the far end.
TEST_F(ListBox, ADragListFinishesTheSelectionAtTheRelease) {
    const unsigned short multiple = LBF_DRAG | LBF_MULTIPLESEL;
    const struct { unsigned short form; Lines before; int item; std::vector<WORD> held; Lines after, reports; }
    rows[] = {
        {LBF_DRAG, {}, 1, {}, {"beta"}, Changed(1)},
        // A multiple list answers the platform's own idea of its current item.
        {multiple, {"alpha", "beta", "gamma"}, 1, {}, {"beta"}, Changed(1)},
        {multiple, {"alpha", "beta", "gamma"}, 1, {VK_CONTROL}, {"alpha", "gamma"}, Changed(2)},
        // Without a fake parent the shift-click's report goes nowhere.
        {multiple, {"beta"}, 3, {VK_SHIFT}, {"beta", "gamma", "delta"}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.item);
        LIST* list = Filled(row.form);
        for (const std::string& item : row.before)
            list->Select(vSTRING("%s", item.c_str()), 1);
        Log().clear();
        ClickItem(*list, row.item, row.held);
        EXPECT_EQ(Selected(*list), row.after);
        EXPECT_EQ(Taken(Reporters), row.reports);
        EXPECT_EQ(vWIN::rectDragHotZone, vRECT(0, 0, 0, 0));
        DestroyWindow(list->Handle());
    }
}

// The fake parent stands between the list and its parent, takes dropped files, follows the list's size and passes the
// list's reports on with the same identifier.
TEST_F(ListBox, AFakeParentPassesTheListsReportsOnWithTheSameIdentifier) {
    zktest::TraceCapture trace;
    LIST* list = Filled(LBF_FAKEPARENT);
    ASSERT_NE(list->fakeParent, nullptr);
    HWND fake = GetParent(list->Handle());
    EXPECT_TRUE(fake != (*parent)() && GetParent(fake) == (*parent)());
    EXPECT_TRUE(GetWindowLongA(list->Handle(), GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
    EXPECT_EQ(list->Parent(), parent);
    ClickItem(*list, 1);
    EXPECT_EQ(Taken(Reporters), (Lines{"list.vSelectionChange(1)", "parent.WM_COMMAND(40,1)", "parent.vCommand(40)"}));
    const Lines& traced = trace.Lines();
    EXPECT_NE(std::find(traced.begin(), traced.end(), "Trace: fake parent = message"), traced.end());
    list->Size(vRECT(20, 30, 120, 90));
    RECT placed;
    GetWindowRect(fake, &placed);
    MapWindowPoints(nullptr, (*parent)(), reinterpret_cast<POINT*>(&placed), 2);
    EXPECT_EQ(std::make_pair(placed.left, placed.bottom), std::make_pair(20L, 90L));
}

// Wine shows a name that starts with a dot as hidden; Windows takes the attribute.
TEST_F(ListBox, AFileListShowsHiddenDirectoriesButNotPlainOnes) {
    char folder[MAX_PATH];
    GetTempPathA(MAX_PATH, folder);
    auto in = [root = std::string(folder) + "zklist"](const char* name) { return root + name; };
    for (const char* directory : {"", "\\plain", "\\.hidden"})
        CreateDirectoryA(in(directory).c_str(), nullptr);
    SetFileAttributesA(in("\\.hidden").c_str(), FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN);
    CloseHandle(CreateFileA(in("\\note.txt").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    LIST* list = Filled(LBF_SORTED, {"stale"});
    list->MakeFileList(vSTRING("%s", in("\\*").c_str()), 1);
    EXPECT_EQ(list->NoItems(), vINT(2));
    EXPECT_EQ(std::string((*list)[0]()) + "," + (*list)[1](), ".hidden,note.txt");
    DeleteFileA(in("\\note.txt").c_str());
    SetFileAttributesA(in("\\.hidden").c_str(), FILE_ATTRIBUTE_DIRECTORY);
    for (const char* directory : {"\\plain", "\\.hidden", ""})
        RemoveDirectoryA(in(directory).c_str());
}

// A selection snapshot stays until a new one is taken; a single selection cannot be taken away item by item.
TEST_F(ListBox, ASelectionSnapshotStaysUntilANewOneIsTaken) {
    LIST* single = Filled(0);
    EXPECT_EQ(single->MultiSelectAll(), 0);
    EXPECT_EQ(single->Select(2, 1), 1);
    EXPECT_EQ(single->Select(2, 0), 0);
    EXPECT_EQ(single->NoItemsSel(), vINT(1));
}

}  // namespace
