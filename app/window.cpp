#include "app/window.h"

#include "app/bindingtable.h"

#include "app/application.h"
#include "app/library.h"
#include "app/pointer.h"
#include "core/resources/resourceids.h"
#include "graphics/screen.h"

int vWIN::IsNewed = 0;
vWIN* vWIN::NewedThis = nullptr;
int vWIN::fBorderDrag = 0;
vRECT vWIN::rectDragHotZone;
vCREATEPARAMS vWIN::CreateParams;

namespace {

// The property that carries the object of a platform window.
const char* const BindingName = "this";

// Every coordinate reaches the platform as a signed 16-bit number.
int Narrow(const vINT& value)
{
    return static_cast<short>(value());
}

DWORD StyleOf(vWNDFLAGS style)
{
    DWORD platform = style == WF_POPUP ? WS_POPUP : WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
    if (style & WF_BORDER)
        platform |= WS_BORDER;
    if (style & WF_SIZING)
        platform |= WS_THICKFRAME;
    return platform;
}

COLORREF WindowBackground()
{
    return vDEVICE::GetScreen().Colour(vSCREEN_WINDOW).PackedRGB();
}

vWIN* WindowOf(const fLINK* link)
{
    return static_cast<vWIN*>(static_cast<vDEVICE*>(link->Object()));
}

}  // namespace

vCREATEPARAMS::vCREATEPARAMS()
    : szClassName(), pfnClassProc(nullptr), lpszTitle(nullptr), dwStyle(0), rect(0, 0, 0, 0),
      hMenuOrId(nullptr), hParent(nullptr)
{
}

vCREATEPARAMS::vCREATEPARAMS(const vCREATEPARAMS& other) : rect(other.rect)
{
    *this = other;
}

vCREATEPARAMS& vCREATEPARAMS::operator=(const vCREATEPARAMS& other)
{
    lstrcpynA(szClassName, other.szClassName, sizeof szClassName);
    pfnClassProc = other.pfnClassProc;
    lpszTitle = other.lpszTitle;
    dwStyle = other.dwStyle;
    rect = other.rect;
    hMenuOrId = other.hMenuOrId;
    hParent = other.hParent;
    return *this;
}

vCREATEPARAMS::~vCREATEPARAMS() = default;

vWIN::vWIN(HWND window, const vRESID& resource) : hWnd(window), pParent(nullptr), resTemplate(resource)
{
    StartState();
    pApp = nullptr;
    width = 0;
    height = 0;
    EndState();
    fBorderDrag = 0;
    NewedThis = nullptr;
}

vWIN::vWIN(const vWIN& parent, const vRECT& rect, vWNDFLAGS style, vCLASSID classId)
{
    Constructor(parent.pApp, &parent, rect, style, classId);
    vSYSTEM::Trace(1, "vWIN::vWIN(...)");
}

vWIN::vWIN(const vAPP& app, const vRECT& rect, vWNDFLAGS style, vCLASSID classId)
{
    vSYSTEM::Trace(1, "vWIN::vWIN(...)");
    Constructor(&app, nullptr, rect, style, classId);
}

vWIN::vWIN(const vWIN& other) : vDEVICE(other)
{
    CopyFields(other);
}

vWIN& vWIN::operator=(const vWIN& other)
{
    vDEVICE::operator=(other);
    CopyFields(other);
    return *this;
}

vWIN::~vWIN()
{
    vSYSTEM::Trace(1, "vWIN::~vWIN()");
    delete pPointer;
    delete pDepends;
    vDEVICE::ReleaseDC();
}

// A copy sees the same platform window and the same objects as its source.
// The destructor frees those objects whoever runs it, so of a window and its
// copies only one may ever be destroyed.
void vWIN::CopyFields(const vWIN& other)
{
    hWnd = other.hWnd;
    pParent = other.pParent;
    pApp = other.pApp;
    bkColour = other.bkColour;
    pfnOldProc = other.pfnOldProc;
    pDepends = other.pDepends;
    id = other.id;
    pPointer = other.pPointer;
    pVertScroll = other.pVertScroll;
    pHorzScroll = other.pHorzScroll;
    flags = other.flags;
    updateFlags = other.updateFlags;
    drawMode = other.drawMode;
    width = other.width;
    height = other.height;
    resTemplate = other.resTemplate;
    isDragging = other.isDragging;
    pTransfer = other.pTransfer;
    dragState = other.dragState;
}

