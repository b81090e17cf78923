#include "app/bindingtable.h"

#include <cstdint>

// Open addressing with linear probing; removal shifts the later members of a
// run back into the gap, so no tombstones pile up as windows come and go.
BindingTable::Slot BindingTable::slots[Capacity];
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

void BindingTable::Add(HWND window, vWIN* win)
{
    unsigned index = SlotOf(window);
    if (!slots[index].window) {
        if (used == Limit) {
            overflowed = true;
            return;
        }
        ++used;
    }
    slots[index] = Slot{window, win};
}

void BindingTable::Remove(HWND window)
{
    unsigned index = SlotOf(window);
    if (!slots[index].window)
        return;
    slots[index] = Slot{};
    --used;
    CloseGap(index);
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

BindingTable::Answer BindingTable::Find(HWND window, vWIN*& win)
{
    const Slot& slot = slots[SlotOf(window)];
    if (slot.window) {
        win = slot.win;
        return FOUND;
    }
    return overflowed ? UNKNOWN : ABSENT;
}
