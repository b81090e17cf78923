#include "support/zktest.h"

#include <cmath>

#include "graphics/elpsshape.h"

namespace {

class ElpsShapeTest : public zktest::LeakFreeTest {};

int FlagsOf(const vBEZPOINT& point)
{
    return point.First() | point.Last() | point.LineTo() | point.CurveTo() | point.Control();
}

// Where a cubic Bézier arc is half way along.
double Midpoint(double start, double first, double second, double end)
{
    return (start + 3 * first + 3 * second + end) / 8;
}

TEST_F(ElpsShapeTest, FourQuarterArcsClockwiseFromTheRightMiddle)
{
    vELPSSHAPE shape(vRECT(0, 0, 200, 100));
    // The control points stand k/2 of the width and height from the middles,
    // floored: 55 across and 27 down.
    const vPOINT points[] = {
        vPOINT(200, 50),
        vPOINT(200, 77), vPOINT(155, 100), vPOINT(100, 100),
        vPOINT(45, 100), vPOINT(0, 77), vPOINT(0, 50),
        vPOINT(0, 23), vPOINT(45, 0), vPOINT(100, 0),
        vPOINT(155, 0), vPOINT(200, 23), vPOINT(200, 50)};
    const int flags[] = {1, 32, 32, 16, 32, 32, 16, 32, 32, 16, 32, 32, 18};
    ASSERT_EQ(shape.NoPoint(), 13);
    for (unsigned short i = 0; i < 13; ++i) {
        EXPECT_TRUE(shape[i] == points[i]) << i;
        EXPECT_EQ(FlagsOf(shape[i]), flags[i]) << i;
    }
    EXPECT_TRUE(shape.BoundBox() == vRECT(0, 0, 200, 100));
    EXPECT_TRUE(shape.Closed());
}

TEST_F(ElpsShapeTest, EachArcPassesThroughTheCircleHalfWay)
{
    vELPSSHAPE shape(vRECT(-1000, -1000, 1000, 1000));
    for (unsigned short start = 0; start < 12; start += 3) {
        double x = Midpoint(shape[start].x(), shape[start + 1].x(), shape[start + 2].x(),
                            shape[start + 3].x());
        double y = Midpoint(shape[start].y(), shape[start + 1].y(), shape[start + 2].y(),
                            shape[start + 3].y());
        EXPECT_NEAR(std::sqrt(x * x + y * y), 1000.0, 1.0) << start;
    }
}

TEST_F(ElpsShapeTest, TheDefaultIsTheEmptyRectangle)
{
    vELPSSHAPE shape;
    ASSERT_EQ(shape.NoPoint(), 13);
    for (unsigned short i = 0; i < 13; ++i)
        EXPECT_TRUE(shape[i] == vPOINT()) << i;
}

}  // namespace
