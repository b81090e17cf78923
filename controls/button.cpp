#include "controls/control.h"

vBUTTON::vBUTTON(const vWIN& parent, const vCTRLID& id, const vBITMAP& face, const vRECT& rect, int isDefault,
                 vCLASSID classId)
    : vCONTROL(parent, id, rect, vSTRING(), classId), bitmap(CopyOf(face)), pressedBitmap(nullptr),
      focusBitmap(nullptr), disabledBitmap(nullptr), pressed(0), labelLeft(0), labelTop(0), labelRight(0),
      labelBottom(0)
{
    vRECT r = bound;
    ClientCorners();
    PrepareCreation(isDefault ? BS_DEFPUSHBUTTON : 0);
    if (classId != CLASSID_BUTTON)
        return;
    flags &= ~WINF_ERASE;
    if (hWnd) {
        BindInstance(hWnd);
        SubClass();
    } else {
        if (bitmap && !Fits(*bitmap, r))
            r = FitTo(*bitmap);
        CreateParams.rect = r;
        CreateWin();
    }
    ApplyFont();
}

vBUTTON::vBUTTON(const vWIN& parent, const vCTRLID& id, const vSTRING& text, const vRECT& rect, int isDefault,
                 vCLASSID classId)
    : vCONTROL(parent, id, rect, text, classId), bitmap(nullptr), pressedBitmap(nullptr), focusBitmap(nullptr),
      disabledBitmap(nullptr), pressed(0), labelLeft(0), labelTop(0), labelRight(0), labelBottom(0)
{
    ClientCorners();
    PrepareCreation(isDefault ? WS_CHILD | BS_DEFPUSHBUTTON : 0);
    if (classId == CLASSID_BUTTON) {
        CreateOrAdopt();
        if (text.Length())
            Text(text);
    }
    vSTRING shown = Text();
    if (shown.Length())
        SetupText(shown);
    ApplyFont();
}

vBUTTON::~vBUTTON()
{
    delete bitmap;
    delete pressedBitmap;
    delete focusBitmap;
    delete disabledBitmap;
}

vCONTROL* vBUTTON::New(vWIN& parent, vCTRLID& id, vRESID& text)
{
    return new vBUTTON(parent, id, vSTRING(text), vRECT(-1, -1, -1, -1), 0, CLASSID_BUTTON);
}

// The copy draws like the original; a failed allocation leaves no face.
vBITMAP* vBUTTON::CopyOf(const vBITMAP& face)
{
    return new vBITMAP(face, face.Size());
}

void vBUTTON::ClientCorners()
{
    left = 0;
    top = 0;
    right = bound.Width()();
    bottom = bound.Height()();
}

void vBUTTON::PrepareCreation(DWORD defaultStyle)
{
    lstrcpyA(CreateParams.szClassName, "button");
    CreateParams.lpszTitle = nullptr;
    CreateParams.dwStyle |= defaultStyle;
    CreateParams.rect = bound;
    CreateParams.hMenuOrId = reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id));
}

// A face needs a margin of 3 on every side for the platform's frame.
int vBUTTON::Fits(const vBITMAP& face, const vRECT& rect)
{
    vRECT size = face.Size();
    return rect.Width()() - 6 >= size.Width()() && rect.Height()() - 6 >= size.Height()();
}

// The button grows round the face, from the corner it was given.
vRECT vBUTTON::FitTo(const vBITMAP& face)
{
    vRECT r = face.Size() + vPOINT(3, 3);
    r.Expand(6, 6);
    r = r + bound.TopLeft();
    Size(r);
    return r;
}

void vBUTTON::ApplyFont()
{
    FontSpec(vFONTSPEC("MS Sans Serif", vFONT_NORMAL, 8, vREAL(0), 100, vFONT_POINTS, vANGLE(short(0))));
}

void vBUTTON::SetDefault()
{
    SendMessageA((*Parent())(), DM_SETDEFID, id, 0);
    SendMessageA(hWnd, BM_SETSTYLE, BS_DEFPUSHBUTTON, 1);
}

void vBUTTON::Push()
{
    SendMessageA(hWnd, BM_SETSTATE, 1, 0);
    SendMessageA(hWnd, BM_SETSTATE, 0, 0);
}

void vBUTTON::Text(const vSTRING& newText)
{
    SetWindowTextA(hWnd, newText());
}

vSTRING vBUTTON::Text()
{
    if (!IsWindow(hWnd))
        return vSTRING();
    char* buffer = vSYSTEM::GetBuffer();
    GetWindowTextA(hWnd, buffer, 500);
    return vSTRING("%s", buffer);
}

// The argument is ignored: Enable always enables.
int vBUTTON::Enable(int)
{
    if (Enabled())
        return 0;
    Invalidate();
    return vWIN::Enable(1);
}

int vBUTTON::Disable()
{
    if (!Enabled())
        return 0;
    Invalidate();
    return vWIN::Enable(0);
}

void vBUTTON::Size(const vRECT& rect)
{
    vRECT r = LPtoDP(rect);
    left = 0;
    top = 0;
    right = r.Width()();
    bottom = r.Height()();
    vCONTROL::Size(rect);
}

vRECT vBUTTON::Size() const
{
    return vCONTROL::Size();
}

