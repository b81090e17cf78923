#include "controls/control.h"

#include "app/pointer.h"
#include "base/memory.h"

#include <initializer_list>

vCTRLID vCONTROL::CurHintedCtr(0);

namespace {

// Both rectangles come from the same logical point, so a template parent's
// own units cannot hide the adoption mark.
const vRECT AdoptMark(-1, -1, -1, -1);

char* CopyText(const char* source)
{
    char* copy = static_cast<char*>(vMemAlloc(lstrlenA(source) + 1));
    lstrcpyA(copy, source);
    return copy;
}

void Lines(HDC dc, HGDIOBJ pen, std::initializer_list<POINT> points)
{
    HGDIOBJ old = SelectObject(dc, pen);
    Polyline(dc, points.begin(), static_cast<int>(points.size()));
    SelectObject(dc, old);
}

vTEXTALIGN AlignOf(DWORD style)
{
    if (style & 1)
        return vTEXT_CENTRE;
    if (style & 2)
        return vTEXT_RIGHT;
    return vTEXT_LEFT;
}

}  // namespace

vCONTROL::vCONTROL(const vWIN& parent, const vCTRLID& controlId, const vRECT& rect, const vSTRING& caption,
                   vCLASSID classId)
    : vWIN(parent, rect, WF_NONE, classId), bound(0, 0, 0, 0), text(nullptr)
{
    vSYSTEM::Trace(1, "vCONTROL::vCONTROL(...)");
    bound = rect;
    SetID(controlId);
    Init(parent, controlId, caption, rect);
    if (classId == CLASSID_CONTROL)
        CreateOrAdopt();
}

void vCONTROL::CreateOrAdopt(DWORD style)
{
    if (hWnd) {
        BindInstance(hWnd);
        SubClass();
        return;
    }
    CreateParams.dwStyle |= style;
    CreateWin();
}

// The copy shares the text with its source, as a window copy shares its
// handle: only one of them may be destroyed.
vCONTROL::vCONTROL(const vCONTROL& other) : vWIN(other), bound(other.bound), text(other.text)
{
    lstrcpynA(hotCaption, other.hotCaption, sizeof hotCaption);
    hotCaption[2] = other.hotCaption[2];
}

vCONTROL::~vCONTROL()
{
    vSYSTEM::Trace(1, "vCONTROL::~vCONTROL()");
    vMemFree(text);
}

// Takes the text, decides whether a template item is adopted, and leaves in
// CreateParams what the creating class needs. The platform window's title
// is only the mnemonic.
int vCONTROL::Init(const vWIN& parent, const vCTRLID& controlId, const vSTRING& caption, const vRECT& rect)
{
    vWIN& owner = const_cast<vWIN&>(parent);
    text = nullptr;
    hotCaption[0] = '&';
    hotCaption[1] = 0;
    hotCaption[2] = 0;
    if (caption.Length())
        text = CopyText(caption());
    vRECT device = owner.LPtoDP(rect);
    if (!owner.ResTemplate()()) {
        if (device == AdoptMark)
            device = vRECT(0, 0, 0, 0);
        bound = device;
    } else if (device.TopLeft() == owner.LPtoDP(vPOINT(-1, -1))) {
        Adopt(owner, controlId);
    } else {
        hWnd = nullptr;
        bound = device;
    }
    if (text)
        SetupText(vSTRING("%s", text));
    CreateParams.lpszTitle = hotCaption;
    CreateParams.dwStyle |= WS_GROUP | WS_TABSTOP;
    CreateParams.rect = bound;
    CreateParams.hMenuOrId = reinterpret_cast<HMENU>(static_cast<UINT_PTR>(static_cast<unsigned short>(controlId)));
    return 1;
}

// An item titled with one character keeps an empty text: only longer
// titles are read back, and that is meant.
void vCONTROL::Adopt(const vWIN& parent, const vCTRLID& controlId)
{
    HWND item = GetDlgItem(parent.hWnd, controlId);
    int length = GetWindowTextLengthA(item);
    if (length > 0 && !text) {
        text = static_cast<char*>(vMemAlloc(length + 2));
        text[0] = 0;
        if (length > 1) {
            GetWindowTextA(item, text, length + 1);
            text[length] = 0;
        }
    }
    hWnd = item;
    // Zeroed first: an identifier that the template lacks leaves no item to
    // measure, and the control is then made at no size.
    RECT box = {0, 0, 0, 0};
    GetWindowRect(item, &box);
    ::ScreenToClient(parent.hWnd, reinterpret_cast<POINT*>(&box.left));
    ::ScreenToClient(parent.hWnd, reinterpret_cast<POINT*>(&box.right));
    bound = vRECT(box.left, box.top, box.right, box.bottom);
}

