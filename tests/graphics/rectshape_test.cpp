#include "support/zktest.h"

#include "graphics/rectshape.h"

namespace {

class RectShapeTest : public zktest::LeakFreeTest {};

TEST_F(RectShapeTest, FourStraightSidesClockwiseFromTheTopLeft)
{
    vRECTSHAPE shape(vRECT(10, 20, 110, 70));
    const vPOINT corners[] = {vPOINT(10, 20), vPOINT(110, 20), vPOINT(110, 70), vPOINT(10, 70)};
    const int flags[] = {9, 8, 8, 10};
    ASSERT_EQ(shape.NoPoint(), 4);
    for (unsigned short i = 0; i < 4; ++i) {
        EXPECT_TRUE(shape[i] == corners[i]) << i;
        EXPECT_EQ(shape[i].First() | shape[i].Last() | shape[i].LineTo() | shape[i].CurveTo()
                      | shape[i].Control(), flags[i]) << i;
    }
    EXPECT_TRUE(shape.BoundBox() == vRECT(10, 20, 110, 70));
    EXPECT_TRUE(shape.Closed());
}

TEST_F(RectShapeTest, TheDefaultIsTheEmptyRectangle)
{
    vRECTSHAPE shape;
    ASSERT_EQ(shape.NoPoint(), 4);
    for (unsigned short i = 0; i < 4; ++i)
        EXPECT_TRUE(shape[i] == vPOINT()) << i;
    EXPECT_TRUE(shape.BoundBox() == vRECT());
}

}  // namespace
