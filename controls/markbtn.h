#pragma once

#include "controls/button.h"

// The radio button and the check box: owner-drawn buttons whose mark is cut
// from the base library's sheet of marks, with the label to its right. The
// platform's button holds the focus, the keyboard and the clicks; the
// buttons paint themselves in ccPaint.

// One of a group of choices that exclude each other. The group is a range of
// identifiers that SetGroup gives each radio button in it; a click checks
// the button and clears the others of its group.
class ZKSHELL_API vRADIOBTN : public vBUTTON {
public:
    vRADIOBTN(const vWIN& parent, const vCTRLID& id, const vSTRING& text, const vRECT& rect,
              vCLASSID classId = CLASSID_RADIOBTN);
    ~vRADIOBTN() override;

    void Notification(long code) override;
    int ccPaint(tagDRAWITEMSTRUCT* item) override;

    virtual void Select();
    virtual int Selected();

    // Gives every radio button with an identifier from first's to last's the
    // group; 1 if any took it.
    int SetGroup(const vRADIOBTN& first, const vRADIOBTN& last);

    static vCONTROL* New(vWIN& parent, vCTRLID& id, vRESID& text);

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    int DoDraw() override;
    vCLASSID GetClassID() override;

    vCTRLID groupFirst;
    vCTRLID groupLast;
    long checked;
    vBITMAP* normalMark;
    vBITMAP* selectedMark;
    vBITMAP* disabledMark;

private:
    const vBITMAP* ShownMark();
};

// A box that is checked, clear, or in a third state that only a program
// sets; a click checks a box that is not checked and clears one that is.
class ZKSHELL_API vCHECKBOX : public vBUTTON {
public:
    vCHECKBOX(const vWIN& parent, const vCTRLID& id, const vSTRING& text, const vRECT& rect,
              vCLASSID classId = CLASSID_CHECKBOX);
    ~vCHECKBOX() override;

    void Notification(long code) override;
    int ccPaint(tagDRAWITEMSTRUCT* item) override;

    virtual void Check();
    virtual void Uncheck();
    virtual void Confuse();
    virtual int Checked();
    virtual int Confused();

    static vCONTROL* New(vWIN& parent, vCTRLID& id, vRESID& text);

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    int DoDraw() override;

    vBITMAP* normalMark;
    vBITMAP* checkedMark;
    vBITMAP* confusedMark;
    vBITMAP* disabledMark;
    unsigned short state;

private:
    const vBITMAP* ShownMark();
};
