#pragma once

#include <windows.h>

#include "base/export.h"

class vAPP;

// The table of the running applications of the family, shared by every
// process on the desktop through a named file mapping and guarded by a named
// mutex, so that one program can walk it while another registers.
class ZKCORE_API AppTable {
public:
    struct Entry {
        DWORD process;
        DWORD thread;
        vAPP* app;
        HINSTANCE instance;
        HWND frame;
        HWND client;
    };
    enum : unsigned { Capacity = 64 };

    // The table of this process, opened on first use; null if the platform
    // refused the mapping.
    static AppTable* Shared();

    // Enters the application of this process, or updates its entry. False when
    // the table is full.
    bool Register(vAPP* app, HINSTANCE instance, HWND frame, HWND client);
    void Unregister(vAPP* app);
    // The first application at or after slot that has a frame window; false
    // when there is none. slot then names the entry found.
    bool Find(unsigned& slot, Entry& found);

private:
    struct Block {
        Entry entries[Capacity];
    };
    class Lock;

    AppTable(HANDLE mapping, HANDLE mutex, Block* block);
    Entry* EntryOf(DWORD process, vAPP* app);
    Entry* FreeEntry();
    void ForgetEndedProcesses();

    HANDLE mapping;
    HANDLE mutex;
    Block* block;
};
