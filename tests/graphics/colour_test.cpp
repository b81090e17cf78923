#include "support/zktest.h"

#include <cstring>

#include "graphics/colour.h"

namespace {

// The eight bytes of a colour, in the field order that the device and the
// stream form rely on: packed value, native format, tint, spare word.
struct ColourBytes {
    unsigned long rgb;
    unsigned char nativeFormat;
    unsigned char tint;
    unsigned short spare;
};

ColourBytes BytesOf(const vCOLOUR& colour)
{
    static_assert(sizeof(vCOLOUR) == sizeof(ColourBytes), "a colour is eight bytes");
    ColourBytes bytes;
    std::memcpy(&bytes, &colour, sizeof bytes);
    return bytes;
}

vCOLOUR WithBytes(const ColourBytes& bytes)
{
    vCOLOUR colour;
    std::memcpy(static_cast<void*>(&colour), &bytes, sizeof bytes);
    return colour;
}

struct Channels {
    unsigned char red, green, blue;
    unsigned long packed;
};

class ColourChannelsTest : public ::testing::TestWithParam<Channels> {};

TEST_P(ColourChannelsTest, RedIsTheLowByteAndBlueTheThird)
{
    const Channels& c = GetParam();
    vCOLOUR fromBytes(c.red, c.green, c.blue);
    EXPECT_EQ(fromBytes.PackedRGB(), c.packed);
    vCOLOUR fromPacked(static_cast<long>(c.packed), 0);
    EXPECT_EQ(fromPacked.Red(), c.red);
    EXPECT_EQ(fromPacked.Green(), c.green);
    EXPECT_EQ(fromPacked.Blue(), c.blue);
    EXPECT_TRUE(fromBytes == fromPacked);
}

INSTANTIATE_TEST_SUITE_P(Table, ColourChannelsTest, ::testing::Values(
    Channels{0, 0, 0, 0x000000}, Channels{255, 0, 0, 0x0000FF},
    Channels{0, 255, 0, 0x00FF00}, Channels{0, 0, 255, 0xFF0000},
    Channels{0x12, 0x34, 0x56, 0x563412}, Channels{192, 192, 192, 0xC0C0C0}));

TEST(ColourTest, EveryConstructorStartsWithFormatZeroFullTintAndSpareZero)
{
    const vCOLOUR colours[] = {vCOLOUR(), vCOLOUR(1, 2, 3), vCOLOUR(0x30201L, 0)};
    for (const vCOLOUR& colour : colours) {
        ColourBytes bytes = BytesOf(colour);
        EXPECT_EQ(bytes.nativeFormat, 0);
        EXPECT_EQ(bytes.tint, 100);
        EXPECT_EQ(bytes.spare, 0);
        EXPECT_EQ(bytes.rgb, colour.PackedRGB());
    }
    EXPECT_EQ(vCOLOUR().PackedRGB(), 0UL);
}

TEST(ColourTest, NativeFormatIsKeptAndCompared)
{
    vCOLOUR native(0x10L, 1);
    EXPECT_EQ(native.GetNativeFormat(), 1);
    EXPECT_EQ(BytesOf(native).nativeFormat, 1);
    EXPECT_EQ(native.PackedRGB(), 0x10UL);
    EXPECT_FALSE(native == vCOLOUR(0x10L, 0));
    EXPECT_FALSE(native.EqualsWithoutTint(vCOLOUR(0x10L, 0)));
}

TEST(ColourTest, TintCountsForEqualityButNotForEqualsWithoutTint)
{
    ColourBytes bytes = BytesOf(vCOLOUR(10, 20, 30));
    bytes.tint = 50;
    vCOLOUR tinted = WithBytes(bytes);
    vCOLOUR plain(10, 20, 30);
    EXPECT_EQ(tinted == plain, 0);
    EXPECT_EQ(tinted != plain, 1);
    EXPECT_EQ(tinted.EqualsWithoutTint(plain), 1);
}

TEST(ColourTest, TheSpareWordCountsForBothComparisons)
{
    ColourBytes bytes = BytesOf(vCOLOUR(10, 20, 30));
    bytes.spare = 1;
    vCOLOUR marked = WithBytes(bytes);
    EXPECT_EQ(marked == vCOLOUR(10, 20, 30), 0);
    EXPECT_EQ(marked.EqualsWithoutTint(vCOLOUR(10, 20, 30)), 0);
    EXPECT_EQ(vCOLOUR(10, 20, 30) != vCOLOUR(10, 20, 31), 1);
}

}  // namespace
