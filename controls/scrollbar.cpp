#include "controls/control.h"

vSCROLLBAR::vSCROLLBAR(const vWIN& parent, const vCTRLID& id, const vRECT& rect, vCLASSID classId)
    : vCONTROL(parent, id, rect, vSTRING(), classId), thumbSize(0), attached{nullptr, nullptr, nullptr},
      horizontal(0)
{
    lstrcpyA(CreateParams.szClassName, "scrollbar");
    CreateParams.lpszTitle = nullptr;
    CreateParams.hMenuOrId = reinterpret_cast<HMENU>(static_cast<UINT_PTR>(static_cast<unsigned short>(id)));
}

// Only the first attached window is told that the bar is gone; the others
// keep their pointer, as they always have.
vSCROLLBAR::~vSCROLLBAR()
{
    for (vWIN* window : attached) {
        if (window) {
            SlotIn(*window) = nullptr;
            return;
        }
    }
}

// The bars are opaque: the erase is skipped, and the platform paints.
void vSCROLLBAR::MakeBar()
{
    flags &= ~WINF_ERASE;
    CreateOrAdopt();
}

int vSCROLLBAR::DoDraw()
{
    return 0;
}

vINT vSCROLLBAR::DefaultWidth()
{
    return vINT(GetSystemMetrics(SM_CXVSCROLL));
}

// The width of the horizontal bar's arrow, not the bar's height: that is the
// number the bars have always been laid out by.
vINT vSCROLLBAR::DefaultHeight()
{
    return vINT(GetSystemMetrics(SM_CXHSCROLL));
}

vRANGE vSCROLLBAR::ScrollRange()
{
    int low = 0;
    int high = 0;
    GetScrollRange(hWnd, SB_CTL, &low, &high);
    return vRANGE(vINT(low), vINT(high));
}

void vSCROLLBAR::ScrollRange(const vRANGE& range)
{
    SetScrollRange(hWnd, SB_CTL, vINT(range.low)(), vINT(range.high)(), TRUE);
}

// The product keeps only its low 16 bits before the division, so a large
// range wraps; that is how the size has always been reckoned.
void vSCROLLBAR::ThumbSizeRation(vINT percent)
{
    vRANGE range = ScrollRange();
    long span = vINT(range.high)() - vINT(range.low)();
    thumbSize = vINT(static_cast<unsigned short>(percent() * span) / 100);
}

void vSCROLLBAR::ThumbPos(const vINT& pos)
{
    SetScrollPos(hWnd, SB_CTL, pos(), TRUE);
}

vINT vSCROLLBAR::ThumbPos()
{
    return vINT(GetScrollPos(hWnd, SB_CTL));
}

// A fourth window finds no place and is left out in silence. A window may
// take more than one place.
void vSCROLLBAR::AttachWindow(vWIN* window)
{
    if (!window)
        return;
    for (vWIN*& place : attached) {
        if (!place) {
            place = window;
            SlotIn(*window) = this;
            return;
        }
    }
}

void vSCROLLBAR::DetachWindow(vWIN* window)
{
    if (!window)
        return;
    for (vWIN*& place : attached) {
        if (place == window) {
            place = nullptr;
            SlotIn(*window) = nullptr;
            return;
        }
    }
}

vSCROLLBAR*& vSCROLLBAR::SlotIn(vWIN& window) const
{
    return horizontal ? window.pHorzScroll : window.pVertScroll;
}

// Every attached window hears the number as if its own bar had sent it.
void vSCROLLBAR::ScrollHandler(unsigned int message, unsigned int code)
{
    for (vWIN* window : attached) {
        if (!window)
            continue;
        if (message == WM_HSCROLL)
            window->DoHScroll(code, 0);
        else
            window->DoVScroll(code, 0);
    }
}

vVERTSCRLBAR::vVERTSCRLBAR(const vWIN& parent, const vCTRLID& id, const vRECT& rect, vCLASSID classId)
    : vSCROLLBAR(parent, id, rect, classId)
{
    horizontal = 0;
    CreateParams.dwStyle = WS_CHILD | WS_TABSTOP | SBS_VERT;
    vRECT placed = rect;
    if (!placed.Left())
        placed.Left(placed.Right() - DefaultWidth());
    CreateParams.rect = placed;
    if (classId == CLASSID_VERTSCRLBAR)
        MakeBar();
}

vHORZSCRLBAR::vHORZSCRLBAR(const vWIN& parent, const vCTRLID& id, const vRECT& rect, vCLASSID classId)
    : vSCROLLBAR(parent, id, rect, classId)
{
    horizontal = 1;
    CreateParams.dwStyle = WS_CHILD | WS_TABSTOP | SBS_HORZ;
    vRECT placed = rect;
    if (!placed.Top())
        placed.Top(placed.Bottom() - DefaultHeight());
    CreateParams.rect = placed;
    if (classId == CLASSID_HORZSCRLBAR)
        MakeBar();
}
