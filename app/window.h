// Windows as objects. A vWIN binds one platform window to an object of the
// program's own class; the library's window procedure turns each message into
// a call of one of the v... handlers, which the class overrides, and a
// handler answers non-zero when it has dealt with the event. A window is also
// a drawing device, in logical units, for its vDraw.
//
//     class BOARD : public vWIN {
//     public:
//         explicit BOARD(const vAPP& app) : vWIN(app, vRECT(0, 0, 300, 200), WF_SIZING) {}
//         int vMouseLeftPress(const vPOINT& at) override { mark = at; Invalidate(); return 1; }
//         int vDraw(const vRECT&) override { return DrawEllipse(vRECT(mark, mark + vPOINT(9, 9))); }
//         vPOINT mark;
//     };

#pragma once

#include <windows.h>

#include "base/ctrlid.h"
#include "base/values.h"
#include "base/lists.h"
#include "base/resid.h"
#include "base/system.h"
#include "graphics/device.h"

class vAPP;
class vCONTROL;
class vPOINTER;
class vSCROLLBAR;
class vTRANSFER;

// The style bits a window is created with. WF_POPUP is tested as a whole
// value and its low bits then count as WF_BORDER and WF_SIZING as well: a
// popup always gets a border and a thick frame, and that is meant.
typedef unsigned long vWNDFLAGS;
enum : unsigned long {
    WF_NONE = 0,
    WF_BORDER = 1,
    WF_SIZING = 2,
    WF_POPUP = 55
};

// The boxes of a captioned window.
typedef unsigned char vCAPFLAGS;
enum : unsigned char {
    CF_MAXBOX = 1,
    CF_MINBOX = 2,
    CF_SYSMENU = 4
};

// The most derived class of a window under construction. Only the class
// whose identifier this is creates the platform window. 24, 31 and the
// values below 8 are free.
enum vCLASSID {
    CLASSID_WIN = 8,
    CLASSID_CAPWIN = 9,
    CLASSID_DOCWIN = 10,
    CLASSID_CONTROL = 15,
    CLASSID_ICON = 16,
    CLASSID_GROUPBOX = 17,
    CLASSID_BUTTON = 18,
    CLASSID_BITBUT = 19,
    CLASSID_TOGGLEBTN = 20,
    CLASSID_RADIOBTN = 21,
    CLASSID_CHECKBOX = 22,
    CLASSID_EDITLINE = 23,
    CLASSID_EDITBOX = 25,
    CLASSID_TEXT = 26,
    CLASSID_COMBOBOX = 27,
    CLASSID_DROPCOMBOBOX = 28,
    CLASSID_LISTBOX = 29,
    CLASSID_DROPLISTBOX = 30,
    CLASSID_HORZSCRLBAR = 32,
    CLASSID_VERTSCRLBAR = 33,
    CLASSID_DRIVEDIRLIST = 34
};

// The bits of vWIN::flags.
enum : unsigned char {
    WINF_HASDEPENDENTS = 1,
    WINF_NEWED = 2,
    WINF_ERASE = 4
};

// The bits of vWIN::updateFlags.
enum : unsigned char {
    WINUPD_MARKED = 1
};

// The parameters of the platform window that the constructor chain gathers
// before the most derived class creates it.
class ZKSHELL_API vCREATEPARAMS {
public:
    vCREATEPARAMS();
    vCREATEPARAMS(const vCREATEPARAMS& other);
    vCREATEPARAMS& operator=(const vCREATEPARAMS& other);
    ~vCREATEPARAMS();

    char szClassName[16];
    // What the creating class expects as its class procedure; nothing reads
    // it at creation.
    WNDPROC pfnClassProc;
    const char* lpszTitle;
    DWORD dwStyle;
    // In device units.
    vRECT rect;
    HMENU hMenuOrId;
    HWND hParent;
};

