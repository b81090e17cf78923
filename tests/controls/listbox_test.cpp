#include <algorithm>
#include <string>
#include <vector>

#include "app/recorder.h"
#include "controls/control.h"
#include "examples/hello/png.h"
#include "support/systemaccess.h"

using wintest::Log;
using wintest::Note;
using Lines = std::vector<std::string>;

namespace {

const unsigned short ListId = 40;

// The true parent: it notes every command with its code as it arrives.
class PARENT : public wintest::RECORDER {
public:
    PARENT(const vWIN& parent, const vRECT& rect) : RECORDER(parent, rect, "parent") {}

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override
    {
        if (message == WM_COMMAND)
            Note("parent.WM_COMMAND(" + std::to_string(LOWORD(wParam)) + "," + std::to_string(HIWORD(wParam)) + ")");
        return RECORDER::MsgHandler(message, wParam, lParam, result);
    }
};

// A list that notes the selection hooks the library calls.
class LIST : public vLISTBOX {
public:
    LIST(const vWIN& parent, unsigned short form, const vSIZE& size = vSIZE(0, 18))
        : vLISTBOX(parent, vCTRLID(ListId), form, size, vRECT(10, 10, 160, 130))
    {
    }

    void vSelectionChange(unsigned short index) override
    {
        Note("list.vSelectionChange(" + std::to_string(index) + ")");
    }
    int vSelectionDoubleClick(unsigned short index, const vPOINT&) override
    {
        Note("list.vSelectionDoubleClick(" + std::to_string(index) + ")");
        return 1;
    }

    using vLISTBOX::fakeParent;
    using vLISTBOX::MakeFileList;
    using vLISTBOX::selectionCount;
    HWND Handle() const { return hWnd; }
};

// The window loop's part that the tests play: key messages feed the
// keyboard state that a press reads.
void Pump()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_KEYDOWN)
            vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, static_cast<unsigned short>(message.wParam), message.lParam);
        TranslateMessage(&message);
        DispatchMessageA(&message);
        if (message.message == WM_KEYUP)
            vSYSTEMACCESS::KeyReset();
    }
}

void Settle()
{
    for (int i = 0; i < 10; ++i) {
        Sleep(10);
        Pump();
    }
}

void Input(INPUT input)
{
    SendInput(1, &input, sizeof input);
    Settle();
}

void Key(WORD key, bool down)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    Input(input);
}

void Button(DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    Input(input);
}

// A real click in the middle of an item, with the keys given held.
void ClickItem(LIST& list, int index, std::vector<WORD> held = {})
{
    RECT item = {};
    SendMessageA(list.Handle(), LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&item));
    POINT at = {(item.left + item.right) / 2, (item.top + item.bottom) / 2};
    ClientToScreen(list.Handle(), &at);
    SetCursorPos(at.x, at.y);
    Button(MOUSEEVENTF_MOVE);
    for (WORD key : held)
        Key(key, true);
    Button(MOUSEEVENTF_LEFTDOWN);
    Button(MOUSEEVENTF_LEFTUP);
    for (WORD key : held)
        Key(key, false);
}

Lines Selected(LIST& list)
{
    Lines items;
    for (long i = 0; i < list.NoItems()(); ++i)
        if (SendMessageA(list.Handle(), LB_GETSEL, i, 0) > 0)
            items.push_back(list[static_cast<unsigned short>(i)]());
    return items;
}

Lines Reports()
{
    Lines kept;
    for (const std::string& line : Log())
        if (line.rfind("list.", 0) == 0 || line.rfind("parent.WM_COMMAND(", 0) == 0 ||
            line.rfind("parent.vCommand(", 0) == 0)
            kept.push_back(line);
    Log().clear();
    return kept;
}

