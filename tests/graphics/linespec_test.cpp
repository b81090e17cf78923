#include "support/zktest.h"
#include "support/streamform.h"

#include "graphics/linespec.h"

namespace {

const unsigned char Dashes[6] = {4, 2, 1, 2, 8, 3};

vLINESPEC Sample(const unsigned char* pattern = Dashes)
{
    return vLINESPEC(vLINE_SOLID, vCOLOUR(1, 2, 3), 2, vCORNER_BEVEL, vDASH_PATTERN, pattern);
}

TEST(LineSpecTest, ANullPatternIsSixZerosAndNothingLiesBeyondTheSixth)
{
    vLINESPEC dashed = Sample();
    vLINESPEC plain = Sample(nullptr);
    for (unsigned short i = 0; i < 6; ++i) {
        EXPECT_EQ(dashed.Pattern(i), Dashes[i]) << i;
        EXPECT_EQ(plain.Pattern(i), 0) << i;
    }
    EXPECT_EQ(dashed.Pattern(6), 0);
}

TEST(LineSpecTest, EveryFieldButThePatternTakesPartInEquality)
{
    const vLINESPEC variants[] = {
        vLINESPEC(vLINE_NONE, vCOLOUR(1, 2, 3), 2, vCORNER_BEVEL, vDASH_PATTERN, Dashes),
        vLINESPEC(vLINE_SOLID, vCOLOUR(1, 2, 4), 2, vCORNER_BEVEL, vDASH_PATTERN, Dashes),
        vLINESPEC(vLINE_SOLID, vCOLOUR(1, 2, 3), 3, vCORNER_BEVEL, vDASH_PATTERN, Dashes),
        vLINESPEC(vLINE_SOLID, vCOLOUR(1, 2, 3), 2, vCORNER_ROUND, vDASH_PATTERN, Dashes),
        vLINESPEC(vLINE_SOLID, vCOLOUR(1, 2, 3), 2, vCORNER_BEVEL, vDASH_SOLID, Dashes),
    };
    for (const vLINESPEC& variant : variants) {
        EXPECT_EQ(Sample() == variant, 0);
        EXPECT_EQ(Sample() != variant, 1);
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

// The fields in order, the pattern included, so a read spec is equal to
// what was written and keeps its pattern; a spec made from too few bytes
// ends its stream.
TEST(LineSpecTest, StreamFormIsTheFieldsInOrder)
{
    const unsigned char pattern[6] = {4, 2, 1, 0, 0, 9};
    vLINESPEC spec(vLINE_SOLID, vCOLOUR(1, 2, 3), vINT(5), vCORNER_MITRE, vDASH_PATTERN, pattern);
    zktest::StreamBytes bytes = zktest::StreamForm(spec);
    zktest::StreamBytes expected{1, 2, 3, 0, 0, 100, 0, 0, 5, 0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 5, 0, 0, 0,
                                 4, 2, 1, 0, 0, 9};
    EXPECT_EQ(bytes, expected);

    vMEMSTREAM stream;
    zktest::Refill(stream, bytes);
    vLINESPEC read(stream);
    EXPECT_EQ(stream.Status(), vSTREAM_GOOD);
    EXPECT_TRUE(read == spec);
    EXPECT_EQ(read.Pattern(5), 9);

    stream.MoveFromStart(0);
    stream.MoveFromEnd(4);
    vLINESPEC truncated(stream);
    EXPECT_EQ(stream.Status(), vSTREAM_END);
    EXPECT_EQ(truncated.Pattern(0), 0);
}

}  // namespace
