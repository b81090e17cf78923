#define OEMRESOURCE
#include "app/caret.h"
#include "app/recorder.h"

namespace {

// The thread's caret: its place and its owner.
RECT Caret(HWND* owner = nullptr)
{
    GUITHREADINFO info = {sizeof info, 0, 0, 0, 0, 0, 0, 0, {}};
    GetGUIThreadInfo(GetCurrentThreadId(), &info);
    if (owner)
        *owner = info.hwndCaret;
    return info.rcCaret;
}

// The pixels of the window under a caret at (10, 10), read from the screen.
std::vector<COLORREF> UnderCaret(HWND window)
{
    std::vector<COLORREF> pixels;
    HDC dc = GetDC(window);
    for (int at = 0; at < 14 * 14; ++at)
        pixels.push_back(GetPixel(dc, 10 + at % 14, 10 + at / 14));
    ReleaseDC(window, dc);
    return pixels;
}

vRESID Platform(unsigned short id) { return vRESID(id, static_cast<const vMODULE*>(nullptr)); }

using CaretTest = wintest::WindowTest;

// The platform wants the owning window, and the sized caret names none: no
// caret comes of it, nor of a missing bitmap. The bitmap caret belongs to the
// window, takes the bitmap's size, goes where it is put in unsigned words,
// stays as it is when turned, and goes with its object; a new caret starts
// hidden once, and Show and Hide reach it whatever the window given.
TEST_F(CaretTest, OnlyTheBitmapCaretBelongsToTheWindow)
{
    wintest::RECORDER window(Top(), vRECT(0, 0, 100, 80), "w");
    wintest::RECORDER other(Top(), vRECT(100, 0, 200, 80), "o");
    window.Show(1);
    UpdateWindow(window());
    HWND owner = nullptr;
    {
        vCARET sized(window, 3, 15), missing(window, Platform(12345));
        Caret(&owner);
        EXPECT_EQ(owner, nullptr);
        EXPECT_EQ(sized.Width() + sized.Height(), 0);
        vCARET caret(window, Platform(OBM_CHECK));
        BITMAP shape;
        HBITMAP check = LoadBitmapA(nullptr, MAKEINTRESOURCEA(OBM_CHECK));
        GetObjectA(check, sizeof shape, &shape);
        DeleteObject(check);
        caret.Position(vPOINT(30, 40));
        caret.Rotate(vANGLE(short(90)));
        EXPECT_EQ(caret.Rotate(), vANGLE(short(90)));
        RECT at = Caret(&owner);
        EXPECT_EQ(owner, window());
        EXPECT_EQ(wintest::Text(vRECT(at.left, at.top, at.right, at.bottom)),
                  wintest::Text(vRECT(30, 40, 30 + shape.bmWidth, 40 + shape.bmHeight)));
        caret.Position(vPOINT(-1, 65536 + 5));
        EXPECT_EQ(caret.Position(), vPOINT(65535, 5));
        caret.Position(vPOINT(10, 10));
        const std::vector<COLORREF> bare = UnderCaret(window());
        const struct { int change; bool visible; } steps[] = {{1, true}, {-1, false}, {-1, false}, {1, false}, {1, true}};
        for (const auto& step : steps) {
            step.change > 0 ? caret.Show(other) : caret.Hide(other);
            EXPECT_EQ(UnderCaret(window()) != bare, step.visible);
        }
    }
    Caret(&owner);
    EXPECT_EQ(owner, nullptr);
    DestroyWindow(window());
    DestroyWindow(other());
}

}  // namespace
