#include "controls/control.h"

namespace {

// How the text sits across its control, by the platform's static alignment.
UINT TextFormat(DWORD style)
{
    UINT across = DT_LEFT;
    if (style & SS_CENTER)
        across = DT_CENTER;
    else if (style & SS_RIGHT)
        across = DT_RIGHT;
    return DT_VCENTER | DT_SINGLELINE | across;
}

vRECT FromPlatform(const RECT& box)
{
    return vRECT(box.left, box.top, box.right, box.bottom);
}

}  // namespace

vTEXT::vTEXT(const vWIN& parent, const vCTRLID& id, const vRECT& rect, const vSTRING& caption, vCLASSID classId)
    : vCONTROL(parent, id, rect, caption, classId), hFont(nullptr), textColour()
{
    lstrcpyA(CreateParams.szClassName, "static");
    if (classId == CLASSID_TEXT) {
        if (parent())
            hFont = reinterpret_cast<HFONT>(SendMessageA(parent(), WM_GETFONT, 0, 0));
        CreateOrAdopt();
        // Without the parent's font there is nothing to measure by, and the
        // control keeps its zero size. The width serves for both sides.
        if (rect == vRECT(0, 0, 0, 0) && hFont) {
            vINT side = GetTextWidth();
            vCONTROL::Size(vRECT(vINT(0), vINT(0), side, side));
        }
    }
    BackgroundColour(parent.BackgroundColour());
    Hide();
}

// The text is drawn by the object, in the parent's font and the control's
// own colour, over a wipe in the background colour.
void vTEXT::Text(const vSTRING& newText)
{
    Keep(newText);
    int held;
    HDC dc = Borrow(held);
    Wipe();
    ShowText(dc);
    GiveBack(held);
}

vSTRING vTEXT::Text()
{
    return vCONTROL::Text();
}

void vTEXT::Keep(const vSTRING& newText)
{
    const char* from = newText() ? newText() : "";
    vMemFree(text);
    text = static_cast<char*>(vMemAlloc(lstrlenA(from) + 1));
    lstrcpyA(text, from);
}

void vTEXT::Wipe()
{
    LineSpec(vLINESPEC(vLINE_NONE, vCOLOUR(0, 0, 0), 1, vCORNER_BEVEL, vDASH_DOT, nullptr));
    FillSpec(vFILLSPEC(vFILL_SOLID, BackgroundColour(), BackgroundColour(), vANGLE(), vFILL_ALTERNATE));
    ClientSize().Draw(*this);
}

void vTEXT::ShowText(HDC dc)
{
    HGDIOBJ oldFont = hFont ? SelectObject(dc, hFont) : nullptr;
    COLORREF oldColour = SetTextColor(dc, textColour.PackedRGB());
    int oldMode = SetBkMode(dc, TRANSPARENT);
    RECT box = {0, 0, 0, 0};
    GetClientRect(hWnd, &box);
    ::DrawTextA(dc, text ? text : "", -1, &box, TextFormat(GetWindowLongA(hWnd, GWL_STYLE)));
    SetBkMode(dc, oldMode);
    SetTextColor(dc, oldColour);
    if (oldFont)
        SelectObject(dc, oldFont);
}

// The whole control is drawn again, whatever the area.
int vTEXT::vDraw(const vRECT&)
{
    Text(Text());
    return 1;
}

void vTEXT::UpdateView(const vCTRLID&)
{
    vDraw(ClientSize());
}

void vTEXT::SetTextColour(vCOLOUR colour)
{
    textColour = colour;
}

// Measured in the parent's font, cut to 16 bits.
vINT vTEXT::GetTextWidth()
{
    int held;
    HDC dc = Borrow(held);
    HGDIOBJ oldFont = hFont ? SelectObject(dc, hFont) : nullptr;
    vSTRING shown = Text();
    SIZE extent = {0, 0};
    GetTextExtentPoint32A(dc, shown(), shown.Length(), &extent);
    if (oldFont)
        SelectObject(dc, oldFont);
    GiveBack(held);
    return vINT(static_cast<unsigned short>(extent.cx));
}

