#include "support/zktest.h"
#include "support/streamform.h"

#include "base/char.h"

namespace {

TEST(CharTest, HoldsTheLowByteWrapsOnNextAndOrdersSigned)
{
    EXPECT_EQ(vCHAR()(), 0);
    char out = 0;
    EXPECT_EQ(vCHAR(0x126).Symbol(out), '&');
    EXPECT_EQ(out, '&');
    vCHAR last(0xFF);
    EXPECT_EQ(last.Next()(), 0);
    vCHAR high(0x80);
    EXPECT_EQ(high < vCHAR('A'), 1);
    EXPECT_EQ(high >= vCHAR('A'), 0);
    EXPECT_EQ(vCHAR('A') > high, 1);
}

struct Classes {
    unsigned short code;
    int alpha, numeric, upper, lower;
};

class CharClassTest : public ::testing::TestWithParam<Classes> {};

TEST_P(CharClassTest, ClassifiesByPlainAscii)
{
    vCHAR character(GetParam().code);
    EXPECT_EQ(character.IsCharAlphaA(), GetParam().alpha);
    EXPECT_EQ(character.IsCharNumeric(), GetParam().numeric);
    EXPECT_EQ(character.IsCharUpperA(), GetParam().upper);
    EXPECT_EQ(character.IsCharLowerA(), GetParam().lower);
}

INSTANTIATE_TEST_SUITE_P(Boundaries, CharClassTest, ::testing::Values(
    Classes{'A', 1, 0, 1, 0}, Classes{'Z', 1, 0, 1, 0}, Classes{'@', 0, 0, 0, 0},
    Classes{'[', 0, 0, 0, 0}, Classes{'a', 1, 0, 0, 1}, Classes{'z', 1, 0, 0, 1},
    Classes{'`', 0, 0, 0, 0}, Classes{'{', 0, 0, 0, 0}, Classes{'0', 0, 1, 0, 0},
    Classes{'9', 0, 1, 0, 0}, Classes{'/', 0, 0, 0, 0}, Classes{':', 0, 0, 0, 0},
    Classes{0xE9, 0, 0, 0, 0}, Classes{0xC9, 0, 0, 0, 0}));

TEST(CharTest, StreamFormIsOneByte)
{
    EXPECT_EQ(zktest::StreamForm(vCHAR(0xE9)), (zktest::StreamBytes{0xE9}));
    vCHAR read;
    EXPECT_EQ(zktest::ReadStreamForm({0x80}, read), vSTREAM_GOOD);
    EXPECT_TRUE(read < vCHAR('A'));
}

}  // namespace
