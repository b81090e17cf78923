// The application: one per program, always made with new. It registers the
// library's window classes, makes the frame with its client window for
// document windows, runs the message loop, and keeps the program's language,
// accelerators, busy pointer and help file.
//
//     class NOTES : public vAPP {
//     public:
//         NOTES() : vAPP(vSTRING("NotesFrame"), vSTRING("Notes"), 1) {}
//         int vQueryClose() override { return 1; }
//     };
//     vAPP* vMain() { vAPP* app = new NOTES; app->Show(); return app; }

#pragma once

#include <windows.h>

#include "base/ctrlid.h"
#include "base/module.h"
#include "base/rect.h"
#include "base/resid.h"
#include "base/string.h"
#include "base/system.h"
#include "app/help.h"
#include "app/menu.h"
#include "app/message.h"

class vDIALOG;
class vDOCWIN;
class vWIN;

// How the document windows share the client window: the platform's cascade
// and tile, or the library's own rows and columns.
typedef long vMDIARRANGE;
enum : long {
    ARRANGE_CASCADE = 0,
    ARRANGE_TILE = 1,
    ARRANGE_ROWS = 2,
    ARRANGE_COLUMNS = 3
};

// The application: one per program, always made with new. It registers the
// window classes, owns the frame with its document client, the message loop,
// the menu bar, help and message boxes, and the program's language, and it
// keeps in step with the other programs of the family.
class ZKSHELL_API vAPP : public vMODULE {
public:
    vAPP(const vSTRING& className, const vSTRING& title, int mdi);
    vAPP(const vAPP&) = delete;
    vAPP& operator=(const vAPP&) = delete;
    virtual ~vAPP();

    virtual unsigned short Language() const;
    virtual int vSize(const vRECT& size);
    virtual int vQueryClose();
    virtual int vNewWindow();
    virtual int vCommand(const vCTRLID& id);
    virtual int vCommandHint(const vCTRLID& id, const vMENU& menu);
    virtual int vActivate();
    virtual int vSettingChange();

    static void* operator new(size_t size) noexcept;
    // Ends the message loop safely: quit is posted and everything queued
    // ahead of it is handled before the block goes.
    static void operator delete(void* block);

    // Sets the language from the program's version resource; 1 if it did.
    int Init();
    void Language(unsigned short value);

    void Close();
    void Show();
    void Hide();
    void Maximise();
    void Normalise();
    void Iconise();
    int IsMaximised() const;
    int IsIconised() const;
    vRECT Size() const;
    vRECT ClientSize() const;
    void Size(const vRECT& rect);
    vPOINT ScreenToClient(const vPOINT& point) const;
    vPOINT ClientToScreen(const vPOINT& point) const;

    HINSTANCE operator()() const;
    vHELP& Help();
    vMESSAGE& Message();
    void SetHelp(vSTRING& file);

    vRECT Margins() const;
    void Margins(const vRECT& distances);
    void ArrangeDocWins(vMDIARRANGE mode);
    vWIN* ActiveDocWin();
    unsigned short NoDocWin();

    vMENU* Menu();
    void SetMenuBar(vMENU& menu);
    void ClearMenuBar();
    void UpdateMenuBar();
    void ShowMenuBar();
    void HideMenuBar();

    int SetAccel(const vRESID& table);
    int SetIcon(const vRESID& icon);
    void BusyOn();
    void BusyOff();

    vSTRING GetSetCommand(const vSTRING& value);
    vSTRING GetAppDir();
    void Activate();
    void AlwaysOnTop(int onTop);
    void SetExceptionHandler(vEXCEPTION& handler);

private:
    friend class vWIN;
    friend class vMESSAGE;
    friend struct vSTARTUP;
    friend struct vAPPACCESS;
    friend class vDIALOG;
    friend class vDOCWIN;
    friend class vTAB;
    friend LRESULT CALLBACK MDIFrameProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    friend INT_PTR CALLBACK DlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    // The dialog that the message loops offer every message to first; null
    // when no dialog is up. One for the process.
    static HWND ActiveDialog();
    static void ActiveDialog(HWND dialog);
    // Non-zero if the active dialog took the message; both loops ask first.
    static int OfferToDialog(MSG& msg);

    int Init(HINSTANCE module);
    // The languages the base library speaks; any other becomes English (UK).
    static unsigned short KnownLanguage(unsigned short value);
    short Run(HINSTANCE instance, HINSTANCE previous);
    void FillWindowMenu();
    short Loop();
    int Translate(MSG& msg);

    void RegisterClasses(HINSTANCE program);
    void CreateClient();
    int MsgHandler(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    static LRESULT Unhandled(HWND frame, HWND client, UINT message, WPARAM wParam, LPARAM lParam);
    int DoSize(WPARAM kind);
    int DoClose(LRESULT& result);
    int DoActivateApp(WPARAM active);
    int DoCommand(WPARAM id);
    int BuildOwnMenu();

    void DestroyHiddenDocuments();

    int IsTilingMode() const;
    vINT Across(vDOCWIN& window) const;
    void TileAppend(vDOCWIN* window);
    void TileInsertHead(vDOCWIN* window);
    void TileRemove(vDOCWIN* window);
    void TileClear();
    int IsTiled(const vDOCWIN* window) const;
    void SizeActiveMDIWindow(vDOCWIN* window);
    void RemoveMDITileWindow(vDOCWIN* window);
    void SizeMDIWindows();
    void TileMDIWindows();
    void PositionMDIWindows();
    void DistMDIBreadth(vINT amount);
    vINT CalcClientBreadth();
    void ShareAround(vDOCWIN* window, const vRECT& r, int isNew);
    static vINT Share(vINT& space, vINT& count);

    int PaletteChange(HWND window, int foreground);
    static void PostPaletteChange(int foreground);
    static BOOL CALLBACK EnumChildProc(HWND window, LPARAM foreground);
    static BOOL CALLBACK EnumTaskTopWinProc(HWND window, LPARAM foreground);

    vDOCWIN* pTileHead;
    vDOCWIN* pTileTail;
    unsigned short nTile;
    int bBusy;
    HACCEL hAccel;
    int bMDI;
    vMENU windowMenu;
    vHELP* pHelp;
    vSTRING* pCommand;
    vMESSAGE* pMessage;
    vMENU* pMenuBar;
    vMENU* pOwnMenu;
    HWND hFrame;
    HWND hClient;
    vRECT margins;
    vMDIARRANGE arrange;
    unsigned short language;
    HINSTANCE regCookie;
    vEXCEPTION* pException;
    vSTRING className;

    static HWND hActiveDialog;
};

// The window procedure of the frame: it carries the application object in
// window long 0 and deletes it when the frame goes.
ZKSHELL_API LRESULT CALLBACK MDIFrameProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
