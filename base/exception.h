#pragma once

#include <windows.h>

#include "base/object.h"

// What a program does when the system runs short of resources. An application
// may hand its own to the application object in place of the default one.
class ZKCORE_API vEXCEPTION : public vOBJECT {
public:
    vEXCEPTION() = default;
    vEXCEPTION(const vEXCEPTION&) = default;
    virtual ~vEXCEPTION();
    virtual void Raise(HWND window) = 0;

    static void* operator new(size_t size) noexcept;
    static void operator delete(void* block);
};

// The low-memory complaint: a box over the window at hand with two texts in
// the program's language. It is armed once the first text has been asked for.
class ZKCORE_API DEFEXCEP : public vEXCEPTION {
public:
    DEFEXCEP();
    void Raise(HWND window) override;

    // The buffers of at least 256 bytes that the program's language fills:
    // the message first, then the caption.
    char* MessageText();
    char* CaptionText();
    int Armed() const;

private:
    friend class vWIN;
    friend struct vSYSTEMACCESS;

    void HandleException(HWND window);

    char* message;
    char* caption;
    char storage[2][256];
};
