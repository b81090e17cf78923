#include "dialogs/dialog.h"

#include "app/application.h"

vDIALOG* vDIALOG::gDialogBeingCreated = nullptr;
int vDIALOG::gContextHelpPending = 0;

namespace {

// The built-in template: a child with a caption and no items, one unit
// square; behind the header the menu, class and title are left empty.
const DWORD builtInStyle = WS_CHILD | WS_CAPTION;
const DWORD builtInExStyle = WS_EX_NOPARENTNOTIFY;
const size_t builtInSize = 36;

// The system's help file and its popup topics for OK and Cancel.
const char* const systemHelp = "\\help\\windows";
const DWORD okTopic = 28443;
const DWORD cancelTopic = 28444;

// For these the platform reads the dialog procedure's return as data.
int AnswersWithData(UINT message)
{
    switch (message) {
    case 25:  // the original colour request, which takes a brush back
    case WM_COMPAREITEM:
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
    case WM_QUERYDRAGICON:
    case WM_GETDLGCODE:
        return 1;
    default:
        return 0;
    }
}

vCOLOUR ButtonFace()
{
    return vDEVICE::GetScreen().Colour(vSCREEN_BUTTONFACE);
}

}  // namespace

vDIALOG::vDIALOG(const vWIN& parent, const vRESID& tmpl, const vCONTROLMAP* map, void* data, const vSTRING& title,
                 int modal, const vCLASSID& classId)
    : vCAPWIN(parent, vRECT(0, 0, 0, 0), title, WF_BORDER, 0, classId),
      firstFocus(0),
      dataUpdated(0),
      resTemplate(0, vSYSTEM::Pointer())
{
    vSYSTEM::Trace(1, "vDIALOG::vDIALOG(...)");
    gDialogBeingCreated = this;
    Store(tmpl, map, data, modal);
    if (classId == CLASSID_DIALOG)
        CreateWin(parent());
    if (!title.Null())
        Title(title);
    BackgroundColour(ButtonFace());
    UseDialogFont();
    ActivateFont();
    UseDialogUnits();
    if (modal)
        MakeModal();
}

// The order differs from the other constructor, and is kept: the font comes
// before the window, and the title after the units.
vDIALOG::vDIALOG(const vAPP& app, const vRESID& tmpl, const vCONTROLMAP* map, void* data, const vSTRING& title,
                 int modal, const vCLASSID& classId)
    : vCAPWIN(app, vRECT(0, 0, 0, 0), title, WF_BORDER, 0, classId),
      firstFocus(0),
      dataUpdated(0),
      resTemplate(0, vSYSTEM::Pointer())
{
    vSYSTEM::Trace(1, "vDIALOG::vDIALOG(...)");
    gDialogBeingCreated = this;
    Store(tmpl, map, data, modal);
    UseDialogFont();
    if (classId == CLASSID_DIALOG)
        CreateWin(app.hFrame);
    else
        BackgroundColour(ButtonFace());
    ActivateFont();
    UseDialogUnits();
    if (!title.Null())
        Title(title);
    if (modal)
        MakeModal();
}

// A dialog on the stack outlives its window; the loops must not go on
// offering messages to it.
vDIALOG::~vDIALOG()
{
    if (vAPP::ActiveDialog() && vAPP::ActiveDialog() == hWnd)
        vAPP::ActiveDialog(nullptr);
    vSYSTEM::Trace(1, "vDIALOG::~vDIALOG()");
    MakeModeless();
}

void vDIALOG::Store(const vRESID& tmpl, const vCONTROLMAP* map, void* data, int isModal)
{
    resTemplate = tmpl;
    controlMap = map;
    viewData = data;
    modal = isModal;
    keyboardInterface = nullptr;
}

void vDIALOG::UseDialogFont()
{
    FontSpec(vFONTSPEC(vSTRING("MS Sans Serif"), vFONT_NORMAL, 8, vREAL(0), 100, vFONT_POINTS, vANGLE()));
}

