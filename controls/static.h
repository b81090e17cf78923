#pragma once

#include "controls/control.h"
#include "graphics/colour.h"

// The controls that show something and take no input.

// A line of text on the platform's "static" class, drawn by the object in
// the parent's font and its own colour. It starts hidden; the program shows
// it when its text is ready.
//
//     vTEXT* label = new vTEXT(frame, vCTRLID(5), vRECT(10, 10, 120, 26), vSTRING("Name:"));
//     label->SetTextColour(vCOLOUR(0, 0, 128));
//     label->Show();
class ZKSHELL_API vTEXT : public vCONTROL {
public:
    // A rectangle of all zero, in a parent that has a font, is sized to the
    // text.
    vTEXT(const vWIN& parent, const vCTRLID& id, const vRECT& rect, const vSTRING& text,
          vCLASSID classId = CLASSID_TEXT);
    // The font is the parent's and stays with it.
    ~vTEXT() override = default;

    int vDraw(const vRECT& area) override;
    void UpdateView(const vCTRLID& id) override;
    void SetupView(char*, unsigned short) override {}
    void UpdateData(void*) override {}
    void Text(const vSTRING& text) override;
    vSTRING Text() override;

    virtual int vKeyPress(vKEYCODE) { return 0; }

    // Shows at the next drawing, not before.
    void SetTextColour(vCOLOUR colour);
    vINT GetTextWidth();
    // The width as well: programs have always had the width from it, and it
    // stays so.
    vINT GetTextHeight();

protected:
    HFONT hFont;
    vCOLOUR textColour;

private:
    void Keep(const vSTRING& newText);
    void Wipe();
    void ShowText(HDC dc);
};

// An icon from a module's resources, drawn on the parent's surface at the
// control's place. An icon that cannot be found draws nothing.
class ZKSHELL_API vICON : public vCONTROL {
public:
    vICON(const vWIN& parent, const vCTRLID& id, const vRESID& icon, const vRECT& rect,
          vCLASSID classId = CLASSID_ICON);

    int vDraw(const vRECT& area) override;
    void UpdateView(const vCTRLID& id) override;
    void SetupView(char*, unsigned short) override {}
    void UpdateData(void*) override {}

protected:
    HICON hIcon;
    vPOINT iconSize;
};

// A titled frame round a group of controls: a disabled owner-drawn "button"
// at the bottom of the window order, so that the controls inside stay
// within reach of the mouse and the keyboard.
class ZKSHELL_API vGROUPBOX : public vCONTROL {
public:
    vGROUPBOX(const vWIN& parent, const vCTRLID& id, const vSTRING& title, const vRECT& rect,
              vCLASSID classId = CLASSID_GROUPBOX);

    void UpdateView(const vCTRLID& id) override;
    void SetupView(char*, unsigned short) override {}
    void UpdateData(void*) override {}
    int ccPaint(tagDRAWITEMSTRUCT* item) override;

protected:
    int DoDraw() override;

private:
    // Draws the title at the top left of the box and answers its bottom.
    vINT Title(HDC dc, const vRECT& box);
};
