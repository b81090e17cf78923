#include "app/docwin.h"

#include "app/application.h"

namespace {

// Caption, frame, boxes and system menu: what a lone document does without.
const DWORD decoration = WS_OVERLAPPEDWINDOW;

// Handled, with nothing for the platform.
int Swallow(LRESULT& result)
{
    result = 0;
    return 1;
}

}  // namespace

// The client makes the window, so the frame's client becomes the parent and
// the platform's document procedure the class procedure. A program without
// a Window menu shows its one document filling the frame, undecorated.
vDOCWIN::vDOCWIN(const vAPP& app, const vRECT& rect, const vSTRING& title, vWNDFLAGS style, vCAPFLAGS boxes,
                 vCLASSID classId)
    : vCAPWIN(app, rect, title, style, boxes, classId), pNextTile(nullptr), pPrevTile(nullptr), breadth(0)
{
    vSYSTEM::Trace(1, "vDOCWIN::vDOCWIN(...)");
    lstrcpyA(CreateParams.szClassName, "MDICHILD");
    CreateParams.hParent = app.hClient;
    CreateParams.pfnClassProc = DefMDIChildProcA;
    CreateParams.dwStyle |= WS_CLIPSIBLINGS;
    if (!app.bMDI)
        CreateParams.dwStyle = (CreateParams.dwStyle & ~decoration) | WS_MAXIMIZE;
    if (classId == CLASSID_DOCWIN)
        vDOCWIN::CreateWin();
}

// Hide is still this class's here, so the window leaves the tiling before
// the base destructors run.
vDOCWIN::~vDOCWIN()
{
    vSYSTEM::Trace(1, "vDOCWIN::~vDOCWIN()");
    Hide();
}

// Marks the document as newed, as every window's allocation does; the pair
// belongs together with the deallocation below.
void* vDOCWIN::operator new(size_t size)
{
    return vWIN::operator new(size);
}

// Read after the destructors, as the window's own: the client destroys the
// document, never the platform's DestroyWindow.
__attribute__((noinline)) void vDOCWIN::operator delete(void* block)
{
    vDOCWIN* document = static_cast<vDOCWIN*>(block);
    if (document && (document->flags & WINF_NEWED)) {
        document->UnbindInstance();
        document->RemoveSubClass();
        SendMessageA(document->Client(), WM_MDIDESTROY, reinterpret_cast<WPARAM>(document->hWnd), 0);
    }
    vMemFree(block);
}

// The position and size given to the constructor are not used: the client
// places a new document itself. The handle is kept whole, not cut to its
// low 16 bits as the family's older programs did: the platform's handles
// carry a generation count above those bits, and the window procedure is
// handed the whole value to find the object by.
void vDOCWIN::CreateWin()
{
    MDICREATESTRUCTA create = {};
    create.szClass = "MDICHILD";
    create.szTitle = CreateParams.lpszTitle;
    create.hOwner = vSYSTEM::Pointer()->GetInstance();
    create.x = create.y = create.cx = create.cy = CW_USEDEFAULT;
    create.style = CreateParams.dwStyle;
    LRESULT made = SendMessageA(CreateParams.hParent, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&create));
    hWnd = reinterpret_cast<HWND>(made);
    BindInstance(hWnd);
    SubClass();
}

HWND vDOCWIN::Client() const
{
    return pApp->hClient;
}

int vDOCWIN::Tiling() const
{
    return pApp->arrange == ARRANGE_ROWS || pApp->arrange == ARRANGE_COLUMNS;
}

void vDOCWIN::Activate()
{
    SendMessageA(Client(), WM_MDIACTIVATE, reinterpret_cast<WPARAM>(hWnd), 0);
    SetActiveWindow(hWnd);
}

void vDOCWIN::Maximize()
{
    SendMessageA(Client(), WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(hWnd), 0);
}

// A window that comes up while the rows or columns are in force joins them
// at the head; one that goes leaves its breadth to the others.
void vDOCWIN::Show(int show)
{
    if (show) {
        if (Tiling() && !pApp->IsTiled(this))
            pApp->SizeActiveMDIWindow(this);
        Activate();
        ShowWindow(hWnd, SW_SHOW);
        return;
    }
    if (Tiling() && pApp->IsTiled(this))
        pApp->RemoveMDITileWindow(this);
    ShowWindow(hWnd, SW_HIDE);
}

void vDOCWIN::Hide()
{
    Show(0);
}

// A tiled window keeps its place: it cannot be dragged by its caption, and
// only its top edge shows the platform's sizing cursor. Minimising takes it
// out of the tiling, restoring puts it back.
int vDOCWIN::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case WM_SIZE:
        if (wParam == SIZE_MINIMIZED && pApp->IsTiled(this) && IsVisible())
            pApp->RemoveMDITileWindow(this);
        else if (wParam == SIZE_RESTORED && Tiling() && IsVisible())
            pApp->SizeActiveMDIWindow(this);
        break;
    case WM_NCMOUSEMOVE:
        if (Tiling() && breadth > vINT(0) && wParam != HTTOP)
            return Swallow(result);
        break;
    case WM_NCLBUTTONDOWN:
        if (Tiling() && breadth > vINT(0) && wParam == HTCAPTION)
            return Swallow(result);
        break;
    }
    return vWIN::MsgHandler(message, wParam, lParam, result);
}