// Rows of a picture, for a person to look at: pngs/<name>.png.
void Save(const std::vector<COLORREF>& bits, int width, int top, int rows, const std::string& name)
{
    CreateDirectoryA("pngs", nullptr);
    std::vector<COLORREF> opaque(bits.begin() + top * width, bits.begin() + (top + rows) * width);
    for (COLORREF& pixel : opaque)
        pixel |= 0xFF000000;
    WritePng(("pngs/" + name + ".png").c_str(), reinterpret_cast<unsigned char*>(opaque.data()), width, rows);
}

// The client area of a shown window as it is on the screen.
std::vector<COLORREF> Shot(HWND window)
{
    RECT client;
    GetClientRect(window, &client);
    HDC screen = GetDC(window);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, client.right, client.bottom);
    HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, client.right, client.bottom, screen, 0, 0, SRCCOPY);
    SelectObject(memory, old);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = client.right;
    info.bmiHeader.biHeight = -client.bottom;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    std::vector<COLORREF> bits(client.right * client.bottom);
    GetDIBits(memory, bitmap, 0, client.bottom, bits.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, screen);
    return bits;
}

DRAWITEMSTRUCT& Item(UINT index)
{
    static DRAWITEMSTRUCT item;
    item = {};
    item.CtlType = ODT_LISTBOX;
    item.CtlID = ListId;
    item.itemID = index;
    item.itemAction = ODA_DRAWENTIRE;
    return item;
}

class ListBox : public wintest::WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        parent = new PARENT(Top(), vRECT(0, 0, 300, 200));
        ShowWindow((*parent)(), SW_SHOW);
        Settle();
    }

    void TearDown() override
    {
        DestroyWindow((*parent)());
        Settle();
        WindowTest::TearDown();
    }

    LIST* Filled(unsigned short form, std::vector<const char*> items = {"alpha", "beta", "gamma", "delta"})
    {
        LIST* list = new LIST(*parent, form);
        for (const char* item : items)
            list->Append(vSTRING("%s", item), nullptr);
        list->Show();
        SetFocus(list->Handle());
        Settle();
        Log().clear();
        return list;
    }

    PARENT* parent = nullptr;
};

TEST_F(ListBox, TheFlagWordChoosesThePlatformStyle)
{
    // The scroll bars are asked for too; the platform keeps their bits only
    // while they show.
    const DWORD every = WS_BORDER | LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT;
    const struct {
        unsigned short form;
        DWORD with;
        DWORD without;
    } rows[] = {
        {0, LBS_OWNERDRAWFIXED, LBS_SORT | LBS_MULTICOLUMN | LBS_MULTIPLESEL | LBS_EXTENDEDSEL | WS_TABSTOP},
        {LBF_MULTICOLUMN, LBS_OWNERDRAWFIXED | LBS_MULTICOLUMN, 0},
        {LBF_SORTED, LBS_SORT, 0},
        {LBF_MULTIPLESEL, LBS_MULTIPLESEL, LBS_EXTENDEDSEL},
        {LBF_EXTENDEDSEL, LBS_EXTENDEDSEL | LBS_WANTKEYBOARDINPUT, LBS_MULTIPLESEL},
        {LBF_MULTIPLESEL | LBF_EXTENDEDSEL, LBS_MULTIPLESEL, LBS_EXTENDEDSEL},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.form);
        LIST* list = new LIST(*parent, row.form);
        DWORD style = GetWindowLongA(list->Handle(), GWL_STYLE);
        EXPECT_EQ(style & (every | row.with), every | row.with);
        EXPECT_EQ(style & row.without, 0u);
        EXPECT_EQ(GetParent(list->Handle()), (*parent)());
        DestroyWindow(list->Handle());
    }
}

TEST_F(ListBox, AZeroItemSizeIsMeasuredOnceCreatedAndNeverAnsweredAsZero)
{
    LIST* list = new LIST(*parent, 0, vSIZE(0, 0));
    TEXTMETRICA metrics;
    HDC dc = GetDC(list->Handle());
    GetTextMetricsA(dc, &metrics);
    ReleaseDC(list->Handle(), dc);
    EXPECT_EQ(list->ItemSize().Width(), vINT(150));
    EXPECT_EQ(list->ItemSize().Height(), vINT(metrics.tmHeight));
    list->ItemSize(vSIZE(0, 5));
    EXPECT_EQ(list->ItemSize().Width(), vINT(150));
    EXPECT_EQ(SendMessageA(list->Handle(), LB_GETITEMHEIGHT, 0, 0), 5);
}

