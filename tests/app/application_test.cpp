#include "app/appaccess.h"
#include "support/systemaccess.h"

using wintest::Lines;
using wintest::Text;

namespace {

// An application that writes each handler call into a log that outlives
// it, and answers what the test asks of it.
class RECORDER : public vAPP {
public:
    RECORDER(Lines& log, int mdi = 0, const char* name = "ZkRecorderFrame")
        : vAPP(vSTRING("%s", name), vSTRING("Recorder"), mdi), log(log)
    {
    }
    ~RECORDER() override { log.push_back("~RECORDER"); }

    int vSize(const vRECT& size) override { return Note("vSize " + Text(size)); }
    int vQueryClose() override { return Note("vQueryClose", 1); }
    int vNewWindow() override { return Note("vNewWindow"); }
    int vCommand(const vCTRLID& id) override
    {
        vKEYCODE code = vSYSTEM::GetKeyboard().KeyCode();
        return Note("vCommand " + std::to_string(id) + (code ? " key " + std::to_string(code) : ""));
    }
    int vCommandHint(const vCTRLID& id, const vMENU& menu) override
    {
        return Note("vCommandHint " + std::to_string(id) + (vAPPACCESS::Handle(menu) == hint ? " menu" : " other"));
    }
    int vActivate() override { return Note("vActivate"); }
    int vSettingChange() override { return Note("vSettingChange"); }

    std::map<std::string, int> answers;
    HMENU hint = nullptr;

private:
    int Note(const std::string& call, int fallback = 0)
    {
        log.push_back(call);
        std::string name = call.substr(0, call.find(' '));
        return answers.count(name) ? answers[name] : fallback;
    }

    Lines& log;
};

// A document window of the frame's client, bound to an object that records
// what the application asks of it.
class DOCUMENT : public vWIN {
public:
    DOCUMENT(HWND window, Lines& log) : vWIN(window, vRESID()), log(log) { BindInstance(window); }
    int vCommand(const vCTRLID& id) override
    {
        log.push_back("document vCommand " + std::to_string(id));
        return answer;
    }
    void Activate() override { log.push_back("document Activate"); }

    int answer = 0;

private:
    Lines& log;
};

class ApplicationTest : public zktest::LeakFreeTest {
protected:
    void Make(int mdi = 0)
    {
        app = new RECORDER(log, mdi);
        frame = vAPPACCESS::Frame(*app);
    }
    void TearDown() override
    {
        apptest::End(frame);
        zktest::LeakFreeTest::TearDown();
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageA(frame, message, wParam, lParam);
    }

