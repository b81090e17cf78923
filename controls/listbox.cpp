#include "controls/listbox.h"

#include "app/pointer.h"
#include "base/memory.h"

#include <windowsx.h>

namespace {

// The longest text an item takes; the process buffer holds it and its end.
const unsigned short MaxItemText = 255;

// What every list is made with: a frame, both scroll bars, notifications, and
// strings kept by the platform for items the object draws itself. Clipping,
// group and tab stop go.
const DWORD ListStyle = WS_BORDER | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT;
const DWORD NotForLists = WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_GROUP | WS_TABSTOP;

// Any class identifier but the plain window's: vWIN's constructor then leaves
// the creation to the fake parent's own CreateWin.
const vCLASSID FakeParentClass = static_cast<vCLASSID>(0);

const vRECT NoZone(0, 0, 0, 0);

vRECT RectOf(const RECT& box)
{
    return vRECT(box.left, box.top, box.right, box.bottom);
}

int Contains(const RECT& box, const vPOINT& point)
{
    POINT at = {static_cast<LONG>(point.x()), static_cast<LONG>(point.y())};
    return PtInRect(&box, at);
}

}  // namespace

// The hidden window between a list and its true parent: it takes dropped
// files for the list and hands everything the list reports on to the parent.
class vLISTBOX::vFAKEPARENT : public vWIN {
public:
    vFAKEPARENT(vLISTBOX& owner, const vWIN& parent, const vRECT& rect);
    ~vFAKEPARENT() override;

    void UpdateView(const vCTRLID& changedId) override;

    vLISTBOX* list;

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void CreateWin() override;
};

vLISTBOX::vFAKEPARENT::vFAKEPARENT(vLISTBOX& owner, const vWIN& parent, const vRECT& rect)
    : vWIN(parent, rect, WF_NONE, FakeParentClass), list(&owner)
{
    // The list's dependents are shared, not owned: the list frees them.
    delete pDepends;
    pDepends = owner.pDepends;
    CreateWin();
}

vLISTBOX::vFAKEPARENT::~vFAKEPARENT()
{
    DragAcceptFiles(hWnd, FALSE);
    pDepends = nullptr;
    if (list)
        list->fakeParent = nullptr;
}

void vLISTBOX::vFAKEPARENT::UpdateView(const vCTRLID& changedId)
{
    if (list)
        list->UpdateView(changedId);
}

// Made visible at the list's place, so that showing and hiding the list is
// all a program does.
void vLISTBOX::vFAKEPARENT::CreateWin()
{
    const vRECT& rect = CreateParams.rect;
    hWnd = CreateWindowExA(WS_EX_ACCEPTFILES, "GENERIC", "", WS_CHILD | WS_VISIBLE, rect.Left()(), rect.Top()(),
                           rect.Width()(), rect.Height()(), CreateParams.hParent, nullptr,
                           vSYSTEM::Pointer()->GetInstance(), nullptr);
    BindInstance(hWnd);
    SubClass();
    DragAcceptFiles(hWnd, TRUE);
}

// Dropped files are the list's own business. What the fake parent does not
// handle goes on to the true parent, so that the list's items, commands and
// notifications end there.
int vLISTBOX::vFAKEPARENT::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    if (message == WM_DROPFILES)
        return 1;
    int handled = vWIN::MsgHandler(message, wParam, lParam, result);
    if (message == WM_COMMAND)
        vSYSTEM::Trace(0, "fake parent = message");
    if (handled)
        return 1;
    vWIN* parent = Parent();
    return parent ? parent->MsgHandler(message, wParam, lParam, result) : 0;
}

