#pragma once

#include <windows.h>

#include "base/memory.h"
#include "base/module.h"
#include "base/string.h"
#include "base/keyboard.h"
#include "base/exception.h"
#include "base/profile.h"

class vAPP;
class ITERATOR;

// The process-wide services of the base library. There is one per process, and
// its instance handle is the base library's own, so resource identifiers built
// on it name the library's resources.
class ZKCORE_API vSYSTEM : public vMODULE {
public:
    static vSYSTEM* Pointer();

    // Scratch buffers of the user-interface thread, for use before returning:
    // nothing may be kept in them across a call into other code.
    static char* GetBuffer();
    static char* GetLocalBuffer();
    enum : unsigned long { BufferSize = 1024, LocalBufferSize = 16384 };

    static vAPP* ActiveApp();

    static unsigned short GetTraceLevel();
    static void SetTraceLevel(unsigned short level);
    // Writes "Trace: ", the text and a line feed to the debugger channel
    // when the trace level is at or above the site's level.
    static void Trace(unsigned short level, const char* text);
    // Reports a broken assumption: trace, break, and, the first time only,
    // a box and the end of the process.
    static void AssertionFailed(const char* text, unsigned line);

    static UINT GetZKKillMsg();
    static UINT GetPaletteChangeMsg();

    static void SetFrameWindow(HWND frame);
    static HWND GetFrameWindow();
    static vKEYBOARD& GetKeyboard();
    static DEFEXCEP& GetDefaultException();
    static void SetExceptionFlag(int raised);
    static int GetExceptionFlag();

private:
    friend class vAPP;
    friend class vWIN;
    friend struct vSYSTEMACCESS;

    vSYSTEM();
    static vSYSTEM processSystem;

    static void RegisterApp(vAPP* app, HINSTANCE instance, HWND frame, HWND client);
    static void UnregisterApp(vAPP* app, HINSTANCE cookie);
    static int GetTavikApp(ITERATOR& iterator, HINSTANCE& instance, HWND& frame, HWND& client);
    static UINT GetTavikMessage();
    static int NewFailureException(unsigned int size);
};

// Checks an assumption of the caller; a false condition is an assertion failure
// at the caller's line.
inline void vAssert(int condition, const char* text, unsigned line = __builtin_LINE())
{
    if (!condition)
        vSYSTEM::AssertionFailed(text, line);
}
