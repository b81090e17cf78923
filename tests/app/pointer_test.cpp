#include <string>
#include <vector>

#include "app/pointer.h"
#include "app/pointeraccess.h"
#include "app/window.h"
#include "base/system.h"
#include "support/zktest.h"

namespace {

using Access = vPOINTERACCESS;

const char DiscrepancyLine[] = "Trace: vPOINTER::Form - Error, discrapency between cursors";

HCURSOR Stock(LPCSTR which)
{
    return LoadCursorA(nullptr, which);
}

vRESID Library(unsigned short id)
{
    return vRESID(id, vSYSTEM::Pointer());
}

// A cursor that belongs to the test alone: unlike a loaded one it is not
// shared, so destroying it really ends it.
HCURSOR OwnCursor()
{
    BYTE andMask[32 * 4];
    BYTE xorMask[32 * 4] = {};
    for (BYTE& bits : andMask)
        bits = 0xFF;
    return CreateCursor(GetModuleHandleA(nullptr), 3, 3, 32, 32, andMask, xorMask);
}

// False once the cursor is gone; otherwise its hot spot, if asked for.
bool Alive(HCURSOR cursor, POINT* hotSpot = nullptr)
{
    ICONINFO info;
    if (!GetIconInfo(cursor, &info))
        return false;
    DeleteObject(info.hbmMask);
    if (info.hbmColor)
        DeleteObject(info.hbmColor);
    if (hotSpot)
        *hotSpot = POINT{static_cast<LONG>(info.xHotspot), static_cast<LONG>(info.yHotspot)};
    return true;
}

// Each test starts with the pointer on and the capture flags clear, as a
// program finds them.
class PointerTest : public zktest::LeakFreeTest {
protected:
    void SetUp() override
    {
        zktest::LeakFreeTest::SetUp();
        vPOINTER reset(nullptr);
        reset.On();
    }
};

class PointerFormTest : public PointerTest {};

TEST_F(PointerFormTest, NewPointerHasTheNullFormOfTheLibraryAndClearsTheCaptureFlags)
{
    vPOINTER::bCaptured = 1;
    vPOINTER::bTraped = 1;
    vPOINTER pointer(nullptr);
    EXPECT_EQ(vPOINTER::bCaptured, 0);
    EXPECT_EQ(vPOINTER::bTraped, 0);
    EXPECT_EQ(Access::Current(pointer)(), 0);
    EXPECT_EQ(Access::Current(pointer).Instance(), vSYSTEM::Pointer()->GetInstance());
    EXPECT_EQ(Access::Cursor(pointer), nullptr);
    EXPECT_EQ(Access::Saved(pointer), 0);
}

TEST_F(PointerFormTest, StockFormSetsThePlatformCursor)
{
    vPOINTER pointer(nullptr);
    pointer.Form(PF_CROSS);
    EXPECT_EQ(Access::Cursor(pointer), Stock(IDC_CROSS));
    EXPECT_EQ(GetCursor(), Stock(IDC_CROSS));
    EXPECT_EQ(Access::Current(pointer)(), PF_CROSS);
    EXPECT_EQ(Access::Current(pointer).Instance(), nullptr);
}

TEST_F(PointerFormTest, FormZeroIsTheArrowAndLeavesTheStackAlone)
{
    vPOINTER pointer(nullptr);
    pointer.Form(PF_WAIT);
    pointer.PushForm();
    pointer.Form(Library(0));
    EXPECT_EQ(Access::Current(pointer)(), PF_ARROW);
    EXPECT_EQ(Access::Current(pointer).Instance(), nullptr);
    EXPECT_EQ(GetCursor(), Stock(IDC_ARROW));
    EXPECT_EQ(Access::Saved(pointer), 1);
}

TEST_F(PointerFormTest, DragCursorsComeFromTheBaseLibrary)
{
    vPOINTER pointer(nullptr);
    pointer.Form(Library(32500));
    HCURSOR drop = Access::Cursor(pointer);
    ASSERT_NE(drop, nullptr);
    EXPECT_EQ(GetCursor(), drop);
    pointer.Form(Library(32505));
    HCURSOR noDrop = Access::Cursor(pointer);
    ASSERT_NE(noDrop, nullptr);
    EXPECT_NE(noDrop, drop);
    EXPECT_EQ(GetCursor(), noDrop);
    // Both point with the arrow's tip.
    for (HCURSOR cursor : {drop, noDrop}) {
        POINT hotSpot = {-1, -1};
        EXPECT_TRUE(Alive(cursor, &hotSpot));
        EXPECT_EQ(hotSpot.x, 0);
        EXPECT_EQ(hotSpot.y, 0);
    }
}

TEST_F(PointerFormTest, ALibraryCursorLoadsAgainAfterItWasReplaced)
{
    {
        vPOINTER pointer(nullptr);
        pointer.Form(Library(32500));
        pointer.Form(Library(32505));
        pointer.Form(Library(32500));
        EXPECT_TRUE(Alive(Access::Cursor(pointer)));
        EXPECT_EQ(GetCursor(), Access::Cursor(pointer));
    }
    // Each was handed to DestroyCursor once: on replacement, and at the end.
    for (unsigned short id : {32500, 32505})
        EXPECT_TRUE(Alive(LoadCursorA(vSYSTEM::Pointer()->GetInstance(), MAKEINTRESOURCEA(id))));
}

TEST_F(PointerFormTest, ACursorSetBehindTheBackOfALibraryFormIsDestroyed)
{
    vPOINTER pointer(nullptr);
    pointer.Form(Library(32500));
    HCURSOR stranger = OwnCursor();
    SetCursor(stranger);
    pointer.Form(PF_IBEAM);
    EXPECT_FALSE(Alive(stranger));
    EXPECT_EQ(GetCursor(), Stock(IDC_IBEAM));
}

TEST_F(PointerFormTest, ACursorSetBehindTheBackOfAStockFormIsKept)
{
    vPOINTER pointer(nullptr);
    pointer.Form(PF_CROSS);
    HCURSOR stranger = OwnCursor();
    SetCursor(stranger);
    pointer.Form(PF_IBEAM);
    EXPECT_TRUE(Alive(stranger));
    DestroyCursor(stranger);
}

class PointerTraceTest : public PointerTest {
protected:
    void SetUp() override
    {
        PointerTest::SetUp();
        savedLevel = vSYSTEM::GetTraceLevel();
    }
    void TearDown() override
    {
        vSYSTEM::SetTraceLevel(savedLevel);
        PointerTest::TearDown();
    }

