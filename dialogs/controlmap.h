#pragma once

#include "controls/control.h"

// One row of the constant table through which an application describes the
// controls of a dialog: the factory that adopts the template item, the item's
// identifier, its text resource, and where its value lies in the
// application's data block. A row with a null factory ends the table, and its
// identifier names the control that gets the focus, 0 for none.
struct vCONTROLMAP {
    vCONTROL* (*New)(vWIN& parent, vCTRLID& id, vRESID& text);
    unsigned short id;
    unsigned short text;
    unsigned short offset;
    unsigned short length;
};