TEST_F(ListBox, ItemsAreFoundWholeOrByPrefixAndBadIndexesAnswerNothing)
{
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
    EXPECT_STREQ(list->operator[](7)(), "");

    std::string longest(255, 'x');
    list->Insert(vSTRING("%s", longest.c_str()), nullptr, 0);
    EXPECT_EQ(list->NoItems(), vINT(4));
    list->Insert(vSTRING("%s", (longest + "y").c_str()), &marker, 1);
    EXPECT_EQ(list->NoItems(), vINT(4)) << "256 characters are refused";
    EXPECT_EQ(list->GetData(1), &marker) << "but the data still land on the index asked for";

    list->Remove(marker, 1);
    EXPECT_EQ(list->NoItems(), vINT(3));
    list->Remove(vSTRING("ap"), 0);
    EXPECT_EQ(list->NoItems(), vINT(2));
    list->RemoveAll();
    list->Remove(0);
    list->Remove(vSTRING("x"), 0);
    EXPECT_EQ(list->NoItems(), vINT(0));
}

TEST_F(ListBox, SortingFollowsThePlatformAndCompareAnswersBySign)
{
    LIST* list = Filled(LBF_SORTED, {"pear", "Apple", "fig"});
    EXPECT_STREQ((*list)[0](), "Apple");
    EXPECT_STREQ((*list)[2](), "pear");
    EXPECT_EQ(list->vCompare(vSTRING("a"), vSTRING("b")), -1);
    EXPECT_EQ(list->vCompare(vSTRING("b"), vSTRING("a")), 1);
    EXPECT_EQ(list->vCompare(vSTRING("a"), vSTRING("a")), 0);
    COMPAREITEMSTRUCT compare = {};
    compare.CtlType = ODT_LISTBOX;
    compare.CtlID = ListId;
    compare.itemData1 = reinterpret_cast<ULONG_PTR>("fig");
    compare.itemData2 = reinterpret_cast<ULONG_PTR>("date");
    EXPECT_EQ(SendMessageA((*parent)(), WM_COMPAREITEM, ListId, reinterpret_cast<LPARAM>(&compare)), 1);
}

// Each state drawn: item 0 plain, item 1 selected, item 2 selected with the
// focus frame on it.
TEST_F(ListBox, ItemsAreDrawnPlainSelectedAndFocused)
{
    LIST* list = Filled(LBF_MULTIPLESEL);
    list->Select(1, 1);
    list->Select(2, 1);
    SendMessageA(list->Handle(), LB_SETCARETINDEX, 2, 0);
    InvalidateRect(list->Handle(), nullptr, TRUE);
    UpdateWindow(list->Handle());
    Settle();
    std::vector<COLORREF> shot = Shot(list->Handle());
    RECT client;
    GetClientRect(list->Handle(), &client);
    Save(shot, client.right, 0, 18, "listbox-normal");
    Save(shot, client.right, 18, 18, "listbox-selected");
    Save(shot, client.right, 36, 18, "listbox-selected-focused");
    auto at = [&](int x, int y) {
        COLORREF pixel = shot[y * client.right + x];
        return RGB(GetBValue(pixel), GetGValue(pixel), GetRValue(pixel));
    };
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    EXPECT_EQ(at(100, 9), GetSysColor(COLOR_WINDOW)) << "a plain item keeps the window colour";
    EXPECT_EQ(at(100, 27), highlight);
    int frame = 0;
    for (int x = 0; x < client.right; ++x)
        frame += at(x, 36) != highlight;
    EXPECT_GT(frame, 10) << "the focus frame runs round the focused item";
    EXPECT_EQ(at(100, 45), highlight);
    int ink = 0;
    for (int x = 0; x < 60; ++x)
        for (int y = 0; y < 18; ++y)
            ink += at(x, y) == GetSysColor(COLOR_WINDOWTEXT);
    EXPECT_GT(ink, 10) << "the plain item's text is drawn in the text colour";
    EXPECT_EQ(list->ccPaint(&Item(0xFFFF)), 0);
}

