#include "controls/control.h"

vTOGGLEBTN::vTOGGLEBTN(const vWIN& parent, const vCTRLID& id, const vSTRING& caption, const vRECT& rect,
                       vCLASSID classId)
    : vBUTTON(parent, id, caption, rect, 0, classId), recessed(0), tracking(0), toggled(0)
{
    if (classId != CLASSID_TOGGLEBTN)
        return;
    if (hWnd) {
        BindInstance(hWnd);
        SubClass();
        return;
    }
    CreateWin();
    // The push button's constructor gives its text to the window only for
    // its own class; a toggle made from code would otherwise stand blank.
    if (caption.Length()) {
        Text(caption);
        SetupText(Text());
    }
}

vCONTROL* vTOGGLEBTN::New(vWIN& parent, vCTRLID& id, vRESID& text)
{
    return new vTOGGLEBTN(parent, id, vSTRING(text), vRECT(-1, -1, -1, -1), CLASSID_TOGGLEBTN);
}

// The mouse is the toggle's own: a press and a release never reach the
// platform's button, whose handlers would click it. The focus and the
// double press go on to the platform after the toggle has seen them.
int vTOGGLEBTN::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case WM_KILLFOCUS:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
        return vCONTROL::MsgHandler(message, wParam, lParam, result);
    default:
        return vBUTTON::MsgHandler(message, wParam, lParam, result);
    }
}

// The edges count as outside.
int vTOGGLEBTN::StrictlyInside(const vPOINT& point) const
{
    return point.x() > left && point.x() < right && point.y() > top && point.y() < bottom;
}

int vTOGGLEBTN::vMouseLeftPress(const vPOINT&)
{
    pressed = recessed = tracking = 1;
    GetFocus();
    Selected(1);
    SetCapture(hWnd);
    InvalidateRect(hWnd, nullptr, TRUE);
    vDraw(*Bound());
    return 1;
}

// Leaving the button shows the lasting state again, whether a press is going
// on or not; coming back during a press presses it in.
int vTOGGLEBTN::vMouseMove(const vPOINT& point)
{
    if (!StrictlyInside(point)) {
        if (recessed) {
            recessed = 0;
            InvalidateRect(hWnd, nullptr, TRUE);
        }
        Selected(toggled);
        return 1;
    }
    if (!tracking)
        return 0;
    if (!recessed) {
        recessed = 1;
        InvalidateRect(hWnd, nullptr, TRUE);
    }
    if (!pressed)
        Selected(1);
    return 1;
}

// Only a release inside flips the lasting state.
int vTOGGLEBTN::vMouseLeftRelease(const vPOINT& point)
{
    recessed = tracking = pressed = 0;
    if (!StrictlyInside(point)) {
        ReleaseCapture();
        return 1;
    }
    toggled = !toggled;
    InvalidateRect(hWnd, nullptr, TRUE);
    Selected(toggled);
    ReleaseCapture();
    return vDraw(*Bound());
}

// The second press of a double click is a press that does not recess, and
// its release flips the state like any other.
int vTOGGLEBTN::vMouseLeftDoublePress(const vPOINT&)
{
    tracking = 1;
    SetCapture(hWnd);
    vDraw(*Bound());
    return 0;
}

void vTOGGLEBTN::Selected(int on)
{
    SendMessageA(hWnd, BM_SETSTATE, on, 0);
}

int vTOGGLEBTN::Selected()
{
    return pressed;
}

// The label moves further while the pointer holds the button in than while
// it only stays in.
RECT vTOGGLEBTN::ShownLabel() const
{
    RECT label = {labelLeft, labelTop, labelRight, labelBottom};
    if (recessed)
        OffsetRect(&label, 6, 4);
    else if (toggled)
        OffsetRect(&label, 1, 2);
    return label;
}

int vTOGGLEBTN::vDraw(const vRECT&)
{
    if (recessed)
        DoRecess();
    RECT label = ShownLabel();
    ActivateDC();
    DoLabel(label);
    if (::GetFocus() == hWnd)
        DrawFocusRect(GetZKDC(), &label);
    return 1;
}

// The focus frame is drawn by inverting, so drawing it again wipes it.
int vTOGGLEBTN::vReleaseFocus()
{
    RECT label = ShownLabel();
    DrawFocusRect(ActivateDC(), &label);
    return 1;
}

// The value is one byte; a dialog without a data block passes none.
void vTOGGLEBTN::SetupView(char* value, unsigned short)
{
    if (value)
        toggled = static_cast<signed char>(*value);
}

void vTOGGLEBTN::UpdateView(const vCTRLID&)
{
    Selected(toggled);
    vDraw(*Bound());
}

void vTOGGLEBTN::UpdateData(void*) {}
