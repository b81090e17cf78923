#include "app/window.h"

#include <array>

#include "app/application.h"
#include "app/pointer.h"
#include "controls/control.h"

namespace {

// Mouse points stay in client device units: dispatch converts nothing.
vPOINT PointOf(long lParam)
{
    return vPOINT(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
}

// The primary button is the right one while the buttons are swapped.
int PrimaryButtonDown()
{
    BOOL swapped = SwapMouseButton(FALSE);
    SwapMouseButton(swapped);
    return GetAsyncKeyState(swapped ? VK_RBUTTON : VK_LBUTTON) < 0;
}

int IsFrameHit(unsigned int hit)
{
    return hit == HTCAPTION || (hit >= HTLEFT && hit <= HTBOTTOMRIGHT);
}

// Non-zero answers also become the result the platform gets.
int Answer(int handled, LRESULT& result)
{
    if (handled)
        result = 1;
    return handled;
}

// One message the window handles itself. The row answers whether the message
// counts as handled, which keeps it from the saved procedure, and sets the
// result the platform gets only where it says so.
struct ROUTE {
    UINT message;
    int (*handle)(vWIN& win, WPARAM wParam, LPARAM lParam, LRESULT& result);
};

// The usual forms of a row. Tell and TellPoint run the handler and let the
// default processing follow whatever it answered; Ask makes the translator's
// answer the row's.
template <void (vWIN::*TRANSLATOR)(WPARAM, LPARAM)>
int Tell(vWIN& win, WPARAM wParam, LPARAM lParam, LRESULT&)
{
    (win.*TRANSLATOR)(wParam, lParam);
    return 0;
}

template <int (vWIN::*HANDLER)(const vPOINT&)>
int TellPoint(vWIN& win, WPARAM, LPARAM lParam, LRESULT&)
{
    (win.*HANDLER)(PointOf(lParam));
    return 0;
}

template <int (vWIN::*TRANSLATOR)(WPARAM, LPARAM)>
int Ask(vWIN& win, WPARAM wParam, LPARAM lParam, LRESULT&)
{
    return (win.*TRANSLATOR)(wParam, lParam);
}

// The owner-drawn item messages carry the control's identifier and the item.
template <typename ITEM, int (vWIN::*TRANSLATOR)(unsigned int, ITEM*, LRESULT&)>
int AskItem(vWIN& win, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    return (win.*TRANSLATOR)(wParam, reinterpret_cast<ITEM*>(lParam), result);
}

// Where each message below WM_USER stands in a table of routes, counted from
// 1, and 0 for a message the table does not hold.
template <size_t ROWS>
constexpr std::array<unsigned char, WM_USER> RowsByMessage(const ROUTE (&routes)[ROWS])
{
    static_assert(ROWS < 256, "a row number fits in a byte");
    std::array<unsigned char, WM_USER> rows{};
    for (size_t row = 0; row < ROWS; ++row)
        rows[routes[row].message] = static_cast<unsigned char>(row + 1);
    return rows;
}

// A key that the keyboard's code names, and its handler.
struct KEYROUTE {
    vKEYCODE code;
    int (vWIN::*handle)();
};

// The character a key message carries is in the low byte.
const WPARAM CharacterBits = 0xFF;

}  // namespace

// Every message the table holds is below WM_USER, so a message's row is found
// by its number rather than by a search; the messages that the family
// registers have no constant values and are compared after it.
int vWIN::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    static constexpr ROUTE routes[] = {
        // Window events.
        {WM_SIZE, Tell<&vWIN::DoSize>},
        {WM_ACTIVATE,
         [](vWIN& w, WPARAM wp, LPARAM, LRESULT&) { LOWORD(wp) ? w.vActivate() : w.vDeactivate(); return 0; }},
        {WM_SETFOCUS, [](vWIN& w, WPARAM, LPARAM, LRESULT&) { w.vGetFocus(); return 0; }},
        {WM_KILLFOCUS,
         [](vWIN& w, WPARAM wp, LPARAM, LRESULT&) { w.vReleaseFocus(Instance(reinterpret_cast<HWND>(wp))); return 0; }},
        {WM_CLOSE, [](vWIN& w, WPARAM, LPARAM, LRESULT&) { return w.DoClose(); }},
        {WM_WININICHANGE,
         [](vWIN& w, WPARAM wp, LPARAM, LRESULT&) { return wp == SPI_SETNONCLIENTMETRICS ? w.vSettingChange() : 0; }},
        {WM_COMMAND, Tell<&vWIN::DoCommand>},
        {WM_TIMER, [](vWIN& w, WPARAM wp, LPARAM, LRESULT&) { w.vTimer(vRESID(wp, vSYSTEM::Pointer())); return 0; }},
        // Painting.
        {WM_PAINT,
         [](vWIN& w, WPARAM, LPARAM, LRESULT&) { return GetUpdateRect(w.hWnd, nullptr, FALSE) ? w.DoDraw() : 0; }},
        {WM_ERASEBKGND, [](vWIN& w, WPARAM wp, LPARAM lp, LRESULT& r) { return Answer(w.DoEraseBkGnd(wp, lp), r); }},
        {WM_QUERYNEWPALETTE,
         [](vWIN& w, WPARAM, LPARAM, LRESULT& r) { r = 1; return w.pApp ? w.pApp->PaletteChange(w.hWnd, 1) : 0; }},
        // The mouse.
        {WM_MOUSEMOVE, [](vWIN& w, WPARAM wp, LPARAM lp, LRESULT&) { w.ClaimPointer(); return w.DoMouseMove(wp, lp); }},
        {WM_SETCURSOR, [](vWIN& w, WPARAM, LPARAM, LRESULT& r) { return Answer(w.DoSetCursor(), r); }},
        {WM_LBUTTONDOWN, Ask<&vWIN::DoLButtonDown>},
        {WM_LBUTTONUP, Ask<&vWIN::DoLButtonUp>},
        {WM_LBUTTONDBLCLK, TellPoint<&vWIN::vMouseLeftDoublePress>},
        {WM_RBUTTONDOWN, TellPoint<&vWIN::vMouseRightPress>},
        {WM_RBUTTONUP, TellPoint<&vWIN::vMouseRightRelease>},
        {WM_RBUTTONDBLCLK, TellPoint<&vWIN::vMouseRightDoublePress>},
        {WM_MBUTTONDOWN, TellPoint<&vWIN::vMouseMiddlePress>},
        {WM_MBUTTONUP, TellPoint<&vWIN::vMouseMiddleRelease>},
        {WM_MBUTTONDBLCLK, TellPoint<&vWIN::vMouseMiddleDoublePress>},
        // Keys and scrolling.
        {WM_KEYDOWN, [](vWIN& w, WPARAM wp, LPARAM, LRESULT&) { w.vKeyDown(); return w.MSTranslateKey(wp); }},
        {WM_CHAR, [](vWIN& w, WPARAM wp, LPARAM, LRESULT&) { return w.vCharacterKey(vCHAR(wp & CharacterBits)); }},
        {WM_HSCROLL, Tell<&vWIN::DoHScroll>},
        {WM_VSCROLL, Tell<&vWIN::DoVScroll>},
        // Owner-drawn items.
        {WM_DRAWITEM, AskItem<DRAWITEMSTRUCT, &vWIN::DoDrawItem>},
        {WM_MEASUREITEM, AskItem<MEASUREITEMSTRUCT, &vWIN::DoMeasureItem>},
        {WM_DELETEITEM, [](vWIN&, WPARAM, LPARAM, LRESULT& r) { return Answer(1, r); }},
        {WM_COMPAREITEM, AskItem<COMPAREITEMSTRUCT, &vWIN::DoCompareItem>},
        // The frame and dropped files.
        {WM_NCMOUSEMOVE, Ask<&vWIN::DoNCMouseMove>},
        {WM_NCLBUTTONDOWN, Ask<&vWIN::DoNCLButtonDown>},
        {WM_NCLBUTTONUP, [](vWIN& w, WPARAM, LPARAM, LRESULT&) { return w.DoNCLButtonUp(); }},
        {WM_DROPFILES, [](vWIN&, WPARAM, LPARAM, LRESULT&) { vSYSTEM::Trace(1, "vWIN::WM_DROPFILES"); return 0; }},
    };
    static constexpr auto rowOf = RowsByMessage(routes);
    if (message < rowOf.size() && rowOf[message])
        return routes[rowOf[message] - 1].handle(*this, wParam, lParam, result);
    return DispatchRegistered(message, wParam, result);
}