    Lines log;
    RECORDER* app = nullptr;
    HWND frame = nullptr;
};

std::string ClassOf(HWND window)
{
    char name[64] = {};
    GetClassNameA(window, name, sizeof name);
    return name;
}

TEST_F(ApplicationTest, ConstructionMakesAHiddenFrameWithItsClientAndDestructionLeavesTheQuit)
{
    {
        wintest::TraceLevel level(1);
        zktest::TraceCapture capture;
        Make();
        EXPECT_EQ(capture.Lines(), Lines{"Trace: vAPP::vAPP(...)"});
    }
    EXPECT_EQ(ClassOf(frame), "ZkRecorderFrame");
    EXPECT_EQ(GetWindowLongPtrA(frame, 0), reinterpret_cast<LONG_PTR>(app));
    EXPECT_EQ(GetWindowLongA(frame, GWL_STYLE) & 0x02CF0000u, 0x02CF0000u);
    EXPECT_FALSE(IsWindowVisible(frame));
    WNDCLASSA info;
    ASSERT_TRUE(GetClassInfoA(GetModuleHandleA(nullptr), "ZkRecorderFrame", &info));
    EXPECT_EQ(info.style, static_cast<UINT>(CS_DBLCLKS));
    EXPECT_EQ(info.cbWndExtra, static_cast<int>(sizeof(vAPP*)));
    EXPECT_TRUE(GetClassInfoA(vSYSTEM::Pointer()->GetInstance(), "MDICHILD", &info));
    HWND client = vAPPACCESS::Client(*app);
    EXPECT_EQ(ClassOf(client), "MDIClient");
    EXPECT_EQ(GetParent(client), frame);
    EXPECT_EQ(GetDlgCtrlID(client), 1000);
    EXPECT_EQ(GetWindowLongA(client, GWL_STYLE) & 0x56000001, 0x56000001);
    EXPECT_EQ(vSYSTEM::ActiveApp(), app);
    EXPECT_EQ(vSYSTEM::GetFrameWindow(), frame);
    EXPECT_EQ(app->Language(), 2057);
    EXPECT_EQ(vAPPACCESS::Arrange(*app), ARRANGE_TILE);
    EXPECT_EQ((*app)(), GetModuleHandleA(nullptr));

    wintest::TraceLevel level(1);
    zktest::TraceCapture capture;
    DestroyWindow(frame);
    EXPECT_EQ(log, Lines{"~RECORDER"});
    EXPECT_EQ(capture.Lines(), Lines{"Trace: vAPP::~vAPP()"});
    EXPECT_EQ(vSYSTEM::ActiveApp(), nullptr);
    MSG msg;
    ASSERT_TRUE(PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
}

// The frame's messages, and the handler calls each must make. The Window
// menu's commands arrange the documents and reach no handler; other
// commands go to the active document first.
TEST_F(ApplicationTest, FrameMessagesReachTheHandlersAsTheTableSays)
{
    Make(1);
    app->hint = CreatePopupMenu();
    app->answers["vSettingChange"] = 5;
    app->answers["vCommand"] = 9;
    MDICREATESTRUCTA create = {"MDICHILD", "Document", vSYSTEM::Pointer()->GetInstance(), CW_USEDEFAULT,
                               CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, WS_VISIBLE | WS_OVERLAPPEDWINDOW, 0};
    HWND window = reinterpret_cast<HWND>(
        SendMessageA(vAPPACCESS::Client(*app), WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&create)));
    DOCUMENT document(window, log);
    ASSERT_EQ(app->ActiveDocWin(), &document);
    vSYSTEM::SetFrameWindow(nullptr);
    const struct { UINT message; WPARAM wParam; LPARAM lParam; Lines calls; LRESULT result; vMDIARRANGE arrange; } rows[] = {
        {WM_SYSCOLORCHANGE, 0, 0, {"vSettingChange"}, 0, ARRANGE_TILE},
        {WM_WININICHANGE, 42, 0, {"vSettingChange"}, 0, ARRANGE_TILE},
        {WM_ACTIVATEAPP, 1, 0, {"vActivate"}, 0, ARRANGE_TILE},
        {WM_ACTIVATEAPP, 0, 0, {}, 0, ARRANGE_TILE},
        {WM_COMMAND, 30003, 0, {"vNewWindow"}, 0, ARRANGE_TILE},
        {WM_COMMAND, 5, 0, {"document vCommand 5", "vCommand 5"}, 0, ARRANGE_TILE},
        {WM_COMMAND, MAKEWPARAM(30003, 1), 0, {"document vCommand 30003", "vCommand 30003"}, 0, ARRANGE_TILE},
        {WM_MENUSELECT, MAKEWPARAM(7, MF_POPUP), reinterpret_cast<LPARAM>(app->hint), {"vCommandHint 7 menu"}, 0,
         ARRANGE_TILE},
        {WM_INITMENU, reinterpret_cast<WPARAM>(app->hint), 0, {}, 0, ARRANGE_TILE},
        {vSYSTEMACCESS::GetTavikMessage(), 0, 0, {}, 0x0B0B0B0B, ARRANGE_TILE},
        {WM_COMMAND, 30004, 0, {}, 0, ARRANGE_CASCADE},
        {WM_COMMAND, 30007, 0, {}, 0, ARRANGE_ROWS},
        {WM_COMMAND, 30006, 0, {}, 0, ARRANGE_COLUMNS},
        {WM_COMMAND, 30005, 0, {}, 0, ARRANGE_TILE},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.message) + " " + std::to_string(row.wParam));
        log.clear();
        EXPECT_EQ(Send(row.message, row.wParam, row.lParam), row.result);
        EXPECT_EQ(log, row.calls);
        EXPECT_EQ(vAPPACCESS::Arrange(*app), row.arrange);
    }
    EXPECT_EQ(vSYSTEM::GetFrameWindow(), frame);
    // A command the document takes goes no further.
    log.clear();
    document.answer = 3;
    EXPECT_EQ(Send(WM_COMMAND, 6), 0);
    EXPECT_EQ(log, Lines{"document vCommand 6"});
    DestroyMenu(app->hint);
    apptest::End(frame);
    EXPECT_FALSE(IsWindow(window));
}

