#include "support/zktest.h"
#include "support/streamform.h"

#include "base/rect.h"

namespace {

TEST(RectTest, WidthAddsNothingBackAndNeverNormalises)
{
    vRECT rect(vPOINT(10, 10), 5, 5);
    EXPECT_TRUE(rect == vRECT(10, 10, 14, 14));
    EXPECT_EQ(rect.Width()(), 4);
    rect.Right(vINT(4));
    EXPECT_EQ(rect.Right()(), 4);
    EXPECT_EQ(rect.Width()(), -6);
    EXPECT_EQ(vRECT(10, 20, 4, 5).Height()(), -15);
}

TEST(RectTest, CornerSettersMoveOnlyTheirTwoEdges)
{
    vRECT rect(0, 0, 10, 10);
    rect.TopRight(vPOINT(20, -5));
    EXPECT_TRUE(rect == vRECT(0, -5, 20, 10));
    rect.BottomLeft(vPOINT(3, 30));
    EXPECT_TRUE(rect == vRECT(3, -5, 20, 30));
    EXPECT_TRUE(rect.TopRight() == vPOINT(20, -5));
    EXPECT_TRUE(rect.BottomLeft() == vPOINT(3, 30));
}

struct Capture {
    vRECT rect;
    vPOINT in, out;
};

class CaptureTest : public ::testing::TestWithParam<Capture> {};

TEST_P(CaptureTest, MovesThePointInsideWithRightAndBottomExcluded)
{
    vPOINT point = GetParam().in;
    GetParam().rect.capture(point);
    EXPECT_EQ(point.x(), GetParam().out.x());
    EXPECT_EQ(point.y(), GetParam().out.y());
}

INSTANTIATE_TEST_SUITE_P(Examples, CaptureTest, ::testing::Values(
    Capture{vRECT(0, 0, 10, 10), vPOINT(20, -5), vPOINT(9, 0)},
    Capture{vRECT(0, 0, 10, 10), vPOINT(10, 10), vPOINT(9, 9)},
    Capture{vRECT(0, 0, 10, 10), vPOINT(-3, 6), vPOINT(0, 6)},
    Capture{vRECT(5, 5, 5, 5), vPOINT(100, -100), vPOINT(4, 4)},
    Capture{vRECT(vPOINT(0, 0), 10, 10), vPOINT(50, 50), vPOINT(8, 8)}));

TEST(RectTest, HitTestIncludesLeftAndTopOnly)
{
    vRECT rect(0, 0, 10, 10);
    EXPECT_TRUE(rect ^ vPOINT(0, 0));
    EXPECT_TRUE(rect ^ vPOINT(9, 9));
    EXPECT_FALSE(rect ^ vPOINT(10, 5));
    EXPECT_FALSE(rect ^ vPOINT(5, 10));
    EXPECT_FALSE(vRECT(10, 10, 0, 0) ^ vPOINT(5, 5));
}

TEST(RectTest, ExpandAndMove)
{
    vRECT rect(10, 20, 30, 40);
    vRECT result = rect.Expand(6, -4);
    EXPECT_TRUE(rect == vRECT(4, 24, 36, 36));
    EXPECT_TRUE(result == rect);
    EXPECT_TRUE(rect + vPOINT(1, 2) == vRECT(5, 26, 37, 38));
    EXPECT_TRUE(rect != vRECT(4, 24, 36, 37));
}

// Left, top, right, bottom; an inverted rectangle stays inverted, and a
// short stream ends without filling the rest.
TEST(RectTest, StreamFormIsTheFourEdgesInOrder)
{
    vRECT rect(vINT(3), vINT(4), vINT(-1), vINT(2));
    zktest::StreamBytes bytes = zktest::StreamForm(rect);
    EXPECT_EQ(bytes, (zktest::StreamBytes{3, 0, 0, 0, 4, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 2, 0, 0, 0}));
    vRECT read;
    EXPECT_EQ(zktest::ReadStreamForm(bytes, read), vSTREAM_GOOD);
    EXPECT_TRUE(read == rect);
    EXPECT_EQ(zktest::ReadStreamForm(zktest::StreamBytes(bytes.begin(), bytes.begin() + 10), read), vSTREAM_END);
    EXPECT_EQ(read.Left()(), 3);
    EXPECT_EQ(read.Right()(), 0);
}

}  // namespace
