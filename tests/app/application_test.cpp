#include <map>
#include <string>
#include <vector>

#include "app/appaccess.h"
#include "app/window.h"
#include "graphics/device.h"
#include "support/systemaccess.h"
#include "support/zktest.h"

namespace {

typedef std::vector<std::string> LOG;

std::string Rect(const vRECT& rect)
{
    return std::to_string(rect.Left()()) + "," + std::to_string(rect.Top()()) + "," + std::to_string(rect.Right()()) +
           "," + std::to_string(rect.Bottom()());
}

// An application that writes each handler call into a log that outlives
// it, and answers what the test asks of it.
class RECORDER : public vAPP {
public:
    RECORDER(LOG& log, int mdi = 0, const char* name = "ZkRecorderFrame")
        : vAPP(vSTRING("%s", name), vSTRING("Recorder"), mdi), log(log)
    {
    }
    ~RECORDER() override { log.push_back("~RECORDER"); }

    int vSize(const vRECT& size) override { return Note("vSize " + Rect(size)); }
    int vQueryClose() override { return Note("vQueryClose", 1); }
    int vNewWindow() override { return Note("vNewWindow"); }
    int vCommand(const vCTRLID& id) override { return Note("vCommand " + std::to_string(id) + Key()); }
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
    static std::string Key()
    {
        vKEYCODE code = vSYSTEM::GetKeyboard().KeyCode();
        return code ? " key " + std::to_string(code) : "";
    }

    LOG& log;
};

class ApplicationTest : public zktest::LeakFreeTest {
protected:
    RECORDER* Make(int mdi = 0)
    {
        app = new RECORDER(log, mdi);
        frame = vAPPACCESS::Frame(*app);
        return app;
    }
    void TearDown() override
    {
        if (IsWindow(frame))
            apptest::End(frame);
        zktest::LeakFreeTest::TearDown();
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageA(frame, message, wParam, lParam);
    }

    LOG log;
    RECORDER* app = nullptr;
    HWND frame = nullptr;
};

std::string ClassOf(HWND window)
{
    char name[64] = {};
    GetClassNameA(window, name, sizeof name);
    return name;
}

TEST_F(ApplicationTest, ConstructionMakesAHiddenFrameWithItsClientAndRegistersTheApplication)
{
    vSYSTEM::SetTraceLevel(1);
    zktest::TraceCapture capture;
    Make();
    vSYSTEM::SetTraceLevel(0);
    ASSERT_TRUE(IsWindow(frame));
    EXPECT_EQ(capture.Lines(), LOG{"Trace: vAPP::vAPP(...)"});

    EXPECT_EQ(ClassOf(frame), "ZkRecorderFrame");
    EXPECT_EQ(GetWindowLongPtrA(frame, 0), reinterpret_cast<LONG_PTR>(app));
    DWORD style = GetWindowLongA(frame, GWL_STYLE);
    EXPECT_EQ(style & 0x02CF0000u, 0x02CF0000u);
    EXPECT_FALSE(IsWindowVisible(frame));
    WNDCLASSA info;
    ASSERT_TRUE(GetClassInfoA(GetModuleHandleA(nullptr), "ZkRecorderFrame", &info));
    HMODULE owner = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const char*>(info.lpfnWndProc), &owner);
    EXPECT_EQ(owner, GetModuleHandleA("zkshell.dll"));
    EXPECT_EQ(info.style, static_cast<UINT>(CS_DBLCLKS));
    // One pointer's room for the application: four bytes on the 32-bit build.
    EXPECT_EQ(info.cbWndExtra, static_cast<int>(sizeof(vAPP*)));
    HINSTANCE core = vSYSTEM::Pointer()->GetInstance();
    EXPECT_TRUE(GetClassInfoA(core, "GENERIC", &info));
    EXPECT_TRUE(GetClassInfoA(core, "MDICHILD", &info));

    HWND client = vAPPACCESS::Client(*app);
    ASSERT_TRUE(IsWindow(client));
    EXPECT_EQ(ClassOf(client), "MDIClient");
    EXPECT_EQ(GetParent(client), frame);
    EXPECT_EQ(GetDlgCtrlID(client), 1000);
    EXPECT_EQ(GetWindowLongA(client, GWL_STYLE) & 0x56000001, 0x56000001);

