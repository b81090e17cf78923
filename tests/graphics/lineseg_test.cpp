#include "support/zktest.h"

#include "graphics/lineseg.h"

namespace {

POINT At(long x, long y)
{
    POINT point = {x, y};
    return point;
}

void ExpectPoint(const POINT& actual, long x, long y)
{
    EXPECT_EQ(actual.x, x);
    EXPECT_EQ(actual.y, y);
}

TEST(LineSegTest, TheEndsAreOrderedByYAndTheDirectionTellsTheGivenOrder)
{
    LINESEG down(At(0, 0), At(5, 10));
    ExpectPoint(down.TopPoint(), 0, 0);
    ExpectPoint(down.BottomPoint(), 5, 10);
    EXPECT_EQ(down.Direction(), 0);

    LINESEG up(At(5, 10), At(0, 0));
    ExpectPoint(up.TopPoint(), 0, 0);
    ExpectPoint(up.BottomPoint(), 5, 10);
    EXPECT_EQ(up.Direction(), 1);

    LINESEG level(At(0, 4), At(9, 4));
    ExpectPoint(level.TopPoint(), 9, 4);
    ExpectPoint(level.BottomPoint(), 0, 4);
    EXPECT_EQ(level.Direction(), 1);
}

TEST(LineSegTest, AnEdgeOwnsItsTopScanLineAndNotItsBottomOne)
{
    LINESEG edge(At(0, 10), At(10, 0));
    EXPECT_EQ(edge.Intersect(-1), 0);
    EXPECT_EQ(edge.Intersect(0), 1);
    EXPECT_EQ(edge.Intersect(9), 1);
    EXPECT_EQ(edge.Intersect(10), 0);
    LINESEG level(At(0, 4), At(9, 4));
    EXPECT_EQ(level.Intersect(4), 0);
}

struct Crossing {
    long ax, ay, bx, by;
    short y;
    short x;
};

class CrossingTest : public ::testing::TestWithParam<Crossing> {};

TEST_P(CrossingTest, TheCrossingIsRoundedToTheNearestPixel)
{
    const Crossing& c = GetParam();
    LINESEG edge(At(c.ax, c.ay), At(c.bx, c.by));
    EXPECT_EQ(edge.CalcIntersect(c.y), c.x);
}

// Half way rounds away from the top end's x, on whichever side the edge leans.
// The last row's product, 300 times 200, does not fit in 16 bits and wraps.
INSTANTIATE_TEST_SUITE_P(Table, CrossingTest, ::testing::Values(
    Crossing{0, 0, 10, 10, 5, 5},
    Crossing{0, 0, 3, 10, 1, 0},
    Crossing{0, 0, 3, 10, 2, 1},
    Crossing{0, 0, 3, 10, 5, 2},
    Crossing{10, 0, 7, 10, 2, 9},
    Crossing{10, 0, 7, 10, 5, 8},
    Crossing{7, 10, 10, 0, 8, 8},
    Crossing{4, 0, 4, 10, 3, 4},
    Crossing{-20, 5, -10, 15, 10, -15},
    Crossing{0, 0, 300, 400, 200, -13}));

}  // namespace
