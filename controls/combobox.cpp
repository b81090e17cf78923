#include "controls/combobox.h"

#include "base/memory.h"

namespace {

// The open combo box draws its items of varying height; the drop-down forms
// put a field above the list, and the drop-down list a field that only shows.
const DWORD SimpleStyle = WS_VSCROLL | CBS_HASSTRINGS | CBS_OWNERDRAWVARIABLE | CBS_SIMPLE;
const DWORD DropDownStyle = WS_VSCROLL | CBS_HASSTRINGS | CBS_OWNERDRAWVARIABLE | CBS_DROPDOWN;
const DWORD DropListStyle = WS_VSCROLL | CBS_HASSTRINGS | CBS_OWNERDRAWFIXED | CBS_DROPDOWNLIST;

DWORD Sorting(unsigned short form)
{
    return form & CBF_SORTED ? CBS_SORT : 0;
}

// The selection field's own height is given by the index -1.
const WPARAM FieldItem = static_cast<WPARAM>(-1);

// Drop-down items are drawn this far from the left edge.
const long TextIndent = 3;

}  // namespace

// ---------------------------------------------------------------- vCOMBOBOX

vCOMBOBOX::vCOMBOBOX(const vWIN& parent, const vCTRLID& controlId, unsigned short form, const vSIZE& size,
                     const vRECT& rect, vCLASSID classId)
    : vCONTROL(parent, controlId, rect, vSTRING(), classId), initialised(0)
{
    vSYSTEM::Trace(1, "vCOMBOBOX::vCOMBOBOX()");
    lstrcpyA(CreateParams.szClassName, "combobox");
    if (classId == CLASSID_COMBOBOX) {
        CreateOrAdopt(SimpleStyle | Sorting(form));
        ItemSize(size);
        ItemHeight(parent, size);
    }
    initialised = 1;
}

vINT vCOMBOBOX::NoItems() const
{
    return SendMessageA(hWnd, CB_GETCOUNT, 0, 0);
}

// Only a size with a width sets the height of the items.
void vCOMBOBOX::ItemHeight(const vWIN& parent, const vSIZE& size)
{
    if (size.Width() != 0)
        SendDlgItemMessageA(parent(), id, CB_SETITEMHEIGHT, FieldItem, LHtoDH(size.Height())());
}

// ------------------------------------------------------------ vDROPCOMBOBOX

vDROPCOMBOBOX::vDROPCOMBOBOX(const vWIN& parent, const vCTRLID& controlId, unsigned short rows, unsigned short form,
                             const vSIZE& size, const vRECT& rect, vCLASSID classId)
    : vCOMBOBOX(parent, controlId, form, size, rect, classId), reserved(0), noDropRows(0)
{
    vSYSTEM::Trace(1, "vDROPCOMBOBOX::vDROPCOMBOBOX()");
    lstrcpyA(CreateParams.szClassName, "combobox");
    if (classId != CLASSID_DROPCOMBOBOX)
        return;
    // A parent without a template has no item to adopt.
    if (!parent.ResTemplate()()) {
        CreateParams.dwStyle |= DropDownStyle | Sorting(form);
        CreateWin();
        vPOINT device = LPtoDP(size);
        ItemSize(vSIZE(device.x, device.y));
        NoDropRows(rows);
    } else {
        BindInstance(hWnd);
        SubClass();
        ItemSize(size);
    }
    ItemHeight(parent, size);
}

unsigned short vDROPCOMBOBOX::NoDropRows() const
{
    return noDropRows;
}

void vDROPCOMBOBOX::DropDown()
{
    SendMessageA(hWnd, CB_SHOWDROPDOWN, TRUE, 0);
}

void vDROPCOMBOBOX::CloseUp()
{
    SendMessageA(hWnd, CB_SHOWDROPDOWN, FALSE, 0);
}

// ------------------------------------------------------------- vDROPLISTBOX

