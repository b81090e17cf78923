#include "dialogs/stddialog.h"

#include "app/application.h"
#include "core/resources/resourceids.h"

namespace {

// The column's geometry in dialog units.
const long columnMargin = 5;
const long columnWidth = 50;
const long firstTop = 8;
const long buttonHeight = 14;
const long belowOK = 18;
const long belowCancel = 22;
const long cancelTop = 26;
const long helpTop = 48;
const long extraTop = 70;
const long extraStep = 22;
const unsigned short lastExtraRow = 2;
// The room a text needs inside a button beside its own width.
const long textRoom = 8;


// The language of the running application; without one, the base
// language's texts are used.
unsigned short LanguageOffset()
{
    vAPP* app = vSYSTEM::ActiveApp();
    return app ? vSTRING::LanguageOffset(app->Language()) : 0;
}

// Deliberately a size smaller than the dialog's own, and on OK only.
vFONTSPEC OKFont()
{
    return vFONTSPEC(vSTRING("MS Sans Serif"), vFONT_NORMAL, 6, vREAL(0), 100, vFONT_POINTS, vANGLE());
}

}  // namespace

fSTDDIALOG::fSTDDIALOG(const vAPP& app, const vRESID& tmpl, unsigned short style, const vCONTROLMAP* map,
                       void* data, const vSTRING& title, int modal)
    : vDIALOG(app, tmpl, map, data, title, modal, CLASSID_DIALOG), tabOrigin(0, 0)
{
    Init(style);
}

fSTDDIALOG::fSTDDIALOG(const vWIN& parent, const vRESID& tmpl, unsigned short style, const vCONTROLMAP* map,
                       void* data, const vSTRING& title, int modal)
    : vDIALOG(parent, tmpl, map, data, title, modal, CLASSID_DIALOG), tabOrigin(0, 0)
{
    Init(style);
}

// A dialog whose window went first has lost its buttons with it: each was
// made with new and died with its own window.
fSTDDIALOG::~fSTDDIALOG()
{
    if (IsWindow(hWnd)) {
        delete okButton;
        delete cancelButton;
        delete helpButton;
        for (int row = 0; extraButtons && row <= lastExtraRow; ++row)
            delete extraButtons[row];
    }
    if (extraButtons)
        vMemFree(extraButtons);
}

// The gap below Cancel is wider than the one below OK on purpose: it sets
// Help apart.
void fSTDDIALOG::Init(unsigned short style)
{
    vRECT r = Size();
    okButton = cancelButton = helpButton = nullptr;
    buttonWidth = columnWidth;
    extraButtons = nullptr;
    Size(vRECT(r.Left(), r.Top(), r.Right() + LVtoDV(columnMargin + columnWidth), r.Bottom()));
    Centre();
    if (style == STD_NOBUTTONS)
        return;
    long top = firstTop;
    if (style & STD_OK) {
        okButton = MakeButton(IDOK, TXT_OK, top);
        if (okButton) {
            okButton->SetDefault();
            okButton->FontSpec(OKFont());
        }
        top += belowOK;
    }
    if (style & STD_CANCEL) {
        cancelButton = MakeButton(IDCANCEL, TXT_CANCEL, top);
        if (cancelButton && !okButton)
            cancelButton->SetDefault();
        top += belowCancel;
    }
    if (style & STD_HELP) {
        helpButton = MakeButton(IDHELP, TXT_HELP, top);
        if (helpButton && !okButton && !cancelButton)
            helpButton->SetDefault();
    }
    ShowColumn();
}

// Made as a template item would be adopted, then put in its place.
vBUTTON* fSTDDIALOG::MakeButton(unsigned short id, unsigned short text, long top)
{
    vSTRING label(vRESID(static_cast<unsigned short>(text + LanguageOffset()), vSYSTEM::Pointer()));
    vBUTTON* button = new vBUTTON(*this, vCTRLID(id), label, vRECT(-1, -1, -1, -1), 0, CLASSID_BUTTON);
    if (!button)
        return nullptr;
    long right = ClientSize().Right()() - columnMargin;
    button->Size(vRECT(right - columnWidth, top, right, top + buttonHeight));
    return button;
}

