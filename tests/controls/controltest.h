#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "app/recorder.h"
#include "controls/control.h"
#include "graphics/surface.h"
#include "support/systemaccess.h"

namespace controltest {

using wintest::Log;
using wintest::Note;
using wintest::Only;
using Lines = std::vector<std::string>;

// The face colours: the key colour frames each face and is never drawn by a bit button; the others tell the faces
// apart. A face is 16 pixels square: a frame of 2 in the key colour round 12 by 12.
const COLORREF Key = RGB(192, 192, 192), Plain = RGB(255, 0, 0), Pressed = RGB(0, 255, 0);
const COLORREF Focused = RGB(0, 0, 255), Disabled = RGB(255, 255, 0);
const int Side = 16, Core = 12 * 12;

// The true parent of the controls under test: it notes each command with its notification code as it arrives, before
// the library's dispatch runs, and keeps the handle the command carries.
class PARENT : public wintest::RECORDER {
public:
    PARENT(const vWIN& parent, const vRECT& rect) : RECORDER(parent, rect, "parent") {}
    std::vector<LPARAM> senders;

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
        if (message == WM_COMMAND) {
            Note("parent.WM_COMMAND(" + std::to_string(LOWORD(wParam)) + "," + std::to_string(HIWORD(wParam)) + ")");
            senders.push_back(lParam);
        }
        return RECORDER::MsgHandler(message, wParam, lParam, result);
    }
};

// Notes a hook's call and gives the answer the hook is to give.
template <class T>
T Noted(const std::string& call, T answer) {
    Note(call);
    return answer;
}

// A face of the given side in one colour, framed by 2 pixels of the key colour, with a hole of the key colour of the
// given side in its middle; the caller owns it.
inline HBITMAP Face(COLORREF inner, int side = Side, int hole = 0) {
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, side, side);
    HDC dc = CreateCompatibleDC(screen);
    HGDIOBJ old = SelectObject(dc, bitmap);
    auto fill = [dc](int from, int to, COLORREF colour) {
        RECT area = {from, from, to, to};
        HBRUSH brush = CreateSolidBrush(colour);
        FillRect(dc, &area, brush);
        DeleteObject(brush);
    };
    fill(0, side, Key);
    fill(2, side - 2, inner);
    fill((side - hole) / 2, (side + hole) / 2, Key);
    SelectObject(dc, old);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

// The client area of a window as it is on the screen, or the rows of it from the top given.
inline zktest::Pixels Shot(HWND window, int top = 0, int rows = 0) {
    RECT client;
    GetClientRect(window, &client);
    rows = rows ? rows : client.bottom;
    HDC from = GetDC(window);
    HDC memory = CreateCompatibleDC(from);
    HBITMAP copy = CreateCompatibleBitmap(from, client.right, rows);
    HGDIOBJ old = SelectObject(memory, copy);
    BitBlt(memory, 0, 0, client.right, rows, from, 0, top, SRCCOPY);
    SelectObject(memory, old);
    zktest::Pixels shot(copy, client.right, rows);
    DeleteObject(copy);
    DeleteDC(memory);
    ReleaseDC(window, from);
    return shot;
}

// The window loop's part that the tests play, for about the time given: key messages feed the keyboard state that a
// press reads.
inline void PumpFor(DWORD ms) {
    DWORD until = GetTickCount() + ms;
    do {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
            if (message.message == WM_KEYDOWN)
                vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, static_cast<unsigned short>(message.wParam), message.lParam);
            TranslateMessage(&message);
            DispatchMessageA(&message);
            if (message.message == WM_KEYUP)
                vSYSTEMACCESS::KeyReset();
        }
    } while (static_cast<long>(until - GetTickCount()) > 0);
}

// Shows a window and lets it paint.
inline void ShowPainted(HWND window) {
    ShowWindow(window, SW_SHOWNA);
    InvalidateRect(window, nullptr, TRUE);
    UpdateWindow(window);
    PumpFor(50);
}

// The states a button is drawn in, and a shown button put in one of them.
struct STATE { const char* name; bool focus, press, disable; };
const STATE States[] = {{"normal", 0, 0, 0},   {"pressed", 0, 1, 0},         {"focused", 1, 0, 0},
                        {"disabled", 0, 0, 1}, {"focused-pressed", 1, 1, 0}, {"pressed-disabled", 0, 1, 1}};
inline zktest::Pixels ShotIn(HWND button, const STATE& state) {
    ShowPainted(button);
    if (state.focus)
        SetFocus(button);
    SendMessageA(button, BM_SETSTATE, state.press, 0);
    EnableWindow(button, !state.disable);
    ShowPainted(button);
    return Shot(button);
}

// Real input: the mouse's buttons, the mouse put on a point of a window's client area, a key pressed or let go, a
// character typed into the window that has the focus.
inline void Mouse(DWORD flags) {
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}
inline void MouseTo(HWND window, int x, int y) {
    POINT at = {x, y};
    ClientToScreen(window, &at);
    SetCursorPos(at.x, at.y);
    Mouse(MOUSEEVENTF_MOVE);
}
inline void KeyTo(WORD key, bool down, WORD character = 0) {
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = character;
    input.ki.dwFlags = (character ? KEYEVENTF_UNICODE : 0) | (down ? 0 : KEYEVENTF_KEYUP);
    SendInput(1, &input, sizeof input);
    PumpFor(character ? 20 : 100);
}
inline void Type(const std::string& keys) {
    for (char key : keys) {
        KeyTo(0, true, static_cast<unsigned char>(key));
        KeyTo(0, false, static_cast<unsigned char>(key));
    }
}

// Holds the mouse's button down on a point of a window for about the time given, moving by a pixel so that the
// platform's tracking runs unless asked to keep still, and lets it go.
inline void Hold(HWND window, int x, int y, DWORD ms, bool still = false) {
    MouseTo(window, x, y);
    PumpFor(30);
    Log().clear();
    Mouse(MOUSEEVENTF_LEFTDOWN);
    PumpFor(30);
    if (!still)
        MouseTo(window, x + 1, y);
    PumpFor(ms);
    Mouse(MOUSEEVENTF_LEFTUP);
    PumpFor(60);
}

// A real click at a point of the screen, with the keys given held.
inline void Click(POINT at, const std::vector<WORD>& held = {}) {
    SetCursorPos(at.x, at.y);
    for (WORD key : held)
        KeyTo(key, true);
    for (DWORD flags : {MOUSEEVENTF_MOVE, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) {
        Mouse(flags);
        PumpFor(100);
    }
    for (WORD key : held)
        KeyTo(key, false);
}

// The lines of the log that start with one of the prefixes; the log is emptied.
inline Lines Taken(const std::vector<std::string>& prefixes) {
    Lines kept;
    for (const std::string& line : Log())
        for (const std::string& prefix : prefixes)
            if (line.rfind(prefix, 0) == 0)
                kept.push_back(line);
    Log().clear();
    return kept;
}

// Every test gets a shown parent under the shared top-level window; the parent and the controls in it die with the
// test.
class ControlTest : public wintest::WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        parent = new PARENT(Top(), vRECT(0, 0, 300, 200));
        ShowWindow((*parent)(), SW_SHOW);
        PumpFor(20);
    }
    void TearDown() override {
        DestroyWindow((*parent)());
        PumpFor(20);
        WindowTest::TearDown();
    }

    PARENT* parent = nullptr;
};

}  // namespace controltest
