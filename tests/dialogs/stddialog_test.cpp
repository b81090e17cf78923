#include "dialogs/dialogtest.h"

using namespace dlgtest;

namespace {

// The application's entry dialog: it takes the edits' values into its
// record on OK, and reports every step of the way.
class ENTRYDIALOG : public fSTDDIALOG {
public:
    ENTRYDIALOG(const vAPP& app, ENTRY* data, unsigned short style, int modal = 1)
        : fSTDDIALOG(app, Template(ENTRY_TEMPLATE), style, EntryMap(), data, vSTRING("Entry"), modal)
    {
    }
    ~ENTRYDIALOG() override { Note("~ENTRYDIALOG"); }

    using vDIALOG::Init;
    using fSTDDIALOG::ReplaceCancel;
    using fSTDDIALOG::ReplaceHelp;
    using fSTDDIALOG::ReplaceOK;
    using fSTDDIALOG::buttonWidth;

    int vClick(const vCTRLID& id) override
    {
        Note("vClick(" + Number(id) + ")");
        return fSTDDIALOG::vClick(id);
    }
    int fOK() override
    {
        Note("fOK");
        UpdateData(viewData);
        return fSTDDIALOG::fOK();
    }
    int fCancel() override
    {
        Note("fCancel");
        return fSTDDIALOG::fCancel();
    }
    int fHelp() override
    {
        Note("fHelp");
        return fSTDDIALOG::fHelp();
    }
    void Close() override
    {
        Note("Close");
        fSTDDIALOG::Close();
    }
};

// The application's own OK button takes the standard one's place; the
// dialog forgets the standard one, and the application disposes of it.
class OWNOKDIALOG : public ENTRYDIALOG {
public:
    OWNOKDIALOG(const vAPP& app, ENTRY* data) : ENTRYDIALOG(app, data, STD_OK | STD_CANCEL | STD_HELP)
    {
        HWND standard = (*GetOK())();
        NOTIFYBUTTON* ok = new NOTIFYBUTTON(*this, vCTRLID(1), vSTRING("OK"));
        ReplaceOK(*ok);
        ::DestroyWindow(standard);
        ok->SetDefault();
        ok->Show(1);
        Init();
    }
};

// What the application's handlers report, and a watchdog that ran out.
Lines Steps()
{
    Lines steps;
    for (const std::string& line : Log())
        if (line.rfind("vClick", 0) == 0 || line.rfind("button", 0) == 0 || line[0] == 'f' || line == "Close" ||
            line == "~ENTRYDIALOG" || line == "watchdog" || line.find("UpdateData") != std::string::npos)
            steps.push_back(line);
    return steps;
}

class StdDialogTest : public AppTest {
protected:
    // A record that the dialog shows, and which must change only on OK.
    ENTRY data = Entry("Ann", 7);
};

TEST_F(StdDialogTest, AClickOnOKTakesTheTypedValuesIntoTheRecordAndEndsTheDialog)
{
    OWNOKDIALOG* dialog = new OWNOKDIALOG(*app, &data);
    HWND window = (*dialog)();
    HWND name = GetDlgItem(window, NAME_ITEM);
    HWND ok = GetDlgItem(window, 1);
    ASSERT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(GetFocus(), name);
    EXPECT_FALSE(IsWindowEnabled(frame));
    SendMessageA(name, EM_SETSEL, 0, -1);
    Type({'Z', 'E', 'D', VK_TAB, '4', '2'});
    Click(ok);
    Log().clear();
    {
        WATCHDOG watchdog(5000);
        dialog->Modal();
    }
    EXPECT_EQ(Steps(), (Lines{"button 1.Notification(0)", "vClick(1)", "fOK", "101.UpdateData", "102.UpdateData",
                              "Close", "~ENTRYDIALOG"}));
    EXPECT_STREQ(data.name, "zed");
    EXPECT_EQ(data.number, 42);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_TRUE(IsWindowEnabled(frame));
    EXPECT_EQ(vAPPACCESS::ActiveDialog(), nullptr);
}

// Input that must leave the record as it was, and what it reaches.
struct LEAVING {
    const char* what;
    int button;
    std::vector<WORD> keys;
    Lines steps;
};

TEST_F(StdDialogTest, CancelEscapeAndHelpLeaveTheRecordUntouched)
{
    const LEAVING rows[] = {
        {"cancel clicked", 2, {}, {"vClick(2)", "fCancel", "Close", "~ENTRYDIALOG"}},
        {"escape", 0, {VK_ESCAPE}, {"vClick(2)", "fCancel", "Close", "~ENTRYDIALOG"}},
        {"help clicked, then escape", 9, {VK_ESCAPE},
         {"vClick(9)", "fHelp", "vClick(2)", "fCancel", "Close", "~ENTRYDIALOG"}},
        {"F1, then escape", 0, {VK_F1, VK_ESCAPE},
         {"vClick(9)", "fHelp", "vClick(2)", "fCancel", "Close", "~ENTRYDIALOG"}},
    };
    for (const LEAVING& row : rows) {
        data = Entry("Ann", 7);
        ENTRYDIALOG* dialog = new ENTRYDIALOG(*app, &data, STD_OK | STD_CANCEL | STD_HELP);
        dialog->Init();
        HWND window = (*dialog)();
        SendMessageA(GetDlgItem(window, NAME_ITEM), EM_SETSEL, 0, -1);
        Type({'Q'});
        if (row.button)
            Click(GetDlgItem(window, row.button));
        for (WORD key : row.keys)
            Type({key});
        Log().clear();
        {
            WATCHDOG watchdog(5000);
            dialog->Modal();
        }
        EXPECT_EQ(Steps(), row.steps) << row.what;
        EXPECT_STREQ(data.name, "Ann") << row.what;
        EXPECT_EQ(data.number, 7) << row.what;
        EXPECT_FALSE(IsWindow(window)) << row.what;
        if (IsWindow(window))
            DestroyWindow(window);
    }
}

// The column as a style word asks for it: each button's top, or -1 for
// none, in the order OK, Cancel, Help; the default and focused button.
struct COLUMN {
    unsigned short style;
    long tops[3];
    unsigned short focused;
};

TEST_F(StdDialogTest, TheStyleWordLaysOutTheColumn)
{
    const COLUMN rows[] = {
        {7, {8, 26, 48}, 1}, {2, {-1, 8, -1}, 2}, {4, {-1, -1, 8}, 9},
        {6, {-1, 8, 30}, 2}, {8, {-1, -1, -1}, 0}, {0, {-1, -1, -1}, 0},
    };
    const unsigned short ids[] = {1, 2, 9};
    vDIALOG* plain = new vDIALOG(*app, Template(ENTRY_TEMPLATE), nullptr, nullptr, vSTRING(), 0);
    vINT narrow = plain->Size().Width();
    DestroyWindow((*plain)());
    for (const COLUMN& row : rows) {
        ENTRYDIALOG* dialog = new ENTRYDIALOG(*app, &data, row.style, 0);
        HWND window = (*dialog)();
        std::string what = "style " + Number(row.style);
        EXPECT_EQ(dialog->Size().Width(), narrow + dialog->LVtoDV(55)) << what;
        vRECT client = dialog->ClientSize();
        vINT right = client.Right() - 5;
        for (int at = 0; at < 3; ++at) {
            HWND button = GetDlgItem(window, ids[at]);
            if (row.tops[at] < 0) {
                EXPECT_EQ(button, nullptr) << what << " button " << ids[at];
                continue;
            }
            ASSERT_NE(button, nullptr) << what << " button " << ids[at];
            vRECT expected = dialog->LPtoDP(vRECT(right - 50, row.tops[at], right, row.tops[at] + 14));
            EXPECT_EQ(RectOf(PlaceIn(button, window)), expected) << what << " button " << ids[at];
            bool isDefault = (GetWindowLongA(button, GWL_STYLE) & 0xF) == BS_DEFPUSHBUTTON;
            EXPECT_EQ(isDefault, ids[at] == row.focused) << what << " button " << ids[at];
        }
        if (row.focused) {
            EXPECT_EQ(LOWORD(SendMessageA(window, DM_GETDEFID, 0, 0)), row.focused) << what;
            EXPECT_EQ(GetFocus(), GetDlgItem(window, row.focused)) << what;
        }
        EXPECT_EQ(dialog->GetOK() != nullptr, row.tops[0] >= 0) << what;
        EXPECT_EQ(dialog->GetCancel() != nullptr, row.tops[1] >= 0) << what;
        EXPECT_EQ(dialog->GetHelp() != nullptr, row.tops[2] >= 0) << what;
        DestroyWindow(window);
    }
}

TEST_F(StdDialogTest, TheButtonsSpeakTheApplicationsLanguage)
{
    const struct {
        unsigned short language;
        const char* texts[3];
    } rows[] = {
        {2057, {"OK", "Cancel", "&Help"}},
        {1031, {"OK", "Abbrechen", "&Hilfe"}},
        {1036, {"OK", "Annuler", "&Aide"}},
    };
    for (const auto& row : rows) {
        app->Language(row.language);
        ENTRYDIALOG* dialog = new ENTRYDIALOG(*app, &data, STD_OK | STD_CANCEL | STD_HELP, 0);
        vBUTTON* buttons[] = {dialog->GetOK(), dialog->GetCancel(), dialog->GetHelp()};
        for (int at = 0; at < 3; ++at)
            EXPECT_STREQ(buttons[at]->Text()(), row.texts[at]) << row.language;
        DestroyWindow((*dialog)());
    }
}

// Where the dialog stands against the frame's client area: its centre.
POINT CentreOffset(HWND dialog, HWND frame)
{
    RECT box;
    GetWindowRect(dialog, &box);
    RECT area;
    GetClientRect(frame, &area);
    MapWindowPoints(frame, nullptr, reinterpret_cast<POINT*>(&area), 2);
    return {(box.left + box.right) / 2 - (area.left + area.right) / 2,
            (box.top + box.bottom) / 2 - (area.top + area.bottom) / 2};
}

TEST_F(StdDialogTest, ALongerReplacementWidensTheDialogAndTheWholeColumn)
{
    ShowWindow(frame, SW_SHOWNORMAL);
    const struct {
        const char* what;
        const char* text;
        bool widens;
    } rows[] = {
        {"short text", "Go", false},
        {"long text", "Take these values and go on", true},
    };
    for (const auto& row : rows) {
        ENTRYDIALOG* dialog = new ENTRYDIALOG(*app, &data, STD_OK | STD_CANCEL | STD_HELP, 0);
        HWND window = (*dialog)();
        vINT before = dialog->Size().Width();
        vBUTTON* old = dialog->GetOK();
        vBUTTON* replacement = new vBUTTON(*dialog, vCTRLID(1), vSTRING(row.text), vRECT(0, 0, 0, 0));
        long wanted = dialog->GetCurFontDetail()->GetDefStringWidth(vSTRING(row.text))() + 8;
        dialog->ReplaceOK(*replacement);
        EXPECT_EQ(dialog->GetOK(), replacement) << row.what;
        EXPECT_TRUE(IsWindow((*old)())) << row.what;
        long width = row.widens ? wanted : 50;
        EXPECT_EQ(dialog->buttonWidth, width) << row.what;
        EXPECT_EQ(dialog->Size().Width(), before + (row.widens ? dialog->LHtoDH(wanted - 50) : vINT(0))) << row.what;
        // The others are widened through their logical rectangles, which the
        // whole-unit resolution of the dialog may round by one unit.
        vRECT client = dialog->ClientSize();
        vINT right = client.Right() - 5;
        RECT own = PlaceIn((*replacement)(), window);
        EXPECT_EQ(RectOf(own), dialog->LPtoDP(vRECT(right - width, 8, right, 22))) << row.what;
        long slackX = dialog->LHtoDH(1)() + 1;
        long slackY = dialog->LVtoDV(1)() + 1;
        const long tops[] = {26, 48};
        vBUTTON* others[] = {dialog->GetCancel(), dialog->GetHelp()};
        for (int at = 0; at < 2; ++at) {
            RECT box = PlaceIn((*others[at])(), window);
            EXPECT_NEAR(box.left, own.left, slackX) << row.what << " button " << at;
            EXPECT_NEAR(box.right, own.right, slackX) << row.what << " button " << at;
            EXPECT_NEAR(box.top, dialog->LPtoDP(vPOINT(0, tops[at])).y(), slackY) << row.what << " button " << at;
        }
        POINT off = CentreOffset(window, frame);
        EXPECT_LE(std::abs(off.x), 1) << row.what;
        EXPECT_LE(std::abs(off.y), 1) << row.what;
        DestroyWindow(window);
    }
}

TEST_F(StdDialogTest, AddedButtonsStandInThreeRowsBelowTheColumn)
{
    ENTRYDIALOG* dialog = new ENTRYDIALOG(*app, &data, STD_OK | STD_CANCEL | STD_HELP, 0);
    HWND window = (*dialog)();
    vRECT client = dialog->ClientSize();
    vINT right = client.Right() - 5;
    const long tops[] = {70, 92, 114};
    for (unsigned short row = 0; row < 3; ++row) {
        vBUTTON* extra = new vBUTTON(*dialog, vCTRLID(40 + row), vSTRING("More"), vRECT(0, 0, 0, 0));
        EXPECT_EQ(dialog->AddButton(*extra, row), 1);
        EXPECT_TRUE(GetWindowLongA((*extra)(), GWL_STYLE) & WS_VISIBLE);
        vRECT expected = dialog->LPtoDP(vRECT(right - 50, tops[row], right, tops[row] + 14));
        EXPECT_EQ(RectOf(PlaceIn((*extra)(), window)), expected) << "row " << row;
    }
    vBUTTON* refused = new vBUTTON(*dialog, vCTRLID(50), vSTRING("None"), vRECT(0, 0, 0, 0));
    RECT before = PlaceIn((*refused)(), window);
    EXPECT_EQ(dialog->AddButton(*refused, 3), 0);
    EXPECT_EQ(RectOf(PlaceIn((*refused)(), window)), RectOf(before));
    DestroyWindow(window);
}

TEST_F(StdDialogTest, EnterActsAsOKWhereverTheFocusIs)
{
    ENTRYDIALOG* dialog = new ENTRYDIALOG(*app, &data, STD_OK | STD_CANCEL | STD_HELP, 0);
    dialog->Init();
    SetFocus(GetDlgItem((*dialog)(), 2));
    Log().clear();
    EXPECT_EQ(dialog->vEnterKey(), 1);
    EXPECT_EQ(Log(), (Lines{"fOK", "101.UpdateData", "102.UpdateData", "Close"}));
    EXPECT_EQ(dialog->vDraw(vRECT(0, 0, 10, 10)), 1);
    DestroyWindow((*dialog)());
}

}  // namespace
