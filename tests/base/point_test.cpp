#include "support/zktest.h"
#include "support/streamform.h"

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

// x then y; a size is a point and goes the same way.
TEST(PointTest, StreamFormIsXThenY)
{
    zktest::StreamBytes bytes{0x01, 0, 0, 0, 0xFE, 0xFF, 0xFF, 0xFF};
    EXPECT_EQ(zktest::StreamForm(vPOINT(1, -2)), bytes);
    vSIZE size;
    EXPECT_EQ(zktest::ReadStreamForm(bytes, size), vSTREAM_GOOD);
    EXPECT_EQ(size.Width()(), 1);
    EXPECT_EQ(size.Height()(), -2);
}

}  // namespace
