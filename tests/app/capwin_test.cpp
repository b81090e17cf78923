#include "app/appaccess.h"
#include "app/capwin.h"

using namespace wintest;

namespace {

// A captioned window of the application's own class: it passes its own
// identifier and so creates the platform window itself.
class OWNCAPWIN : public vCAPWIN {
public:
    OWNCAPWIN(const vAPP& app, const vRECT& rect, const vSTRING& title, vCAPFLAGS boxes)
        : vCAPWIN(app, rect, title, WF_NONE, boxes, static_cast<vCLASSID>(3))
    {
        vWIN::CreateWin();
    }
};

using CapWinTest = apptest::FrameTest;

// How a captioned window is made decides its parent and style; the boxes
// asked for are the boxes it gets. The title reads back up to its limit.
TEST_F(CapWinTest, TheFormAndTheBoxesDecideTheStyle)
{
    const DWORD boxes = WS_MAXIMIZEBOX | WS_MINIMIZEBOX | WS_SYSMENU;
    enum FORM { OWNED, UNDER_FRAME, DERIVED_UNDER_FRAME };
    const struct {
        FORM form;
        vCAPFLAGS flags;
        DWORD present;
        DWORD absent;
    } rows[] = {
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
        vSTRING title("form %d", row.form);
        vCAPWIN* window = row.form == OWNED         ? new vCAPWIN(Top(), rect, title, WF_NONE, row.flags)
                          : row.form == UNDER_FRAME ? new vCAPWIN(*app, rect, title, WF_NONE, row.flags)
                                                    : new OWNCAPWIN(*app, rect, title, row.flags);
        DWORD style = GetWindowLongA((*window)(), GWL_STYLE);
        EXPECT_EQ(style & row.present, row.present);
        EXPECT_EQ(style & row.absent, 0u);
        EXPECT_EQ(GetParent((*window)()), row.form == OWNED ? Top()() : frame);
        EXPECT_EQ(window->Title(), title);
        DestroyWindow((*window)());
    }
}

TEST_F(CapWinTest, TheTitleTheFrontAndTheTraces)
{
    TraceLevel level(1);
    zktest::TraceCapture capture;
    vCAPWIN* first = new vCAPWIN(*app, vRECT(0, 0, 100, 80), vSTRING("first"));
    vCAPWIN* second = new vCAPWIN(*app, vRECT(20, 20, 120, 100), vSTRING("second"));
    first->Title(vSTRING("renamed"));
    char text[16] = "";
    GetWindowTextA((*first)(), text, sizeof text);
    EXPECT_STREQ(text, "renamed");
    first->Title(vSTRING("%s", std::string(100, 'x').c_str()));
    EXPECT_EQ(std::string(first->Title()()), std::string(79, 'x'));
    first->Title(vSTRING());
    EXPECT_STREQ(first->Title()(), "");
    EXPECT_EQ(first->CaptionHeight(), first->DVtoLV(GetSystemMetrics(SM_CYCAPTION)));
    auto above = [](vWIN* upper, vWIN* lower) {
        HWND at = (*lower)();
        while (at && at != (*upper)())
            at = GetWindow(at, GW_HWNDPREV);
        return at != nullptr;
    };
    first->BringToFront();
    EXPECT_TRUE(above(first, second));
    second->BringToFront();
    EXPECT_TRUE(above(second, first));
    DestroyWindow((*first)());
    DestroyWindow((*second)());
    Lines own;
    for (const std::string& line : capture.Lines())
        if (line.find("CAPWIN") != std::string::npos || line.find("vWIN::") != std::string::npos)
            own.push_back(line);
    const Lines once = {"Trace: vWIN::vWIN(...)", "Trace: vCAPWIN::vCAPWIN(...)", "Trace: vCAPWIN::~vCAPWIN()",
                        "Trace: vWIN::~vWIN()"};
    EXPECT_EQ(own, (Lines{once[0], once[1], once[0], once[1], once[2], once[3], once[2], once[3]}));
}

}  // namespace
