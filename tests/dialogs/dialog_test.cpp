#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "app/appaccess.h"
#include "dialogs/dialog.h"

namespace {

using Lines = std::vector<std::string>;
using wintest::Log;
using wintest::Note;
using wintest::RECORDER;

// The templates of dialogs_tests.rc and their items.
enum : unsigned short {
    ENTRY_TEMPLATE = 100, NAME_ITEM = 101, NUMBER_ITEM = 102, NOTE_ITEM = 103, HUGE_TEMPLATE = 200, PAGE_TEMPLATE = 300
};

// The application's data block.
struct ENTRY {
    char name[16];
    long number;
};

// The test program as the module that holds the templates.
vRESID Template(unsigned short id)
{
    static struct PROGRAM : vMODULE { PROGRAM() : vMODULE(GetModuleHandleA(nullptr)) {} } program;
    return vRESID(id, &program);
}

std::string Number(long value) { return std::to_string(value); }

// An application's control on a template edit: it keeps where its value
// lies, shows it, and writes the edit's contents back into the record.
class FIELD : public vCONTROL {
public:
    FIELD(vWIN& parent, const vCTRLID& id, const vRECT& rect = vRECT(-1, -1, -1, -1))
        : vCONTROL(parent, id, rect, vSTRING(), static_cast<vCLASSID>(3))
    {
        if (hWnd)
            BindInstance(hWnd), SubClass();
        else
            lstrcpyA(CreateParams.szClassName, "edit"), CreateWin();
    }
    static vCONTROL* New(vWIN& parent, vCTRLID& id, vRESID&)
    {
        Note("New(" + Number(id) + ")");
        return new FIELD(parent, id);
    }
    void Notification(long code) override { Note(Name() + ".Notification(" + Number(code) + ")"); }
    void SetupView(char* at, unsigned short size) override
    {
        value = at;
        Note(Name() + ".SetupView(" + (at ? "value" : "null") + "," + Number(size) + ")");
    }
    void UpdateView(const vCTRLID&) override
    {
        if (value)
            SetWindowTextA(hWnd,
                           GetID() == vCTRLID(NAME_ITEM) ? value : Number(*reinterpret_cast<long*>(value)).c_str());
    }
    void UpdateData(void* data) override
    {
        Note(Name() + ".UpdateData");
        ENTRY* entry = static_cast<ENTRY*>(data);
        char typed[16] = "";
        GetWindowTextA(hWnd, typed, sizeof typed);
        if (GetID() == vCTRLID(NAME_ITEM))
            lstrcpynA(entry->name, typed, sizeof entry->name);
        else
            entry->number = std::atol(typed);
    }
    std::string Name() const { return Number(GetID()); }
    char* value = nullptr;
};

// The entry dialog's rows; the end row names the control to focus.
template <unsigned short focus>
const vCONTROLMAP* EntryMap()
{
    static const vCONTROLMAP map[] = {{FIELD::New, NAME_ITEM, 0, offsetof(ENTRY, name), sizeof(ENTRY::name)},
                                      {FIELD::New, NUMBER_ITEM, 0, offsetof(ENTRY, number), sizeof(long)},
                                      {nullptr, focus, 0, 0, 0}};
    return map;
}

// A window's rectangle in the client units of another.
vRECT PlaceIn(HWND window, HWND other)
{
    RECT box;
    GetWindowRect(window, &box);
    MapWindowPoints(nullptr, other, reinterpret_cast<POINT*>(&box), 2);
    return vRECT(box.left, box.top, box.right, box.bottom);
}

// Every dialog test has an application of its own and a record the dialog shows. A test that fails half-way may leave a
// dialog active or a window disabled; neither may reach the next test.
class DialogTest : public apptest::FrameTest {
protected:
    void TearDown() override
    {
        vAPPACCESS::ActiveDialog(nullptr);
        EnableWindow(frame, TRUE);
        EnableWindow(Top()(), TRUE);
        FrameTest::TearDown();
    }