TEST_F(ListBox, AnEmptyListIsNotPainted)
{
    LIST* list = Filled(0, {});
    InvalidateRect(list->Handle(), nullptr, TRUE);
    SendMessageA(list->Handle(), WM_PAINT, 0, 0);
    EXPECT_FALSE(GetUpdateRect(list->Handle(), nullptr, FALSE));
    EXPECT_EQ(list->ccPaint(&Item(0)), 0);
}

// A list without the drag form leaves the mouse and keys to the platform,
// whose notifications reach the list's hook and then the parent.
TEST_F(ListBox, ThePlatformSelectsAndTheListHearsFirst)
{
    LIST* list = Filled(0);
    ClickItem(*list, 2);
    Key(VK_DOWN, true);
    Key(VK_DOWN, false);
    Key('B', true);
    Key('B', false);
    EXPECT_EQ(Reports(), (Lines{"parent.WM_COMMAND(40,1)", "list.vSelectionChange(2)", "parent.vCommand(40)",
                                "parent.WM_COMMAND(40,1)", "list.vSelectionChange(3)", "parent.vCommand(40)",
                                "parent.WM_COMMAND(40,1)", "list.vSelectionChange(1)", "parent.vCommand(40)"}));
    // Off the item under the caret the platform has the double click, and
    // its notification stops before vCommand.
    SendMessageA(list->Handle(), WM_LBUTTONDBLCLK, 0, MAKELPARAM(20, 110));
    SendMessageA(list->Handle(), WM_LBUTTONDBLCLK, 0, MAKELPARAM(20, 27));
    EXPECT_EQ(Reports(), (Lines{"parent.WM_COMMAND(40,2)", "list.vSelectionDoubleClick(1)"}));
}

// In a drag list the press on a selection keeps it for a drag; the release
// finishes it. Ctrl takes a selected item out, Shift runs from the far end.
TEST_F(ListBox, ADragListFinishesTheSelectionAtTheRelease)
{
    const struct {
        unsigned short form;
        Lines before;
        int item;
        std::vector<WORD> held;
        Lines after;
        Lines reports;
    } rows[] = {
        {LBF_DRAG, {}, 1, {}, {"beta"},
         {"parent.WM_COMMAND(40,1)", "list.vSelectionChange(1)", "parent.vCommand(40)"}},
        // A multiple list answers the platform's own idea of its current item.
        {LBF_DRAG | LBF_MULTIPLESEL, {"alpha", "beta", "gamma"}, 1, {}, {"beta"},
         {"parent.WM_COMMAND(40,1)", "list.vSelectionChange(1)", "parent.vCommand(40)"}},
        {LBF_DRAG | LBF_MULTIPLESEL, {"alpha", "beta", "gamma"}, 1, {VK_CONTROL}, {"alpha", "gamma"},
         {"parent.WM_COMMAND(40,1)", "list.vSelectionChange(2)", "parent.vCommand(40)"}},
        // Without a fake parent the shift-click's report goes nowhere.
        {LBF_DRAG | LBF_MULTIPLESEL, {"beta"}, 3, {VK_SHIFT}, {"beta", "gamma", "delta"}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.item);
        LIST* list = Filled(row.form);
        for (const std::string& item : row.before)
            list->Select(vSTRING("%s", item.c_str()), 1);
        Log().clear();
        ClickItem(*list, row.item, row.held);
        EXPECT_EQ(Selected(*list), row.after);
        EXPECT_EQ(Reports(), row.reports);
        EXPECT_EQ(vWIN::rectDragHotZone, vRECT(0, 0, 0, 0));
        DestroyWindow(list->Handle());
    }
}

