#include "controls/control.h"

#include "app/library.h"
#include "core/resources/resourceids.h"

namespace {

// The cells of the marks sheet; right and bottom lie outside each cell.
const vRECT RadioSelectedCell(1, 17, 16, 32);
const vRECT RadioNormalCell(17, 17, 32, 32);
const vRECT RadioDisabledCell(49, 17, 64, 32);
const vRECT CheckCheckedCell(1, 1, 16, 16);
const vRECT CheckNormalCell(17, 1, 32, 16);
const vRECT CheckConfusedCell(33, 1, 48, 16);
const vRECT CheckDisabledCell(49, 1, 64, 16);

// The radio cells stand on red, which their drawing leaves out.
const vCOLOUR RadioKey(255, 0, 0);

// The radio button is made with every type bit of the platform's button set,
// against the owner-drawn type of the check box; the radio buttons of
// existing programs were made so, and it is kept.
const DWORD RadioStyle = BS_TYPEMASK;
const DWORD CheckStyle = BS_OWNERDRAW;

// The gap between a mark and its label.
const long LabelGap = 6;

// What Confuse sends as the state; the third state's number goes in the
// other argument.
const WPARAM ConfuseCheck = 5;

// The label greys while the button is disabled.
const int GreyWhenDisabled = 1;

vBITMAP* Cut(const vRECT& cell)
{
    return new vBITMAP(vRESID(BMP_MARKS, zkCore), cell);
}

// The label starts behind the mark, keeping its width.
void PlaceLabelBehind(const vBITMAP& mark, long& left, long& labelLeft, long& labelRight)
{
    left = mark.Size().Width()() + LabelGap;
    labelRight += left - labelLeft;
    labelLeft = left;
}

// The whole control in its background colour, with no outline.
void Wipe(vCONTROL& control)
{
    control.LineSpec(vLINESPEC(vLINE_NONE, vCOLOUR(0, 0, 0), 1, vCORNER_BEVEL, vDASH_DOT, nullptr));
    control.FillSpec(vFILLSPEC(vFILL_SOLID, control.BackgroundColour(), vCOLOUR(0, 0, 0), vANGLE(), vFILL_ALTERNATE));
    control.ClientSize().Draw(control);
}

// The button's own rectangle and the ends of its label, which the painting
// narrows to the text.
struct LABEL {
    long& left;
    long& top;
    long& right;
    long& bottom;
    long& labelLeft;
    long& labelRight;
};

// Draws the label to the right of the mark and shrinks the label's
// rectangle, and with it the focus frame, to the text.
void DrawLabelBehind(vCONTROL& control, const LABEL& label)
{
    vRECT place(label.left, label.top, label.right, label.bottom);
    unsigned short width = control.DrawLabel(place, vTEXT_LEFT, GreyWhenDisabled);
    label.right = label.left + width;
    label.labelRight = label.labelLeft + width;
}

// The mark stands at the left, half the plain mark's width in from the edge,
// in the middle of the height; without a key colour it is drawn whole.
void DrawMark(vCONTROL& control, const vBITMAP& normal, const vBITMAP* mark, const LABEL& label, const vCOLOUR* key)
{
    if (!mark)
        return;
    vPOINT centre(normal.Size().Width()() / 2 + 1, (label.top + label.bottom) / 2);
    if (key)
        mark->DrawTransparent(control, centre, *key);
    else
        mark->Draw(control, centre);
}

void FocusFrame(const LABEL& label)
{
    RECT frame = {label.left, label.top, label.right, label.bottom};
    DrawFocusRect(vDEVICE::GetZKDC(), &frame);
}

// What both buttons paint alike: for the whole item the control wiped, the
// label, the mark and, with the focus, its frame; for a change of focus the
// frame alone, which inverting draws and wipes.
int PaintItem(vCONTROL& control, const tagDRAWITEMSTRUCT& item, const LABEL& label, const vBITMAP& normal,
              const vBITMAP* mark, const vCOLOUR* key)
{
    if (item.itemAction != ODA_DRAWENTIRE && item.itemAction != ODA_FOCUS)
        return 1;
    control.BeginDraw(item.hDC);
    control.ClearClipArea();
    if (item.itemAction == ODA_DRAWENTIRE) {
        Wipe(control);
        DrawLabelBehind(control, label);
        DrawMark(control, normal, mark, label, key);
    }
    if (item.itemAction == ODA_FOCUS || item.itemState & ODS_FOCUS)
        FocusFrame(label);
    control.EndDraw();
    return 1;
}

}  // namespace

