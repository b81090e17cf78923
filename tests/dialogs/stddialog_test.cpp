#include "dialogs/dialogtest.h"

using namespace dlgtest;

namespace {

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
TEST_F(StdDialogTest, OnlyOKTakesTheTypedValuesIntoTheRecord) {
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
TEST_F(StdDialogTest, TheStyleWordLaysOutTheColumn) {
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

TEST_F(StdDialogTest, TheButtonsSpeakTheApplicationsLanguage) {
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
TEST_F(StdDialogTest, ALongerReplacementWidensTheDialogAndTheWholeColumn) {
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
TEST_F(StdDialogTest, AddedButtonsStandInThreeRowsBelowTheColumnAndEnterIsOK) {
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
