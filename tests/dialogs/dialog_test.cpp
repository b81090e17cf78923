#include "dialogs/dialogtest.h"

using namespace dlgtest;

namespace {

// A dialog that reports its handlers and answers for its MsgHandler where the test asks.
class PLAIN : public vDIALOG {
public:
    template <class PARENT>
    PLAIN(const PARENT& parent, const vRESID& tmpl, const vCONTROLMAP* map = nullptr, void* data = nullptr,
          int modal = 0, const vSTRING& title = vSTRING())
        : vDIALOG(parent, tmpl, map, data, title, modal)
    {
    }
    using vDIALOG::Init;

    int vClick(const vCTRLID& id) override { return Note("vClick(" + Number(id) + ")"), vDIALOG::vClick(id); }
    int vCommand(const vCTRLID& id) override { return Note("vCommand(" + Number(id) + ")"), 0; }
    int vContextHelp(HWND, vCTRLID& id, int fromMenu) override {
        return Note("vContextHelp(" + Number(id) + "," + Number(fromMenu) + ")"), 0;
    }
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
        auto answer = answers.find(message);
        if (answer == answers.end())
            return vDIALOG::MsgHandler(message, wParam, lParam, result);
        result = answer->second;
        return 1;
    }

    std::map<unsigned int, long> answers;
};

// What the map's factories and the controls hear, which control has the
// focus, and what Init answers: 1 when the map names no control to focus.
TEST_F(DialogTest, InitMakesAndFillsTheControlsOfTheMapAndFocusesTheOneItNames) {
    const vCONTROLMAP terminatorOnly[] = {{nullptr, 0, 0, 0, 0}};
    const struct {
        const char* what;
        const vCONTROLMAP* map;
        bool withData, nameByHand;
        Lines calls;
        int answer;
        unsigned short focused;
    } rows[] = {
        {"terminator only", terminatorOnly, true, false, {}, 1, 0},
        {"terminator names a control", EntryMap<NUMBER_ITEM>(), true, false,
         {"New(101)", "101.SetupView(value,16)", "New(102)", "102.SetupView(value,4)"}, 0, NUMBER_ITEM},
        {"no data block", EntryMap<0>(), false, false,
         {"New(101)", "101.SetupView(null,0)", "New(102)", "102.SetupView(null,0)"}, 1, 0},
        {"a control made by hand is kept", EntryMap<0>(), true, true,
         {"101.SetupView(value,16)", "New(102)", "102.SetupView(value,4)"}, 1, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        PLAIN* dialog = new PLAIN(Top(), Template(ENTRY_TEMPLATE), row.map, row.withData ? &data : nullptr);
        HWND window = (*dialog)();
        FIELD* byHand = row.nameByHand ? new FIELD(*dialog, vCTRLID(NAME_ITEM)) : nullptr;
        FIELD* unnamed = new FIELD(*dialog, vCTRLID(0), vRECT(1, 1, 40, 12));
        Log().clear();
        EXPECT_TRUE(dialog->Init() == row.answer && IsWindowVisible(window));
        EXPECT_EQ(Only({"New", "SetupView"}), row.calls);
        EXPECT_EQ(GetFocus(), row.focused ? GetDlgItem(window, row.focused) : (*unnamed)())
            << "identifier 0 is a name too";
        if (row.nameByHand) {
            EXPECT_EQ(dialog->Child(vCTRLID(NAME_ITEM)), byHand);
        }
        char shown[16] = "";
        GetDlgItemTextA(window, NUMBER_ITEM, shown, sizeof shown);
        EXPECT_STREQ(shown, row.withData && row.map != terminatorOnly ? "7" : "");
        DestroyWindow(window);
    }
}

// A message straight to the dialog procedure: whether the object answers 7, and what the procedure then returns; the
// platform reads it as data only for some messages.
TEST_F(DialogTest, TheDialogProcedureReturnsDataOnlyWhereThePlatformReadsIt) {
    const struct {
        UINT message;
        bool answered;
        INT_PTR returned;
    } rows[] = {{25, true, 7},           {WM_COMPAREITEM, true, 7},   {WM_VKEYTOITEM, true, 7},
                {WM_CHARTOITEM, true, 7}, {WM_QUERYDRAGICON, true, 7}, {WM_GETDLGCODE, true, 7},
                {WM_USER + 1, true, 1},   {WM_USER + 1, false, 0}};
    PLAIN* dialog = new PLAIN(Top(), Template(ENTRY_TEMPLATE));
    for (const auto& row : rows) {
        dialog->answers.clear();
        if (row.answered)
            dialog->answers[row.message] = 7;
        EXPECT_EQ(DlgProc((*dialog)(), row.message, 0, 0), row.returned) << row.message;
    }
    EXPECT_EQ(DlgProc(Top()(), WM_USER + 1, 0, 0), 0) << "a window without a dialog";
    DestroyWindow((*dialog)());
}

// A command from a control: what the control, vClick and vCommand hear. OK and Cancel hand the activation to the top
// window, and a click on an existing one posts a close.
TEST_F(DialogTest, CommandsReachTheControlThenVClickThenVCommand) {
    const struct {
        const char* what;
        unsigned short id, notification;
        Lines calls;
        bool closes;
    } rows[] = {
        {"a change in a field", NAME_ITEM, EN_CHANGE, {"101.Notification(768)", "vCommand(101)"}, false},
        {"a click on a field", NAME_ITEM, 0, {"101.Notification(0)", "vClick(101)", "vCommand(101)"}, false},
        {"help, whatever the notification", 9, 5, {"vClick(9)", "vCommand(9)"}, false},
        {"no such control", 77, 0, {"vClick(77)", "vCommand(77)"}, false},
        {"any other notification", 77, 3, {"vCommand(77)"}, false},
        {"OK", 1, 0, {"1.Notification(0)", "vClick(1)", "vCommand(1)"}, true},
        {"Cancel", 2, 0, {"2.Notification(0)", "vClick(2)", "vCommand(2)"}, true},
    };
    PLAIN* dialog = new PLAIN(Top(), Template(ENTRY_TEMPLATE), EntryMap<0>(), &data);
    dialog->Init();
    new FIELD(*dialog, vCTRLID(1), vRECT(0, 0, 10, 10));
    new FIELD(*dialog, vCTRLID(2), vRECT(0, 20, 10, 30));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Log().clear();
        SendMessageA((*dialog)(), WM_COMMAND, MAKEWPARAM(row.id, row.notification), 0);
        Lines heard;
        for (const std::string& line : Log())
            if (line.rfind(Number(row.id) + ".", 0) == 0 || line.find("(" + Number(row.id) + ")") != std::string::npos)
                heard.push_back(line);
        EXPECT_EQ(heard, row.calls);
        MSG msg;
        EXPECT_EQ(PeekMessageA(&msg, (*dialog)(), WM_CLOSE, WM_CLOSE, PM_REMOVE) != 0, row.closes);
        if (row.closes) {
            EXPECT_EQ(GetActiveWindow(), Top()());
        }
    }
    DestroyWindow((*dialog)());
}

