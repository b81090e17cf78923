#pragma once

#include <windows.h>

#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "app/appaccess.h"
#include "dialogs/dialog.h"

namespace dlgtest {

using Lines = std::vector<std::string>;
using wintest::Log;
using wintest::Note;

// The templates of dialogs_tests.rc.
enum : unsigned short {
    ENTRY_TEMPLATE = 100,
    NAME_ITEM = 101,
    NUMBER_ITEM = 102,
    NOTE_ITEM = 103,
    HUGE_TEMPLATE = 200,
    PAGE_TEMPLATE = 300,
    PAGE_ITEM = 301
};

// The application's data block.
struct ENTRY {
    char name[16];
    long number;
};

inline ENTRY Entry(const char* name, long number)
{
    ENTRY entry = {};
    lstrcpynA(entry.name, name, sizeof entry.name);
    entry.number = number;
    return entry;
}

// The test program as the module that holds the templates.
class PROGRAM : public vMODULE {
public:
    PROGRAM() : vMODULE(GetModuleHandleA(nullptr)) {}
};

inline vRESID Template(unsigned short id)
{
    static PROGRAM program;
    return vRESID(id, &program);
}

inline std::string Number(long value)
{
    return std::to_string(value);
}

// An application's control on a template edit: it keeps where its value
// lies, shows it, and writes the edit's contents back into the record.
class FIELD : public vCONTROL {
public:
    enum KIND { NAME, NUMBER };

    FIELD(vWIN& parent, const vCTRLID& id, KIND kind, const vRECT& rect = vRECT(-1, -1, -1, -1))
        : vCONTROL(parent, id, rect, vSTRING(), static_cast<vCLASSID>(3)), kind(kind)
    {
        if (hWnd) {
            BindInstance(hWnd);
            SubClass();
        } else {
            lstrcpyA(CreateParams.szClassName, "edit");
            CreateWin();
        }
    }
    ~FIELD() override { Note(Name() + ".~FIELD"); }

    static vCONTROL* NewName(vWIN& parent, vCTRLID& id, vRESID&)
    {
        Note("New(" + Number(id) + ")");
        return new FIELD(parent, id, NAME);
    }

    static vCONTROL* NewNumber(vWIN& parent, vCTRLID& id, vRESID&)
    {
        Note("New(" + Number(id) + ")");
        return new FIELD(parent, id, NUMBER);
    }

    void Notification(long code) override { Note(Name() + ".Notification(" + Number(code) + ")"); }

    void SetupView(char* at, unsigned short size) override
    {
        value = at;
        length = size;
        Note(Name() + ".SetupView(" + (at ? "value" : "null") + "," + Number(size) + ")");
    }

    void UpdateView(const vCTRLID&) override
    {
        if (!value)
            return;
        if (kind == NAME)
            SetWindowTextA(hWnd, value);
        else
            SetWindowTextA(hWnd, Number(*reinterpret_cast<long*>(value)).c_str());
    }

    void UpdateData(void* data) override
    {
        Note(Name() + ".UpdateData");
        ENTRY* entry = static_cast<ENTRY*>(data);
        char typed[16] = "";
        GetWindowTextA(hWnd, typed, sizeof typed);
        if (kind == NAME)
            lstrcpynA(entry->name, typed, sizeof entry->name);
        else
            entry->number = std::atol(typed);
    }

    std::string Name() const { return Number(GetID()); }

    KIND kind;
    char* value = nullptr;
    unsigned short length = 0;
};

// The entry dialog's rows: the name gets the focus.
inline const vCONTROLMAP* EntryMap()
{
    static const vCONTROLMAP map[] = {
        {FIELD::NewName, NAME_ITEM, 0, offsetof(ENTRY, name), sizeof(ENTRY::name)},
        {FIELD::NewNumber, NUMBER_ITEM, 0, offsetof(ENTRY, number), sizeof(long)},
        {nullptr, NAME_ITEM, 0, 0, 0},
    };
    return map;
}

// A push button of the application's that reports its notifications.
class NOTIFYBUTTON : public vBUTTON {
public:
    NOTIFYBUTTON(vWIN& parent, const vCTRLID& id, const vSTRING& text)
        : vBUTTON(parent, id, text, vRECT(0, 0, 0, 0), 0, CLASSID_BUTTON)
    {
    }
    void Notification(long code) override { Note("button " + Number(GetID()) + ".Notification(" + Number(code) + ")"); }
};

// A window's rectangle in the client units of another.
inline RECT PlaceIn(HWND window, HWND other)
{
    RECT box;
    GetWindowRect(window, &box);
    MapWindowPoints(nullptr, other, reinterpret_cast<POINT*>(&box), 2);
    return box;
}

inline vRECT RectOf(const RECT& box)
{
    return vRECT(box.left, box.top, box.right, box.bottom);
}

// Every dialog test has an application of its own.
class AppTest : public apptest::FrameTest {
protected:
    // A test that fails half-way may leave a dialog active or the frame
    // disabled; neither may reach the next test.
    void TearDown() override
    {
        vAPPACCESS::ActiveDialog(nullptr);
        EnableWindow(frame, TRUE);
        FrameTest::TearDown();
    }
};

// Ends a loop that waits too long: a close posted to the thread ends any
// modal loop, so a test whose input went astray fails instead of hanging.
class WATCHDOG {
public:
    explicit WATCHDOG(UINT ms) : timer(SetTimer(nullptr, 0, ms, Bark)) {}
    ~WATCHDOG() { KillTimer(nullptr, timer); }
    WATCHDOG(const WATCHDOG&) = delete;
    WATCHDOG& operator=(const WATCHDOG&) = delete;

private:
    static void CALLBACK Bark(HWND, UINT, UINT_PTR, DWORD)
    {
        Note("watchdog");
        PostThreadMessageA(GetCurrentThreadId(), WM_CLOSE, 0, 0);
    }

    UINT_PTR timer;
};

inline void Key(WORD key, DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

// Queues a press and release of each key.
inline void Type(std::initializer_list<WORD> keys)
{
    for (WORD key : keys) {
        Key(key, 0);
        Key(key, KEYEVENTF_KEYUP);
    }
}

inline void Mouse(DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

// Queues a left click in the middle of the window.
inline void Click(HWND window)
{
    RECT box;
    GetWindowRect(window, &box);
    SetCursorPos((box.left + box.right) / 2, (box.top + box.bottom) / 2);
    Mouse(MOUSEEVENTF_MOVE);
    Mouse(MOUSEEVENTF_LEFTDOWN);
    Mouse(MOUSEEVENTF_LEFTUP);
}

// The log lines that contain the part.
inline Lines Only(const std::string& part)
{
    Lines kept;
    for (const std::string& line : Log())
        if (line.find(part) != std::string::npos)
            kept.push_back(line);
    return kept;
}

}  // namespace dlgtest
