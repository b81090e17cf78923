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

// Everything the windows under test report, in order: the handler calls of
// the objects and the watched messages that reach the saved procedure.
inline std::vector<std::string>& Log()
{
    static std::vector<std::string> lines;
    return lines;
}

// Raises the trace level for a scope, so that lifetime traces are written.
class TraceLevel {
public:
    explicit TraceLevel(unsigned short level) : saved(vSYSTEM::GetTraceLevel()) { vSYSTEM::SetTraceLevel(level); }
    ~TraceLevel() { vSYSTEM::SetTraceLevel(saved); }

private:
    unsigned short saved;
};

inline void Note(const std::string& line)
{
    Log().push_back(line);
}

inline std::set<UINT>& Watched()
{
    static std::set<UINT> messages;
    return messages;
}

inline std::string Text(const vPOINT& point)
{
    std::ostringstream text;
    text << "(" << point.x() << "," << point.y() << ")";
    return text.str();
}

inline std::string Text(const vRECT& rect)
{
    std::ostringstream text;
    text << "(" << rect.Left()() << "," << rect.Top()() << "," << rect.Right()() << "," << rect.Bottom()() << ")";
    return text.str();
}

inline std::string Narrow(const char* wide)
{
    std::string text;
    for (const WCHAR* at = reinterpret_cast<const WCHAR*>(wide); *at; ++at)
        text += static_cast<char>(*at);
    return text;
}