// What every way of making a window sets before the platform window exists.
void vWIN::StartState()
{
    pDepends = new fLIST;
    drawMode = vDRAW_COPY;
    bkColour = WindowBackground();
    flags = WINF_ERASE;
    updateFlags = 0;
    pVertScroll = nullptr;
    pHorzScroll = nullptr;
    pfnOldProc = DefWindowProcA;
}

// And what it sets once the platform window is made.
void vWIN::EndState()
{
    pPointer = new vPOINTER(this);
    pPointer->Form(PF_ARROW);
    isDragging = 0;
    pTransfer = nullptr;
    dragState = 0;
}

void vWIN::Constructor(const vAPP* app, const vWIN* parent, const vRECT& rect, vWNDFLAGS style, vCLASSID classId)
{
    hWnd = nullptr;
    fBorderDrag = 0;
    StartState();
    if (IsNewed) {
        flags |= WINF_NEWED;
        IsNewed = 0;
    }
    lstrcpyA(CreateParams.szClassName, "GENERIC");
    pApp = const_cast<vAPP*>(app);
    PlaceIn(parent, rect);
    CreateParams.lpszTitle = nullptr;
    CreateParams.hMenuOrId = nullptr;
    CreateParams.dwStyle = StyleOf(style);
    NewedThis = this;
    if (classId == CLASSID_WIN)
        CreateWin();
    NewedThis = nullptr;
    EndState();
}

// A child is placed in its parent's logical units; a top-level window in
// device units under the frame.
void vWIN::PlaceIn(const vWIN* parent, const vRECT& rect)
{
    pParent = const_cast<vWIN*>(parent);
    if (parent) {
        CreateParams.rect = pParent->LPtoDP(rect);
        CreateParams.hParent = parent->hWnd;
    } else {
        CreateParams.rect = rect;
        CreateParams.hParent = pApp->hFrame;
    }
    width = CreateParams.rect.Width();
    height = CreateParams.rect.Height();
}

// The mark is taken up by the constructor that runs next, in this object.
void* vWIN::operator new(size_t size)
{
    void* block = vMemNew(size);
    if (block)
        IsNewed = 1;
    return block;
}

// The memory is read once more after the destructors have run: flags, hWnd
// and pfnOldProc tell whether the platform window is still ours to destroy.
// Unbinding first keeps the destroy message away from GenericProc. Kept out
// of line so that the reads are not taken for reads of a dead object.
__attribute__((noinline)) void vWIN::operator delete(void* block)
{
    vWIN* win = static_cast<vWIN*>(block);
    if (win && (win->flags & WINF_NEWED)) {
        win->UnbindInstance();
        win->RemoveSubClass();
        ::DestroyWindow(win->hWnd);
    }
    vMemFree(block);
}

void vWIN::CreateWin()
{
    HINSTANCE instance = vSYSTEM::Pointer()->GetInstance();
    WNDCLASSA known;
    if (!GetClassInfoA(instance, CreateParams.szClassName, &known))
        GetClassInfoA(nullptr, CreateParams.szClassName, &known);
    const vRECT& rect = CreateParams.rect;
    hWnd = CreateWindowExA(0, CreateParams.szClassName, CreateParams.lpszTitle, CreateParams.dwStyle,
                           Narrow(rect.Left()), Narrow(rect.Top()), Narrow(rect.Width()), Narrow(rect.Height()),
                           CreateParams.hParent, CreateParams.hMenuOrId, instance, nullptr);
    BindInstance(hWnd);
    SubClass();
    SetDrawMode();
    vSYSTEM::Trace(1, vSTRING("CreateWindow %x", hWnd)());
}

int vWIN::DestroyWindow()
{
    return ::DestroyWindow(hWnd);
}

void vWIN::BindInstance(HWND window)
{
    if (!IsWindow(window))
        return;
    HLOCAL block = LocalAlloc(LMEM_MOVEABLE, sizeof(vWIN*));
    vWIN** slot = static_cast<vWIN**>(LocalLock(block));
    if (slot)
        *slot = this;
    LocalUnlock(block);
    SetPropA(window, BindingName, block);
    BindingTable::Add(window, BindingTable::Binding{this, block});
    hWnd = window;
}

void vWIN::UnbindInstance()
{
    if (!IsWindow(hWnd))
        return;
    HANDLE block;
    BindingOf(hWnd, block);
    SetPropA(hWnd, BindingName, nullptr);
    LocalFree(block);
    RemovePropA(hWnd, BindingName);
    BindingTable::Remove(hWnd);
}

vWIN* vWIN::Instance(HWND window)
{
    if (!IsWindow(window))
        return nullptr;
    HANDLE block;
    return BindingOf(window, block);
}

