#include <string>

#include "app/appaccess.h"
#include "support/systemaccess.h"
#include "support/zktest.h"

namespace {

std::string ProgramBeside(const char* name)
{
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string directory(path);
    return directory.substr(0, directory.rfind('\\') + 1) + name;
}

// The start-up test program run as a process of its own, ended at the
// latest when the object goes.
class PROGRAM {
public:
    explicit PROGRAM(const std::string& arguments) : process{}
    {
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        std::string line = "\"" + ProgramBeside("zktwice.exe") + "\" " + arguments;
        CreateProcessA(nullptr, &line[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process);
    }
    ~PROGRAM()
    {
        if (process.hProcess && WaitForSingleObject(process.hProcess, 0) == WAIT_TIMEOUT)
            TerminateProcess(process.hProcess, 1);
        CloseHandle(process.hProcess);
        CloseHandle(process.hThread);
    }
    DWORD Wait(DWORD timeoutMs = 20000)
    {
        DWORD code = STILL_ACTIVE;
        if (WaitForSingleObject(process.hProcess, timeoutMs) == WAIT_OBJECT_0)
            GetExitCodeProcess(process.hProcess, &code);
        return code;
    }
    // The program's frame once it is on screen.
    HWND Frame(DWORD timeoutMs = 20000)
    {
        for (DWORD deadline = GetTickCount() + timeoutMs; GetTickCount() < deadline; Sleep(20)) {
            HWND frame = FindWindowA("ZkTwiceFrame", nullptr);
            DWORD owner = 0;
            GetWindowThreadProcessId(frame, &owner);
            if (frame && owner == process.dwProcessId && IsWindowVisible(frame))
                return frame;
        }
        return nullptr;
    }

private:
    PROCESS_INFORMATION process;
};

std::string Title(HWND window)
{
    char title[64] = {};
    GetWindowTextA(window, title, sizeof title);
    return title;
}

TEST(FamilyTest, ASecondStartRestoresTheIconicFirstAndEndsWithoutALoop)
{
    PROGRAM first("iconic");
    HWND frame = first.Frame();
    ASSERT_NE(frame, nullptr);
    for (int tries = 0; tries < 100 && !IsIconic(frame); ++tries)
        Sleep(20);
    ASSERT_TRUE(IsIconic(frame));

    PROGRAM second("");
    EXPECT_EQ(second.Wait(), 0u);
    EXPECT_FALSE(IsIconic(frame));
    EXPECT_EQ(SendMessageA(frame, vSYSTEMACCESS::GetTavikMessage(), 0, 0), 0x0B0B0B0B);

    PostMessageA(frame, vSYSTEM::GetZKKillMsg(), 0, 0);
    EXPECT_EQ(first.Wait(), 0u);
    EXPECT_FALSE(IsWindow(frame));
}

TEST(FamilyTest, AProgramTakesItsLanguageFromItsVersionResource)
{
    PROGRAM program("language");
    HWND frame = program.Frame();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(Title(frame), "language 1053 init 1");
    PostMessageA(frame, vSYSTEM::GetZKKillMsg(), 0, 0);
    EXPECT_EQ(program.Wait(), 0u);
}

// A window of another program that reports the palette messages it hears.
LRESULT CALLBACK Ear(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == vSYSTEM::GetPaletteChangeMsg())
        zktest::Report("palette " + std::to_string(wParam));
    return DefWindowProcA(window, message, wParam, lParam);
}

class LISTENER : public vAPP {
public:
    LISTENER() : vAPP(vSTRING("ZkListenerFrame"), vSTRING("Listener"), 0) {}
};

int Listener(const std::vector<std::string>&)
{
    vAPP* app = new LISTENER;
    WNDCLASSA earClass = {};
    earClass.lpfnWndProc = Ear;
    earClass.hInstance = GetModuleHandleA(nullptr);
    earClass.lpszClassName = "ZkPaletteEar";
    RegisterClassA(&earClass);
    HWND frame = vSYSTEM::GetFrameWindow();
    CreateWindowA("ZkPaletteEar", "", WS_CHILD, 0, 0, 1, 1, frame, nullptr, GetModuleHandleA(nullptr), nullptr);
    zktest::Report(std::to_string(reinterpret_cast<uintptr_t>(frame)));
    return vAPPACCESS::Run(*app, GetModuleHandleA(nullptr), nullptr);
}
zktest::ChildEntry listener("palette-listener", Listener);

// The palette walk reaches the windows of every registered program, and the
// kill message ends the other program's loop.
TEST(FamilyTest, APaletteChangeIsPostedToTheWindowsOfEveryProgram)
{
    zktest::Child other("palette-listener");
    HWND frame = reinterpret_cast<HWND>(std::stoul(other.ReadLine()));
    ASSERT_TRUE(IsWindow(frame));

    zktest::TraceCapture capture;
    vAPPACCESS::PostPaletteChange(1);
    EXPECT_EQ(other.ReadLine(), "palette 1");
    vAPPACCESS::PostPaletteChange(0);
    EXPECT_EQ(other.ReadLine(), "palette 0");
    for (const std::string& line : capture.Lines())
        EXPECT_EQ(line, "Trace: vAPP::EnumchildProc");
    EXPECT_FALSE(capture.Lines().empty());

    PostMessageA(frame, vSYSTEM::GetZKKillMsg(), 0, 0);
    EXPECT_EQ(other.Wait(), 0u);
}

}  // namespace