// The messages that the programs of the family share. The family message
// is answered by every window, whatever it overrides.
int vWIN::DispatchRegistered(unsigned int message, WPARAM wParam, LRESULT& result)
{
    if (message == vSYSTEM::GetPaletteChangeMsg()) {
        vSYSTEM::Trace(1, "vWIN - DoPaletteChanged");
        return DoPaletteChanged(wParam);
    }
    if (message == vSYSTEM::GetTavikMessage()) {
        result = 0x0B0B0B0B;
        return 1;
    }
    if (message == vSYSTEM::GetZKKillMsg() && pApp)
        pApp->Close();
    return 0;
}

// A refused close also ends the window's acceptance of dropped files; that
// is how it has always behaved, and it stays.
int vWIN::DoClose()
{
    if (vQueryClose())
        return 0;
    DragAcceptFiles(hWnd, FALSE);
    return 1;
}

int vWIN::DoSetCursor()
{
    if (pApp && pApp->bBusy) {
        SetCursor(LoadCursorA(nullptr, IDC_WAIT));
        return 1;
    }
    return pPointer->Activate();
}

// The window takes the pointer back when the mouse comes in from another
// window, which restores its own form.
void vWIN::ClaimPointer()
{
    if (vPOINTER::ActiveOwner(nullptr) != this) {
        vPOINTER::Off();
        vPOINTER::ActiveOwner(this);
    }
    pPointer->On();
}

