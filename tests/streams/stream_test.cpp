#include "support/zktest.h"

#include <functional>

#include "streams/streamkinds.h"

namespace {

using zktest::Bytes;

// An address as wide as the platform's pointer whose bytes, least significant first, count 1, 2, 3 and on.
vOBJECT* const Token = reinterpret_cast<vOBJECT*>(sizeof(void*) == 8 ? 0x0807060504030201ull : 0x04030201ull);
const Bytes TokenBytes = sizeof(void*) == 8 ? Bytes{1, 2, 3, 4, 5, 6, 7, 8} : Bytes{1, 2, 3, 4};

// Each primitive: how it is written, the bytes it must leave, and whether it
// reads back the value it wrote; the last is read to the stream's very end.
const struct {
    const char* name;
    std::function<unsigned long(vSTREAM&)> write;
    Bytes bytes;
    std::function<bool(vSTREAM&)> readsBack;
} Primitives[] = {
    {"UWord", [](vSTREAM& s) { return s.WriteUWord(0xBEEF); }, {0xEF, 0xBE},
     [](vSTREAM& s) { return s.ReadUWord() == 0xBEEF; }},
    {"UByte", [](vSTREAM& s) { return s.WriteUByte(0xA5); }, {0xA5}, [](vSTREAM& s) { return s.ReadUByte() == 0xA5; }},
    {"SLong", [](vSTREAM& s) { return s.WriteSLong(-2); }, {0xFE, 0xFF, 0xFF, 0xFF},
     [](vSTREAM& s) { return s.ReadSLong() == -2; }},
    {"SWord", [](vSTREAM& s) { return s.WriteSWord(-300); }, {0xD4, 0xFE},
     [](vSTREAM& s) { return s.ReadSWord() == -300; }},
    {"SByte", [](vSTREAM& s) { return s.WriteSByte(-128); }, {0x80}, [](vSTREAM& s) { return s.ReadSByte() == -128; }},
    {"Pointer", [](vSTREAM& s) { return s.WritePointer(Token); }, TokenBytes,
     [](vSTREAM& s) { return s.ReadPointer() == Token; }},
    {"ByteString", [](vSTREAM& s) { return s.WriteByteString(reinterpret_cast<const unsigned char*>("ABC")); },
     {'A', 'B', 'C'}, [](vSTREAM& s) { return s.ReadUWord() == 0x4241 && s.ReadUByte() == 'C'; }},
    {"Block", [](vSTREAM& s) { return s.WriteBlock(Bytes{0, 0xFF, 7}.data(), 3); }, {0, 0xFF, 7}, [](vSTREAM& s) {
         Bytes read(3, 1);
         return s.ReadByteString(read.data(), 3) == 3 && read == Bytes{0, 0xFF, 7};
     }},
    {"ULong", [](vSTREAM& s) { return s.WriteULong(0x12345678UL); }, {0x78, 0x56, 0x34, 0x12},
     [](vSTREAM& s) { return s.ReadULong() == 0x12345678UL; }},
};

// The memory, file and platform streams share these rules.
template <class Kind>
class StreamKinds : public zktest::LeakFreeTest {};
using Kinds = ::testing::Types<zktest::MemoryKind, zktest::FileKind, zktest::OleKind>;
TYPED_TEST_SUITE(StreamKinds, Kinds);

// Each answers the number of bytes written; the stream's rank of values is
// the rule: least significant byte first, nothing between.
TYPED_TEST(StreamKinds, EveryPrimitiveGoesLeastSignificantByteFirstWithNothingBetween) {
    TypeParam kind;
    Bytes expected;
    for (const auto& primitive : Primitives) {
        EXPECT_EQ(primitive.write(kind.stream), primitive.bytes.size()) << primitive.name;
        expected.insert(expected.end(), primitive.bytes.begin(), primitive.bytes.end());
        EXPECT_EQ(kind.stream.CurrentPos(), expected.size()) << primitive.name;
    }
    EXPECT_EQ(kind.Stored(), expected);
    EXPECT_TRUE(kind.stream.Size() == expected.size() && kind.stream.MoveFromStart(0) == 0);
    for (const auto& primitive : Primitives)
        EXPECT_TRUE(primitive.readsBack(kind.stream)) << primitive.name;
    EXPECT_TRUE(kind.stream.AtEnd() && kind.stream.Status() == vSTREAM_GOOD);
}

// A primitive that the stream cannot give whole answers 0, whatever of it
// was there; a byte string with nowhere to put it takes nothing.
TYPED_TEST(StreamKinds, AReadPastTheEndAnswersZeroAndAReadWithoutABufferTakesNothing) {
    TypeParam kind;
    vSTREAM& stream = kind.stream;
    stream << static_cast<unsigned short>(0xFFFF) << static_cast<unsigned char>(0xFF);
    stream.MoveFromStart(0);
    EXPECT_EQ(stream.ReadByteString(nullptr, 2) + stream.CurrentPos(), 0UL);
    EXPECT_TRUE(stream.ReadULong() == 0 && stream.Status() == TypeParam::afterShortRead);
    stream.MoveFromStart(3);
    unsigned char buffer[4] = {9, 9, 9, 9};
    EXPECT_TRUE(stream.ReadByteString(buffer, 4) == 0 && stream.ReadUByte() + stream.ReadSWord() == 0);
    EXPECT_EQ(stream.ReadPointer(), nullptr);
}

// Each move sees the state the one before left; a write in the middle overwrites without growing.
TYPED_TEST(StreamKinds, MovesCountFromTheStartTheCurrentPlaceAndBackFromTheEnd) {
    TypeParam kind;
    vSTREAM& stream = kind.stream;
    for (unsigned char i = 0; i < 100; ++i)
        stream << i;
    const struct {
        std::function<unsigned long(vSTREAM&)> move;
        unsigned long position;
    } moves[] = {{[](vSTREAM& s) { return s.MoveFromStart(10); }, 10},
                 {[](vSTREAM& s) { return s.MoveFromCur(5); }, 15},
                 {[](vSTREAM& s) { return s.MoveFromCur(-15); }, 0},
                 {[](vSTREAM& s) { return s.MoveFromEnd(10); }, 90},
                 {[](vSTREAM& s) { return s.MoveFromEnd(0); }, 100}};
    for (const auto& move : moves) {
        EXPECT_TRUE(move.move(stream) == move.position && stream.CurrentPos() == move.position) << move.position;
        EXPECT_EQ(stream.AtEnd(), move.position == 100 ? 1 : 0) << move.position;
    }
    stream.MoveFromStart(42);
    EXPECT_EQ(stream.ReadUByte(), 42);
    stream.MoveFromStart(2);
    stream.WriteUWord(0xABCD);
    EXPECT_TRUE(stream.CurrentPos() == 4 && stream.Size() == 100 && stream.Status() == vSTREAM_GOOD);
    Bytes stored = kind.Stored();
    EXPECT_EQ(Bytes(stored.begin(), stored.begin() + 5), (Bytes{0, 1, 0xCD, 0xAB, 4}));
}

}  // namespace
