#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "app/recorder.h"
#include "controls/control.h"
#include "graphics/surface.h"

namespace buttontest {

using wintest::Note;
using Lines = std::vector<std::string>;

// The parent of the buttons under test: it notes each command with its
// notification code, which vCommand alone does not see.
class PARENT : public wintest::RECORDER {
public:
    PARENT(const vWIN& parent, const vRECT& rect) : RECORDER(parent, rect, "parent") {}

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override
    {
        if (message == WM_COMMAND)
            Note("parent.WM_COMMAND(" + std::to_string(LOWORD(wParam)) + "," + std::to_string(HIWORD(wParam)) +
                 "," + std::to_string(lParam) + ")");
        return RECORDER::MsgHandler(message, wParam, lParam, result);
    }
};

// A bitmap the size given, in one colour, with a frame of another colour
// round it; the caller owns it.
inline HBITMAP SolidFace(int side, COLORREF inner, int frame, COLORREF border)
{
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, side, side);
    HDC dc = CreateCompatibleDC(screen);
    HGDIOBJ old = SelectObject(dc, bitmap);
    HBRUSH outer = CreateSolidBrush(border);
    HBRUSH middle = CreateSolidBrush(inner);
    RECT all = {0, 0, side, side};
    RECT core = {frame, frame, side - frame, side - frame};
    FillRect(dc, &all, outer);
    FillRect(dc, &core, middle);
    DeleteObject(outer);
    DeleteObject(middle);
    SelectObject(dc, old);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

// The client area of a window as it is on the screen, read back pixel by
// pixel.
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
    DeleteObject(copy);
    DeleteDC(memory);
    ReleaseDC(window, from);
    return shot;
}

// Lets everything queued run, for about the time given.
inline void PumpFor(DWORD ms)
{
    DWORD until = GetTickCount() + ms;
    do {
        wintest::Pump();
        Sleep(10);
    } while (static_cast<long>(until - GetTickCount()) > 0);
    wintest::Pump();
}

// Shows a window and lets it paint.
inline void ShowPainted(HWND window)
{
    ShowWindow(window, SW_SHOWNA);
    InvalidateRect(window, nullptr, TRUE);
    UpdateWindow(window);
    PumpFor(50);
}

inline Lines Only(const std::string& part)
{
    Lines kept;
    for (const std::string& line : wintest::Log())
        if (line.find(part) != std::string::npos)
            kept.push_back(line);
    return kept;
}

inline void Press(DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

// Puts the mouse on a point of the window's client area.
inline void MouseTo(HWND window, int x, int y)
{
    POINT at = {x, y};
    ClientToScreen(window, &at);
    SetCursorPos(at.x, at.y);
    Press(MOUSEEVENTF_MOVE);
}

// Every test gets a shown parent under the shared top-level window; the
// parent dies with the test.
class ButtonTest : public wintest::WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        parent = new PARENT(Top(), vRECT(0, 0, 300, 200));
        ShowWindow((*parent)(), SW_SHOW);
        wintest::Pump();
    }

    void TearDown() override
    {
        DestroyWindow((*parent)());
        wintest::Pump();
        WindowTest::TearDown();
    }

    PARENT* parent = nullptr;
};

}  // namespace buttontest
