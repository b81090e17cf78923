// The application's arrangement of its document windows: the platform's
// cascade and tile, and the library's own rows and columns, kept in a list
// of the tiled windows with a breadth for each.
#include "app/application.h"

#include "app/docwin.h"

namespace {

// Set while the library moves the tiled windows itself: the size messages
// its own moves bring are not the user's resizing, and taking them for it
// would feed every move back into the breadths.
int placing = 0;

class PLACING {
public:
    PLACING() { ++placing; }
    ~PLACING() { --placing; }
    PLACING(const PLACING&) = delete;
    PLACING& operator=(const PLACING&) = delete;
};

RECT ClientRect(HWND window)
{
    RECT rect = {};
    GetClientRect(window, &rect);
    return rect;
}

}  // namespace

vRECT vAPP::Margins() const
{
    return margins;
}

// The distances are kept from the frame's four sides, not as coordinates.
void vAPP::Margins(const vRECT& distances)
{
    if (!hClient)
        return;
    margins = distances;
    RECT frame = ClientRect(hFrame);
    SetWindowPos(hClient, nullptr, margins.Left()(), margins.Top()(),
                 frame.right - margins.Left()() - margins.Right()(),
                 frame.bottom - margins.Top()() - margins.Bottom()(), SWP_NOZORDER | SWP_FRAMECHANGED);
    if (bMDI && IsTilingMode())
        SizeMDIWindows();
    if (vWIN* document = ActiveDocWin())
        document->Activate();
}

void vAPP::ArrangeDocWins(vMDIARRANGE mode)
{
    arrange = mode;
    TileClear();
    if (mode == ARRANGE_CASCADE)
        SendMessageA(hClient, WM_MDICASCADE, 0, 0);
    else if (mode == ARRANGE_TILE)
        SendMessageA(hClient, WM_MDITILE, 0, 0);
    else
        TileMDIWindows();
}

vWIN* vAPP::ActiveDocWin()
{
    if (!hClient)
        return nullptr;
    return vWIN::Instance(reinterpret_cast<HWND>(SendMessageA(hClient, WM_MDIGETACTIVE, 0, 0)));
}

