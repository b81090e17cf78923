#include "app/window.h"

#include "app/pointer.h"
#include "graphics/screen.h"

namespace {

int Narrow(const vINT& value)
{
    return static_cast<short>(value());
}

// The edges that a hit code moves.
enum EDGES { EDGE_LEFT = 1, EDGE_RIGHT = 2, EDGE_TOP = 4, EDGE_BOTTOM = 8 };

int EdgesOf(unsigned int hit)
{
    switch (hit) {
    case HTLEFT:
        return EDGE_LEFT;
    case HTRIGHT:
        return EDGE_RIGHT;
    case HTTOP:
        return EDGE_TOP;
    case HTTOPLEFT:
        return EDGE_TOP | EDGE_LEFT;
    case HTTOPRIGHT:
        return EDGE_TOP | EDGE_RIGHT;
    case HTBOTTOM:
        return EDGE_BOTTOM;
    case HTBOTTOMLEFT:
        return EDGE_BOTTOM | EDGE_LEFT;
    case HTBOTTOMRIGHT:
        return EDGE_BOTTOM | EDGE_RIGHT;
    default:
        return 0;
    }
}

// An edge dragged past the opposite one stops at the platform's minimum
// size; the rectangle never turns over.
void MoveEdges(vRECT& rect, int edges, const vPOINT& delta)
{
    vINT minWidth = GetSystemMetrics(SM_CXMIN);
    vINT minHeight = GetSystemMetrics(SM_CYMIN);
    if (edges & EDGE_TOP) {
        rect.Top(rect.Top() + delta.y);
        if (rect.Bottom() - minHeight < rect.Top())
            rect.Top(rect.Bottom() - minHeight);
    }
    if (edges & EDGE_BOTTOM) {
        rect.Bottom(rect.Bottom() + delta.y);
        if (rect.Top() + minHeight > rect.Bottom())
            rect.Bottom(rect.Top() + minHeight);
    }
    if (edges & EDGE_LEFT) {
        rect.Left(rect.Left() + delta.x);
        if (rect.Right() - minWidth < rect.Left())
            rect.Left(rect.Right() - minWidth);
    }
    if (edges & EDGE_RIGHT) {
        rect.Right(rect.Right() + delta.x);
        if (rect.Left() + minWidth > rect.Right())
            rect.Right(rect.Left() + minWidth);
    }
}

// The frame of the rectangle on the screen, as wide as the platform's
// sizing border.
HRGN RingOf(const vRECT& rect, HWND parent, int thickness)
{
    RECT box = {Narrow(rect.Left()), Narrow(rect.Top()), Narrow(rect.Right()), Narrow(rect.Bottom())};
    if (parent)
        MapWindowPoints(parent, nullptr, reinterpret_cast<POINT*>(&box), 2);
    HRGN outer = CreateRectRgn(box.left, box.top, box.right, box.bottom);
    HRGN inner =
        CreateRectRgn(box.left + thickness, box.top + thickness, box.right - thickness, box.bottom - thickness);
    HRGN ring = CreateRectRgn(0, 0, 0, 0);
    CombineRgn(ring, outer, inner, RGN_XOR);
    DeleteObject(outer);
    DeleteObject(inner);
    return ring;
}

HRGN Without(HRGN from, HRGN taken)
{
    HRGN rest = CreateRectRgn(0, 0, 0, 0);
    CombineRgn(rest, from, taken, RGN_DIFF);
    return rest;
}

// The screen's contexts come in the screen's draw mode, exclusive-or here,
// so painting a region twice leaves it as it was.
void PaintOnScreen(vSCREEN& screen, HRGN region)
{
    HDC dc = screen.GetWinDC();
    HBRUSH brush = CreateSolidBrush(screen.FillSpec().Colour().PackedRGB());
    HGDIOBJ before = SelectObject(dc, brush);
    PaintRgn(dc, region);
    SelectObject(dc, before);
    DeleteObject(brush);
    ReleaseDC(nullptr, dc);
}

}  // namespace

int vWIN::vBorderDrag(vRECT* newRect, vRECT* oldRect)
{
    DrawWinFrame(newRect, oldRect);
    return 1;
}

