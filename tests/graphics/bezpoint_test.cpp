#include "support/zktest.h"

#include "graphics/bezpoint.h"

namespace {

struct FlagAccess {
    const char* name;
    int bit;
    int (vBEZPOINT::*get)() const;
    void (vBEZPOINT::*set)(int);
};

FlagAccess Access(const char* name, int bit, int (vBEZPOINT::*get)() const,
                  void (vBEZPOINT::*set)(int))
{
    return FlagAccess{name, bit, get, set};
}

std::vector<FlagAccess> AllFlags()
{
    return {Access("First", 1, &vBEZPOINT::First, &vBEZPOINT::First),
            Access("Last", 2, &vBEZPOINT::Last, &vBEZPOINT::Last),
            Access("LineTo", 8, &vBEZPOINT::LineTo, &vBEZPOINT::LineTo),
            Access("CurveTo", 16, &vBEZPOINT::CurveTo, &vBEZPOINT::CurveTo),
            Access("Control", 32, &vBEZPOINT::Control, &vBEZPOINT::Control)};
}

class BezFlagTest : public ::testing::TestWithParam<FlagAccess> {};

TEST_P(BezFlagTest, TheGetterAnswersTheMaskedBit)
{
    const FlagAccess& flag = GetParam();
    vBEZPOINT on(vPOINT(3, -4), static_cast<unsigned char>(flag.bit));
    vBEZPOINT allButThis(vPOINT(), static_cast<unsigned char>(0xFF & ~flag.bit));
    EXPECT_EQ((on.*flag.get)(), flag.bit);
    EXPECT_EQ((allButThis.*flag.get)(), 0);
    EXPECT_TRUE(on == vPOINT(3, -4));
}

TEST_P(BezFlagTest, TheSetterMovesItsOwnBitAlone)
{
    const FlagAccess& flag = GetParam();
    vBEZPOINT point(vPOINT(), 0);
    (point.*flag.set)(5);
    EXPECT_EQ((point.*flag.get)(), flag.bit);

    vBEZPOINT full(vPOINT(), 0xFF);
    (full.*flag.set)(0);
    EXPECT_EQ((full.*flag.get)(), 0);
    for (const FlagAccess& other : AllFlags()) {
        if (other.bit != flag.bit) {
            EXPECT_EQ((full.*other.get)(), other.bit) << other.name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Table, BezFlagTest, ::testing::ValuesIn(AllFlags()),
    [](const ::testing::TestParamInfo<FlagAccess>& info) { return std::string(info.param.name); });

}  // namespace