// The class procedure of the recording windows: what the library leaves to
// the default processing arrives here.
inline LRESULT CALLBACK RecordingDefault(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (Watched().count(message)) {
        char name[64] = "";
        InternalGetWindowText(window, reinterpret_cast<WCHAR*>(name), sizeof name / sizeof(WCHAR));
        std::ostringstream line;
        line << Narrow(name) << " default " << message;
        Note(line.str());
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

inline void RegisterClass(const char* name, WNDPROC procedure)
{
    HINSTANCE instance = vSYSTEM::Pointer()->GetInstance();
    WNDCLASSA known;
    if (GetClassInfoA(instance, name, &known))
        return;
    WNDCLASSA kind = {};
    kind.style = CS_DBLCLKS;
    kind.lpfnWndProc = procedure;
    kind.hInstance = instance;
    kind.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    kind.lpszClassName = name;
    RegisterClassA(&kind);
}

// "GENERIC" as the application object registers it, and the recording class.
inline void RegisterClasses()
{
    RegisterClass("GENERIC", DefWindowProcA);
    RegisterClass("ZKRECORD", RecordingDefault);
}

// Runs what is queued for the thread.
inline void Pump()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

// A window that records every handler call with its arguments and answers
// what the test asks of it, or the library's default. It creates its own
// platform window of the recording class, as a derived class may.
class RECORDER : public vWIN {
public:
    RECORDER(const vWIN& parent, const vRECT& rect, const std::string& name, vWNDFLAGS style = WF_NONE,
             unsigned short childId = 0)
        : vWIN(parent, rect, style, static_cast<vCLASSID>(1)), name(name)
    {
        lstrcpyA(CreateParams.szClassName, "ZKRECORD");
        CreateParams.lpszTitle = this->name.c_str();
        CreateParams.hMenuOrId = reinterpret_cast<HMENU>(static_cast<UINT_PTR>(childId));
        CreateWin();
        SetID(childId);
    }

    // A top-level window of the application, under its frame.
    RECORDER(const vAPP& app, const vRECT& rect, const std::string& name)
        : vWIN(app, rect, WF_NONE, static_cast<vCLASSID>(1)), name(name)
    {
        lstrcpyA(CreateParams.szClassName, "ZKRECORD");
        CreateParams.lpszTitle = this->name.c_str();
        CreateWin();
    }

    // Adopts a window that exists, binding and subclassing it at once.
    RECORDER(HWND window, const std::string& name) : vWIN(window, vRESID()), name(name)
    {
        BindInstance(window);
        SubClass();
    }

    ~RECORDER() override { Note(name + ".~RECORDER"); }

    using vWIN::flags;
    using vWIN::isDragging;
    using vWIN::Instance;
    using vWIN::pfnOldProc;
    using vWIN::pDepends;
    using vWIN::pParent;
    using vWIN::updateFlags;

    void Answer(const std::string& handler, int value) { answers[handler] = value; }
    void Reset() { answers.clear(); }

    void UpdateView(const vCTRLID& changed) override { Note(name + ".UpdateView(" + Number(changed) + ")"); }
    int vQueryClose() override { return Reply("vQueryClose", "", vWIN::vQueryClose()); }
    int vBorderDrag(vRECT* newRect, vRECT* oldRect) override
    {
        return Reply("vBorderDrag", Text(*newRect) + "," + (oldRect ? Text(*oldRect) : "null"), 1);
    }
    void Size(const vRECT& rect) override
    {
        Note(name + ".Size(" + Text(rect) + ")");
        vWIN::Size(rect);
    }
    vRECT Size() const override { return vWIN::Size(); }
    void Show(int show) override
    {
        Note(name + ".Show(" + Number(show) + ")");
        vWIN::Show(show);
    }
    int vSize(const vRECT& client) override { return Reply("vSize", Text(client), 0); }
    int vIconize() override { return Reply("vIconize", "", 0); }
    int vActivate() override { return Reply("vActivate", "", 0); }
    int vDeactivate() override { return Reply("vDeactivate", "", 0); }
    int vCommand(const vCTRLID& id) override { return Reply("vCommand", Number(id), 0); }
    int vCommandHint(const vCTRLID& id) override { return Reply("vCommandHint", Number(id), 0); }
    int vTimer(const vRESID& id) override { return Reply("vTimer", Number(id()), 0); }
    int vSettingChange() override { return Reply("vSettingChange", "", 0); }
    int vMouseMove(const vPOINT& at) override { return Reply("vMouseMove", Text(at), 0); }
    int vMouseLeftPress(const vPOINT& at) override { return Reply("vMouseLeftPress", Text(at), 0); }
    int vMouseLeftRelease(const vPOINT& at) override { return Reply("vMouseLeftRelease", Text(at), 0); }
    int vMouseMiddlePress(const vPOINT& at) override { return Reply("vMouseMiddlePress", Text(at), 0); }
    int vMouseMiddleRelease(const vPOINT& at) override { return Reply("vMouseMiddleRelease", Text(at), 0); }
    int vMouseRightPress(const vPOINT& at) override { return Reply("vMouseRightPress", Text(at), 0); }
    int vMouseRightRelease(const vPOINT& at) override { return Reply("vMouseRightRelease", Text(at), 0); }
    int vMouseLeftDoublePress(const vPOINT& at) override { return Reply("vMouseLeftDoublePress", Text(at), 0); }
    int vMouseMiddleDoublePress(const vPOINT& at) override { return Reply("vMouseMiddleDoublePress", Text(at), 0); }
    int vMouseRightDoublePress(const vPOINT& at) override { return Reply("vMouseRightDoublePress", Text(at), 0); }
    int vGetFocus() override { return Reply("vGetFocus", "", 0); }
    int vReleaseFocus(vWIN* next) override { return Reply("vReleaseFocus", NameOf(next), 0); }
    int vScrollPageUp() override { return Reply("vScrollPageUp", "", 0); }
    int vScrollPageDown() override { return Reply("vScrollPageDown", "", 0); }
    int vScrollPageLeft() override { return Reply("vScrollPageLeft", "", 0); }
    int vScrollPageRight() override { return Reply("vScrollPageRight", "", 0); }
    int vScrollIncUp() override { return Reply("vScrollIncUp", "", 0); }
    int vScrollIncDown() override { return Reply("vScrollIncDown", "", 0); }
    int vScrollIncLeft() override { return Reply("vScrollIncLeft", "", 0); }
    int vScrollIncRight() override { return Reply("vScrollIncRight", "", 0); }
    int vEscapeKey() override { return Reply("vEscapeKey", "", 0); }
    int vTabKey() override { return Reply("vTabKey", "", 0); }
    int vBackspaceKey() override { return Reply("vBackspaceKey", "", 0); }
    int vEnterKey() override { return Reply("vEnterKey", "", 0); }
    int vInsertKey() override { return Reply("vInsertKey", "", 0); }
    int vDeleteKey() override { return Reply("vDeleteKey", "", 0); }
    int vHomeKey() override { return Reply("vHomeKey", "", 0); }
    int vEndKey() override { return Reply("vEndKey", "", 0); }
    int vPageUpKey() override { return Reply("vPageUpKey", "", 0); }
    int vPageDownKey() override { return Reply("vPageDownKey", "", 0); }
    int vArrowUpKey() override { return Reply("vArrowUpKey", "", 0); }
    int vArrowDownKey() override { return Reply("vArrowDownKey", "", 0); }
    int vArrowLeftKey() override { return Reply("vArrowLeftKey", "", 0); }
    int vArrowRightKey() override { return Reply("vArrowRightKey", "", 0); }
    int vFunctionKey(unsigned short number) override
    {
        return Reply("vFunctionKey", Number(number), vWIN::vFunctionKey(number));
    }
    int vCharacterKey(const vCHAR& character) override
    {
        return Reply("vCharacterKey", std::string(1, character()), 0);
    }
    int vKeyDown() override { return Reply("vKeyDown", "", 0); }
    int vDragInit(const vPOINT& at) override { return Reply("vDragInit", Text(at), 0); }
    void vDragFeedback(unsigned char state, const vPOINT& at) override
    {
        Reply("vDragFeedback", Number(state) + "," + Text(at), 0);
    }
    int vCtrTab() override { return Reply("vCtrTab", "", 0); }
    int vDraw(const vRECT& area) override { return Reply("vDraw", Text(area), 0); }

protected:
    int vEraseBkg() override
    {
        Note(name + ".vEraseBkg()");
        return vWIN::vEraseBkg();
    }

public:
    std::string name;

private:
    template <typename NUMBER>
    static std::string Number(NUMBER value)
    {
        std::ostringstream text;
        text << static_cast<long>(value);
        return text.str();
    }

    static std::string NameOf(vWIN* win)
    {
        RECORDER* recorder = dynamic_cast<RECORDER*>(win);
        return recorder ? recorder->name : win ? "?" : "null";
    }

    int Reply(const std::string& handler, const std::string& arguments, int fallback)
    {
        Note(name + "." + handler + "(" + arguments + ")");
        auto answer = answers.find(handler);
        return answer == answers.end() ? fallback : answer->second;
    }

    std::map<std::string, int> answers;
};

// The top-level popup under which the tests make their windows, adopted by
// a recorder. It lives as long as the program: the platform takes seconds to
// let an active window go, so it is made once and only hidden between suites.
inline RECORDER& SharedTop()
{
    alignas(RECORDER) static unsigned char storage[sizeof(RECORDER)];
    static RECORDER* top = nullptr;
    if (!top) {
        HWND window = CreateWindowExA(0, "ZKRECORD", "top", WS_POPUP, 100, 100, 400, 300, nullptr, nullptr,
                                      vSYSTEM::Pointer()->GetInstance(), nullptr);
        top = ::new (storage) RECORDER(window, "top");
    }
    return *top;
}

// Every test starts with the classes registered, the process-wide objects
// that are made on first use made already, the shared top-level window shown
// and active, and an empty log; it leaves the top-level window as it found it.
class WindowTest : public zktest::LeakFreeTest {
protected:
    static void SetUpTestSuite()
    {
        RegisterClasses();
        vDEVICE::GetScreen().Colour(vSCREEN_WINDOW);
        vSYSTEM::GetKeyboard();
        RECORDER& top = SharedTop();
        ShowWindow(top(), SW_SHOW);
        SetForegroundWindow(top());
        RECORDER child(top, vRECT(0, 0, 10, 10), "warm");
        child.Invalidate();
        UpdateWindow(child());
        DestroyWindow(child());
        Pump();
    }

    static void TearDownTestSuite() { ShowWindow(SharedTop()(), SW_HIDE); }

    void SetUp() override
    {
        zktest::LeakFreeTest::SetUp();
        Log().clear();
        Watched().clear();
    }

    void TearDown() override
    {
        RECORDER& top = Top();
        while (!top.pDepends->IsEmpty())
            top.pDepends->Remove(*top.pDepends->First());
        top.flags = WINF_ERASE;
        top.updateFlags = 0;
        top.Reset();
        SetWindowLongA(top(), GWL_EXSTYLE, 0);
        Pump();
        Watched().clear();
        vWIN::rectDragHotZone = vRECT(0, 0, 0, 0);
        zktest::LeakFreeTest::TearDown();
    }

    RECORDER& Top() { return SharedTop(); }
};

}  // namespace wintest
