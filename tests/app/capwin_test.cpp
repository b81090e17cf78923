#include "app/appaccess.h"
#include "app/capwin.h"

using namespace wintest;

namespace {

// A captioned window of the application's own class: it passes its own
// identifier and so creates the platform window itself.
struct OWNCAPWIN : vCAPWIN {
    OWNCAPWIN(const vAPP& app, const vRECT& rect, vCAPFLAGS boxes)
        : vCAPWIN(app, rect, vSTRING("own"), WF_NONE, boxes, static_cast<vCLASSID>(3)) { vWIN::CreateWin(); }
};

using CapWinTest = apptest::FrameTest;

// How a captioned window is made decides its parent and style, the boxes
// asked for are the boxes it gets, and the title reads back up to its limit.
TEST_F(CapWinTest, TheFormAndTheBoxesDecideTheStyle)
{
    const DWORD boxes = WS_MAXIMIZEBOX | WS_MINIMIZEBOX | WS_SYSMENU;
    enum FORM { OWNED, UNDER_FRAME, DERIVED_UNDER_FRAME };
    const struct { FORM form; vCAPFLAGS flags; DWORD present; DWORD absent; } rows[] = {
        {OWNED, 0, WS_CAPTION | WS_POPUP, boxes},
        {OWNED, CF_MAXBOX | CF_MINBOX | CF_SYSMENU, WS_CAPTION | WS_POPUP | boxes, 0},
        {OWNED, CF_MAXBOX, WS_MAXIMIZEBOX, WS_MINIMIZEBOX | WS_SYSMENU},
        {OWNED, CF_MINBOX, WS_MINIMIZEBOX, WS_MAXIMIZEBOX | WS_SYSMENU},
        {OWNED, CF_SYSMENU, WS_SYSMENU, WS_MAXIMIZEBOX | WS_MINIMIZEBOX},
        {UNDER_FRAME, CF_SYSMENU, WS_CAPTION | WS_POPUP | WS_SYSMENU, WS_MINIMIZEBOX},
        {DERIVED_UNDER_FRAME, 0, WS_CAPTION | WS_CHILD, WS_POPUP | boxes},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.form * 16 + row.flags);
        vRECT rect(10, 20, 170, 120);
        vCAPWIN* window = row.form == OWNED         ? new vCAPWIN(Top(), rect, vSTRING("t"), WF_NONE, row.flags)
                          : row.form == UNDER_FRAME ? new vCAPWIN(*app, rect, vSTRING("t"), WF_NONE, row.flags)
                                                    : new OWNCAPWIN(*app, rect, row.flags);
        DWORD style = GetWindowLongA((*window)(), GWL_STYLE);
        EXPECT_EQ(style & (row.present | row.absent), row.present);
        EXPECT_EQ(GetParent((*window)()), row.form == OWNED ? Top()() : frame);
        window->Title(vSTRING("%s", std::string(100, 'x').c_str()));
        EXPECT_EQ(std::string(window->Title()()), std::string(79, 'x'));
        DestroyWindow((*window)());
    }
}

}  // namespace
