#include "support/zktest.h"
#include "support/streamform.h"

#include <cstring>

#include "graphics/colour.h"

namespace {

// The eight bytes of a colour in the field order that the device and the
// stream form rely on.
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
    vCOLOUR fromPacked(static_cast<long>(c.packed), 0);
    EXPECT_EQ(fromBytes.PackedRGB(), c.packed);
    EXPECT_EQ(fromPacked.Red(), c.red);
    EXPECT_EQ(fromPacked.Green(), c.green);
    EXPECT_EQ(fromPacked.Blue(), c.blue);
    EXPECT_TRUE(fromBytes == fromPacked);
}

INSTANTIATE_TEST_SUITE_P(Table, ColourChannelsTest, ::testing::Values(
    Channels{0, 0, 0, 0x000000}, Channels{255, 0, 0, 0x0000FF}, Channels{0, 255, 0, 0x00FF00},
    Channels{0, 0, 255, 0xFF0000}, Channels{0x12, 0x34, 0x56, 0x563412}));

TEST(ColourTest, EveryConstructorStartsWithFullTintAndZeroFormatAndSpare)
{
    for (const vCOLOUR& colour : {vCOLOUR(), vCOLOUR(1, 2, 3), vCOLOUR(0x30201L, 0)}) {
        ColourBytes bytes = BytesOf(colour);
        EXPECT_EQ(bytes.rgb, colour.PackedRGB());
        EXPECT_EQ(bytes.nativeFormat, 0);
        EXPECT_EQ(bytes.tint, 100);
        EXPECT_EQ(bytes.spare, 0);
    }
    EXPECT_EQ(vCOLOUR(0x10L, 1).GetNativeFormat(), 1);
}

TEST(ColourTest, TintAloneIsLeftOutOfEqualsWithoutTint)
{
    ColourBytes tinted = BytesOf(vCOLOUR(10, 20, 30));
    tinted.tint = 50;
    ColourBytes spared = BytesOf(vCOLOUR(10, 20, 30));
    spared.spare = 1;
    vCOLOUR plain(10, 20, 30);
    EXPECT_EQ(WithBytes(tinted) == plain, 0);
    EXPECT_EQ(WithBytes(tinted) != plain, 1);
    EXPECT_EQ(WithBytes(tinted).EqualsWithoutTint(plain), 1);
    EXPECT_EQ(WithBytes(spared) == plain, 0);
    EXPECT_EQ(WithBytes(spared).EqualsWithoutTint(plain), 0);
    EXPECT_EQ(vCOLOUR(0x10L, 1).EqualsWithoutTint(vCOLOUR(0x10L, 0)), 0);
}

// Eight bytes: the packed value, the format, the tint, the spare word.
TEST(ColourTest, StreamFormIsEightBytesInFieldOrder)
{
    vCOLOUR colour(0x12, 0x34, 0x56);
    zktest::StreamBytes bytes{0x12, 0x34, 0x56, 0x00, 0, 100, 0, 0};
    EXPECT_EQ(zktest::StreamForm(colour), bytes);
    bytes[5] = 50;
    vCOLOUR read;
    EXPECT_EQ(zktest::ReadStreamForm(bytes, read), vSTREAM_GOOD);
    EXPECT_TRUE(read.EqualsWithoutTint(colour));
    EXPECT_FALSE(read == colour);
}

}  // namespace
