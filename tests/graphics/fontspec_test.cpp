#include "support/zktest.h"

#include <functional>

#include "graphics/fontspec.h"

namespace {

class FontSpecTest : public zktest::LeakFreeTest {};

vFONTSPEC Sample(vFONT_HEIGHT mode = vFONT_POINTS)
{
    return vFONTSPEC(vSTRING("Arial"), vFONT_BOLD, 8, vREAL(0), 100, mode, vANGLE());
}

// The same spec built through the setters.
vFONTSPEC Assembled(long pointSize, long height)
{
    vFONTSPEC spec;
    spec.Name(vSTRING("Arial"));
    spec.Style(vFONT_BOLD);
    spec.PointSize(pointSize);
    spec.Height(height);
    return spec;
}

TEST_F(FontSpecTest, TheHeightModeDecidesWhichFieldTakesTheSize)
{
    EXPECT_FALSE(Sample(vFONT_POINTS).Pixels());
    EXPECT_TRUE(Sample(vFONT_PIXELS).Pixels());
    EXPECT_TRUE(Sample(vFONT_POINTS) == Assembled(8, 0));
    EXPECT_TRUE(Sample(vFONT_PIXELS) == Assembled(0, 8));
    EXPECT_TRUE(vFONTSPEC().Pixels());
}

TEST_F(FontSpecTest, EveryFieldButTheAngleTakesPartInEquality)
{
    const std::function<void(vFONTSPEC&)> changes[] = {
        [](vFONTSPEC& s) { s.Name(vSTRING("Helv")); },
        [](vFONTSPEC& s) { s.Style(vFONT_NORMAL); },
        [](vFONTSPEC& s) { s.PointSize(9); },
        [](vFONTSPEC& s) { s.Height(8); },
        [](vFONTSPEC& s) { s.Expansion(vREAL(1)); },
    };
    for (const auto& change : changes) {
        vFONTSPEC changed = Sample();
        change(changed);
        EXPECT_EQ(Sample() == changed, 0);
    }
    vFONTSPEC turned = Sample();
    turned.Angle(vANGLE(static_cast<short>(90)));
    EXPECT_EQ(Sample() == turned, 1);
}

TEST_F(FontSpecTest, CopiesHoldTheirOwnName)
{
    vFONTSPEC original = Sample();
    vFONTSPEC copy(original);
    vFONTSPEC assigned;
    assigned = original;
    original.Name(vSTRING("Courier"));
    EXPECT_STREQ(copy.Name()(), "Arial");
    EXPECT_STREQ(assigned.Name()(), "Arial");
}

}  // namespace