    static int Discrepancies(const zktest::TraceCapture& capture)
    {
        int count = 0;
        for (const std::string& line : capture.Lines())
            count += line == DiscrepancyLine;
        return count;
    }

    unsigned short savedLevel = 0;
};

TEST_F(PointerTraceTest, AForeignCursorOnTheScreenIsReportedAtLevelThree)
{
    vSYSTEM::SetTraceLevel(3);
    vPOINTER pointer(nullptr);
    pointer.Form(PF_CROSS);
    SetCursor(Stock(IDC_WAIT));
    zktest::TraceCapture capture;
    pointer.Form(PF_IBEAM);
    EXPECT_EQ(Discrepancies(capture), 1);
}

TEST_F(PointerTraceTest, ThePointersOwnCursorOnTheScreenIsNotReported)
{
    vSYSTEM::SetTraceLevel(3);
    vPOINTER pointer(nullptr);
    pointer.Form(PF_CROSS);
    zktest::TraceCapture capture;
    pointer.Form(PF_IBEAM);
    EXPECT_EQ(Discrepancies(capture), 0);
}

TEST_F(PointerTraceTest, BelowLevelThreeTheDiscrepancyIsQuiet)
{
    vSYSTEM::SetTraceLevel(1);
    vPOINTER pointer(nullptr);
    SetCursor(Stock(IDC_WAIT));
    zktest::TraceCapture capture;
    pointer.Form(PF_IBEAM);
    EXPECT_EQ(Discrepancies(capture), 0);
}

class PointerStackTest : public PointerTest {};

TEST_F(PointerStackTest, PopRestoresTheFormsInReverseOrder)
{
    vPOINTER pointer(nullptr);
    pointer.Form(PF_CROSS);
    pointer.PushForm();
    pointer.Form(PF_WAIT);
    pointer.PushForm();
    pointer.Form(PF_IBEAM);
    EXPECT_EQ(Access::Saved(pointer), 2);

    pointer.PopForm();
    EXPECT_EQ(Access::Current(pointer)(), PF_WAIT);
    EXPECT_EQ(GetCursor(), Stock(IDC_WAIT));
    pointer.PopForm();
    EXPECT_EQ(Access::Current(pointer)(), PF_CROSS);
    EXPECT_EQ(GetCursor(), Stock(IDC_CROSS));
    EXPECT_EQ(Access::Saved(pointer), 0);
}

TEST_F(PointerStackTest, PopOnAnEmptyStackDoesNothing)
{
    vPOINTER pointer(nullptr);
    pointer.Form(PF_CROSS);
    SetCursor(Stock(IDC_WAIT));
    pointer.PopForm();
    EXPECT_EQ(Access::Current(pointer)(), PF_CROSS);
    EXPECT_EQ(GetCursor(), Stock(IDC_WAIT));
    EXPECT_EQ(Access::Saved(pointer), 0);
}

TEST_F(PointerStackTest, ALibraryFormSurvivesTheStack)
{
    vPOINTER pointer(nullptr);
    pointer.Form(Library(32505));
    pointer.PushForm();
    pointer.Form(PF_CROSS);
    pointer.PopForm();
    EXPECT_EQ(Access::Current(pointer)(), 32505);
    EXPECT_EQ(Access::Current(pointer).Instance(), vSYSTEM::Pointer()->GetInstance());
    EXPECT_TRUE(Alive(Access::Cursor(pointer)));
}

// The fixture counts the nodes: a pointer that dies with saved forms frees
// them all, and the screen is left with the first form saved.
TEST_F(PointerStackTest, DestructionPopsEverySavedForm)
{
    vPOINTER* pointer = new vPOINTER(nullptr);
    pointer->Form(PF_CROSS);
    pointer->PushForm();
    pointer->Form(PF_WAIT);
    pointer->PushForm();
    pointer->PushForm();
    pointer->Form(PF_IBEAM);
    delete pointer;
    EXPECT_EQ(GetCursor(), Stock(IDC_CROSS));
}

class PointerSwitchTest : public PointerTest {};

TEST_F(PointerSwitchTest, AnOffPointerRefusesToActivate)
{
    vPOINTER pointer(nullptr);
    pointer.Form(PF_CROSS);
    SetCursor(Stock(IDC_WAIT));
    vPOINTER::Off();
    EXPECT_EQ(Access::Activate(pointer), 0);
    EXPECT_EQ(GetCursor(), Stock(IDC_WAIT));
}

TEST_F(PointerSwitchTest, OnPutsTheFormBackAndAllowsActivation)
{
    vPOINTER pointer(nullptr);
    pointer.Form(PF_CROSS);
    vPOINTER::Off();
    SetCursor(Stock(IDC_WAIT));
    pointer.On();
    EXPECT_EQ(GetCursor(), Stock(IDC_CROSS));
    SetCursor(Stock(IDC_WAIT));
    EXPECT_EQ(Access::Activate(pointer), 1);
    EXPECT_EQ(GetCursor(), Stock(IDC_CROSS));
}

TEST_F(PointerSwitchTest, OnWhileOnLeavesTheScreenAlone)
{
    vPOINTER pointer(nullptr);
    pointer.Form(PF_CROSS);
    SetCursor(Stock(IDC_WAIT));
    pointer.On();
    EXPECT_EQ(GetCursor(), Stock(IDC_WAIT));
}

TEST_F(PointerSwitchTest, OnWithoutAFormGivesTheArrow)
{
    vPOINTER pointer(nullptr);
    vPOINTER::Off();
    SetCursor(Stock(IDC_WAIT));
    pointer.On();
    EXPECT_EQ(GetCursor(), Stock(IDC_ARROW));
    EXPECT_EQ(Access::Current(pointer)(), PF_ARROW);
}

TEST_F(PointerSwitchTest, ActivationWithoutAFormKeepsTheScreenCursor)
{
    vPOINTER pointer(nullptr);
    SetCursor(Stock(IDC_WAIT));
    EXPECT_EQ(Access::Activate(pointer), 1);
    EXPECT_EQ(GetCursor(), Stock(IDC_WAIT));
}

class PointerScreenTest : public PointerTest {};

TEST_F(PointerScreenTest, ScreenPositionGoesToThePlatformCursor)
{
    vPOINTER::ScrnPosition(vPOINT(100, 120));
    POINT where;
    GetCursorPos(&where);
    EXPECT_EQ(where.x, 100);
    EXPECT_EQ(where.y, 120);
    EXPECT_EQ(vPOINTER::ScrnPosition(), vPOINT(100, 120));
}

TEST_F(PointerScreenTest, ScreenPositionIsNarrowedToSixteenBits)
{
    vPOINTER::ScrnPosition(vPOINT(65536 + 50, 131072 + 60));
    EXPECT_EQ(vPOINTER::ScrnPosition(), vPOINT(50, 60));
}

TEST_F(PointerScreenTest, ShowAndHideCountAsThePlatformDoes)
{
    int shown = vPOINTER::Hide();
    EXPECT_EQ(vPOINTER::Show(), shown + 1);
}

TEST_F(PointerScreenTest, ReleaseWithoutCaptureDoesNothing)
{
    vPOINTER pointer(nullptr);
    vPOINTER::bTraped = 1;
    pointer.Release();
    EXPECT_EQ(vPOINTER::bTraped, 1);
    vPOINTER::bTraped = 0;
}

// Wine on a bare X server accepts a confinement and does not apply it, so
// what the library asks of ClipCursor is seen at the call: this swaps the
// library's import of it for a recorder that passes each call on.
class CLIPRECORDER {
public:
    CLIPRECORDER() : slot(ImportSlot("ClipCursor")), original(slot ? *slot : nullptr)
    {
        active = this;
        Store(reinterpret_cast<void*>(&Record));
    }
    ~CLIPRECORDER()
    {
        Store(original);
        active = nullptr;
    }
    CLIPRECORDER(const CLIPRECORDER&) = delete;
    CLIPRECORDER& operator=(const CLIPRECORDER&) = delete;