// ------------------------------------------------------------------ vRADIOBTN

vRADIOBTN::vRADIOBTN(const vWIN& parent, const vCTRLID& id, const vSTRING& caption, const vRECT& rect,
                     vCLASSID classId)
    : vBUTTON(parent, id, caption, rect, 0, classId), groupFirst(0), groupLast(0), checked(0),
      normalMark(Cut(RadioNormalCell)), selectedMark(Cut(RadioSelectedCell)), disabledMark(Cut(RadioDisabledCell))
{
    // A window made from code does not exist yet, so its title is empty: the
    // label is drawn from the kept text.
    vSTRING title = vBUTTON::Text();
    CreateParams.lpszTitle = title();
    PlaceLabelBehind(*normalMark, left, labelLeft, labelRight);
    if (classId == CLASSID_RADIOBTN)
        CreateOrAdopt(RadioStyle);
    BackgroundColour(GetScreen().Colour(vSCREEN_3DFACE));
}

vRADIOBTN::~vRADIOBTN()
{
    delete normalMark;
    delete selectedMark;
    delete disabledMark;
}

vCONTROL* vRADIOBTN::New(vWIN& parent, vCTRLID& id, vRESID& text)
{
    return new vRADIOBTN(parent, id, vSTRING(text), vRECT(-1, -1, -1, -1), CLASSID_RADIOBTN);
}

vCLASSID vRADIOBTN::GetClassID()
{
    return CLASSID_RADIOBTN;
}

// The platform's button does all of a click, and its check state goes on to
// it as well; the push button's handling is skipped.
int vRADIOBTN::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case BM_SETCHECK:
        if (checked != static_cast<long>(wParam)) {
            checked = wParam;
            InvalidateRect(hWnd, nullptr, FALSE);
        }
        result = 0;
        return 0;
    case WM_LBUTTONDOWN:
        return 0;
    default:
        return vCONTROL::MsgHandler(message, wParam, lParam, result);
    }
}

// The platform's button of the radio's type paints nothing and asks no one
// to, so the radio asks its parent for the item itself, as the platform's
// owner-drawn button would: the parent's dispatch hands it to ccPaint.
int vRADIOBTN::DoDraw()
{
    PAINTSTRUCT paint;
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_BUTTON;
    item.CtlID = id;
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = (::GetFocus() == hWnd ? ODS_FOCUS : 0) | (Enabled() ? 0 : ODS_DISABLED);
    item.hwndItem = hWnd;
    item.hDC = BeginPaint(hWnd, &paint);
    GetClientRect(hWnd, &item.rcItem);
    SendMessageA(GetParent(hWnd), WM_DRAWITEM, id, reinterpret_cast<LPARAM>(&item));
    EndPaint(hWnd, &paint);
    return 1;
}

void vRADIOBTN::Notification(long code)
{
    if (code == BN_CLICKED)
        Select();
}

// Without a group both bounds are 0, and the platform checks no button.
void vRADIOBTN::Select()
{
    CheckRadioButton((*Parent())(), groupFirst, groupLast, id);
}

int vRADIOBTN::Selected()
{
    return checked;
}

// Crossed ends name no identifier, and nothing changes.
int vRADIOBTN::SetGroup(const vRADIOBTN& first, const vRADIOBTN& last)
{
    HWND parent = (*Parent())();
    int any = 0;
    for (long at = first.GetID(); at <= static_cast<long>(last.GetID()); ++at) {
        HWND item = GetDlgItem(parent, at);
        vRADIOBTN* radio = item ? dynamic_cast<vRADIOBTN*>(Instance(item)) : nullptr;
        if (radio && radio->GetClassID() == CLASSID_RADIOBTN) {
            radio->groupFirst = first.GetID();
            radio->groupLast = last.GetID();
            any = 1;
        }
    }
    return any;
}

