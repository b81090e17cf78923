#include <algorithm>
#include <cstdio>

#include "base/system.h"
#include "support/zktest.h"

namespace {

std::string EntryLine(HMODULE module)
{
    char line[64];
    std::snprintf(line, sizeof line, "Trace: DllMain in ZK2: %X", unsigned(reinterpret_cast<uintptr_t>(module)));
    return line;
}

DWORD WINAPI DoNothing(void*) { return 0; }

// A second copy of the library under another name is attached and detached
// afresh, so its entry is seen for both events of a process, and for both
// of a thread; its exit routine hands over to the base library's.
TEST(DllMainTest, TracesEveryAttachAndDetachAndHandsTheExitOver)
{
    char path[MAX_PATH];
    GetModuleFileNameA(GetModuleHandleA("zkshell.dll"), path, MAX_PATH);
    std::string copy = std::string(path, strrchr(path, '\\') + 1) + "zkshell_entry_copy.dll";
    ASSERT_TRUE(CopyFileA(path, copy.c_str(), FALSE));
    zktest::TraceCapture capture;
    HMODULE module = LoadLibraryA(copy.c_str());
    ASSERT_NE(module, nullptr);
    auto entries = [&] {
        std::vector<std::string> lines = capture.Lines();
        return std::count(lines.begin(), lines.end(), EntryLine(module));
    };
    EXPECT_EQ(entries(), 1);
    HANDLE thread = CreateThread(nullptr, 0, DoNothing, nullptr, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    EXPECT_EQ(entries(), 3);

    typedef int(WINAPI * EXIT)(int);
    HMODULE core = GetModuleHandleA("zkcore.dll");
    FARPROC coreFirst = GetProcAddress(core, MAKEINTRESOURCEA(1));
    EXPECT_EQ(coreFirst, GetProcAddress(core, "WEP"));
    EXIT shellExit = reinterpret_cast<EXIT>(reinterpret_cast<void*>(GetProcAddress(module, "WEP")));
    ASSERT_NE(shellExit, nullptr);
    EXPECT_EQ(shellExit(0), reinterpret_cast<EXIT>(reinterpret_cast<void*>(coreFirst))(0));
    EXPECT_EQ(shellExit(0), 1);
    FreeLibrary(module);
    EXPECT_EQ(entries(), 4);
    DeleteFileA(copy.c_str());
}

}  // namespace
