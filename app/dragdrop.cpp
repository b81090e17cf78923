#include "app/window.h"

namespace {

int AcceptsFiles(HWND window)
{
    return (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_ACCEPTFILES) != 0;
}

int TakesInput(HWND window)
{
    return IsWindow(window) && IsWindowEnabled(window);
}

HWND TopLevelOf(HWND window)
{
    for (HWND up = GetParent(window); up; up = GetParent(up))
        window = up;
    return window;
}

}  // namespace

// The argument says nothing: a window either takes files or it does not.
// Every other extended style goes, as it always has.
void vWIN::DropRegister(unsigned char)
{
    SetWindowLongA(hWnd, GWL_EXSTYLE, WS_EX_ACCEPTFILES);
    DragAcceptFiles(hWnd, TRUE);
}

// A window that takes files itself needs a top-level window that takes
// input; one found further up is not asked about its top-level window.
HWND vWIN::GetDropWindowHandle(HWND window)
{
    if (!TakesInput(window))
        return nullptr;
    if (AcceptsFiles(window))
        return TakesInput(TopLevelOf(window)) ? window : nullptr;
    for (HWND up = GetParent(window); up; up = GetParent(up))
        if (TakesInput(up) && AcceptsFiles(up))
            return up;
    return nullptr;
}