// The list underneath gets no form of its own: a drop-down list has no fake
// parent and leaves the mouse to the platform.
vDROPLISTBOX::vDROPLISTBOX(const vWIN& parent, const vCTRLID& controlId, unsigned short rows, unsigned short form,
                           const vSIZE& size, const vRECT& rect, vCLASSID classId)
    : vLISTBOX(parent, controlId, 0, size, rect, classId), pendingEdit(0), noDropRows(0)
{
    vSYSTEM::Trace(1, "vDROPLISTBOX::vDROPLISTBOX()");
    lstrcpyA(CreateParams.szClassName, "combobox");
    if (classId != CLASSID_DROPLISTBOX)
        return;
    flags &= ~WINF_ERASE;
    itemSize = size == vSIZE(0, 0) ? vSIZE(1, 1) : size;
    if (!hWnd) {
        CreateParams.dwStyle |= DropListStyle | Sorting(form);
        NewedThis = this;
        vLISTBOX::CreateWin();
        NewedThis = nullptr;
        vPOINT device = LPtoDP(size);
        ItemSize(vSIZE(device.x, device.y));
        NoDropRows(rows);
    } else {
        BindInstance(hWnd);
        SubClass();
        ItemSize(size);
    }
}

vCLASSID vDROPLISTBOX::GetClassID()
{
    return CLASSID_DROPLISTBOX;
}

// The items are measured by their ascent, where a list takes the whole
// height of a line; the field and the items get the same height.
void vDROPLISTBOX::ItemSize(const vSIZE& size)
{
    vINT width = size.Width() == 0 ? bound.Width() : size.Width();
    vINT height = size.Height();
    if (height == 0) {
        height = LineMetrics().tmAscent;
    }
    itemSize = vSIZE(width, height);
    Send(CB_SETITEMHEIGHT, FieldItem, height());
    Send(CB_SETITEMHEIGHT, 0, height());
}

const vSIZE vDROPLISTBOX::ItemSize() const
{
    return itemSize;
}

vINT vDROPLISTBOX::NoItems() const
{
    return Send(CB_GETCOUNT);
}

vINT vDROPLISTBOX::NoItemsSel()
{
    return Send(CB_GETCURSEL) == CB_ERR ? 0 : 1;
}

// The snapshot always holds one entry, -1 when nothing is selected.
int vDROPLISTBOX::GetSel()
{
    Reset();
    selection = static_cast<int*>(vMemAlloc(2 * sizeof(int)));
    if (!selection)
        return 0;
    LRESULT current = Send(CB_GETCURSEL);
    selection[0] = static_cast<int>(current);
    selectionCount = 1;
    return current != CB_ERR;
}

short vDROPLISTBOX::Index(const vSTRING& text)
{
    return static_cast<short>(Send(CB_FINDSTRINGEXACT, FieldItem, reinterpret_cast<LPARAM>(text())));
}

short vDROPLISTBOX::Search(const vSTRING& prefix)
{
    return static_cast<short>(Send(CB_FINDSTRING, FieldItem, reinterpret_cast<LPARAM>(ItemText(prefix))));
}

void vDROPLISTBOX::Append(const vSTRING& text, const vOBJECT* data)
{
    AddItem(CB_ADDSTRING, CB_SETITEMDATA, text, data);
}

// Unlike a list, a long text is cut to fit rather than refused.
void vDROPLISTBOX::Insert(const vSTRING& text, const vOBJECT* data, short index)
{
    LRESULT at = Send(CB_INSERTSTRING, index, reinterpret_cast<LPARAM>(ItemText(text)));
    Send(CB_SETITEMDATA, at, reinterpret_cast<LPARAM>(data));
}

void vDROPLISTBOX::Remove(unsigned short index)
{
    if (index < NoItems()())
        Send(CB_DELETESTRING, index);
}

