#include "app/pointer.h"

#include "app/window.h"
#include "base/system.h"

int vPOINTER::bCaptured = 0;
int vPOINTER::bTraped = 0;

namespace {

// Set when the mouse has gone where this library does not choose the cursor
// (the frame, another program); the next window to claim the mouse puts its
// own form back.
int pointerOff = 0;
vWIN* activeOwner = nullptr;

short Narrow(const vINT& value)
{
    return static_cast<short>(value());
}

// A rectangle one unit wide or high is how a caller asks for the whole
// client area without having to know its size.
void Confine(vWIN& owner, const vRECT& rect)
{
    vRECT area = rect.Width() == 1 || rect.Height() == 1 ? owner.ClientSize() : rect;
    vPOINT topLeft = owner.ClientToScreen(area.TopLeft());
    vPOINT bottomRight = owner.ClientToScreen(area.BottomRight());
    RECT clip = {Narrow(topLeft.x), Narrow(topLeft.y), Narrow(bottomRight.x), Narrow(bottomRight.y)};
    ClipCursor(&clip);
}

}  // namespace

struct vPOINTER::FORMNODE {
    vRESID form;
    FORMNODE* next;
};

// The window hands itself over while it is being made; the pointer acts on
// it later through a plain pointer, as every link of a window does.
vPOINTER::vPOINTER(const vWIN* owner)
    : pOwner(const_cast<vWIN*>(owner)), pStackTop(nullptr), nStack(0), current(), hCursor(nullptr)
{
    bTraped = 0;
    bCaptured = 0;
}

vPOINTER::~vPOINTER()
{
    while (pStackTop)
        PopForm();
    // The platform's own cursors are shared by every program and are never
    // the library's to destroy.
    if (hCursor && current.Instance())
        DestroyCursor(hCursor);
}

void vPOINTER::On()
{
    if (!pointerOff)
        return;
    Form(current);
    pointerOff = 0;
}

void vPOINTER::Off()
{
    pointerOff = 1;
}

vWIN* vPOINTER::ActiveOwner(vWIN* window)
{
    vWIN* previous = activeOwner;
    if (window)
        activeOwner = window;
    return previous;
}

int vPOINTER::Activate()
{
    if (pointerOff)
        return 0;
    activeOwner = pOwner;
    if (hCursor)
        SetCursor(hCursor);
    return 1;
}

void vPOINTER::Form(const vRESID& form)
{
    if (form() == 0) {
        Form(PF_ARROW);
        return;
    }
    vRESID old = current;
    HCURSOR previous = hCursor;
    current = form;
    hCursor = LoadCursorA(form.Instance(), MAKEINTRESOURCEA(form()));
    // The cursor on the screen should have been this pointer's own; if some
    // other code set one meanwhile, that one is the cursor being replaced.
    HCURSOR actual = SetCursor(hCursor);
    // At the level of small service objects: every new window meets this,
    // for its first form finds some other cursor on the screen.
    if (actual != previous) {
        vSYSTEM::Trace(3, "vPOINTER::Form - Error, discrapency between cursors");
        previous = actual;
    }
    if (previous && old.Instance() && hCursor != previous)
        DestroyCursor(previous);
}

void vPOINTER::Form(vPOINTERFORM form)
{
    Form(vRESID(form, static_cast<const vMODULE*>(nullptr)));
}

void vPOINTER::PushForm()
{
    FORMNODE* node = new FORMNODE{current, pStackTop};
    if (!node)
        return;
    pStackTop = node;
    ++nStack;
}

void vPOINTER::PopForm()
{
    FORMNODE* node = pStackTop;
    if (!node)
        return;
    pStackTop = node->next;
    --nStack;
    vRESID form = node->form;
    delete node;
    Form(form);
}

vPOINT vPOINTER::ScrnPosition()
{
    POINT point;
    GetCursorPos(&point);
    return vPOINT(point.x, point.y);
}

void vPOINTER::ScrnPosition(const vPOINT& point)
{
    SetCursorPos(Narrow(point.x), Narrow(point.y));
}

vWIN* vPOINTER::OverZKWindow()
{
    POINT point;
    GetCursorPos(&point);
    return vWIN::Instance(WindowFromPoint(point));
}

vPOINT vPOINTER::Position()
{
    POINT point;
    GetCursorPos(&point);
    ScreenToClient((*pOwner)(), &point);
    return pOwner->DPtoLP(vPOINT(point.x, point.y));
}

void vPOINTER::Position(const vPOINT& point)
{
    vPOINT screen = pOwner->ClientToScreen(point);
    SetCursorPos(screen.x(), screen.y());
}

void vPOINTER::Capture(int confine, vRECT& rect)
{
    activeOwner = pOwner;
    bCaptured = 1;
    if (confine) {
        Confine(*pOwner, rect);
        bTraped = 1;
    }
    SetCapture((*pOwner)());
}

void vPOINTER::Release()
{
    if (!bCaptured)
        return;
    if (bTraped)
        ClipCursor(nullptr);
    bCaptured = 0;
    bTraped = 0;
    activeOwner = nullptr;
    ReleaseCapture();
}

int vPOINTER::Show()
{
    return ShowCursor(TRUE);
}

int vPOINTER::Hide()
{
    return ShowCursor(FALSE);
}