// From here on one logical unit is one dialog unit, for the dialog's own
// drawing and for the rectangles it gives its controls.
void vDIALOG::UseDialogUnits()
{
    HDC dc = ActivateDC();
    RECT box = {0, 0, 100, 100};
    if (!MapDialogRect(hWnd, &box) || box.right <= 0 || box.bottom <= 0)
        return;
    LogUnitsPerHorzInch(GetDeviceCaps(dc, LOGPIXELSX) * 100 / box.right);
    LogUnitsPerVertInch(GetDeviceCaps(dc, LOGPIXELSY) * 100 / box.bottom);
}

// The resolution set here is the system font's; the constructor replaces
// it with the dialog's own once the window stands.
void vDIALOG::CreateWin(HWND parent)
{
    if (resTemplate())
        hWnd = CreateDialogParamA(resTemplate.Instance(), MAKEINTRESOURCEA(resTemplate()), parent, DlgProc, 0);
    else
        hWnd = CreateBuiltIn(parent);
    BackgroundColour(ButtonFace());
    HDC dc = ActivateDC();
    LONG base = GetDialogBaseUnits();
    LogUnitsPerHorzInch(GetDeviceCaps(dc, LOGPIXELSX) * 4 / LOWORD(base));
    LogUnitsPerVertInch(GetDeviceCaps(dc, LOGPIXELSY) * 8 / HIWORD(base));
}

HWND vDIALOG::CreateBuiltIn(HWND parent)
{
    void* block = vMemAlloc(builtInSize);
    if (!block)
        return nullptr;
    ZeroMemory(block, builtInSize);
    DLGTEMPLATE* header = static_cast<DLGTEMPLATE*>(block);
    header->style = builtInStyle;
    header->dwExtendedStyle = builtInExStyle;
    header->cdit = 0;
    header->x = 40;
    header->y = 0;
    header->cx = 1;
    header->cy = 1;
    HWND made = CreateDialogIndirectParamA(nullptr, header, parent, DlgProc, 0);
    vMemFree(block);
    return made;
}

INT_PTR CALLBACK DlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        vDIALOG::gDialogBeingCreated->BindInstance(window);
        return 1;
    }
    vDIALOG* dialog = static_cast<vDIALOG*>(vWIN::Instance(window));
    if (!dialog)
        return 0;
    switch (message) {
    case WM_CLOSE:
        dialog->MakeModeless();
        return DestroyWindow(window);
    case WM_DESTROY:
        dialog->UnbindInstance();
        if (dialog->flags & WINF_NEWED) {
            dialog->flags &= ~WINF_NEWED;
            vAPP::ActiveDialog(nullptr);
            delete dialog;
        }
        return 1;
    default:
        break;
    }
    LRESULT result = 0;
    if (!dialog->MsgHandler(message, wParam, lParam, result))
        return 0;
    return AnswersWithData(message) ? result : 1;
}

int vDIALOG::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case WM_HELP:
        Help(*reinterpret_cast<const HELPINFO*>(lParam));
        break;
    case WM_ACTIVATE:
        vAPP::ActiveDialog(wParam ? GetWindow()() : nullptr);
        break;
    case WM_CONTEXTMENU: {
        vCTRLID control(static_cast<unsigned short>(GetDlgCtrlID(reinterpret_cast<HWND>(wParam))));
        vContextHelp(reinterpret_cast<HWND>(wParam), control, 1);
        break;
    }
    case WM_COMMAND:
        Command(wParam);
        break;
    case WM_SYSCOMMAND:
        if (wParam == SC_CONTEXTHELP)
            gContextHelpPending = 1;
        break;
    default:
        break;
    }
    return vWIN::MsgHandler(message, wParam, lParam, result);
}

// F1 acts as the Help button, unless the caption's help button asked for
// help on a control first.
void vDIALOG::Help(const HELPINFO& info)
{
    if (gContextHelpPending) {
        vCTRLID control(static_cast<unsigned short>(info.iCtrlId));
        vContextHelp(static_cast<HWND>(info.hItemHandle), control, 0);
    } else {
        vClick(vCTRLID(9));
    }
    gContextHelpPending = 0;
}