    EXPECT_EQ(vSYSTEM::ActiveApp(), app);
    EXPECT_EQ(vSYSTEM::GetFrameWindow(), frame);
    EXPECT_EQ(app->Language(), 2057);
    EXPECT_EQ(vAPPACCESS::Arrange(*app), ARRANGE_TILE);
    EXPECT_EQ(vAPPACCESS::Busy(*app), 0);
    EXPECT_EQ(vAPPACCESS::Exception(*app), nullptr);
    EXPECT_EQ((*app)(), GetModuleHandleA(nullptr));
}

TEST_F(ApplicationTest, DestroyingTheFrameDeletesTheApplicationAndLeavesOnlyTheQuit)
{
    Make();
    vSYSTEM::SetTraceLevel(1);
    zktest::TraceCapture capture;
    DestroyWindow(frame);
    vSYSTEM::SetTraceLevel(0);
    EXPECT_EQ(log, LOG{"~RECORDER"});
    EXPECT_EQ(capture.Lines(), LOG{"Trace: vAPP::~vAPP()"});
    EXPECT_EQ(vSYSTEM::ActiveApp(), nullptr);
    MSG msg;
    ASSERT_TRUE(PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(msg.wParam, 0u);
}

TEST_F(ApplicationTest, FrameMessagesReachTheHandlersAsTheTableSays)
{
    Make();
    app->hint = CreatePopupMenu();
    app->answers["vSettingChange"] = 5;
    app->answers["vCommand"] = 9;

    EXPECT_EQ(Send(WM_SYSCOLORCHANGE), 0);
    EXPECT_EQ(Send(WM_WININICHANGE, 42), 0);
    Send(WM_WININICHANGE, 0);
    vSYSTEM::SetFrameWindow(nullptr);
    Send(WM_ACTIVATEAPP, 1);
    EXPECT_EQ(vSYSTEM::GetFrameWindow(), frame);
    Send(WM_ACTIVATEAPP, 0);
    Send(WM_COMMAND, 30003);
    Send(WM_COMMAND, 5);
    Send(WM_COMMAND, MAKEWPARAM(30003, 1));
    Send(WM_MENUSELECT, MAKEWPARAM(7, MF_POPUP), reinterpret_cast<LPARAM>(app->hint));
    EXPECT_EQ(Send(WM_INITMENU, reinterpret_cast<WPARAM>(app->hint)), 0);
    EXPECT_EQ(Send(vSYSTEMACCESS::GetTavikMessage()), 0x0B0B0B0B);

    EXPECT_EQ(log, (LOG{"vSettingChange", "vSettingChange", "vActivate", "vNewWindow", "vCommand 5",
                        "vCommand 30003", "vCommandHint 7 menu"}));
    DestroyMenu(app->hint);
}

TEST_F(ApplicationTest, WindowMenuCommandsArrangeWithoutReachingTheHandlers)
{
    Make();
    Send(WM_COMMAND, 30004);
    EXPECT_EQ(vAPPACCESS::Arrange(*app), ARRANGE_CASCADE);
    Send(WM_COMMAND, 30007);
    EXPECT_EQ(vAPPACCESS::Arrange(*app), ARRANGE_ROWS);
    Send(WM_COMMAND, 30006);
    EXPECT_EQ(vAPPACCESS::Arrange(*app), ARRANGE_COLUMNS);
    Send(WM_COMMAND, 30005);
    EXPECT_EQ(vAPPACCESS::Arrange(*app), ARRANGE_TILE);
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(app->ActiveDocWin(), nullptr);
    EXPECT_EQ(app->NoDocWin(), 0);
}

// A document window of the frame's client, bound to an object that records
// what the application asks of it.
class DOCUMENT : public vWIN {
public:
    DOCUMENT(HWND window, LOG& log) : vWIN(window, vRESID()), log(log) { BindInstance(window); }
    int vCommand(const vCTRLID& id) override
    {
        log.push_back("document vCommand " + std::to_string(id));
        return answer;
    }
    void Activate() override { log.push_back("document Activate"); }

    int answer = 0;

private:
    LOG& log;
};

HWND MakeDocumentWindow(HWND client)
{
    MDICREATESTRUCTA create = {};
    create.szClass = "MDICHILD";
    create.szTitle = "Document";
    create.hOwner = vSYSTEM::Pointer()->GetInstance();
    create.x = create.y = create.cx = create.cy = CW_USEDEFAULT;
    create.style = WS_VISIBLE | WS_OVERLAPPEDWINDOW;
    HWND window = reinterpret_cast<HWND>(SendMessageA(client, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&create)));
    SendMessageA(client, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(window), 0);
    return window;
}

