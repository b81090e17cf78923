#include <windows.h>

#include "core/memory.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    if (reason == DLL_THREAD_DETACH)
        vMemThreadEnds();
    return 1;
}
