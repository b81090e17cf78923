#include "support/streamform.h"
#include "support/zktest.h"

#include <functional>

#include "graphics/colour.h"
#include "graphics/fillspec.h"
#include "graphics/fontspec.h"
#include "graphics/linespec.h"

namespace {

using zktest::StreamBytes;
using Ints = std::vector<int>;

// Red is the low byte, blue the third; a colour starts with format 0, full tint and no spare, eight bytes on a stream
// in that order. Equality without tint leaves the tint alone, and nothing else.
TEST(ColourTest, RedIsTheLowByteAndTheStreamFormIsTheFieldsInOrder) {
    vCOLOUR colour(0x12, 0x34, 0x56), packed(0x563412L, 0), tinted, spared;
    EXPECT_EQ(Ints({colour == packed, int(colour.PackedRGB()), packed.Red(), packed.Blue(),
                    vCOLOUR(0x10L, 1).GetNativeFormat()}), Ints({1, 0x563412, 0x12, 0x56, 1}));
    StreamBytes bytes{0x12, 0x34, 0x56, 0x00, 0, 100, 0, 0};
    EXPECT_EQ(zktest::StreamForm(colour), bytes);
    bytes[5] = 50;
    EXPECT_EQ(zktest::ReadStreamForm(bytes, tinted), vSTREAM_GOOD);
    bytes[5] = 100, bytes[6] = 1;
    zktest::ReadStreamForm(bytes, spared);
    EXPECT_EQ(Ints({tinted == colour, tinted != colour, tinted.EqualsWithoutTint(colour), spared == colour,
                    spared.EqualsWithoutTint(colour), vCOLOUR(0x10L, 1).EqualsWithoutTint(vCOLOUR(0x10L, 0))}),
              Ints({0, 1, 1, 0, 0, 0}));
}

// Each change of a value, and whether the changed one still equals the sample.
template <class SPEC>
void ExpectEquality(const SPEC& sample, const std::vector<std::pair<std::function<void(SPEC&)>, int>>& changes) {
    for (const auto& change : changes) {
        SPEC changed = sample;
        change.first(changed);
        EXPECT_EQ(sample == changed, change.second) << &change - &changes[0];
    }
}

// Hatches are types 8 to 13 and gem brushes 15 to 50; every field counts for
// equality; the stream form is the fields in order.
TEST(FillSpecTest, TypesGroupEveryFieldComparesAndTheStreamFormIsInOrder) {
    const vFILLSPEC sample(vFILL_HATCH_CROSS, vCOLOUR(1, 2, 3), vCOLOUR(4, 5, 6), vANGLE(short(45)), vFILL_WINDING);
    for (const Ints& group : {Ints{7, 0, 0}, Ints{8, 1, 0}, Ints{13, 1, 0}, Ints{14, 0, 0}, Ints{15, 0, 1},
                              Ints{50, 0, 1}, Ints{51, 0, 0}}) {
        vFILLSPEC spec = sample;
        spec.Type(static_cast<vFILLTYPE>(group[0]));
        EXPECT_EQ(Ints({group[0], spec.Hatched(), spec.GemBrush()}), group);
    }
    ExpectEquality<vFILLSPEC>(sample, {
        {[](vFILLSPEC& s) { s.Colour(vCOLOUR(0, 2, 3)); }, 0}, {[](vFILLSPEC& s) { s.ColourTo(vCOLOUR()); }, 0},
        {[](vFILLSPEC& s) { s.Type(vFILL_HOLLOW); }, 0},       {[](vFILLSPEC& s) { s.Angle(vANGLE(46.0)); }, 0},
        {[](vFILLSPEC& s) { s.Mode(vFILL_ALTERNATE); }, 0}});
    EXPECT_TRUE(sample != vFILLSPEC(vFILL_SOLID, vCOLOUR(), vCOLOUR(), vANGLE(), vFILL_WINDING) && !(sample != sample));
    StreamBytes bytes = zktest::StreamForm(sample);
    EXPECT_EQ(bytes, StreamBytes({1, 2, 3, 0, 0, 100, 0, 0, 4, 5, 6, 0, 0, 100, 0, 0,
                                  0, 0, 45, 0, 12, 0, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0}));
    vMEMSTREAM stream;
    zktest::Refill(stream, bytes);
    EXPECT_TRUE(vFILLSPEC(stream) == sample && stream.Status() == vSTREAM_GOOD);
}

// Every field but the six pattern bytes counts for equality; a null pattern is six zeros, and nothing lies beyond the
// sixth; the stream form carries the pattern too, and too few bytes end the stream.
TEST(LineSpecTest, ThePatternIsLeftOutOfEqualityButNotOfTheStreamForm) {
    const unsigned char dashes[6] = {4, 2, 1, 0, 0, 9};
    auto spec = [&](vLINETYPE type, int red, long width, vCORNERTYPE corner, vDASHTYPE dash, const BYTE* pattern) {
        return vLINESPEC(type, vCOLOUR(red, 2, 3), width, corner, dash, pattern);
    };
    const vLINESPEC sample = spec(vLINE_SOLID, 1, 5, vCORNER_MITRE, vDASH_PATTERN, dashes);
    vLINESPEC plain = spec(vLINE_SOLID, 1, 5, vCORNER_MITRE, vDASH_PATTERN, nullptr), assigned = plain;
    for (const vLINESPEC& other : {spec(vLINE_NONE, 1, 5, vCORNER_MITRE, vDASH_PATTERN, dashes),
                                   spec(vLINE_SOLID, 9, 5, vCORNER_MITRE, vDASH_PATTERN, dashes),
                                   spec(vLINE_SOLID, 1, 3, vCORNER_MITRE, vDASH_PATTERN, dashes),
                                   spec(vLINE_SOLID, 1, 5, vCORNER_ROUND, vDASH_PATTERN, dashes),
                                   spec(vLINE_SOLID, 1, 5, vCORNER_MITRE, vDASH_SOLID, dashes), plain})
        EXPECT_EQ(Ints({sample == other, sample != other}), Ints({other.Pattern(0) == 0, other.Pattern(0) != 0}));
    assigned = sample;
    for (unsigned short i = 0; i < 7; ++i)
        EXPECT_EQ(Ints({assigned.Pattern(i), plain.Pattern(i)}), Ints({i < 6 ? dashes[i] : 0, 0})) << i;
    StreamBytes bytes = zktest::StreamForm(sample);
    EXPECT_EQ(bytes, StreamBytes({1, 2, 3, 0, 0, 100, 0, 0, 5, 0, 0, 0, 1, 0, 0, 0,
                                  2, 0, 0, 0, 5, 0, 0, 0, 4, 2, 1, 0, 0, 9}));
    vMEMSTREAM stream;
    zktest::Refill(stream, bytes);
    vLINESPEC read(stream);
    EXPECT_TRUE(read == sample && read.Pattern(5) == 9 && stream.Status() == vSTREAM_GOOD);
    stream.MoveFromEnd(4);
    vLINESPEC truncated(stream);
    EXPECT_TRUE(stream.Status() == vSTREAM_END && truncated.Pattern(0) == 0);
}

// The height mode decides which field takes the size; every field but the angle counts for equality.
TEST(FontSpecTest, TheHeightModeChoosesTheFieldAndEveryFieldButTheAngleCompares) {
    const vFONTSPEC sample(vSTRING("Arial"), vFONT_BOLD, 8, vREAL(0), 100, vFONT_POINTS, vANGLE());
    const vFONTSPEC pixels(vSTRING("Arial"), vFONT_BOLD, 8, vREAL(0), 100, vFONT_PIXELS, vANGLE());
    EXPECT_EQ(Ints({sample.Pixels(), pixels.Pixels(), vFONTSPEC().Pixels()}), Ints({0, 1, 1}));
    ExpectEquality<vFONTSPEC>(sample, {
        {[](vFONTSPEC& s) { s.Angle(vANGLE(short(90))); }, 1}, {[](vFONTSPEC& s) { s.Name(vSTRING("Helv")); }, 0},
        {[](vFONTSPEC& s) { s.Style(vFONT_NORMAL); }, 0},      {[](vFONTSPEC& s) { s.PointSize(9); }, 0},
        {[](vFONTSPEC& s) { s.Height(8); }, 0},                {[](vFONTSPEC& s) { s.Expansion(vREAL(1)); }, 0}});
}

}  // namespace
