#include <cstdio>
#include <string>
#include <vector>

#include "base/system.h"
#include "support/zktest.h"

namespace {

std::string EntryLine(HMODULE module)
{
    char line[64];
    std::snprintf(line, sizeof line, "Trace: DllMain in ZK2: %X", static_cast<unsigned>(reinterpret_cast<uintptr_t>(module)));
    return line;
}

std::string LibraryPath(const char* name)
{
    char path[MAX_PATH];
    GetModuleFileNameA(GetModuleHandleA("zkcore.dll"), path, MAX_PATH);
    std::string directory(path);
    return directory.substr(0, directory.rfind('\\') + 1) + name;
}

// A second copy of the library under another name is attached and detached
// afresh, so its entry is seen for both events of a process.
TEST(DllMainTest, TracesEveryProcessAttachAndDetach)
{
    std::string copy = LibraryPath("zkshell_entry_copy.dll");
    ASSERT_TRUE(CopyFileA(LibraryPath("zkshell.dll").c_str(), copy.c_str(), FALSE));
    zktest::TraceCapture capture;
    HMODULE module = LoadLibraryA(copy.c_str());
    ASSERT_NE(module, nullptr);
    std::vector<std::string> attached = capture.Lines();
    FreeLibrary(module);
    std::vector<std::string> detached = capture.Lines();
    DeleteFileA(copy.c_str());

    EXPECT_EQ(attached, std::vector<std::string>{EntryLine(module)});
    EXPECT_EQ(detached, (std::vector<std::string>{EntryLine(module), EntryLine(module)}));
}

DWORD WINAPI DoNothing(void*)
{
    return 0;
}

TEST(DllMainTest, TracesEveryThreadAttachAndDetach)
{
    HMODULE library = LoadLibraryA("zkshell.dll");
    ASSERT_NE(library, nullptr);
    zktest::TraceCapture capture;
    HANDLE thread = CreateThread(nullptr, 0, DoNothing, nullptr, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    std::vector<std::string> lines = capture.Lines();
    FreeLibrary(library);
    EXPECT_EQ(lines, (std::vector<std::string>{EntryLine(library), EntryLine(library)}));
}

TEST(DllMainTest, ExitRoutineHandsOverToTheBaseLibrary)
{
    HMODULE shell = LoadLibraryA("zkshell.dll");
    HMODULE core = GetModuleHandleA("zkcore.dll");
    typedef int(WINAPI * ExitRoutine)(int);
    FARPROC coreFirst = GetProcAddress(core, MAKEINTRESOURCEA(1));
    EXPECT_EQ(coreFirst, GetProcAddress(core, "WEP"));
    ExitRoutine shellExit = reinterpret_cast<ExitRoutine>(reinterpret_cast<void*>(GetProcAddress(shell, "WEP")));
    ASSERT_NE(shellExit, nullptr);
    EXPECT_EQ(shellExit(0), reinterpret_cast<ExitRoutine>(reinterpret_cast<void*>(coreFirst))(0));
    EXPECT_EQ(shellExit(0), 1);
    FreeLibrary(shell);
}

}  // namespace
