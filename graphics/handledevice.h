#pragma once

#include "graphics/device.h"

// What a device on one platform handle shares, whether the handle is a
// context handed in or a window to take contexts from: the handle, the kind
// of device it makes, and the public context pair, which goes to the
// leaf's own pair.
//
// A leaf supplies GetMSDC and ReleaseMSDC and gives the context back in its
// own destructor: once this class's destructor runs, the table is no longer
// the leaf's, and a release from here would miss the leaf's ReleaseMSDC.
template <class Handle, vDEV_TYPE Type>
class vHANDLEDEVICE : public vDEVICE {
public:
    vDEV_TYPE DeviceType() override { return Type; }
    HDC GetWinDC() override { return GetMSDC(); }
    int ReleaseWinDC() override { return ReleaseMSDC(); }
    Handle operator()() const { return handle; }

protected:
    explicit vHANDLEDEVICE(Handle handle) : handle(handle) {}

private:
    Handle handle;
};
