#pragma once

#include <string>
#include <vector>

#include "app/application.h"
#include "app/docwin.h"
#include "app/pointer.h"
#include "app/recorder.h"

// The test suite's view of the application's private state and of the
// operations that only the start-up, the windows and the menus call.
struct vAPPACCESS {
    static HWND Frame(const vAPP& app) { return app.hFrame; }
    static HWND Client(const vAPP& app) { return app.hClient; }
    static vMDIARRANGE Arrange(const vAPP& app) { return app.arrange; }
    static vMENU& WindowMenu(vAPP& app) { return app.windowMenu; }
    static short Run(vAPP& app, HINSTANCE instance, HINSTANCE previous) { return app.Run(instance, previous); }
    static void PostPaletteChange(int foreground) { vAPP::PostPaletteChange(foreground); }
    static HWND ActiveDialog() { return vAPP::ActiveDialog(); }
    static void ActiveDialog(HWND dialog) { vAPP::ActiveDialog(dialog); }

    static vDOCWIN* TileHead(const vAPP& app) { return app.pTileHead; }
    static unsigned short TileCount(const vAPP& app) { return app.nTile; }

    static HMENU Handle(const vMENU& menu) { return menu.hMenu; }
    static HMENU Parent(const vMENU& menu) { return menu.hParentMenu; }
    static short Fixed(const vMENU& menu) { return menu.nFixed; }
    static void Fixed(vMENU& menu, short count) { menu.nFixed = count; }
};

// A pointer's private state and the one operation that only windows call.
struct vPOINTERACCESS {
    static const vRESID& Current(const vPOINTER& pointer) { return pointer.current; }
    static HCURSOR Cursor(const vPOINTER& pointer) { return pointer.hCursor; }
    static unsigned short Saved(const vPOINTER& pointer) { return pointer.nStack; }
    static int Activate(vPOINTER& pointer) { return pointer.Activate(); }
};

// The tiling fields of a document window.
struct vDOCWINACCESS {
    static vDOCWIN* Next(const vDOCWIN& window) { return window.pNextTile; }
    static long Breadth(const vDOCWIN& window) { return window.breadth(); }
};

namespace apptest {

using wintest::Pump;

// Destroys the frame, which deletes the application, and takes the quit that the deletion leaves in the queue, so that
// the next test's loops and boxes run.
inline void End(HWND frame) {
    DestroyWindow(frame);
    for (MSG msg; PeekMessageA(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);) {}
}

// The platform's items of a menu, each as its identifier and label, with a
// dash for a separator and "popup:" in front of a popup's label.
inline std::vector<std::string> Items(HMENU menu) {
    std::vector<std::string> items;
    for (int pos = 0; pos < GetMenuItemCount(menu); ++pos) {
        char label[128] = {};
        GetMenuStringA(menu, pos, label, sizeof label, MF_BYPOSITION);
        bool separator = GetMenuState(menu, pos, MF_BYPOSITION) & MF_SEPARATOR;
        items.push_back(GetSubMenu(menu, pos) ? std::string("popup:") + label
                        : separator           ? "-"
                                              : std::to_string(GetMenuItemID(menu, pos)) + " " + label);
    }
    return items;
}

// A window test with an application of its own, made after the count of
// live blocks is taken and ended before it is compared.
class FrameTest : public wintest::WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        app = new vAPP(vSTRING("ZkTestFrame"), vSTRING("frame"), 0);
        frame = vAPPACCESS::Frame(*app);
    }

    void TearDown() override { End(frame); WindowTest::TearDown(); }

    vAPP* app = nullptr;
    HWND frame = nullptr;
};

}  // namespace apptest
