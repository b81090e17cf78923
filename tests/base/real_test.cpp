#include <cmath>

#include "support/zktest.h"
#include "support/streamform.h"

#include "base/values.h"

namespace {

struct Rounding {
    double value;
    long floor, round, ceil;
};

class RoundingTest : public ::testing::TestWithParam<Rounding> {};

TEST_P(RoundingTest, FloorRoundAndCeilLandOnTheSamePixels)
{
    vREAL real(GetParam().value);
    EXPECT_EQ(real.Floor()(), GetParam().floor);
    EXPECT_EQ(real.Round()(), GetParam().round);
    EXPECT_EQ(real.Ceil()(), GetParam().ceil);
}

INSTANTIATE_TEST_SUITE_P(Table, RoundingTest, ::testing::Values(
    Rounding{2.0, 2, 2, 2}, Rounding{1.5, 1, 2, 2}, Rounding{1.25, 1, 1, 2},
    Rounding{0.25, 0, 0, 1}, Rounding{0.0, 0, -1, 0}, Rounding{-0.25, -1, -1, -2},
    Rounding{-0.5, -1, -1, -2}, Rounding{-1.0, -1, -2, -1}, Rounding{-1.25, -2, -2, -3},
    Rounding{-1.5, -2, -2, -3}, Rounding{-1.75, -2, -3, -3}));

TEST(RealTest, ConstructionFromWholeNumbersAndDoubles)
{
    EXPECT_EQ(vREAL(-1).Round()(), -2);
    EXPECT_EQ(vREAL(vINT(-2))(), -0x20000);
    EXPECT_EQ(vREAL(1.9999999)(), 0x1FFFF);
    EXPECT_EQ(vREAL(-1.9999999)(), -0x1FFFF);
    EXPECT_EQ(vREAL(65537.0)(), 0x10000);
    vREAL assigned(1.5);
    assigned = vINT(7);
    EXPECT_EQ(assigned(), 0x70000);
}

TEST(RealTest, ArithmeticOnRawWords)
{
    EXPECT_EQ((vREAL(32767) + vREAL(1))(), LONG_MIN);
    EXPECT_EQ((vREAL(1.5) * vREAL(-2.5))(), -0x3C000);
    EXPECT_EQ((vREAL(100) * vREAL(200))(), 20000L << 16);
    EXPECT_EQ((vREAL(-3) / vREAL(2))(), -0x18000);
    EXPECT_EQ((vREAL(5) / vREAL())(), 0);
    EXPECT_EQ(vREAL(-0.5) < vREAL(0.25), 1);
}

TEST(AngleTest, ShortIsReducedKeepingTheSignAndDoubleIsNot)
{
    EXPECT_EQ(vANGLE(static_cast<short>(-390))(), -30L * 65536);
    EXPECT_EQ(vANGLE(static_cast<short>(360))(), 0);
    EXPECT_EQ(vANGLE(-390.0)(), -390L * 65536);
}

TEST(AngleTest, SineAndCosineAreExactAtQuarterTurnsAndCloseBetween)
{
    const double degrees[] = {0, 90, 180, 270, -90, 450, 30, 45.5, 150.25, 200, 330, -60, 89.9};
    for (double angle : degrees) {
        double radians = angle * 3.14159265358979 / 180.0;
        double tolerance = std::fmod(angle, 90.0) == 0 ? 0.001 : 4.0;
        EXPECT_NEAR(vANGLE(angle).Sin()(), std::sin(radians) * 65536, tolerance) << angle;
        EXPECT_NEAR(vANGLE(angle).Cos()(), std::cos(radians) * 65536, tolerance) << angle;
    }
}

// The raw 16.16 word goes as it stands; an angle keeps its unreduced value.
TEST(RealTest, StreamFormIsTheRawWord)
{
    EXPECT_EQ(zktest::StreamForm(vREAL(1.5)), (zktest::StreamBytes{0x00, 0x80, 0x01, 0x00}));
    EXPECT_EQ(zktest::StreamForm(vREAL(-1)), (zktest::StreamBytes{0x00, 0x00, 0xFF, 0xFF}));
    vANGLE angle;
    EXPECT_EQ(zktest::ReadStreamForm(zktest::StreamForm(vANGLE(-390.0)), angle), vSTREAM_GOOD);
    EXPECT_TRUE(angle == vANGLE(-390.0));
}

}  // namespace
