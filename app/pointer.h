#pragma once

#include <windows.h>

#include "base/export.h"
#include "base/object.h"
#include "base/point.h"
#include "base/rect.h"
#include "base/resid.h"

class vWIN;

// The platform's own cursors, by the numbers it gives them.
enum vPOINTERFORM : unsigned short {
    PF_ARROW = 32512,
    PF_IBEAM = 32513,
    PF_WAIT = 32514,
    PF_CROSS = 32515,
    PF_UPARROW = 32516,
    PF_SIZENWSE = 32642,
    PF_SIZENESW = 32643,
    PF_SIZEWE = 32644,
    PF_SIZENS = 32645,
    PF_SIZEALL = 32646,
    PF_NO = 32648,
    PF_HAND = 32649,
    PF_APPSTARTING = 32650,
    PF_HELP = 32651
};

// The mouse pointer as one window sees it: a current form and a stack of
// saved ones. There is one screen cursor, so only the pointer of the window
// that last claimed it may set it, and any window may turn that claim off.
class ZKSHELL_API vPOINTER : public vOBJECT {
public:
    // Each new window makes one, and a new window means whatever held the
    // mouse before has been left behind: the capture flags start afresh.
    explicit vPOINTER(const vWIN* owner);
    ~vPOINTER();
    vPOINTER(const vPOINTER&) = delete;
    vPOINTER& operator=(const vPOINTER&) = delete;

    // Puts this pointer's form back on the screen if the pointer was off.
    void On();
    static void Off();
    // The window whose pointer is in force, as it was before the call; a
    // non-null window takes its place.
    static vWIN* ActiveOwner(vWIN* window);

    // A form with number 0 is the arrow. A form with no module is one of the
    // platform's own cursors.
    void Form(const vRESID& form);
    void Form(vPOINTERFORM form);
    void PushForm();
    void PopForm();

    static vPOINT ScrnPosition();
    static void ScrnPosition(const vPOINT& point);
    // The library's window under the mouse, or null over any other.
    static vWIN* OverZKWindow();
    // In the owner's logical units.
    vPOINT Position();
    void Position(const vPOINT& point);

    // Sends all mouse input to the owner and, if asked, keeps the mouse
    // within the rectangle, a rectangle one unit wide or high standing for
    // the whole client area.
    void Capture(int confine, vRECT& rect);
    void Release();

    // The platform's display count of the cursor, after the change.
    static int Show();
    static int Hide();

    static int bCaptured;
    static int bTraped;

private:
    friend class vWIN;
    friend struct vPOINTERACCESS;

    struct FORMNODE;

    // Sets this pointer's cursor for a WM_SETCURSOR, unless the pointer is
    // off: 0 then leaves the message to the platform.
    int Activate();

    vWIN* pOwner;
    FORMNODE* pStackTop;
    unsigned short nStack;
    vRESID current;
    HCURSOR hCursor;
};
