#include "support/zktest.h"

#include "graphics/scale.h"

namespace {

struct Scaling {
    long originX, originY;
    double sx, sy;
    long x, y;
    long expectedX, expectedY;
};

class ScaleTest : public ::testing::TestWithParam<Scaling> {};

// The origin is scaled and added, so it is not a fixed point of the mapping.
TEST_P(ScaleTest, MapsToTheScaledSumOfPointAndOrigin)
{
    const Scaling& s = GetParam();
    vSCALE scale(vPOINT(s.originX, s.originY), vREAL(s.sx), vREAL(s.sy));
    vPOINT mapped = scale(vPOINT(s.x, s.y));
    EXPECT_EQ(mapped.x(), s.expectedX);
    EXPECT_EQ(mapped.y(), s.expectedY);
}

INSTANTIATE_TEST_SUITE_P(Table, ScaleTest, ::testing::Values(
    Scaling{10, 10, 2, 2, 1, 1, 22, 22},
    Scaling{10, 10, 1, 1, 10, 10, 20, 20},
    Scaling{0, 0, 0.5, 3, 7, -3, 3, -9},
    Scaling{0, 0, 0.5, 0.5, -3, 3, -2, 1},
    Scaling{4, -2, 1.5, -1, 2, 2, 9, 0},
    Scaling{-5, 6, 0, 0, 100, 100, 0, 0}));

}  // namespace
