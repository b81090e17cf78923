#include "support/zktest.h"
#include "support/streamform.h"

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

TEST(RangeTest, StreamFormIsLowThenHighAsRawWords)
{
    vRANGE range(vREAL(0.5), vREAL(2));
    zktest::StreamBytes bytes{0x00, 0x80, 0, 0, 0, 0, 0x02, 0};
    EXPECT_EQ(zktest::StreamForm(range), bytes);
    vRANGE read;
    EXPECT_EQ(zktest::ReadStreamForm(bytes, read), vSTREAM_GOOD);
    EXPECT_TRUE(read == range);
}

}  // namespace