// F1 is the Help button, unless the caption's help button asked for help on
// a control first; a context menu asks for help on its control.
TEST_F(DialogTest, F1IsTheHelpButtonUnlessTheCaptionAskedForHelpOnAControl) {
    PLAIN* dialog = new PLAIN(Top(), Template(ENTRY_TEMPLATE), EntryMap<0>(), &data);
    dialog->Init();
    HWND window = (*dialog)();
    HWND name = GetDlgItem(window, NAME_ITEM);
    HELPINFO info = {sizeof info, HELPINFO_WINDOW, NAME_ITEM, name, 0, {0, 0}};
    const LPARAM help = reinterpret_cast<LPARAM>(&info);
    const struct {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        Lines calls;
    } rows[] = {
        {WM_HELP, 0, help, {"vClick(9)"}},
        {WM_SYSCOMMAND, SC_CONTEXTHELP, 0, {}},
        {WM_HELP, 0, help, {"vContextHelp(101,0)"}},
        {WM_HELP, 0, help, {"vClick(9)"}},
        {WM_CONTEXTMENU, reinterpret_cast<WPARAM>(name), 0, {"vContextHelp(101,1)"}},
    };
    for (const auto& row : rows) {
        Log().clear();
        DlgProc(window, row.message, row.wParam, row.lParam);
        EXPECT_EQ(Log(), row.calls) << row.message;
    }
    DestroyWindow(window);
}

// The whole top-level window is disabled, not only the direct parent.
TEST_F(DialogTest, MakeModalDisablesTheTopOfTheParentChainAndMakeModelessEnablesIt) {
    RECORDER* holder = new RECORDER(Top(), vRECT(0, 0, 200, 100), "holder");
    PLAIN* dialog = new PLAIN(*holder, Template(PAGE_TEMPLATE));
    HWND window = (*dialog)();
    dialog->MakeModal();
    EXPECT_TRUE(dialog->IsModal() == 1 && !IsWindowEnabled(Top()()));
    EXPECT_TRUE(IsWindowEnabled((*holder)()) && IsWindowEnabled(frame));
    dialog->MakeModeless();
    EXPECT_TRUE(IsWindowEnabled(Top()()) && !dialog->IsModal());
    dialog->MakeModal();
    DestroyWindow(window);
    EXPECT_TRUE(IsWindowEnabled(Top()())) << "the dialog's end makes it modeless";
    DestroyWindow((*holder)());
}

// Centred on the top window's client area, but never off the left or top of
// the screen: those edges win for a dialog larger than the screen.
TEST_F(DialogTest, CentreStaysOnTheScreenAndLetsTheTopLeftWin) {
    ShowWindow(frame, SW_SHOWNORMAL);
    PLAIN* normal = new PLAIN(*app, Template(ENTRY_TEMPLATE));
    normal->Centre();
    vRECT box = PlaceIn((*normal)(), nullptr);
    RECT area;
    GetClientRect(frame, &area);
    MapWindowPoints(frame, nullptr, reinterpret_cast<POINT*>(&area), 2);
    EXPECT_NEAR(box.Left()() + box.Right()(), area.left + area.right, 2);
    EXPECT_NEAR(box.Top()() + box.Bottom()(), area.top + area.bottom, 2);
    DestroyWindow((*normal)());
    PLAIN* huge = new PLAIN(*app, Template(HUGE_TEMPLATE));
    huge->Centre();
    box = PlaceIn((*huge)(), nullptr);
    EXPECT_TRUE(box.Width()() > GetSystemMetrics(SM_CXSCREEN) && box.Left()() == 0 && box.Top()() == 0);
    DestroyWindow((*huge)());
}

}  // namespace