// A refused close keeps the frame; the kill message closes through a
// posted close.
TEST_F(ApplicationTest, ClosingAsksTheApplication)
{
    Make();
    app->answers["vQueryClose"] = 0;
    EXPECT_EQ(Send(WM_CLOSE), 0);
    EXPECT_EQ(Send(WM_QUERYENDSESSION), 0);
    EXPECT_TRUE(IsWindow(frame));
    app->answers["vQueryClose"] = 1;
    zktest::TraceCapture capture;
    EXPECT_EQ(Send(vSYSTEM::GetZKKillMsg()), 0);
    EXPECT_EQ(capture.Lines(), Lines{"Trace: vAPP::Close()"});
    EXPECT_EQ(log, (Lines{"vQueryClose", "vQueryClose"}));
    apptest::Pump();
    EXPECT_EQ(log, (Lines{"vQueryClose", "vQueryClose", "vQueryClose", "~RECORDER"}));
}

TEST_F(ApplicationTest, TheLoopFeedsTheKeyboardAndAcceleratorsAndEndsWithTheQuit)
{
    Make();
    EXPECT_EQ(app->SetAccel(vRESID(2, app)), 0);
    ASSERT_EQ(app->SetAccel(vRESID(1, app)), 1);
    PostMessageA(frame, WM_COMMAND, 40, 0);
    PostMessageA(frame, WM_KEYDOWN, 'A', 1);
    PostMessageA(frame, WM_COMMAND, 41, 0);
    PostMessageA(frame, WM_KEYUP, 'A', 0xC0000001);
    PostMessageA(frame, WM_COMMAND, 42, 0);
    PostMessageA(frame, WM_KEYDOWN, VK_F5, 1);
    app->Close();
    EXPECT_EQ(vAPPACCESS::Run(*app, GetModuleHandleA(nullptr), nullptr), 0);
    EXPECT_EQ(log, (Lines{"vCommand 40", "vCommand 41 key 65", "vCommand 42", "vCommand 4242 key 116", "vQueryClose",
                          "~RECORDER"}));
    vSYSTEMACCESS::KeyReset();
}

TEST_F(ApplicationTest, ASecondInstanceWakesTheFirstAndRunsNoLoop)
{
    Lines firstLog;
    RECORDER* first = new RECORDER(firstLog, 0, "ZkTwinFrame");
    HWND firstFrame = vAPPACCESS::Frame(*first);
    first->Show();
    first->Iconise();
    ASSERT_TRUE(first->IsIconised());
    firstLog.clear();
    app = new RECORDER(log, 1, "ZkTwinFrame");
    frame = vAPPACCESS::Frame(*app);
    zktest::TraceCapture capture;
    PostQuitMessage(7);
    EXPECT_EQ(vAPPACCESS::Run(*app, GetModuleHandleA(nullptr), GetModuleHandleA(nullptr)), 0);
    Lines lines = capture.Lines();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "Trace: vAPP - start of other app check");
    EXPECT_EQ(lines.back(), "Trace: vAPP - other app exists");
    EXPECT_FALSE(first->IsIconised());
    EXPECT_EQ(firstLog, Lines{"vSize " + Text(first->Size())});
    EXPECT_EQ(vSYSTEM::ActiveApp(), app);
    apptest::End(firstFrame);
    EXPECT_EQ(firstLog.back(), "~RECORDER");
}

}  // namespace
