#pragma once

#include "controls/editline.h"

// A number field: an edit line with two repeat keys beside it, up and down,
// that step the value by the increment between the lowest and the highest
// value. The keys are the parent's children, found through the nudge's
// dependencies, so a parent holds one nudge at a time.
//
//     vNUDGE* copies = new vNUDGE(dialog, vCTRLID(8), vRECT(10, 10, 40, 24));
//     copies->Range(1, 99);
//     copies->Increment(1);
class ZKSHELL_API vNUDGE : public vEDITLINE {
public:
    vNUDGE(const vWIN& parent, const vCTRLID& id, const vRECT& rect);

    // 0 takes the typed text as the value; the keys' identifiers step it.
    void UpdateView(const vCTRLID& id) override;
    using vWIN::vReleaseFocus;
    // Takes the typed value, or the nearer end of the range with a beep.
    virtual int vReleaseFocus();

    void Range(double lowest, double highest);
    void Increment(double step);
    // For an application's vCharacterKey: refuses what no number holds.
    int vCharacter(const vCHAR& ch);

protected:
    double value;
    double lowest;
    double highest;
    double increment;

private:
    void MakeKeys(const vWIN& parent);
    // Shows the value again, with the caret at its end.
    void Restore();
};
