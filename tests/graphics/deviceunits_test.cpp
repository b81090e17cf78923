#include "graphics/surface.h"

using namespace zktest;

namespace {

class UnitsTest : public SurfaceTest {
protected:
    // Logical units per inch as a multiple of the device's, in halves.
    void Halves(long halves)
    {
        long horizontal = device().DevUnitsPerHorzInch()();
        long vertical = device().DevUnitsPerVertInch()();
        device().LogUnitsPerHorzInch(horizontal * halves / 2);
        device().LogUnitsPerVertInch(vertical * halves / 2);
    }
};

void ExpectPoint(const vPOINT& point, long x, long y)
{
    EXPECT_EQ(point.x(), x);
    EXPECT_EQ(point.y(), y);
}

void ExpectRect(const vRECT& rect, long left, long top, long right, long bottom)
{
    EXPECT_EQ(rect.Left()(), left);
    EXPECT_EQ(rect.Top()(), top);
    EXPECT_EQ(rect.Right()(), right);
    EXPECT_EQ(rect.Bottom()(), bottom);
}

TEST_F(UnitsTest, OneLogicalUnitIsOneDeviceUnitUntilToldOtherwise)
{
    EXPECT_GT(device().DevUnitsPerHorzInch()(), 0);
    EXPECT_EQ(device().LogUnitsPerHorzInch()(), device().DevUnitsPerHorzInch()());
    EXPECT_EQ(device().LogUnitsPerVertInch()(), device().DevUnitsPerVertInch()());
    ExpectPoint(device().LPtoDP(vPOINT(-7, 13)), -7, 13);
    // Beyond what a real holds, one to one still maps exactly.
    ExpectPoint(device().LPtoDP(vPOINT(40000, -40000)), 40000, -40000);
    ExpectRect(device().LPtoDP(vRECT(-40000, 5, 40000, 70000)), -40000, 5, 40000, 70000);
    Halves(4);
    device().LogUnitsPerHorzInch(0);
    device().LogUnitsPerVertInch(0);
    ExpectPoint(device().LPtoDP(vPOINT(-7, 13)), -7, 13);
}

TEST_F(UnitsTest, PointsFloorBothWays)
{
    Halves(4);
    ExpectPoint(device().LPtoDP(vPOINT(3, 4)), 1, 2);
    ExpectPoint(device().LPtoDP(vPOINT(-1, -3)), -1, -2);
    Halves(1);
    ExpectPoint(device().DPtoLP(vPOINT(3, -3)), 1, -2);
}

TEST_F(UnitsTest, RectanglesFloorTheNearEdgesAndCeilTheFarOnes)
{
    Halves(4);
    ExpectRect(device().LPtoDP(vRECT(3, 3, 9, 10)), 1, 1, 5, 5);
    // A negative fraction's ceiling goes more than a whole unit down.
    ExpectRect(device().LPtoDP(vRECT(-3, -3, -1, -1)), -2, -2, -2, -2);
    Halves(1);
    ExpectRect(device().DPtoLP(vRECT(1, 1, 3, 3)), 0, 0, 2, 2);
}

TEST_F(UnitsTest, DeviceLengthsCeilAndLogicalLengthsFloor)
{
    Halves(4);
    EXPECT_EQ(device().LHtoDH(1)(), 1);
    EXPECT_EQ(device().LVtoDV(0)(), 0);
    EXPECT_EQ(device().LHtoDH(4)(), 2);
    EXPECT_EQ(device().LVtoDV(-1)(), -2);
    EXPECT_EQ(device().DHtoLH(3)(), 6);
    Halves(1);
    EXPECT_EQ(device().DHtoLH(3)(), 1);
    EXPECT_EQ(device().DVtoLV(-3)(), -2);
    EXPECT_EQ(device().LVtoDV(3)(), 6);
}

TEST_F(UnitsTest, OriginIsTheLogicalPointAtTheTopLeftCorner)
{
    device().Origin(vPOINT(10, 20));
    ExpectPoint(device().LPtoDP(vPOINT(10, 20)), 0, 0);
    ExpectPoint(device().DPtoLP(vPOINT(0, 0)), 10, 20);
    device().LineSpec(NoLine());
    device().FillSpec(Fill(White));
    device().DrawRect(vRECT(10, 20, 15, 25));
    EXPECT_EQ(Edges(Read().Ink()), (std::vector<long>{0, 0, 5, 5}));
}

TEST_F(UnitsTest, DrawingLandsWhereTheConversionSays)
{
    Halves(4);
    device().LineSpec(NoLine());
    device().FillSpec(Fill(White));
    device().DrawRect(vRECT(3, 3, 9, 9));
    Pixels pixels = Read();
    EXPECT_EQ(Edges(pixels.Ink()), (std::vector<long>{1, 1, 5, 5}));
    EXPECT_EQ(pixels.Count(White), 16);
}

TEST_F(UnitsTest, LineWidthIsInLogicalUnits)
{
    Halves(1);
    device().LineSpec(Line(Red, 2));
    device().DrawLine(vPOINT(5, 20), vPOINT(40, 20));
    Pixels pixels = Read();
    int rows = 0;
    for (int y = 0; y < Side; ++y)
        rows += pixels.At(50, y) == Red;
    EXPECT_EQ(rows, 4);
}

}  // namespace
