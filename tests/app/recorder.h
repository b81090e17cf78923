#pragma once

#include <windows.h>

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "app/pointer.h"
#include "app/window.h"
#include "support/zktest.h"

namespace wintest {

using Lines = std::vector<std::string>;

// Everything the windows under test report, in order: the handler calls of
// the objects and the watched messages that reach the saved procedure.
inline Lines& Log() { static Lines lines; return lines; }

inline void Note(const std::string& line) { Log().push_back(line); }

// The lines of the log that contain the part.
inline Lines Only(const std::string& part) {
    Lines kept;
    for (const std::string& line : Log())
        if (line.find(part) != std::string::npos) kept.push_back(line);
    return kept;
}

inline std::set<UINT>& Watched() { static std::set<UINT> messages; return messages; }

// Raises the trace level for a scope, so that lifetime traces are written.
struct TraceLevel {
    explicit TraceLevel(unsigned short level) : saved(vSYSTEM::GetTraceLevel()) { vSYSTEM::SetTraceLevel(level); }
    ~TraceLevel() { vSYSTEM::SetTraceLevel(saved); }
    unsigned short saved;
};

inline std::string Text(const vPOINT& p) { return "(" + std::to_string(p.x()) + "," + std::to_string(p.y()) + ")"; }
inline std::string Text(const vRECT& r) {
    return "(" + std::to_string(r.Left()()) + "," + std::to_string(r.Top()()) + "," + std::to_string(r.Right()()) +
           "," + std::to_string(r.Bottom()()) + ")";
}

// The window's rectangle in its parent's client coordinates.
inline std::string Placed(HWND window) {
    RECT box;
    GetWindowRect(window, &box);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&box), 2);
    return Text(vRECT(box.left, box.top, box.right, box.bottom));
}

// The class procedure of the recording windows: what the library leaves to the default processing arrives here.
inline LRESULT CALLBACK RecordingDefault(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    WCHAR wide[64] = L"";
    if (Watched().count(message))
        Note(std::string(wide, wide + InternalGetWindowText(window, wide, 64)) + " default " + std::to_string(message));
    return DefWindowProcA(window, message, wParam, lParam);
}

// "GENERIC" as the application object registers it, and the recording class.
inline void RegisterClasses() {
    HINSTANCE instance = vSYSTEM::Pointer()->GetInstance();
    for (auto kind : {std::make_pair("GENERIC", &DefWindowProcA), std::make_pair("ZKRECORD", &RecordingDefault)}) {
        WNDCLASSA known = {CS_DBLCLKS, kind.second, 0, 0, instance, nullptr, nullptr,
                           static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)), nullptr, kind.first};
        RegisterClassA(&known);
    }
}

// Runs what is queued for the thread, short of a quit.
inline void Pump() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

#define ZK_HEAR(handler) int handler() override { return Reply(#handler, "", 0); }
#define ZK_HEAR_AT(handler) int handler(const vPOINT& at) override { return Reply(#handler, Text(at), 0); }

// A window that records every handler call with its arguments and answers what the test asks of it, or the library's
// default. It creates its own platform window of the recording class, as a derived class may.
class RECORDER : public vWIN {
public:
    RECORDER(const vWIN& parent, const vRECT& rect, const std::string& name, vWNDFLAGS style = WF_NONE,
             unsigned short childId = 0)
        : vWIN(parent, rect, style, static_cast<vCLASSID>(1)), name(name) { Create(childId); SetID(childId); }
    // Adopts a window that exists, binding and subclassing it at once.
    RECORDER(HWND window, const std::string& name) : vWIN(window, vRESID()), name(name) {
        BindInstance(window);
        SubClass();
    }
    ~RECORDER() override { Note(name + ".~RECORDER"); }

    using vWIN::flags, vWIN::Instance, vWIN::isDragging, vWIN::pDepends, vWIN::pfnOldProc, vWIN::updateFlags;

    void Answer(const std::string& handler, int value) { answers[handler] = value; }
    void Reset() { answers.clear(); }