vLISTBOX::vLISTBOX(const vWIN& parent, const vCTRLID& controlId, unsigned short form, const vSIZE& size,
                   const vRECT& rect, vCLASSID classId)
    : vCONTROL(parent, controlId, rect, vSTRING(), classId),
      greyed(form & LBF_GREYED),
      sorted(form & LBF_SORTED),
      canDrag(form & LBF_DRAG),
      wantsFakeParent(form & LBF_FAKEPARENT),
      allItemsFit(0),
      multiColumn(form & LBF_MULTICOLUMN),
      multiSelect(form & LBF_EXTENDEDSEL),
      ctrlAtPress(0),
      shiftAtPress(0),
      itemSize(size),
      selection(nullptr),
      pressedItem(-1),
      selectionCount(0),
      fakeParent(nullptr)
{
    vSYSTEM::Trace(1, "vLISTBOX::vLISTBOX()");
    lstrcpyA(CreateParams.szClassName, "listbox");
    if (classId == CLASSID_LISTBOX) {
        // Never (0, 0) while the platform measures the items during creation.
        if (size == vSIZE(0, 0))
            itemSize = vSIZE(1, 1);
        if (hWnd) {
            BindInstance(hWnd);
            SubClass();
        } else {
            if (wantsFakeParent)
                MakeFakeParent(parent, rect);
            lstrcpyA(CreateParams.szClassName, "listbox");
            CreateParams.dwStyle = (CreateParams.dwStyle & ~NotForLists) | ListStyle | CreationStyle(form);
            NewedThis = this;
            CreateWin();
            NewedThis = nullptr;
            if (form & (LBF_MULTIPLESEL | LBF_EXTENDEDSEL))
                multiSelect = 1;
        }
        ItemSize(size);
        if (fakeParent)
            Show(1);
    }
    FontSpec(vFONTSPEC("Helv", vFONT_NORMAL, 15, vREAL(0), 100, vFONT_PIXELS, vANGLE(short(0))));
    vSYSTEM::Trace(0, "vLISTBOX - end of construction");
}

// The snapshot goes with the list, so that a list's life leaves no block.
vLISTBOX::~vLISTBOX()
{
    Reset();
    if (fakeParent)
        fakeParent->list = nullptr;
}

// The fake parent takes the list's identifier while the list itself is made,
// so CreateParams is put back for the list afterwards.
void vLISTBOX::MakeFakeParent(const vWIN& parent, const vRECT& rect)
{
    fakeParent = new vFAKEPARENT(*this, parent, rect);
    CreateParams.hMenuOrId = reinterpret_cast<HMENU>(static_cast<UINT_PTR>(static_cast<unsigned short>(id)));
    CreateParams.dwStyle |= WS_GROUP | WS_TABSTOP;
    CreateParams.rect = bound;
    vSYSTEM::Trace(0, "vLISTBOX::fake parent created");
}

DWORD vLISTBOX::CreationStyle(unsigned short form) const
{
    DWORD style = form & LBF_MULTICOLUMN ? LBS_OWNERDRAWFIXED | LBS_MULTICOLUMN : LBS_OWNERDRAWFIXED;
    if (form & LBF_SORTED)
        style |= LBS_SORT;
    if (form & LBF_MULTIPLESEL)
        style |= LBS_MULTIPLESEL;
    else if (form & LBF_EXTENDEDSEL)
        style |= LBS_EXTENDEDSEL | LBS_WANTKEYBOARDINPUT;
    return style;
}

// A list with a fake parent fills it and takes the files dropped on it.
void vLISTBOX::CreateWin()
{
    const vRECT& rect = CreateParams.rect;
    HINSTANCE instance = vSYSTEM::Pointer()->GetInstance();
    if (fakeParent) {
        hWnd = CreateWindowExA(WS_EX_ACCEPTFILES, CreateParams.szClassName, CreateParams.lpszTitle,
                               CreateParams.dwStyle, 0, 0, rect.Width()(), rect.Height()(), fakeParent->hWnd,
                               CreateParams.hMenuOrId, instance, nullptr);
        DragAcceptFiles(hWnd, TRUE);
    } else {
        hWnd = CreateWindowExA(0, CreateParams.szClassName, CreateParams.lpszTitle, CreateParams.dwStyle,
                               rect.Left()(), rect.Top()(), rect.Width()(), rect.Height()(), CreateParams.hParent,
                               CreateParams.hMenuOrId, instance, nullptr);
    }
    BindInstance(hWnd);
    SubClass();
    SetDrawMode();
    vSYSTEM::Trace(1, vSTRING("CreateWindow %x", hWnd)());
}