void vDROPLISTBOX::Remove(const vSTRING& text, int once)
{
    RemoveMatching(CB_FINDSTRING, text, once);
}

void vDROPLISTBOX::RemoveAll()
{
    Send(CB_RESETCONTENT);
}

vSTRING vDROPLISTBOX::operator[](unsigned short index)
{
    return TextOf(CB_GETLBTEXT, index);
}

vOBJECT* vDROPLISTBOX::GetData(unsigned short index)
{
    return DataOf(CB_GETITEMDATA, index);
}

vSTRING vDROPLISTBOX::SelectedItems(unsigned short i)
{
    if (!selection || i >= selectionCount || i > NoItemsSel()() - 1)
        return vSTRING();
    return TextOf(CB_GETLBTEXT, static_cast<unsigned short>(selection[i]));
}

int vDROPLISTBOX::Select(unsigned short index)
{
    int result = static_cast<int>(Send(CB_SETCURSEL, index));
    NotifyPeerControls(GetID());
    return result;
}

// A text that no item starts with selects the index -1, and the peers hear of
// it twice.
int vDROPLISTBOX::Select(const vSTRING& text)
{
    int result = Select(static_cast<unsigned short>(Search(text)));
    NotifyPeerControls(GetID());
    return result;
}

vOBJECT* vDROPLISTBOX::GetSelData(unsigned short i)
{
    if (!selection)
        GetSel();
    if (i >= selectionCount)
        return nullptr;
    LRESULT data = Send(CB_GETITEMDATA, selection[i]);
    return data == CB_ERR ? nullptr : reinterpret_cast<vOBJECT*>(data);
}

vRECT vDROPLISTBOX::VisibleSize() const
{
    vRECT whole = Size();
    return vRECT(whole.TopLeft(), whole.Width(), Send(CB_GETITEMHEIGHT, FieldItem));
}

void vDROPLISTBOX::VisibleSize(const vRECT& rect)
{
    Send(CB_SETITEMHEIGHT, FieldItem, rect.Height()());
    Size(vRECT(rect.TopLeft(), rect.Width(), rect.Height() + 1 + noDropRows * itemSize.Height()()));
}

unsigned short vDROPLISTBOX::NoDropRows() const
{
    return noDropRows;
}

// A combo box's window holds its dropped list, so the rows lengthen the
// window from where it ends now.
void vDROPLISTBOX::NoDropRows(unsigned short rows)
{
    noDropRows = rows;
    if (!hWnd)
        return;
    vRECT whole = Size();
    whole.Bottom(whole.Bottom() + 1 + rows * itemSize.Height()());
    Size(whole);
}

void vDROPLISTBOX::DropDown()
{
    Send(CB_SHOWDROPDOWN, TRUE);
}

void vDROPLISTBOX::CloseUp()
{
    Send(CB_SHOWDROPDOWN, FALSE);
}

int vDROPLISTBOX::vDrawNormal(unsigned short index, const vSTRING& text, const vRECT& rect)
{
    vRECT inset = rect;
    inset.Left(TextIndent);
    return vLISTBOX::vDrawNormal(index, text, inset);
}

int vDROPLISTBOX::vDrawSelected(unsigned short index, const vSTRING& text, const vRECT& rect)
{
    vRECT inset = rect;
    inset.Left(TextIndent);
    RECT box = {TextIndent, rect.Top()(), rect.Right()(), rect.Bottom()()};
    DrawSelected(GetZKDC(), box);
    return vLISTBOX::vDrawSelected(index, text, inset);
}

// A key press marks the next edit change as one to show.
int vDROPLISTBOX::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    if (message == WM_KEYDOWN) {
        pendingEdit = 1;
    } else if (message == WM_COMMAND && HIWORD(wParam) == CBN_EDITCHANGE && pendingEdit) {
        pendingEdit = 0;
        UpdateView(vCTRLID(0));
    }
    return vCONTROL::MsgHandler(message, wParam, lParam, result);
}