    bool Found() const { return slot != nullptr; }

    // One entry a call; a release is an empty rectangle marked as such.
    struct CALL {
        bool released;
        RECT rect;
    };
    std::vector<CALL> calls;

private:
    typedef BOOL(WINAPI* CLIPCURSOR)(const RECT*);

    static BOOL WINAPI Record(const RECT* rect)
    {
        active->calls.push_back(CALL{rect == nullptr, rect ? *rect : RECT{}});
        return reinterpret_cast<CLIPCURSOR>(active->original)(rect);
    }

    // The entry of the library's import table that the loader filled with
    // the platform's function.
    static void** ImportSlot(const char* name)
    {
        BYTE* base = reinterpret_cast<BYTE*>(GetModuleHandleA("zkshell.dll"));
        void* target = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("user32.dll"), name));
        auto dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
        auto nt = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
        DWORD start = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
        for (auto entry = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + start); entry->Name; ++entry) {
            for (auto thunk = reinterpret_cast<void**>(base + entry->FirstThunk); *thunk; ++thunk) {
                if (*thunk == target)
                    return thunk;
            }
        }
        return nullptr;
    }

    void Store(void* function)
    {
        if (!slot)
            return;
        DWORD protection;
        VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
        *slot = function;
        VirtualProtect(slot, sizeof *slot, protection, &protection);
    }

    static CLIPRECORDER* active;
    void** slot;
    void* original;
};