const vBITMAP* vRADIOBTN::ShownMark()
{
    const vBITMAP* chosen = normalMark;
    if (!Enabled())
        chosen = disabledMark;
    else if (Selected())
        chosen = selectedMark;
    return chosen ? chosen : normalMark;
}

int vRADIOBTN::ccPaint(tagDRAWITEMSTRUCT* item)
{
    LABEL label = {left, top, right, bottom, labelLeft, labelRight};
    return PaintItem(*this, *item, label, *normalMark, ShownMark(), &RadioKey);
}

// ------------------------------------------------------------------ vCHECKBOX

vCHECKBOX::vCHECKBOX(const vWIN& parent, const vCTRLID& id, const vSTRING& caption, const vRECT& rect,
                     vCLASSID classId)
    : vBUTTON(parent, id, caption, rect, 0, classId), normalMark(Cut(CheckNormalCell)),
      checkedMark(Cut(CheckCheckedCell)), confusedMark(Cut(CheckConfusedCell)), disabledMark(Cut(CheckDisabledCell)),
      state(0)
{
    vSTRING title = vBUTTON::Text();
    CreateParams.lpszTitle = title();
    PlaceLabelBehind(*normalMark, left, labelLeft, labelRight);
    if (classId == CLASSID_CHECKBOX)
        CreateOrAdopt(CheckStyle);
    BackgroundColour(GetScreen().Colour(vSCREEN_3DFACE));
}

vCHECKBOX::~vCHECKBOX()
{
    delete normalMark;
    delete checkedMark;
    delete confusedMark;
    delete disabledMark;
}

vCONTROL* vCHECKBOX::New(vWIN& parent, vCTRLID& id, vRESID& text)
{
    return new vCHECKBOX(parent, id, vSTRING(text), vRECT(-1, -1, -1, -1), CLASSID_CHECKBOX);
}

int vCHECKBOX::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case BM_SETCHECK:
        if (state != wParam) {
            state = static_cast<unsigned short>(wParam);
            InvalidateRect(hWnd, nullptr, FALSE);
        }
        result = 0;
        return 0;
    case WM_LBUTTONDOWN:
        return 0;
    default:
        return vCONTROL::MsgHandler(message, wParam, lParam, result);
    }
}

// The platform's owner-drawn button paints by asking for the item.
int vCHECKBOX::DoDraw()
{
    return 0;
}

// From the third state a click checks.
void vCHECKBOX::Notification(long code)
{
    if (code != BN_CLICKED && code != BN_DOUBLECLICKED)
        return;
    if (Checked())
        Uncheck();
    else
        Check();
}

void vCHECKBOX::Check()
{
    SendMessageA(hWnd, BM_SETCHECK, BST_CHECKED, 0);
}

void vCHECKBOX::Uncheck()
{
    SendMessageA(hWnd, BM_SETCHECK, BST_UNCHECKED, 0);
}

// The two numbers stand crossed: the state becomes 5, which is neither
// checked nor the third state. Programs that call it rely on that, so it is
// kept; the third state is reached only by BM_SETCHECK with 2.
void vCHECKBOX::Confuse()
{
    SendMessageA(hWnd, BM_SETCHECK, ConfuseCheck, BST_INDETERMINATE);
}

int vCHECKBOX::Checked()
{
    return state == BST_CHECKED;
}

int vCHECKBOX::Confused()
{
    return state == BST_INDETERMINATE;
}

// Disabled goes before the state.
const vBITMAP* vCHECKBOX::ShownMark()
{
    const vBITMAP* chosen = normalMark;
    if (!Enabled())
        chosen = disabledMark;
    else if (Checked())
        chosen = checkedMark;
    else if (Confused())
        chosen = confusedMark;
    return chosen ? chosen : normalMark;
}

int vCHECKBOX::ccPaint(tagDRAWITEMSTRUCT* item)
{
    LABEL label = {left, top, right, bottom, labelLeft, labelRight};
    return PaintItem(*this, *item, label, *normalMark, ShownMark(), nullptr);
}
