#include "app/appaccess.h"
#include "support/systemaccess.h"

namespace {

// The program of the family beside the tests, started as a user would; its
// frame once it is on screen, and its exit code.
struct PROGRAM {
    PROCESS_INFORMATION process = {};

    explicit PROGRAM(std::string arguments) {
        char path[MAX_PATH];
        GetModuleFileNameA(nullptr, path, MAX_PATH);
        std::string line = "\"" + std::string(path, strrchr(path, '\\') + 1) + "zktwice.exe\" " + arguments;
        STARTUPINFOA startup = {};
        startup.cb = sizeof startup;
        CreateProcessA(nullptr, &line[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process);
    }
    ~PROGRAM() { TerminateProcess(process.hProcess, 1), CloseHandle(process.hProcess), CloseHandle(process.hThread); }
    DWORD Wait() {
        DWORD code = STILL_ACTIVE;
        WaitForSingleObject(process.hProcess, 20000);
        return GetExitCodeProcess(process.hProcess, &code), code;
    }
    HWND Frame() {
        for (DWORD deadline = GetTickCount() + 20000; GetTickCount() < deadline; Sleep(20)) {
            HWND frame = FindWindowA("ZkTwiceFrame", nullptr);
            DWORD owner = 0;
            GetWindowThreadProcessId(frame, &owner);
            if (frame && owner == process.dwProcessId && IsWindowVisible(frame))
                return frame;
        }
        return nullptr;
    }
};

// A second start restores the iconic first and ends without a loop; the kill message ends the first. A program takes
// its language from its version resource.
TEST(FamilyTest, ASecondStartRestoresTheFirstAndEndsWithoutALoop) {
    PROGRAM first("iconic");
    HWND frame = first.Frame();
    ASSERT_NE(frame, nullptr);
    for (int tries = 0; tries < 100 && !IsIconic(frame); ++tries)
        Sleep(20);
    ASSERT_TRUE(IsIconic(frame));
    EXPECT_EQ(PROGRAM("").Wait(), 0u);
    EXPECT_FALSE(IsIconic(frame));
    EXPECT_EQ(SendMessageA(frame, vSYSTEMACCESS::GetTavikMessage(), 0, 0), 0x0B0B0B0B);
    PostMessageA(frame, vSYSTEM::GetZKKillMsg(), 0, 0);
    EXPECT_TRUE(first.Wait() == 0u && !IsWindow(frame));

    PROGRAM speaking("language");
    frame = speaking.Frame();
    char title[64] = {};
    GetWindowTextA(frame, title, sizeof title);
    EXPECT_STREQ(title, "language 1053 init 1");
    PostMessageA(frame, vSYSTEM::GetZKKillMsg(), 0, 0);
    EXPECT_EQ(speaking.Wait(), 0u);
}

// A window of another program that reports the palette messages it hears.
LRESULT CALLBACK Ear(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == vSYSTEM::GetPaletteChangeMsg())
        zktest::Report("palette " + std::to_string(wParam));
    return DefWindowProcA(window, message, wParam, lParam);
}

int Listener(const std::vector<std::string>&) {
    vAPP* app = new vAPP(vSTRING("ZkListenerFrame"), vSTRING("Listener"), 0);
    WNDCLASSA earClass = {0, Ear, 0, 0, GetModuleHandleA(nullptr), nullptr, nullptr, nullptr, nullptr, "ZkPaletteEar"};
    RegisterClassA(&earClass);
    HWND frame = vSYSTEM::GetFrameWindow();
    CreateWindowA("ZkPaletteEar", "", WS_CHILD, 0, 0, 1, 1, frame, nullptr, GetModuleHandleA(nullptr), nullptr);
    zktest::Report(app->GetSetCommand(vSTRING())());
    zktest::Report(std::to_string(reinterpret_cast<uintptr_t>(frame)));
    return vAPPACCESS::Run(*app, GetModuleHandleA(nullptr), nullptr);
}
zktest::ChildEntry listener("palette-listener", Listener);

// A program stores its command line when asked without a value; the palette walk reaches the windows of every
// registered program, and the kill message ends the other program's loop.
TEST(FamilyTest, APaletteChangeIsPostedToTheWindowsOfEveryProgram) {
    zktest::Child other("palette-listener", "one two");
    EXPECT_EQ(other.ReadLine(), "--zk-child=palette-listener one two");
    HWND frame = reinterpret_cast<HWND>(std::stoull(other.ReadLine()));
    ASSERT_TRUE(IsWindow(frame));
    zktest::TraceCapture capture;
    vAPPACCESS::PostPaletteChange(1);
    EXPECT_EQ(other.ReadLine(), "palette 1");
    vAPPACCESS::PostPaletteChange(0);
    EXPECT_EQ(other.ReadLine(), "palette 0");
    EXPECT_FALSE(capture.Lines().empty());
    for (const std::string& line : capture.Lines())
        EXPECT_EQ(line, "Trace: vAPP::EnumchildProc");
    PostMessageA(frame, vSYSTEM::GetZKKillMsg(), 0, 0);
    EXPECT_EQ(other.Wait(), 0u);
}

}  // namespace
