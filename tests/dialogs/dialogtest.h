#pragma once

#include <windows.h>

#include <algorithm>
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
using wintest::RECORDER;

// The templates of dialogs_tests.rc and their items.
enum : unsigned short {
    ENTRY_TEMPLATE = 100, NAME_ITEM = 101, NUMBER_ITEM = 102, NOTE_ITEM = 103, HUGE_TEMPLATE = 200, PAGE_TEMPLATE = 300
};

// The application's data block.
struct ENTRY {
    char name[16];
    long number;
};

// The test program as the module that holds the templates.
inline vRESID Template(unsigned short id) {
    static struct PROGRAM : vMODULE { PROGRAM() : vMODULE(GetModuleHandleA(nullptr)) {} } program;
    return vRESID(id, &program);
}

inline std::string Number(long value) { return std::to_string(value); }

// An application's control on a template edit: it keeps where its value
// lies, shows it, and writes the edit's contents back into the record.
class FIELD : public vCONTROL {
public:
    FIELD(vWIN& parent, const vCTRLID& id, const vRECT& rect = vRECT(-1, -1, -1, -1))
        : vCONTROL(parent, id, rect, vSTRING(), static_cast<vCLASSID>(3))
    {
        if (hWnd)
            BindInstance(hWnd), SubClass();
        else
            lstrcpyA(CreateParams.szClassName, "edit"), CreateWin();
    }
    static vCONTROL* New(vWIN& parent, vCTRLID& id, vRESID&) {
        Note("New(" + Number(id) + ")");
        return new FIELD(parent, id);
    }
    void Notification(long code) override { Note(Name() + ".Notification(" + Number(code) + ")"); }
    void SetupView(char* at, unsigned short size) override {
        value = at;
        Note(Name() + ".SetupView(" + (at ? "value" : "null") + "," + Number(size) + ")");
    }
    void UpdateView(const vCTRLID&) override {
        if (value)
            SetWindowTextA(hWnd,
                           GetID() == vCTRLID(NAME_ITEM) ? value : Number(*reinterpret_cast<long*>(value)).c_str());
    }
    void UpdateData(void* data) override {
        Note(Name() + ".UpdateData");
        ENTRY* entry = static_cast<ENTRY*>(data);
        char typed[16] = "";
        GetWindowTextA(hWnd, typed, sizeof typed);
        if (GetID() == vCTRLID(NAME_ITEM))
            lstrcpynA(entry->name, typed, sizeof entry->name);
        else
            entry->number = std::atol(typed);
    }
    std::string Name() const { return Number(GetID()); }
    char* value = nullptr;
};

// The entry dialog's rows; the end row names the control to focus.
template <unsigned short focus>
const vCONTROLMAP* EntryMap() {
    static const vCONTROLMAP map[] = {{FIELD::New, NAME_ITEM, 0, offsetof(ENTRY, name), sizeof(ENTRY::name)},
                                      {FIELD::New, NUMBER_ITEM, 0, offsetof(ENTRY, number), sizeof(long)},
                                      {nullptr, focus, 0, 0, 0}};
    return map;
}

// A window's rectangle in the client units of another.
inline vRECT PlaceIn(HWND window, HWND other) {
    RECT box;
    GetWindowRect(window, &box);
    MapWindowPoints(nullptr, other, reinterpret_cast<POINT*>(&box), 2);
    return vRECT(box.left, box.top, box.right, box.bottom);
}

// Every dialog test has an application of its own and a record the dialog shows. A test that fails half-way may leave a
// dialog active or a window disabled; neither may reach the next test.
class DialogTest : public apptest::FrameTest {
protected:
    void TearDown() override {
        vAPPACCESS::ActiveDialog(nullptr);
        EnableWindow(frame, TRUE);
        EnableWindow(Top()(), TRUE);
        FrameTest::TearDown();
    }

    ENTRY data = {"Ann", 7};
};

inline void CALLBACK Watchdog(HWND, UINT, UINT_PTR, DWORD) {
    Note("watchdog");
    PostThreadMessageA(GetCurrentThreadId(), WM_CLOSE, 0, 0);
}

// Runs a modal loop; a close posted to the thread after a while ends it, so
// that a test whose input went astray fails instead of hanging.
inline void RunModal(vDIALOG& dialog) {
    UINT_PTR timer = SetTimer(nullptr, 0, 5000, Watchdog);
    dialog.Modal();
    KillTimer(nullptr, timer);
}

// Queues a press and release of each key, then a click in the middle of the window, if one is given.
inline void Input(const std::vector<WORD>& keys, HWND window = nullptr) {
    std::vector<INPUT> inputs;
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    for (WORD key : keys)
        for (DWORD flags : {0ul, static_cast<unsigned long>(KEYEVENTF_KEYUP)})
            input.ki.wVk = key, input.ki.dwFlags = flags, inputs.push_back(input);
    RECT box;
    if (window && GetWindowRect(window, &box)) {
        SetCursorPos((box.left + box.right) / 2, (box.top + box.bottom) / 2);
        input = {};
        input.type = INPUT_MOUSE;
        for (DWORD flags : {MOUSEEVENTF_MOVE, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP})
            input.mi.dwFlags = flags, inputs.push_back(input);
    }
    SendInput(inputs.size(), inputs.data(), sizeof(INPUT));
}

// The log lines that contain any of the parts.
inline Lines Only(const Lines& parts) {
    Lines kept;
    for (const std::string& line : Log())
        if (std::any_of(parts.begin(), parts.end(),
                        [&](const std::string& part) { return line.find(part) != std::string::npos; }))
            kept.push_back(line);
    return kept;
}

}  // namespace dlgtest