TEST_F(ApplicationTest, TheActiveDocumentHasOtherCommandsFirstButNeverTheWindowMenus)
{
    Make(1);
    HWND window = MakeDocumentWindow(vAPPACCESS::Client(*app));
    ASSERT_TRUE(IsWindow(window));
    DOCUMENT document(window, log);
    ASSERT_EQ(app->ActiveDocWin(), &document);
    EXPECT_EQ(app->NoDocWin(), 1);

    Send(WM_COMMAND, 5);
    document.answer = 3;
    EXPECT_EQ(Send(WM_COMMAND, 6), 0);
    Send(WM_COMMAND, 30003);
    Send(WM_SIZE, SIZE_RESTORED);
    EXPECT_EQ(log, (LOG{"document vCommand 5", "vCommand 5", "document vCommand 6", "vNewWindow",
                        "document Activate", "vSize " + Rect(app->Size()), "document Activate"}));

    apptest::End(frame);
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(ApplicationTest, SizingFitsTheClientInsideTheMarginsAndTellsTheApplication)
{
    Make();
    app->Size(vRECT(vINT(10), vINT(20), vINT(410), vINT(320)));
    log.clear();
    app->Margins(vRECT(vINT(5), vINT(6), vINT(7), vINT(8)));
    EXPECT_EQ(Send(WM_SIZE, SIZE_RESTORED), 0);
    EXPECT_EQ(log, LOG{"vSize " + Rect(app->Size())});
    EXPECT_EQ(Rect(app->Size()), "10,20,410,320");

    RECT inner;
    GetClientRect(frame, &inner);
    RECT client;
    HWND clientWindow = vAPPACCESS::Client(*app);
    GetWindowRect(clientWindow, &client);
    MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&client), 2);
    EXPECT_EQ(client.left, 5);
    EXPECT_EQ(client.top, 6);
    EXPECT_EQ(inner.right - client.right, 7);
    EXPECT_EQ(inner.bottom - client.bottom, 8);
    EXPECT_EQ(Rect(app->Margins()), "5,6,7,8");

    log.clear();
    Send(WM_SIZE, SIZE_MINIMIZED);
    EXPECT_TRUE(log.empty());
}

TEST_F(ApplicationTest, ClosingAsksTheApplicationAndARefusalKeepsTheFrame)
{
    Make();
    app->answers["vQueryClose"] = 0;
    EXPECT_EQ(Send(WM_CLOSE), 0);
    EXPECT_TRUE(IsWindow(frame));
    app->answers["vQueryClose"] = 1;
    EXPECT_EQ(Send(WM_QUERYENDSESSION), 1);
    EXPECT_FALSE(IsWindow(frame));
    EXPECT_EQ(log, (LOG{"vQueryClose", "vQueryClose", "~RECORDER"}));
    apptest::End(frame);
}

TEST_F(ApplicationTest, TheKillMessageClosesThroughAPostedClose)
{
    Make();
    zktest::TraceCapture capture;
    EXPECT_EQ(Send(vSYSTEM::GetZKKillMsg()), 0);
    EXPECT_EQ(capture.Lines(), LOG{"Trace: vAPP::Close()"});
    EXPECT_TRUE(log.empty());
    apptest::Pump();
    EXPECT_EQ(log, (LOG{"vQueryClose", "~RECORDER"}));
    apptest::End(frame);
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
    EXPECT_EQ(log, (LOG{"vCommand 40", "vCommand 41 key 65", "vCommand 42", "vCommand 4242 key 116", "vQueryClose",
                        "~RECORDER"}));
    EXPECT_FALSE(IsWindow(frame));
    vSYSTEMACCESS::KeyReset();
}

TEST_F(ApplicationTest, ASecondInstanceWakesTheFirstAndRunsNoLoop)
{
    LOG firstLog;
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
    LOG lines = capture.Lines();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "Trace: vAPP - start of other app check");
    EXPECT_EQ(lines.back(), "Trace: vAPP - other app exists");
    EXPECT_FALSE(first->IsIconised());
    EXPECT_EQ(firstLog, LOG{"vSize " + Rect(first->Size())});
    EXPECT_EQ(vSYSTEM::ActiveApp(), app);
    EXPECT_EQ(apptest::Items(vAPPACCESS::Handle(vAPPACCESS::WindowMenu(*app))),
              (LOG{"30003 &New window", "-", "30004 &Cascade", "30005 &Tile", "-", "30007 Arrange in &rows",
                   "30006 Arrange in co&lumns"}));
    apptest::End(firstFrame);
    EXPECT_EQ(firstLog.back(), "~RECORDER");
}

