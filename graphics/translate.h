#pragma once

#include "graphics/transform.h"

// Puts every point at (dx, dy). Its first and fifth coefficients are 0, not 1,
// so it places rather than moves; that is the mapping as it stands, and it is
// kept.
class ZKCORE_API vTRANSLATE : public vTRANSFORM {
public:
    vTRANSLATE(const vREAL& dx, const vREAL& dy);
    vTRANSLATE(const vTRANSLATE& other);
    vTRANSLATE& operator=(const vTRANSLATE& other);
};
