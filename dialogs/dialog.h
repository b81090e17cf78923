// Dialogs: a template resource, a table of the controls made on its items,
// and one block of the program's data that the controls show and fill in.
// fSTDDIALOG adds the standard column of OK, Cancel and Help buttons.
//
//     const vCONTROLMAP orderMap[] = {{NAMEFIELD::New, 101, 0, offsetof(ORDER, name), 40}, {nullptr, 0, 0, 0, 0}};
//     class ORDERBOX : public fSTDDIALOG {
//     public:
//         ORDERBOX(const vWIN& owner, ORDER& order) : fSTDDIALOG(owner, vRESID(ORDER_TEMPLATE, owner.Application()),
//             STD_OK | STD_CANCEL, orderMap, &order, vSTRING("Order"), 1) { Init(); }
//     };
//     (new ORDERBOX(frame, order))->Modal();  // back once OK or Cancel has closed it

#pragma once

#include "app/capwin.h"
#include "controls/control.h"
#include "dialogs/controlmap.h"

struct tagMSG;

// The class identifier of every dialog the library makes; any other leaves
// the platform window to the caller.
const vCLASSID CLASSID_DIALOG = static_cast<vCLASSID>(11);

// A dialog made from a template resource, or from a built-in empty one, whose
// logical units are dialog units. Its controls come from a control map and
// share the values of one application data block; it runs modeless, or modal
// with a message loop of its own, and routes OK, Cancel and Help to vClick.
class ZKSHELL_API vDIALOG : public vCAPWIN {
public:
    vDIALOG(const vWIN& parent, const vRESID& tmpl, const vCONTROLMAP* map, void* data, const vSTRING& title,
            int modal, const vCLASSID& classId = CLASSID_DIALOG);
    vDIALOG(const vAPP& app, const vRESID& tmpl, const vCONTROLMAP* map, void* data, const vSTRING& title,
            int modal, const vCLASSID& classId = CLASSID_DIALOG);
    ~vDIALOG() override;

    vWIN* Child(const vCTRLID& id) override;
    void Close() override;
    vINT BorderWidth() override;
    vINT BorderHeight() override;
    int vClick(const vCTRLID& id) override;
    vRESID ResTemplate() const override;

    virtual int vContextHelp(HWND control, vCTRLID& id, int fromMenu);
    // The message loops offer every queued message here first.
    virtual int HandleMessage(tagMSG& msg);
    // The window that the message loops are to offer messages to.
    virtual vWIN& GetWindow();
    virtual int vThumbMove(const vWIN* bar, const vINT& pos);

    using vWIN::UpdateView;

    void Modal();
    void MakeModal();
    void MakeModeless();
    int IsModal() const;
    void Centre();
    vCONTROL* GetKeyboardInterface() const;

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    // Makes, fills and shows the controls; true if the map names no control
    // to focus, and the caller is to see to the focus.
    int Init();
    void SetKeyboardInterface(vCONTROL* control);

    // For the dialog classes built on this one.
    void SetupView(int thenUpdate);
    void UpdateView();
    void UpdateData(void* data);
    HWND GetWinApex();
    void CreateWin(HWND parent);

    vCTRLID firstFocus;
    int dataUpdated;
    int modal;
    // Kept beside vWIN's own on purpose: ResTemplate answers this one, so a
    // dialog's template never disturbs the window's own resource number.
    vRESID resTemplate;
    const vCONTROLMAP* controlMap;
    void* viewData;
    vCONTROL* keyboardInterface;

private:
    friend INT_PTR CALLBACK DlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    void Command(unsigned int wParam);
    void Help(const HELPINFO& info);
    HWND CreateBuiltIn(HWND parent);
    void UseDialogFont();
    void UseDialogUnits();
    void Store(const vRESID& tmpl, const vCONTROLMAP* map, void* data, int isModal);
    template <typename VISIT>
    void EachChild(VISIT visit);

    // The dialog whose window is being made: the platform's first message
    // to the window finds the object here, never in a creation parameter.
    static vDIALOG* gDialogBeingCreated;
    // Set by the caption's help button, taken by the next help request.
    static int gContextHelpPending;
};

// The dialog procedure of every library dialog: it binds the object at the
// first message, closes by destroying the window, and hands everything else
// to the object's MsgHandler.
ZKSHELL_API INT_PTR CALLBACK DlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

#include "dialogs/stddialog.h"