TEST_F(ApplicationTest, GeometryAndVisibilityAreThoseOfTheFrame)
{
    Make();
    app->Size(vRECT(vINT(30), vINT(40), vINT(330), vINT(240)));
    RECT outer;
    GetWindowRect(frame, &outer);
    EXPECT_EQ(outer.left, 30);
    EXPECT_EQ(outer.bottom, 240);
    RECT inner;
    GetClientRect(frame, &inner);
    EXPECT_EQ(Rect(app->ClientSize()), "0,0," + std::to_string(inner.right) + "," + std::to_string(inner.bottom));
    vPOINT point = app->ClientToScreen(vPOINT(vINT(1), vINT(2)));
    EXPECT_GT(point.x(), 30);
    EXPECT_EQ(app->ScreenToClient(point), vPOINT(vINT(1), vINT(2)));

    app->Show();
    EXPECT_TRUE(IsWindowVisible(frame));
    app->Maximise();
    EXPECT_EQ(app->IsMaximised(), 1);
    app->Normalise();
    EXPECT_EQ(app->IsMaximised(), 0);
    app->Iconise();
    EXPECT_EQ(app->IsIconised(), 1);
    app->Normalise();
    EXPECT_EQ(app->IsIconised(), 0);
    app->AlwaysOnTop(1);
    EXPECT_TRUE(GetWindowLongA(frame, GWL_EXSTYLE) & WS_EX_TOPMOST);
    app->AlwaysOnTop(0);
    EXPECT_FALSE(GetWindowLongA(frame, GWL_EXSTYLE) & WS_EX_TOPMOST);
    app->Activate();
    EXPECT_EQ(GetActiveWindow(), frame);
    app->Hide();
    EXPECT_FALSE(IsWindowVisible(frame));
}

TEST_F(ApplicationTest, BusyIsAFlagNotACount)
{
    Make();
    app->BusyOff();
    EXPECT_EQ(vAPPACCESS::Busy(*app), 0);
    app->BusyOn();
    app->BusyOn();
    EXPECT_EQ(vAPPACCESS::Busy(*app), 1);
    app->BusyOff();
    EXPECT_EQ(vAPPACCESS::Busy(*app), 0);
}

TEST_F(ApplicationTest, TheStoredCommandAnswersWhatWasStoredBefore)
{
    Make();
    EXPECT_EQ(app->GetSetCommand(vSTRING("alpha")), vSTRING("alpha"));
    EXPECT_EQ(app->GetSetCommand(vSTRING("beta")), vSTRING("alpha"));
    EXPECT_EQ(app->GetSetCommand(vSTRING()), vSTRING("beta"));
    EXPECT_EQ(app->GetSetCommand(vSTRING()), vSTRING("beta"));
}

// Reports what a fresh application stores without a value, and then what
// it answers when given one.
int ReportCommand(const std::vector<std::string>&)
{
    vAPP* app = new vAPP(vSTRING("ZkCommandFrame"), vSTRING("Command"), 0);
    zktest::Report(std::string("[") + app->GetSetCommand(vSTRING())() + "]");
    zktest::Report(std::string("[") + app->GetSetCommand(vSTRING("gamma"))() + "]");
    apptest::End(vAPPACCESS::Frame(*app));
    return 0;
}
zktest::ChildEntry reportCommand("report-command", ReportCommand);

TEST(CommandTest, WithoutAValueTheCommandLineIsStored)
{
    zktest::Child child("report-command", "one two");
    EXPECT_EQ(child.ReadLine(), "[--zk-child=report-command one two]");
    EXPECT_EQ(child.ReadLine(), "[--zk-child=report-command one two]");
    EXPECT_EQ(child.Wait(), 0u);
}

TEST_F(ApplicationTest, TheProgramDirectoryLosesTheFileNameAndItsBackslash)
{
    Make();
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string directory(path);
    directory.erase(directory.rfind('\\'));
    EXPECT_EQ(std::string(app->GetAppDir()()), directory);
}

TEST_F(ApplicationTest, IconAndExceptionHandler)
{
    Make();
    EXPECT_EQ(app->SetIcon(vRESID(77, app)), 0);
    EXPECT_EQ(GetClassLongPtrA(frame, GCLP_HICON), 0u);
    DEFEXCEP handler;
    app->SetExceptionHandler(handler);
    EXPECT_EQ(vAPPACCESS::Exception(*app), &handler);
}

