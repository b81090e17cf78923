#include "controls/control.h"

namespace {

// The light grey of the cells that the faces are cut from.
const vCOLOUR KeyColour(192, 192, 192);

}  // namespace

vBITBUT::vBITBUT(const vWIN& parent, const vCTRLID& id, const vBITMAP& plain, const vRECT& rect, int isDefault,
                 vCLASSID classId)
    : vBUTTON(parent, id, vSTRING(), rect, isDefault, classId), face(CopyOf(plain)), selectedFace(nullptr),
      focusFace(nullptr), disabledFace(nullptr)
{
    if (classId != CLASSID_BITBUT)
        return;
    flags &= ~WINF_ERASE;
    if (hWnd) {
        BindInstance(hWnd);
        SubClass();
        return;
    }
    vRECT r = bound;
    if (face && !Fits(*face, r))
        r = FitTo(*face);
    CreateParams.rect = r;
    CreateWin();
    if (isDefault)
        SetDefault();
}

vBITBUT::~vBITBUT()
{
    delete face;
    delete selectedFace;
    delete focusFace;
    delete disabledFace;
}

vCONTROL* vBITBUT::New(vWIN& parent, vCTRLID& id, vRESID& text)
{
    return new vBITBUT(parent, id, vBITMAP(text), vRECT(0, 0, 0, 0), 0, CLASSID_BITBUT);
}

int vBITBUT::Bitmaps(const vBITMAP* selected, const vBITMAP* focus, const vBITMAP* disabled, const vBITMAP* plain)
{
    Replace(selectedFace, selected);
    Replace(focusFace, focus);
    Replace(disabledFace, disabled);
    Replace(face, plain);
    return 1;
}

// An invalid face counts as absent, and the one it replaces is gone.
void vBITBUT::Replace(vBITMAP*& field, const vBITMAP* given)
{
    if (!given)
        return;
    delete field;
    field = given->Valid() ? CopyOf(*given) : nullptr;
}

// A pressed, disabled button gets the disabled face over the selected one:
// the disabled step deliberately draws over whatever was drawn before it, so
// that a disabled face with key-coloured holes lets the pressed look through
// (the "pressed-disabled" row of BitBut.EachStateShowsItsFaceWithoutTheKeyColour).
int vBITBUT::vDraw(const vRECT&)
{
    if (IsHidden())
        return 1;
    HDC dc = ActivateDC();
    COLORREF oldColour = SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
    vPOINT centre = Centre();
    int todo = 1;
    if (pressed) {
        todo = 0;
        DrawFace(selectedFace, centre);
    }
    if (::GetFocus() == hWnd && todo) {
        todo = 0;
        DrawFace(focusFace, centre);
    }
    if (!Enabled()) {
        todo = 0;
        DrawFace(disabledFace, centre);
    }
    if (todo && face)
        DrawFace(face, centre);
    vSYSTEM::Trace(0, "vBITBUT - vDRAW");
    SetBkColor(dc, oldColour);
    return 1;
}

void vBITBUT::DrawFace(const vBITMAP* chosen, const vPOINT& centre)
{
    const vBITMAP* shown = chosen ? chosen : face;
    if (shown)
        shown->DrawTransparent(*this, centre, KeyColour);
}

void vBITBUT::UpdateView(const vCTRLID&)
{
    vDraw(*Bound());
}

void vBITBUT::SetupView(char*, unsigned short) {}

void vBITBUT::UpdateData(void*) {}
