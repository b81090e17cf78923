#include <cstdio>
#include <cstdint>

#include "app/library.h"

vSYSTEM* zkCore = nullptr;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD, LPVOID)
{
    char line[64];
    std::snprintf(line, sizeof line, "DllMain in ZK2: %X", static_cast<unsigned>(reinterpret_cast<uintptr_t>(instance)));
    vSYSTEM::Trace(0, line);
    zkCore = vSYSTEM::Pointer();
    return 1;
}

// The library's exit routine hands over to the base library's, which stands
// at its first ordinal.
extern "C" int WINAPI WEP(int parameter)
{
    typedef int(WINAPI * ExitRoutine)(int);
    HMODULE core = GetModuleHandleA("zkcore.dll");
    FARPROC first = core ? GetProcAddress(core, MAKEINTRESOURCEA(1)) : nullptr;
    ExitRoutine coreExit = reinterpret_cast<ExitRoutine>(reinterpret_cast<void*>(first));
    return coreExit ? coreExit(parameter) : 0;
}