// The control hears of its notification first. Help is a click whatever the
// notification; OK and Cancel give the activation back to the top window
// before the dialog goes.
void vDIALOG::Command(unsigned int wParam)
{
    vCTRLID control(LOWORD(wParam));
    unsigned short notification = HIWORD(wParam);
    vCONTROL* sender = dynamic_cast<vCONTROL*>(BoundChild(hWnd, control));
    if (sender)
        sender->Notification(notification);
    if (control == vCTRLID(9)) {
        vClick(control);
        return;
    }
    if (notification)
        return;
    HWND apex = GetWinApex();
    if (control == vCTRLID(1) || control == vCTRLID(2))
        SetActiveWindow(apex);
    vClick(control);
}

// fromMenu is not looked at: an application that serves its own controls
// overrides the operation.
int vDIALOG::vContextHelp(HWND control, vCTRLID& id, int)
{
    if (!(id == vCTRLID(1)) && !(id == vCTRLID(2)))
        return 0;
    char path[MAX_PATH + 16];
    GetWindowsDirectoryA(path, MAX_PATH);
    lstrcatA(path, systemHelp);
    WinHelpA(control, path, HELP_CONTEXTPOPUP, id == vCTRLID(1) ? okTopic : cancelTopic);
    return 1;
}

int vDIALOG::HandleMessage(tagMSG& msg)
{
    return IsDialogMessageA(hWnd, &msg);
}

vWIN& vDIALOG::GetWindow()
{
    return *this;
}

// Only a scroll bar has a thumb to set; any other window given still tells
// its dependants.
int vDIALOG::vThumbMove(const vWIN* bar, const vINT& pos)
{
    if (!bar)
        return 0;
    vWIN& moved = const_cast<vWIN&>(*bar);
    if (vSCROLLBAR* scrollBar = dynamic_cast<vSCROLLBAR*>(&moved))
        scrollBar->ThumbPos(pos);
    moved.NotifyPeerControls(moved.GetID());
    return 1;
}

vWIN* vDIALOG::Child(const vCTRLID& id)
{
    if (!id)
        return nullptr;
    return BoundChild(hWnd, id);
}

// Posted, so that the window goes between two messages of the loop.
void vDIALOG::Close()
{
    PostMessageA(hWnd, WM_CLOSE, 0, 0);
}

// Both sides are turned with the vertical scale, as the frame of a dialog
// has always been measured here.
vINT vDIALOG::BorderWidth()
{
    return DVtoLV(GetSystemMetrics(SM_CXDLGFRAME));
}

vINT vDIALOG::BorderHeight()
{
    return DVtoLV(GetSystemMetrics(SM_CYDLGFRAME));
}

int vDIALOG::vClick(const vCTRLID& id)
{
    if (!Child(id))
        return 0;
    if (id == vCTRLID(1) || id == vCTRLID(2)) {
        Close();
        return 1;
    }
    return 0;
}

vRESID vDIALOG::ResTemplate() const
{
    return resTemplate;
}

int vDIALOG::Init()
{
    dataUpdated = 0;
    SetupView(0);
    UpdateView();
    return firstFocus == vCTRLID(0);
}

// The map only fills gaps: a control that the application made by hand
// keeps its object. A factory that makes nothing leaves its row out.
void vDIALOG::SetupView(int thenUpdate)
{
    if (!controlMap)
        return;
    const vCONTROLMAP* row = controlMap;
    for (; row->New; ++row) {
        vCONTROL* control = ControlChild(row->id);
        if (!control) {
            vCTRLID id(row->id);
            vRESID text(row->text, vSYSTEM::Pointer());
            control = row->New(*this, id, text);
        }
        if (!control)
            continue;
        if (viewData)
            control->SetupView(static_cast<char*>(viewData) + row->offset, row->length);
        else
            control->SetupView(nullptr, 0);
    }
    firstFocus = vCTRLID(row->id);
    if (thenUpdate)
        UpdateView();
}

