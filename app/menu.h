#pragma once

#include <windows.h>

#include "base/ctrlid.h"
#include "base/string.h"

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

    int Insert(short pos, vMENU& sub, const vSTRING& label);
    int Insert(short pos, const vCTRLID& id, const vSTRING& label);
    int Insert(short pos);
    int Append(vMENU& sub, const vSTRING& label);
    int Append(const vCTRLID& id, const vSTRING& label);
    int Append();
    int Remove(short pos);

private:
    friend class vAPP;
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