// The table answers for every window this process has bound; the property
// is read only if the table ever ran out of room.
vWIN* vWIN::BindingOf(HWND window, HANDLE& block)
{
    BindingTable::Binding binding{nullptr, nullptr};
    if (BindingTable::Find(window, binding) != BindingTable::UNKNOWN) {
        block = binding.block;
        return binding.win;
    }
    block = GetPropA(window, BindingName);
    if (!block)
        return nullptr;
    vWIN** slot = static_cast<vWIN**>(LocalLock(block));
    vWIN* win = slot ? *slot : nullptr;
    LocalUnlock(block);
    return win;
}

// The object bound to the child that the platform finds under the
// identifier. When no window of this process could be that child, the answer
// is null without asking the platform to search.
vWIN* vWIN::BoundChild(HWND parent, int childId)
{
    if (BindingTable::FindChild(parent, childId) == BindingTable::ABSENT)
        return nullptr;
    return Instance(GetDlgItem(parent, childId));
}

void vWIN::SubClass()
{
    pfnOldProc = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(hWnd, GWLP_WNDPROC));
    SetWindowLongPtrA(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(GenericProc));
}

void vWIN::RemoveSubClass()
{
    SetWindowLongPtrA(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(pfnOldProc));
}

LRESULT CALLBACK GenericProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return vWIN::Dispatch(window, message, wParam, lParam);
}

// A failure flagged anywhere surfaces at the next window message, before the
// message itself is looked at.
LRESULT vWIN::Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    // A window that is being sent a message is alive.
    HANDLE block;
    vWIN* win = BindingOf(window, block);
    if (vSYSTEM::GetExceptionFlag())
        vSYSTEM::GetDefaultException().HandleException(window);
    if (message == WM_DESTROY)
        return Destroyed(win, window, wParam, lParam);
    LRESULT result = 0;
    if (win->MsgHandler(message, wParam, lParam, result))
        return result;
    return PassOn(win->pfnOldProc, window, message, wParam, lParam);
}

// The library's plain windows keep the platform's default procedure as the
// saved one; it is called straight, as it needs none of the translation of
// procedure handles that CallWindowProcA does.
LRESULT vWIN::PassOn(WNDPROC saved, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (saved == DefWindowProcA)
        return DefWindowProcA(window, message, wParam, lParam);
    return CallWindowProcA(saved, window, message, wParam, lParam);
}

// The object may be deleted here, so the saved procedure is kept in a local
// first; nothing touches the object afterwards.
LRESULT vWIN::Destroyed(vWIN* win, HWND window, WPARAM wParam, LPARAM lParam)
{
    WNDPROC saved = win->pfnOldProc;
    win->UnbindInstance();
    win->RemoveSubClass();
    if (win->flags & WINF_NEWED) {
        win->flags &= ~WINF_NEWED;
        delete win;
    }
    return PassOn(saved, window, WM_DESTROY, wParam, lParam);
}

HDC vWIN::GetWinDC()
{
    // ActivateDC of the device asks this very operation for its context, so
    // the context handed out here is already the active one.
    return GetMSDC();
}

int vWIN::ReleaseWinDC()
{
    return ReleaseMSDC();
}

HDC vWIN::GetMSDC()
{
    return hWnd ? GetDC(hWnd) : nullptr;
}

int vWIN::ReleaseMSDC()
{
    HDC dc = GetZKDC();
    return dc ? ::ReleaseDC(hWnd, dc) : 1;
}

void vWIN::SetDrawMode()
{
    if (drawMode == vDRAW_COPY)
        SetROP2(ActivateDC(), R2_COPYPEN);
    else if (drawMode == vDRAW_XOR)
        SetROP2(ActivateDC(), R2_XORPEN);
}

vWIN* vWIN::Parent()
{
    return pParent;
}

vWIN* vWIN::Child(const vCTRLID& childId)
{
    if (!childId)
        return nullptr;
    return BoundChild(hWnd, childId);
}

void vWIN::Activate()
{
    SetActiveWindow(hWnd);
}

void vWIN::Update()
{
    UpdateWindow(hWnd);
}