// One platform window, and a device that draws on it. A window made with
// new owns itself and dies with its platform window; one on the stack or
// inside another object is only unbound when the platform window dies, and a
// copy is a second view of the same handle.
class ZKSHELL_API vWIN : public vDEVICE {
public:
    // Wraps a window that exists already; the user binds and subclasses it
    // when ready.
    vWIN(HWND window, const vRESID& resource);
    vWIN(const vWIN& parent, const vRECT& rect, vWNDFLAGS style = WF_NONE, vCLASSID classId = CLASSID_WIN);
    // A top-level window under the application's frame.
    vWIN(const vAPP& app, const vRECT& rect, vWNDFLAGS style = WF_NONE, vCLASSID classId = CLASSID_WIN);
    vWIN(const vWIN& other);
    vWIN& operator=(const vWIN& other);
    ~vWIN() override;

    static void* operator new(size_t size);
    static void operator delete(void* block);

    HDC GetWinDC() override;
    int ReleaseWinDC() override;

    virtual vWIN* Parent();
    virtual vWIN* Child(const vCTRLID& id);
    virtual void Activate();
    virtual void Update();
    virtual void Show(int show = 1);
    virtual void Hide();
    virtual int Enable(int enable = 1);
    virtual int Disable();
    virtual void Close();
    virtual void Maximise();
    virtual void Size(const vRECT& rect);
    virtual vRECT Size() const;
    virtual vINT BorderWidth();
    virtual vINT BorderHeight();
    // Called by the update pass when a window this one depends on has
    // changed.
    virtual void UpdateView(const vCTRLID&) {}

    // The handlers. Each does nothing by default and answers non-zero when it
    // has handled the event; for the messages whose dispatch passes that
    // answer on, a non-zero one keeps the platform's own processing from
    // running.

    // Window events and commands. A non-zero answer to the close question
    // lets the close go on.
    virtual int vQueryClose() { return 1; }
    virtual int vBorderDrag(vRECT* newRect, vRECT* oldRect);
    virtual int vSize(const vRECT& /*client*/) { return 0; }
    virtual int vIconize() { return 0; }
    virtual int vActivate() { return 0; }
    virtual int vDeactivate() { return 0; }
    virtual int vCommand(const vCTRLID&) { return 0; }
    virtual int vCommandHint(const vCTRLID&) { return 0; }
    virtual int vClick(const vCTRLID&) { return 0; }
    virtual int vTimer(const vRESID&) { return 0; }
    virtual int vSettingChange() { return 0; }

    // The mouse, at points in client device units.
    virtual int vMouseMove(const vPOINT&) { return 0; }
    virtual int vMouseLeftPress(const vPOINT&) { return 0; }
    virtual int vMouseLeftRelease(const vPOINT&) { return 0; }
    virtual int vMouseMiddlePress(const vPOINT&) { return 0; }
    virtual int vMouseMiddleRelease(const vPOINT&) { return 0; }
    virtual int vMouseRightPress(const vPOINT&) { return 0; }
    virtual int vMouseRightRelease(const vPOINT&) { return 0; }
    virtual int vMouseLeftDoublePress(const vPOINT&) { return 0; }
    virtual int vMouseMiddleDoublePress(const vPOINT&) { return 0; }
    virtual int vMouseRightDoublePress(const vPOINT&) { return 0; }

    // The focus; the window it goes to is null when that is no window of the
    // library.
    virtual int vGetFocus() { return 0; }
    virtual int vReleaseFocus(vWIN* /*next*/) { return 0; }

    // Scrolling.
    virtual int vScrollPageUp() { return 0; }
    virtual int vScrollPageDown() { return 0; }
    virtual int vScrollPageLeft() { return 0; }
    virtual int vScrollPageRight() { return 0; }
    virtual int vScrollIncUp() { return 0; }
    virtual int vScrollIncDown() { return 0; }
    virtual int vScrollIncLeft() { return 0; }
    virtual int vScrollIncRight() { return 0; }