TEST_F(ApplicationTest, WithoutAPaletteDeviceNothingIsRealised)
{
    Make();
    ASSERT_EQ(vDEVICE::GetScreen().PaletteEnabled(), 0) << "the test display has no palette";
    EXPECT_EQ(vAPPACCESS::PaletteChange(*app, 1), 0);
    zktest::TraceCapture capture;
    EXPECT_EQ(Send(WM_QUERYNEWPALETTE), 0);
    EXPECT_EQ(capture.Lines(), LOG{"Trace: vAPP - WM_QUERYNEWPALETTE"});
    EXPECT_EQ(Send(WM_PALETTECHANGED, reinterpret_cast<WPARAM>(frame)), 0);
}

// With plenty of memory the frame's watch raises nothing, armed or not.
TEST_F(ApplicationTest, PlentyOfMemoryRaisesNoFlag)
{
    Make();
    app->Language(2057);
    ASSERT_TRUE(vSYSTEM::GetDefaultException().Armed());
    Send(WM_NULL);
    EXPECT_EQ(vSYSTEM::GetExceptionFlag(), 0);
}

}  // namespace

namespace {

std::string Resource(unsigned short id)
{
    char text[256] = {};
    LoadStringA(vSYSTEM::Pointer()->GetInstance(), id, text, sizeof text);
    return text;
}

class LanguageTest : public ApplicationTest {};

TEST_F(LanguageTest, OnlyTheLanguagesOfTheBaseLibraryAreKept)
{
    for (unsigned short kept : {1031, 1033, 1036, 1053, 2057})
        EXPECT_EQ(vAPPACCESS::KnownLanguage(kept), kept);
    EXPECT_EQ(vAPPACCESS::KnownLanguage(1054), 2057);
    EXPECT_EQ(vAPPACCESS::KnownLanguage(1030), 2057);
}

TEST_F(LanguageTest, ALanguageBringsTheLowMemoryTextsInIt)
{
    Make();
    app->Language(1031);
    EXPECT_EQ(app->Language(), 1031);
    DEFEXCEP& complaint = vSYSTEM::GetDefaultException();
    EXPECT_EQ(std::string(complaint.CaptionText()), Resource(33100));
    EXPECT_EQ(std::string(complaint.MessageText()), Resource(33101));
    app->Language(2057);
    EXPECT_EQ(std::string(complaint.CaptionText()), Resource(31100));
}

TEST_F(LanguageTest, AVersionWithoutATranslationKeepsTheLanguageWithoutABox)
{
    Make();
    zktest::BoxWatcher watcher("Init Failed", IDOK, 500);
    EXPECT_EQ(app->Init(), 0);
    EXPECT_FALSE(watcher.Seen());
    EXPECT_EQ(app->Language(), 2057);
}

TEST_F(LanguageTest, TheBaseLibrarysVersionSpeaksBritishEnglish)
{
    Make();
    app->Language(1036);
    EXPECT_EQ(vAPPACCESS::Init(*app, vSYSTEM::Pointer()->GetInstance()), 1);
    EXPECT_EQ(app->Language(), 2057);
}

// Presses OK on each "Init Failed" box as it comes and keeps its text.
DWORD WINAPI DismissInitBoxes(void* texts)
{
    LOG& seen = *static_cast<LOG*>(texts);
    HWND last = nullptr;
    for (DWORD deadline = GetTickCount() + 10000; GetTickCount() < deadline && seen.size() < 2; Sleep(20)) {
        HWND box = FindWindowA("#32770", "Init Failed");
        if (!box || box == last || !IsWindowVisible(box))
            continue;
        char text[128] = {};
        GetDlgItemTextA(box, 0xFFFF, text, sizeof text);
        seen.push_back(text);
        last = box;
        PostMessageA(box, WM_COMMAND, IDOK, 0);
    }
    return 0;
}

TEST_F(LanguageTest, AModuleWithoutVersionComplainsTwice)
{
    Make();
    LOG texts;
    HANDLE watcher = CreateThread(nullptr, 0, DismissInitBoxes, &texts, 0, nullptr);
    EXPECT_EQ(vAPPACCESS::Init(*app, GetModuleHandleA("zkshell.dll")), 0);
    WaitForSingleObject(watcher, INFINITE);
    CloseHandle(watcher);
    EXPECT_EQ(texts, (LOG{"No Version Info", "Bad Version Info"}));
}

TEST_F(LanguageTest, AnUnknownModuleHasNoName)
{
    Make();
    zktest::BoxWatcher watcher("Init Failed", IDOK);
    EXPECT_EQ(vAPPACCESS::Init(*app, reinterpret_cast<HINSTANCE>(0x10)), 0);
    EXPECT_EQ(watcher.Text(), "Bad Module Name");
}

}  // namespace