void vCONTROL::Size(const vRECT& rect)
{
    bound = LPtoDP(rect);
    if (hWnd)
        vWIN::Size(rect);
}

vRECT vCONTROL::Size() const
{
    return vWIN::Size();
}

// Reports the timer's verdict on the hint: the pointer went to another
// control, or to a window that carries no identifier.
int vCONTROL::vTimer(const vRESID&)
{
    KillTimer();
    vWIN* over = vPOINTER::OverZKWindow();
    vWIN* parent = Parent();
    int left = over && over->GetID() != CurHintedCtr;
    if ((left || !CurHintedCtr) && parent)
        parent->vCommandHint(vCTRLID(0));
    return 1;
}

int vCONTROL::vMouseMove(const vPOINT&)
{
    if (CurHintedCtr == GetID())
        return 0;
    CurHintedCtr = GetID();
    if (Parent())
        Parent()->vCommandHint(CurHintedCtr);
    SetTimer(300);
    return 0;
}

void vCONTROL::SetupText(const vSTRING& caption)
{
    const char* at = caption();
    if (!at || !*at)
        return;
    while (*at && *at != '&')
        ++at;
    if (*at)
        hotCaption[1] = at[1];
}

void vCONTROL::Notification(long)
{
}

// Draws on the parent round the control's bound: first a light grey band
// wipes what an earlier border left, then the frame of the type.
int vCONTROL::Border(vBOXTYPE type)
{
    int l = static_cast<unsigned short>(bound.Left()() - 2);
    int t = static_cast<unsigned short>(bound.Top()() - 3);
    int r = static_cast<unsigned short>(bound.Right()() + 2);
    int b = static_cast<unsigned short>(bound.Bottom()() + 2);
    vWIN* parent = Parent();
    HDC dc = parent->ActivateDC();
    WipeBand(dc, l, t, r, b);
    if (type == vBOX_ETCHED)
        EtchedFrame(dc, l, t, r, b);
    else if (type == vBOX_RAISED)
        RaisedFrame(dc, l, t, r, b);
    parent->ReleaseDC();
    return 1;
}

void vCONTROL::WipeBand(HDC dc, int l, int t, int r, int b)
{
    RECT band = {l, t, r, b};
    InflateRect(&band, -2, -2);
    for (int ring = 0; ring < 6; ++ring) {
        FrameRect(dc, &band, static_cast<HBRUSH>(GetStockObject(LTGRAY_BRUSH)));
        InflateRect(&band, 1, 1);
    }
}

void vCONTROL::EtchedFrame(HDC dc, int l, int t, int r, int b)
{
    HGDIOBJ white = GetStockObject(WHITE_PEN);
    Lines(dc, white, {{l - 1, b + 1}, {l - 1, t - 1}, {r + 2, t - 1}});
    Lines(dc, white, {{r - 1, t + 1}, {r - 1, b - 1}, {l + 1, b - 1}});
    HPEN black = CreatePen(PS_SOLID, 1, RGB(0, 0, 0));
    Lines(dc, black, {{r + 1, t}, {r + 1, b + 1}, {l - 1, b + 1}});
    Lines(dc, black, {{l + 1, b - 1}, {l + 1, t + 1}, {r - 1, t + 1}});
    DeleteObject(black);
    HPEN grey = CreatePen(PS_SOLID, 1, RGB(0xC0, 0xC0, 0xC0));
    Lines(dc, grey, {{l, t}, {r, t}, {r, b}, {l, b}, {l, t}});
    DeleteObject(grey);
}

