#include "app/application.h"

#include "app/pointer.h"
#include "app/window.h"
#include "base/iterator.h"
#include "core/resources/resourceids.h"
#include "dialogs/dialog.h"
#include "graphics/device.h"

namespace {

const DWORD frameStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
const DWORD clientStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | MDIS_ALLCHILDSTYLES;
const UINT clientId = 1000;
const UINT firstChildId = 9999;
const UINT initFailedStyle = MB_TASKMODAL | MB_ICONHAND;
const DWORD lowMemory = 400000;
const unsigned short defaultLanguage = 2057;

// The commands of the Window menu; the texts they show are the base
// library's.
enum : unsigned short {
    CMD_NEWWINDOW = 30003,
    CMD_CASCADE = 30004,
    CMD_TILE = 30005,
    CMD_COLUMNS = 30006,
    CMD_ROWS = 30007
};

// A string of the base library in the given language.
vSTRING Text(unsigned short id, unsigned short language)
{
    return vSTRING(vRESID(static_cast<unsigned short>(id + vSTRING::LanguageOffset(language)), vSYSTEM::Pointer()));
}

void RegisterIfMissing(HINSTANCE module, const char* name, WNDPROC procedure, int windowExtra, HBRUSH background)
{
    WNDCLASSA info;
    if (GetClassInfoA(module, name, &info))
        return;
    WNDCLASSA windowClass = {};
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = procedure;
    windowClass.cbWndExtra = windowExtra;
    windowClass.hInstance = module;
    windowClass.hbrBackground = background;
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);
}

int InitFailed(const char* text)
{
    MessageBoxA(nullptr, text, "Init Failed", initFailedStyle);
    return 0;
}

int HasStyle(HWND window, DWORD style)
{
    return (static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE)) & style) != 0;
}

vRECT RectOf(const RECT& rect)
{
    return vRECT(vINT(rect.left), vINT(rect.top), vINT(rect.right), vINT(rect.bottom));
}

// Another program of the same file that is already running: a top-level
// window of the same module and frame class. The first window of the list
// is passed over, for that is this program's own new frame.
HWND FindFirstInstance(HWND frame, HINSTANCE previous)
{
    vSYSTEM::Trace(0, "vAPP - start of other app check");
    char* buffer = vSYSTEM::GetBuffer();
    GetClassNameA(frame, buffer, 500);
    vSTRING own("%s", buffer);
    HWND window = GetWindow(frame, GW_HWNDFIRST);
    while (window) {
        vSYSTEM::Trace(0, "vAPP - start of loop");
        window = GetWindow(window, GW_HWNDNEXT);
        if (reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(window, GWLP_HINSTANCE)) != previous)
            continue;
        vSYSTEM::Trace(0, "vAPP - same instance");
        GetClassNameA(window, buffer, 500);
        if (vSTRING("%s", buffer) == own) {
            vSYSTEM::Trace(0, "vAPP - other app exists");
            return window;
        }
    }
    return nullptr;
}

void WakeFirstInstance(HWND first)
{
    if (HasStyle(first, WS_MINIMIZE))
        SendMessageA(first, WM_SYSCOMMAND, SC_RESTORE, 0);
    SetFocus(first);
}

// Asked on every message the frame leaves to the platform, so the complaint
// comes while there is still room to show it.
void CheckLowMemory()
{
    MEMORYSTATUS status = {};
    status.dwLength = sizeof status;
    GlobalMemoryStatus(&status);
    if (status.dwAvailVirtual >= lowMemory || !vSYSTEM::GetDefaultException().Armed())
        return;
    vSYSTEM::Trace(0, "LOW on MEMORY");
    vSYSTEM::SetExceptionFlag(1);
}

// Realises the screen's palette in the window; non-zero if colours changed.
UINT RealiseScreenPalette(HWND window)
{
    HDC dc = GetDC(window);
    HPALETTE previous = SelectPalette(dc, vSCREEN::Palette(), FALSE);
    UINT changed = RealizePalette(dc);
    if (previous)
        SelectPalette(dc, previous, TRUE);
    ReleaseDC(window, dc);
    return changed;
}

}  // namespace

