#pragma once

#include "app/pointer.h"

// The test suite's view of a pointer's private state and of the one
// operation that only windows call.
struct vPOINTERACCESS {
    static const vRESID& Current(const vPOINTER& pointer) { return pointer.current; }
    static HCURSOR Cursor(const vPOINTER& pointer) { return pointer.hCursor; }
    static unsigned short Saved(const vPOINTER& pointer) { return pointer.nStack; }
    static int Activate(vPOINTER& pointer) { return pointer.Activate(); }
};