    void UpdateView(const vCTRLID& changed) override { Note(name + ".UpdateView(" + std::to_string(changed) + ")"); }
    int vQueryClose() override { return Reply("vQueryClose", "", vWIN::vQueryClose()); }
    int vBorderDrag(vRECT* newRect, vRECT* oldRect) override {
        return Reply("vBorderDrag", Text(*newRect) + "," + (oldRect ? Text(*oldRect) : "null"), 1);
    }
    void Size(const vRECT& rect) override { Note(name + ".Size(" + Text(rect) + ")"), vWIN::Size(rect); }
    using vWIN::Size;
    int vSize(const vRECT& client) override { return Reply("vSize", Text(client), 0); }
    int vCommand(const vCTRLID& id) override { return Reply("vCommand", std::to_string(id), 0); }
    int vCommandHint(const vCTRLID& id) override { return Reply("vCommandHint", std::to_string(id), 0); }
    int vTimer(const vRESID& id) override { return Reply("vTimer", std::to_string(id()), 0); }
    int vReleaseFocus(vWIN* next) override { return Reply("vReleaseFocus", next ? Named(next) : "null", 0); }
    int vFunctionKey(unsigned short n) override {
        return Reply("vFunctionKey", std::to_string(n), vWIN::vFunctionKey(n));
    }
    int vCharacterKey(const vCHAR& c) override { return Reply("vCharacterKey", std::string(1, c()), 0); }
    void vDragFeedback(unsigned char state, const vPOINT& at) override {
        Reply("vDragFeedback", std::to_string(state) + "," + Text(at), 0);
    }
    int vDraw(const vRECT& area) override { return Reply("vDraw", Text(area), 0); }
    ZK_HEAR(vIconize) ZK_HEAR(vActivate) ZK_HEAR(vDeactivate) ZK_HEAR(vSettingChange) ZK_HEAR(vGetFocus)
    ZK_HEAR(vScrollPageUp) ZK_HEAR(vScrollPageDown) ZK_HEAR(vScrollPageLeft) ZK_HEAR(vScrollPageRight)
    ZK_HEAR(vScrollIncUp) ZK_HEAR(vScrollIncDown) ZK_HEAR(vScrollIncLeft) ZK_HEAR(vScrollIncRight)
    ZK_HEAR(vEscapeKey) ZK_HEAR(vTabKey) ZK_HEAR(vBackspaceKey) ZK_HEAR(vEnterKey) ZK_HEAR(vInsertKey)
    ZK_HEAR(vDeleteKey) ZK_HEAR(vHomeKey) ZK_HEAR(vEndKey) ZK_HEAR(vPageUpKey) ZK_HEAR(vPageDownKey)
    ZK_HEAR(vArrowUpKey) ZK_HEAR(vArrowDownKey) ZK_HEAR(vArrowLeftKey) ZK_HEAR(vArrowRightKey) ZK_HEAR(vKeyDown)
    ZK_HEAR(vCtrTab)
    ZK_HEAR_AT(vMouseMove) ZK_HEAR_AT(vMouseLeftPress) ZK_HEAR_AT(vMouseLeftRelease) ZK_HEAR_AT(vMouseMiddlePress)
    ZK_HEAR_AT(vMouseMiddleRelease) ZK_HEAR_AT(vMouseRightPress) ZK_HEAR_AT(vMouseRightRelease)
    ZK_HEAR_AT(vMouseLeftDoublePress) ZK_HEAR_AT(vMouseMiddleDoublePress) ZK_HEAR_AT(vMouseRightDoublePress)

    std::string name;
protected:
    int vEraseBkg() override { return Note(name + ".vEraseBkg()"), vWIN::vEraseBkg(); }
private:
    static std::string Named(vWIN* win) {
        RECORDER* recorder = dynamic_cast<RECORDER*>(win);
        return recorder ? recorder->name : "?";
    }
    void Create(unsigned short childId) {
        lstrcpyA(CreateParams.szClassName, "ZKRECORD");
        CreateParams.lpszTitle = name.c_str();
        CreateParams.hMenuOrId = reinterpret_cast<HMENU>(static_cast<UINT_PTR>(childId)), CreateWin();
    }
    int Reply(const std::string& handler, const std::string& arguments, int fallback) {
        Note(name + "." + handler + "(" + arguments + ")");
        return answers.count(handler) ? answers[handler] : fallback;
    }

    std::map<std::string, int> answers;
};

// The top-level popup under which the tests make their windows, adopted by a recorder. It lives as long as the program:
// the platform takes seconds to let an active window go, so it is made once and only hidden between suites.
inline RECORDER& SharedTop() {
    alignas(RECORDER) static unsigned char storage[sizeof(RECORDER)];
    static RECORDER* top = nullptr;
    if (!top)
        top = ::new (storage) RECORDER(CreateWindowExA(0, "ZKRECORD", "top", WS_POPUP, 100, 100, 400, 300, nullptr,
                                                       nullptr, vSYSTEM::Pointer()->GetInstance(), nullptr),
                                       "top");
    return *top;
}

// Every test starts with the classes registered, the process-wide objects that are made on first use made already, the
// shared top-level window shown and active, and an empty log; it leaves the top-level window as it found it.
class WindowTest : public zktest::LeakFreeTest {
protected:
    static void SetUpTestSuite() {
        RegisterClasses();
        vDEVICE::GetScreen().Colour(vSCREEN_WINDOW);
        vSYSTEM::GetKeyboard();
        RECORDER& top = SharedTop();
        ShowWindow(top(), SW_SHOW);
        SetForegroundWindow(top());
        RECORDER child(top, vRECT(0, 0, 10, 10), "warm");
        child.Invalidate(), UpdateWindow(child()), DestroyWindow(child()), Pump();
    }

    static void TearDownTestSuite() { ShowWindow(SharedTop()(), SW_HIDE); }

    void SetUp() override { zktest::LeakFreeTest::SetUp(), Log().clear(), Watched().clear(); }

    void TearDown() override {
        RECORDER& top = Top();
        while (!top.pDepends->IsEmpty()) top.pDepends->Remove(*top.pDepends->First());
        top.flags = WINF_ERASE, top.updateFlags = 0, top.Reset();
        SetWindowLongA(top(), GWL_EXSTYLE, 0);
        Pump();
        Watched().clear();
        vWIN::rectDragHotZone = vRECT(0, 0, 0, 0);
        zktest::LeakFreeTest::TearDown();
    }

    RECORDER& Top() { return SharedTop(); }
};

}  // namespace wintest