    // The keys.
    virtual int vEscapeKey() { return 0; }
    virtual int vTabKey() { return 0; }
    virtual int vBackspaceKey() { return 0; }
    virtual int vEnterKey() { return 0; }
    virtual int vInsertKey() { return 0; }
    virtual int vDeleteKey() { return 0; }
    virtual int vHomeKey() { return 0; }
    virtual int vEndKey() { return 0; }
    virtual int vPageUpKey() { return 0; }
    virtual int vPageDownKey() { return 0; }
    virtual int vArrowUpKey() { return 0; }
    virtual int vArrowDownKey() { return 0; }
    virtual int vArrowLeftKey() { return 0; }
    virtual int vArrowRightKey() { return 0; }
    // The one key handler that reports the key as handled by default, so
    // function keys never reach the platform's own handling. F1 is 1.
    virtual int vFunctionKey(unsigned short /*number*/) { return 1; }
    virtual int vCharacterKey(const vCHAR&) { return 0; }
    // Every key press, before the key's own handler.
    virtual int vKeyDown() { return 0; }

    // Drag and drop.
    virtual int vDragInit(const vPOINT&) { return 0; }
    virtual void vDragFeedback(unsigned char state, const vPOINT& point);
    virtual int vDragTerminate(const vTRANSFER&, unsigned char /*state*/, int /*onTarget*/) { return 0; }
    virtual int vDropTarget(const vTRANSFER&, const vPOINT&) { return 0; }
    virtual int vDropTargetEnter() { return 0; }
    virtual int vDropTargetOver(const vPOINT&) { return 0; }
    virtual int vDropTargetLeave() { return 0; }

    // Tab with Control held. It comes last, apart from the other keys,
    // because programs call the handlers by their place in the virtual table.
    virtual int vCtrTab() { return 0; }

    virtual vRESID ResTemplate() const;

protected:
    // The library's own part of the table; application classes override
    // the handlers above.
    virtual int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    virtual int DoDraw();
    virtual int DoEraseBkGnd(WPARAM wParam, LPARAM lParam);
    virtual void CreateWin();
    virtual int DestroyWindow();
    virtual int vEraseBkg();
    virtual vCLASSID GetClassID();

public:
    HWND operator()() const;
    const vCTRLID& GetID() const;
    void SetID(const vCTRLID& newId);
    vAPP* Application() const;
    vPOINTER* Pointer() const;
    // Takes the focus; the name is a command, not a query.
    void GetFocus();
    int Enabled() const;
    int IsHidden() const;
    int IsVisible() const;
    void Normalise();
    void Iconize();
    int IsMaximised() const;
    int IsIconized() const;
    const vINT& Width() const;
    const vINT& Height() const;
    // The one timer of a window, identifier 1.
    unsigned short SetTimer(unsigned short ms);
    void KillTimer();
    void Invalidate();
    void Invalidate(const vRECT& rect);
    void Scroll(short dx, short dy);
    vRECT ClientSize() const;
    vPOINT ScreenToClient(const vPOINT& point);
    vPOINT ClientToScreen(const vPOINT& point);
    void BackgroundColour(const vCOLOUR& colour);
    vCOLOUR BackgroundColour() const;
    void DrawMode(vDRAWMODE mode);
    vDRAWMODE DrawMode() const;
    void SetIcon(const vRESID& icon);
    static vWIN* FocusedWindow();
    static vWIN* ActiveWindow();

    // This window's view depends on the other's; the update pass keeps them
    // in step.
    int SetDepend(vWIN* on);
    vWIN* GetDependOnWindow(const vCTRLID& dependId);
    void NotifyPeerControls(const vCTRLID& changedId);

    void DropRegister(unsigned char how);
    void DrawBorder(const vRECT& rect, int raised);
    int DrawWinFrame(const vRECT* newRect, const vRECT* oldRect);

    static int IsNewed;
    static vWIN* NewedThis;
    static int fBorderDrag;
    static vRECT rectDragHotZone;
    static vCREATEPARAMS CreateParams;

protected:
    HDC GetMSDC() override;
    int ReleaseMSDC() override;

