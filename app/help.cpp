#include "app/help.h"

#include "base/system.h"

vHELP::vHELP()
    : hHelpWnd(nullptr)
{
    vSYSTEM::Trace(3, "vHELP::vHELP(...)");
}

// The engine is told to quit while its owner still stands.
vHELP::~vHELP()
{
    vSYSTEM::Trace(3, "vHELP::~vHELP()");
    if (!hHelpWnd)
        return;
    WinHelpA(hHelpWnd, helpFile(), HELP_QUIT, 0);
    DestroyWindow(hHelpWnd);
}

void vHELP::SetHelp(HINSTANCE instance, vSTRING& file)
{
    helpFile = file;
    hHelpWnd = CreateWindowExA(0, "LISTBOX", nullptr, WS_POPUP, -1, -1, -1, -1, nullptr, nullptr, instance, nullptr);
}

int vHELP::Call(UINT command, ULONG_PTR data)
{
    if (!hHelpWnd)
        return 0;
    return WinHelpA(hHelpWnd, helpFile(), command, data);
}

int vHELP::Contents()
{
    return Call(HELP_FINDER, 0);
}

int vHELP::Context(unsigned long id)
{
    return Call(HELP_CONTEXT, id);
}

int vHELP::HelpOnHelp()
{
    return Call(HELP_HELPONHELP, 0);
}

// An empty key opens the engine's search dialog.
int vHELP::SearchDialog()
{
    static char nothing[] = "";
    return Call(HELP_PARTIALKEY, reinterpret_cast<ULONG_PTR>(nothing));
}

int vHELP::FindTopic(vSTRING& topic)
{
    return Call(HELP_PARTIALKEY, reinterpret_cast<ULONG_PTR>(topic()));
}
