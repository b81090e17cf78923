#include "app/appaccess.h"
#include "support/systemaccess.h"

using namespace wintest;

namespace {

// An application that notes each handler call in the log and answers what the test asks of it.
class APPRECORDER : public vAPP {
public:
    APPRECORDER(int mdi = 0) : vAPP(vSTRING("ZkRecorderFrame"), vSTRING("Recorder"), mdi) {}
    ~APPRECORDER() override { Note("~APPRECORDER"); }

    int vSize(const vRECT& size) override { return Hear("vSize " + Text(size)); }
    int vQueryClose() override { return Hear("vQueryClose", 1); }
    int vNewWindow() override { return Hear("vNewWindow"); }
    int vCommand(const vCTRLID& id) override {
        vKEYCODE code = vSYSTEM::GetKeyboard().KeyCode();
        return Hear("vCommand " + std::to_string(id) + (code ? " key " + std::to_string(code) : ""));
    }
    int vCommandHint(const vCTRLID& id, const vMENU& menu) override
    { return Hear("vCommandHint " + std::to_string(id) + (vAPPACCESS::Handle(menu) == hint ? " menu" : " other")); }
    int vActivate() override { return Hear("vActivate"); }
    int vSettingChange() override { return Hear("vSettingChange"); }

    std::map<std::string, int> answers;
    HMENU hint = nullptr;
    int Hear(const std::string& call, int fallback = 0) {
        std::string name = call.substr(0, call.find(' '));
        return Note(call), answers.count(name) ? answers[name] : fallback;
    }
};

class ApplicationTest : public WindowTest {
protected:
    void Make(int mdi = 0) { app = new APPRECORDER(mdi); frame = vAPPACCESS::Frame(*app); }
    void TearDown() override { apptest::End(frame); WindowTest::TearDown(); }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        Log().clear();
        return SendMessageA(frame, message, wParam, lParam);
    }

    APPRECORDER* app = nullptr;
    HWND frame = nullptr;
};

std::string ClassOf(HWND window) { char name[64] = {}; return GetClassNameA(window, name, sizeof name), name; }

// The frame is of the program's class, holds the application and its client,
// and is hidden; its destruction deletes the application and leaves the quit.
TEST_F(ApplicationTest, TheFrameHoldsTheApplicationAndItsDestructionLeavesTheQuit) {
    TraceLevel level(1);
    zktest::TraceCapture capture;
    Make();
    EXPECT_EQ(ClassOf(frame), "ZkRecorderFrame");
    EXPECT_EQ(GetWindowLongPtrA(frame, 0), reinterpret_cast<LONG_PTR>(app));
    EXPECT_EQ(GetWindowLongA(frame, GWL_STYLE) & 0x12CF0000u, 0x02CF0000u);
    WNDCLASSA info;
    ASSERT_TRUE(GetClassInfoA(GetModuleHandleA(nullptr), "ZkRecorderFrame", &info));
    EXPECT_TRUE(info.style == CS_DBLCLKS && info.cbWndExtra == int(sizeof(vAPP*)));
    HWND client = vAPPACCESS::Client(*app);
    EXPECT_TRUE(ClassOf(client) == "MDIClient" && GetParent(client) == frame && GetDlgCtrlID(client) == 1000);
    EXPECT_EQ(GetWindowLongA(client, GWL_STYLE) & 0x56000001, 0x56000001);
    EXPECT_TRUE(vSYSTEM::ActiveApp() == app && vSYSTEM::GetFrameWindow() == frame);
    EXPECT_EQ(app->Language(), 2057);
    DestroyWindow(frame);
    EXPECT_EQ(Log(), Lines{"~APPRECORDER"});
    EXPECT_EQ(capture.Lines(), (Lines{"Trace: vAPP::vAPP(...)", "Trace: vAPP::~vAPP()"}));
    EXPECT_EQ(vSYSTEM::ActiveApp(), nullptr);
    MSG msg;
    ASSERT_TRUE(PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
}

// The frame's messages, and the handler calls each must make. The Window menu's commands arrange the documents and
// reach no handler; other commands go to the active document first, and no further if it takes them.
TEST_F(ApplicationTest, FrameMessagesReachTheHandlersAsTheTableSays) {
    Make(1);
    app->hint = CreatePopupMenu();
    app->answers = {{"vSettingChange", 5}, {"vCommand", 9}};
    MDICREATESTRUCTA create = {"MDICHILD", "doc", vSYSTEM::Pointer()->GetInstance(), CW_USEDEFAULT, CW_USEDEFAULT,
                               CW_USEDEFAULT, CW_USEDEFAULT, WS_VISIBLE | WS_OVERLAPPEDWINDOW, 0};
    RECORDER document(reinterpret_cast<HWND>(SendMessageA(vAPPACCESS::Client(*app), WM_MDICREATE, 0,
                                                          reinterpret_cast<LPARAM>(&create))), "doc");
    ASSERT_EQ(app->ActiveDocWin(), &document);
    vSYSTEM::SetFrameWindow(nullptr);
    const LPARAM hint = reinterpret_cast<LPARAM>(app->hint);
    const struct {
        UINT message; WPARAM wParam; LPARAM lParam; Lines calls; LRESULT result; vMDIARRANGE arrange;
    } rows[] = {
        {WM_SYSCOLORCHANGE, 0, 0, {"vSettingChange"}, 0, ARRANGE_TILE},
        {WM_WININICHANGE, SPI_SETNONCLIENTMETRICS, 0, {"vSettingChange"}, 0, ARRANGE_TILE},
        {WM_WININICHANGE, 0, 0, {}, 0, ARRANGE_TILE},
        {WM_ACTIVATEAPP, 1, 0, {"vActivate"}, 0, ARRANGE_TILE},
        {WM_ACTIVATEAPP, 0, 0, {}, 0, ARRANGE_TILE},
        {WM_COMMAND, 30003, 0, {"vNewWindow"}, 0, ARRANGE_TILE},
        {WM_COMMAND, 5, 0, {"doc.vCommand(5)", "vCommand 5"}, 0, ARRANGE_TILE},
        {WM_COMMAND, MAKEWPARAM(30003, 1), 0, {"doc.vCommand(30003)", "vCommand 30003"}, 0, ARRANGE_TILE},
        {WM_MENUSELECT, MAKEWPARAM(7, MF_POPUP), hint, {"vCommandHint 7 menu"}, 0, ARRANGE_TILE},
        {WM_INITMENU, WPARAM(hint), 0, {}, 0, ARRANGE_TILE},
        {vSYSTEMACCESS::GetTavikMessage(), 0, 0, {}, 0x0B0B0B0B, ARRANGE_TILE},
        {WM_COMMAND, 30004, 0, {}, 0, ARRANGE_CASCADE},
        {WM_COMMAND, 30007, 0, {}, 0, ARRANGE_ROWS},
        {WM_COMMAND, 30006, 0, {}, 0, ARRANGE_COLUMNS},
        {WM_COMMAND, 30005, 0, {}, 0, ARRANGE_TILE},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.message) + " " + std::to_string(row.wParam));
        EXPECT_EQ(Send(row.message, row.wParam, row.lParam), row.result);
        EXPECT_EQ(Log(), row.calls);
        EXPECT_EQ(vAPPACCESS::Arrange(*app), row.arrange);
    }
    EXPECT_EQ(vSYSTEM::GetFrameWindow(), frame);
    document.Answer("vCommand", 3);
    EXPECT_EQ(Send(WM_COMMAND, 6), 0);
    EXPECT_EQ(Log(), Lines{"doc.vCommand(6)"});
    DestroyMenu(app->hint), apptest::End(frame);
    EXPECT_FALSE(IsWindow(document()));
}