void vWIN::Show(int show)
{
    SetWindowPos(hWnd, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | (show ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

void vWIN::Hide()
{
    Show(0);
}

int vWIN::Enable(int enable)
{
    return EnableWindow(hWnd, enable);
}

int vWIN::Disable()
{
    return Enable(0);
}

void vWIN::Close()
{
    SendMessageA(hWnd, WM_CLOSE, 0, 0);
}

void vWIN::Maximise()
{
    ShowWindow(hWnd, SW_MAXIMIZE);
}

// A popup is placed in screen units from its owner's client corner, with
// the size asked for.
void vWIN::Size(const vRECT& rect)
{
    vWIN* parent = Parent();
    vRECT device = parent ? parent->LPtoDP(rect) : rect;
    if (GetWindowLongA(hWnd, GWL_STYLE) & WS_POPUP) {
        POINT corner = {Narrow(rect.Left()), Narrow(rect.Top())};
        ::ClientToScreen(GetParent(hWnd), &corner);
        device = vRECT(corner.x, corner.y, rect.Width() + corner.x, rect.Height() + corner.y);
    }
    width = device.Width();
    height = device.Height();
    SetWindowPos(hWnd, nullptr, Narrow(device.Left()), Narrow(device.Top()), Narrow(width), Narrow(height),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

vRECT vWIN::Size() const
{
    RECT box;
    GetWindowRect(hWnd, &box);
    HWND owner = GetParent(hWnd);
    if (owner)
        MapWindowPoints(nullptr, owner, reinterpret_cast<POINT*>(&box), 2);
    vRECT rect(box.left, box.top, box.right, box.bottom);
    vWIN* parent = const_cast<vWIN*>(this)->Parent();
    return parent ? parent->DPtoLP(rect) : rect;
}

vINT vWIN::BorderWidth()
{
    return DHtoLH(GetSystemMetrics(SM_CXFRAME));
}

vINT vWIN::BorderHeight()
{
    return DVtoLV(GetSystemMetrics(SM_CYFRAME));
}

// The pointer shows whether a drop is possible; it changes only when the
// answer does.
void vWIN::vDragFeedback(unsigned char state, const vPOINT&)
{
    if (state == dragState)
        return;
    dragState = state;
    pPointer->Activate();
    pPointer->Form(vRESID(state & 1 ? CUR_DROPALLOWED : CUR_NODROP, zkCore));
}

vRESID vWIN::ResTemplate() const
{
    return resTemplate;
}

vCLASSID vWIN::GetClassID()
{
    return CLASSID_WIN;
}

HWND vWIN::operator()() const
{
    return hWnd;
}

const vCTRLID& vWIN::GetID() const
{
    return id;
}

void vWIN::SetID(const vCTRLID& newId)
{
    id = newId;
}

vAPP* vWIN::Application() const
{
    return pApp;
}

vPOINTER* vWIN::Pointer() const
{
    return pPointer;
}

void vWIN::GetFocus()
{
    SetFocus(hWnd);
}

int vWIN::Enabled() const
{
    return IsWindowEnabled(hWnd);
}

int vWIN::IsHidden() const
{
    return !IsWindowVisible(hWnd);
}

int vWIN::IsVisible() const
{
    return IsWindowVisible(hWnd);
}

void vWIN::Normalise()
{
    ShowWindow(hWnd, SW_SHOWNORMAL);
}

void vWIN::Iconize()
{
    CloseWindow(hWnd);
}

int vWIN::IsMaximised() const
{
    return IsZoomed(hWnd);
}

int vWIN::IsIconized() const
{
    return IsIconic(hWnd);
}

const vINT& vWIN::Width() const
{
    return width;
}

const vINT& vWIN::Height() const
{
    return height;
}

unsigned short vWIN::SetTimer(unsigned short ms)
{
    return static_cast<unsigned short>(::SetTimer(hWnd, 1, ms, nullptr));
}

void vWIN::KillTimer()
{
    ::KillTimer(hWnd, 1);
}

void vWIN::Invalidate()
{
    InvalidateRect(hWnd, nullptr, TRUE);
}

void vWIN::Invalidate(const vRECT& rect)
{
    vRECT device = LPtoDP(rect);
    RECT box = {Narrow(device.Left()), Narrow(device.Top()), Narrow(device.Right()), Narrow(device.Bottom())};
    InvalidateRect(hWnd, &box, TRUE);
}

void vWIN::Scroll(short dx, short dy)
{
    ScrollWindow(hWnd, dx, dy, nullptr, nullptr);
}

// Measuring units may take a context, which the device keeps; the size
// itself does not change.
vRECT vWIN::ClientSize() const
{
    RECT box;
    GetClientRect(hWnd, &box);
    return const_cast<vWIN*>(this)->DPtoLP(vRECT(box.left, box.top, box.right, box.bottom));
}

vPOINT vWIN::ScreenToClient(const vPOINT& point)
{
    POINT platform = {Narrow(point.x), Narrow(point.y)};
    ::ScreenToClient(hWnd, &platform);
    return DPtoLP(vPOINT(platform.x, platform.y));
}

vPOINT vWIN::ClientToScreen(const vPOINT& point)
{
    vPOINT device = LPtoDP(point);
    POINT platform = {Narrow(device.x), Narrow(device.y)};
    ::ClientToScreen(hWnd, &platform);
    return vPOINT(platform.x, platform.y);
}

void vWIN::BackgroundColour(const vCOLOUR& colour)
{
    bkColour = colour.PackedRGB();
    SetBkColor(ActivateDC(), bkColour);
}

vCOLOUR vWIN::BackgroundColour() const
{
    return vCOLOUR(GetRValue(bkColour), GetGValue(bkColour), GetBValue(bkColour));
}

void vWIN::DrawMode(vDRAWMODE mode)
{
    drawMode = mode;
    SetDrawMode();
}

vDRAWMODE vWIN::DrawMode() const
{
    return drawMode;
}

void vWIN::SetIcon(const vRESID& icon)
{
    HICON loaded = LoadIconA(icon.Instance(), MAKEINTRESOURCEA(icon()));
    SetClassLongPtrA(hWnd, GCLP_HICON, reinterpret_cast<LONG_PTR>(loaded));
}

vWIN* vWIN::FocusedWindow()
{
    return Instance(::GetFocus());
}

vWIN* vWIN::ActiveWindow()
{
    return Instance(GetActiveWindow());
}

int vWIN::SetDepend(vWIN* on)
{
    if (!on)
        return 0;
    if (!pDepends)
        pDepends = new fLIST;
    on->HasDependents();
    pDepends->Append(*on);
    return 1;
}

vWIN* vWIN::GetDependOnWindow(const vCTRLID& dependId)
{
    for (fLINK* link = pDepends ? pDepends->Next(nullptr) : nullptr; link; link = pDepends->Next(link))
        if (WindowOf(link)->GetID() == dependId)
            return WindowOf(link);
    return nullptr;
}

void vWIN::HasDependents()
{
    flags |= WINF_HASDEPENDENTS;
}

int vWIN::DependsOn(const vWIN* other) const
{
    return pDepends && pDepends->Search(*other);
}

// Counts no further than two, which is all the update pass asks.
int vWIN::MarkedDepends() const
{
    int marked = 0;
    for (fLINK* link = pDepends ? pDepends->Next(nullptr) : nullptr; link && marked < 2; link = pDepends->Next(link))
        if (WindowOf(link)->updateFlags & WINUPD_MARKED)
            ++marked;
    return marked;
}

// Visits every library window under every ancestor, this one left out, and
// stops the whole walk as soon as a visit answers 0.
template <typename VISIT>
int vWIN::WalkKin(VISIT visit)
{
    for (vWIN* ancestor = Parent(); ancestor; ancestor = ancestor->Parent())
        for (HWND child = GetWindow(ancestor->hWnd, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            vWIN* kin = Instance(child);
            if (kin && kin != this && !visit(kin))
                return 0;
        }
    return 1;
}

void vWIN::NotifyPeerControls(const vCTRLID& changedId)
{
    MarkForUpdate();
    UpdateDep(changedId);
    vWIN* parent = Parent();
    if (parent && parent->DependsOn(this)) {
        parent->MarkForUpdate();
        parent->UpdateDep(changedId);
    }
}

void vWIN::MarkForUpdate()
{
    if (updateFlags & WINUPD_MARKED)
        return;
    updateFlags |= WINUPD_MARKED;
    if (!(flags & WINF_HASDEPENDENTS))
        return;
    WalkKin([this](vWIN* kin) {
        if (kin->DependsOn(this))
            kin->MarkForUpdate();
        return 1;
    });
}

// A sibling that still waits for two or more marked windows ends the whole
// walk, whether or not it depends on this one: the updates of those windows
// resume it, and that breadth sets the order in which views refresh.
int vWIN::UpdateDep(const vCTRLID& changedId)
{
    if (!(updateFlags & WINUPD_MARKED))
        return 0;
    if (!(GetID() == changedId))
        UpdateView(changedId);
    updateFlags &= ~WINUPD_MARKED;
    if (!(flags & WINF_HASDEPENDENTS))
        return 1;
    WalkKin([this, &changedId](vWIN* kin) {
        if (kin->MarkedDepends() > 1)
            return 0;
        if (kin->DependsOn(this))
            kin->UpdateDep(changedId);
        return 1;
    });
    return 1;
}
