#include "base/startup.h"

namespace {

// One named mutex per program file: its name is the file's path, in lower
// case because paths are not case-sensitive, with the backslashes that a
// kernel object name may not hold turned into slashes.
HANDLE ClaimProgram(HINSTANCE instance)
{
    char name[MAX_PATH + 32] = "ZKSHELL.Instance:";
    char* path = name + lstrlenA(name);
    DWORD length = GetModuleFileNameA(instance, path, MAX_PATH);
    CharLowerBuffA(path, length);
    for (DWORD index = 0; index < length; ++index)
        if (path[index] == '\\')
            path[index] = '/';
    return CreateMutexA(nullptr, FALSE, name);
}

}  // namespace

HINSTANCE vFindPreviousInstance(HINSTANCE instance)
{
    static HANDLE claim = nullptr;
    static bool another = false;
    if (!claim) {
        claim = ClaimProgram(instance);
        another = claim && GetLastError() == ERROR_ALREADY_EXISTS;
    }
    return another ? instance : nullptr;
}
