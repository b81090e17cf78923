#pragma once

#include "base/rect.h"
#include "graphics/colour.h"
#include "graphics/devicetypes.h"

class vDEVICE;

// A picture that a device can draw: its size, its turn and mirror, and how it
// draws itself at a point, whole or with one colour left out.
class ZKCORE_API vPICTURE : public vOBJECT {
public:
    virtual ~vPICTURE() = 0;
    virtual vRECT Size() const = 0;
    virtual int Valid() const = 0;
    virtual void Angle(const vANGLE& angle) = 0;
    virtual vANGLE Angle() const = 0;
    virtual void Rotate(const vROTATEANGLE& turn) = 0;
    virtual vROTATEANGLE Rotate() const = 0;
    virtual void Mirror(int on) = 0;
    virtual int IsMirrored() const = 0;
    virtual int Draw(vDEVICE& device, const vPOINT& at) const = 0;
    virtual int DrawTransparent(vDEVICE& device, const vPOINT& at, const vCOLOUR& key) const = 0;
};
