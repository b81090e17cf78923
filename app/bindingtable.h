#pragma once

#include <windows.h>

#include "base/export.h"

class vWIN;

// This process's copy of the "this" property of every window the library has
// bound, so that finding a window's object costs no round trip to the window
// server on every message. It changes only with the property itself: binding
// adds, unbinding removes. Should it ever fill, it stops answering for what it
// does not hold and the property is asked instead.
class ZKSHELL_API BindingTable {
public:
    enum Answer { FOUND, ABSENT, UNKNOWN };

    static void Add(HWND window, vWIN* win);
    static void Remove(HWND window);
    // FOUND fills win; ABSENT means no window of this process is bound under
    // the handle; UNKNOWN means the table overflowed once and cannot tell.
    static Answer Find(HWND window, vWIN*& win);

private:
    struct Slot {
        HWND window;
        vWIN* win;
    };
    enum : unsigned { Capacity = 8192, Limit = Capacity / 4 * 3 };

    static unsigned Home(HWND window);
    static unsigned Next(unsigned index);
    static unsigned SlotOf(HWND window);
    static void CloseGap(unsigned gap);

    static Slot slots[Capacity];
    static unsigned used;
    static bool overflowed;
};
