#include <string>
#include <vector>

#include "base/system.h"
#include "support/zktest.h"

namespace {

using Lines = std::vector<std::string>;

class TraceTest : public zktest::LeakFreeTest {
protected:
    void SetUp() override
    {
        LeakFreeTest::SetUp();
        savedLevel = vSYSTEM::GetTraceLevel();
    }
    void TearDown() override
    {
        vSYSTEM::SetTraceLevel(savedLevel);
        LeakFreeTest::TearDown();
    }

private:
    unsigned short savedLevel = 0;
};

// Which sites print at each trace level: a site prints when the level is at
// or above its own, and level 0 always prints.
TEST_F(TraceTest, SitesPrintAtOrAboveTheirLevel)
{
    struct Row {
        unsigned short level;
        Lines expected;
    };
    const Row rows[] = {
        {0, {"Trace: zero"}},
        {1, {"Trace: zero", "Trace: one"}},
        {2, {"Trace: zero", "Trace: one"}},
        {3, {"Trace: zero", "Trace: one", "Trace: three"}},
        {65535, {"Trace: zero", "Trace: one", "Trace: three"}},
    };
    for (const Row& row : rows) {
        vSYSTEM::SetTraceLevel(row.level);
        zktest::TraceCapture capture;
        vSYSTEM::Trace(0, "zero");
        vSYSTEM::Trace(1, "one");
        vSYSTEM::Trace(3, "three");
        EXPECT_EQ(capture.Lines(), row.expected) << "at level " << row.level;
    }
}

TEST_F(TraceTest, ALineIsWrittenInThreePieces)
{
    zktest::TraceCapture capture;
    vSYSTEM::Trace(0, "LOW on MEMORY");
    EXPECT_EQ(capture.Lines(), Lines{"Trace: LOW on MEMORY"});
}

int PrintLevel(const std::vector<std::string>&)
{
    zktest::Report(std::to_string(vSYSTEM::GetTraceLevel()));
    return 0;
}
zktest::ChildEntry printLevel("print-trace-level", PrintLevel);

TEST_F(TraceTest, TheLevelComesFromTheEnvironment)
{
    struct Row {
        const char* value;
        const char* level;
    };
    const Row rows[] = {{"3", "3"}, {"1", "1"}, {nullptr, "0"}, {"rubbish", "0"}};
    for (const Row& row : rows) {
        SetEnvironmentVariableA("ZK_TRACE_LEVEL", row.value);
        zktest::Child child("print-trace-level");
        EXPECT_EQ(child.ReadLine(), row.level) << (row.value ? row.value : "(unset)");
        child.Wait();
    }
    SetEnvironmentVariableA("ZK_TRACE_LEVEL", nullptr);
}

// The child stands in for a program whose assertion fails; the debugger's
// break is stepped over, as a debugger that continues would. While the box of
// the first failure is up, a timer fails a second time: that one must break
// and return with no box of its own. The timer then reports what happened
// and presses the box's button, and the program aborts.
namespace assertion {

std::vector<std::string> events;
zktest::TraceCapture* capture = nullptr;

LONG CALLBACK StepOverBreak(EXCEPTION_POINTERS* info)
{
    if (info->ExceptionRecord->ExceptionCode != EXCEPTION_BREAKPOINT)
        return EXCEPTION_CONTINUE_SEARCH;
    events.push_back("break");
#ifdef _WIN64
    info->ContextRecord->Rip += 1;
#else
    info->ContextRecord->Eip += 1;
#endif
    return EXCEPTION_CONTINUE_EXECUTION;
}

int CountBoxes(const char* caption)
{
    int boxes = 0;
    for (HWND box = FindWindowA("#32770", caption); box; box = FindWindowExA(nullptr, box, "#32770", caption))
        ++boxes;
    return boxes;
}

void CALLBACK FailAgain(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    vAssert(0, "second", 77);
    events.push_back("returned");
    events.push_back("boxes " + std::to_string(CountBoxes("Assertion Failed")));
    HWND box = FindWindowA("#32770", "Assertion Failed");
    char text[256] = {};
    GetDlgItemTextA(box, 0xFFFF, text, sizeof text);
    events.push_back(std::string("box: ") + text);
    for (const std::string& line : capture->Lines())
        events.push_back(line);
    events.push_back("end");
    for (const std::string& event : events)
        zktest::Report(event);
    PostMessageA(box, WM_COMMAND, IDOK, 0);
}

int FailTwice(const std::vector<std::string>&)
{
    AddVectoredExceptionHandler(1, StepOverBreak);
    zktest::TraceCapture traces;
    capture = &traces;
    SetTimer(nullptr, 0, 100, FailAgain);
    vAssert(1 == 1, "holds", 10);
    vAssert(1 == 2, "one is two", 42);
    return 0;
}
zktest::ChildEntry failTwice("fail-twice", FailTwice);

}  // namespace assertion

TEST_F(TraceTest, AssertionBreaksShowsOneBoxAndAborts)
{
    zktest::Child child("fail-twice");
    Lines events;
    for (std::string line = child.ReadLine(); !line.empty() && line != "end"; line = child.ReadLine())
        events.push_back(line);
    EXPECT_EQ(events, (Lines{"break", "break", "returned", "boxes 1", "box: Assertion failed: one is two, line 42.",
                             "Trace: Assertion failed: one is two, line 42.",
                             "Trace: Assertion failed: second, line 77."}));
    EXPECT_EQ(child.Wait(), 3u);
}

}  // namespace