void vBUTTON::UpdateView(const vCTRLID&) {}

void vBUTTON::SetupView(char*, unsigned short) {}

void vBUTTON::UpdateData(void*) {}

int vBUTTON::vMouseLeftDoublePress(const vPOINT&)
{
    vDraw(*Bound());
    return 0;
}

// The label is centred in the button. A text without "&" is measured
// without its last character; that is deliberate and kept, as the buttons of
// existing dialogs are laid out by that width
// (ButtonText.LabelIsMeasuredWithoutAmpersandsAndOneShortWithoutThem pins it).
void vBUTTON::SetupText(const vSTRING& newText)
{
    if (!newText.Length())
        return;
    HDC dc = ActivateDC();
    SIZE whole = {0, 0};
    GetTextExtentPoint32A(dc, newText(), newText.Length(), &whole);
    long w = whole.cx;
    long h = whole.cy;
    vCONTROL::SetupText(newText);
    unsigned short accel = StripAccelerators(newText);
    if (accel < newText.Length()) {
        SIZE part = {0, 0};
        GetTextExtentPoint32A(dc, vSYSTEM::GetBuffer(), newText.Length() - 1, &part);
        w = part.cx;
    }
    long width = bound.Width()();
    labelTop = (bound.Bottom()() - bound.Top()()) / 2 - h / 2;
    if (width >= w) {
        labelRight = w + 6;
        labelLeft = (width - w) / 2;
    } else {
        labelLeft = 6;
        labelRight = width - 6;
    }
    labelBottom = labelTop + h;
}

// Copies the text to the process buffer without its "&" characters and
// answers the index of the last of them, 0 when there is none.
unsigned short vBUTTON::StripAccelerators(const vSTRING& from)
{
    char* buffer = vSYSTEM::GetBuffer();
    const char* source = from();
    unsigned short accel = 0;
    unsigned short kept = 0;
    for (unsigned short at = 0; source[at]; ++at) {
        if (source[at] == '&')
            accel = at;
        else
            buffer[kept++] = source[at];
    }
    buffer[kept] = 0;
    return accel;
}

// The platform paints its button first and the face goes on top. The
// platform's paint validates the update region, so it is saved before and
// given back for the second pass.
int vBUTTON::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    HRGN update = nullptr;
    if (message == WM_PAINT) {
        vSYSTEM::Trace(0, "vBUTTON - WM_PAINT");
        update = CreateRectRgn(0, 0, 0, 0);
        GetUpdateRgn(hWnd, update, FALSE);
    }
    result = CallWindowProcA(pfnOldProc, hWnd, message, wParam, lParam);
    switch (message) {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        InvalidateRgn(hWnd, update, FALSE);
        DeleteObject(update);
        return DoDraw();
    case BM_SETSTATE:
        if (static_cast<long>(wParam) != pressed) {
            pressed = wParam;
            vDraw(vRECT(left, top, right, bottom));
        }
        return 1;
    default:
        // The platform has had the message already; 1 keeps it from getting
        // it a second time.
        vCONTROL::MsgHandler(message, wParam, lParam, result);
        return 1;
    }
}

// The text form draws nothing of its own: the platform drew the label.
int vBUTTON::vDraw(const vRECT&)
{
    if (bitmap)
        return DrawBitmap();
    ActivateFont();
    return 0;
}

int vBUTTON::DrawBitmap()
{
    if (IsHidden())
        return 1;
    HDC dc = ActivateDC();
    COLORREF oldColour = SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
    ChosenBitmap()->Draw(*this, Centre());
    SetBkColor(dc, oldColour);
    return 1;
}

// Focus before pressed, pressed before disabled; a missing face falls back
// to the plain one.
const vBITMAP* vBUTTON::ChosenBitmap() const
{
    const vBITMAP* chosen = nullptr;
    if (::GetFocus() == hWnd)
        chosen = focusBitmap;
    else if (pressed)
        chosen = pressedBitmap;
    else if (!Enabled())
        chosen = disabledBitmap;
    return chosen ? chosen : bitmap;
}

// A pressed face moves down and right, as the platform's pressed label does.
vPOINT vBUTTON::Centre() const
{
    vPOINT centre((right + left) / 2, (top + bottom) / 2);
    return pressed ? centre + vPOINT(1, 2) : centre;
}

int vBUTTON::DoRecess()
{
    HDC dc = ActivateDC();
    HPEN pen = CreatePen(PS_SOLID, 1, RGB(127, 127, 127));
    HGDIOBJ oldPen = SelectObject(dc, pen);
    MoveToEx(dc, left + 2, bottom - 3, nullptr);
    LineTo(dc, left + 2, top + 2);
    LineTo(dc, right - 2, top + 2);
    MoveToEx(dc, right - 4, top + 3, nullptr);
    LineTo(dc, left + 3, top + 3);
    LineTo(dc, left + 3, bottom - 4);
    SelectObject(dc, oldPen);
    DeleteObject(pen);
    return 1;
}

int vBUTTON::DoLabel(const tagRECT& rect)
{
    SetBkMode(GetZKDC(), TRANSPARENT);
    RECT box = rect;
    ::DrawTextA(GetZKDC(), Text()(), -1, &box, DT_VCENTER | DT_SINGLELINE);
    return 1;
}
