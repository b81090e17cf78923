#include "graphics/device.h"

vDEVICEID::vDEVICEID(HDC hDC) : vHANDLEDEVICE(hDC) {}

vDEVICEID::~vDEVICEID()
{
    ReleaseDC();
}

HDC vDEVICEID::GetMSDC()
{
    return (*this)();
}

int vDEVICEID::ReleaseMSDC()
{
    return 1;
}
