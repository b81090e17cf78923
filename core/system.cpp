#include "base/system.h"

#include <cstdio>
#include <cstdlib>

#include "base/iterator.h"
#include "core/apptable.h"

namespace {

// The process-wide state behind the static services. One user-interface
// thread uses it, so it needs no lock; the trace level is read on every
// window's construction and is therefore a plain variable.
unsigned short traceLevel = 0;
vAPP* activeApp = nullptr;
HWND frameWindow = nullptr;
int exceptionFlag = 0;
int assertionShown = 0;
char buffer[vSYSTEM::BufferSize];
char localBuffer[vSYSTEM::LocalBufferSize];

const char traceLevelVariable[] = "ZK_TRACE_LEVEL";

unsigned short TraceLevelFromEnvironment()
{
    char value[16];
    DWORD length = GetEnvironmentVariableA(traceLevelVariable, value, sizeof value);
    if (length == 0 || length >= sizeof value)
        return 0;
    return static_cast<unsigned short>(std::strtoul(value, nullptr, 10));
}

// Registered messages are the same number in every process that registers
// the same name, which is what lets the programs of the family talk.
UINT RegisteredMessage(UINT& cache, const char* name)
{
    if (!cache)
        cache = RegisterWindowMessageA(name);
    return cache;
}

}  // namespace

extern "C" IMAGE_DOS_HEADER __ImageBase;

// Made while the library is attached, before anything can call into it; its
// module is the library itself, whose image starts at __ImageBase.
vSYSTEM vSYSTEM::processSystem;

vSYSTEM::vSYSTEM()
    : vMODULE(reinterpret_cast<HINSTANCE>(&__ImageBase))
{
    traceLevel = TraceLevelFromEnvironment();
}

// The library's exit routine, kept at ordinal 1 so that the upper library can
// forward its own to it.
extern "C" int WINAPI WEP(int)
{
    return 1;
}

vSYSTEM* vSYSTEM::Pointer()
{
    return &processSystem;
}

char* vSYSTEM::GetBuffer()
{
    return buffer;
}

char* vSYSTEM::GetLocalBuffer()
{
    return localBuffer;
}

vAPP* vSYSTEM::ActiveApp()
{
    return activeApp;
}

unsigned short vSYSTEM::GetTraceLevel()
{
    return traceLevel;
}

void vSYSTEM::SetTraceLevel(unsigned short level)
{
    traceLevel = level;
}

void vSYSTEM::Trace(unsigned short level, const char* text)
{
    if (traceLevel < level)
        return;
    OutputDebugStringA("Trace: ");
    OutputDebugStringA(text);
    OutputDebugStringA("\n");
}

// A second failure while the box of the first is up only breaks: the box
// pumps messages, and stacking boxes would bury the first report.
void vSYSTEM::AssertionFailed(const char* text, unsigned line)
{
    char report[512];
    std::snprintf(report, sizeof report, "Assertion failed: %s, line %u.", text, line);
    Trace(0, report);
    DebugBreak();
    if (assertionShown)
        return;
    assertionShown = 1;
    MessageBoxA(nullptr, report, "Assertion Failed", MB_TASKMODAL | MB_ICONHAND);
    std::abort();
}

UINT vSYSTEM::GetZKKillMsg()
{
    static UINT message = 0;
    return RegisteredMessage(message, "ZKSHELL.KillApplication");
}

UINT vSYSTEM::GetPaletteChangeMsg()
{
    static UINT message = 0;
    return RegisteredMessage(message, "ZKSHELL.PaletteChange");
}

UINT vSYSTEM::GetTavikMessage()
{
    static UINT message = 0;
    return RegisteredMessage(message, "ZKSHELL.AreYouTavik");
}

void vSYSTEM::SetFrameWindow(HWND frame)
{
    frameWindow = frame;
}

HWND vSYSTEM::GetFrameWindow()
{
    return frameWindow;
}

vKEYBOARD& vSYSTEM::GetKeyboard()
{
    static vKEYBOARD keyboard;
    return keyboard;
}

DEFEXCEP& vSYSTEM::GetDefaultException()
{
    static DEFEXCEP exception;
    return exception;
}

void vSYSTEM::SetExceptionFlag(int raised)
{
    exceptionFlag = raised;
}

int vSYSTEM::GetExceptionFlag()
{
    return exceptionFlag;
}

// The first call enters the application with no windows yet; the second,
// once its frame and client exist, makes it visible to the other programs.
void vSYSTEM::RegisterApp(vAPP* app, HINSTANCE instance, HWND frame, HWND client)
{
    activeApp = app;
    if (AppTable* table = AppTable::Shared())
        table->Register(app, instance, frame, client);
}

void vSYSTEM::UnregisterApp(vAPP* app, HINSTANCE)
{
    if (activeApp == app)
        activeApp = nullptr;
    if (AppTable* table = AppTable::Shared())
        table->Unregister(app);
}

// The iterator counts table slots: each call moves it past the entry it
// reports, so a walk resumes where it stopped even while others register.
int vSYSTEM::GetTavikApp(ITERATOR& iterator, HINSTANCE& instance, HWND& frame, HWND& client)
{
    AppTable* table = AppTable::Shared();
    unsigned slot = iterator();
    AppTable::Entry entry;
    if (!table || !table->Find(slot, entry))
        return 0;
    while (iterator() <= slot)
        iterator.Next();
    instance = entry.instance;
    frame = entry.frame;
    client = entry.client;
    return 1;
}

// Out of memory inside new: let the message loop put up the complaint at
// the next message and give up this allocation rather than spin.
int vSYSTEM::NewFailureException(unsigned int)
{
    SetExceptionFlag(1);
    return 0;
}
