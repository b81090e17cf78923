#include "base/exception.h"

#include "base/memory.h"
#include "base/system.h"

vEXCEPTION::~vEXCEPTION() = default;

void* vEXCEPTION::operator new(size_t size) noexcept
{
    return vMemAlloc(size);
}

void vEXCEPTION::operator delete(void* block)
{
    vMemFree(block);
}

DEFEXCEP::DEFEXCEP()
    : message(nullptr), caption(nullptr), storage{}
{
}

void DEFEXCEP::Raise(HWND window)
{
    HandleException(window);
}

char* DEFEXCEP::MessageText()
{
    if (!message)
        message = storage[0];
    return message;
}

char* DEFEXCEP::CaptionText()
{
    if (!caption)
        caption = storage[1];
    return caption;
}

int DEFEXCEP::Armed() const
{
    return message != nullptr;
}

// The flag is lowered before the box goes up: the box pumps messages, and each
// of them would otherwise raise another box on top of this one.
void DEFEXCEP::HandleException(HWND window)
{
    vSYSTEM::SetExceptionFlag(0);
    if (!Armed())
        return;
    MessageBoxA(window, message, CaptionText(), MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL);
}