    ENTRY data = {"Ann", 7};
};

void CALLBACK Watchdog(HWND, UINT, UINT_PTR, DWORD)
{
    Note("watchdog");
    PostThreadMessageA(GetCurrentThreadId(), WM_CLOSE, 0, 0);
}

// Runs a modal loop; a close posted to the thread after a while ends it, so
// that a test whose input went astray fails instead of hanging.
void RunModal(vDIALOG& dialog)
{
    UINT_PTR timer = SetTimer(nullptr, 0, 5000, Watchdog);
    dialog.Modal();
    KillTimer(nullptr, timer);
}

// Queues a press and release of each key, then a click in the middle of the window, if one is given.
void Input(const std::vector<WORD>& keys, HWND window = nullptr)
{
    std::vector<INPUT> inputs;
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    for (WORD key : keys)
        for (DWORD flags : {0ul, static_cast<unsigned long>(KEYEVENTF_KEYUP)})
            input.ki.wVk = key, input.ki.dwFlags = flags, inputs.push_back(input);
    RECT box;
    if (window && GetWindowRect(window, &box)) {
        SetCursorPos((box.left + box.right) / 2, (box.top + box.bottom) / 2);
        input = {};
        input.type = INPUT_MOUSE;
        for (DWORD flags : {MOUSEEVENTF_MOVE, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP})
            input.mi.dwFlags = flags, inputs.push_back(input);
    }
    SendInput(inputs.size(), inputs.data(), sizeof(INPUT));
}

// The log lines that contain any of the parts.
Lines Only(const Lines& parts)
{
    Lines kept;
    for (const std::string& line : Log())
        if (std::any_of(parts.begin(), parts.end(),
                        [&](const std::string& part) { return line.find(part) != std::string::npos; }))
            kept.push_back(line);
    return kept;
}

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
    int vContextHelp(HWND, vCTRLID& id, int fromMenu) override
    {
        return Note("vContextHelp(" + Number(id) + "," + Number(fromMenu) + ")"), 0;
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
};

// What the map's factories and the controls hear, which control has the
// focus, and what Init answers: 1 when the map names no control to focus.
TEST_F(DialogTest, InitMakesAndFillsTheControlsOfTheMapAndFocusesTheOneItNames)
{
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
TEST_F(DialogTest, TheDialogProcedureReturnsDataOnlyWhereThePlatformReadsIt)
{
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
TEST_F(DialogTest, CommandsReachTheControlThenVClickThenVCommand)
{
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
TEST_F(DialogTest, F1IsTheHelpButtonUnlessTheCaptionAskedForHelpOnAControl)
{
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
TEST_F(DialogTest, MakeModalDisablesTheTopOfTheParentChainAndMakeModelessEnablesIt)
{
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
TEST_F(DialogTest, CentreStaysOnTheScreenAndLetsTheTopLeftWin)
{
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

// The application's entry dialog: it takes the edits' values into its record on OK, and reports every step of the way.
class ENTRYDIALOG : public fSTDDIALOG {
public:
    ENTRYDIALOG(const vAPP& app, ENTRY* data, unsigned short style = STD_OK | STD_CANCEL | STD_HELP, int modal = 0)
        : fSTDDIALOG(app, Template(ENTRY_TEMPLATE), style, EntryMap<NAME_ITEM>(), data, vSTRING("Entry"), modal)
    {
    }
    ~ENTRYDIALOG() override { Note("~ENTRYDIALOG"); }

    using fSTDDIALOG::buttonWidth;
    using fSTDDIALOG::ReplaceOK;
    using vDIALOG::Init;

    int vClick(const vCTRLID& id) override { return Note("vClick(" + Number(id) + ")"), fSTDDIALOG::vClick(id); }
    int fOK() override { return Note("fOK"), UpdateData(viewData), fSTDDIALOG::fOK(); }
    int fCancel() override { return Note("fCancel"), fSTDDIALOG::fCancel(); }
    int fHelp() override { return Note("fHelp"), fSTDDIALOG::fHelp(); }
    void Close() override { Note("Close"), fSTDDIALOG::Close(); }
};

class StdDialogTest : public DialogTest {};

// Real input to a modal entry dialog: only OK takes the typed values into
// the record; what the application's handlers hear on the way.
TEST_F(StdDialogTest, OnlyOKTakesTheTypedValuesIntoTheRecord)
{
    const Lines cancels = {"vClick(2)", "fCancel", "Close", "~ENTRYDIALOG"};
    const Lines helpThenCancel = {"vClick(9)", "fHelp", "vClick(2)", "fCancel", "Close", "~ENTRYDIALOG"};
    const struct {
        const char* what;
        std::vector<WORD> keys;
        unsigned short button;
        std::vector<WORD> then;
        Lines steps;
        ENTRY left;
    } rows[] = {
        {"OK clicked", {'Z', 'E', 'D', VK_TAB, '4', '2'}, 1, {},
         {"vClick(1)", "fOK", "101.UpdateData", "102.UpdateData", "Close", "~ENTRYDIALOG"}, {"zed", 42}},
        {"Cancel clicked", {'Q'}, 2, {}, cancels, {"Ann", 7}},
        {"escape", {'Q', VK_ESCAPE}, 0, {}, cancels, {"Ann", 7}},
        {"Help clicked, then escape", {'Q'}, 9, {VK_ESCAPE}, helpThenCancel, {"Ann", 7}},
        {"F1, then escape", {'Q', VK_F1, VK_ESCAPE}, 0, {}, helpThenCancel, {"Ann", 7}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        data = ENTRY{"Ann", 7};
        ENTRYDIALOG* dialog = new ENTRYDIALOG(*app, &data, STD_OK | STD_CANCEL | STD_HELP, 1);
        dialog->Init();
        HWND window = (*dialog)();
        EXPECT_TRUE(GetFocus() == GetDlgItem(window, NAME_ITEM) && !IsWindowEnabled(frame));
        SendMessageA(GetDlgItem(window, NAME_ITEM), EM_SETSEL, 0, -1);
        Input(row.keys, row.button ? GetDlgItem(window, row.button) : nullptr);
        Input(row.then);
        Log().clear();
        RunModal(*dialog);
        EXPECT_EQ(Only({"vClick", "fOK", "fCancel", "fHelp", "Close", "~", "UpdateData", "watchdog"}), row.steps);
        EXPECT_TRUE(std::string(data.name) == row.left.name && data.number == row.left.number);
        EXPECT_TRUE(!IsWindow(window) && IsWindowEnabled(frame) && vAPPACCESS::ActiveDialog() == nullptr);
    }
}

// The column as the style word asks for it: each button's top, or -1 for none, in the order OK, Cancel, Help; the
// default and focused button. The gap below Cancel is wider than the one below OK.
TEST_F(StdDialogTest, TheStyleWordLaysOutTheColumn)
{
    const struct {
        unsigned short style;
        long tops[3];
        unsigned short focused;
    } rows[] = {{7, {8, 26, 48}, 1}, {2, {-1, 8, -1}, 2}, {4, {-1, -1, 8}, 9},
                {6, {-1, 8, 30}, 2}, {8, {-1, -1, -1}, 0}, {0, {-1, -1, -1}, 0}};
    const unsigned short ids[] = {1, 2, 9};
    vDIALOG* plain = new vDIALOG(*app, Template(ENTRY_TEMPLATE), nullptr, nullptr, vSTRING(), 0);
    vINT narrow = plain->Size().Width();
    DestroyWindow((*plain)());
    for (const auto& row : rows) {
        SCOPED_TRACE("style " + Number(row.style));
        ENTRYDIALOG* dialog = new ENTRYDIALOG(*app, &data, row.style);
        HWND window = (*dialog)();
        EXPECT_EQ(dialog->Size().Width(), narrow + dialog->LVtoDV(55));
        vINT right = dialog->ClientSize().Right() - 5;
        vBUTTON* buttons[] = {dialog->GetOK(), dialog->GetCancel(), dialog->GetHelp()};
        for (int at = 0; at < 3; ++at) {
            HWND button = GetDlgItem(window, ids[at]);
            EXPECT_TRUE((button != nullptr) == (row.tops[at] >= 0) && (buttons[at] != nullptr) == (row.tops[at] >= 0))
                << ids[at];
            if (!button)
                continue;
            const long top = row.tops[at];
            EXPECT_EQ(PlaceIn(button, window), dialog->LPtoDP(vRECT(right - 50, top, right, top + 14)));
            EXPECT_EQ((GetWindowLongA(button, GWL_STYLE) & 0xF) == BS_DEFPUSHBUTTON, ids[at] == row.focused) << ids[at];
        }
        if (row.focused) {
            EXPECT_TRUE(LOWORD(SendMessageA(window, DM_GETDEFID, 0, 0)) == row.focused &&
                        GetFocus() == GetDlgItem(window, row.focused));
        }
        DestroyWindow(window);
    }
}

TEST_F(StdDialogTest, TheButtonsSpeakTheApplicationsLanguage)
{
    const struct {
        unsigned short language;
        const char* texts[3];
    } rows[] = {{2057, {"OK", "Cancel", "&Help"}}, {1031, {"OK", "Abbrechen", "&Hilfe"}},
                {1036, {"OK", "Annuler", "&Aide"}}};
    for (const auto& row : rows) {
        app->Language(row.language);
        ENTRYDIALOG* dialog = new ENTRYDIALOG(*app, &data);
        EXPECT_EQ(Lines({dialog->GetOK()->Text()(), dialog->GetCancel()->Text()(), dialog->GetHelp()->Text()()}),
                  Lines(row.texts, row.texts + 3));
        DestroyWindow((*dialog)());
    }
}

// A replacement whose text does not fit widens the dialog and the whole
// column, which stays centred; the replaced button stays the caller's.
TEST_F(StdDialogTest, ALongerReplacementWidensTheDialogAndTheWholeColumn)
{
    ShowWindow(frame, SW_SHOWNORMAL);
    for (const char* text : {"Go", "Take these values and go on"}) {
        SCOPED_TRACE(text);
        ENTRYDIALOG* dialog = new ENTRYDIALOG(*app, &data);
        HWND window = (*dialog)();
        vINT before = dialog->Size().Width();
        vBUTTON* old = dialog->GetOK();
        vBUTTON* replacement = new vBUTTON(*dialog, vCTRLID(1), vSTRING(text), vRECT(0, 0, 0, 0));
        long width = std::max<long>(50, dialog->GetCurFontDetail()->GetDefStringWidth(vSTRING(text))() + 8);
        dialog->ReplaceOK(*replacement);
        EXPECT_TRUE(dialog->GetOK() == replacement && IsWindow((*old)()) && dialog->buttonWidth == width);
        EXPECT_EQ(dialog->Size().Width(), before + dialog->LHtoDH(width - 50));
        vINT right = dialog->ClientSize().Right() - 5;
        vRECT own = PlaceIn((*replacement)(), window);
        EXPECT_EQ(own, dialog->LPtoDP(vRECT(right - width, 8, right, 22)));
        // The others are widened through their logical rectangles, which the
        // whole-unit resolution of the dialog may round by one unit.
        for (vBUTTON* other : {dialog->GetCancel(), dialog->GetHelp()}) {
            vRECT box = PlaceIn((*other)(), window);
            EXPECT_NEAR(box.Left()(), own.Left()(), dialog->LHtoDH(1)() + 1);
            EXPECT_NEAR(box.Right()(), own.Right()(), dialog->LHtoDH(1)() + 1);
        }
        vRECT placed = PlaceIn(window, nullptr), area = PlaceIn(frame, nullptr);
        EXPECT_NEAR(placed.Left()() + placed.Right()(), area.Left()() + area.Right()(), 2);
        DestroyWindow(window);
    }
}

// Up to three buttons stand in rows below the column; the block of rows is the dialog's, the buttons stay the caller's.
// Enter is OK wherever the focus is.
TEST_F(StdDialogTest, AddedButtonsStandInThreeRowsBelowTheColumnAndEnterIsOK)
{
    ENTRYDIALOG* dialog = new ENTRYDIALOG(*app, &data);
    HWND window = (*dialog)();
    vINT right = dialog->ClientSize().Right() - 5;
    for (unsigned short row = 0; row < 4; ++row) {
        vBUTTON* extra = new vBUTTON(*dialog, vCTRLID(40 + row), vSTRING("More"), vRECT(0, 0, 0, 0));
        vRECT before = PlaceIn((*extra)(), window);
        long top = 70 + 22 * row;
        EXPECT_EQ(dialog->AddButton(*extra, row), row < 3) << row;
        vRECT placed = row < 3 ? dialog->LPtoDP(vRECT(right - 50, top, right, top + 14)) : before;
        EXPECT_EQ(PlaceIn((*extra)(), window), placed) << row;
        EXPECT_TRUE(row == 3 || (GetWindowLongA((*extra)(), GWL_STYLE) & WS_VISIBLE));
    }
    dialog->Init();
    SetFocus(GetDlgItem(window, 2));
    Log().clear();
    EXPECT_EQ(dialog->vEnterKey(), 1);
    EXPECT_EQ(Log(), (Lines{"fOK", "101.UpdateData", "102.UpdateData", "Close"}));
    DestroyWindow(window);
}

}  // namespace
