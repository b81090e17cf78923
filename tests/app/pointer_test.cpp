#include <functional>

#include "app/appaccess.h"

using Access = vPOINTERACCESS;

namespace {

HCURSOR Stock(LPCSTR which) { return LoadCursorA(nullptr, which); }
vRESID Library(unsigned short id) { return vRESID(id, vSYSTEM::Pointer()); }

// False once the cursor is gone.
bool Alive(HCURSOR cursor)
{
    ICONINFO info;
    if (!GetIconInfo(cursor, &info))
        return false;
    DeleteObject(info.hbmMask);
    DeleteObject(info.hbmColor);
    return true;
}

// Each test starts with the pointer on and the capture flags clear, as a
// program finds them, in a plain popup at (100, 100) without a border, and
// in it a library window whose client area starts at (110, 120) on the
// screen and is 100 by 80. Wine takes seconds to destroy an active window.
class PointerTest : public zktest::LeakFreeTest {
protected:
    static void SetUpTestSuite() { wintest::RegisterClasses(); }
    void SetUp() override
    {
        LeakFreeTest::SetUp();
        vPOINTER::bCaptured = vPOINTER::bTraped = 1;
        vPOINTER reset(nullptr);
        EXPECT_EQ(vPOINTER::bCaptured + vPOINTER::bTraped, 0);
        reset.On();
        ShowWindow(hostHandle, SW_SHOWNOACTIVATE);
        child.Show();
        wintest::Pump();
    }
    void TearDown() override
    {
        ReleaseCapture();
        ClipCursor(nullptr);
        DestroyWindow(hostHandle);
        LeakFreeTest::TearDown();
    }
    vPOINTER& Pointer() { return *child.Pointer(); }

    HWND hostHandle = CreateWindowExA(0, "STATIC", "host", WS_POPUP, 100, 100, 300, 200, nullptr, nullptr,
                                      GetModuleHandleA(nullptr), nullptr);
    vWIN host{hostHandle, vRESID()};
    vWIN child{host, vRECT(10, 20, 110, 100)};
};

// What the screen shows after each way of setting a form, and the form the
// pointer holds: its identifier and, for the library's, the library's module.
TEST_F(PointerTest, FormsReachTheScreenAndTheStackRestoresThem)
{
    HINSTANCE library = vSYSTEM::Pointer()->GetInstance();
    const struct { const char* what; std::function<void(vPOINTER&)> act; LPCSTR screen; unsigned short current;
                   HINSTANCE module; unsigned short saved; } rows[] = {
        {"new", [](vPOINTER&) {}, IDC_WAIT, 0, library, 0},
        {"stock", [](vPOINTER& p) { p.Form(PF_CROSS); }, IDC_CROSS, PF_CROSS, nullptr, 0},
        {"zero is the arrow",
         [](vPOINTER& p) { p.Form(PF_WAIT); p.PushForm(); p.Form(Library(0)); }, IDC_ARROW, PF_ARROW, nullptr, 1},
        {"pops in reverse",
         [](vPOINTER& p) { p.Form(PF_CROSS); p.PushForm(); p.Form(PF_WAIT); p.PushForm(); p.Form(PF_IBEAM); p.PopForm(); },
         IDC_WAIT, PF_WAIT, nullptr, 1},
        {"pops to the first",
         [](vPOINTER& p) { p.Form(PF_CROSS); p.PushForm(); p.Form(PF_WAIT); p.PushForm(); p.PopForm(); p.PopForm(); },
         IDC_CROSS, PF_CROSS, nullptr, 0},
        {"empty pop", [](vPOINTER& p) { p.Form(PF_CROSS); SetCursor(Stock(IDC_WAIT)); p.PopForm(); }, IDC_WAIT,
         PF_CROSS, nullptr, 0},
        {"library form", [](vPOINTER& p) { p.Form(Library(32505)); p.PushForm(); p.Form(PF_CROSS); p.PopForm(); },
         nullptr, 32505, library, 0},
        {"off refuses", [](vPOINTER& p) { p.Form(PF_CROSS); SetCursor(Stock(IDC_WAIT)); p.Off(); EXPECT_EQ(Access::Activate(p), 0); }, IDC_WAIT,
         PF_CROSS, nullptr, 0},
        {"on puts back", [](vPOINTER& p) { p.Form(PF_CROSS); p.Off(); SetCursor(Stock(IDC_WAIT)); p.On(); }, IDC_CROSS, PF_CROSS, nullptr, 0},
        {"activates", [](vPOINTER& p) { p.Form(PF_CROSS); SetCursor(Stock(IDC_WAIT)); EXPECT_EQ(Access::Activate(p), 1); }, IDC_CROSS, PF_CROSS,
         nullptr, 0},
        {"on while on", [](vPOINTER& p) { p.Form(PF_CROSS); SetCursor(Stock(IDC_WAIT)); p.On(); }, IDC_WAIT, PF_CROSS,
         nullptr, 0},
        {"on without a form", [](vPOINTER& p) { p.Off(); p.On(); }, IDC_ARROW, PF_ARROW, nullptr, 0},
        {"activation without a form", [](vPOINTER& p) { EXPECT_EQ(Access::Activate(p), 1); }, IDC_WAIT, 0, library, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        vPOINTER(nullptr).On();
        vPOINTER pointer(nullptr);
        SetCursor(Stock(IDC_WAIT));
        row.act(pointer);
        if (row.screen)
            EXPECT_EQ(GetCursor(), Stock(row.screen));
        else
            EXPECT_TRUE(GetCursor() == Access::Cursor(pointer) && Alive(GetCursor()));
        EXPECT_EQ(Access::Current(pointer)(), row.current);
        EXPECT_EQ(Access::Current(pointer).Instance(), row.module);
        EXPECT_EQ(Access::Saved(pointer), row.saved);
    }
    // A pointer that dies with saved forms frees them all, and leaves the
    // screen with the first form saved.
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

TEST_F(PointerTest, ThePointerOfAWindowFollowsTheScreen)
{
    EXPECT_EQ(Access::Current(Pointer())(), PF_ARROW);
    EXPECT_EQ(Access::Cursor(Pointer()), Stock(IDC_ARROW));
    SetCursorPos(130, 150);
    EXPECT_EQ(Pointer().Position(), vPOINT(20, 30));
    EXPECT_EQ(vPOINTER::OverZKWindow(), &child);
    Pointer().Position(vPOINT(7, 9));
    EXPECT_EQ(vPOINTER::ScrnPosition(), vPOINT(117, 129));
    SetCursorPos(105, 105);
    EXPECT_EQ(vPOINTER::OverZKWindow(), nullptr);
    vPOINTER::ScrnPosition(vPOINT(65536 + 1000, 131072 + 900));
    POINT where;
    GetCursorPos(&where);
    EXPECT_EQ(vPOINT(where.x, where.y), vPOINT(1000, 900));
    EXPECT_EQ(vPOINTER::OverZKWindow(), nullptr);
    int shown = vPOINTER::Hide();
    EXPECT_EQ(vPOINTER::Show(), shown + 1);

    // A read of the active owner never clears it; activation makes the owner
    // active unless the pointer is off.
    vPOINTER::ActiveOwner(&host);
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &host);
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &host);
    vPOINTER::Off();
    EXPECT_EQ(Access::Activate(Pointer()), 0);
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &host);
    Pointer().On();
    EXPECT_EQ(Access::Activate(Pointer()), 1);
    EXPECT_EQ(vPOINTER::ActiveOwner(&host), &child);
}

