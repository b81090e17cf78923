#include <climits>

#include "support/zktest.h"
#include "support/streamform.h"

#include "base/values.h"

namespace {

TEST(IntTest, ArithmeticWrapsShiftsAreArithmeticAndDivisionTruncates)
{
    EXPECT_EQ((vINT(LONG_MAX) + vINT(1))(), LONG_MIN);
    EXPECT_EQ((-vINT(LONG_MIN))(), LONG_MIN);
    EXPECT_EQ((vINT(-7) / vINT(2))(), -3);
    EXPECT_EQ((vINT(-8) >> 1)(), -4);
    EXPECT_EQ((vINT(3) << 30)(), LONG_MIN + (1L << 30));
    EXPECT_EQ(vINT(-1) < vINT(1), 1);
    EXPECT_EQ(!vINT(0), 1);
}

TEST(IntTest, MixingWithRealFloorsBackAndNeedsAWideIntermediate)
{
    EXPECT_EQ(vINT(vREAL(-0.25))(), -1);
    EXPECT_EQ((vINT(-3) * vREAL(0.5))(), -0x18000);
    EXPECT_EQ((vINT(1) / vREAL(3))(), 0x5555);
    EXPECT_EQ((vINT(30000) / vREAL(2))(), 15000L << 16);
    EXPECT_EQ((vINT(5) / vREAL())(), 0);
}

// Whole numbers go as signed longs, least significant byte first; a value
// that cannot be read whole comes back as 0.
TEST(IntTest, StreamFormIsOneSignedLong)
{
    EXPECT_EQ(zktest::StreamForm(vINT(-2)), (zktest::StreamBytes{0xFE, 0xFF, 0xFF, 0xFF}));
    vINT read(5);
    EXPECT_EQ(zktest::ReadStreamForm({0x01, 0x02, 0x03, 0x84}, read), vSTREAM_GOOD);
    EXPECT_EQ(read(), static_cast<long>(0x84030201UL));
    EXPECT_EQ(zktest::ReadStreamForm({0x01, 0x02}, read), vSTREAM_END);
    EXPECT_EQ(read(), 0);
}

}  // namespace
