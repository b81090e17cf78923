#include "controls/control.h"

#include "core/resources/resourceids.h"

#include <cstdlib>

namespace {

// Fixed, so a parent holds one nudge at a time; programs know the keys by them.
const vCTRLID UpKey(100);
const vCTRLID DownKey(101);

// The arrow faces, cut from the marks sheet of the base library.
const vRECT UpCell(6, 4, 16, 10);
const vRECT DownCell(6, 11, 16, 17);

// The characters a number is typed with, besides the digits; 8 is Backspace.
const char NumberMarks[] = {'.', '+', '-', 8};

int IsNumberMark(char ch)
{
    for (char mark : NumberMarks)
        if (ch == mark)
            return 1;
    return 0;
}

}  // namespace

vNUDGE::vNUDGE(const vWIN& parent, const vCTRLID& controlId, const vRECT& rect)
    : vEDITLINE(parent, controlId, vSTRING(), rect, CLASSID_EDITLINE), value(1.0), lowest(1.0), highest(1.0),
      increment(1.0)
{
    value = lowest;
    SetWindowTextA(hWnd, vSTRING(vREAL(value))());
    MakeKeys(parent);
}

// The keys' rectangles are in the parent's logical units, the dialog units
// of a dialog, which its own mapping turns back into device units. The
// field's place is taken back through the same mapping rather than through
// the system font's dialog units: a dialog's units follow its own font, and
// only the same mapping both ways puts the keys beside the field.
void vNUDGE::MakeKeys(const vWIN& parent)
{
    vWIN& mapping = const_cast<vWIN&>(parent);
    vPOINT topLeft = mapping.DPtoLP(vPOINT(bound.Left(), bound.Top()));
    vPOINT bottomRight = mapping.DPtoLP(vPOINT(bound.Right(), bound.Bottom()));
    long top = topLeft.y();
    long bottom = bottomRight.y();
    long right = bottomRight.x();
    long half = static_cast<short>((bottom - top) / 2);
    vBITMAP upFace(vRESID(BMP_MARKS, vSYSTEM::Pointer()), UpCell);
    vBITMAP downFace(vRESID(BMP_MARKS, vSYSTEM::Pointer()), DownCell);
    vREPEATKEY* up = new vREPEATKEY(parent, UpKey, upFace, vRECT(right + 3, top - 1, half + right + 3, top + half - 1));
    vREPEATKEY* down =
        new vREPEATKEY(parent, DownKey, downFace, vRECT(right + 3, bottom - half + 1, half + right + 3, bottom + 1));
    SetDepend(up);
    SetDepend(down);
}

void vNUDGE::Range(double low, double high)
{
    lowest = low;
    highest = high;
    value = lowest;
}

void vNUDGE::Increment(double step)
{
    increment = step;
}

// A step may land exactly on either end. Zero is shown as an empty field on
// purpose, so that a field that counts from nothing reads as unset.
void vNUDGE::UpdateView(const vCTRLID& changedId)
{
    if (changedId == vCTRLID(0)) {
        value = std::atof(GetLine()());
        return;
    }
    if (changedId == UpKey && value + increment <= highest)
        value += increment;
    if (changedId == DownKey && lowest <= value - increment)
        value -= increment;
    SetWindowTextA(hWnd, value == 0.0 ? "" : vSTRING(vREAL(value))());
}

int vNUDGE::vReleaseFocus()
{
    double typed = std::atof(GetLine()());
    if (typed < lowest || typed > highest) {
        MessageBeep(static_cast<UINT>(-1));
        value = typed < lowest ? lowest : highest;
        Restore();
    } else {
        value = typed;
    }
    return 1;
}

int vNUDGE::vCharacter(const vCHAR& ch)
{
    if (!ch.IsCharNumeric() && !IsNumberMark(ch())) {
        MessageBeep(static_cast<UINT>(-1));
        Restore();
    }
    return 1;
}

void vNUDGE::Restore()
{
    SetWindowTextA(hWnd, vSTRING(vREAL(value))());
    Select(Length(), Length());
}
