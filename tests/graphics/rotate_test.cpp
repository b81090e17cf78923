#include "support/zktest.h"

#include "graphics/rotate.h"

namespace {

struct Turning {
    long originX, originY;
    double degrees;
    long x, y;
    long expectedX, expectedY;
};

class RotateTest : public ::testing::TestWithParam<Turning> {};

// x' = x cos - y sin + (ox cos + oy sin), y' = x sin + y cos + (oy cos - ox sin),
// each floored. A turn of 0 therefore moves a point by the origin.
TEST_P(RotateTest, TurnsThePointAndAddsTheOriginTurnedBack)
{
    const Turning& t = GetParam();
    vROTATE rotate(vPOINT(t.originX, t.originY), vANGLE(t.degrees));
    vPOINT mapped = rotate(vPOINT(t.x, t.y));
    EXPECT_EQ(mapped.x(), t.expectedX);
    EXPECT_EQ(mapped.y(), t.expectedY);
}

INSTANTIATE_TEST_SUITE_P(Table, RotateTest, ::testing::Values(
    Turning{3, 4, 0, 1, 1, 4, 5},
    Turning{0, 0, 90, 1, 0, 0, 1},
    Turning{0, 0, 90, 2, 3, -3, 2},
    Turning{3, 4, 90, 1, 1, 3, -2},
    Turning{0, 0, 180, 5, -2, -5, 2},
    Turning{0, 0, -90, 1, 0, 0, -1},
    Turning{0, 0, 30, 10, 0, 8, 5},
    Turning{0, 0, 30, 0, 10, -5, 8},
    Turning{0, 0, 30, -10, 0, -9, -5}));

}  // namespace
