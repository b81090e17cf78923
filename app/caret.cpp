#include "app/caret.h"

#include <windows.h>

#include "app/window.h"

namespace {

// The caret calls take their numbers as the old unsigned words.
unsigned short Word(const vINT& value)
{
    return static_cast<unsigned short>(value());
}

}  // namespace

// The caret is asked for without an owning window, as the library always
// has. The platform refuses a caret of no window, so this form shows none;
// the thread still keeps the position given to it.
vCARET::vCARET(vWIN&, vINT width, vINT height) : angle(), height(0), width(0)
{
    CreateCaret(nullptr, nullptr, Word(width), Word(height));
}

// The platform does not free a caret's bitmap and the caret has no field to
// keep it in, so each caret made this way leaves its bitmap to the process.
vCARET::vCARET(const vWIN& window, const vRESID& bitmap) : angle(), height(0), width(0)
{
    HBITMAP shape = LoadBitmapA(bitmap.Instance(), MAKEINTRESOURCEA(bitmap()));
    if (shape)
        CreateCaret(window(), shape, 0, 0);
}

vCARET::~vCARET()
{
    DestroyCaret();
}

void vCARET::Rotate(vANGLE turn)
{
    angle = turn;
}

vANGLE vCARET::Rotate()
{
    return angle;
}

void vCARET::Width(const vINT&) {}

void vCARET::Height(vINT) {}

vINT& vCARET::Width()
{
    return width;
}

vINT& vCARET::Height()
{
    return height;
}

void vCARET::Show(const vWIN&)
{
    ShowCaret(nullptr);
}

void vCARET::Hide(const vWIN&)
{
    HideCaret(nullptr);
}

void vCARET::Position(vPOINT point)
{
    SetCaretPos(Word(point.x), Word(point.y));
}

vPOINT vCARET::Position()
{
    POINT point;
    GetCaretPos(&point);
    return vPOINT(point.x, point.y);
}