    void BindInstance(HWND window);
    void UnbindInstance();
    static vWIN* Instance(HWND window);
    void SubClass();
    void RemoveSubClass();
    void SetDrawMode();
    void MarkForUpdate();
    int UpdateDep(const vCTRLID& changedId);
    void HasDependents();
    void Constructor(const vAPP* app, const vWIN* parent, const vRECT& rect, vWNDFLAGS style, vCLASSID classId);

    vCONTROL* ControlChild(unsigned int controlId);
    int DoDrawItem(unsigned int controlId, tagDRAWITEMSTRUCT* item, LRESULT& result);
    int DoMeasureItem(unsigned int controlId, tagMEASUREITEMSTRUCT* item, LRESULT& result);
    int DoCompareItem(unsigned int controlId, tagCOMPAREITEMSTRUCT* item, LRESULT& result);

    int DoMouseMove(WPARAM wParam, LPARAM lParam);
    int DoLButtonDown(WPARAM wParam, LPARAM lParam);
    int DoLButtonUp(WPARAM wParam, LPARAM lParam);
    void DoCommand(WPARAM wParam, LPARAM lParam);
    void DoHScroll(WPARAM wParam, LPARAM lParam);
    void DoVScroll(WPARAM wParam, LPARAM lParam);
    void DoSize(WPARAM wParam, LPARAM lParam);
    int DoPaletteChanged(int foreground);
    int MSTranslateKey(long key);
    int DoNCMouseMove(WPARAM hit, LPARAM lParam);
    int FrameDrag(unsigned int hit, vPOINT* delta, vRECT* rect);
    static HWND GetDropWindowHandle(HWND window);

    HWND hWnd;
    vWIN* pParent;
    vAPP* pApp;
    COLORREF bkColour;
    WNDPROC pfnOldProc;
    fLIST* pDepends;
    vCTRLID id;
    vPOINTER* pPointer;
    vSCROLLBAR* pVertScroll;
    vSCROLLBAR* pHorzScroll;
    unsigned char flags;
    unsigned char updateFlags;
    vDRAWMODE drawMode;
    vINT width;
    vINT height;
    vRESID resTemplate;
    int isDragging;
    vTRANSFER* pTransfer;
    unsigned char dragState;

private:
    friend class vAPP;
    friend class vCAPWIN;
    friend class vDOCWIN;
    friend class vCONTROL;
    friend class vLISTBOX;
    friend class vRADIOBTN;
    friend class vSCROLLBAR;
    friend class vDIALOG;
    friend class vPOINTER;
    friend class vCARET;
    friend LRESULT CALLBACK GenericProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    friend INT_PTR CALLBACK DlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    int DependsOn(const vWIN* other) const;
    int MarkedDepends() const;
    void StartState();
    void EndState();
    void PlaceIn(const vWIN* parent, const vRECT& rect);
    void CopyFields(const vWIN& other);
    static LRESULT Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT Destroyed(vWIN* win, HWND window, WPARAM wParam, LPARAM lParam);
    static LRESULT PassOn(WNDPROC saved, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static vWIN* BindingOf(HWND window, HANDLE& block);
    static vWIN* BoundChild(HWND parent, int childId);
    template <typename VISIT>
    int WalkKin(VISIT visit);

    int DispatchRegistered(unsigned int message, WPARAM wParam, LRESULT& result);
    int PassesSelection(vWIN& child, unsigned short code, LPARAM lParam);
    int DoClose();
    int DoSetCursor();
    void ClaimPointer();
    int DragFeedbackAt(const vPOINT& point);
    int DoNCLButtonDown(WPARAM hit, LPARAM lParam);
    int DoNCLButtonUp();
    int DragFrame(unsigned int hit, POINT last, vRECT& rect);
    POINT DragStep(unsigned int hit, long lParam, POINT last, vRECT& rect);
    void ConfineDrag();
    void PaintDifference(HRGN ringNew, HRGN ringOld);
};

// The window procedure of every library window but the frame and dialogs:
// it finds the object, hands it the message and lets the saved procedure
// have what the object leaves.
ZKSHELL_API LRESULT CALLBACK GenericProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
