// Controls: platform control windows bound to objects, made from code with
// a rectangle or adopted from a dialog template item of the same identifier
// when the rectangle is (-1, -1, -1, -1). Owner-drawn ones paint themselves
// through ccPaint; every one tells its parent of clicks through Notification.
//
//     vBUTTON* save = new vBUTTON(frame, vCTRLID(7), vSTRING("&Save"), vRECT(10, 10, 90, 34), 1);
//     // The frame's vCommand(vCTRLID(7)) runs when it is pressed;
//     // the button is the window's own and goes with it.

#pragma once

#include "app/window.h"
#include "base/keyboard.h"

struct tagDRAWITEMSTRUCT;

// How Border frames a control on its parent: a raised box with a white frame,
// or an etched double frame.
enum vBOXTYPE {
    vBOX_RAISED = 0,
    vBOX_ETCHED = 1
};

// The base of every control: a platform control window bound to an object and
// subclassed, made from code or adopted from a dialog template item by the
// same constructor. The platform window's title holds only the mnemonic; the
// full text stays in the object.
class ZKSHELL_API vCONTROL : public vWIN {
public:
    vCONTROL(const vWIN& parent, const vCTRLID& id, const vRECT& rect, const vSTRING& text, vCLASSID classId);
    vCONTROL(const vCONTROL& other);
    ~vCONTROL() override;

    void Size(const vRECT& rect) override;
    vRECT Size() const override;
    int vTimer(const vRESID& id) override;
    int vMouseMove(const vPOINT& point) override;

    virtual void SetupText(const vSTRING& text);
    virtual void Notification(long code);
    virtual int Border(vBOXTYPE type);
    virtual int Shadow();
    virtual void SetupView(char* value, unsigned short length) = 0;
    virtual void UpdateData(void* data) = 0;
    virtual int vProcessKeyboard(vKEYCODE key);
    virtual short vCompare(const vSTRING& first, const vSTRING& second);
    virtual const vSIZE ItemSize() const;
    virtual void Text(const vSTRING& text);
    virtual vSTRING Text();
    virtual int ccPaint(tagDRAWITEMSTRUCT* item);

    vRECT* Bound() const;
    unsigned short DrawLabel(const vRECT& rect, vTEXTALIGN align, int greyWhenDisabled);

    // The base makes nothing; a map row may still name it.
    static vCONTROL* New(vWIN& parent, vCTRLID& id, vRESID& text);

    // The control for which a command hint was last reported.
    static vCTRLID CurHintedCtr;

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    vCLASSID GetClassID() override;
    // Run by the most derived class: makes the platform window with the
    // style bits added, or takes over the template item the control adopted.
    void CreateOrAdopt(DWORD style = 0);

    vRECT bound;
    char* text;
    char hotCaption[3];

private:
    int Init(const vWIN& parent, const vCTRLID& id, const vSTRING& text, const vRECT& rect);
    void Adopt(const vWIN& parent, const vCTRLID& id);
    static void WipeBand(HDC dc, int l, int t, int r, int b);
    static void EtchedFrame(HDC dc, int l, int t, int r, int b);
    static void RaisedFrame(HDC dc, int l, int t, int r, int b);
};

#include "controls/button.h"
#include "controls/bitbut.h"
#include "controls/repeatkey.h"
#include "controls/togglebtn.h"
#include "controls/markbtn.h"
#include "controls/listbox.h"
#include "controls/scrollbar.h"
#include "controls/static.h"
#include "controls/editline.h"
#include "controls/nudge.h"