int vWIN::DoMouseMove(WPARAM, LPARAM lParam)
{
    vPOINT point = PointOf(lParam);
    if (vCONTROL::CurHintedCtr != GetID())
        vCONTROL::CurHintedCtr = GetID();
    // Only a drag start needs the button, and reading it costs three trips to
    // the window server; it is therefore read last, when the point has left a
    // hot zone. The answer is the same as reading it first.
    if (!isDragging && rectDragHotZone != vRECT(0, 0, 0, 0) && !(rectDragHotZone ^ point) && PrimaryButtonDown()) {
        isDragging = 1;
        vDragInit(point);
        isDragging = 0;
    }
    if (isDragging)
        return DragFeedbackAt(point);
    return vMouseMove(point);
}

// A move that arrives while vDragInit runs shows whether a drop would land.
int vWIN::DragFeedbackAt(const vPOINT& point)
{
    vPOINT screen = ClientToScreen(point);
    POINT platform = {screen.x(), screen.y()};
    HWND target = GetDropWindowHandle(WindowFromPoint(platform));
    vDragFeedback(target ? 1 : 0, point);
    return 1;
}

int vWIN::DoLButtonDown(WPARAM, LPARAM lParam)
{
    return vMouseLeftPress(PointOf(lParam));
}

int vWIN::DoLButtonUp(WPARAM, LPARAM lParam)
{
    return vMouseLeftRelease(PointOf(lParam));
}

void vWIN::DoCommand(WPARAM wParam, LPARAM lParam)
{
    vCTRLID control(LOWORD(wParam));
    vWIN* child = control ? BoundChild(hWnd, control) : nullptr;
    if (child) {
        if (!PassesSelection(*child, HIWORD(wParam), lParam))
            return;
        child->NotifyPeerControls(control);
    }
    vCommand(vCTRLID(wParam));
}

// Of a list's notifications only the change of selection goes on, and the
// list hears of it first. Every other control's notification goes on as it is.
int vWIN::PassesSelection(vWIN& child, unsigned short code, LPARAM lParam)
{
    UINT ask = 0;
    HWND list = child.hWnd;
    switch (child.GetClassID()) {
    case CLASSID_LISTBOX:
        if (code != LBN_SELCHANGE)
            return 0;
        // The style asked is this window's, not the list's, and that is kept:
        // a parent made with the multiple-selection bit reads the caret.
        ask = GetWindowLongA(hWnd, GWL_STYLE) & LBS_MULTIPLESEL ? LB_GETCARETINDEX : LB_GETCURSEL;
        break;
    case CLASSID_DROPLISTBOX:
        if (code != CBN_SELENDOK)
            return 0;
        // The list's message, which a combo box does not know: the index
        // reported is always 0, and that is kept for the programs that count
        // on it. A drop-down list that needs its index reads it itself.
        ask = LB_GETCURSEL;
        list = reinterpret_cast<HWND>(lParam);
        break;
    default:
        return 1;
    }
    LRESULT index = SendMessageA(list, ask, 0, 0);
    static_cast<vLISTBOX&>(child).vSelectionChange(static_cast<unsigned short>(index));
    return 1;
}