// Only what differs between the old and the new ring is painted, so the part
// they share never flickers. The screen keeps the mode and specs set here.
int vWIN::DrawWinFrame(const vRECT* newRect, const vRECT* oldRect)
{
    int thickness = GetSystemMetrics(SM_CXFRAME);
    HWND parent = GetParent(hWnd);
    HRGN ringNew = RingOf(*newRect, parent, thickness);
    vSCREEN& screen = GetScreen();
    vCOLOUR grey(0x55, 0x55, 0x55);
    screen.DrawMode(vDRAW_XOR);
    screen.LineSpec(vLINESPEC(vLINE_SOLID, grey, thickness, vCORNER_MITRE, vDASH_SOLID, nullptr));
    screen.FillSpec(vFILLSPEC(vFILL_SOLID, grey, vCOLOUR(), vANGLE(short(0)), vFILL_ALTERNATE));
    if (!oldRect)
        PaintOnScreen(screen, ringNew);
    else if (*newRect != *oldRect)
        PaintDifference(ringNew, RingOf(*oldRect, parent, thickness));
    DeleteObject(ringNew);
    return 1;
}

void vWIN::PaintDifference(HRGN ringNew, HRGN ringOld)
{
    vSCREEN& screen = GetScreen();
    HRGN gone = Without(ringOld, ringNew);
    PaintOnScreen(screen, gone);
    HRGN come = Without(ringNew, ringOld);
    PaintOnScreen(screen, come);
    DeleteObject(gone);
    DeleteObject(come);
    DeleteObject(ringOld);
}

int vWIN::FrameDrag(unsigned int hit, vPOINT* delta, vRECT* rect)
{
    vRECT moved = *rect;
    if (!delta) {
        vBorderDrag(&moved, nullptr);
    } else {
        if (hit == HTCAPTION)
            moved = moved + *delta;
        else
            MoveEdges(moved, EdgesOf(hit), *delta);
        vBorderDrag(&moved, rect);
    }
    *rect = moved;
    return 1;
}

// The drag holds the thread: it reads and drops the messages itself until
// the button is up, so the window does not repaint meanwhile.
int vWIN::DoNCMouseMove(WPARAM hit, LPARAM lParam)
{
    vPOINTER::Off();
    vRECT rect = Size();
    POINT start = {LOWORD(lParam), HIWORD(lParam)};
    int dragged = fBorderDrag ? DragFrame(hit, start, rect) : 0;
    fBorderDrag = 0;
    return dragged;
}

int vWIN::DragFrame(unsigned int hit, POINT last, vRECT& rect)
{
    FrameDrag(hit, nullptr, &rect);
    ConfineDrag();
    MSG message = {};
    while (GetAsyncKeyState(VK_LBUTTON) < 0) {
        if (message.message == WM_MOUSEMOVE)
            last = DragStep(hit, message.lParam, last, rect);
        GetMessageA(&message, nullptr, 0, 0);
    }
    FrameDrag(hit, nullptr, &rect);
    Size(rect);
    ClipCursor(nullptr);
    ReleaseCapture();
    return 1;
}

POINT vWIN::DragStep(unsigned int hit, long lParam, POINT last, vRECT& rect)
{
    POINT now = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    ::ClientToScreen(hWnd, &now);
    vPOINT delta(now.x - last.x, now.y - last.y);
    FrameDrag(hit, &delta, &rect);
    return now;
}

// A child cannot be dragged out of its parent's client area; a popup can.
void vWIN::ConfineDrag()
{
    HWND parent = GetParent(hWnd);
    RECT clip = {0, 0, 0, 0};
    GetClientRect(parent, &clip);
    MapWindowPoints(parent, nullptr, reinterpret_cast<POINT*>(&clip), 2);
    SetCapture(hWnd);
    if (!(GetWindowLongA(hWnd, GWL_STYLE) & WS_POPUP))
        ClipCursor(&clip);
}

void vWIN::DrawBorder(const vRECT& rect, int raised)
{
    vRECT r = LPtoDP(rect);
    vSCREEN& screen = GetScreen();
    HPEN light = CreatePen(PS_SOLID, 1, screen.Colour(vSCREEN_BUTTONHIGHLIGHT).PackedRGB());
    HPEN dark = CreatePen(PS_SOLID, 1, screen.Colour(vSCREEN_BUTTONSHADOW).PackedRGB());
    HDC dc = ActivateDC();
    HGDIOBJ before = SelectObject(dc, raised ? light : dark);
    MoveToEx(dc, Narrow(r.Left()), Narrow(r.Bottom()), nullptr);
    LineTo(dc, Narrow(r.Left()), Narrow(r.Top()));
    LineTo(dc, Narrow(r.Right()), Narrow(r.Top()));
    SelectObject(dc, raised ? dark : light);
    LineTo(dc, Narrow(r.Right()), Narrow(r.Bottom()));
    LineTo(dc, Narrow(r.Left()), Narrow(r.Bottom()));
    SelectObject(dc, before);
    DeleteObject(light);
    DeleteObject(dark);
}