std::vector<long> Clip()
{
    RECT rect;
    GetClipCursor(&rect);
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// A capture takes the mouse, a confinement is the rectangle on the screen,
// one a pixel wide or high stands for the client area; a release gives both
// back, and does nothing without a capture.
TEST_F(PointerTest, CaptureTakesTheMouseAndReleaseGivesItBack)
{
    std::vector<long> free = Clip();
    vRECT rect(5, 6, 50, 40), narrow(5, 6, 6, 40), flat(5, 6, 50, 7);
    vPOINTER::bTraped = 1;
    Pointer().Release();
    EXPECT_EQ(vPOINTER::bTraped, 1);
    Pointer().Capture(0, rect);
    EXPECT_EQ(GetCapture(), child());
    EXPECT_EQ(vPOINTER::bCaptured, 1);
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), &child);
    EXPECT_EQ(Clip(), free);
    Pointer().Capture(1, rect);
    EXPECT_EQ(vPOINTER::bTraped, 1);
    EXPECT_EQ(Clip(), (std::vector<long>{115, 126, 160, 160}));
    Pointer().Capture(1, narrow);
    EXPECT_EQ(Clip(), (std::vector<long>{110, 120, 210, 200}));
    Pointer().Capture(1, flat);
    EXPECT_EQ(Clip(), (std::vector<long>{110, 120, 210, 200}));
    Pointer().Release();
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(vPOINTER::bCaptured + vPOINTER::bTraped, 0);
    EXPECT_EQ(vPOINTER::ActiveOwner(nullptr), nullptr);
    EXPECT_EQ(Clip(), free);

    // Making a window forgets the capture, so the release no longer lets go.
    Pointer().Capture(0, rect);
    vWIN another(host, vRECT(0, 0, 5, 5));
    EXPECT_EQ(vPOINTER::bCaptured, 0);
    DestroyWindow(another());
    Pointer().Release();
    EXPECT_EQ(GetCapture(), child());
}

}  // namespace
