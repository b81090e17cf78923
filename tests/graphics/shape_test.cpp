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
}

TEST_F(ShapeTest, AnEmptyShapeHasNoPointsAndAZeroBox)
{
    vSHAPE shape;
    EXPECT_EQ(shape.NoPoint(), 0);
    EXPECT_TRUE(shape.BoundBox() == vRECT());
    EXPECT_FALSE(shape.Closed());
    EXPECT_EQ(shape.NoOfContours(), 1);
}

TEST_F(ShapeTest, TheBoundBoxStandsAtTheShapesOwnAddress)
{
    vSHAPE shape;
    EXPECT_EQ(static_cast<const void*>(&shape.BoundBox()), static_cast<const void*>(&shape));
}

TEST_F(ShapeTest, AppendedPointsKeepTheirOrderAndFlagsAndWidenTheBox)
{
    vSHAPE shape;
    AppendLabel(shape);
    ExpectLabel(shape);
    EXPECT_EQ(shape.NoOfContours(), 1);
}

TEST_F(ShapeTest, TheBoxFollowsNegativeCoordinatesAndStartsAtTheFirstPoint)
{
    vSHAPE shape;
    shape.AppendPoint(vBEZPOINT(vPOINT(5, 5), 1));
    EXPECT_TRUE(shape.BoundBox() == vRECT(5, 5, 5, 5));
    shape.AppendPoint(vBEZPOINT(vPOINT(-3, 9), 8));
    shape.AppendPoint(vBEZPOINT(vPOINT(2, -7), 8));
    EXPECT_TRUE(shape.BoundBox() == vRECT(-3, -7, 5, 9));
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
    EXPECT_NE(&shape[1], &second);
    EXPECT_TRUE(shape.BoundBox() == vRECT(1, 2, 3, 4));
    EXPECT_TRUE(shape.Closed());
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
    EXPECT_NE(&copy[0], &original[0]);
    assigned = assigned;
    ExpectLabel(assigned);
}

TEST_F(ShapeTest, ALongPathKeepsEveryPointInOrder)
{
    vSHAPE shape;
    for (long i = 0; i < 1000; ++i)
        ASSERT_EQ(shape.AppendPoint(vBEZPOINT(vPOINT(i, -i), 8)), 1);
    ASSERT_EQ(shape.NoPoint(), 1000);
    for (unsigned short i = 0; i < 1000; i += 37)
        EXPECT_TRUE(shape[i] == vPOINT(i, -i)) << i;
    EXPECT_TRUE(shape.BoundBox() == vRECT(0, -999, 999, 0));
}

TEST_F(ShapeTest, AShapeHoldsAtMost65535Points)
{
    vSHAPE shape;
    for (long i = 0; i < 65535; ++i)
        shape.AppendPoint(vBEZPOINT(vPOINT(i, 0), 8));
    ASSERT_EQ(shape.NoPoint(), 65535);
    EXPECT_EQ(shape.AppendPoint(vBEZPOINT(vPOINT(), 8)), 0);
    EXPECT_EQ(shape.NoPoint(), 65535);
    EXPECT_TRUE(shape[65534] == vPOINT(65534, 0));
}

}  // namespace
