#include "dialogs/dialogtest.h"

using namespace dlgtest;
using wintest::RECORDER;

namespace {

// A dialog that reports its handlers and the messages offered to it, and
// answers for its MsgHandler where the test asks.
class PLAIN : public vDIALOG {
public:
    PLAIN(const vWIN& parent, const vRESID& tmpl, const vCONTROLMAP* map = nullptr, void* data = nullptr,
          int modal = 0, const vSTRING& title = vSTRING())
        : vDIALOG(parent, tmpl, map, data, title, modal)
    {
    }
    PLAIN(const vAPP& app, const vRESID& tmpl, const vCONTROLMAP* map = nullptr, void* data = nullptr,
          int modal = 0, const vSTRING& title = vSTRING())
        : vDIALOG(app, tmpl, map, data, title, modal)
    {
    }
    ~PLAIN() override { Note("~PLAIN"); }

    using vDIALOG::dataUpdated;
    using vDIALOG::Init;
    using vDIALOG::UpdateData;

    int vClick(const vCTRLID& id) override
    {
        Note("vClick(" + Number(id) + ")");
        return vDIALOG::vClick(id);
    }
    int vCommand(const vCTRLID& id) override
    {
        Note("vCommand(" + Number(id) + ")");
        return 0;
    }
    int vActivate() override
    {
        Note("vActivate");
        return 0;
    }
    int vDeactivate() override
    {
        Note("vDeactivate");
        return 0;
    }
    int vContextHelp(HWND, vCTRLID& id, int fromMenu) override
    {
        Note("vContextHelp(" + Number(id) + "," + Number(fromMenu) + ")");
        return 0;
    }
    int HandleMessage(tagMSG& msg) override
    {
        if (recordOffers)
            Note("HandleMessage(" + Number(msg.message) + ")");
        return takeOffers ? 1 : vDIALOG::HandleMessage(msg);
    }

    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override
    {
        auto answer = answers.find(message);
        if (answer == answers.end())
            return vDIALOG::MsgHandler(message, wParam, lParam, result);
        result = answer->second;
        return 1;
    }

    std::map<unsigned int, long> answers;
    bool recordOffers = false;
    bool takeOffers = false;
};

// The reports about one control among the platform's own traffic.
Lines About(unsigned short id)
{
    Lines about;
    std::string name = Number(id);
    for (const std::string& line : Log())
        if (line.rfind(name + ".", 0) == 0 || line.find("(" + name + ")") != std::string::npos)
            about.push_back(line);
    return about;
}

// The offers of the given messages among the platform's own traffic.
Lines Offers(const std::vector<UINT>& messages)
{
    Lines offers;
    for (const std::string& line : Log())
        for (UINT message : messages)
            if (line == "HandleMessage(" + Number(message) + ")")
                offers.push_back(line);
    return offers;
}

class DialogTest : public AppTest {
protected:
    void TearDown() override
    {
        EnableWindow(Top()(), TRUE);
        AppTest::TearDown();
    }