void vCONTROL::RaisedFrame(HDC dc, int l, int t, int r, int b)
{
    RECT box = {l, t, r, b};
    FrameRect(dc, &box, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    HPEN black = CreatePen(PS_SOLID, 1, RGB(0, 0, 0));
    Lines(dc, black, {{l - 1, b - 1}, {l - 1, t - 1}, {r, t - 1}});
    Lines(dc, black, {{l + 1, b - 2}, {r - 2, b - 2}, {r - 2, t + 1}});
    DeleteObject(black);
}

// The shadow falls below and right of the bound, drawn through this
// control's own context.
int vCONTROL::Shadow()
{
    int l = static_cast<unsigned short>(bound.Left()());
    int t = static_cast<unsigned short>(bound.Top()());
    int r = static_cast<unsigned short>(bound.Right()());
    int b = static_cast<unsigned short>(bound.Bottom()());
    HDC dc = ActivateDC();
    HGDIOBJ oldBrush = SelectObject(dc, GetStockObject(BLACK_BRUSH));
    HGDIOBJ oldPen = SelectObject(dc, GetStockObject(NULL_PEN));
    Rectangle(dc, l + 4, b, r + 4, b + 4);
    Rectangle(dc, r, t + 4, r + 4, b + 4);
    SelectObject(dc, oldPen);
    SelectObject(dc, oldBrush);
    ReleaseDC();
    return 1;
}

// Only key code 43 goes on to the parent's Enter handler; 13 is deliberately
// not among the keys passed on: a control that takes Enter itself must not
// also press the dialog's default button
// (ControlTest.OnlyKeyCode43GoesToTheParentsEnterHandler pins it).
int vCONTROL::vProcessKeyboard(vKEYCODE key)
{
    vWIN* parent = Parent();
    if (!parent || key != 43)
        return 0;
    return parent->vEnterKey();
}

short vCONTROL::vCompare(const vSTRING&, const vSTRING&)
{
    return 0;
}

const vSIZE vCONTROL::ItemSize() const
{
    return vSIZE(bound.Width(), bound.Height());
}

void vCONTROL::Text(const vSTRING& caption)
{
    DWORD style = GetWindowLongA(hWnd, GWL_STYLE);
    vMemFree(text);
    text = CopyText(caption() ? caption() : "");
    SetBkMode(ActivateDC(), TRANSPARENT);
    LineSpec(vLINESPEC(vLINE_NONE, vCOLOUR(0, 0, 0), 1, vCORNER_BEVEL, vDASH_DOT, nullptr));
    FillSpec(vFILLSPEC(vFILL_SOLID, BackgroundColour(), BackgroundColour(), vANGLE(), vFILL_ALTERNATE));
    ClientSize().Draw(*this);
    DrawLabel(ClientSize(), AlignOf(style), 1);
    ReleaseDC();
}

vSTRING vCONTROL::Text()
{
    return vSTRING("%s", text ? text : "");
}

int vCONTROL::ccPaint(tagDRAWITEMSTRUCT*)
{
    return 0;
}

vRECT* vCONTROL::Bound() const
{
    return const_cast<vRECT*>(&bound);
}

// The width is that of the whole text, any "&" counted, as the platform
// measures it before the mnemonic is taken out.
unsigned short vCONTROL::DrawLabel(const vRECT& rect, vTEXTALIGN align, int greyWhenDisabled)
{
    static const UINT Formats[] = {DT_VCENTER | DT_SINGLELINE, DT_VCENTER | DT_SINGLELINE | DT_RIGHT,
                                   DT_VCENTER | DT_SINGLELINE | DT_CENTER};
    // The kept text, not what a derived class reads back from its window.
    vSTRING label = vCONTROL::Text();
    ActivateFont();
    HDC dc = GetZKDC();
    SIZE extent = {0, 0};
    GetTextExtentPoint32A(dc, label(), label.Length(), &extent);
    SetBkMode(dc, TRANSPARENT);
    int grey = !Enabled() && greyWhenDisabled;
    SetTextColor(dc, grey ? GetScreen().Colour(vSCREEN_GREYTEXT).PackedRGB() : GetSysColor(COLOR_BTNTEXT));
    if (align >= vTEXT_LEFT && align <= vTEXT_CENTRE) {
        RECT box = {rect.Left()(), rect.Top()(), rect.Right()(), rect.Bottom()()};
        ::DrawTextA(dc, label(), label.Length(), &box, Formats[align]);
    }
    return static_cast<unsigned short>(extent.cx);
}

vCONTROL* vCONTROL::New(vWIN&, vCTRLID&, vRESID&)
{
    return nullptr;
}

// Every move reaches vMouseMove twice: once here with no point, for the
// hint, and once more through the ordinary dispatch with the true point.
int vCONTROL::MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    if (message == WM_MOUSEMOVE)
        vMouseMove(vPOINT(0, 0));
    return vWIN::MsgHandler(message, wParam, lParam, result);
}

vCLASSID vCONTROL::GetClassID()
{
    return CLASSID_CONTROL;
}
