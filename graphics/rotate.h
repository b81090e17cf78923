#pragma once

#include "graphics/transform.h"

// Turns points by an angle in degrees. The origin is not held still: it is
// turned the other way and added to the turned point, so a turn of 0 moves
// every point by the origin. That is the mapping as it stands, and it is kept.
class ZKCORE_API vROTATE : public vTRANSFORM {
public:
    vROTATE(const vPOINT& origin, const vANGLE& angle);
    vROTATE(const vROTATE& other);
    vROTATE& operator=(const vROTATE& other);

private:
    vROTATE(const vPOINT& origin, const vREAL& cosine, const vREAL& sine);
};