CLIPRECORDER* CLIPRECORDER::active = nullptr;

// Without an application nobody has registered the library's window class.
void RegisterGeneric()
{
    WNDCLASSA known;
    HINSTANCE library = vSYSTEM::Pointer()->GetInstance();
    if (GetClassInfoA(library, "GENERIC", &known))
        return;
    WNDCLASSA generic = {};
    generic.lpfnWndProc = DefWindowProcA;
    generic.hInstance = library;
    generic.lpszClassName = "GENERIC";
    RegisterClassA(&generic);
}

HWND MakeHost()
{
    RegisterGeneric();
    HWND host = CreateWindowExA(0, "STATIC", "host", WS_POPUP, 100, 100, 300, 200, nullptr, nullptr,
                                GetModuleHandleA(nullptr), nullptr);
    // Wine takes seconds to destroy a window that was active.
    ShowWindow(host, SW_SHOWNOACTIVATE);
    return host;
}

void Pump()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageA(&message);
}

// A plain popup at (100, 100) without a border, and in it a library window
// whose client area starts at (110, 120) on the screen and is 100 by 80.
class SCENE {
public:
    SCENE()
        : hostHandle(MakeHost()), host(hostHandle, vRESID()), child(host, vRECT(10, 20, 110, 100))
    {
        child.Show();
        Pump();
    }
    ~SCENE()
    {
        ReleaseCapture();
        ClipCursor(nullptr);
        DestroyWindow(hostHandle);
    }

