#pragma once

#include "controls/button.h"

// A push button that stays in or out: each click inside it flips its lasting
// state. It keeps the platform's button for painting and the keyboard, but
// follows the mouse itself, pressing in while the pointer is over it during
// a press.
class ZKSHELL_API vTOGGLEBTN : public vBUTTON {
public:
    vTOGGLEBTN(const vWIN& parent, const vCTRLID& id, const vSTRING& text, const vRECT& rect,
               vCLASSID classId = CLASSID_TOGGLEBTN);

    int vDraw(const vRECT& rect) override;
    void UpdateView(const vCTRLID& id) override;
    int vMouseMove(const vPOINT& point) override;
    int vMouseLeftPress(const vPOINT& point) override;
    int vMouseLeftRelease(const vPOINT& point) override;
    int vMouseLeftDoublePress(const vPOINT& point) override;
    void SetupView(char* value, unsigned short length) override;
    void UpdateData(void* data) override;

    virtual void Selected(int on);
    virtual int Selected();
    // Wipes the focus frame that vDraw left round the label; the window
    // system never calls it.
    virtual int vReleaseFocus();
    using vWIN::vReleaseFocus;

    static vCONTROL* New(vWIN& parent, vCTRLID& id, vRESID& text);

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    long recessed;
    long tracking;
    long toggled;

private:
    int StrictlyInside(const vPOINT& point) const;
    RECT ShownLabel() const;
};
