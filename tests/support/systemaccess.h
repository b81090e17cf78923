#pragma once

#include "base/system.h"

// The test suite's way to the services that only the application object and the window procedures may call.
struct vSYSTEMACCESS {
    static void RegisterApp(vAPP* app, HINSTANCE instance, HWND frame, HWND client) {
        vSYSTEM::RegisterApp(app, instance, frame, client);
    }
    static void UnregisterApp(vAPP* app) { vSYSTEM::UnregisterApp(app, nullptr); }
    static int GetTavikApp(ITERATOR& iterator, HINSTANCE& instance, HWND& frame, HWND& client) {
        return vSYSTEM::GetTavikApp(iterator, instance, frame, client);
    }
    static UINT GetTavikMessage() { return vSYSTEM::GetTavikMessage(); }
    static int NewFailureException(unsigned size) { return vSYSTEM::NewFailureException(size); }
    static vSTRING GetCommand() { return vMODULE::GetCommand(); }
    static vCHAR* KeyEvent(unsigned short message, unsigned short key, unsigned long flags) {
        return vSYSTEM::GetKeyboard().event(message, key, flags);
    }
    static void KeyReset() { vSYSTEM::GetKeyboard().reset(); }
    static void HandleException(HWND window) { vSYSTEM::GetDefaultException().HandleException(window); }
};