    vPOINTER& Pointer() { return *child.Pointer(); }

    HWND hostHandle;
    vWIN host;
    vWIN child;
};

std::vector<long> Edges(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

class PointerWindowTest : public PointerTest {};

TEST_F(PointerWindowTest, AWindowStartsWithTheArrow)
{
    SCENE scene;
    ASSERT_NE(scene.child.Pointer(), nullptr);
    EXPECT_EQ(Access::Current(scene.Pointer())(), PF_ARROW);
    EXPECT_EQ(Access::Current(scene.Pointer()).Instance(), nullptr);
    EXPECT_EQ(Access::Cursor(scene.Pointer()), Stock(IDC_ARROW));
}

TEST_F(PointerWindowTest, PositionIsInTheOwnersClientArea)
{
    SCENE scene;
    SetCursorPos(130, 150);
    EXPECT_EQ(scene.Pointer().Position(), vPOINT(20, 30));
    scene.Pointer().Position(vPOINT(7, 9));
    POINT where;
    GetCursorPos(&where);
    EXPECT_EQ(where.x, 117);
    EXPECT_EQ(where.y, 129);
}

TEST_F(PointerWindowTest, OnlyTheLibrarysWindowsAreFoundUnderTheMouse)
{
    SCENE scene;
    SetCursorPos(130, 150);
    EXPECT_EQ(vPOINTER::OverZKWindow(), &scene.child);
    SetCursorPos(105, 105);
    EXPECT_EQ(vPOINTER::OverZKWindow(), nullptr);
    SetCursorPos(1000, 900);
    EXPECT_EQ(vPOINTER::OverZKWindow(), nullptr);
}

TEST_F(PointerWindowTest, AReadOfTheActiveOwnerNeverClearsIt)
{
    SCENE scene;
    vPOINTER::ActiveOwner(&scene.child);
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &scene.child);
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &scene.child);
    EXPECT_EQ(vPOINTER::ActiveOwner(&scene.host), &scene.child);
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &scene.host);
}

TEST_F(PointerWindowTest, ActivationMakesTheOwnerActive)
{
    SCENE scene;
    vPOINTER::ActiveOwner(&scene.host);
    EXPECT_EQ(Access::Activate(scene.Pointer()), 1);
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &scene.child);
}

TEST_F(PointerWindowTest, AnOffPointerLeavesTheActiveOwnerAlone)
{
    SCENE scene;
    vPOINTER::ActiveOwner(&scene.host);
    vPOINTER::Off();
    EXPECT_EQ(Access::Activate(scene.Pointer()), 0);
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &scene.host);
}

class PointerCaptureTest : public PointerTest {};

TEST_F(PointerCaptureTest, CaptureTakesTheMouseAndReleaseGivesItBack)
{
    SCENE scene;
    CLIPRECORDER clips;
    ASSERT_TRUE(clips.Found());
    vRECT ignored(0, 0, 40, 40);
    scene.Pointer().Capture(0, ignored);
    EXPECT_EQ(GetCapture(), scene.child());
    EXPECT_EQ(vPOINTER::bCaptured, 1);
    EXPECT_EQ(vPOINTER::bTraped, 0);
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &scene.child);

    scene.Pointer().Release();
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(vPOINTER::bCaptured, 0);
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), nullptr);
    EXPECT_TRUE(clips.calls.empty());
}

