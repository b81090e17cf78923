#pragma once

#include "controls/control.h"

// One line of text on the platform's "edit" class. Its font follows the
// parent's font, or its own height when the parent has none; a recessed edge
// is drawn inside it after the platform's paint; and its view is updated when
// the user has typed, not when a program sets the text.
//
//     vEDITLINE* name = new vEDITLINE(frame, vCTRLID(5), vSTRING("untitled"), vRECT(10, 10, 160, 30));
//     name->MaxLength(vINT(40));
//     vSTRING typed = name->GetLine();
class ZKSHELL_API vEDITLINE : public vCONTROL {
public:
    vEDITLINE(const vWIN& parent, const vCTRLID& id, const vSTRING& text, const vRECT& rect,
              vCLASSID classId = CLASSID_EDITLINE);

    int vDraw(const vRECT& rect) override;
    void Size(const vRECT& rect) override;
    vRECT Size() const override;
    void UpdateView(const vCTRLID& id) override;
    void SetupView(char* value, unsigned short length) override;
    void UpdateData(void* data) override;
    // Sets what the window shows and nothing else; Text() answers the text
    // the control was made with. GetLine reads what the window shows.
    void Text(const vSTRING& text) override;
    vSTRING Text() override;

    void ReadOnly(int readOnly);
    vINT MaxLength() const;
    void MaxLength(const vINT& length);
    void Select(const vINT& from, const vINT& to);
    vINT Length() const;
    // At most the first 200 characters of the first line.
    vSTRING GetLine();

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    // The platform's own procedure, past the object.
    LRESULT Platform(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    unsigned short maxLength;
    long keyPending;

private:
    void FollowFont();
    int PassWatchingChange(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
};

// The many-line form of the edit line, with both scroll bars.
class ZKSHELL_API vEDITBOX : public vEDITLINE {
public:
    vEDITBOX(const vWIN& parent, const vCTRLID& id, const vSTRING& text, const vINT& maxRows, const vRECT& rect,
             vCLASSID classId = CLASSID_EDITBOX);
    ~vEDITBOX() override;

    using vEDITLINE::Text;
    // Replaces the kept text as well as what the window shows.
    void Text(char* text);

    // The rows the text has now; the kept maximum is only stored.
    vINT MaxRows() const;
    void MaxRows(vINT rows);
    vINT ViewRow();
    void ViewRow(vINT row);

protected:
    unsigned short maxRows;
};