HWND vAPP::hActiveDialog = nullptr;

LRESULT CALLBACK MDIFrameProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE) {
        vAPP* created = static_cast<vAPP*>(reinterpret_cast<CREATESTRUCTA*>(lParam)->lpCreateParams);
        created->hFrame = window;
        SetWindowLongPtrA(window, 0, reinterpret_cast<LONG_PTR>(created));
    }
    vAPP* app = reinterpret_cast<vAPP*>(GetWindowLongPtrA(window, 0));
    if (message == WM_DESTROY && app) {
        SetWindowLongPtrA(window, 0, 0);
        delete app;
        return 0;
    }
    LRESULT result = 0;
    if (app && app->MsgHandler(message, wParam, lParam, result))
        return result;
    return vAPP::Unhandled(window, app ? app->hClient : nullptr, message, wParam, lParam);
}

// What the object leaves: the family's question is answered, memory is
// watched, and the rest goes to the platform's frame.
LRESULT vAPP::Unhandled(HWND frame, HWND client, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == vSYSTEM::GetTavikMessage())
        return 0x0B0B0B0B;
    CheckLowMemory();
    return DefFrameProcA(frame, client, message, wParam, lParam);
}

vAPP::vAPP(const vSTRING& name, const vSTRING& title, int mdi)
    : vMODULE(GetModuleHandleA(nullptr)),
      pTileHead(nullptr),
      pTileTail(nullptr),
      nTile(0),
      bBusy(0),
      hAccel(nullptr),
      bMDI(mdi),
      pHelp(nullptr),
      pCommand(nullptr),
      pMessage(nullptr),
      pMenuBar(nullptr),
      pOwnMenu(nullptr),
      hFrame(nullptr),
      hClient(nullptr),
      arrange(ARRANGE_TILE),
      language(defaultLanguage),
      regCookie(nullptr),
      pException(nullptr),
      className(name)
{
    vSYSTEM::Trace(1, "vAPP::vAPP(...)");
    RegisterClasses(instance);
    hFrame = CreateWindowExA(0, className(), title(), frameStyle, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                             CW_USEDEFAULT, nullptr, nullptr, instance, this);
    vSYSTEM::RegisterApp(this, nullptr, nullptr, nullptr);
    vSYSTEM::SetFrameWindow(hFrame);
    vMemSetNewHandler(vSYSTEM::NewFailureException);
    pHelp = new vHELP;
    pMessage = new vMESSAGE(*this);
}

// Runs inside the frame's WM_DESTROY, while the document windows still stand.
vAPP::~vAPP()
{
    vSYSTEM::Trace(1, "vAPP::~vAPP()");
    Hide();
    SetMenu(hFrame, nullptr);
    delete pCommand;
    delete pOwnMenu;
    delete pHelp;
    delete pMessage;
    while (vWIN* document = ActiveDocWin())
        DestroyWindow((*document)());
    DestroyHiddenDocuments();
    TileClear();
    vSYSTEM::UnregisterApp(this, regCookie);
}

// Hidden documents are never active, and would otherwise die with the
// client after this object, reaching for it as they go.
void vAPP::DestroyHiddenDocuments()
{
    while (HWND document = GetWindow(hClient, GW_CHILD))
        DestroyWindow(document);
}

void* vAPP::operator new(size_t size) noexcept
{
    return vMemAlloc(size);
}

