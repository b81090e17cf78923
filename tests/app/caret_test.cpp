#define OEMRESOURCE
#include <windows.h>

#include <vector>

#include "app/caret.h"
#include "app/window.h"
#include "support/zktest.h"

namespace {

// A popup of the test's own, wrapped as the library wraps a window it did
// not make. It is shown without being activated: Wine takes seconds to
// destroy a window that was active.
class CARETWINDOW {
public:
    CARETWINDOW()
        : handle(CreateWindowExA(0, "STATIC", "caret", WS_POPUP, 50, 50, 200, 100, nullptr, nullptr,
                                 GetModuleHandleA(nullptr), nullptr)),
          window(handle, vRESID())
    {
        ShowWindow(handle, SW_SHOWNOACTIVATE);
    }
    ~CARETWINDOW() { DestroyWindow(handle); }

    HWND handle;
    vWIN window;
};

GUITHREADINFO ThreadCaret()
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetCurrentThreadId(), &info);
    return info;
}

vRESID Platform(unsigned short id)
{
    return vRESID(id, static_cast<const vMODULE*>(nullptr));
}

class CaretTest : public zktest::LeakFreeTest {};

// The platform wants the owning window, and the sized caret names none: no
// caret comes of it, though the thread's caret position is still kept.
TEST_F(CaretTest, TheSizedCaretAsksForACaretWithoutAWindow)
{
    CARETWINDOW owner;
    vCARET caret(owner.window, 3, 15);
    EXPECT_EQ(ThreadCaret().hwndCaret, nullptr);
    caret.Position(vPOINT(10, 12));
    EXPECT_EQ(caret.Position(), vPOINT(10, 12));
}

TEST_F(CaretTest, TheBitmapCaretBelongsToTheWindowAndTakesTheBitmapsSize)
{
    CARETWINDOW owner;
    vCARET caret(owner.window, Platform(OBM_CHECK));
    GUITHREADINFO info = ThreadCaret();
    EXPECT_EQ(info.hwndCaret, owner.handle);
    BITMAP shape;
    HBITMAP check = LoadBitmapA(nullptr, MAKEINTRESOURCEA(OBM_CHECK));
    GetObjectA(check, sizeof shape, &shape);
    DeleteObject(check);
    EXPECT_EQ(info.rcCaret.right - info.rcCaret.left, shape.bmWidth);
    EXPECT_EQ(info.rcCaret.bottom - info.rcCaret.top, shape.bmHeight);
}

TEST_F(CaretTest, AMissingBitmapMakesNoCaret)
{
    CARETWINDOW owner;
    vCARET caret(owner.window, Platform(12345));
    EXPECT_EQ(ThreadCaret().hwndCaret, nullptr);
}

TEST_F(CaretTest, DestructionEndsTheCaret)
{
    CARETWINDOW owner;
    {
        vCARET caret(owner.window, Platform(OBM_CHECK));
        ASSERT_EQ(ThreadCaret().hwndCaret, owner.handle);
    }
    EXPECT_EQ(ThreadCaret().hwndCaret, nullptr);
}

TEST_F(CaretTest, PositionMovesTheCaretInItsWindow)
{
    CARETWINDOW owner;
    vCARET caret(owner.window, Platform(OBM_CHECK));
    caret.Position(vPOINT(30, 40));
    EXPECT_EQ(caret.Position(), vPOINT(30, 40));
    EXPECT_EQ(ThreadCaret().rcCaret.left, 30);
    EXPECT_EQ(ThreadCaret().rcCaret.top, 40);
}

TEST_F(CaretTest, PositionTakesTheCoordinatesAsUnsignedWords)
{
    CARETWINDOW owner;
    vCARET caret(owner.window, Platform(OBM_CHECK));
    caret.Position(vPOINT(-1, 65536 + 5));
    EXPECT_EQ(caret.Position(), vPOINT(65535, 5));
}

void Pump()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageA(&message);
}

// The pixels of the window under a caret at (10, 10), read from the screen.
std::vector<COLORREF> UnderCaret(HWND window)
{
    std::vector<COLORREF> pixels;
    HDC dc = GetDC(window);
    for (int y = 10; y < 24; ++y) {
        for (int x = 10; x < 24; ++x)
            pixels.push_back(GetPixel(dc, x, y));
    }
    ReleaseDC(window, dc);
    return pixels;
}

// A new caret starts hidden once. Show and Hide change the thread's one
// caret whatever window they are given, and the platform counts them.
TEST_F(CaretTest, ShowAndHideReachTheThreadsCaretWhateverTheWindow)
{
    CARETWINDOW stranger;
    CARETWINDOW owner;
    Pump();
    vCARET caret(owner.window, Platform(OBM_CHECK));
    caret.Position(vPOINT(10, 10));
    std::vector<COLORREF> bare = UnderCaret(owner.handle);

    caret.Show(stranger.window);
    std::vector<COLORREF> shown = UnderCaret(owner.handle);
    EXPECT_NE(shown, bare);
    caret.Hide(stranger.window);
    caret.Hide(stranger.window);
    EXPECT_EQ(UnderCaret(owner.handle), bare);
    caret.Show(stranger.window);
    EXPECT_EQ(UnderCaret(owner.handle), bare);
    caret.Show(stranger.window);
    EXPECT_EQ(UnderCaret(owner.handle), shown);
}

TEST_F(CaretTest, TheSizesAreNeitherKeptNorChanged)
{
    CARETWINDOW owner;
    vCARET caret(owner.window, 3, 15);
    EXPECT_EQ(caret.Width(), 0);
    EXPECT_EQ(caret.Height(), 0);
    caret.Width(vINT(8));
    caret.Height(vINT(9));
    EXPECT_EQ(caret.Width(), 0);
    EXPECT_EQ(caret.Height(), 0);
}

TEST_F(CaretTest, TheAngleIsRememberedOnly)
{
    CARETWINDOW owner;
    vCARET caret(owner.window, Platform(OBM_CHECK));
    RECT before = ThreadCaret().rcCaret;
    EXPECT_EQ(caret.Rotate(), vANGLE());
    caret.Rotate(vANGLE(short(90)));
    EXPECT_EQ(caret.Rotate(), vANGLE(short(90)));
    RECT after = ThreadCaret().rcCaret;
    EXPECT_TRUE(EqualRect(&after, &before));
}

}  // namespace
