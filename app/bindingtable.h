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

    // What the property holds: the object, and the local block it is kept in.
    struct Binding {
        vWIN* win;
        HLOCAL block;
    };

    static void Add(HWND window, const Binding& binding);
    static void Remove(HWND window);
    // FOUND fills binding; ABSENT means no window of this process is bound
    // under the handle; UNKNOWN means the table overflowed once and cannot tell.
    static Answer Find(HWND window, Binding& binding);
    // FOUND if some window bound in this process is now the child of parent
    // with the identifier id; ABSENT if none is, so that no child the platform
    // finds there can be bound; UNKNOWN if the table cannot tell cheaply.
    static Answer FindChild(HWND parent, int id);

private:
    struct Slot {
        HWND window;
        Binding binding;
        unsigned member;
    };
    // A look through this many members costs less than the one round trip to
    // the window server that the platform's own search for a child takes.
    enum : unsigned { Capacity = 8192, Limit = Capacity / 4 * 3, ScanLimit = 64 };

    static unsigned Home(HWND window);
    static unsigned Next(unsigned index);
    static unsigned SlotOf(HWND window);
    static void CloseGap(unsigned gap);
    static void ForgetMember(unsigned member);

    static Slot slots[Capacity];
    static HWND members[Limit];
    static unsigned used;
    static bool overflowed;
};
