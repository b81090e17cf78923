#define OEMRESOURCE
#include "app/caret.h"
#include "app/recorder.h"

using wintest::Pump;

namespace {

GUITHREADINFO ThreadCaret()
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetCurrentThreadId(), &info);
    return info;
}

vRESID Platform(unsigned short id) { return vRESID(id, static_cast<const vMODULE*>(nullptr)); }

// Popups of the test's own, wrapped as the library wraps a window it did not
// make, shown without being activated: Wine takes seconds to destroy a window
// that was active.
class CaretTest : public zktest::LeakFreeTest {
protected:
    HWND Make()
    {
        HWND handle = CreateWindowExA(0, "STATIC", "caret", WS_POPUP, 50, 50, 200, 100, nullptr, nullptr,
                                      GetModuleHandleA(nullptr), nullptr);
        ShowWindow(handle, SW_SHOWNOACTIVATE);
        return handle;
    }
    void TearDown() override
    {
        DestroyWindow(owner);
        DestroyWindow(stranger);
        zktest::LeakFreeTest::TearDown();
    }
    // The pixels of the owner under a caret at (10, 10), read from the screen.
    std::vector<COLORREF> UnderCaret()
    {
        std::vector<COLORREF> pixels;
        HDC dc = GetDC(owner);
        for (int at = 0; at < 14 * 14; ++at)
            pixels.push_back(GetPixel(dc, 10 + at % 14, 10 + at / 14));
        ReleaseDC(owner, dc);
        return pixels;
    }

    HWND owner = Make(), stranger = Make();
    vWIN window{owner, vRESID()}, other{stranger, vRESID()};
};

// The platform wants the owning window, and the sized caret names none: no
// caret comes of it, nor of a missing bitmap; the sizes are neither kept nor
// changed, and the angle is only remembered.
TEST_F(CaretTest, OnlyTheBitmapCaretBelongsToTheWindow)
{
    {
        vCARET sized(window, 3, 15);
        EXPECT_EQ(ThreadCaret().hwndCaret, nullptr);
        sized.Width(vINT(8));
        EXPECT_EQ(sized.Width(), 0);
        EXPECT_EQ(sized.Height(), 0);
        vCARET missing(window, Platform(12345));
        EXPECT_EQ(ThreadCaret().hwndCaret, nullptr);
    }
    {
        vCARET caret(window, Platform(OBM_CHECK));
        GUITHREADINFO info = ThreadCaret();
        EXPECT_EQ(info.hwndCaret, owner);
        BITMAP shape;
        HBITMAP check = LoadBitmapA(nullptr, MAKEINTRESOURCEA(OBM_CHECK));
        GetObjectA(check, sizeof shape, &shape);
        DeleteObject(check);
        EXPECT_EQ(info.rcCaret.right - info.rcCaret.left, shape.bmWidth);
        EXPECT_EQ(info.rcCaret.bottom - info.rcCaret.top, shape.bmHeight);
        caret.Position(vPOINT(30, 40));
        EXPECT_EQ(caret.Position(), vPOINT(30, 40));
        EXPECT_EQ(ThreadCaret().rcCaret.left, 30);
        EXPECT_EQ(ThreadCaret().rcCaret.top, 40);
        caret.Position(vPOINT(-1, 65536 + 5));
        EXPECT_EQ(caret.Position(), vPOINT(65535, 5));
        RECT before = ThreadCaret().rcCaret;
        caret.Rotate(vANGLE(short(90)));
        EXPECT_EQ(caret.Rotate(), vANGLE(short(90)));
        RECT after = ThreadCaret().rcCaret;
        EXPECT_TRUE(EqualRect(&after, &before));
    }
    EXPECT_EQ(ThreadCaret().hwndCaret, nullptr);
}

// A new caret starts hidden once. Show and Hide change the thread's one
// caret whatever window they are given, and the platform counts them.
TEST_F(CaretTest, ShowAndHideReachTheThreadsCaretWhateverTheWindow)
{
    Pump();
    vCARET caret(window, Platform(OBM_CHECK));
    caret.Position(vPOINT(10, 10));
    std::vector<COLORREF> bare = UnderCaret();
    caret.Show(other);
    std::vector<COLORREF> shown = UnderCaret();
    EXPECT_NE(shown, bare);
    caret.Hide(other);
    caret.Hide(other);
    EXPECT_EQ(UnderCaret(), bare);
    caret.Show(other);
    EXPECT_EQ(UnderCaret(), bare);
    caret.Show(other);
    EXPECT_EQ(UnderCaret(), shown);
}

}  // namespace
