#include "app/appaccess.h"

using Access = vPOINTERACCESS;

namespace {

HCURSOR Stock(LPCSTR which) { return LoadCursorA(nullptr, which); }
vRESID Library(unsigned short id) { return vRESID(id, vSYSTEM::Pointer()); }

// False once the cursor is gone.
bool Alive(HCURSOR cursor) {
    ICONINFO info;
    return GetIconInfo(cursor, &info) && (DeleteObject(info.hbmMask), DeleteObject(info.hbmColor), true);
}

// Each test starts with the pointer on and the capture flags clear, as a program finds them, in a plain popup at (100,
// 100) without a border, and in it a library window whose client area starts at (110, 120) on the screen and is 100 by
// 80. Wine takes seconds to destroy an active window.
class PointerTest : public zktest::LeakFreeTest {
protected:
    static void SetUpTestSuite() { wintest::RegisterClasses(); }
    void SetUp() override {
        LeakFreeTest::SetUp();
        vPOINTER::bCaptured = vPOINTER::bTraped = 1;
        vPOINTER reset(nullptr);
        EXPECT_EQ(vPOINTER::bCaptured + vPOINTER::bTraped, 0);
        reset.On(), ShowWindow(hostHandle, SW_SHOWNOACTIVATE), child.Show(), wintest::Pump();
    }
    void TearDown() override {
        ReleaseCapture(), ClipCursor(nullptr), DestroyWindow(hostHandle), LeakFreeTest::TearDown();
    }
    vPOINTER& Pointer() { return *child.Pointer(); }

    HWND hostHandle = CreateWindowExA(0, "STATIC", "host", WS_POPUP, 100, 100, 300, 200, nullptr, nullptr,
                                      GetModuleHandleA(nullptr), nullptr);
    vWIN host{hostHandle, vRESID()};
    vWIN child{host, vRECT(10, 20, 110, 100)};
};

// What the screen shows after each course of a fresh pointer, and the form it holds: its identifier and, for the
// library's, the library's module. A course: C, W, I the cross, wait and beam forms, 0 the library's form 0, L a drag
// cursor of the library, + push, - pop, s another's wait cursor, x off, o on, A an activation taken, R one refused.
TEST_F(PointerTest, FormsReachTheScreenAndTheStackRestoresThem) {
    const HINSTANCE library = vSYSTEM::Pointer()->GetInstance();
    const struct { const char* course; LPCSTR screen; unsigned short current; HINSTANCE module; unsigned short saved; }
        rows[] = {{"", IDC_WAIT, 0, library, 0},           {"C", IDC_CROSS, PF_CROSS, nullptr, 0},
                  {"W+0", IDC_ARROW, PF_ARROW, nullptr, 1},  {"C+W+I-", IDC_WAIT, PF_WAIT, nullptr, 1},
                  {"C+W+--", IDC_CROSS, PF_CROSS, nullptr, 0}, {"Cs-", IDC_WAIT, PF_CROSS, nullptr, 0},
                  {"L+C-", nullptr, 32505, library, 0},      {"CsxR", IDC_WAIT, PF_CROSS, nullptr, 0},
                  {"CxsoA", IDC_CROSS, PF_CROSS, nullptr, 0}, {"CsA", IDC_CROSS, PF_CROSS, nullptr, 0},
                  {"Cso", IDC_WAIT, PF_CROSS, nullptr, 0},   {"xo", IDC_ARROW, PF_ARROW, nullptr, 0},
                  {"A", IDC_WAIT, 0, library, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.course);
        vPOINTER(nullptr).On();
        vPOINTER pointer(nullptr);
        SetCursor(Stock(IDC_WAIT));
        for (const char* step = row.course; *step; ++step) {
            switch (*step) {
            case 'C': pointer.Form(PF_CROSS); break;
            case 'W': pointer.Form(PF_WAIT); break;
            case 'I': pointer.Form(PF_IBEAM); break;
            case '0': pointer.Form(Library(0)); break;
            case 'L': pointer.Form(Library(32505)); break;
            case '+': pointer.PushForm(); break;
            case '-': pointer.PopForm(); break;
            case 's': SetCursor(Stock(IDC_WAIT)); break;
            case 'x': vPOINTER::Off(); break;
            case 'o': pointer.On(); break;
            default: EXPECT_EQ(Access::Activate(pointer), *step == 'A');
            }
        }
        if (row.screen)
            EXPECT_EQ(GetCursor(), Stock(row.screen));
        else
            EXPECT_TRUE(GetCursor() == Access::Cursor(pointer) && Alive(GetCursor()));
        EXPECT_TRUE(Access::Current(pointer)() == row.current && Access::Current(pointer).Instance() == row.module &&
                    Access::Saved(pointer) == row.saved);
    }
    // A pointer that dies with saved forms frees them all, and leaves the screen with the first form saved.
    vPOINTER* pointer = new vPOINTER(nullptr);
    pointer->Form(PF_CROSS), pointer->PushForm(), pointer->Form(PF_WAIT), pointer->PushForm(), pointer->PushForm();
    delete pointer;
    EXPECT_EQ(GetCursor(), Stock(IDC_CROSS));
}

std::vector<long> Clip() { RECT r; return GetClipCursor(&r), std::vector<long>{r.left, r.top, r.right, r.bottom}; }

// A capture takes the mouse, a confinement is the rectangle on the screen, one a pixel wide or high stands for the
// client area; a release gives both back, and does nothing without a capture.
TEST_F(PointerTest, CaptureTakesTheMouseAndReleaseGivesItBack) {
    std::vector<long> free = Clip();
    vRECT rect(5, 6, 50, 40), narrow(5, 6, 6, 40), flat(5, 6, 50, 7);
    vPOINTER::bTraped = 1;
    Pointer().Release();
    EXPECT_EQ(vPOINTER::bTraped, 1);
    Pointer().Capture(0, rect);
    EXPECT_TRUE(GetCapture() == child() && vPOINTER::bCaptured == 1 && vPOINTER::ActiveOwner(nullptr) == &child);
    EXPECT_EQ(Clip(), free);
    Pointer().Capture(1, rect);
    EXPECT_EQ(vPOINTER::bTraped, 1);
    EXPECT_EQ(Clip(), (std::vector<long>{115, 126, 160, 160}));
    Pointer().Capture(1, narrow);
    EXPECT_EQ(Clip(), (std::vector<long>{110, 120, 210, 200}));
    Pointer().Capture(1, flat);
    EXPECT_EQ(Clip(), (std::vector<long>{110, 120, 210, 200}));
    Pointer().Release();
    EXPECT_TRUE(GetCapture() == nullptr && vPOINTER::bCaptured + vPOINTER::bTraped == 0 &&
                vPOINTER::ActiveOwner(nullptr) == nullptr);
    EXPECT_EQ(Clip(), free);

    // Making a window forgets the capture, so the release no longer lets go.
    Pointer().Capture(0, rect);
    vWIN another(host, vRECT(0, 0, 5, 5));
    EXPECT_EQ(vPOINTER::bCaptured, 0);
    DestroyWindow(another()), Pointer().Release();
    EXPECT_EQ(GetCapture(), child());
}

}  // namespace
