#include "graphics/device.h"

vDEVICEID::vDEVICEID(HDC hDC) : hDC(hDC) {}

vDEVICEID::~vDEVICEID()
{
    ReleaseDC();
}

vDEV_TYPE vDEVICEID::DeviceType()
{
    return vDEV_CONTEXT;
}

HDC vDEVICEID::GetWinDC()
{
    return GetMSDC();
}

int vDEVICEID::ReleaseWinDC()
{
    return ReleaseMSDC();
}

HDC vDEVICEID::operator()() const
{
    return hDC;
}

HDC vDEVICEID::GetMSDC()
{
    return hDC;
}

int vDEVICEID::ReleaseMSDC()
{
    return 1;
}
