#include "support/zktest.h"

#include "graphics/translate.h"

namespace {

struct Placing {
    double dx, dy;
    long x, y;
    long expectedX, expectedY;
};

class TranslateTest : public ::testing::TestWithParam<Placing> {};

// The first and fifth coefficients are 0, so the point itself drops out.
TEST_P(TranslateTest, PutsEveryPointAtTheOffset)
{
    const Placing& p = GetParam();
    vPOINT mapped = vTRANSLATE(vREAL(p.dx), vREAL(p.dy))(vPOINT(p.x, p.y));
    EXPECT_EQ(mapped.x(), p.expectedX);
    EXPECT_EQ(mapped.y(), p.expectedY);
}

INSTANTIATE_TEST_SUITE_P(Table, TranslateTest, ::testing::Values(
    Placing{5, 7, 100, 100, 5, 7},
    Placing{5, 7, 0, 0, 5, 7},
    Placing{5, 7, -40, 3, 5, 7},
    Placing{-3.5, 2.25, 9, 9, -4, 2}));

}  // namespace
