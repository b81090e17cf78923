#include "graphics/rectshape.h"

// The first point carries LineTo as well, as the tab label's first point
// does: the closing side is a straight one.
vRECTSHAPE::vRECTSHAPE(const vRECT& rect)
{
    AppendPoint(vBEZPOINT(rect.TopLeft(), vBEZ_FIRST | vBEZ_LINETO));
    AppendPoint(vBEZPOINT(rect.TopRight(), vBEZ_LINETO));
    AppendPoint(vBEZPOINT(rect.BottomRight(), vBEZ_LINETO));
    AppendPoint(vBEZPOINT(rect.BottomLeft(), vBEZ_LAST | vBEZ_LINETO));
}

vRECTSHAPE::vRECTSHAPE() : vRECTSHAPE(vRECT()) {}
