#pragma once

#include "graphics/device.h"

// A device on a context that someone else owns, such as the one an owner-drawn
// item hands in: it draws there and never gives the context back.
class ZKCORE_API vDEVICEID : public vHANDLEDEVICE<HDC, vDEV_CONTEXT> {
public:
    explicit vDEVICEID(HDC hDC);
    ~vDEVICEID() override;

protected:
    HDC GetMSDC() override;
    int ReleaseMSDC() override;
};
