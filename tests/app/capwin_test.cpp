#include <algorithm>

#include "app/appaccess.h"
#include "app/capwin.h"
#include "app/recorder.h"

using Lines = std::vector<std::string>;

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

using wintest::TraceLevel;

class CapWinTest : public apptest::FrameTest {};

enum FORM { OWNED, UNDER_FRAME, DERIVED_UNDER_FRAME };

// How a captioned window is made, and the style bits it must carry.
struct STYLECASE {
    const char* what;
    FORM form;
    vCAPFLAGS boxes;
    DWORD present;
    DWORD absent;
};

TEST_F(CapWinTest, TheFormAndTheBoxesDecideTheStyle)
{
    const DWORD boxes = WS_MAXIMIZEBOX | WS_MINIMIZEBOX | WS_SYSMENU;
    const STYLECASE rows[] = {
        {"owned, no boxes", OWNED, 0, WS_CAPTION | WS_POPUP, boxes},
        {"owned, every box", OWNED, CF_MAXBOX | CF_MINBOX | CF_SYSMENU, WS_CAPTION | WS_POPUP | boxes, 0},
        {"owned, maximise box", OWNED, CF_MAXBOX, WS_CAPTION | WS_POPUP | WS_MAXIMIZEBOX,
         WS_MINIMIZEBOX | WS_SYSMENU},
        {"owned, minimise box", OWNED, CF_MINBOX, WS_CAPTION | WS_POPUP | WS_MINIMIZEBOX,
         WS_MAXIMIZEBOX | WS_SYSMENU},
        {"owned, system menu", OWNED, CF_SYSMENU, WS_CAPTION | WS_POPUP | WS_SYSMENU,
         WS_MAXIMIZEBOX | WS_MINIMIZEBOX},
        {"under the frame", UNDER_FRAME, CF_SYSMENU, WS_CAPTION | WS_POPUP | WS_SYSMENU, WS_MINIMIZEBOX},
        {"a derived class under the frame", DERIVED_UNDER_FRAME, 0, WS_CAPTION | WS_CHILD, WS_POPUP | boxes},
    };
    for (const STYLECASE& row : rows) {
        vCAPWIN* window = nullptr;
        vRECT rect(10, 20, 170, 120);
        if (row.form == OWNED)
            window = new vCAPWIN(Top(), rect, vSTRING(row.what), WF_NONE, row.boxes);
        else if (row.form == UNDER_FRAME)
            window = new vCAPWIN(*app, rect, vSTRING(row.what), WF_NONE, row.boxes);
        else
            window = new OWNCAPWIN(*app, rect, vSTRING(row.what), row.boxes);
        HWND handle = (*window)();
        ASSERT_TRUE(IsWindow(handle)) << row.what;
        DWORD style = GetWindowLongA(handle, GWL_STYLE);
        EXPECT_EQ(style & row.present, row.present) << row.what;
        EXPECT_EQ(style & row.absent, 0u) << row.what;
        EXPECT_EQ(GetParent(handle), row.form == OWNED ? Top()() : frame) << row.what;
        EXPECT_STREQ(window->Title()(), row.what) << row.what;
        DestroyWindow(handle);
    }
}

TEST_F(CapWinTest, TheTitleIsReadBackUpToItsLimit)
{
    vCAPWIN* window = new vCAPWIN(Top(), vRECT(0, 0, 100, 80), vSTRING("first"));
    window->Title(vSTRING("second"));
    EXPECT_STREQ(window->Title()(), "second");
    char text[16] = "";
    GetWindowTextA((*window)(), text, sizeof text);
    EXPECT_STREQ(text, "second");
    std::string longest(100, 'x');
    window->Title(vSTRING("%s", longest.c_str()));
    EXPECT_EQ(std::string(window->Title()()), longest.substr(0, 79));
    window->Title(vSTRING());
    EXPECT_STREQ(window->Title()(), "");
    EXPECT_EQ(window->CaptionHeight(), window->DVtoLV(GetSystemMetrics(SM_CYCAPTION)));
    DestroyWindow((*window)());
}

// Where the window stands in the order of the desktop's windows.
int Rank(HWND window)
{
    int rank = 0;
    for (HWND at = GetTopWindow(nullptr); at; at = GetWindow(at, GW_HWNDNEXT), ++rank)
        if (at == window)
            return rank;
    return -1;
}

TEST_F(CapWinTest, BringToFrontRaisesTheWindowAboveTheOthers)
{
    vCAPWIN* first = new vCAPWIN(*app, vRECT(0, 0, 100, 80), vSTRING("first"));
    vCAPWIN* second = new vCAPWIN(*app, vRECT(20, 20, 120, 100), vSTRING("second"));
    first->BringToFront();
    EXPECT_LT(Rank((*first)()), Rank((*second)()));
    second->BringToFront();
    EXPECT_GT(Rank((*first)()), Rank((*second)()));
    DestroyWindow((*first)());
    DestroyWindow((*second)());
}

TEST_F(CapWinTest, ConstructionAndDestructionAreTraced)
{
    TraceLevel level(1);
    zktest::TraceCapture capture;
    vCAPWIN* window = new vCAPWIN(Top(), vRECT(0, 0, 100, 80), vSTRING("traced"));
    DestroyWindow((*window)());
    Lines own;
    for (const std::string& line : capture.Lines())
        if (line.find("CAPWIN") != std::string::npos || line.find("vWIN::") != std::string::npos)
            own.push_back(line);
    EXPECT_EQ(own, (Lines{"Trace: vWIN::vWIN(...)", "Trace: vCAPWIN::vCAPWIN(...)", "Trace: vCAPWIN::~vCAPWIN()",
                          "Trace: vWIN::~vWIN()"}));
}

}  // namespace
