#pragma once

#include <windows.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "app/recorder.h"
#include "controls/control.h"
#include "graphics/surface.h"

namespace buttontest {

using wintest::Log;
using wintest::Note;
using Lines = std::vector<std::string>;

// The face colours: the key colour frames each face and is never drawn by a
// bit button; the others tell the faces apart.
const COLORREF Key = RGB(192, 192, 192);
const COLORREF Plain = RGB(255, 0, 0);
const COLORREF Pressed = RGB(0, 255, 0);
const COLORREF Focused = RGB(0, 0, 255);
const COLORREF Disabled = RGB(255, 255, 0);
// A face is 16 pixels square: a frame of 2 in the key colour round 12 by 12.
const int Side = 16;
const int Core = 12 * 12;

// The parent of the controls under test: it notes each command with its
// notification code, which vCommand alone does not see.
class PARENT : public wintest::RECORDER {
public:
    PARENT(const vWIN& parent, const vRECT& rect) : RECORDER(parent, rect, "parent") {}

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override
    {
        if (message == WM_COMMAND)
            Note("parent.WM_COMMAND(" + std::to_string(LOWORD(wParam)) + "," + std::to_string(HIWORD(wParam)) + "," +
                 std::to_string(lParam) + ")");
        return RECORDER::MsgHandler(message, wParam, lParam, result);
    }
};

// A face of the given side in one colour, framed by 2 pixels of the key
// colour, with a hole of the key colour of the given side in its middle;
// the caller owns it.
inline HBITMAP Face(COLORREF inner, int side = Side, int hole = 0)
{
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, side, side);
    HDC dc = CreateCompatibleDC(screen);
    HGDIOBJ old = SelectObject(dc, bitmap);
    HBRUSH key = CreateSolidBrush(Key), middle = CreateSolidBrush(inner);
    RECT all = {0, 0, side, side}, core = {2, 2, side - 2, side - 2};
    RECT gap = {(side - hole) / 2, (side - hole) / 2, (side + hole) / 2, (side + hole) / 2};
    FillRect(dc, &all, key), FillRect(dc, &core, middle), FillRect(dc, &gap, key);
    DeleteObject(key), DeleteObject(middle), SelectObject(dc, old), DeleteDC(dc), ReleaseDC(nullptr, screen);
    return bitmap;
}

// The client area of a window as it is on the screen.
inline zktest::Pixels Shot(HWND window)
{
    RECT client;
    GetClientRect(window, &client);
    HDC from = GetDC(window);
    HDC memory = CreateCompatibleDC(from);
    HBITMAP copy = CreateCompatibleBitmap(from, client.right, client.bottom);
    HGDIOBJ old = SelectObject(memory, copy);
    BitBlt(memory, 0, 0, client.right, client.bottom, from, 0, 0, SRCCOPY);
    SelectObject(memory, old);
    zktest::Pixels shot(copy, client.right, client.bottom);
    DeleteObject(copy), DeleteDC(memory), ReleaseDC(window, from);
    return shot;
}

// The top left corner of where a colour shows in a window; the bottom right
// corner of the window when it shows nowhere.
inline POINT CornerOf(HWND window, COLORREF colour)
{
    RECT client;
    GetClientRect(window, &client);
    zktest::Pixels shot = Shot(window);
    POINT corner = {client.right, client.bottom};
    for (int y = 0; y < client.bottom; ++y)
        for (int x = 0; x < client.right; ++x)
            if (shot.At(x, y) == colour)
                corner = {std::min<long>(corner.x, x), std::min<long>(corner.y, y)};
    return corner;
}

// Lets everything queued run, for about the time given.
inline void PumpFor(DWORD ms)
{
    DWORD until = GetTickCount() + ms;
    do
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT), wintest::Pump();
    while (static_cast<long>(until - GetTickCount()) > 0);
}

// Shows a window and lets it paint.
inline void ShowPainted(HWND window)
{
    ShowWindow(window, SW_SHOWNA), InvalidateRect(window, nullptr, TRUE), UpdateWindow(window), PumpFor(50);
}

// The log lines that contain the part.
inline Lines Only(const std::string& part)
{
    Lines kept;
    std::copy_if(Log().begin(), Log().end(), std::back_inserter(kept), [&](const std::string& line) { return line.find(part) != std::string::npos; });
    return kept;
}

inline void Mouse(DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_MOUSE, input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

// Puts the mouse on a point of the window's client area.
inline void MouseTo(HWND window, int x, int y)
{
    POINT at = {x, y};
    ClientToScreen(window, &at), SetCursorPos(at.x, at.y), Mouse(MOUSEEVENTF_MOVE);
}

// Every test gets a shown parent under the shared top-level window; the
// parent and the controls in it die with the test.
class ControlTest : public wintest::WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        parent = new PARENT(Top(), vRECT(0, 0, 300, 200));
        ShowWindow((*parent)(), SW_SHOW), wintest::Pump();
    }
    void TearDown() override { DestroyWindow((*parent)()), wintest::Pump(), WindowTest::TearDown(); }

    PARENT* parent = nullptr;
};

}  // namespace buttontest
