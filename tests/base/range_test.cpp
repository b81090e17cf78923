#include "support/zktest.h"

#include "base/range.h"

namespace {

TEST(RangeTest, ArithmeticAndComparisonsApplyToBothEnds)
{
    vRANGE range(vINT(1), vINT(5));
    EXPECT_TRUE(range + vRANGE(vINT(1), vINT(1)) == vRANGE(vINT(2), vINT(6)));
    EXPECT_TRUE(range / vREAL(2) == vRANGE(vREAL(0.5), vREAL(2.5)));
    vRANGE crossed(vINT(0), vINT(9));
    EXPECT_FALSE(range < crossed || range > crossed || range <= crossed || range >= crossed);
    EXPECT_TRUE(range < vRANGE(vINT(2), vINT(6)));
    EXPECT_TRUE(range != vRANGE(vINT(1), vINT(6)));
}

}  // namespace