vINT vTEXT::GetTextHeight()
{
    return GetTextWidth();
}

vICON::vICON(const vWIN& parent, const vCTRLID& id, const vRESID& icon, const vRECT& rect, vCLASSID classId)
    : vCONTROL(parent, id, rect, vSTRING(), classId), hIcon(LoadIconA(icon.Instance(), MAKEINTRESOURCEA(icon()))),
      iconSize(0, 0)
{
    lstrcpyA(CreateParams.szClassName, "static");
    if (classId == CLASSID_ICON)
        CreateOrAdopt(SS_ICON);
    iconSize = vPOINT(GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON));
}

// The icon goes on the parent's surface at the control's place, not on the
// control's own window; without a parent nothing is drawn.
int vICON::vDraw(const vRECT&)
{
    vWIN* parent = Parent();
    if (!parent)
        return 1;
    HDC dc = parent->GetWinDC();
    if (dc) {
        DrawIcon(dc, bound.Left()(), bound.Top()(), hIcon);
        ::ReleaseDC((*parent)(), dc);
    }
    return 1;
}

void vICON::UpdateView(const vCTRLID&)
{
    vDraw(vRECT(0, 0, 40, 40));
}

vGROUPBOX::vGROUPBOX(const vWIN& parent, const vCTRLID& id, const vSTRING& title, const vRECT& rect,
                     vCLASSID classId)
    : vCONTROL(parent, id, rect, title, classId)
{
    if (classId != CLASSID_GROUPBOX)
        return;
    flags &= ~WINF_ERASE;
    if (!hWnd) {
        lstrcpyA(CreateParams.szClassName, "button");
        CreateParams.lpszTitle = title();
        CreateParams.dwStyle |= WS_DISABLED | BS_OWNERDRAW;
        CreateWin();
    } else {
        BindInstance(hWnd);
        SubClass();
        Disable();
    }
    // The box paints its whole area and lies under the controls it holds, so
    // it must leave them out of its painting or it wipes them whenever it
    // paints after them.
    SetWindowLongA(hWnd, GWL_STYLE, GetWindowLongA(hWnd, GWL_STYLE) | WS_CLIPSIBLINGS);
    SetWindowPos(hWnd, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOREDRAW | SWP_NOACTIVATE);
}

// The box has no drawing of its own beyond the frame, so a dependent's
// update reaches only the device's default.
void vGROUPBOX::UpdateView(const vCTRLID&)
{
    vDraw(vRECT(0, 0, 40, 40));
}

// The platform paints the button, which asks the parent to draw the item.
int vGROUPBOX::DoDraw()
{
    return 0;
}

// An outer raised and an inner sunk frame on the face colour, with the title
// between them at the top left. The parent then draws what it shows inside.
int vGROUPBOX::ccPaint(tagDRAWITEMSTRUCT* item)
{
    BeginDraw(item->hDC);
    ClearClipArea();
    vRECT box = FromPlatform(item->rcItem);
    vCOLOUR face = GetScreen().Colour(vSCREEN_3DFACE);
    LineSpec(vLINESPEC(vLINE_SOLID, face, 1, vCORNER_BEVEL, vDASH_DOT, nullptr));
    FillSpec(vFILLSPEC(vFILL_SOLID, face, vCOLOUR(), vANGLE(), vFILL_ALTERNATE));
    DrawRect(box);
    DrawBorder(box, 1);
    vRECT inner = box;
    inner.Expand(-4, -4);
    if (Text().Length())
        inner.Top(Title(item->hDC, box));
    DrawBorder(inner, 0);
    EndDraw();
    if (vWIN* parent = Parent())
        parent->vDraw(inner);
    return 1;
}

vINT vGROUPBOX::Title(HDC dc, const vRECT& box)
{
    TEXTMETRICA metrics = {};
    GetTextMetricsA(dc, &metrics);
    vRECT title = box;
    title.Bottom(title.Top() + vINT(metrics.tmHeight + 3));
    title.Left(title.Left() + vINT(metrics.tmMaxCharWidth));
    DrawLabel(title, vTEXT_LEFT, 0);
    return title.Bottom();
}
