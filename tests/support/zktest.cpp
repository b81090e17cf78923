#include "support/zktest.h"

#include <cstdio>
#include <iostream>
#include <map>

int main(int argc, char** argv) {
    int childExit = zktest::RunChildIfAsked(argc, argv);
    if (childExit >= 0)
        return childExit;
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

namespace zktest {

namespace {
const char childSwitch[] = "--zk-child=";
TraceCapture* activeCapture = nullptr;

std::map<std::string, ChildBody>& Registry() { static std::map<std::string, ChildBody> bodies; return bodies; }
std::string WithoutReturn(std::string line) {
    return !line.empty() && line.back() == '\r' ? line.substr(0, line.size() - 1) : line;
}
}  // namespace

void LeakFreeTest::SetUp() { blocksBefore = vMemLiveBlocks(); }
void LeakFreeTest::TearDown() { EXPECT_EQ(vMemLiveBlocks(), blocksBefore) << "live vMemAlloc blocks left behind"; }

TraceCapture::TraceCapture() : handler(AddVectoredExceptionHandler(1, &TraceCapture::Handler)) { activeCapture = this; }

TraceCapture::~TraceCapture() { activeCapture = nullptr; RemoveVectoredExceptionHandler(handler); }

// The debugger channel is an exception that a debugger would catch; without one
// it is ours to read and to continue past.
LONG CALLBACK TraceCapture::Handler(EXCEPTION_POINTERS* info) {
    const EXCEPTION_RECORD* record = info->ExceptionRecord;
    if (record->ExceptionCode != DBG_PRINTEXCEPTION_C || !activeCapture || record->NumberParameters < 2)
        return EXCEPTION_CONTINUE_SEARCH;
    activeCapture->text += reinterpret_cast<const char*>(record->ExceptionInformation[1]);
    return EXCEPTION_CONTINUE_EXECUTION;
}

std::vector<std::string> TraceCapture::Lines() const {
    std::vector<std::string> lines;
    for (size_t start = 0, end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
        lines.push_back(text.substr(start, end - start));
    return lines;
}

void TraceCapture::Clear() { text.clear(); }

ChildEntry::ChildEntry(const char* name, ChildBody body) { Registry()[name] = body; }

int RunChildIfAsked(int argc, char** argv) {
    if (argc < 2 || std::string(argv[1]).rfind(childSwitch, 0) != 0)
        return -1;
    auto body = Registry().find(argv[1] + sizeof childSwitch - 1);
    return body == Registry().end() ? 127 : body->second(std::vector<std::string>(argv + 2, argv + argc));
}

Child::Child(const std::string& name, const std::string& arguments) : process{}, toChild(nullptr), fromChild(nullptr) {
    SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
    HANDLE childIn = nullptr, childOut = nullptr;
    CreatePipe(&childIn, &toChild, &inherit, 0);
    CreatePipe(&fromChild, &childOut, &inherit, 0);
    for (HANDLE ours : {toChild, fromChild})
        SetHandleInformation(ours, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup, startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = childIn;
    startup.hStdOutput = startup.hStdError = childOut;
    char program[MAX_PATH];
    GetModuleFileNameA(nullptr, program, MAX_PATH);
    std::string commandLine = std::string("\"") + program + "\" " + childSwitch + name + " " + arguments;
    CreateProcessA(nullptr, &commandLine[0], nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process);
    CloseHandle(childIn), CloseHandle(childOut);
}

Child::~Child() {
    if (process.hProcess && WaitForSingleObject(process.hProcess, 0) == WAIT_TIMEOUT)
        TerminateProcess(process.hProcess, 1);
    for (HANDLE handle : {process.hProcess, process.hThread, toChild, fromChild})
        if (handle)
            CloseHandle(handle);
}

bool Child::Started() const { return process.hProcess != nullptr; }

// False once the deadline passes with nothing to read, or the child has gone.
bool Child::FillBuffer(DWORD deadline) {
    for (DWORD available = 0; PeekNamedPipe(fromChild, nullptr, 0, nullptr, &available, nullptr); Sleep(5)) {
        if (available) {
            std::string chunk(available, '\0');
            DWORD got = 0;
            ReadFile(fromChild, &chunk[0], available, &got, nullptr);
            pending.append(chunk, 0, got);
            return true;
        }
        if (GetTickCount() >= deadline)
            return false;
    }
    return false;
}

std::string Child::ReadLine(DWORD timeoutMs) {
    DWORD deadline = GetTickCount() + timeoutMs;
    size_t end;
    while ((end = pending.find('\n')) == std::string::npos)
        if (!FillBuffer(deadline))
            return std::string();
    std::string line = WithoutReturn(pending.substr(0, end));
    pending.erase(0, end + 1);
    return line;
}

std::string Child::ReadRest(DWORD timeoutMs) {
    for (DWORD deadline = GetTickCount() + timeoutMs; FillBuffer(deadline);)
        ;
    std::string rest;
    rest.swap(pending);
    return rest;
}

void Child::WriteLine(const std::string& line) {
    DWORD written = 0;
    WriteFile(toChild, (line + "\n").data(), static_cast<DWORD>(line.size() + 1), &written, nullptr);
}

DWORD Child::Wait(DWORD timeoutMs) {
    DWORD code = STILL_ACTIVE;
    if (WaitForSingleObject(process.hProcess, timeoutMs) == WAIT_OBJECT_0)
        GetExitCodeProcess(process.hProcess, &code);
    return code;
}

void Report(const std::string& line) { std::printf("%s\n", line.c_str()); std::fflush(stdout); }

std::string Listen() { std::string line; std::getline(std::cin, line); return WithoutReturn(line); }

BoxWatcher::BoxWatcher(const std::string& caption, int button, DWORD timeoutMs)
    : caption(caption), button(button), timeoutMs(timeoutMs), seen(false),
      thread(CreateThread(nullptr, 0, &BoxWatcher::Watch, this, 0, nullptr)) {}

BoxWatcher::~BoxWatcher() { Seen(); CloseHandle(thread); }

DWORD WINAPI BoxWatcher::Watch(void* self) {
    BoxWatcher* watcher = static_cast<BoxWatcher*>(self);
    for (DWORD deadline = GetTickCount() + watcher->timeoutMs; GetTickCount() < deadline; Sleep(20)) {
        HWND box = FindWindowA("#32770", watcher->caption.c_str());
        if (box && IsWindowVisible(box)) {
            char text[512] = {};
            GetDlgItemTextA(box, 0xFFFF, text, sizeof text);  // the text of a platform message box
            watcher->text = text, watcher->seen = true;
            return PostMessageA(box, WM_COMMAND, watcher->button, 0), 0;
        }
    }
    return 0;
}

bool BoxWatcher::Seen() { WaitForSingleObject(thread, INFINITE); return seen; }

std::string BoxWatcher::Text() { Seen(); return text; }

}  // namespace zktest