vCLASSID vLISTBOX::GetClassID()
{
    return CLASSID_LISTBOX;
}

LRESULT vLISTBOX::Send(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return SendMessageA(hWnd, message, wParam, lParam);
}

// The measures of a line of text in the list's own context.
TEXTMETRICA vLISTBOX::LineMetrics()
{
    TEXTMETRICA metrics = {};
    GetTextMetricsA(ActivateDC(), &metrics);
    ReleaseDC();
    return metrics;
}

// Copies a text, cut to the longest item, to the process buffer.
char* vLISTBOX::ItemText(const vSTRING& text)
{
    char* buffer = vSYSTEM::GetBuffer();
    lstrcpynA(buffer, text(), MaxItemText + 1);
    buffer[MaxItemText] = 0;
    return buffer;
}

// A failed addition sends the combo box's number for item data, which a
// list ignores; it is kept, since nothing can be told of the failure anyway.
void vLISTBOX::AddItem(UINT add, UINT setData, const vSTRING& text, const vOBJECT* data)
{
    LRESULT at = Send(add, 0, reinterpret_cast<LPARAM>(ItemText(text)));
    if (at < 0)
        Send(CB_SETITEMDATA, 0, -1);
    else
        Send(setData, at, reinterpret_cast<LPARAM>(data));
}

// Removes the items that start with the text; the search wraps round the
// list, so it ends only when none is left.
void vLISTBOX::RemoveMatching(UINT find, const vSTRING& text, int once)
{
    char* buffer = ItemText(text);
    short at = static_cast<short>(Send(find, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(buffer)));
    while (at != -1) {
        Remove(static_cast<unsigned short>(at));
        if (once)
            return;
        at = static_cast<short>(Send(find, at, reinterpret_cast<LPARAM>(buffer)));
    }
}

// An index past the end reads as an empty text.
vSTRING vLISTBOX::TextOf(UINT get, unsigned short index)
{
    char* buffer = vSYSTEM::GetBuffer();
    buffer[0] = 0;
    Send(get, index, reinterpret_cast<LPARAM>(buffer));
    return vSTRING("%s", buffer);
}

vOBJECT* vLISTBOX::DataOf(UINT get, unsigned short index)
{
    if (static_cast<short>(index) >= NoItems()())
        return nullptr;
    LRESULT data = Send(get, index);
    return data == LB_ERR ? nullptr : reinterpret_cast<vOBJECT*>(data);
}

// The window that the list's items are addressed through.
HWND vLISTBOX::ItemParent()
{
    if (fakeParent)
        return fakeParent->hWnd;
    vWIN* parent = Parent();
    return parent ? parent->hWnd : nullptr;
}

vWIN* vLISTBOX::Parent()
{
    if (wantsFakeParent && fakeParent)
        return fakeParent->Parent();
    return vWIN::Parent();
}

// Redrawing goes off and on with the window, so that a list filled while
// disabled is drawn once, when it is enabled again.
int vLISTBOX::Enable(int enable)
{
    Send(WM_SETREDRAW, enable);
    return vWIN::Enable(enable);
}

int vLISTBOX::Disable()
{
    Send(WM_SETREDRAW, FALSE);
    return vWIN::Disable();
}

vRECT vLISTBOX::Size() const
{
    return fakeParent ? fakeParent->Size() : vWIN::Size();
}

