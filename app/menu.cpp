#include "app/menu.h"

#include <climits>

#include "base/system.h"

namespace {

const int labelLimit = 500;

// The popups of a menu belong to their own objects, so they are taken out
// before the menu's handle goes and the platform does not destroy them too.
void DetachPopups(HMENU menu)
{
    for (int pos = GetMenuItemCount(menu) - 1; pos >= 0; --pos)
        if (GetSubMenu(menu, pos))
            RemoveMenu(menu, pos, MF_BYPOSITION);
}

}  // namespace

vMENU::vMENU()
    : hMenu(CreateMenu()), hParentMenu(nullptr), nFixed(0), owned(1)
{
}

vMENU::vMENU(HMENU handle, int owns)
    : hMenu(handle), hParentMenu(nullptr), nFixed(0), owned(owns)
{
}

vMENU::vMENU(const vMENU& other)
    : vOBJECT(other), hMenu(other.hMenu), hParentMenu(other.hParentMenu), nFixed(other.nFixed), owned(0)
{
}

vMENU::~vMENU()
{
    Release();
}

vMENU& vMENU::operator=(const vMENU& other)
{
    if (this == &other)
        return *this;
    Release();
    hMenu = other.hMenu;
    hParentMenu = other.hParentMenu;
    nFixed = other.nFixed;
    owned = 0;
    return *this;
}

void vMENU::Release()
{
    if (!owned || !hMenu)
        return;
    DetachPopups(hMenu);
    DestroyMenu(hMenu);
    owned = 0;
}

unsigned short vMENU::NoItem() const
{
    return static_cast<unsigned short>(GetMenuItemCount(hMenu) - nFixed);
}

int vMENU::InRange(short pos) const
{
    return pos >= 0 && pos < NoItem();
}

vSTRING vMENU::Label(short pos) const
{
    if (!InRange(pos))
        return vSTRING();
    char* buffer = vSYSTEM::GetBuffer();
    buffer[labelLimit] = 0;
    GetMenuStringA(hMenu, pos, buffer, labelLimit, MF_BYPOSITION);
    return vSTRING("%s", buffer);
}

vCTRLID vMENU::ItemID(short pos) const
{
    if (!InRange(pos))
        return vCTRLID(0);
    return vCTRLID(static_cast<unsigned short>(GetMenuItemID(hMenu, pos)));
}

// The walk stops at the last position there can be: the count may exceed it
// (a view of no menu, or fewer items than fixed ones), and a position
// counter would then wrap and never end.
short vMENU::Position(const vCTRLID& id) const
{
    for (int pos = 0; pos < NoItem() && pos <= SHRT_MAX; ++pos)
        if (ItemID(static_cast<short>(pos)) == id)
            return static_cast<short>(pos);
    return -1;
}

short vMENU::Position(const vSTRING& label) const
{
    for (int pos = 0; pos < NoItem() && pos <= SHRT_MAX; ++pos)
        if (Label(static_cast<short>(pos)) == label)
            return static_cast<short>(pos);
    return -1;
}

vCTRLID vMENU::ItemID(const vSTRING& label) const
{
    return vCTRLID(static_cast<unsigned short>(GetMenuItemID(hMenu, Position(label))));
}

vSTRING vMENU::Label(const vCTRLID& id) const
{
    return Label(Position(id));
}

unsigned int vMENU::MenuState(short pos)
{
    return GetMenuState(hMenu, pos, MF_BYPOSITION) & 15;
}

int vMENU::EnableItem(short pos)
{
    return EnableMenuItem(hMenu, pos, MF_BYPOSITION | MF_ENABLED);
}

int vMENU::DisableItem(short pos)
{
    return EnableMenuItem(hMenu, pos, MF_BYPOSITION | MF_GRAYED);
}

int vMENU::DeactivateItem(short pos)
{
    return EnableMenuItem(hMenu, pos, MF_BYPOSITION | MF_DISABLED);
}

int vMENU::CheckItem(short pos)
{
    return CheckMenuItem(hMenu, pos, MF_BYPOSITION | MF_CHECKED) == MF_UNCHECKED;
}

int vMENU::UnCheckItem(short pos)
{
    return CheckMenuItem(hMenu, pos, MF_BYPOSITION | MF_UNCHECKED) == MF_CHECKED;
}

int vMENU::Insert(short pos, vMENU& sub, const vSTRING& label)
{
    sub.hParentMenu = hMenu;
    return InsertMenuA(hMenu, pos, MF_BYPOSITION | MF_POPUP, reinterpret_cast<UINT_PTR>(sub.hMenu), label());
}

int vMENU::Insert(short pos, const vCTRLID& id, const vSTRING& label)
{
    return InsertMenuA(hMenu, pos, MF_BYPOSITION, static_cast<unsigned short>(id), label());
}

int vMENU::Insert(short pos)
{
    return InsertMenuA(hMenu, pos, MF_BYPOSITION | MF_SEPARATOR, 0, nullptr);
}

int vMENU::Append(vMENU& sub, const vSTRING& label)
{
    if (nFixed <= 0)
        return AppendMenuA(hMenu, MF_POPUP, reinterpret_cast<UINT_PTR>(sub.hMenu), label());
    return Insert(static_cast<short>(NoItem()), sub, label);
}

int vMENU::Append(const vCTRLID& id, const vSTRING& label)
{
    if (nFixed <= 0)
        return AppendMenuA(hMenu, MF_STRING, static_cast<unsigned short>(id), label());
    return Insert(static_cast<short>(NoItem()), id, label);
}

int vMENU::Append()
{
    if (nFixed == 0)
        return AppendMenuA(hMenu, MF_SEPARATOR, 0, nullptr);
    return Insert(static_cast<short>(NoItem()));
}

int vMENU::Modify(short pos, vMENU& sub, const vSTRING& label)
{
    sub.hParentMenu = hMenu;
    return ModifyMenuA(hMenu, pos, MF_BYPOSITION | MF_POPUP, reinterpret_cast<UINT_PTR>(sub.hMenu), label());
}

int vMENU::Modify(short pos, vCTRLID id, const vSTRING& label)
{
    return ModifyMenuA(hMenu, pos, MF_BYPOSITION, static_cast<unsigned short>(id), label());
}

int vMENU::Remove(short pos)
{
    return RemoveMenu(hMenu, pos, MF_BYPOSITION);
}

int vMENU::Insert(short, const vBITMAP&)
{
    return 0;
}

int vMENU::Append(const vCTRLID&, const vBITMAP&)
{
    return 0;
}

int vMENU::Modify(unsigned short, const vBITMAP&)
{
    return 0;
}
