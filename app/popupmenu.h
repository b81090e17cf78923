#pragma once

#include "app/menu.h"

class vPOINT;
class vWIN;

// A floating menu, shown at a point of a window and tracked until the user
// chooses or dismisses it; the choice reaches the window as a command.
class ZKSHELL_API vPOPUPMENU : public vMENU {
public:
    vPOPUPMENU();
    vPOPUPMENU(const vPOPUPMENU&) = delete;
    vPOPUPMENU& operator=(const vPOPUPMENU&) = delete;

    // The point is in the window's client units. Left of the screen's
    // middle the menu opens to the right of it, otherwise to the left.
    int Show(const vWIN& win, const vPOINT& point);
};
