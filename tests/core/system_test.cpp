#include <algorithm>
#include <cstdio>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "base/iterator.h"
#include "base/startup.h"
#include "base/system.h"
#include "core/apptable.h"
#include "support/systemaccess.h"
#include "support/zktest.h"

namespace {

using Lines = std::vector<std::string>;

class SystemTest : public zktest::LeakFreeTest {
protected:
    void TearDown() override
    {
        vSYSTEM::SetTraceLevel(savedLevel), SetEnvironmentVariableA("ZK_TRACE_LEVEL", nullptr);
        LeakFreeTest::TearDown();
    }
    unsigned short savedLevel = vSYSTEM::GetTraceLevel();
};

// What a child process of this program sees of the system, on one line: its trace level, the registered
// messages, its command and whether it finds a previous instance, the same when asked again.
std::string Seen(const std::string& level, const std::string& instance)
{
    const std::string messages = std::to_string(vSYSTEM::GetZKKillMsg()) + " " +
                                 std::to_string(vSYSTEM::GetPaletteChangeMsg()) + " " +
                                 std::to_string(vSYSTEMACCESS::GetTavikMessage());
    return level + "|" + messages + "|" + instance;
}
int ReportSystem(const std::vector<std::string>&)
{
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
TEST_F(SystemTest, ChildProcessesSeeTheirCommandTraceLevelMessagesAndPreviousInstance)
{
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
TEST_F(SystemTest, TraceSitesPrintAtOrAboveTheirLevel)
{
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

LONG CALLBACK StepOverBreak(EXCEPTION_POINTERS* info)
{
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

void CALLBACK FailAgain(HWND, UINT, UINT_PTR timer, DWORD)
{
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

TEST_F(SystemTest, AssertionBreaksShowsOneBoxAndAborts)
{
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
TEST_F(SystemTest, ModuleBuffersAndRegisteredMessages)
{
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
TEST_F(SystemTest, ExceptionsComplainOnceArmed)
{
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

// Puts the platform's idea of the modifier keys in the state a key message would have been sent in.
void HoldKeys(bool shift, bool control)
{
    BYTE state[256];
    GetKeyboardState(state);
    state[VK_SHIFT] = state[VK_LSHIFT] = shift ? 0x80 : 0;
    state[VK_CONTROL] = state[VK_LCONTROL] = control ? 0x80 : 0;
    SetKeyboardState(state);
}

class KeyboardTest : public zktest::LeakFreeTest {
protected:
    void TearDown() override { HoldKeys(false, false), vSYSTEMACCESS::KeyReset(), LeakFreeTest::TearDown(); }
    const vKEYBOARD& Keyboard() { return vSYSTEM::GetKeyboard(); }
};

// One row per message, in order: what is sent with which modifiers held, and the state it leaves. A
// character message keeps the key of the key press before it; a modifier that is itself the key counts as held.
TEST_F(KeyboardTest, EachMessageLeavesTheKeyItsModifiersAndItsCharacter)
{
    const int none = -1;
    struct Row { UINT message; unsigned short key; bool shift, control; unsigned short keyCode; int character; };
    const Row rows[] = {
        {WM_KEYDOWN, 'A', false, false, 'A', 'a'},           {WM_KEYDOWN, 'A', true, false, 'A', 'A'},
        {WM_KEYDOWN, '7', false, false, '7', '7'},           {WM_KEYDOWN, VK_RETURN, false, false, VK_RETURN, 13},
        {WM_KEYDOWN, VK_F1, false, false, VK_F1, none},      {WM_KEYDOWN, VK_LEFT, true, false, VK_LEFT, none},
        {WM_KEYDOWN, 'Q', false, false, 'Q', 'q'},           {WM_CHAR, 0xE9, false, false, 'Q', 0xE9},
        {WM_SYSCHAR, 'x', false, true, 'Q', 'x'},            {WM_KEYDOWN, VK_SHIFT, false, false, VK_SHIFT, none},
        {WM_KEYDOWN, VK_CONTROL, false, false, VK_CONTROL, none},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(row.message) + " " + std::to_string(row.key));
        HoldKeys(row.shift, row.control);
        vCHAR* character = vSYSTEMACCESS::KeyEvent(row.message, row.key, 1);
        EXPECT_EQ(Keyboard().KeyCode(), row.keyCode);
        EXPECT_EQ(!!Keyboard().Shift(), row.shift || row.key == VK_SHIFT);
        EXPECT_EQ(!!Keyboard().Ctr(), row.control || row.key == VK_CONTROL);
        EXPECT_EQ(character ? static_cast<unsigned char>((*character)()) : none, row.character);
    }
}

// A copy is a value; the key code is the byte right after the first word of the record.
TEST_F(KeyboardTest, ResetClearsTheStateWhichCopiesKeep)
{
    HoldKeys(true, true);
    vSYSTEMACCESS::KeyEvent(WM_KEYDOWN, VK_ESCAPE, 1);
    vKEYBOARD copy = Keyboard();
    vSYSTEMACCESS::KeyReset();
    EXPECT_TRUE(Keyboard().KeyCode() == 0 && !Keyboard().Shift() && !Keyboard().Ctr());
    EXPECT_TRUE(copy.KeyCode() == VK_ESCAPE && copy.Shift() && copy.Ctr());
    unsigned char record[sizeof(vKEYBOARD)];
    std::memcpy(record, &copy, sizeof record);
    EXPECT_TRUE(sizeof(vKEYBOARD) >= 14u && record[4] == VK_ESCAPE);
}

vAPP* FakeApp(int n) { return reinterpret_cast<vAPP*>(0x1000 + 16 * n); }
HWND MakeWindow()
{
    return CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
}

struct Walked { HINSTANCE instance; HWND frame, client; };

// The entries the system walks, and where the walk's iterator stood after it.
std::vector<Walked> WalkTable(unsigned short* stepsTaken = nullptr)
{
    std::vector<Walked> found;
    ITERATOR iterator;
    for (Walked entry{}; vSYSTEMACCESS::GetTavikApp(iterator, entry.instance, entry.frame, entry.client);)
        found.push_back(entry);
    if (stepsTaken)
        *stepsTaken = iterator();
    return found;
}

const Walked* Find(const std::vector<Walked>& walked, HWND frame)
{
    auto at = std::find_if(walked.begin(), walked.end(), [frame](const Walked& entry) { return entry.frame == frame; });
    return at == walked.end() ? nullptr : &*at;
}

class AppTableTest : public zktest::LeakFreeTest {};

// An application is walked only once it has its windows; the walk's iterator counts on past every entry it gave.
TEST_F(AppTableTest, AnApplicationIsWalkedFromRegistrationWithWindowsToUnregistration)
{
    HWND frame = MakeWindow(), client = MakeWindow();
    size_t before = WalkTable().size();
    vSYSTEMACCESS::RegisterApp(FakeApp(1), nullptr, nullptr, nullptr);
    EXPECT_TRUE(vSYSTEM::ActiveApp() == FakeApp(1) && WalkTable().size() == before);
    vSYSTEMACCESS::RegisterApp(FakeApp(1), GetModuleHandleA(nullptr), frame, client);
    unsigned short steps = 0;
    std::vector<Walked> walked = WalkTable(&steps);
    ASSERT_TRUE(walked.size() == before + 1 && Find(walked, frame));
    EXPECT_TRUE(Find(walked, frame)->instance == GetModuleHandleA(nullptr) && Find(walked, frame)->client == client);
    EXPECT_GE(steps, walked.size());
    vSYSTEMACCESS::UnregisterApp(FakeApp(1));
    EXPECT_TRUE(vSYSTEM::ActiveApp() == nullptr && Find(WalkTable(), frame) == nullptr);
    DestroyWindow(frame), DestroyWindow(client);
}

// The child swaps the roles of its two windows as fast as it can, then ends without unregistering.
int FlipAndVanish(const std::vector<std::string>&)
{
    HWND windows[] = {MakeWindow(), MakeWindow()};
    vSYSTEMACCESS::RegisterApp(FakeApp(8), nullptr, windows[0], windows[1]);
    zktest::Report(std::to_string(reinterpret_cast<uintptr_t>(windows[0])) + " " +
                   std::to_string(reinterpret_cast<uintptr_t>(windows[1])));
    for (int flip = 0; flip < 4000; ++flip)
        vSYSTEMACCESS::RegisterApp(FakeApp(8), nullptr, windows[flip % 2 ? 0 : 1], windows[flip % 2 ? 1 : 0]);
    zktest::Report("done");
    return 0;
}
zktest::ChildEntry flipAndVanish("flip-and-vanish", FlipAndVanish);

// Another program is seen while it runs, never with the frame of one registration and the client of the
// other, and not at all once it has ended: its slot is free again, and the table holds its capacity.
TEST_F(AppTableTest, OtherProgramsAreWalkedWholeAndForgottenWhenTheyEnd)
{
    zktest::Child child("flip-and-vanish");
    std::string handles = child.ReadLine() + " 0";
    HWND first = reinterpret_cast<HWND>(std::stoull(handles));
    HWND second = reinterpret_cast<HWND>(std::stoull(handles.substr(handles.find(' ') + 1)));
    int sightings = 0, torn = 0;
    while (child.ReadLine(0).empty() && child.Wait(0) == STILL_ACTIVE)
        for (const Walked& entry : WalkTable())
            if (entry.frame == first || entry.frame == second) {
                ++sightings;
                torn += entry.client != (entry.frame == first ? second : first);
            }
    EXPECT_TRUE(sightings > 0 && torn == 0) << sightings << " sightings, " << torn << " torn";
    EXPECT_EQ(child.Wait(), 0u);
    EXPECT_TRUE(!Find(WalkTable(), first) && !Find(WalkTable(), second));
    AppTable* table = AppTable::Shared();
    ASSERT_NE(table, nullptr);
    unsigned registered = 0;
    while (registered <= AppTable::Capacity && table->Register(FakeApp(100 + registered), nullptr, nullptr, nullptr))
        ++registered;
    EXPECT_EQ(registered, AppTable::Capacity) << "the ended program's slot serves again";
    for (unsigned n = 0; n < registered; ++n)
        table->Unregister(FakeApp(100 + n));
}

}  // namespace
