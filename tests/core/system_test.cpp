#include <cstdio>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "base/startup.h"
#include "base/system.h"
#include "support/systemaccess.h"
#include "support/zktest.h"

namespace {

using Lines = std::vector<std::string>;

class SystemTest : public zktest::LeakFreeTest {
protected:
    void TearDown() override {
        vSYSTEM::SetTraceLevel(savedLevel), SetEnvironmentVariableA("ZK_TRACE_LEVEL", nullptr);
        LeakFreeTest::TearDown();
    }
    unsigned short savedLevel = vSYSTEM::GetTraceLevel();
};

// What a child process of this program sees of the system, on one line: its trace level, the registered
// messages, its command and whether it finds a previous instance, the same when asked again.
std::string Seen(const std::string& level, const std::string& instance) {
    const std::string messages = std::to_string(vSYSTEM::GetZKKillMsg()) + " " +
                                 std::to_string(vSYSTEM::GetPaletteChangeMsg()) + " " +
                                 std::to_string(vSYSTEMACCESS::GetTavikMessage());
    return level + "|" + messages + "|" + instance;
}
int ReportSystem(const std::vector<std::string>&) {
    HINSTANCE instance = GetModuleHandleA(nullptr), previous = vFindPreviousInstance(instance);
    zktest::Report(Seen(std::to_string(vSYSTEM::GetTraceLevel()),
                        std::string("[") + vSYSTEMACCESS::GetCommand()() + "] " +
                            (previous == nullptr ? "first" : previous == instance ? "second" : "stranger") +
                            (vFindPreviousInstance(instance) == previous ? "" : " changed")));
    zktest::Listen();
    return 0;
}
zktest::ChildEntry reportSystem("report-system", ReportSystem);

// The command is the line after the program's own name, quoted or not, and the blanks after it. While one
// instance runs a second finds it, and once it has gone the next start is a first instance again.
// Registered messages are the same in every process; the trace level comes from the environment.
TEST_F(SystemTest, ChildProcessesSeeTheirCommandTraceLevelMessagesAndPreviousInstance) {
    const std::string command = "[--zk-child=report-system   alpha \"beta gamma\"] ";
    // Twice, so that the second round's first instance starts after the first round's have gone.
    for (auto levels : {std::make_pair("3", "rubbish"), std::make_pair("1", static_cast<const char*>(nullptr))}) {
        SetEnvironmentVariableA("ZK_TRACE_LEVEL", levels.first);
        zktest::Child first("report-system", "  alpha \"beta gamma\"");
        EXPECT_EQ(first.ReadLine(), Seen(levels.first, command + "first"));
        SetEnvironmentVariableA("ZK_TRACE_LEVEL", levels.second);
        zktest::Child second("report-system", "  alpha \"beta gamma\"");
        EXPECT_EQ(second.ReadLine(), Seen("0", command + "second"));
        for (zktest::Child* child : {&second, &first}) {
            child->WriteLine("quit");
            EXPECT_EQ(child->Wait(), 0u);
        }
    }
}

// A site prints when the level is at or above its own; level 0 always prints.
TEST_F(SystemTest, TraceSitesPrintAtOrAboveTheirLevel) {
    const Lines all{"Trace: zero", "Trace: one", "Trace: three"};
    struct Row { unsigned short level; int printed; };
    for (const Row& row : {Row{0, 1}, Row{1, 2}, Row{2, 2}, Row{3, 3}, Row{65535, 3}}) {
        vSYSTEM::SetTraceLevel(row.level);
        zktest::TraceCapture capture;
        vSYSTEM::Trace(0, "zero"), vSYSTEM::Trace(1, "one"), vSYSTEM::Trace(3, "three");
        EXPECT_EQ(capture.Lines(), Lines(all.begin(), all.begin() + row.printed)) << "at level " << row.level;
    }
}

// The child stands in for a program whose assertion fails; the debugger's break is stepped over, as a
// debugger that continues would. While the box of the first failure is up, a timer fails a second time:
// that one must break and return with no box of its own. The timer then reports what happened and
// presses the box's button, and the program aborts.
zktest::TraceCapture* capture = nullptr;

LONG CALLBACK StepOverBreak(EXCEPTION_POINTERS* info) {
    if (info->ExceptionRecord->ExceptionCode != EXCEPTION_BREAKPOINT)
        return EXCEPTION_CONTINUE_SEARCH;
    zktest::Report("break");
#ifdef _WIN64
    info->ContextRecord->Rip += 1;
#else
    info->ContextRecord->Eip += 1;
#endif
    return EXCEPTION_CONTINUE_EXECUTION;
}

void CALLBACK FailAgain(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    vAssert(0, "second", 77);
    int boxes = 0;
    HWND box = FindWindowA("#32770", "Assertion Failed");
    for (HWND next = box; next; next = FindWindowExA(nullptr, next, "#32770", "Assertion Failed"))
        ++boxes;
    char text[256] = {};
    GetDlgItemTextA(box, 0xFFFF, text, sizeof text);
    zktest::Report("returned, boxes " + std::to_string(boxes) + ": " + text);
    for (const std::string& line : capture->Lines())
        zktest::Report(line);
    zktest::Report("end");
    PostMessageA(box, WM_COMMAND, IDOK, 0);
}

int FailTwice(const std::vector<std::string>&) {
    AddVectoredExceptionHandler(1, StepOverBreak);
    zktest::TraceCapture traces;
    capture = &traces;
    SetTimer(nullptr, 0, 100, FailAgain);
    vAssert(1 == 1, "holds", 10);
    vAssert(1 == 2, "one is two", 42);
    return 0;
}
zktest::ChildEntry failTwice("fail-twice", FailTwice);

TEST_F(SystemTest, AssertionBreaksShowsOneBoxAndAborts) {
    zktest::Child child("fail-twice");
    Lines seen;
    for (std::string line = child.ReadLine(); !line.empty() && line != "end"; line = child.ReadLine())
        seen.push_back(line);
    EXPECT_EQ(seen, (Lines{"break", "break", "returned, boxes 1: Assertion failed: one is two, line 42.",
                           "Trace: Assertion failed: one is two, line 42.",
                           "Trace: Assertion failed: second, line 77."}));
    EXPECT_EQ(child.Wait(), 3u);
}

// The system module is the base library; its scratch buffers are apart and large enough, the local one
// for a version block of the library's file and a path. Registered messages are distinct.
TEST_F(SystemTest, ModuleBuffersAndRegisteredMessages) {
    HMODULE library = GetModuleHandleA("zkcore.dll");
    ASSERT_TRUE(vSYSTEM::Pointer() && vSYSTEM::Pointer()->GetInstance() == library);
    EXPECT_TRUE(vSYSTEM::GetBuffer() != vSYSTEM::GetLocalBuffer() && vSYSTEM::BufferSize >= 512u);
    char path[MAX_PATH];
    GetModuleFileNameA(library, path, MAX_PATH);
    DWORD handle = 0, size = GetFileVersionInfoSizeA(path, &handle);
    EXPECT_LE(size + MAX_PATH, vSYSTEM::LocalBufferSize);
    std::set<UINT> messages{vSYSTEM::GetZKKillMsg(), vSYSTEM::GetPaletteChangeMsg(), vSYSTEMACCESS::GetTavikMessage()};
    EXPECT_TRUE(messages.size() == 3 && *messages.begin() >= 0xC000);
}

// A failed allocation raises the flag that a complaint lowers; only an armed one, whose message text
// was asked for, shows its texts first. Complaints live on the shared allocator.
TEST_F(SystemTest, ExceptionsComplainOnceArmed) {
    EXPECT_TRUE(vSYSTEMACCESS::NewFailureException(1 << 20) == 0 && vSYSTEM::GetExceptionFlag() == 1);
    unsigned long blocks = vMemLiveBlocks();
    DEFEXCEP* complaint = new DEFEXCEP;
    complaint->CaptionText();
    EXPECT_FALSE(complaint->Armed());
    complaint->Raise(nullptr);
    EXPECT_EQ(vSYSTEM::GetExceptionFlag(), 0);
    std::strcpy(complaint->MessageText(), "Close some windows, please.");
    std::strcpy(complaint->CaptionText(), "Memory Test Caption");
    EXPECT_TRUE(complaint->Armed());
    vSYSTEM::SetExceptionFlag(1);
    zktest::BoxWatcher watcher("Memory Test Caption", IDOK);
    complaint->Raise(nullptr);
    EXPECT_EQ(watcher.Text(), "Close some windows, please.");
    EXPECT_TRUE(vSYSTEM::GetExceptionFlag() == 0 && vMemLiveBlocks() == blocks + 1);
    delete complaint;
}

}  // namespace
