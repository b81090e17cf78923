#include "support/zktest.h"
#include "support/streamform.h"

#include <cstring>
#include <functional>

#include "graphics/fillspec.h"

namespace {

vFILLSPEC Sample()
{
    return vFILLSPEC(vFILL_SOLID, vCOLOUR(1, 2, 3), vCOLOUR(4, 5, 6), vANGLE(45.0), vFILL_ALTERNATE);
}

struct Grouping {
    int type;
    int hatched, gemBrush;
};

class FillGroupingTest : public ::testing::TestWithParam<Grouping> {};

TEST_P(FillGroupingTest, HatchesAreEightToThirteenAndBrushesFifteenToFifty)
{
    vFILLSPEC spec = Sample();
    spec.Type(static_cast<vFILLTYPE>(GetParam().type));
    EXPECT_EQ(spec.Hatched(), GetParam().hatched);
    EXPECT_EQ(spec.GemBrush(), GetParam().gemBrush);
}

INSTANTIATE_TEST_SUITE_P(Table, FillGroupingTest, ::testing::Values(
    Grouping{1, 0, 0}, Grouping{7, 0, 0}, Grouping{8, 1, 0}, Grouping{13, 1, 0},
    Grouping{14, 0, 0}, Grouping{15, 0, 1}, Grouping{50, 0, 1}, Grouping{51, 0, 0}));

TEST(FillSpecTest, ColourAndColourFromAreOneField)
{
    vFILLSPEC spec = Sample();
    spec.Colour(vCOLOUR(7, 7, 7));
    EXPECT_TRUE(spec.ColourFrom() == vCOLOUR(7, 7, 7));
    spec.ColourFrom(vCOLOUR(8, 8, 8));
    EXPECT_TRUE(spec.Colour() == vCOLOUR(8, 8, 8));
    EXPECT_TRUE(spec.ColourTo() == vCOLOUR(4, 5, 6));
}

TEST(FillSpecTest, EveryFieldTakesPartInEquality)
{
    const std::function<void(vFILLSPEC&)> changes[] = {
        [](vFILLSPEC& s) { s.ColourFrom(vCOLOUR(0, 2, 3)); },
        [](vFILLSPEC& s) { s.ColourTo(vCOLOUR(0, 5, 6)); },
        [](vFILLSPEC& s) { s.Type(vFILL_HOLLOW); },
        [](vFILLSPEC& s) { s.Angle(vANGLE(46.0)); },
        [](vFILLSPEC& s) { s.Mode(vFILL_WINDING); },
    };
    EXPECT_EQ(Sample() == Sample(), 1);
    for (const auto& change : changes) {
        vFILLSPEC changed = Sample();
        change(changed);
        EXPECT_EQ(Sample() == changed, 0);
        EXPECT_EQ(changed != Sample(), 1);
    }
}

// Nothing sets the special word yet, so the test writes the spec's last field.
TEST(FillSpecTest, ASpecialLeftSideEqualsNothingNotEvenItself)
{
    vFILLSPEC special = Sample();
    long marked = 1;
    std::memcpy(reinterpret_cast<char*>(&special) + sizeof special - sizeof marked, &marked,
                sizeof marked);
    EXPECT_EQ(special == special, 0);
    EXPECT_EQ(special != special, 1);
    EXPECT_EQ(Sample() == special, 1);
    EXPECT_EQ(Sample() != special, 0);
}

TEST(FillSpecTest, StreamFormIsTheFieldsInOrder)
{
    vFILLSPEC spec(vFILL_HATCH_CROSS, vCOLOUR(1, 2, 3), vCOLOUR(4, 5, 6), vANGLE(short(45)), vFILL_WINDING);
    zktest::StreamBytes bytes = zktest::StreamForm(spec);
    zktest::StreamBytes expected{1, 2, 3, 0, 0, 100, 0, 0, 4, 5, 6, 0, 0, 100, 0, 0, 0, 0, 45, 0,
                                 12, 0, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(bytes, expected);

    vMEMSTREAM stream;
    zktest::Refill(stream, bytes);
    vFILLSPEC read(stream);
    EXPECT_EQ(stream.Status(), vSTREAM_GOOD);
    EXPECT_TRUE(read == spec);
    EXPECT_TRUE(read.Hatched());
}

}  // namespace