// Owner-drawn items go to the control that owns them; a child that is no
// control of the library counts as none.
vCONTROL* vWIN::ControlChild(unsigned int controlId)
{
    return dynamic_cast<vCONTROL*>(Child(vCTRLID(static_cast<unsigned short>(controlId))));
}

int vWIN::DoDrawItem(unsigned int controlId, DRAWITEMSTRUCT* item, LRESULT& result)
{
    vCONTROL* control = ControlChild(controlId);
    if (!control) {
        vSYSTEM::Trace(0, "WM_DRAWITEM-No Control");
        return 0;
    }
    result = control->ccPaint(item);
    return 1;
}

// The message comes while an owner-drawn control is being created, before
// its handle is bound; the window under construction answers then.
int vWIN::DoMeasureItem(unsigned int controlId, MEASUREITEMSTRUCT* item, LRESULT& result)
{
    vCONTROL* control = ControlChild(controlId);
    if (!control)
        control = dynamic_cast<vCONTROL*>(NewedThis);
    if (!control)
        return 0;
    vSIZE size = control->ItemSize();
    item->itemWidth = static_cast<short>(size.Width()());
    item->itemHeight = static_cast<short>(size.Height()());
    result = 1;
    return 1;
}

// Item data are text pointers.
int vWIN::DoCompareItem(unsigned int controlId, COMPAREITEMSTRUCT* item, LRESULT& result)
{
    vCONTROL* control = ControlChild(controlId);
    if (!control)
        return 0;
    vSTRING first("%s", reinterpret_cast<const char*>(item->itemData1));
    vSTRING second("%s", reinterpret_cast<const char*>(item->itemData2));
    result = control->vCompare(first, second);
    return 1;
}

void vWIN::DoSize(WPARAM wParam, LPARAM)
{
    if (wParam == SIZE_MINIMIZED)
        vIconize();
    else
        vSize(ClientSize());
}

// The paint context comes clipped to the update region, so the device's own
// clip area is cleared for the pass and after it.
int vWIN::DoDraw()
{
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(hWnd, &paint);
    BeginDraw(dc);
    ClearClipArea();
    const RECT& box = paint.rcPaint;
    int drawn = vDraw(DPtoLP(vRECT(box.left, box.top, box.right, box.bottom)));
    EndDraw();
    EndPaint(hWnd, &paint);
    ClearClipArea();
    return drawn;
}

// A window without WINF_ERASE reports its background as erased: scroll bars
// and other opaque windows suppress the erase that way. The clip area set
// here stays on the device after the erase.
int vWIN::DoEraseBkGnd(WPARAM wParam, LPARAM)
{
    if (!(flags & WINF_ERASE))
        return 1;
    HDC dc = reinterpret_cast<HDC>(wParam);
    RECT box;
    GetClipBox(dc, &box);
    ClearClipArea();
    ClipArea(DPtoLP(vRECT(box.left, box.top, box.right, box.bottom)));
    BeginDraw(dc);
    int erased = vEraseBkg();
    EndDraw();
    return erased;
}

// The fill specification is left set on purpose: whatever draws next finds
// the background's fill.
int vWIN::vEraseBkg()
{
    vRECT area = ClientSize();
    area.Right(area.Right() + 1);
    area.Bottom(area.Bottom() + 1);
    PushLineSpec();
    LineSpec(vLINESPEC(vLINE_NONE, vCOLOUR(), 1, vCORNER_MITRE, vDASH_SOLID, nullptr));
    FillSpec(vFILLSPEC(vFILL_SOLID, BackgroundColour(), vCOLOUR(), vANGLE(short(0)), vFILL_ALTERNATE));
    area.Draw(*this);
    PopLineSpec();
    return 1;
}

