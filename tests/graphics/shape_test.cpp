#include "support/zktest.h"

#include "graphics/elpsshape.h"
#include "graphics/rectshape.h"

namespace {

using Ints = std::vector<long>;
using ShapeTest = zktest::LeakFreeTest;

int Flags(const vBEZPOINT& p) { return p.First() | p.Last() | p.LineTo() | p.CurveTo() | p.Control(); }

// Each point's x, y and flags (first 1, last 2, line 8, curve 16, control
// 32), then the bounding box and whether the shape is closed.
Ints Path(const vSHAPE& shape) {
    Ints path;
    for (unsigned short i = 0; i < shape.NoPoint(); ++i)
        path.insert(path.end(), {shape[i].x(), shape[i].y(), Flags(shape[i])});
    const vRECT& box = shape.BoundBox();
    path.insert(path.end(), {box.Left()(), box.Top()(), box.Right()(), box.Bottom()(), shape.Closed()});
    return path;
}

// A rectangle is four straight sides clockwise from the top left; an ellipse four quarter arcs clockwise from the right
// middle, the control points k/2 (0.2761) of the width and height from the middles, floored.
TEST_F(ShapeTest, RectanglesAndEllipsesAreClosedPathsClockwise) {
    EXPECT_EQ(Path(vRECTSHAPE(vRECT(10, 20, 110, 70))),
              Ints({10, 20, 9, 110, 20, 8, 110, 70, 8, 10, 70, 10, 10, 20, 110, 70, 1}));
    EXPECT_EQ(Path(vELPSSHAPE(vRECT(0, 0, 200, 100))),
              Ints({200, 50, 1, 200, 77, 32, 155, 100, 32, 100, 100, 16, 45, 100, 32, 0, 77, 32, 0, 50, 16,
                    0, 23, 32, 45, 0, 32, 100, 0, 16, 155, 0, 32, 200, 23, 32, 200, 50, 18, 0, 0, 200, 100, 1}));
    EXPECT_EQ(Path(vRECTSHAPE()), Ints({0, 0, 9, 0, 0, 8, 0, 0, 8, 0, 0, 10, 0, 0, 0, 0, 1}));
}

// Points keep their order and flags and widen the box, which stands at the shape's own address; the last point says
// whether the shape is closed; copies are deep, and a path holds 65535 points at most.
TEST_F(ShapeTest, AppendedPointsKeepTheirOrderAndWidenTheBox) {
    vSHAPE shape;
    EXPECT_TRUE(Path(shape) == Ints({0, 0, 0, 0, 0}) && &shape.BoundBox() == static_cast<const void*>(&shape));
    shape.AppendPoint(vBEZPOINT(vPOINT(5, 5), 9));
    shape.AppendPoint(vBEZPOINT(vPOINT(-3, 9), 8));
    shape.AppendPoint(vBEZPOINT(vPOINT(2, -7), 10));
    const Ints drawn = {5, 5, 9, -3, 9, 8, 2, -7, 10, -3, -7, 5, 9, 1};
    EXPECT_EQ(Path(shape), drawn);
    vSHAPE copy(shape), assigned;
    assigned.AppendPoint(vBEZPOINT(vPOINT(100, 100), 1));
    assigned = shape;
    assigned = assigned;
    shape.AppendPoint(vBEZPOINT(vPOINT(-50, -50), 9));
    EXPECT_TRUE(shape.BoundBox() == vRECT(-50, -50, 5, 9) && !shape.Closed() && shape.NoOfContours() == 1);
    EXPECT_TRUE(Path(copy) == drawn && Path(assigned) == drawn);
    vSHAPE longest;
    for (long i = 0; i < 65535; ++i)
        ASSERT_EQ(longest.AppendPoint(vBEZPOINT(vPOINT(i, -i), 8)), 1);
    EXPECT_EQ(longest.AppendPoint(vBEZPOINT(vPOINT(), 8)), 0);
    EXPECT_TRUE(longest[65534] == vPOINT(65534, -65534) && longest.BoundBox() == vRECT(0, -65534, 65534, 0));
}

}  // namespace
