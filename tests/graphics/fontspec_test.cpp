#include "support/zktest.h"

#include <functional>

#include "graphics/fontspec.h"

namespace {

class FontSpecTest : public zktest::LeakFreeTest {};

vFONTSPEC Sample()
{
    return vFONTSPEC(vSTRING("Arial"), vFONT_BOLD, 8, vREAL(0), 100, vFONT_POINTS, vANGLE());
}

// A spec built field by field through the setters.
vFONTSPEC Assembled(const char* name, vFONTSTYLE style, long pointSize, long height)
{
    vFONTSPEC spec;
    spec.Name(vSTRING(name));
    spec.Style(style);
    spec.PointSize(pointSize);
    spec.Height(height);
    return spec;
}

TEST_F(FontSpecTest, TheHeightModeDecidesWhichFieldTakesTheSize)
{
    vFONTSPEC points = Sample();
    vFONTSPEC pixels(vSTRING("Arial"), vFONT_BOLD, 8, vREAL(0), 100, vFONT_PIXELS, vANGLE());
    EXPECT_FALSE(points.Pixels());
    EXPECT_TRUE(pixels.Pixels());
    EXPECT_TRUE(points == Assembled("Arial", vFONT_BOLD, 8, 0));
    EXPECT_TRUE(pixels == Assembled("Arial", vFONT_BOLD, 0, 8));
    EXPECT_FALSE(points == pixels);
}

TEST_F(FontSpecTest, TheDefaultHasNoNameAndTheDefaultPixelHeight)
{
    vFONTSPEC spec;
    EXPECT_TRUE(spec.Name().Null());
    EXPECT_EQ(spec.Style(), vFONT_NORMAL);
    EXPECT_TRUE(spec.Pixels());
    EXPECT_EQ(spec.Expansion()(), 0);
    EXPECT_EQ(spec.Angle()(), 0);
    EXPECT_TRUE(spec == Assembled("", vFONT_NORMAL, 0, 0));
}

TEST_F(FontSpecTest, SettersChangeWhatTheGettersAnswer)
{
    vFONTSPEC spec = Sample();
    spec.Name(vSTRING("Helv"));
    spec.Style(vFONT_ITALIC);
    spec.Expansion(vREAL(1.5));
    spec.Angle(vANGLE(static_cast<short>(45)));
    EXPECT_STREQ(spec.Name()(), "Helv");
    EXPECT_EQ(spec.Style(), vFONT_ITALIC);
    EXPECT_EQ(spec.Expansion()(), 0x18000);
    EXPECT_EQ(spec.Angle()(), 45L << 16);
    spec.PointSize(0);
    EXPECT_TRUE(spec.Pixels());
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
    EXPECT_TRUE(copy == assigned);
}

}  // namespace
