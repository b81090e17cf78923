#include <zkshell.h>

#include <vector>

#include "bench/bench.h"

namespace {

const unsigned long messages = 200000;
const unsigned long windows = 10000;

// The trivial work both sides do for each message they handle.
volatile long handled = 0;

// The window under test: its handlers only count.
class COUNTER : public vWIN {
public:
    COUNTER(const vAPP& app, const vRECT& rect) : vWIN(app, rect) {}
    COUNTER(const vWIN& parent, const vRECT& rect) : vWIN(parent, rect) {}

    int vCommand(const vCTRLID&) override { return ++handled; }
    int vMouseMove(const vPOINT&) override { return ++handled; }
    int vTimer(const vRESID&) override { return ++handled; }
};

// The same work written as a plain window procedure. A command and a timer
// go on to the default processing after the count, as the library's window
// passes them on whatever its handler answered; the family message, which
// the library's window leaves alone, goes on to the default as well.
LRESULT CALLBACK RawProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_MOUSEMOVE:
        return ++handled;
    case WM_COMMAND:
    case WM_TIMER:
        ++handled;
        return DefWindowProcA(window, message, wParam, lParam);
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

HWND MakeRawWindow(HWND parent)
{
    WNDCLASSA rawClass = {};
    rawClass.lpfnWndProc = RawProc;
    rawClass.hInstance = GetModuleHandleA(nullptr);
    rawClass.lpszClassName = "ZKBENCHRAW";
    RegisterClassA(&rawClass);
    return CreateWindowExA(0, "ZKBENCHRAW", nullptr, WS_CHILD, 0, 0, 100, 100, parent, nullptr,
                           GetModuleHandleA(nullptr), nullptr);
}

class BENCHAPP : public vAPP {
public:
    BENCHAPP() : vAPP(vSTRING("ZkBenchFrame"), vSTRING("Benchmark"), 0) {}
};

vRECT Area()
{
    return vRECT(vINT(0), vINT(0), vINT(100), vINT(100));
}

void OneMessage(const char* name, UINT message, WPARAM wParam, LPARAM lParam, HWND ours, HWND raw)
{
    zkbench::Record(name, "raw window procedure", zkbench::Compare([=] {
        for (unsigned long n = 0; n < messages; ++n)
            SendMessageA(ours, message, wParam, lParam);
    }, [=] {
        for (unsigned long n = 0; n < messages; ++n)
            SendMessageA(raw, message, wParam, lParam);
    }, messages));
}

// A command that no child sent, to a window with twenty bound children: the
// look for a bound child with the identifier reads each one's identifier.
void Crowded(const COUNTER& window, HWND raw)
{
    std::vector<COUNTER*> children;
    for (int n = 0; n < 20; ++n)
        children.push_back(new COUNTER(window, Area()));
    OneMessage("dispatch.command.20children", WM_COMMAND, 1234, 0, window(), raw);
    for (COUNTER* child : children)
        DestroyWindow((*child)());
}

void Dispatch(const vAPP& app, HWND frame)
{
    COUNTER* window = new COUNTER(app, Area());
    HWND ours = (*window)();
    HWND raw = MakeRawWindow(frame);
    OneMessage("dispatch.command", WM_COMMAND, 1234, 0, ours, raw);
    OneMessage("dispatch.mousemove", WM_MOUSEMOVE, 0, MAKELPARAM(10, 20), ours, raw);
    OneMessage("dispatch.timer", WM_TIMER, 1, 0, ours, raw);
    OneMessage("dispatch.family", vSYSTEM::GetPaletteChangeMsg(), 0, 0, ours, raw);
    Crowded(*window, raw);
    DestroyWindow(raw);
    DestroyWindow(ours);
}

// Children made with new and destroyed by the platform, which deletes them.
void WindowLife(const vAPP& app)
{
    COUNTER* parent = new COUNTER(app, Area());
    HWND parentHandle = (*parent)();
    HINSTANCE library = vSYSTEM::Pointer()->GetInstance();
    zkbench::Record("window.life", "CreateWindowExA+DestroyWindow", zkbench::Compare([parent] {
        for (unsigned long n = 0; n < windows; ++n)
            DestroyWindow((*new COUNTER(*parent, Area()))());
    }, [=] {
        for (unsigned long n = 0; n < windows; ++n)
            DestroyWindow(CreateWindowExA(0, "GENERIC", nullptr, WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, 0, 0,
                                          100, 100, parentHandle, nullptr, library, nullptr));
    }, windows, 5));
    DestroyWindow(parentHandle);
}

}  // namespace

void BenchListBoxes(const vAPP& app, HWND frame);

// The window rows share one application object.
void BenchDispatch()
{
    BENCHAPP* app = new BENCHAPP;
    HWND frame = vSYSTEM::GetFrameWindow();
    Dispatch(*app, frame);
    WindowLife(*app);
    BenchListBoxes(*app, frame);
    DestroyWindow(frame);
}
