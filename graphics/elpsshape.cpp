#include "graphics/elpsshape.h"

namespace {

// A quarter arc of radius r has its control points k r along the tangents,
// with k = 4 (sqrt 2 - 1) / 3. Taken against the full width it is k / 2.
const vREAL HalfKappa(0.2761423749);

}  // namespace

// The contour ends where it began, so its first point needs no segment of its
// own. Offsets from the centre floor, as every return to whole numbers does.
vELPSSHAPE::vELPSSHAPE(const vRECT& rect)
{
    vINT left = rect.Left(), top = rect.Top(), right = rect.Right(), bottom = rect.Bottom();
    vINT cx = (left + right) / vINT(2);
    vINT cy = (top + bottom) / vINT(2);
    vINT kx = (right - left) * HalfKappa;
    vINT ky = (bottom - top) * HalfKappa;

    AppendPoint(vBEZPOINT(vPOINT(right, cy), vBEZ_FIRST));
    AppendArc(vPOINT(right, cy + ky), vPOINT(cx + kx, bottom), vPOINT(cx, bottom), vBEZ_CURVETO);
    AppendArc(vPOINT(cx - kx, bottom), vPOINT(left, cy + ky), vPOINT(left, cy), vBEZ_CURVETO);
    AppendArc(vPOINT(left, cy - ky), vPOINT(cx - kx, top), vPOINT(cx, top), vBEZ_CURVETO);
    AppendArc(vPOINT(cx + kx, top), vPOINT(right, cy - ky), vPOINT(right, cy),
              vBEZ_CURVETO | vBEZ_LAST);
}

vELPSSHAPE::vELPSSHAPE() : vELPSSHAPE(vRECT()) {}

void vELPSSHAPE::AppendArc(const vPOINT& first, const vPOINT& second, const vPOINT& end,
                           unsigned char endFlags)
{
    AppendPoint(vBEZPOINT(first, vBEZ_CONTROL));
    AppendPoint(vBEZPOINT(second, vBEZ_CONTROL));
    AppendPoint(vBEZPOINT(end, endFlags));
}
