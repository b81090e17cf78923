#pragma once

#include "controls/control.h"
#include "graphics/bitmap.h"

// A push button on the platform's "button" class. The text form is painted by
// the platform; the bitmap form is the platform's empty button with the face
// drawn on top of it.
class ZKSHELL_API vBUTTON : public vCONTROL {
public:
    vBUTTON(const vWIN& parent, const vCTRLID& id, const vBITMAP& face, const vRECT& rect, int isDefault = 0,
            vCLASSID classId = CLASSID_BUTTON);
    vBUTTON(const vWIN& parent, const vCTRLID& id, const vSTRING& text, const vRECT& rect, int isDefault = 0,
            vCLASSID classId = CLASSID_BUTTON);
    ~vBUTTON() override;

    int vDraw(const vRECT& rect) override;
    int Enable(int enable = 1) override;
    int Disable() override;
    void Size(const vRECT& rect) override;
    vRECT Size() const override;
    void UpdateView(const vCTRLID& id) override;
    int vMouseLeftDoublePress(const vPOINT& point) override;
    void SetupText(const vSTRING& text) override;
    void SetupView(char* value, unsigned short length) override;
    void UpdateData(void* data) override;
    void Text(const vSTRING& text) override;
    vSTRING Text() override;

    virtual void Push();

    void SetDefault();

    static vCONTROL* New(vWIN& parent, vCTRLID& id, vRESID& text);

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    int DoLabel(const tagRECT& rect);
    int DoRecess();
    int DrawBitmap();

    // A copy of a face that the button owns; null if memory runs out.
    static vBITMAP* CopyOf(const vBITMAP& face);
    // Whether the rectangle leaves the face a margin of 3 all round.
    static int Fits(const vBITMAP& face, const vRECT& rect);
    // Resizes the button round the face and answers the new rectangle.
    vRECT FitTo(const vBITMAP& face);
    // Where the faces are drawn: the middle, moved while pressed.
    vPOINT Centre() const;

    vBITMAP* bitmap;
    vBITMAP* pressedBitmap;
    vBITMAP* focusBitmap;
    vBITMAP* disabledBitmap;
    long pressed;
    long left;
    long top;
    long right;
    long bottom;
    long labelLeft;
    long labelTop;
    long labelRight;
    long labelBottom;

private:
    void ClientCorners();
    void PrepareCreation(DWORD defaultStyle);
    void ApplyFont();
    const vBITMAP* ChosenBitmap() const;
    static unsigned short StripAccelerators(const vSTRING& from);
};
