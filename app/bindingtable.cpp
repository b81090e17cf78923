#include "app/bindingtable.h"

#include <cstdint>

// Open addressing with linear probing; removal shifts the later members of a
// run back into the gap, so no tombstones pile up as windows come and go.
// The members are also kept packed in one array, in no order, for the
// searches by parent and identifier.
BindingTable::Slot BindingTable::slots[Capacity];
HWND BindingTable::members[Limit];
unsigned BindingTable::used = 0;
bool BindingTable::overflowed = false;

unsigned BindingTable::Home(HWND window)
{
    uint32_t key = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(window));
    return (key * 2654435761u) >> 19;
}

unsigned BindingTable::Next(unsigned index)
{
    return (index + 1) & (Capacity - 1);
}

// The slot that holds the window, or the empty slot where it would go.
unsigned BindingTable::SlotOf(HWND window)
{
    unsigned index = Home(window);
    while (slots[index].window && slots[index].window != window)
        index = Next(index);
    return index;
}

void BindingTable::Add(HWND window, const Binding& binding)
{
    unsigned index = SlotOf(window);
    if (slots[index].window) {
        slots[index].binding = binding;
        return;
    }
    if (used == Limit) {
        overflowed = true;
        return;
    }
    members[used] = window;
    slots[index] = Slot{window, binding, used};
    ++used;
}

void BindingTable::Remove(HWND window)
{
    unsigned index = SlotOf(window);
    if (!slots[index].window)
        return;
    ForgetMember(slots[index].member);
    slots[index] = Slot{};
    CloseGap(index);
}

// The last member moves into the place that is given up.
void BindingTable::ForgetMember(unsigned member)
{
    HWND last = members[--used];
    members[member] = last;
    slots[SlotOf(last)].member = member;
}

// A member may move back into the gap unless its home lies cyclically after
// the gap and at or before its own place: then the gap is not on its path.
void BindingTable::CloseGap(unsigned gap)
{
    for (unsigned index = Next(gap); slots[index].window; index = Next(index)) {
        unsigned home = Home(slots[index].window);
        bool homeBetween = gap <= index ? (gap < home && home <= index) : (gap < home || home <= index);
        if (homeBetween)
            continue;
        slots[gap] = slots[index];
        slots[index] = Slot{};
        gap = index;
    }
}

BindingTable::Answer BindingTable::Find(HWND window, Binding& binding)
{
    const Slot& slot = slots[SlotOf(window)];
    if (slot.window) {
        binding = slot.binding;
        return FOUND;
    }
    return overflowed ? UNKNOWN : ABSENT;
}

// A window's identifier and parent are read from the platform each time, as
// either may have changed since the window was bound; for this process's own
// windows both reads stay in the process. The parent itself, usually a
// member, is never its own child and costs no read.
BindingTable::Answer BindingTable::FindChild(HWND parent, int id)
{
    if (overflowed || used > ScanLimit)
        return UNKNOWN;
    for (unsigned member = 0; member < used; ++member) {
        HWND window = members[member];
        if (window != parent && GetWindowLongPtrA(window, GWLP_ID) == id && GetAncestor(window, GA_PARENT) == parent)
            return FOUND;
    }
    return ABSENT;
}
