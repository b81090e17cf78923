#include "graphics/translate.h"

vTRANSLATE::vTRANSLATE(const vREAL& dx, const vREAL& dy) : vTRANSFORM(0, 0, dx, 0, 0, dy) {}

vTRANSLATE::vTRANSLATE(const vTRANSLATE& other) = default;

vTRANSLATE& vTRANSLATE::operator=(const vTRANSLATE& other) = default;
