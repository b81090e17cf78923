#include "support/zktest.h"

namespace zktest {

namespace {
TraceCapture* activeCapture = nullptr;
}

TraceCapture::TraceCapture()
    : handler(AddVectoredExceptionHandler(1, &TraceCapture::Handler))
{
    activeCapture = this;
}

TraceCapture::~TraceCapture()
{
    activeCapture = nullptr;
    RemoveVectoredExceptionHandler(handler);
}

LONG CALLBACK TraceCapture::Handler(EXCEPTION_POINTERS* info)
{
    const EXCEPTION_RECORD* record = info->ExceptionRecord;
    if (record->ExceptionCode != DBG_PRINTEXCEPTION_C || !activeCapture || record->NumberParameters < 2)
        return EXCEPTION_CONTINUE_SEARCH;
    const char* piece = reinterpret_cast<const char*>(record->ExceptionInformation[1]);
    activeCapture->text += piece;
    return EXCEPTION_CONTINUE_EXECUTION;
}

std::vector<std::string> TraceCapture::Lines() const
{
    std::vector<std::string> lines;
    size_t start = 0;
    for (size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', start)) {
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

void TraceCapture::Clear()
{
    text.clear();
}

}  // namespace zktest