// The quit stays in the queue for the loop of Run, which touches the object
// no more once the message that deleted it has been dispatched.
void vAPP::operator delete(void* block)
{
    PostQuitMessage(0);
    MSG msg;
    while (PeekMessageA(&msg, nullptr, 0, 0, PM_NOREMOVE) && msg.message != WM_QUIT) {
        GetMessageA(&msg, nullptr, 0, 0);
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
    vMemFree(block);
}

void vAPP::RegisterClasses(HINSTANCE program)
{
    RegisterIfMissing(program, className(), MDIFrameProc, sizeof(vAPP*), reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
    HINSTANCE library = vSYSTEM::Pointer()->GetInstance();
    HBRUSH white = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    RegisterIfMissing(library, "MDICHILD", DefMDIChildProcA, 0, white);
    RegisterIfMissing(library, "GENERIC", DefWindowProcA, 0, white);
}

void vAPP::CreateClient()
{
    CLIENTCREATESTRUCT client = {windowMenu.hMenu, firstChildId};
    hClient = CreateWindowExA(0, "MDICLIENT", nullptr, clientStyle, 0, 0, 0, 0, hFrame,
                              reinterpret_cast<HMENU>(clientId), instance, &client);
}

unsigned short vAPP::Language() const
{
    return language;
}

int vAPP::vSize(const vRECT&)
{
    return 0;
}

int vAPP::vQueryClose()
{
    return 1;
}

int vAPP::vNewWindow()
{
    return 0;
}

int vAPP::vCommand(const vCTRLID&)
{
    return 0;
}

int vAPP::vCommandHint(const vCTRLID&, const vMENU&)
{
    return 0;
}

int vAPP::vActivate()
{
    return 0;
}

int vAPP::vSettingChange()
{
    return 0;
}

int vAPP::Init()
{
    return Init(instance);
}

int vAPP::Init(HINSTANCE module)
{
    char* path = vSYSTEM::GetBuffer();
    if (!GetModuleFileNameA(module, path, 512))
        return InitFailed("Bad Module Name");
    DWORD handle = 0;
    DWORD size = GetFileVersionInfoSizeA(path, &handle);
    if (!size)
        InitFailed("No Version Info");
    if (size > vSYSTEM::LocalBufferSize)
        size = vSYSTEM::LocalBufferSize;
    char* block = vSYSTEM::GetLocalBuffer();
    if (!GetFileVersionInfoA(path, handle, size, block))
        return InitFailed("Bad Version Info");
    void* value = nullptr;
    UINT length = 0;
    if (!VerQueryValueA(block, "\\VarFileInfo\\Translation", &value, &length) || length < 2)
        return 0;
    Language(KnownLanguage(*static_cast<unsigned short*>(value)));
    return 1;
}

unsigned short vAPP::KnownLanguage(unsigned short value)
{
    switch (value) {
    case 1031:
    case 1033:
    case 1036:
    case 1053:
        return value;
    default:
        return defaultLanguage;
    }
}

// The low-memory complaint speaks the program's language from now on, and
// having its text arms it.
void vAPP::Language(unsigned short value)
{
    unsigned short offset = vSTRING::LanguageOffset(value);
    HINSTANCE core = vSYSTEM::Pointer()->GetInstance();
    DEFEXCEP& complaint = vSYSTEM::GetDefaultException();
    LoadStringA(core, TXT_LOWMEMORYCAPTION + offset, complaint.CaptionText(), 256);
    LoadStringA(core, TXT_LOWMEMORYTEXT + offset, complaint.MessageText(), 256);
    language = value;
}

short vAPP::Run(HINSTANCE program, HINSTANCE previous)
{
    vSYSTEM::RegisterApp(this, program, hFrame, hClient);
    if (bMDI)
        FillWindowMenu();
    if (!previous)
        return Loop();
    WakeFirstInstance(FindFirstInstance(hFrame, previous));
    return 0;
}

void vAPP::FillWindowMenu()
{
    unsigned short current = vSYSTEM::ActiveApp()->Language();
    windowMenu.Append(vCTRLID(CMD_NEWWINDOW), Text(TXT_NEWWINDOW, current));
    windowMenu.Append();
    windowMenu.Append(vCTRLID(CMD_CASCADE), Text(TXT_CASCADE, current));
    windowMenu.Append(vCTRLID(CMD_TILE), Text(TXT_TILE, current));
    windowMenu.Append();
    windowMenu.Append(vCTRLID(CMD_ROWS), Text(TXT_ROWS, current));
    windowMenu.Append(vCTRLID(CMD_COLUMNS), Text(TXT_COLUMNS, current));
}

// The object may be gone once a message has been dispatched; the quit that
// its deletion posted is then the next message, so nothing reads it again.
short vAPP::Loop()
{
    vKEYBOARD& keyboard = vSYSTEM::GetKeyboard();
    MSG msg = {};
    while (GetMessageA(&msg, nullptr, 0, 0) > 0) {
        if (msg.message == WM_KEYDOWN)
            keyboard.event(static_cast<unsigned short>(msg.message), static_cast<unsigned short>(msg.wParam),
                           static_cast<unsigned long>(msg.lParam));
        if (!OfferToDialog(msg) && !Translate(msg)) {
            TranslateMessage(&msg);
            DispatchMessageA(&msg);
        }
        if (msg.message == WM_KEYUP)
            keyboard.reset();
    }
    return static_cast<short>(msg.wParam);
}

// The dialog is looked up afresh for every message: the one that took the
// last message may be gone, and a handle that some other window has come to
// own by now yields none.
int vAPP::OfferToDialog(MSG& msg)
{
    vDIALOG* active = hActiveDialog ? dynamic_cast<vDIALOG*>(vWIN::Instance(hActiveDialog)) : nullptr;
    return active && active->HandleMessage(msg);
}

HWND vAPP::ActiveDialog()
{
    return hActiveDialog;
}

void vAPP::ActiveDialog(HWND dialog)
{
    hActiveDialog = dialog;
}

int vAPP::Translate(MSG& msg)
{
    if (hClient && TranslateMDISysAccel(hClient, &msg))
        return 1;
    return hAccel && TranslateAcceleratorA(hFrame, hAccel, &msg);
}

int vAPP::MsgHandler(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message) {
    case WM_CREATE:
        CreateClient();
        return 0;
    case WM_SIZE:
        return DoSize(wParam);
    case WM_CLOSE:
    case WM_QUERYENDSESSION:
        return DoClose(result);
    case WM_SYSCOLORCHANGE:
        return vSettingChange();
    case WM_WININICHANGE:
        return wParam == SPI_SETNONCLIENTMETRICS ? vSettingChange() : 0;
    case WM_ACTIVATEAPP:
        return DoActivateApp(wParam);
    case WM_NCMOUSEMOVE:
    case WM_MOUSEMOVE:
        vPOINTER::Off();
        return 0;
    case WM_INITMENU:
        return 1;
    case WM_COMMAND:
        return DoCommand(wParam);
    case WM_MENUSELECT:
        return vCommandHint(vCTRLID(static_cast<unsigned short>(wParam)), vMENU(reinterpret_cast<HMENU>(lParam), 0));
    case WM_QUERYNEWPALETTE:
        vSYSTEM::Trace(0, "vAPP - WM_QUERYNEWPALETTE");
        result = 1;
        return PaletteChange(hFrame, 1);
    case WM_PALETTECHANGED:
        if (reinterpret_cast<HWND>(wParam) == hFrame)
            return 0;
        return PaletteChange(hFrame, 0);
    }
    if (message == vSYSTEM::GetZKKillMsg())
        Close();
    return 0;
}

int vAPP::DoSize(WPARAM kind)
{
    if (kind == SIZE_MINIMIZED)
        return 0;
    Margins(margins);
    vSize(Size());
    if (vWIN* document = ActiveDocWin())
        document->Activate();
    return 1;
}

// A destroyed frame deletes this object, so nothing is read afterwards.
int vAPP::DoClose(LRESULT& result)
{
    if (!vQueryClose())
        return 1;
    result = 1;
    DestroyWindow(hFrame);
    return 1;
}

int vAPP::DoActivateApp(WPARAM active)
{
    vSYSTEM::Trace(0, "Applic re-activated");
    vSYSTEM::SetFrameWindow(hFrame);
    if (active)
        vActivate();
    else
        vPOINTER::Off();
    return 0;
}

// The Window menu's own commands never reach the document window; any other
// command is the active document's first.
int vAPP::DoCommand(WPARAM id)
{
    switch (id) {
    case CMD_NEWWINDOW:
        vNewWindow();
        return 0;
    case CMD_CASCADE:
        ArrangeDocWins(ARRANGE_CASCADE);
        return 0;
    case CMD_TILE:
        ArrangeDocWins(ARRANGE_TILE);
        return 0;
    case CMD_ROWS:
        ArrangeDocWins(ARRANGE_ROWS);
        return 0;
    case CMD_COLUMNS:
        ArrangeDocWins(ARRANGE_COLUMNS);
        return 0;
    }
    vCTRLID command(static_cast<unsigned short>(id));
    vWIN* document = ActiveDocWin();
    int handled = document ? document->vCommand(command) : 0;
    return handled ? handled : vCommand(command);
}

void vAPP::Close()
{
    vSYSTEM::Trace(0, "vAPP::Close()");
    PostMessageA(hFrame, WM_CLOSE, 0, 0);
}

void vAPP::Show()
{
    ShowWindow(hFrame, SW_SHOW);
}

void vAPP::Hide()
{
    ShowWindow(hFrame, SW_HIDE);
}

void vAPP::Maximise()
{
    ShowWindow(hFrame, SW_MAXIMIZE);
}

void vAPP::Normalise()
{
    ShowWindow(hFrame, SW_SHOWNORMAL);
}

void vAPP::Iconise()
{
    CloseWindow(hFrame);
}

int vAPP::IsMaximised() const
{
    return HasStyle(hFrame, WS_MAXIMIZE);
}

int vAPP::IsIconised() const
{
    return HasStyle(hFrame, WS_MINIMIZE);
}

vRECT vAPP::Size() const
{
    RECT rect = {};
    GetWindowRect(hFrame, &rect);
    return RectOf(rect);
}

vRECT vAPP::ClientSize() const
{
    RECT rect = {};
    GetClientRect(hFrame, &rect);
    return RectOf(rect);
}

void vAPP::Size(const vRECT& rect)
{
    MoveWindow(hFrame, rect.Left()(), rect.Top()(), rect.Width()(), rect.Height()(), TRUE);
}

vPOINT vAPP::ScreenToClient(const vPOINT& point) const
{
    POINT platform = {point.x(), point.y()};
    ::ScreenToClient(hFrame, &platform);
    return vPOINT(vINT(platform.x), vINT(platform.y));
}

vPOINT vAPP::ClientToScreen(const vPOINT& point) const
{
    POINT platform = {point.x(), point.y()};
    ::ClientToScreen(hFrame, &platform);
    return vPOINT(vINT(platform.x), vINT(platform.y));
}

HINSTANCE vAPP::operator()() const
{
    return instance;
}

vHELP& vAPP::Help()
{
    return *pHelp;
}

vMESSAGE& vAPP::Message()
{
    return *pMessage;
}

void vAPP::SetHelp(vSTRING& file)
{
    pHelp->SetHelp(instance, file);
}

// The bar ends in the Window menu, for a program with documents, and the
// Help menu; what the program appends goes in front of them.
vMENU* vAPP::Menu()
{
    if (!pOwnMenu && BuildOwnMenu())
        pMenuBar = pOwnMenu;
    return pMenuBar ? pMenuBar : pOwnMenu;
}

int vAPP::BuildOwnMenu()
{
    ClearMenuBar();
    if (!pOwnMenu)
        return 0;
    unsigned short current = Language();
    if (bMDI)
        pOwnMenu->Append(windowMenu, Text(TXT_WINDOWMENU, current));
    pOwnMenu->Append(*pHelp, Text(TXT_HELPMENU, current));
    pOwnMenu->nFixed = bMDI ? 2 : 1;
    return 1;
}

void vAPP::SetMenuBar(vMENU& menu)
{
    pMenuBar = &menu;
    UpdateMenuBar();
}

void vAPP::ClearMenuBar()
{
    if (pOwnMenu) {
        if (pMenuBar == pOwnMenu)
            pMenuBar = nullptr;
        delete pOwnMenu;
    }
    pOwnMenu = new vMENU;
    SetMenu(hFrame, nullptr);
}

void vAPP::UpdateMenuBar()
{
    SetMenu(hFrame, pMenuBar ? pMenuBar->hMenu : nullptr);
}

void vAPP::ShowMenuBar()
{
    if (pMenuBar)
        UpdateMenuBar();
}

void vAPP::HideMenuBar()
{
    SetMenu(hFrame, nullptr);
}

int vAPP::SetAccel(const vRESID& table)
{
    hAccel = LoadAcceleratorsA(table.Instance(), MAKEINTRESOURCEA(table()));
    return hAccel != nullptr;
}

int vAPP::SetIcon(const vRESID& icon)
{
    HICON loaded = LoadIconA(icon.Instance(), MAKEINTRESOURCEA(icon()));
    if (!loaded)
        return 0;
    SetClassLongPtrA(hFrame, GCLP_HICON, reinterpret_cast<LONG_PTR>(loaded));
    return 1;
}

void vAPP::BusyOn()
{
    if (bBusy)
        return;
    bBusy = 1;
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
}

void vAPP::BusyOff()
{
    if (!bBusy)
        return;
    bBusy = 0;
    SetCursor(LoadCursorA(nullptr, IDC_ARROW));
}

// Once a command is stored, a call answers what was stored before it; the
// first call answers what it stores.
vSTRING vAPP::GetSetCommand(const vSTRING& value)
{
    if (pCommand) {
        vSTRING before(*pCommand);
        if (!value.Null())
            *pCommand = value;
        return before;
    }
    vSTRING fresh = value.Null() ? vMODULE::GetCommand() : value;
    if (fresh.Null())
        return vSTRING();
    pCommand = new vSTRING(fresh);
    return fresh;
}

vSTRING vAPP::GetAppDir()
{
    char* buffer = vSYSTEM::GetBuffer();
    GetModuleFileNameA(instance, buffer, 1000);
    vSTRING path("%s", buffer);
    path.RemoveFromEnd(vCHAR('\\'));
    return path;
}

void vAPP::Activate()
{
    HWND popup = GetLastActivePopup(hFrame);
    SetWindowPos(hFrame, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
    SetActiveWindow(popup ? popup : hFrame);
}

void vAPP::AlwaysOnTop(int onTop)
{
    SetWindowPos(hFrame, onTop ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
}

void vAPP::SetExceptionHandler(vEXCEPTION& handler)
{
    pException = &handler;
}

int vAPP::PaletteChange(HWND window, int foreground)
{
    if (!vDEVICE::GetScreen().PaletteEnabled())
        return 0;
    if (!RealiseScreenPalette(window))
        return 0;
    PostPaletteChange(foreground);
    return 1;
}

// Every window of every program of the family hears of the change: the
// top-level windows of each program's thread, and the children of its frame
// and of its client.
void vAPP::PostPaletteChange(int foreground)
{
    ITERATOR iterator;
    HINSTANCE module = nullptr;
    HWND frame = nullptr;
    HWND client = nullptr;
    while (vSYSTEM::GetTavikApp(iterator, module, frame, client)) {
        DWORD thread = GetWindowThreadProcessId(frame, nullptr);
        EnumThreadWindows(thread, EnumTaskTopWinProc, foreground);
        EnumChildWindows(frame, EnumChildProc, foreground);
        EnumChildWindows(client, EnumChildProc, foreground);
    }
}

BOOL CALLBACK vAPP::EnumChildProc(HWND window, LPARAM foreground)
{
    vSYSTEM::Trace(0, "vAPP::EnumchildProc");
    return EnumTaskTopWinProc(window, foreground);
}

// Never stops the walk early.
BOOL CALLBACK vAPP::EnumTaskTopWinProc(HWND window, LPARAM foreground)
{
    if (window)
        PostMessageA(window, vSYSTEM::GetPaletteChangeMsg(), static_cast<WPARAM>(foreground), 0);
    return TRUE;
}
