#include "app/window.h"

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

}  // namespace

int vWIN::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case WM_SIZE:
        DoSize(wParam, lParam);
        return 0;
    case WM_ACTIVATE:
        LOWORD(wParam) ? vActivate() : vDeactivate();
        return 0;
    case WM_SETFOCUS:
        vGetFocus();
        return 0;
    case WM_KILLFOCUS:
        vReleaseFocus(Instance(reinterpret_cast<HWND>(wParam)));
        return 0;
    case WM_PAINT:
        return GetUpdateRect(hWnd, nullptr, FALSE) ? DoDraw() : 0;
    case WM_CLOSE:
        return DoClose();
    case WM_ERASEBKGND:
        return Answer(DoEraseBkGnd(wParam, lParam), result);
    case WM_WININICHANGE:
        return wParam == SPI_SETNONCLIENTMETRICS ? vSettingChange() : 0;
    case WM_SETCURSOR:
        return Answer(DoSetCursor(), result);
    case WM_DRAWITEM:
        return DoDrawItem(wParam, reinterpret_cast<DRAWITEMSTRUCT*>(lParam), result);
    case WM_MEASUREITEM:
        return DoMeasureItem(wParam, reinterpret_cast<MEASUREITEMSTRUCT*>(lParam), result);
    case WM_DELETEITEM:
        return Answer(1, result);
    case WM_COMPAREITEM:
        return DoCompareItem(wParam, reinterpret_cast<COMPAREITEMSTRUCT*>(lParam), result);
    case WM_KEYDOWN:
        vKeyDown();
        return MSTranslateKey(wParam);
    case WM_CHAR:
        return vCharacterKey(vCHAR(wParam & 0xFF));
    case WM_COMMAND:
        DoCommand(wParam, lParam);
        return 0;
    case WM_TIMER:
        vTimer(vRESID(wParam, vSYSTEM::Pointer()));
        return 0;
    case WM_HSCROLL:
        DoHScroll(wParam, lParam);
        return 0;
    case WM_VSCROLL:
        DoVScroll(wParam, lParam);
        return 0;
    default:
        return MouseMessage(message, wParam, lParam, result);
    }
}

// Non-zero answers also become the result the platform gets.
int vWIN::Answer(int handled, LRESULT& result)
{
    if (handled)
        result = 1;
    return handled;
}

int vWIN::MouseMessage(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case WM_MOUSEMOVE:
        ClaimPointer();
        return DoMouseMove(wParam, lParam);
    case WM_LBUTTONDOWN:
        return DoLButtonDown(wParam, lParam);
    case WM_LBUTTONUP:
        return DoLButtonUp(wParam, lParam);
    case WM_LBUTTONDBLCLK:
        vMouseLeftDoublePress(PointOf(lParam));
        return 0;
    case WM_RBUTTONDOWN:
        vMouseRightPress(PointOf(lParam));
        return 0;
    case WM_RBUTTONUP:
        vMouseRightRelease(PointOf(lParam));
        return 0;
    case WM_RBUTTONDBLCLK:
        vMouseRightDoublePress(PointOf(lParam));
        return 0;
    case WM_MBUTTONDOWN:
        vMouseMiddlePress(PointOf(lParam));
        return 0;
    case WM_MBUTTONUP:
        vMouseMiddleRelease(PointOf(lParam));
        return 0;
    case WM_MBUTTONDBLCLK:
        vMouseMiddleDoublePress(PointOf(lParam));
        return 0;
    default:
        return FrameMessage(message, wParam, lParam, result);
    }
}

int vWIN::FrameMessage(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case WM_DROPFILES:
        vSYSTEM::Trace(1, "vWIN::WM_DROPFILES");
        return 0;
    case WM_NCMOUSEMOVE:
        return DoNCMouseMove(wParam, lParam);
    case WM_NCLBUTTONDOWN:
        return DoNCLButtonDown(wParam, lParam);
    case WM_NCLBUTTONUP:
        return DoNCLButtonUp();
    case WM_QUERYNEWPALETTE:
        result = 1;
        return pApp ? pApp->PaletteChange(hWnd, 1) : 0;
    default:
        return DispatchRegistered(message, wParam, result);
    }
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

void vWIN::DoCommand(WPARAM wParam, LPARAM)
{
    vCTRLID control(LOWORD(wParam));
    vWIN* child = control ? BoundChild(hWnd, control) : nullptr;
    if (child)
        child->NotifyPeerControls(control);
    vCommand(vCTRLID(wParam));
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
// right. The vertical steps are not crossed.
void vWIN::DoHScroll(WPARAM wParam, LPARAM lParam)
{
    if (lParam)
        return;
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
    if (lParam)
        return;
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
// function keys are told by the raw key itself.
int vWIN::MSTranslateKey(long key)
{
    vKEYBOARD& keyboard = vSYSTEM::GetKeyboard();
    switch (keyboard.KeyCode()) {
    case VK_BACK:
        return vBackspaceKey();
    case VK_TAB:
        return keyboard.Ctr() ? vCtrTab() : vTabKey();
    case VK_RETURN:
        return vEnterKey();
    case VK_ESCAPE:
        return vEscapeKey();
    case VK_PRIOR:
        return vPageUpKey();
    case VK_NEXT:
        return vPageDownKey();
    case VK_END:
        return vEndKey();
    case VK_HOME:
        return vHomeKey();
    default:
        return MoveKey(keyboard.KeyCode(), key);
    }
}

int vWIN::MoveKey(unsigned short code, long key)
{
    switch (code) {
    case VK_LEFT:
        return vArrowLeftKey();
    case VK_UP:
        return vArrowUpKey();
    case VK_RIGHT:
        return vArrowRightKey();
    case VK_DOWN:
        return vArrowDownKey();
    case VK_INSERT:
        return vInsertKey();
    case VK_DELETE:
        return vDeleteKey();
    default:
        return key >= VK_F1 && key <= VK_F24 ? vFunctionKey(key - (VK_F1 - 1)) : 0;
    }
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
