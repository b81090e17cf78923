#include "support/zktest.h"

#include <functional>

#include "graphics/linespec.h"

namespace {

const unsigned char Dashes[6] = {4, 2, 1, 2, 8, 3};

vLINESPEC Sample(const unsigned char* pattern = Dashes)
{
    return vLINESPEC(vLINE_SOLID, vCOLOUR(1, 2, 3), 2, vCORNER_BEVEL, vDASH_PATTERN, pattern);
}

TEST(LineSpecTest, KeepsWhatItIsGiven)
{
    vLINESPEC spec = Sample();
    EXPECT_EQ(spec.LineType(), vLINE_SOLID);
    EXPECT_TRUE(spec.Colour() == vCOLOUR(1, 2, 3));
    EXPECT_EQ(spec.Width()(), 2);
    EXPECT_EQ(spec.CornerType(), vCORNER_BEVEL);
    EXPECT_EQ(spec.DashType(), vDASH_PATTERN);
    for (unsigned short i = 0; i < 6; ++i)
        EXPECT_EQ(spec.Pattern(i), Dashes[i]) << i;
}

TEST(LineSpecTest, ANullPatternIsSixZerosAndNothingLiesBeyondTheSixth)
{
    vLINESPEC spec = Sample(nullptr);
    for (unsigned short i = 0; i < 6; ++i)
        EXPECT_EQ(spec.Pattern(i), 0) << i;
    EXPECT_EQ(Sample().Pattern(6), 0);
}

TEST(LineSpecTest, SettersChangeWhatTheGettersAnswer)
{
    vLINESPEC spec = Sample();
    spec.Width(7);
    spec.Colour(vCOLOUR(9, 9, 9));
    spec.CornerType(vCORNER_MITRE);
    spec.DashType(vDASH_DOT);
    EXPECT_EQ(spec.Width()(), 7);
    EXPECT_TRUE(spec.Colour() == vCOLOUR(9, 9, 9));
    EXPECT_EQ(spec.CornerType(), vCORNER_MITRE);
    EXPECT_EQ(spec.DashType(), vDASH_DOT);
}

TEST(LineSpecTest, EveryFieldButThePatternTakesPartInEquality)
{
    const std::function<vLINESPEC()> variants[] = {
        [] { return vLINESPEC(vLINE_NONE, vCOLOUR(1, 2, 3), 2, vCORNER_BEVEL, vDASH_PATTERN, Dashes); },
        [] { return vLINESPEC(vLINE_SOLID, vCOLOUR(1, 2, 4), 2, vCORNER_BEVEL, vDASH_PATTERN, Dashes); },
        [] { return vLINESPEC(vLINE_SOLID, vCOLOUR(1, 2, 3), 3, vCORNER_BEVEL, vDASH_PATTERN, Dashes); },
        [] { return vLINESPEC(vLINE_SOLID, vCOLOUR(1, 2, 3), 2, vCORNER_ROUND, vDASH_PATTERN, Dashes); },
        [] { return vLINESPEC(vLINE_SOLID, vCOLOUR(1, 2, 3), 2, vCORNER_BEVEL, vDASH_SOLID, Dashes); },
    };
    for (const auto& variant : variants) {
        EXPECT_EQ(Sample() == variant(), 0);
        EXPECT_EQ(Sample() != variant(), 1);
    }
    EXPECT_EQ(Sample() == Sample(nullptr), 1);
    EXPECT_EQ(Sample() != Sample(nullptr), 0);
}

TEST(LineSpecTest, AssignmentCopiesThePatternToo)
{
    vLINESPEC target = Sample(nullptr);
    target = Sample();
    for (unsigned short i = 0; i < 6; ++i)
        EXPECT_EQ(target.Pattern(i), Dashes[i]) << i;
}

}  // namespace
