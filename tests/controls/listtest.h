#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "app/recorder.h"
#include "controls/control.h"
#include "graphics/surface.h"
#include "support/systemaccess.h"

namespace listtest {

using wintest::Log;
using wintest::Note;
using Lines = std::vector<std::string>;

// The true parent of the lists: it notes each command with its code as it
// arrives, before the library's dispatch runs.
class PARENT : public wintest::RECORDER {
public:
    PARENT(const vWIN& parent, const vRECT& rect) : RECORDER(parent, rect, "parent") {}

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override
    {
        if (message == WM_COMMAND)
            Note("parent.WM_COMMAND(" + std::to_string(LOWORD(wParam)) + "," + std::to_string(HIWORD(wParam)) + ")");
        return RECORDER::MsgHandler(message, wParam, lParam, result);
    }
};

// The window loop's part that the tests play: key messages feed the keyboard
// state that a press reads. Runs for about 100 milliseconds.
inline void Settle()
{
    for (int round = 0; round < 10; ++round) {
        Sleep(10);
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_KEYDOWN)
                vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, static_cast<unsigned short>(message.wParam), message.lParam);
            TranslateMessage(&message);
            DispatchMessageA(&message);
            if (message.message == WM_KEYUP)
                vSYSTEMACCESS::KeyReset();
        }
    }
}

inline void Key(WORD key, bool down)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    SendInput(1, &input, sizeof input);
    Settle();
}

// A real click at a point of the screen, with the keys given held.
inline void Click(POINT at, const std::vector<WORD>& held = {})
{
    SetCursorPos(at.x, at.y);
    for (WORD key : held)
        Key(key, true);
    for (DWORD flags : {MOUSEEVENTF_MOVE, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) {
        INPUT input = {};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flags;
        SendInput(1, &input, sizeof input);
        Settle();
    }
    for (WORD key : held)
        Key(key, false);
}

// The lines of the log that start with one of the prefixes; the log is
// emptied.
inline Lines Taken(const std::vector<std::string>& prefixes)
{
    Lines kept;
    for (const std::string& line : Log())
        for (const std::string& prefix : prefixes)
            if (line.rfind(prefix, 0) == 0)
                kept.push_back(line);
    Log().clear();
    return kept;
}

// Every test gets a shown parent under the shared top-level window; the
// parent and the lists in it die with the test.
class ListTest : public wintest::WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        parent = new PARENT(Top(), vRECT(0, 0, 300, 200));
        ShowWindow((*parent)(), SW_SHOW);
        Settle();
    }

    void TearDown() override
    {
        DestroyWindow((*parent)());
        Settle();
        WindowTest::TearDown();
    }

    PARENT* parent = nullptr;
};

}  // namespace listtest