TEST_F(ListBox, AFakeParentPassesTheListsReportsOnWithTheSameIdentifier)
{
    zktest::TraceCapture trace;
    LIST* list = Filled(LBF_FAKEPARENT);
    ASSERT_NE(list->fakeParent, nullptr);
    HWND fake = GetParent(list->Handle());
    EXPECT_NE(fake, (*parent)());
    EXPECT_EQ(GetParent(fake), (*parent)());
    EXPECT_TRUE(GetWindowLongA(list->Handle(), GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
    EXPECT_EQ(list->Parent(), parent);
    ClickItem(*list, 1);
    EXPECT_EQ(Reports(), (Lines{"list.vSelectionChange(1)", "parent.WM_COMMAND(40,1)", "parent.vCommand(40)"}));
    EXPECT_NE(std::find(trace.Lines().begin(), trace.Lines().end(), "Trace: fake parent = message"),
              trace.Lines().end());
    list->Size(vRECT(20, 30, 120, 90));
    RECT placed;
    GetWindowRect(fake, &placed);
    MapWindowPoints(nullptr, (*parent)(), reinterpret_cast<POINT*>(&placed), 2);
    EXPECT_EQ(placed.left, 20);
    EXPECT_EQ(placed.bottom, 90);
}

TEST_F(ListBox, AFileListShowsHiddenDirectoriesButNotPlainOnes)
{
    char folder[MAX_PATH];
    GetTempPathA(MAX_PATH, folder);
    std::string root = std::string(folder) + "zklist";
    CreateDirectoryA(root.c_str(), nullptr);
    CreateDirectoryA((root + "\\plain").c_str(), nullptr);
    // Wine shows a name that starts with a dot as hidden; Windows takes the
    // attribute.
    CreateDirectoryA((root + "\\.hidden").c_str(), nullptr);
    SetFileAttributesA((root + "\\.hidden").c_str(), FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN);
    CloseHandle(CreateFileA((root + "\\note.txt").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    LIST* list = Filled(LBF_SORTED, {"stale"});
    list->MakeFileList(vSTRING("%s\\*", root.c_str()), 1);
    EXPECT_EQ(list->NoItems(), vINT(2));
    EXPECT_STREQ((*list)[0](), ".hidden");
    EXPECT_STREQ((*list)[1](), "note.txt");
    DeleteFileA((root + "\\note.txt").c_str());
    RemoveDirectoryA((root + "\\plain").c_str());
    SetFileAttributesA((root + "\\.hidden").c_str(), FILE_ATTRIBUTE_DIRECTORY);
    RemoveDirectoryA((root + "\\.hidden").c_str());
    RemoveDirectoryA(root.c_str());
}

TEST_F(ListBox, ASelectionSnapshotStaysUntilANewOneIsTaken)
{
    LIST* list = Filled(LBF_MULTIPLESEL);
    list->Select(1, 1);
    list->Select(3, 1);
    EXPECT_EQ(list->GetSel(), 1);
    EXPECT_STREQ(list->SelectedItems(1)(), "delta");
    EXPECT_STREQ(list->SelectedItems(2)(), "");
    list->MultiClearSelection();
    EXPECT_EQ(list->GetSel(), 0);
    EXPECT_EQ(list->selectionCount, 2) << "nothing selected keeps the old snapshot";
    EXPECT_EQ(list->MultiSelectAll(), 1);
    EXPECT_EQ(list->NoItemsSel(), vINT(4));
    LIST* single = Filled(0);
    EXPECT_EQ(single->MultiSelectAll(), 0);
    EXPECT_EQ(single->Select(2, 1), 1);
    EXPECT_EQ(single->Select(2, 0), 0);
    EXPECT_EQ(single->NoItemsSel(), vINT(1)) << "a single selection cannot be taken away item by item";
}

}  // namespace
