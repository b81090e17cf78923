#include "graphics/surface.h"

using namespace zktest;

namespace {

class StackTest : public SurfaceTest {
protected:
    COLORREF LineColourDrawn()
    {
        device().DrawLine(vPOINT(0, 0), vPOINT(10, 0));
        return Read().At(5, 0);
    }
};

TEST_F(StackTest, PopLineSpecRestoresWhatWasPushed)
{
    device().LineSpec(Line(Red, 1));
    ASSERT_TRUE(device().PushLineSpec());
    device().LineSpec(Line(Green, 1));
    EXPECT_EQ(LineColourDrawn(), Green);
    ASSERT_TRUE(device().PopLineSpec());
    EXPECT_EQ(LineColourDrawn(), Red);
    EXPECT_TRUE(device().LineSpec() == Line(Red, 1));
    EXPECT_FALSE(device().PopLineSpec()) << "nothing is left to pop";
}

TEST_F(StackTest, PopsFindTheirOwnKindWhateverWasPushedSince)
{
    device().LineSpec(Line(Red, 1));
    device().FillSpec(Fill(Blue));
    device().PushLineSpec();
    device().PushFillSpec();
    device().LineSpec(Line(Green, 1));
    device().FillSpec(Fill(White));
    ASSERT_TRUE(device().PopLineSpec());
    EXPECT_TRUE(device().LineSpec() == Line(Red, 1));
    EXPECT_TRUE(device().FillSpec() == Fill(White));
    ASSERT_TRUE(device().PopFillSpec());
    EXPECT_TRUE(device().FillSpec() == Fill(Blue));
}

TEST_F(StackTest, NestedPushesComeBackInReverseOrder)
{
    device().FillSpec(Fill(Red));
    device().PushFillSpec();
    device().FillSpec(Fill(Green));
    device().PushFillSpec();
    device().FillSpec(Fill(Blue));
    device().PopFillSpec();
    EXPECT_TRUE(device().FillSpec() == Fill(Green));
    device().PopFillSpec();
    EXPECT_TRUE(device().FillSpec() == Fill(Red));
}

TEST_F(StackTest, FontSpecComesBack)
{
    vFONTSPEC bold(vSTRING("Arial"), vFONT_BOLD, 12, vREAL(1), 100, vFONT_POINTS, vANGLE());
    device().FontSpec(bold);
    device().PushFontSpec();
    device().FontSpec(vFONTSPEC());
    EXPECT_FALSE(device().FontSpec() == bold);
    device().PopFontSpec();
    EXPECT_TRUE(device().FontSpec() == bold);
}

TEST_F(StackTest, ClipAreaComesBackAndStillClips)
{
    device().ClipArea(vRECT(10, 10, 20, 20));
    device().PushClipArea();
    device().ClipArea(vRECT(50, 50, 90, 90));
    ASSERT_TRUE(device().PopClipArea());
    device().LineSpec(NoLine());
    device().FillSpec(Fill(White));
    device().DrawRect(vRECT(0, 0, Side, Side));
    RECT ink = Read().Ink();
    EXPECT_EQ(ink.left, 10);
    EXPECT_EQ(ink.right, 20);
}

TEST_F(StackTest, PopStateRestoresEverythingAtOnce)
{
    device().LineSpec(Line(Red, 1));
    device().FillSpec(Fill(Blue));
    device().ClipArea(vRECT(0, 0, 50, 50));
    device().Origin(vPOINT(0, 0));
    ASSERT_TRUE(device().PushState());
    device().LineSpec(Line(Green, 3));
    device().FillSpec(Hollow());
    device().ClearClipArea();
    device().Origin(vPOINT(-20, -20));
    ASSERT_TRUE(device().PopState());
    EXPECT_TRUE(device().LineSpec() == Line(Red, 1));
    EXPECT_TRUE(device().FillSpec() == Fill(Blue));
    EXPECT_TRUE(device().ClipArea() == vRECT(0, 0, 50, 50));
    EXPECT_TRUE(device().LPtoDP(vPOINT(5, 5)) == vPOINT(5, 5));
}

TEST_F(StackTest, PopStateIgnoresSingleSpecPushes)
{
    device().LineSpec(Line(Red, 1));
    device().PushLineSpec();
    EXPECT_FALSE(device().PopState());
    EXPECT_TRUE(device().PopLineSpec()) << "the line entry survives the failed pop";
}

class DeviceCopyTest : public LeakFreeTest {};

TEST_F(DeviceCopyTest, CopyDrawsAlikeAndKeepsItsOwnStack)
{
    vMEMDEVICE original(vSIZE(20, 20));
    original.LineSpec(Line(Red, 1));
    original.PushLineSpec();
    original.LineSpec(Line(Green, 1));
    original.ClipArea(vRECT(1, 2, 3, 4));
    vDEVICEID copy(nullptr);
    static_cast<vDEVICE&>(copy) = original;
    EXPECT_TRUE(copy.LineSpec() == Line(Green, 1));
    EXPECT_TRUE(copy.PopLineSpec());
    EXPECT_TRUE(copy.LineSpec() == Line(Red, 1));
    EXPECT_FALSE(copy.PopLineSpec());
    EXPECT_TRUE(original.LineSpec() == Line(Green, 1));
    EXPECT_TRUE(original.PopLineSpec()) << "the original's entry is its own";
    EXPECT_TRUE(original.ClipAreaIntersect(vPOINT(1, 2)));
    EXPECT_FALSE(original.ClipAreaIntersect(vPOINT(5, 5)));
}

TEST_F(DeviceCopyTest, CopyConstructionCarriesTheStackInOrder)
{
    vDEVICEID first(nullptr);
    first.FillSpec(Fill(Red));
    first.PushFillSpec();
    first.FillSpec(Fill(Green));
    first.PushFillSpec();
    first.FillSpec(Fill(Blue));
    vDEVICEID second(first);
    second.PopFillSpec();
    EXPECT_TRUE(second.FillSpec() == Fill(Green));
    second.PopFillSpec();
    EXPECT_TRUE(second.FillSpec() == Fill(Red));
    EXPECT_TRUE(first.FillSpec() == Fill(Blue));
}

}  // namespace