// A refused close keeps the frame; the kill message closes through a posted
// close, which the application is asked about too.
TEST_F(ApplicationTest, ClosingAsksTheApplication) {
    Make();
    app->answers["vQueryClose"] = 0;
    EXPECT_EQ(Send(WM_CLOSE) + Send(WM_QUERYENDSESSION), 0);
    EXPECT_EQ(Log(), Lines{"vQueryClose"});
    EXPECT_TRUE(IsWindow(frame));
    app->answers["vQueryClose"] = 1;
    zktest::TraceCapture capture;
    EXPECT_EQ(Send(vSYSTEM::GetZKKillMsg()), 0);
    EXPECT_TRUE(capture.Lines() == Lines{"Trace: vAPP::Close()"} && Log().empty());
    Pump();
    EXPECT_EQ(Log(), (Lines{"vQueryClose", "~APPRECORDER"}));
}

// The loop keeps the keyboard state for every key, translates accelerators and ends with the quit.
TEST_F(ApplicationTest, TheLoopFeedsTheKeyboardAndAcceleratorsAndEndsWithTheQuit) {
    Make();
    EXPECT_EQ(app->SetAccel(vRESID(2, app)), 0);
    ASSERT_EQ(app->SetAccel(vRESID(1, app)), 1);
    const struct { UINT message; WPARAM wParam; LPARAM lParam; } posted[] = {
        {WM_COMMAND, 40, 0}, {WM_KEYDOWN, 'A', 1}, {WM_COMMAND, 41, 0}, {WM_KEYUP, 'A', LPARAM(0xC0000001)},
        {WM_COMMAND, 42, 0}, {WM_KEYDOWN, VK_F5, 1}};
    for (const auto& message : posted)
        PostMessageA(frame, message.message, message.wParam, message.lParam);
    app->Close();
    Log().clear();
    EXPECT_EQ(vAPPACCESS::Run(*app, GetModuleHandleA(nullptr), nullptr), 0);
    EXPECT_EQ(Log(), (Lines{"vCommand 40", "vCommand 41 key 65", "vCommand 42", "vCommand 4242 key 116",
                            "vQueryClose", "~APPRECORDER"}));
    vSYSTEMACCESS::KeyReset();
}

}  // namespace
