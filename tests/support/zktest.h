#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/memory.h"

namespace zktest {

// A test whose body must leave as many live vMemAlloc blocks as it found.
class LeakFreeTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
private:
    unsigned long blocksBefore = 0;
};

// Collects what the process writes to the debugger channel while it lives, as whole lines.
class TraceCapture {
public:
    TraceCapture();
    ~TraceCapture();
    TraceCapture(const TraceCapture&) = delete;
    TraceCapture& operator=(const TraceCapture&) = delete;
    std::vector<std::string> Lines() const;
    void Clear();
private:
    static LONG CALLBACK Handler(EXCEPTION_POINTERS* info);
    void* handler;
    std::string text;
};

// A body that the test program runs in a process of its own when it is started as that child:
// it gets the extra arguments and gives the exit code.
typedef int (*ChildBody)(const std::vector<std::string>& arguments);
struct ChildEntry { ChildEntry(const char* name, ChildBody body); };

// Runs a registered child body if the command line names one; -1 if it does not.
int RunChildIfAsked(int argc, char** argv);

// This test program started again as a named child, with pipes on its standard input and output.
// The destructor ends it if it still runs.
class Child {
public:
    Child(const std::string& name, const std::string& arguments = "");
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    bool Started() const;
    // The next line the child printed, without its line end; empty once the time is up or the child has gone.
    std::string ReadLine(DWORD timeoutMs = 20000);
    void WriteLine(const std::string& line);
    // The exit code, or STILL_ACTIVE if the child did not end in time.
    DWORD Wait(DWORD timeoutMs = 20000);
    // Everything the child printed that has not been read as a line.
    std::string ReadRest(DWORD timeoutMs = 20000);
private:
    bool FillBuffer(DWORD deadline);
    PROCESS_INFORMATION process;
    HANDLE toChild, fromChild;
    std::string pending;
};

// For a child body: one line to the parent, flushed at once; the next line from the parent.
void Report(const std::string& line);
std::string Listen();

// Watches, from a thread of its own, for a message box with the given caption; when it comes,
// notes its text and presses the given button.
class BoxWatcher {
public:
    BoxWatcher(const std::string& caption, int button, DWORD timeoutMs = 10000);
    ~BoxWatcher();
    BoxWatcher(const BoxWatcher&) = delete;
    BoxWatcher& operator=(const BoxWatcher&) = delete;
    bool Seen();  // waits for the watch to end; true if the box was seen
    std::string Text();
private:
    static DWORD WINAPI Watch(void* self);
    std::string caption, text;
    int button;
    DWORD timeoutMs;
    bool seen;
    HANDLE thread;
};

}  // namespace zktest