TEST_F(PointerCaptureTest, ConfinementIsTheRectangleOnTheScreen)
{
    SCENE scene;
    CLIPRECORDER clips;
    ASSERT_TRUE(clips.Found());
    vRECT rect(5, 6, 50, 40);
    scene.Pointer().Capture(1, rect);
    EXPECT_EQ(vPOINTER::bTraped, 1);
    ASSERT_EQ(clips.calls.size(), 1u);
    EXPECT_EQ(Edges(clips.calls[0].rect), (std::vector<long>{115, 126, 160, 160}));
}

TEST_F(PointerCaptureTest, ARectangleOneWideOrOneHighStandsForTheClientArea)
{
    SCENE scene;
    CLIPRECORDER clips;
    ASSERT_TRUE(clips.Found());
    vRECT narrow(5, 6, 6, 40);
    scene.Pointer().Capture(1, narrow);
    vRECT flat(5, 6, 50, 7);
    scene.Pointer().Capture(1, flat);
    ASSERT_EQ(clips.calls.size(), 2u);
    EXPECT_EQ(Edges(clips.calls[0].rect), (std::vector<long>{110, 120, 210, 200}));
    EXPECT_EQ(Edges(clips.calls[1].rect), (std::vector<long>{110, 120, 210, 200}));
}

TEST_F(PointerCaptureTest, ReleaseEndsTheConfinement)
{
    SCENE scene;
    CLIPRECORDER clips;
    ASSERT_TRUE(clips.Found());
    vRECT rect(5, 6, 50, 40);
    scene.Pointer().Capture(1, rect);
    scene.Pointer().Release();
    ASSERT_EQ(clips.calls.size(), 2u);
    EXPECT_TRUE(clips.calls[1].released);
    EXPECT_EQ(vPOINTER::bTraped, 0);
    EXPECT_EQ(GetCapture(), nullptr);
}

// Making a window forgets the capture, so the capturing pointer's release no
// longer lets go of the mouse.
TEST_F(PointerCaptureTest, ANewWindowMakesALaterReleaseDoNothing)
{
    SCENE scene;
    vRECT rect(5, 6, 50, 40);
    scene.Pointer().Capture(0, rect);
    {
        vWIN another(scene.host, vRECT(0, 0, 5, 5));
        EXPECT_EQ(vPOINTER::bCaptured, 0);
        DestroyWindow(another());
    }
    scene.Pointer().Release();
    EXPECT_EQ(GetCapture(), scene.child());
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &scene.child);
}

class PointerMessageTest : public PointerTest {};

TEST_F(PointerMessageTest, SetCursorShowsTheWindowsForm)
{
    SCENE scene;
    scene.Pointer().Form(PF_CROSS);
    SetCursor(Stock(IDC_WAIT));
    LRESULT handled = SendMessageA(scene.child(), WM_SETCURSOR, reinterpret_cast<WPARAM>(scene.child()),
                                   MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(handled, 1);
    EXPECT_EQ(GetCursor(), Stock(IDC_CROSS));
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &scene.child);
}

TEST_F(PointerMessageTest, SetCursorOfAnOffPointerGoesToThePlatform)
{
    SCENE scene;
    scene.Pointer().Form(PF_CROSS);
    vPOINTER::Off();
    SetCursor(Stock(IDC_WAIT));
    SendMessageA(scene.child(), WM_SETCURSOR, reinterpret_cast<WPARAM>(scene.child()),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_NE(GetCursor(), Stock(IDC_CROSS));
}

// The mouse coming in from another window turns the pointer off and on
// again, which puts the window's form back; moving on within the window
// leaves the screen as it is.
TEST_F(PointerMessageTest, AMouseMoveFromElsewhereRestoresTheForm)
{
    SCENE scene;
    scene.Pointer().Form(PF_CROSS);
    vPOINTER::ActiveOwner(&scene.host);
    SetCursor(Stock(IDC_WAIT));
    SendMessageA(scene.child(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &scene.child);
    EXPECT_EQ(GetCursor(), Stock(IDC_CROSS));

    SetCursor(Stock(IDC_WAIT));
    SendMessageA(scene.child(), WM_MOUSEMOVE, 0, MAKELPARAM(6, 5));
    EXPECT_EQ(GetCursor(), Stock(IDC_WAIT));
}

}  // namespace