void vLISTBOX::Size(const vRECT& rect)
{
    if (!fakeParent) {
        vWIN::Size(rect);
        return;
    }
    SetWindowPos(fakeParent->hWnd, HWND_NOTOPMOST, rect.Left()(), rect.Top()(), rect.Width()(), rect.Height()(),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    vWIN::Size(vRECT(0, 0, rect.Width(), rect.Height()));
}

short vLISTBOX::vCompare(const vSTRING& first, const vSTRING& second)
{
    if (first == second)
        return 0;
    return first > second ? 1 : -1;
}

const vSIZE vLISTBOX::ItemSize() const
{
    return itemSize;
}

// A zero width is the list's, a zero height that of a line of text. The
// first item is taken out and put back, which makes the platform lay the
// list out again at the new size.
void vLISTBOX::ItemSize(const vSIZE& size)
{
    vINT width = size.Width() == 0 ? bound.Width() : size.Width();
    vINT height = size.Height();
    if (height == 0) {
        height = LineMetrics().tmHeight;
    }
    itemSize = vSIZE(width, height);
    HWND itemParent = ItemParent();
    if (GetWindowLongA(hWnd, GWL_STYLE) & LBS_MULTICOLUMN)
        SendDlgItemMessageA(itemParent, id, LB_SETCOLUMNWIDTH, width(), 0);
    for (long i = 0;;) {
        if (SendDlgItemMessageA(itemParent, id, LB_SETITEMHEIGHT, i, height()) == LB_ERR || ++i >= NoItems()())
            break;
    }
    SetTopItem(GetTopIndex());
    if (NoItems()() > 0) {
        vSTRING first = (*this)[0];
        vOBJECT* data = GetData(0);
        Disable();
        Remove(0);
        Enable(1);
        Insert(first, data, 0);
    }
}

vINT vLISTBOX::NoItems() const
{
    return Send(LB_GETCOUNT);
}

// A single-selection list has no count of its own.
vINT vLISTBOX::NoItemsSel()
{
    LRESULT count = Send(LB_GETSELCOUNT);
    if (count != LB_ERR)
        return count;
    return Send(LB_GETCURSEL) != LB_ERR ? 1 : 0;
}

vINT vLISTBOX::ItemLength(unsigned short index)
{
    return Send(LB_GETTEXTLEN, index);
}

int vLISTBOX::IsSelected(unsigned short index)
{
    LRESULT on = Send(LB_GETSEL, index);
    return on == LB_ERR ? 0 : static_cast<int>(on);
}

// Only the multiple-selection style has a caret apart from the selection.
vINT vLISTBOX::GetItemFocus()
{
    return Send(GetWindowLongA(hWnd, GWL_STYLE) & LBS_MULTIPLESEL ? LB_GETCARETINDEX : LB_GETCURSEL);
}

void vLISTBOX::Reset()
{
    vMemFree(selection);
    selection = nullptr;
    selectionCount = 0;
}

int vLISTBOX::SetTopItem(const vSTRING& text)
{
    short index = Index(text);
    return index == -1 ? 0 : SetTopItem(static_cast<unsigned short>(index));
}

// A list that cannot scroll has no top to set.
int vLISTBOX::SetTopItem(unsigned short index)
{
    int low = 0;
    int high = 0;
    GetScrollRange(hWnd, SB_VERT, &low, &high);
    if (!low && !high)
        return 0;
    return Send(LB_SETTOPINDEX, index) != LB_ERR;
}

unsigned short vLISTBOX::GetTopIndex()
{
    return static_cast<unsigned short>(Send(LB_GETTOPINDEX));
}

short vLISTBOX::Index(const vSTRING& text)
{
    return static_cast<short>(Send(LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text())));
}

short vLISTBOX::Search(const vSTRING& prefix)
{
    char* buffer = ItemText(prefix);
    return static_cast<short>(Send(LB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(buffer)));
}

void vLISTBOX::Append(const vSTRING& text, const vOBJECT* data)
{
    AddItem(LB_ADDSTRING, LB_SETITEMDATA, text, data);
}

// A text too long for an item is not inserted, but its data still go to the
// index asked for: they overwrite an existing item's, and that is kept, since
// callers that fill a list item by item rely on the data landing.
void vLISTBOX::Insert(const vSTRING& text, const vOBJECT* data, short index)
{
    LRESULT at = index >= 0 ? index : 0;
    if (text.Length() <= MaxItemText)
        at = Send(LB_INSERTSTRING, index, reinterpret_cast<LPARAM>(text()));
    if (data)
        Send(LB_SETITEMDATA, at, reinterpret_cast<LPARAM>(data));
}

