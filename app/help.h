#pragma once

#include <windows.h>

#include "app/menu.h"
#include "base/string.h"

// The frame's Help menu and the program's link to the platform's help
// engine. Nothing is asked of the engine until the application names its
// help file; a hidden window then owns the engine's windows.
class ZKSHELL_API vHELP : public vMENU {
public:
    vHELP();
    vHELP(const vHELP&) = delete;
    vHELP& operator=(const vHELP&) = delete;
    ~vHELP() override;

    int Contents();
    int Context(unsigned long id);
    int HelpOnHelp();
    int SearchDialog();
    int FindTopic(vSTRING& topic);

private:
    friend class vAPP;
    friend struct vAPPACCESS;

    void SetHelp(HINSTANCE instance, vSTRING& file);
    int Call(UINT command, ULONG_PTR data);

    vSTRING helpFile;
    HWND hHelpWnd;
};
