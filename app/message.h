#pragma once

#include <windows.h>

#include "base/object.h"
#include "base/string.h"

class vAPP;
class vWIN;

// The buttons of a message box and the answers it gives, as powers of two;
// a set of buttons is their sum.
enum : unsigned short {
    MSG_OK = 1,
    MSG_CANCEL = 2,
    MSG_ABORT = 4,
    MSG_RETRY = 8,
    MSG_IGNORE = 16,
    MSG_YES = 32,
    MSG_NO = 64
};

// The message box over an owner window, with the library's own numbers for
// buttons and answers. Without an owner the box is system-modal.
class ZKSHELL_API vMESSAGE : public vOBJECT {
public:
    vMESSAGE();
    explicit vMESSAGE(const vAPP& app);
    explicit vMESSAGE(const vWIN& window);
    ~vMESSAGE();

    unsigned short Info(const vSTRING& text, const vSTRING& caption) const;
    unsigned short Warning(const vSTRING& text, const vSTRING& caption, unsigned short buttons,
                           unsigned short defaultButton) const;
    unsigned short Critical(const vSTRING& text, const vSTRING& caption, unsigned short buttons,
                            unsigned short defaultButton) const;
    unsigned short Query(const vSTRING& text, const vSTRING& caption, unsigned short buttons,
                         unsigned short defaultButton) const;
    void Beep(short sound) const;

private:
    // Shows nothing and answers 0 unless the buttons form one of the known
    // sets and the default is one of them.
    unsigned short Display(const vSTRING& text, const vSTRING& caption, unsigned short buttons,
                           unsigned short defaultButton, UINT icon) const;

    HWND hOwner;
};
