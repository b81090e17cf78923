#include "support/zktest.h"

#include <cstdio>
#include <iostream>
#include <map>

namespace zktest {

namespace {

const char childSwitch[] = "--zk-child=";

std::map<std::string, ChildBody>& Registry()
{
    static std::map<std::string, ChildBody> bodies;
    return bodies;
}

std::string ThisProgram()
{
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    return path;
}

}  // namespace

ChildEntry::ChildEntry(const char* name, ChildBody body)
{
    Registry()[name] = body;
}

int RunChildIfAsked(int argc, char** argv)
{
    if (argc < 2 || std::string(argv[1]).rfind(childSwitch, 0) != 0)
        return -1;
    auto body = Registry().find(argv[1] + sizeof childSwitch - 1);
    if (body == Registry().end())
        return 127;
    return body->second(std::vector<std::string>(argv + 2, argv + argc));
}

Child::Child(const std::string& name, const std::string& arguments)
    : process{}, toChild(nullptr), fromChild(nullptr)
{
    SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
    HANDLE childIn = nullptr, childOut = nullptr;
    CreatePipe(&childIn, &toChild, &inherit, 0);
    CreatePipe(&fromChild, &childOut, &inherit, 0);
    SetHandleInformation(toChild, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(fromChild, HANDLE_FLAG_INHERIT, 0);

    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = childIn;
    startup.hStdOutput = childOut;
    startup.hStdError = childOut;
    std::string commandLine = "\"" + ThisProgram() + "\" " + childSwitch + name + " " + arguments;
    CreateProcessA(nullptr, &commandLine[0], nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process);
    CloseHandle(childIn);
    CloseHandle(childOut);
}

Child::~Child()
{
    if (process.hProcess && WaitForSingleObject(process.hProcess, 0) == WAIT_TIMEOUT)
        TerminateProcess(process.hProcess, 1);
    for (HANDLE handle : {process.hProcess, process.hThread, toChild, fromChild})
        if (handle)
            CloseHandle(handle);
}

bool Child::Started() const
{
    return process.hProcess != nullptr;
}

bool Child::FillBuffer(DWORD deadline)
{
    for (;;) {
        DWORD available = 0;
        if (!PeekNamedPipe(fromChild, nullptr, 0, nullptr, &available, nullptr))
            return false;
        if (available) {
            std::string chunk(available, '\0');
            DWORD got = 0;
            ReadFile(fromChild, &chunk[0], available, &got, nullptr);
            pending.append(chunk, 0, got);
            return true;
        }
        if (GetTickCount() >= deadline)
            return false;
        Sleep(5);
    }
}

std::string Child::ReadLine(DWORD timeoutMs)
{
    DWORD deadline = GetTickCount() + timeoutMs;
    size_t end;
    while ((end = pending.find('\n')) == std::string::npos)
        if (!FillBuffer(deadline))
            return std::string();
    std::string line = pending.substr(0, end);
    pending.erase(0, end + 1);
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

std::string Child::ReadRest(DWORD timeoutMs)
{
    DWORD deadline = GetTickCount() + timeoutMs;
    while (FillBuffer(deadline)) {
    }
    std::string rest;
    rest.swap(pending);
    return rest;
}

void Child::WriteLine(const std::string& line)
{
    std::string withEnd = line + "\n";
    DWORD written = 0;
    WriteFile(toChild, withEnd.data(), static_cast<DWORD>(withEnd.size()), &written, nullptr);
}

DWORD Child::Wait(DWORD timeoutMs)
{
    DWORD code = STILL_ACTIVE;
    if (WaitForSingleObject(process.hProcess, timeoutMs) == WAIT_OBJECT_0)
        GetExitCodeProcess(process.hProcess, &code);
    return code;
}

void Report(const std::string& line)
{
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

std::string Listen()
{
    std::string line;
    std::getline(std::cin, line);
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

}  // namespace zktest