unsigned short vAPP::NoDocWin()
{
    unsigned short count = 0;
    for (HWND child = GetWindow(hClient, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        ++count;
    return count;
}

int vAPP::IsTilingMode() const
{
    return arrange == ARRANGE_ROWS || arrange == ARRANGE_COLUMNS;
}

// The frame thickness that separates two windows along the breadth.
vINT vAPP::Across(vDOCWIN& window) const
{
    return arrange == ARRANGE_ROWS ? window.BorderHeight() : window.BorderWidth();
}

void vAPP::TileAppend(vDOCWIN* window)
{
    window->pPrevTile = pTileTail;
    window->pNextTile = nullptr;
    if (pTileTail)
        pTileTail->pNextTile = window;
    else
        pTileHead = window;
    pTileTail = window;
    ++nTile;
}

void vAPP::TileInsertHead(vDOCWIN* window)
{
    window->pPrevTile = nullptr;
    window->pNextTile = pTileHead;
    if (pTileHead)
        pTileHead->pPrevTile = window;
    else
        pTileTail = window;
    pTileHead = window;
    ++nTile;
}

void vAPP::TileRemove(vDOCWIN* window)
{
    if (window->pPrevTile)
        window->pPrevTile->pNextTile = window->pNextTile;
    else
        pTileHead = window->pNextTile;
    if (window->pNextTile)
        window->pNextTile->pPrevTile = window->pPrevTile;
    else
        pTileTail = window->pPrevTile;
    window->pNextTile = nullptr;
    window->pPrevTile = nullptr;
    --nTile;
}

// Each window leaves with no breadth.
void vAPP::TileClear()
{
    while (vDOCWIN* window = pTileHead) {
        TileRemove(window);
        window->breadth = 0;
    }
}

int vAPP::IsTiled(const vDOCWIN* window) const
{
    for (vDOCWIN* member = pTileHead; member; member = member->pNextTile)
        if (member == window)
            return 1;
    return 0;
}

// The topmost window comes first. The remainder of the division falls to
// the later windows.
void vAPP::TileMDIWindows()
{
    for (HWND child = GetWindow(hClient, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        vDOCWIN* document = dynamic_cast<vDOCWIN*>(vWIN::Instance(child));
        if (document && !IsIconic(child) && IsWindowVisible(child))
            TileAppend(document);
    }
    if (!pTileHead)
        return;
    vINT total = CalcClientBreadth();
    vINT count(nTile);
    for (vDOCWIN* window = pTileHead; window; window = window->pNextTile)
        window->breadth = Share(total, count);
    PLACING guard;
    vWIN* active = ActiveDocWin();
    if (active && active->IsMaximised())
        ShowWindow((*active)(), SW_RESTORE);
    PositionMDIWindows();
}

// The sum of breadths at which the windows, one frame apart, exactly fill
// the client.
vINT vAPP::CalcClientBreadth()
{
    if (!pTileHead)
        return 0;
    RECT client = ClientRect(hClient);
    vINT separators(nTile - 1);
    if (arrange == ARRANGE_ROWS)
        return vINT(client.bottom - client.top) - separators * pTileHead->BorderHeight();
    return vINT(client.right - client.left) - separators * pTileHead->BorderWidth();
}

// The outer frames lie just outside the client, out of sight, and
// neighbours overlap by all but one pixel of a frame. The active window's
// frame sizes stand for all.
void vAPP::PositionMDIWindows()
{
    vWIN* active = ActiveDocWin();
    if (!active)
        return;
    PLACING guard;
    RECT client = ClientRect(hClient);
    vINT frameWidth = active->BorderWidth();
    vINT frameHeight = active->BorderHeight();
    vRECT outer(vINT(client.left) - frameWidth, vINT(client.top) - frameHeight, vINT(client.right) + frameWidth,
                vINT(client.bottom) + frameHeight);
    int rows = arrange == ARRANGE_ROWS;
    vINT pos = rows ? outer.Top() : outer.Left();
    vINT step = rows ? frameHeight : frameWidth;
    vINT extra = step * vINT(2) - vINT(1);
    for (vDOCWIN* window = pTileHead; window; window = window->pNextTile) {
        vINT end = pos + window->breadth + extra;
        window->Size(rows ? vRECT(outer.Left(), pos, outer.Right(), end) : vRECT(pos, outer.Top(), end, outer.Bottom()));
        pos = pos + window->breadth + step;
    }
}

// Shares out an amount, which may be negative, without placing anything.
void vAPP::DistMDIBreadth(vINT amount)
{
    if (amount == vINT(0))
        return;
    vINT count(nTile);
    for (vDOCWIN* window = pTileHead; window; window = window->pNextTile)
        window->breadth = window->breadth + Share(amount, count);
}

// The client has changed size.
void vAPP::SizeMDIWindows()
{
    vINT sum(0);
    for (vDOCWIN* window = pTileHead; window; window = window->pNextTile)
        sum = sum + window->breadth;
    DistMDIBreadth(CalcClientBreadth() - sum);
    PositionMDIWindows();
}

// The freed breadth and the freed frame go to the others.
void vAPP::RemoveMDITileWindow(vDOCWIN* window)
{
    TileRemove(window);
    DistMDIBreadth(window->breadth + Across(*window));
    window->breadth = 0;
    PositionMDIWindows();
}

// The user resized the window, or it came into the arrangement: it keeps
// its size, and the windows on each side share out what is left in equal
// parts, the remainder going to those nearest to it. A pure move changes
// nothing.
void vAPP::SizeActiveMDIWindow(vDOCWIN* window)
{
    if (!window || placing)
        return;
    vRECT r = window->Size();
    int isNew = !IsTiled(window);
    if (isNew)
        TileInsertHead(window);
    vINT b = Across(*window);
    int rows = arrange == ARRANGE_ROWS;
    vINT extent = rows ? r.Height() : r.Width();
    vINT fresh = extent - b * vINT(2);
    if (fresh == window->breadth)
        return;
    window->breadth = fresh;
    ShareAround(window, r, isNew);
    PositionMDIWindows();
}

void vAPP::ShareAround(vDOCWIN* window, const vRECT& r, int isNew)
{
    vINT before(0);
    for (vDOCWIN* member = pTileHead; member != window; member = member->pNextTile)
        before = before + vINT(1);
    vINT after(0);
    for (vDOCWIN* member = pTileTail; member != window; member = member->pPrevTile)
        after = after + vINT(1);
    RECT c = ClientRect(hClient);
    int rows = arrange == ARRANGE_ROWS;
    vINT nearEdge(rows ? c.top : c.left);
    vINT farEdge(rows ? c.bottom : c.right);
    vINT rNear = rows ? r.Top() : r.Left();
    vINT rFar = rows ? r.Bottom() : r.Right();
    vINT rExtent = rows ? r.Height() : r.Width();
    vINT b = Across(*window);
    vINT spaceBefore(0);
    vINT spaceAfter(0);
    if (isNew) {
        spaceAfter = farEdge - rExtent + b + b - after * b;
    } else {
        spaceBefore = rNear - nearEdge - (before - vINT(1)) * b;
        spaceAfter = farEdge - rFar - (after - vINT(1)) * b;
    }
    for (vDOCWIN* member = pTileHead; member != window; member = member->pNextTile)
        member->breadth = Share(spaceBefore, before);
    for (vDOCWIN* member = pTileTail; member != window; member = member->pPrevTile)
        member->breadth = Share(spaceAfter, after);
}

// The next share of what is left among the count still to be served.
vINT vAPP::Share(vINT& space, vINT& count)
{
    vINT share = space / count;
    space = space - share;
    count = count - vINT(1);
    return share;
}