void vLISTBOX::Remove(unsigned short index)
{
    if (index < NoItems()())
        Send(LB_DELETESTRING, index);
}

void vLISTBOX::Remove(const vOBJECT& object, int once)
{
    long count = NoItems()();
    unsigned short i = 0;
    for (long round = 0; round < count; ++round) {
        if (GetData(i) != &object) {
            ++i;
            continue;
        }
        Remove(i);
        if (once)
            return;
    }
}

void vLISTBOX::Remove(const vSTRING& text, int once)
{
    RemoveMatching(LB_FINDSTRING, text, once);
}

void vLISTBOX::RemoveAll()
{
    Send(LB_RESETCONTENT);
}

vSTRING vLISTBOX::operator[](unsigned short index)
{
    return TextOf(LB_GETTEXT, index);
}

vOBJECT* vLISTBOX::GetData(unsigned short index)
{
    return DataOf(LB_GETITEMDATA, index);
}

vRECT vLISTBOX::GetItemRect(unsigned short index)
{
    RECT box = {0, 0, 0, 0};
    if (Send(LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&box)) == LB_ERR)
        return vRECT(0, 0, 0, 0);
    return RectOf(box);
}

void vLISTBOX::SetItemWidth(unsigned short width)
{
    Send(LB_SETHORIZONTALEXTENT, width);
}

