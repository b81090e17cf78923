#include "core/apptable.h"

#include <new>

namespace {

const char mappingName[] = "ZKSHELL.ApplicationTable";
const char mutexName[] = "ZKSHELL.ApplicationTable.Lock";

bool ProcessAlive(DWORD process)
{
    HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, process);
    if (!handle)
        return false;
    bool alive = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
    CloseHandle(handle);
    return alive;
}

}  // namespace

// Holds the table's mutex for one operation. A mutex left behind by a process
// that died while holding it is taken over: its entry is cleaned up below.
class AppTable::Lock {
public:
    explicit Lock(HANDLE mutex) : mutex(mutex)
    {
        DWORD wait = WaitForSingleObject(mutex, 5000);
        held = wait == WAIT_OBJECT_0 || wait == WAIT_ABANDONED;
    }
    ~Lock()
    {
        if (held)
            ReleaseMutex(mutex);
    }
    bool Held() const { return held; }

private:
    HANDLE mutex;
    bool held;
};

AppTable::AppTable(HANDLE mapping, HANDLE mutex, Block* block)
    : mapping(mapping), mutex(mutex), block(block)
{
}

// The table object lives in static storage: it is process-wide and must not
// count as a live block of the allocator.
AppTable* AppTable::Shared()
{
    static AppTable* table = nullptr;
    alignas(AppTable) static unsigned char storage[sizeof(AppTable)];
    if (table)
        return table;
    HANDLE mutex = CreateMutexA(nullptr, FALSE, mutexName);
    HANDLE mapping = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(Block), mappingName);
    void* view = mapping ? MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Block)) : nullptr;
    if (!mutex || !view) {
        if (mapping)
            CloseHandle(mapping);
        if (mutex)
            CloseHandle(mutex);
        return nullptr;
    }
    // A new mapping is zero-filled by the platform, which is an empty table.
    table = new (storage) AppTable(mapping, mutex, static_cast<Block*>(view));
    return table;
}

AppTable::Entry* AppTable::EntryOf(DWORD process, vAPP* app)
{
    for (Entry& entry : block->entries)
        if (entry.process == process && entry.app == app)
            return &entry;
    return nullptr;
}

AppTable::Entry* AppTable::FreeEntry()
{
    return EntryOf(0, nullptr);
}

void AppTable::ForgetEndedProcesses()
{
    for (Entry& entry : block->entries)
        if (entry.process && !ProcessAlive(entry.process))
            entry = Entry{};
}

bool AppTable::Register(vAPP* app, HINSTANCE instance, HWND frame, HWND client)
{
    Lock lock(mutex);
    if (!lock.Held())
        return false;
    DWORD process = GetCurrentProcessId();
    Entry* entry = EntryOf(process, app);
    if (!entry) {
        ForgetEndedProcesses();
        entry = FreeEntry();
    }
    if (!entry)
        return false;
    *entry = Entry{process, GetCurrentThreadId(), app, instance, frame, client};
    return true;
}

void AppTable::Unregister(vAPP* app)
{
    Lock lock(mutex);
    if (!lock.Held())
        return;
    if (Entry* entry = EntryOf(GetCurrentProcessId(), app))
        *entry = Entry{};
}

bool AppTable::Find(unsigned& slot, Entry& found)
{
    Lock lock(mutex);
    if (!lock.Held())
        return false;
    for (; slot < Capacity; ++slot) {
        const Entry& entry = block->entries[slot];
        if (entry.process && entry.frame && IsWindow(entry.frame)) {
            found = entry;
            return true;
        }
    }
    return false;
}
