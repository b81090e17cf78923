#pragma once

#include "base/export.h"
#include "base/object.h"
#include "base/point.h"
#include "base/real.h"
#include "base/resid.h"

class vWIN;

// The platform caret, which belongs to the thread rather than to any window
// object: hence the window arguments that are taken and not needed.
class ZKSHELL_API vCARET : public vOBJECT {
public:
    // Asks for a block caret; the sizes go to the platform and are not kept.
    vCARET(vWIN& window, vINT width, vINT height);
    // A caret drawn by a bitmap resource, in the window's handle.
    vCARET(const vWIN& window, const vRESID& bitmap);
    ~vCARET();
    vCARET(const vCARET&) = delete;
    vCARET& operator=(const vCARET&) = delete;

    // The angle is remembered for the caller; the platform has no turned caret.
    void Rotate(vANGLE angle);
    vANGLE Rotate();

    // A platform caret cannot change size once made, so these do nothing.
    void Width(const vINT& width);
    void Height(vINT height);
    vINT& Width();
    vINT& Height();

    void Show(const vWIN& window);
    void Hide(const vWIN& window);

    void Position(vPOINT point);
    vPOINT Position();

private:
    vANGLE angle;
    vINT height;
    vINT width;
};