// Visits each child window that has an object, in the platform's order.
template <typename VISIT>
void vDIALOG::EachChild(VISIT visit)
{
    for (HWND child = ::GetWindow(hWnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        vWIN* win = Instance(child);
        if (win)
            visit(*win);
    }
}

// Showing the view shows the dialog.
void vDIALOG::UpdateView()
{
    EachChild([this](vWIN& child) {
        child.UpdateView(vCTRLID(0));
        if (child.GetID() == firstFocus)
            child.GetFocus();
    });
    Show(1);
}

void vDIALOG::UpdateData(void* data)
{
    dataUpdated = 1;
    EachChild([data](vWIN& child) {
        vCONTROL* control = dynamic_cast<vCONTROL*>(&child);
        if (control)
            control->UpdateData(data);
    });
}

HWND vDIALOG::GetWinApex()
{
    HWND apex = nullptr;
    for (HWND above = GetParent(hWnd); above; above = GetParent(above))
        apex = above;
    return apex;
}

// The whole top-level window is disabled, not only the direct parent.
void vDIALOG::MakeModal()
{
    modal = 1;
    HWND apex = GetWinApex();
    if (apex)
        EnableWindow(apex, FALSE);
    Enable(1);
}

void vDIALOG::MakeModeless()
{
    if (!modal)
        return;
    modal = 0;
    HWND apex = GetWinApex();
    if (apex && IsWindow(apex))
        EnableWindow(apex, TRUE);
}

int vDIALOG::IsModal() const
{
    return modal;
}

// Any close or destroy that comes through the queue ends the loop, for any
// window: a dialog closes itself by posting. WM_QUIT does not end it. The
// handle is tested before the flag, for a dialog made with new is gone
// once its window is.
void vDIALOG::Modal()
{
    modal = 1;
    HWND self = hWnd;
    vKEYBOARD& keyboard = vSYSTEM::GetKeyboard();
    MSG msg = {};
    while (IsWindow(self) && modal) {
        GetMessageA(&msg, nullptr, 0, 0);
        if (msg.message == WM_KEYDOWN)
            keyboard.event(static_cast<unsigned short>(msg.message), static_cast<unsigned short>(msg.wParam),
                           static_cast<unsigned long>(msg.lParam));
        if (!vAPP::OfferToDialog(msg)) {
            TranslateMessage(&msg);
            DispatchMessageA(&msg);
        }
        if (msg.message == WM_CLOSE || msg.message == WM_DESTROY)
            return;
        if (msg.message == WM_KEYUP)
            keyboard.reset();
    }
}

// Centred on the top window's client area, but never off the left or top
// of the screen: those edges win for a dialog larger than the screen.
void vDIALOG::Centre()
{
    HWND apex = GetWinApex();
    vRECT size = Size();
    long w = size.Width()();
    long h = size.Height()();
    vSIZE screen = GetScreen().Size();
    RECT area = {0, 0, 0, 0};
    GetClientRect(apex, &area);
    ::ClientToScreen(apex, reinterpret_cast<POINT*>(&area.left));
    ::ClientToScreen(apex, reinterpret_cast<POINT*>(&area.right));
    POINT at = {area.left + (area.right - area.left) / 2 - w / 2, area.top + (area.bottom - area.top) / 2 - h / 2};
    if (at.x < 0)
        at.x = 0;
    else if (at.x + w > screen.Width()())
        at.x = screen.Width()() - w;
    if (at.y < 0)
        at.y = 0;
    else if (at.y + h > screen.Height()())
        at.y = screen.Height()() - h;
    HWND parent = GetParent(hWnd);
    if (parent)
        ::ScreenToClient(parent, &at);
    Size(vRECT(at.x, at.y, at.x + w, at.y + h));
}

vCONTROL* vDIALOG::GetKeyboardInterface() const
{
    return keyboardInterface;
}

void vDIALOG::SetKeyboardInterface(vCONTROL* control)
{
    keyboardInterface = control;
}
