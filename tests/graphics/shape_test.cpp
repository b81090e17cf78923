#include "support/zktest.h"

#include "graphics/shape.h"

namespace {

class ShapeTest : public zktest::LeakFreeTest {};

// The outline of a tab label, as the tabbed dialog appends it.
void AppendLabel(vSHAPE& shape)
{
    shape.AppendPoint(vBEZPOINT(vPOINT(8, 30), 9));
    shape.AppendPoint(vBEZPOINT(vPOINT(8, 12), 8));
    shape.AppendPoint(vBEZPOINT(vPOINT(52, 12), 8));
    shape.AppendPoint(vBEZPOINT(vPOINT(53, 30), 10));
}

void ExpectLabel(const vSHAPE& shape)
{
    ASSERT_EQ(shape.NoPoint(), 4);
    EXPECT_TRUE(shape[0] == vPOINT(8, 30));
    EXPECT_TRUE(shape[2] == vPOINT(52, 12));
    EXPECT_EQ(shape[0].First(), 1);
    EXPECT_EQ(shape[3].Last(), 2);
    EXPECT_TRUE(shape.BoundBox() == vRECT(8, 12, 53, 30));
    EXPECT_TRUE(shape.Closed());
    EXPECT_EQ(shape.NoOfContours(), 1);
}

TEST_F(ShapeTest, AnEmptyShapeHasAZeroBoxAtItsOwnAddress)
{
    vSHAPE shape;
    EXPECT_EQ(shape.NoPoint(), 0);
    EXPECT_TRUE(shape.BoundBox() == vRECT());
    EXPECT_EQ(static_cast<const void*>(&shape.BoundBox()), static_cast<const void*>(&shape));
    EXPECT_FALSE(shape.Closed());
}

TEST_F(ShapeTest, AppendedPointsKeepTheirOrderAndFlagsAndWidenTheBox)
{
    vSHAPE shape;
    AppendLabel(shape);
    ExpectLabel(shape);

    vSHAPE crossing;
    crossing.AppendPoint(vBEZPOINT(vPOINT(5, 5), 1));
    EXPECT_TRUE(crossing.BoundBox() == vRECT(5, 5, 5, 5));
    crossing.AppendPoint(vBEZPOINT(vPOINT(-3, 9), 8));
    crossing.AppendPoint(vBEZPOINT(vPOINT(2, -7), 8));
    EXPECT_TRUE(crossing.BoundBox() == vRECT(-3, -7, 5, 9));
}

TEST_F(ShapeTest, ClosedFollowsTheLastPointAppended)
{
    vSHAPE shape;
    shape.AppendPoint(vBEZPOINT(vPOINT(), 9));
    EXPECT_FALSE(shape.Closed());
    shape.AppendPoint(vBEZPOINT(vPOINT(1, 1), 10));
    EXPECT_TRUE(shape.Closed());
    shape.AppendPoint(vBEZPOINT(vPOINT(2, 2), 9));
    EXPECT_FALSE(shape.Closed());
}

TEST_F(ShapeTest, TheArrayConstructorCopiesTheCallersPoints)
{
    vBEZPOINT first(vPOINT(1, 2), 9);
    vBEZPOINT second(vPOINT(3, 4), 10);
    vBEZPOINT* given[] = {&first, &second};
    vSHAPE shape(2, given);
    first = vBEZPOINT(vPOINT(99, 99), 0);
    ASSERT_EQ(shape.NoPoint(), 2);
    EXPECT_TRUE(shape[0] == vPOINT(1, 2));
    EXPECT_EQ(shape[0].LineTo(), 8);
    EXPECT_TRUE(shape.BoundBox() == vRECT(1, 2, 3, 4));
}

TEST_F(ShapeTest, CopiesAndAssignmentsAreDeepAndIndependent)
{
    vSHAPE original;
    AppendLabel(original);
    vSHAPE copy(original);
    vSHAPE assigned;
    assigned.AppendPoint(vBEZPOINT(vPOINT(100, 100), 1));
    assigned = original;
    original.AppendPoint(vBEZPOINT(vPOINT(-50, -50), 9));
    ExpectLabel(copy);
    ExpectLabel(assigned);
    assigned = assigned;
    ExpectLabel(assigned);
}

TEST_F(ShapeTest, APathKeepsEveryPointInOrderUpTo65535)
{
    vSHAPE shape;
    for (long i = 0; i < 65535; ++i)
        ASSERT_EQ(shape.AppendPoint(vBEZPOINT(vPOINT(i, -i), 8)), 1);
    EXPECT_EQ(shape.AppendPoint(vBEZPOINT(vPOINT(), 8)), 0);
    ASSERT_EQ(shape.NoPoint(), 65535);
    for (long i = 0; i < 65535; i += 4099)
        EXPECT_TRUE(shape[static_cast<unsigned short>(i)] == vPOINT(i, -i)) << i;
    EXPECT_TRUE(shape.BoundBox() == vRECT(0, -65534, 65534, 0));
}

}  // namespace
