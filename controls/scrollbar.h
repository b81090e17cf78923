#pragma once

#include "controls/control.h"
#include "base/range.h"

// A free-standing scroll bar on the platform's "scrollbar" class. Up to
// three windows attach to one bar, and each action of the bar is played to
// them as if it came from a bar of their own. The bar does not move its own
// thumb: the program sets ThumbPos.
//
//     vVERTSCRLBAR* bar = new vVERTSCRLBAR(frame, vCTRLID(4), vRECT(0, 0, 300, 200));
//     bar->ScrollRange(vRANGE(vINT(0), vINT(99)));
//     bar->AttachWindow(view);   // the view's vScroll... handlers now hear the bar
class ZKSHELL_API vSCROLLBAR : public vCONTROL {
public:
    vSCROLLBAR(const vWIN& parent, const vCTRLID& id, const vRECT& rect, vCLASSID classId);
    ~vSCROLLBAR() override;

    void SetupView(char*, unsigned short) override {}
    void UpdateData(void*) override {}

    static vINT DefaultWidth();
    static vINT DefaultHeight();

    vRANGE ScrollRange();
    void ScrollRange(const vRANGE& range);
    // The name is spelled so; the size is kept and nothing reads it.
    void ThumbSizeRation(vINT percent);
    void ThumbPos(const vINT& pos);
    vINT ThumbPos();

    void AttachWindow(vWIN* window);
    void DetachWindow(vWIN* window);

protected:
    int DoDraw() override;
    // Creates the bar, or binds the template item it adopted.
    void MakeBar();

    vINT thumbSize;
    vWIN* attached[3];
    int horizontal;

private:
    friend void vWIN::DoHScroll(WPARAM wParam, LPARAM lParam);
    friend void vWIN::DoVScroll(WPARAM wParam, LPARAM lParam);

    // The pointer of the window that stands for this bar's direction.
    vSCROLLBAR*& SlotIn(vWIN& window) const;
    void ScrollHandler(unsigned int message, unsigned int code);
};

// A vertical bar; given a rectangle with left 0, it hangs on the rectangle's
// right edge at the standard width.
class ZKSHELL_API vVERTSCRLBAR : public vSCROLLBAR {
public:
    vVERTSCRLBAR(const vWIN& parent, const vCTRLID& id, const vRECT& rect, vCLASSID classId = CLASSID_VERTSCRLBAR);

    void SetupView(char*, unsigned short) override {}
    void UpdateData(void*) override {}
};

// A horizontal bar; given a rectangle with top 0, it lies along the
// rectangle's bottom edge at the standard height.
class ZKSHELL_API vHORZSCRLBAR : public vSCROLLBAR {
public:
    vHORZSCRLBAR(const vWIN& parent, const vCTRLID& id, const vRECT& rect, vCLASSID classId = CLASSID_HORZSCRLBAR);

    void SetupView(char*, unsigned short) override {}
    void UpdateData(void*) override {}
};
