#pragma once

#include <windows.h>

#include "base/ctrlid.h"
#include "base/string.h"

class vBITMAP;

// A platform menu addressed by position. A number of fixed items at its end
// (the frame's Window and Help menus) is left out of the count, and appending
// lands ahead of them. A menu object owns only its own handle: the popups it
// shows belong to their own objects, which must outlive the showing.
class ZKSHELL_API vMENU : public vOBJECT {
public:
    vMENU();
    // A second view of the same handle, which the copy never destroys.
    vMENU(const vMENU& other);
    virtual ~vMENU();
    vMENU& operator=(const vMENU& other);

    unsigned short NoItem() const;
    vSTRING Label(short pos) const;
    vCTRLID ItemID(short pos) const;
    short Position(const vCTRLID& id) const;
    short Position(const vSTRING& label) const;
    vCTRLID ItemID(const vSTRING& label) const;
    vSTRING Label(const vCTRLID& id) const;
    unsigned int MenuState(short pos);
    int EnableItem(short pos);
    int DisableItem(short pos);
    int DeactivateItem(short pos);
    // Each answers 1 if the item changed.
    int CheckItem(short pos);
    int UnCheckItem(short pos);

    int Insert(short pos, vMENU& sub, const vSTRING& label);
    int Insert(short pos, const vCTRLID& id, const vSTRING& label);
    int Insert(short pos);
    int Append(vMENU& sub, const vSTRING& label);
    int Append(const vCTRLID& id, const vSTRING& label);
    int Append();
    int Modify(short pos, vMENU& sub, const vSTRING& label);
    int Modify(short pos, vCTRLID id, const vSTRING& label);
    int Remove(short pos);
    // Bitmap items are not offered: these answer 0 and leave the menu as it is.
    int Insert(short pos, const vBITMAP& bitmap);
    int Append(const vCTRLID& id, const vBITMAP& bitmap);
    int Modify(unsigned short pos, const vBITMAP& bitmap);

private:
    friend class vAPP;
    friend class vPOPUPMENU;
    friend class vWIN;
    friend struct vAPPACCESS;

    // Wraps a handle; owns decides whether the object destroys it.
    vMENU(HMENU handle, int owns);
    int InRange(short pos) const;
    void Release();

    HMENU hMenu;
    HMENU hParentMenu;
    short nFixed;
    int owned;
};
