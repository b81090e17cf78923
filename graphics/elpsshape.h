#pragma once

#include "graphics/shape.h"

// The ellipse inside a rectangle as a shape: one closed contour of four
// Bézier quarter arcs, starting at the middle of the right side and running
// clockwise through the bottom, left and top middles back to the start.
class ZKCORE_API vELPSSHAPE : public vSHAPE {
public:
    vELPSSHAPE(const vRECT& rect);
    // The empty rectangle (0, 0, 0, 0).
    vELPSSHAPE();

private:
    void AppendArc(const vPOINT& first, const vPOINT& second, const vPOINT& end,
                   unsigned char endFlags);
};
