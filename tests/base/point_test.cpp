#include "support/zktest.h"

#include "base/point.h"

namespace {

TEST(PointTest, ArithmeticIsComponentwiseAndScalingFloors)
{
    EXPECT_TRUE(vPOINT(1, -2) + vPOINT(10, 20) == vPOINT(11, 18));
    EXPECT_TRUE(vPOINT(1, -2) - vPOINT(10, 20) == vPOINT(-9, -22));
    EXPECT_TRUE(vPOINT(3, -3) * vREAL(0.5) == vPOINT(1, -2));
    EXPECT_TRUE(vPOINT(7, -7) / vREAL(2) == vPOINT(3, -4));
    EXPECT_FALSE(vPOINT(1, 2) == vPOINT(1, 3));
    EXPECT_TRUE(vPOINT(1, 2) != vPOINT(0, 2));
}

TEST(PointTest, OrderingIsDominance)
{
    vPOINT a(1, 5);
    vPOINT b(5, 1);
    EXPECT_FALSE(a < b || a > b || a <= b || a >= b);
    EXPECT_TRUE(vPOINT(1, 1) < vPOINT(2, 2));
    EXPECT_FALSE(vPOINT(1, 2) < vPOINT(1, 3));
    EXPECT_TRUE(vPOINT(1, 2) <= vPOINT(1, 3));
    EXPECT_TRUE(vPOINT(3, 3) > vPOINT(2, 2));
    EXPECT_TRUE(vPOINT(2, 3) >= vPOINT(2, 2));
}

TEST(PointTest, ManDistIsThePlainSumAndSizeNamesTheComponents)
{
    EXPECT_EQ(vPOINT(-3, 3).ManDist()(), 0);
    vSIZE size(40, 30);
    EXPECT_EQ(size.Width()(), 40);
    EXPECT_EQ(size.Height()(), 30);
}

}  // namespace