    ENTRY data = Entry("Ann", 7);
};

const vCONTROLMAP terminatorOnly[] = {{nullptr, 0, 0, 0, 0}};
const vCONTROLMAP focusOnNumber[] = {
    {FIELD::NewName, NAME_ITEM, 0, offsetof(ENTRY, name), sizeof(ENTRY::name)},
    {FIELD::NewNumber, NUMBER_ITEM, 0, offsetof(ENTRY, number), sizeof(long)},
    {nullptr, NUMBER_ITEM, 0, 0, 0},
};
const vCONTROLMAP noFocus[] = {
    {FIELD::NewName, NAME_ITEM, 0, offsetof(ENTRY, name), sizeof(ENTRY::name)},
    {FIELD::NewNumber, NUMBER_ITEM, 0, offsetof(ENTRY, number), sizeof(long)},
    {nullptr, 0, 0, 0, 0},
};

// One map handed to Init: with or without a data block, with the name
// field made by hand first or not.
struct MAPCASE {
    const char* what;
    const vCONTROLMAP* map;
    bool withData;
    bool nameByHand;
    Lines calls;
    int initResult;
    unsigned short focused;
};

TEST_F(DialogTest, InitMakesAndFillsTheControlsOfTheMap)
{
    const MAPCASE rows[] = {
        {"terminator only", terminatorOnly, true, false, {}, 1, 0},
        {"terminator names a control",
         focusOnNumber,
         true,
         false,
         {"New(101)", "101.SetupView(value,16)", "New(102)", "102.SetupView(value,4)"},
         0,
         NUMBER_ITEM},
        {"no data block",
         noFocus,
         false,
         false,
         {"New(101)", "101.SetupView(null,0)", "New(102)", "102.SetupView(null,0)"},
         1,
         0},
        {"a control made by hand is kept",
         noFocus,
         true,
         true,
         {"101.SetupView(value,16)", "New(102)", "102.SetupView(value,4)"},
         1,
         0},
    };
    for (const MAPCASE& row : rows) {
        PLAIN* dialog = new PLAIN(Top(), Template(ENTRY_TEMPLATE), row.map, row.withData ? &data : nullptr);
        HWND window = (*dialog)();
        FIELD* byHand = row.nameByHand ? new FIELD(*dialog, vCTRLID(NAME_ITEM), FIELD::NAME) : nullptr;
        Log().clear();
        EXPECT_EQ(dialog->Init(), row.initResult) << row.what;
        Lines made;
        for (const std::string& line : Log())
            if (line.find("New") != std::string::npos || line.find("SetupView") != std::string::npos)
                made.push_back(line);
        EXPECT_EQ(made, row.calls) << row.what;
        EXPECT_TRUE(IsWindowVisible(window)) << row.what;
        if (row.focused) {
            EXPECT_EQ(GetFocus(), GetDlgItem(window, row.focused)) << row.what;
        }
        FIELD* name = dynamic_cast<FIELD*>(dialog->Child(vCTRLID(NAME_ITEM)));
        if (row.nameByHand) {
            EXPECT_EQ(name, byHand) << row.what;
        }
        if (row.map == terminatorOnly) {
            EXPECT_EQ(name, nullptr) << row.what;
        } else if (row.withData) {
            ASSERT_NE(name, nullptr) << row.what;
            EXPECT_EQ(name->value, data.name) << row.what;
            char shown[16] = "";
            GetWindowTextA(GetDlgItem(window, NUMBER_ITEM), shown, sizeof shown);
            EXPECT_STREQ(shown, "7") << row.what;
        }
        DestroyWindow(window);
    }
}

// A map that names no control to focus still names identifier 0, and a
// control of that identifier takes the focus.
TEST_F(DialogTest, AMapWithoutFocusFocusesAControlOfIdentifierZero)
{
    PLAIN* dialog = new PLAIN(Top(), Template(ENTRY_TEMPLATE), terminatorOnly, &data);
    HWND window = (*dialog)();
    FIELD* unnamed = new FIELD(*dialog, vCTRLID(0), FIELD::NAME, vRECT(1, 1, 40, 12));
    SetFocus(GetDlgItem(window, NAME_ITEM));
    EXPECT_EQ(dialog->Init(), 1);
    EXPECT_EQ(GetFocus(), (*unnamed)());
    DestroyWindow(window);
}

TEST_F(DialogTest, UpdateDataAsksEveryControlForItsValue)
{
    PLAIN* dialog = new PLAIN(Top(), Template(ENTRY_TEMPLATE), noFocus, &data);
    dialog->Init();
    SetDlgItemTextA((*dialog)(), NAME_ITEM, "Bo");
    SetDlgItemTextA((*dialog)(), NUMBER_ITEM, "12");
    ENTRY other = Entry("", 0);
    Log().clear();
    dialog->UpdateData(&other);
    EXPECT_EQ(Log(), (Lines{"101.UpdateData", "102.UpdateData"}));
    EXPECT_STREQ(other.name, "Bo");
    EXPECT_EQ(other.number, 12);
    EXPECT_STREQ(data.name, "Ann");
    EXPECT_EQ(dialog->dataUpdated, 1);
    DestroyWindow((*dialog)());
}

// A message straight to the dialog procedure: what the object answers, if
// it does, and what the procedure then returns.
struct ANSWER {
    const char* what;
    UINT message;
    bool answered;
    INT_PTR returned;
};

TEST_F(DialogTest, TheDialogProcedureReturnsDataOnlyWhereThePlatformReadsIt)
{
    const ANSWER rows[] = {
        {"colour", 25, true, 7},
        {"compare", WM_COMPAREITEM, true, 7},
        {"virtual key", WM_VKEYTOITEM, true, 7},
        {"character", WM_CHARTOITEM, true, 7},
        {"drag icon", WM_QUERYDRAGICON, true, 7},
        {"dialog code", WM_GETDLGCODE, true, 7},
        {"any other, answered", WM_USER + 1, true, 1},
        {"any other, not answered", WM_USER + 1, false, 0},
    };
    PLAIN* dialog = new PLAIN(Top(), Template(ENTRY_TEMPLATE));
    for (const ANSWER& row : rows) {
        dialog->answers.clear();
        if (row.answered)
            dialog->answers[row.message] = 7;
        EXPECT_EQ(DlgProc((*dialog)(), row.message, 0, 0), row.returned) << row.what;
    }
    HWND stranger = CreateWindowExA(0, "STATIC", nullptr, WS_POPUP, 0, 0, 5, 5, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(DlgProc(stranger, WM_USER + 1, 0, 0), 0);
    DestroyWindow(stranger);
    DestroyWindow((*dialog)());
}

// A command from a control: what the control, vClick and vCommand hear.
struct COMMAND {
    const char* what;
    unsigned short id;
    unsigned short notification;
    Lines calls;
};

TEST_F(DialogTest, CommandsReachTheControlThenVClickThenVCommand)
{
    const COMMAND rows[] = {
        {"a change in a field", NAME_ITEM, EN_CHANGE, {"101.Notification(768)", "vCommand(101)"}},
        {"a click on a field", NAME_ITEM, 0, {"101.Notification(0)", "vClick(101)", "vCommand(101)"}},
        {"help, whatever the notification", 9, 5, {"vClick(9)", "vCommand(9)"}},
        {"no such control", 77, 0, {"vClick(77)", "vCommand(77)"}},
        {"OK without a button", 1, 0, {"vClick(1)", "vCommand(1)"}},
        {"any other notification", 77, 3, {"vCommand(77)"}},
    };
    PLAIN* dialog = new PLAIN(Top(), Template(ENTRY_TEMPLATE), noFocus, &data);
    dialog->Init();
    for (const COMMAND& row : rows) {
        Log().clear();
        SendMessageA((*dialog)(), WM_COMMAND, MAKEWPARAM(row.id, row.notification), 0);
        // OK and Cancel hand the activation to the top window, whose
        // reports are not the command's.
        EXPECT_EQ(About(row.id), row.calls) << row.what;
    }
    EXPECT_EQ(GetActiveWindow(), Top()());
    MSG msg;
    EXPECT_FALSE(PeekMessageA(&msg, (*dialog)(), WM_CLOSE, WM_CLOSE, PM_NOREMOVE));
    DestroyWindow((*dialog)());
}

TEST_F(DialogTest, AClickOnAnExistingOKOrCancelPostsAClose)
{
    const unsigned short ids[] = {1, 2, 3};
    for (unsigned short id : ids) {
        PLAIN* dialog = new PLAIN(Top(), Template(ENTRY_TEMPLATE));
        new FIELD(*dialog, vCTRLID(id), FIELD::NAME, vRECT(0, 0, 10, 10));
        MSG msg;
        EXPECT_EQ(dialog->vDIALOG::vClick(vCTRLID(id)), id != 3) << id;
        EXPECT_EQ(PeekMessageA(&msg, (*dialog)(), WM_CLOSE, WM_CLOSE, PM_REMOVE) != 0, id != 3) << id;
        EXPECT_TRUE(IsWindow((*dialog)())) << id;
        DestroyWindow((*dialog)());
    }
}

TEST_F(DialogTest, F1IsTheHelpButtonUnlessTheCaptionAskedForHelpOnAControl)
{
    PLAIN* dialog = new PLAIN(Top(), Template(ENTRY_TEMPLATE), noFocus, &data);
    dialog->Init();
    HWND window = (*dialog)();
    HWND name = GetDlgItem(window, NAME_ITEM);
    HELPINFO info = {};
    info.cbSize = sizeof info;
    info.iCtrlId = NAME_ITEM;
    info.hItemHandle = name;
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
    vCTRLID other(NOTE_ITEM);
    EXPECT_EQ(dialog->vDIALOG::vContextHelp(name, other, 0), 0);
    DestroyWindow(window);
}

TEST_F(DialogTest, ActivationNamesTheDialogThatTheLoopsServe)
{
    PLAIN* dialog = new PLAIN(*app, Template(ENTRY_TEMPLATE));
    HWND window = (*dialog)();
    dialog->Init();
    EXPECT_EQ(GetActiveWindow(), window);
    EXPECT_EQ(vAPPACCESS::ActiveDialog(), window);
    Log().clear();
    SendMessageA(window, WM_ACTIVATE, WA_INACTIVE, 0);
    EXPECT_EQ(vAPPACCESS::ActiveDialog(), nullptr);
    SendMessageA(window, WM_ACTIVATE, WA_CLICKACTIVE, 0);
    EXPECT_EQ(vAPPACCESS::ActiveDialog(), window);
    EXPECT_EQ(Only("ctivate"), (Lines{"vDeactivate", "vActivate"}));
    DestroyWindow(window);
    EXPECT_EQ(vAPPACCESS::ActiveDialog(), nullptr);
}

// The application's loop: the message, offered to the active dialog if
// there is one, reaches its window only if the dialog leaves it.
TEST_F(DialogTest, TheApplicationLoopOffersEachMessageToTheActiveDialogFirst)
{
    const struct {
        const char* what;
        bool active;
        bool takes;
        Lines calls;
    } rows[] = {
        {"no dialog", false, false, {"w default 1025"}},
        {"the dialog leaves it", true, false, {"HandleMessage(1025)", "w default 1025"}},
        {"the dialog takes it", true, true, {"HandleMessage(1025)"}},
    };
    PLAIN* dialog = new PLAIN(*app, Template(ENTRY_TEMPLATE));
    RECORDER* target = new RECORDER(Top(), vRECT(0, 0, 10, 10), "w");
    wintest::Watched() = {WM_USER + 1};
    for (const auto& row : rows) {
        dialog->recordOffers = true;
        dialog->takeOffers = row.takes;
        vAPPACCESS::ActiveDialog(row.active ? (*dialog)() : nullptr);
        Log().clear();
        PostMessageA((*target)(), WM_USER + 1, 0, 0);
        PostThreadMessageA(GetCurrentThreadId(), WM_QUIT, 0, 0);
        vAPPACCESS::Run(*app, (*app)(), nullptr);
        EXPECT_EQ(Log(), row.calls) << row.what;
    }
    dialog->recordOffers = false;
    DestroyWindow((*target)());
    DestroyWindow((*dialog)());
}

// What the modal loop is given, and what it offers the dialog before it
// ends; it ends at the first close or destroy through the queue.
TEST_F(DialogTest, AnyCloseThroughTheQueueEndsTheModalLoop)
{
    HWND other = CreateWindowExA(0, "STATIC", nullptr, WS_POPUP, 0, 0, 5, 5, nullptr, nullptr, nullptr, nullptr);
    const struct {
        const char* what;
        std::vector<UINT> posted;
        Lines offers;
    } rows[] = {
        {"close to another window", {WM_USER + 3, WM_CLOSE}, {"HandleMessage(1027)", "HandleMessage(16)"}},
        {"destroy to another window", {WM_DESTROY}, {"HandleMessage(2)"}},
        {"quit does not end it", {WM_QUIT, WM_CLOSE}, {"HandleMessage(18)", "HandleMessage(16)"}},
    };
    PLAIN* dialog = new PLAIN(*app, Template(ENTRY_TEMPLATE));
    dialog->Init();
    dialog->recordOffers = true;
    dialog->takeOffers = true;
    for (const auto& row : rows) {
        for (UINT message : row.posted)
            if (message == WM_QUIT)
                PostThreadMessageA(GetCurrentThreadId(), WM_QUIT, 0, 0);
            else
                PostMessageA(other, message, 0, 0);
        Log().clear();
        {
            WATCHDOG watchdog(5000);
            dialog->Modal();
        }
        EXPECT_EQ(Offers(row.posted), row.offers) << row.what;
        EXPECT_EQ(Only("watchdog"), Lines{}) << row.what;
        EXPECT_TRUE(IsWindow((*dialog)())) << row.what;
        EXPECT_EQ(dialog->IsModal(), 1) << row.what;
    }
    dialog->recordOffers = false;
    DestroyWindow((*dialog)());
    DestroyWindow(other);
}

TEST_F(DialogTest, ADialogWithoutParentsDisablesNothingAndStillLoops)
{
    vWIN nowhere(nullptr, vRESID());
    PLAIN* dialog = new PLAIN(nowhere, Template(ENTRY_TEMPLATE), nullptr, nullptr, 1);
    HWND window = (*dialog)();
    EXPECT_EQ(GetParent(window), nullptr);
    EXPECT_EQ(dialog->IsModal(), 1);
    EXPECT_TRUE(IsWindowEnabled(frame));
    EXPECT_TRUE(IsWindowEnabled(Top()()));
    dialog->Init();
    dialog->recordOffers = true;
    PostMessageA(window, WM_USER + 3, 0, 0);
    PostMessageA(window, WM_CLOSE, 0, 0);
    Log().clear();
    {
        WATCHDOG watchdog(5000);
        dialog->Modal();
    }
    EXPECT_EQ(Offers({WM_USER + 3, WM_CLOSE}), (Lines{"HandleMessage(1027)", "HandleMessage(16)"}));
    EXPECT_EQ(Only("~PLAIN"), Lines{"~PLAIN"});
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(DialogTest, MakeModalDisablesTheTopOfTheParentChainAndMakeModelessEnablesIt)
{
    RECORDER* holder = new RECORDER(Top(), vRECT(0, 0, 200, 100), "holder");
    PLAIN* dialog = new PLAIN(*holder, Template(PAGE_TEMPLATE));
    HWND window = (*dialog)();
    EXPECT_EQ(GetParent(window), (*holder)());
    dialog->MakeModal();
    EXPECT_EQ(dialog->IsModal(), 1);
    EXPECT_FALSE(IsWindowEnabled(Top()()));
    EXPECT_FALSE(GetWindowLongA((*holder)(), GWL_STYLE) & WS_DISABLED);
    EXPECT_TRUE(IsWindowEnabled(frame));
    dialog->MakeModeless();
    EXPECT_EQ(dialog->IsModal(), 0);
    EXPECT_TRUE(IsWindowEnabled(Top()()));
    dialog->MakeModal();
    Log().clear();
    DestroyWindow(window);
    EXPECT_EQ(Only("~PLAIN"), Lines{"~PLAIN"});
    EXPECT_TRUE(IsWindowEnabled(Top()()));
    DestroyWindow((*holder)());
}

TEST_F(DialogTest, CentreStaysOnTheScreenAndLetsTheTopLeftWin)
{
    ShowWindow(frame, SW_SHOWNORMAL);
    PLAIN* normal = new PLAIN(*app, Template(ENTRY_TEMPLATE));
    normal->Centre();
    RECT box;
    GetWindowRect((*normal)(), &box);
    RECT area;
    GetClientRect(frame, &area);
    MapWindowPoints(frame, nullptr, reinterpret_cast<POINT*>(&area), 2);
    EXPECT_NEAR((box.left + box.right) / 2, (area.left + area.right) / 2, 1);
    EXPECT_NEAR((box.top + box.bottom) / 2, (area.top + area.bottom) / 2, 1);
    DestroyWindow((*normal)());

    PLAIN* huge = new PLAIN(*app, Template(HUGE_TEMPLATE));
    huge->Centre();
    GetWindowRect((*huge)(), &box);
    EXPECT_GT(box.right - box.left, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_EQ(box.left, 0);
    EXPECT_EQ(box.top, 0);
    DestroyWindow((*huge)());
}

// A dialog on the stack survives its window; whoever clears the active
// dialog first, it is clear once the object is gone.
TEST_F(DialogTest, ADialogOnTheStackOutlivesItsWindowAndLeavesNoActiveDialog)
{
    const struct {
        const char* what;
        bool staleOwn;
    } rows[] = {{"its own stale handle", true}, {"another window's handle", false}};
    for (const auto& row : rows) {
        {
            PLAIN dialog(*app, Template(ENTRY_TEMPLATE));
            HWND window = dialog();
            dialog.Init();
            EXPECT_EQ(vAPPACCESS::ActiveDialog(), window) << row.what;
            Log().clear();
            DestroyWindow(window);
            EXPECT_EQ(Only("PLAIN"), Lines{}) << row.what;
            EXPECT_EQ(dialog.Child(vCTRLID(NAME_ITEM)), nullptr) << row.what;
            vAPPACCESS::ActiveDialog(row.staleOwn ? window : frame);
        }
        EXPECT_EQ(Log().back(), "~PLAIN") << row.what;
        EXPECT_EQ(vAPPACCESS::ActiveDialog(), row.staleOwn ? nullptr : frame) << row.what;
    }
}

TEST_F(DialogTest, TheBuiltInTemplateMakesAnEmptyCaptionedChild)
{
    PLAIN* dialog = new PLAIN(Top(), vRESID(0, vSYSTEM::Pointer()), nullptr, nullptr, 0, vSTRING("Inside"));
    HWND window = (*dialog)();
    ASSERT_TRUE(IsWindow(window));
    char name[16] = "";
    GetClassNameA(window, name, sizeof name);
    EXPECT_STREQ(name, "#32770");
    DWORD style = GetWindowLongA(window, GWL_STYLE);
    EXPECT_EQ(style & (WS_CHILD | WS_CAPTION | WS_POPUP), static_cast<DWORD>(WS_CHILD | WS_CAPTION));
    EXPECT_TRUE(GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_NOPARENTNOTIFY);
    EXPECT_EQ(GetParent(window), Top()());
    EXPECT_EQ(GetWindow(window, GW_CHILD), nullptr);
    EXPECT_EQ(dialog->ResTemplate()(), 0);
    EXPECT_STREQ(dialog->Title()(), "Inside");
    DestroyWindow(window);
}

TEST_F(DialogTest, OneLogicalUnitIsOneDialogUnit)
{
    PLAIN* dialog = new PLAIN(*app, Template(ENTRY_TEMPLATE), nullptr, nullptr, 0, vSTRING("Entered"));
    RECT units = {0, 0, 100, 100};
    MapDialogRect((*dialog)(), &units);
    HDC screen = GetDC(nullptr);
    EXPECT_EQ(dialog->LogUnitsPerHorzInch()(), GetDeviceCaps(screen, LOGPIXELSX) * 100 / units.right);
    EXPECT_EQ(dialog->LogUnitsPerVertInch()(), GetDeviceCaps(screen, LOGPIXELSY) * 100 / units.bottom);
    ReleaseDC(nullptr, screen);
    EXPECT_EQ(dialog->BorderHeight(), dialog->DVtoLV(GetSystemMetrics(SM_CYDLGFRAME)));
    EXPECT_EQ(dialog->BorderWidth(), dialog->DVtoLV(GetSystemMetrics(SM_CXDLGFRAME)));
    EXPECT_STREQ(dialog->Title()(), "Entered");
    EXPECT_EQ(dialog->ResTemplate()(), ENTRY_TEMPLATE);
    EXPECT_EQ(&dialog->GetWindow(), dialog);
    EXPECT_EQ(dialog->GetKeyboardInterface(), nullptr);
    DestroyWindow((*dialog)());
}

TEST_F(DialogTest, AThumbMoveSetsTheBarsPosition)
{
    PLAIN* dialog = new PLAIN(Top(), Template(ENTRY_TEMPLATE));
    HWND platformBar = CreateWindowExA(0, "SCROLLBAR", nullptr, WS_CHILD | SBS_HORZ, 0, 0, 80, 12, (*dialog)(),
                                       reinterpret_cast<HMENU>(60), nullptr, nullptr);
    SetScrollRange(platformBar, SB_CTL, 0, 100, FALSE);
    RECORDER bar(platformBar, "bar");
    EXPECT_EQ(dialog->vThumbMove(nullptr, 30), 0);
    EXPECT_EQ(dialog->vThumbMove(&bar, 30), 1);
    EXPECT_EQ(GetScrollPos(platformBar, SB_CTL), 30);
    DestroyWindow((*dialog)());
}

}  // namespace
