#pragma once

#include "graphics/shape.h"

// The outline of a rectangle as a shape: one closed contour of four straight
// sides, from the top left corner clockwise.
class ZKCORE_API vRECTSHAPE : public vSHAPE {
public:
    vRECTSHAPE(const vRECT& rect);
    // The empty rectangle (0, 0, 0, 0).
    vRECTSHAPE();
};
