#include "app/capwin.h"

namespace {

// The longest title that Title() reads back.
const int titleLimit = 80;

DWORD BoxStyle(vCAPFLAGS boxes)
{
    DWORD style = 0;
    if (boxes & CF_MAXBOX)
        style |= WS_MAXIMIZEBOX;
    if (boxes & CF_MINBOX)
        style |= WS_MINIMIZEBOX;
    if (boxes & CF_SYSMENU)
        style |= WS_SYSMENU;
    return style;
}

}  // namespace

// An owned captioned window is always a popup, whatever the flags say.
vCAPWIN::vCAPWIN(const vWIN& parent, const vRECT& rect, const vSTRING& title, vWNDFLAGS style, vCAPFLAGS boxes,
                 vCLASSID classId)
    : vWIN(parent, rect, style, classId)
{
    vSYSTEM::Trace(1, "vCAPWIN::vCAPWIN(...)");
    CreateParams.dwStyle |= WS_CAPTION | WS_POPUP;
    Caption(title, boxes, classId);
}

// Under the frame only a plain captioned window is a popup: a derived class
// that passes its own identifier stays a child unless it adds the style
// itself. Kept so on purpose, document windows rely on it.
vCAPWIN::vCAPWIN(const vAPP& app, const vRECT& rect, const vSTRING& title, vWNDFLAGS style, vCAPFLAGS boxes,
                 vCLASSID classId)
    : vWIN(app, rect, style, classId)
{
    vSYSTEM::Trace(1, "vCAPWIN::vCAPWIN(...)");
    CreateParams.dwStyle |= WS_CAPTION;
    if (classId == CLASSID_CAPWIN)
        CreateParams.dwStyle |= WS_POPUP;
    Caption(title, boxes, classId);
}

vCAPWIN::~vCAPWIN()
{
    vSYSTEM::Trace(1, "vCAPWIN::~vCAPWIN()");
}

// The title's characters are read at creation, so the string must outlive
// the constructor of the class that creates the window.
void vCAPWIN::Caption(const vSTRING& title, vCAPFLAGS boxes, vCLASSID classId)
{
    CreateParams.dwStyle |= BoxStyle(boxes);
    CreateParams.lpszTitle = title();
    if (classId == CLASSID_CAPWIN)
        vWIN::CreateWin();
}

vINT vCAPWIN::CaptionHeight()
{
    return DVtoLV(GetSystemMetrics(SM_CYCAPTION));
}

void vCAPWIN::BringToFront() const
{
    SetWindowPos(hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
}

void vCAPWIN::SendToBack() const
{
    SetWindowPos(hWnd, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
}

vSTRING vCAPWIN::Title()
{
    char* buffer = vSYSTEM::GetBuffer();
    buffer[0] = 0;
    SendMessageA(hWnd, WM_GETTEXT, titleLimit, reinterpret_cast<LPARAM>(buffer));
    return vSTRING("%s", buffer);
}

void vCAPWIN::Title(const vSTRING& title)
{
    SendMessageA(hWnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(title()));
}
