#pragma once

#include "controls/control.h"
#include "dialogs/dialog.h"

// The kinds of standard button that a style word asks for. A style of
// exactly STD_NOBUTTONS makes none and widens the dialog all the same.
enum : unsigned short {
    STD_OK = 1,
    STD_CANCEL = 2,
    STD_HELP = 4,
    STD_NOBUTTONS = 8
};

// A dialog with a column of push buttons down its right side: OK, Cancel and
// Help as the style asks, and up to three more that the application adds.
// The application's template describes only the left part; the dialog widens
// itself for the column. Clicks arrive as fOK, fCancel and fHelp.
class ZKSHELL_API fSTDDIALOG : public vDIALOG {
public:
    fSTDDIALOG(const vAPP& app, const vRESID& tmpl, unsigned short style, const vCONTROLMAP* map, void* data,
               const vSTRING& title, int modal);
    fSTDDIALOG(const vWIN& parent, const vRESID& tmpl, unsigned short style, const vCONTROLMAP* map, void* data,
               const vSTRING& title, int modal);
    ~fSTDDIALOG() override;

    int vClick(const vCTRLID& id) override;
    int vDraw(const vRECT& area) override;
    int vEnterKey() override;

    virtual int fCancel();
    virtual int fOK();
    virtual int fHelp();

    // Places a button of the caller's in one of three rows below the column;
    // the caller keeps it. 0 for a row above 2.
    int AddButton(vBUTTON& button, unsigned short row);
    vBUTTON* GetOK();
    vBUTTON* GetCancel();
    vBUTTON* GetHelp();

protected:
    using vDIALOG::Init;

    // The dialog takes over the new button; the one it replaces stays a
    // child of the window and is forgotten.
    void ReplaceOK(vBUTTON& button);
    void ReplaceCancel(vBUTTON& button);
    void ReplaceHelp(vBUTTON& button);

    vBUTTON** extraButtons;
    vBUTTON* okButton;
    vBUTTON* cancelButton;
    vBUTTON* helpButton;
    vPOINT tabOrigin;
    unsigned short buttonWidth;

private:
    void Init(unsigned short style);
    vBUTTON* MakeButton(unsigned short id, unsigned short text, long top);
    void ShowColumn();
    void Replace(vBUTTON*& field, vBUTTON& button, long top);
    void AdjustSize(unsigned short dx, unsigned short dy);
};