// Lists the names that match, directories too when they are hidden, read-only
// or otherwise more than a plain directory: the file dialogs list those as
// files, and that is kept.
void vLISTBOX::MakeFileList(const vSTRING& pattern, int clear)
{
    if (clear)
        RemoveAll();
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA(pattern(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return;
    do {
        int dot = !lstrcmpA(found.cFileName, ".") || !lstrcmpA(found.cFileName, "..");
        DWORD attributes = found.dwFileAttributes;
        if (!dot && (!attributes || (attributes & ~FILE_ATTRIBUTE_DIRECTORY)))
            Append(vSTRING("%s", found.cFileName), nullptr);
    } while (FindNextFileA(search, &found));
    FindClose(search);
}

// ------------------------------------------------------------------ drawing

// An empty list is not painted at all, so that the platform draws no focus
// frame in it.
int vLISTBOX::DoDraw()
{
    if (NoItems()())
        return 0;
    PAINTSTRUCT paint;
    BeginPaint(hWnd, &paint);
    EndPaint(hWnd, &paint);
    return 1;
}

int vLISTBOX::ccPaint(tagDRAWITEMSTRUCT* item)
{
    unsigned short index = LOWORD(item->itemID);
    if (!NoItems()() || index == 0xFFFF)
        return 0;
    vSTRING text = (*this)[index];
    RECT clip = {0, 0, 0, 0};
    GetClipBox(item->hDC, &clip);
    BeginDraw(item->hDC);
    ClearClipArea();
    ActivateFont();
    ClipArea(vRECT(0, clip.top, ClientSize().Width(), clip.bottom));
    SetTextColor(item->hDC, GetSysColor(Enabled() ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    SetBkMode(item->hDC, TRANSPARENT);
    vRECT rect = RectOf(item->rcItem);
    int result = 0;
    if (item->itemAction == ODA_DRAWENTIRE || item->itemAction == ODA_SELECT) {
        if (item->itemState & ODS_SELECTED) {
            vDrawSelected(index, text, rect);
        } else {
            DrawClear(item->hDC, item->rcItem);
            vDrawNormal(index, text, rect);
        }
        if (item->itemState & ODS_FOCUS)
            DrawFocusRect(item->hDC, &item->rcItem);
        result = 1;
    } else if (item->itemAction == ODA_FOCUS) {
        DrawFocusRect(item->hDC, &item->rcItem);
        result = 1;
    }
    EndDraw();
    return result;
}

void vLISTBOX::FillWith(vSCREENCOLOUR colour)
{
    FillSpec(vFILLSPEC(vFILL_SOLID, GetScreen().Colour(colour), vCOLOUR(0, 0, 0), vANGLE(), vFILL_ALTERNATE));
}

int vLISTBOX::vDrawNormal(unsigned short, const vSTRING& text, const vRECT& rect)
{
    ActivateDC();
    FillWith(Enabled() && !greyed ? vSCREEN_WINDOWTEXT : vSCREEN_GREYTEXT);
    DrawTextA(text, rect, vTEXT_LEFT);
    return 1;
}

int vLISTBOX::vDrawSelected(unsigned short, const vSTRING& text, const vRECT& rect)
{
    if (!Enabled() || greyed) {
        FillWith(vSCREEN_GREYTEXT);
    } else {
        RECT box = {rect.Left()(), rect.Top()(), rect.Right()(), rect.Bottom()()};
        DrawSelected(GetZKDC(), box);
        FillWith(vSCREEN_HIGHLIGHTTEXT);
    }
    DrawTextA(text, rect, vTEXT_LEFT);
    return 1;
}

void vLISTBOX::DrawClear(HDC, const tagRECT& rect)
{
    FillSpec(vFILLSPEC(vFILL_SOLID, BackgroundColour(), BackgroundColour(), vANGLE(), vFILL_ALTERNATE));
    LineSpec(vLINESPEC(vLINE_NONE, vCOLOUR(0, 0, 0), 1, vCORNER_BEVEL, vDASH_DOT, nullptr));
    DrawRect(RectOf(rect));
}

void vLISTBOX::DrawSelected(HDC dc, const tagRECT& rect)
{
    if (!Enabled()) {
        DrawClear(dc, rect);
        return;
    }
    vCOLOUR highlight = GetScreen().Colour(vSCREEN_HIGHLIGHT);
    FillSpec(vFILLSPEC(vFILL_SOLID, highlight, highlight, vANGLE(), vFILL_ALTERNATE));
    LineSpec(vLINESPEC(vLINE_NONE, vCOLOUR(0, 0, 0), 1, vCORNER_BEVEL, vDASH_DOT, nullptr));
    DrawRect(RectOf(rect));
}

// ---------------------------------------------------------------- messages

int vLISTBOX::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    // The mouse is the list's own: the base's answer is not asked, and an
    // answer of 1 keeps the message from the platform's list.
    static const struct {
        unsigned int message;
        int (vLISTBOX::*handler)(const vPOINT&);
    } Mouse[] = {
        {WM_MOUSEMOVE, &vLISTBOX::MouseMove},
        {WM_LBUTTONDOWN, &vLISTBOX::MouseLeftPress},
        {WM_LBUTTONUP, &vLISTBOX::MouseLeftRelease},
        {WM_LBUTTONDBLCLK, &vLISTBOX::MouseLeftDoubleClick},
    };
    for (const auto& row : Mouse) {
        if (row.message == message) {
            vCONTROL::MsgHandler(message, wParam, lParam, result);
            return (this->*row.handler)(vPOINT(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)));
        }
    }
    if (message == WM_SIZE) {
        // The platform leaves the space below the last item as it was; it is
        // cleared whenever the items start or stop filling the list.
        long spare = ClientSize().Height()() - itemSize.Height()() * NoItems()();
        if ((spare >= 0) != (allItemsFit != 0))
            InvalidateRect(hWnd, nullptr, TRUE);
        allItemsFit = spare >= 0;
    } else if (message == WM_HSCROLL && !multiColumn) {
        Invalidate();
    }
    return vCONTROL::MsgHandler(message, wParam, lParam, result);
}

// ---------------------------------------------------------------- selection

// A selection made here produces no notification of the platform's, so the
// list reports it as the platform would.
void vLISTBOX::ReportSelection(HWND to)
{
    SendMessageA(to, WM_COMMAND, MAKEWPARAM(static_cast<unsigned short>(id), LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(hWnd));
}

// The first item under the point, or the count when there is none.
int vLISTBOX::ItemAt(const vPOINT& point, vINT count)
{
    RECT box = {0, 0, 0, 0};
    int i = 0;
    for (; i < count(); ++i) {
        Send(LB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&box));
        if (Contains(box, point))
            break;
    }
    return i;
}

// A drag list takes presses from the platform: a press on a selected item
// must not clear the others before a drag can start, so the release finishes
// the selection.
int vLISTBOX::MouseLeftPress(const vPOINT& point)
{
    vKEYBOARD& keyboard = vSYSTEM::GetKeyboard();
    ctrlAtPress = keyboard.Ctr();
    shiftAtPress = keyboard.Shift();
    if (!canDrag)
        return 0;
    pressedItem = -1;
    GetFocus();
    GetSel();
    vINT count = NoItems();
    if (shiftAtPress && multiSelect)
        return ShiftPress(point, count);
    int result = 0;
    RECT box = {0, 0, 0, 0};
    for (unsigned short j = 0; j < selectionCount; ++j) {
        Send(LB_GETITEMRECT, selection[j], reinterpret_cast<LPARAM>(&box));
        if (Contains(box, point)) {
            result = 1;
            pressedItem = static_cast<short>(selection[j]);
            rectDragHotZone = RectOf(box);
            break;
        }
    }
    return pressedItem == -1 ? PressOnItem(point, count) : result;
}

// The run goes from the end of the selection away from the caret to the
// item pressed. The report goes to the fake parent even when there is none:
// an extended drag list has to have one.
int vLISTBOX::ShiftPress(const vPOINT& point, vINT count)
{
    int pressed = ItemAt(point, count);
    HWND to = fakeParent ? fakeParent->hWnd : nullptr;
    if (!selectionCount) {
        Send(LB_SETSEL, TRUE, pressed);
        ReportSelection(to);
        return 1;
    }
    int anchor = selection[0];
    if (GetItemFocus() == selection[0])
        anchor = selection[selectionCount - 1];
    MultiClearSelection();
    Send(LB_SELITEMRANGE, TRUE, MAKELPARAM(anchor < pressed ? anchor : pressed, anchor < pressed ? pressed : anchor));
    Send(LB_SETCARETINDEX, pressed, TRUE);
    ReportSelection(to);
    return 1;
}

// A press on an unselected item selects it, and without Ctrl in a multiple
// list it alone. A press below the last item is left to the platform.
int vLISTBOX::PressOnItem(const vPOINT& point, vINT count)
{
    int i = ItemAt(point, count);
    if (i >= count())
        return 0;
    rectDragHotZone = GetItemRect(static_cast<unsigned short>(i));
    if (!IsSelected(static_cast<unsigned short>(i))) {
        if (multiSelect && !ctrlAtPress)
            for (unsigned short k = 0; k < selectionCount; ++k)
                if (selection[k] != i)
                    Select(static_cast<unsigned short>(selection[k]), 0);
        Select(static_cast<unsigned short>(i), 1);
        ReportSelection(wantsFakeParent && fakeParent ? fakeParent->hWnd : Parent()->hWnd);
    }
    return 1;
}

// While the button is down over a drag list the platform must not select by
// dragging; vWIN's own move handling starts the drag.
int vLISTBOX::MouseMove(const vPOINT&)
{
    return canDrag && (GetAsyncKeyState(VK_LBUTTON) & 0x8000) ? 1 : 0;
}

// After a drag the selection stays as it was; after a plain click the item
// pressed is all that stays selected, and with Ctrl it leaves the selection.
int vLISTBOX::MouseLeftRelease(const vPOINT&)
{
    if (!canDrag)
        return 0;
    if (isDragging) {
        isDragging = 0;
        return 1;
    }
    if (pressedItem >= 0) {
        if (!ctrlAtPress) {
            GetSel();
            for (unsigned short j = 0; j < selectionCount; ++j)
                Select(static_cast<unsigned short>(selection[j]), selection[j] == pressedItem);
        } else {
            Select(static_cast<unsigned short>(pressedItem), 0);
            ctrlAtPress = 0;
        }
        ReportSelection(Parent()->hWnd);
        pressedItem = -1;
    }
    rectDragHotZone = NoZone;
    return 1;
}

int vLISTBOX::MouseLeftDoubleClick(const vPOINT& point)
{
    UINT ask = GetWindowLongA(hWnd, GWL_STYLE) & LBS_MULTIPLESEL ? LB_GETCARETINDEX : LB_GETCURSEL;
    unsigned short index = static_cast<unsigned short>(Send(ask));
    return GetItemRect(index) ^ point ? vSelectionDoubleClick(index, point) : 0;
}

// A list with nothing selected keeps its old snapshot. A single-selection
// list answers no list of selected items, and its one selection stands in.
int vLISTBOX::GetSel()
{
    short count = static_cast<short>(NoItemsSel()());
    if (count <= 0)
        return 0;
    Reset();
    selection = static_cast<int*>(vMemAlloc(count * sizeof(int) + 1));
    if (!selection)
        return 0;
    selectionCount = count;
    if (Send(LB_GETSELITEMS, count, reinterpret_cast<LPARAM>(selection)) == LB_ERR) {
        selection[0] = static_cast<int>(Send(LB_GETCURSEL));
        selectionCount = 1;
    }
    return 1;
}

// A single-selection list cannot have its selection taken away item by item.
int vLISTBOX::Select(unsigned short index, int on)
{
    int ok = 0;
    if (multiSelect)
        ok = Send(LB_SETSEL, on, index) != LB_ERR;
    else if (on)
        ok = Send(LB_SETCURSEL, index) != LB_ERR;
    NotifyPeerControls(GetID());
    return on && ok;
}

int vLISTBOX::Select(const vSTRING& text, int on)
{
    short index = Search(text);
    if (index == -1)
        return 0;
    Select(static_cast<unsigned short>(index), on);
    return 1;
}

// Each item's data are compared with the place that holds them, never with
// the object, so no item is selected this way. That is kept: programs that
// select by object have always found nothing, and select by index or text.
int vLISTBOX::Select(const vOBJECT& object, int on)
{
    for (long i = 0; i <= NoItems()(); ++i) {
        vOBJECT* data = GetData(static_cast<unsigned short>(i));
        if (static_cast<const void*>(&data) == &object)
            return Select(static_cast<unsigned short>(i), on);
    }
    return 0;
}

int vLISTBOX::MultiSelectAll()
{
    int ok = multiSelect && Send(LB_SETSEL, TRUE, -1) != LB_ERR;
    NotifyPeerControls(GetID());
    return ok;
}

int vLISTBOX::MultiClearSelection()
{
    int ok = multiSelect && Send(LB_SETSEL, FALSE, -1) != LB_ERR;
    NotifyPeerControls(GetID());
    return ok;
}

// Puts the snapshot back after the list was filled again.
void vLISTBOX::Reselect()
{
    if (!selection)
        return;
    Send(LB_SELITEMRANGE, FALSE, MAKELPARAM(0, NoItems()() - 1));
    for (unsigned short j = 0; j < selectionCount; ++j)
        Select(static_cast<unsigned short>(selection[j]), 1);
}

vSTRING vLISTBOX::SelectedItems(unsigned short i)
{
    if (!selection || i >= selectionCount || i > NoItemsSel()() - 1)
        return vSTRING();
    return TextOf(LB_GETTEXT, static_cast<unsigned short>(selection[i]));
}

vOBJECT* vLISTBOX::GetSelData(unsigned short i)
{
    if (!selection)
        GetSel();
    if (i >= selectionCount)
        return nullptr;
    LRESULT data = Send(LB_GETITEMDATA, selection[i]);
    return data == LB_ERR ? nullptr : reinterpret_cast<vOBJECT*>(data);
}