// The first button of the column takes the focus.
void fSTDDIALOG::ShowColumn()
{
    if (okButton) {
        okButton->Show(1);
        okButton->GetFocus();
    }
    if (cancelButton) {
        cancelButton->Show(1);
        if (!okButton)
            cancelButton->GetFocus();
    }
    if (helpButton) {
        helpButton->Show(1);
        if (!okButton && !cancelButton)
            helpButton->GetFocus();
    }
}

// Hiding first takes Cancel off the screen before the application's work.
int fSTDDIALOG::vClick(const vCTRLID& id)
{
    switch (id) {
    case 1:
        return fOK();
    case 9:
        return fHelp();
    case 2:
        Hide();
        return fCancel();
    default:
        return 0;
    }
}

// The background alone shows.
int fSTDDIALOG::vDraw(const vRECT&)
{
    return 1;
}

// Enter is OK wherever the focus is, unless the focused control took it.
int fSTDDIALOG::vEnterKey()
{
    return fOK();
}

int fSTDDIALOG::fCancel()
{
    Close();
    return 1;
}

int fSTDDIALOG::fOK()
{
    Close();
    return 1;
}

int fSTDDIALOG::fHelp()
{
    return 0;
}

// The block of rows stays empty on purpose: a button placed here remains
// the caller's, unlike one that replaces a standard button.
int fSTDDIALOG::AddButton(vBUTTON& button, unsigned short row)
{
    if (row > lastExtraRow)
        return 0;
    if (!extraButtons) {
        extraButtons = static_cast<vBUTTON**>(vMemAlloc(sizeof(vBUTTON*) * (lastExtraRow + 1)));
        if (!extraButtons)
            return 0;
        ZeroMemory(extraButtons, sizeof(vBUTTON*) * (lastExtraRow + 1));
    }
    button.Show(1);
    long top = row * extraStep + extraTop;
    long right = ClientSize().Right()() - columnMargin;
    button.Size(vRECT(right - buttonWidth, top, right, top + buttonHeight));
    return 1;
}

vBUTTON* fSTDDIALOG::GetOK()
{
    return okButton;
}

vBUTTON* fSTDDIALOG::GetCancel()
{
    return cancelButton;
}

vBUTTON* fSTDDIALOG::GetHelp()
{
    return helpButton;
}

void fSTDDIALOG::ReplaceOK(vBUTTON& button)
{
    Replace(okButton, button, firstTop);
}

void fSTDDIALOG::ReplaceCancel(vBUTTON& button)
{
    Replace(cancelButton, button, cancelTop);
}

void fSTDDIALOG::ReplaceHelp(vBUTTON& button)
{
    Replace(helpButton, button, helpTop);
}

// A text that does not fit widens the dialog and every standard button with
// it, so that the column keeps one width. The measure comes in the dialog's
// own units already.
void fSTDDIALOG::Replace(vBUTTON*& field, vBUTTON& button, long top)
{
    long left = ClientSize().Right()() - columnMargin - buttonWidth;
    vFONTDETAIL* font = GetCurFontDetail();
    long wanted = (font ? font->GetDefStringWidth(button.Text())() : 0) + textRoom;
    field = &button;
    if (wanted > buttonWidth) {
        button.Size(vRECT(left, top, left + buttonWidth, top + buttonHeight));
        AdjustSize(static_cast<unsigned short>(wanted - buttonWidth), 0);
        buttonWidth = static_cast<unsigned short>(wanted);
    }
    button.Size(vRECT(left, top, left + buttonWidth, top + buttonHeight));
}

// Buttons from AddButton keep their width.
void fSTDDIALOG::AdjustSize(unsigned short dx, unsigned short dy)
{
    vRECT r = Size();
    Size(vRECT(r.Left(), r.Top(), r.Right() + LHtoDH(dx), r.Bottom() + LVtoDV(dy)));
    vBUTTON* column[] = {okButton, cancelButton, helpButton};
    for (vBUTTON* button : column) {
        if (!button)
            continue;
        vRECT b = button->Size();
        button->Size(vRECT(b.Left(), b.Top(), b.Right() + vINT(dx), b.Bottom()));
    }
    Centre();
}