// Left and right are crossed on purpose: a line to the left scrolls the view
// right. The vertical steps are not crossed. A message from a free-standing
// bar goes to the windows attached to it, in both directions as horizontal
// and with the thumb position standing for the code: attached windows have
// always heard bars that way. A bar that is no object of the library is
// passed over.
void vWIN::DoHScroll(WPARAM wParam, LPARAM lParam)
{
    if (lParam) {
        if (vSCROLLBAR* bar = dynamic_cast<vSCROLLBAR*>(Instance(reinterpret_cast<HWND>(lParam))))
            bar->ScrollHandler(WM_HSCROLL, HIWORD(wParam));
        return;
    }
    switch (LOWORD(wParam)) {
    case SB_LINELEFT:
        vScrollIncRight();
        break;
    case SB_LINERIGHT:
        vScrollIncLeft();
        break;
    case SB_PAGELEFT:
        vScrollPageRight();
        break;
    case SB_PAGERIGHT:
        vScrollPageLeft();
        break;
    }
}

void vWIN::DoVScroll(WPARAM wParam, LPARAM lParam)
{
    if (lParam) {
        if (vSCROLLBAR* bar = dynamic_cast<vSCROLLBAR*>(Instance(reinterpret_cast<HWND>(lParam))))
            bar->ScrollHandler(WM_HSCROLL, HIWORD(wParam));
        return;
    }
    switch (LOWORD(wParam)) {
    case SB_LINEUP:
        vScrollIncUp();
        break;
    case SB_LINEDOWN:
        vScrollIncDown();
        break;
    case SB_PAGEUP:
        vScrollPageUp();
        break;
    case SB_PAGEDOWN:
        vScrollPageDown();
        break;
    }
}

// Only a change made while the realising program was in the foreground
// repaints.
int vWIN::DoPaletteChanged(int foreground)
{
    if (!foreground)
        return 0;
    vSYSTEM::Trace(1, "DoPaletteChanged - Invalidate");
    Invalidate();
    return 1;
}

// The key code comes from the keyboard state that the message loop fed; the
// function keys are told by the raw key itself. Tab with Control held is a
// key of its own.
int vWIN::MSTranslateKey(long key)
{
    static const KEYROUTE keys[] = {
        {VK_BACK, &vWIN::vBackspaceKey},
        {VK_TAB, &vWIN::vTabKey},
        {VK_RETURN, &vWIN::vEnterKey},
        {VK_ESCAPE, &vWIN::vEscapeKey},
        {VK_PRIOR, &vWIN::vPageUpKey},
        {VK_NEXT, &vWIN::vPageDownKey},
        {VK_END, &vWIN::vEndKey},
        {VK_HOME, &vWIN::vHomeKey},
        {VK_LEFT, &vWIN::vArrowLeftKey},
        {VK_UP, &vWIN::vArrowUpKey},
        {VK_RIGHT, &vWIN::vArrowRightKey},
        {VK_DOWN, &vWIN::vArrowDownKey},
        {VK_INSERT, &vWIN::vInsertKey},
        {VK_DELETE, &vWIN::vDeleteKey},
    };
    const vKEYBOARD& keyboard = vSYSTEM::GetKeyboard();
    vKEYCODE code = keyboard.KeyCode();
    if (code == VK_TAB && keyboard.Ctr())
        return vCtrTab();
    for (const KEYROUTE& route : keys)
        if (route.code == code)
            return (this->*route.handle)();
    return key >= VK_F1 && key <= VK_F24 ? vFunctionKey(key - (VK_F1 - 1)) : 0;
}

int vWIN::DoNCLButtonDown(WPARAM hit, LPARAM lParam)
{
    if (!IsFrameHit(hit)) {
        fBorderDrag = 0;
        return 0;
    }
    fBorderDrag = 1;
    SetWindowPos(hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
    DoNCMouseMove(hit, lParam);
    return 1;
}

int vWIN::DoNCLButtonUp()
{
    if (!fBorderDrag)
        return 0;
    vRECT rect = Size();
    FrameDrag(0, nullptr, &rect);
    fBorderDrag = 0;
    return 1;
}
