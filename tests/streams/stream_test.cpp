#include "support/zktest.h"

#include <functional>

#include "streams/streamkinds.h"

namespace {

using zktest::Bytes;

// An address as wide as the platform's pointer whose bytes, least
// significant first, count 1, 2, 3 and on.
vOBJECT* const Token = reinterpret_cast<vOBJECT*>(sizeof(void*) == 8 ? 0x0807060504030201ull : 0x04030201ull);
const Bytes TokenBytes = sizeof(void*) == 8 ? Bytes{1, 2, 3, 4, 5, 6, 7, 8} : Bytes{1, 2, 3, 4};

// Each primitive: how it is written, the bytes it must leave, and whether it
// reads back the value it wrote.
const struct {
    const char* name;
    std::function<unsigned long(vSTREAM&)> write;
    Bytes bytes;
    std::function<bool(vSTREAM&)> readsBack;
} Primitives[] = {
    {"ULong", [](vSTREAM& s) { return s.WriteULong(0x12345678UL); }, {0x78, 0x56, 0x34, 0x12},
     [](vSTREAM& s) { return s.ReadULong() == 0x12345678UL; }},
    {"UWord", [](vSTREAM& s) { return s.WriteUWord(0xBEEF); }, {0xEF, 0xBE}, [](vSTREAM& s) { return s.ReadUWord() == 0xBEEF; }},
    {"UByte", [](vSTREAM& s) { return s.WriteUByte(0xA5); }, {0xA5}, [](vSTREAM& s) { return s.ReadUByte() == 0xA5; }},
    {"SLong", [](vSTREAM& s) { return s.WriteSLong(-2); }, {0xFE, 0xFF, 0xFF, 0xFF}, [](vSTREAM& s) { return s.ReadSLong() == -2; }},
    {"SWord", [](vSTREAM& s) { return s.WriteSWord(-300); }, {0xD4, 0xFE}, [](vSTREAM& s) { return s.ReadSWord() == -300; }},
    {"SByte", [](vSTREAM& s) { return s.WriteSByte(-128); }, {0x80}, [](vSTREAM& s) { return s.ReadSByte() == -128; }},
    {"Pointer", [](vSTREAM& s) { return s.WritePointer(Token); }, TokenBytes, [](vSTREAM& s) { return s.ReadPointer() == Token; }},
    {"ByteString", [](vSTREAM& s) { return s.WriteByteString(reinterpret_cast<const unsigned char*>("ABC")); },
     {'A', 'B', 'C'}, [](vSTREAM& s) { return s.ReadUWord() == 0x4241 && s.ReadUByte() == 'C'; }},
    {"Block", [](vSTREAM& s) { return s.WriteBlock(Bytes{0, 0xFF, 7}.data(), 3); }, {0, 0xFF, 7}, [](vSTREAM& s) {
         Bytes read(3, 1);
         return s.ReadByteString(read.data(), 3) == 3 && read == Bytes{0, 0xFF, 7};
     }},
};

// The memory, file and platform streams share these rules.
template <class Kind>
class StreamKinds : public zktest::LeakFreeTest {};
using Kinds = ::testing::Types<zktest::MemoryKind, zktest::FileKind, zktest::OleKind>;
TYPED_TEST_SUITE(StreamKinds, Kinds);

// Each answers the number of bytes written; the stream's rank of values is
// the rule: least significant byte first, nothing between.
TYPED_TEST(StreamKinds, EveryPrimitiveGoesLeastSignificantByteFirstWithNothingBetween)
{
    TypeParam kind;
    Bytes expected;
    for (const auto& primitive : Primitives) {
        EXPECT_EQ(primitive.write(kind.stream), primitive.bytes.size()) << primitive.name;
        expected.insert(expected.end(), primitive.bytes.begin(), primitive.bytes.end());
        EXPECT_EQ(kind.stream.CurrentPos(), expected.size()) << primitive.name;
    }
    EXPECT_EQ(kind.Stored(), expected);
    EXPECT_EQ(kind.stream.Size(), expected.size());
    EXPECT_EQ(kind.stream.MoveFromStart(0), 0UL);
    for (const auto& primitive : Primitives)
        EXPECT_TRUE(primitive.readsBack(kind.stream)) << primitive.name;
    EXPECT_TRUE(kind.stream.AtEnd());
    EXPECT_EQ(kind.stream.Status(), vSTREAM_GOOD);
}

// A primitive that the stream cannot give whole answers 0, whatever of it
// was there; a byte string with nowhere to put it takes nothing.
TYPED_TEST(StreamKinds, AReadPastTheEndAnswersZeroAndAReadWithoutABufferTakesNothing)
{
    TypeParam kind;
    vSTREAM& stream = kind.stream;
    stream << static_cast<unsigned short>(0xFFFF) << static_cast<unsigned char>(0xFF);
    stream.MoveFromStart(0);
    EXPECT_EQ(stream.ReadByteString(nullptr, 2) + stream.CurrentPos(), 0UL);
    EXPECT_EQ(stream.ReadULong(), 0UL);
    EXPECT_EQ(stream.Status(), TypeParam::afterShortRead);
    stream.MoveFromStart(3);
    unsigned char buffer[4] = {9, 9, 9, 9};
    EXPECT_EQ(stream.ReadByteString(buffer, 4), 0);
    EXPECT_EQ(stream.ReadUByte() + stream.ReadSWord(), 0);
    EXPECT_EQ(stream.ReadPointer(), nullptr);
}

// Each move sees the state the one before left; a write in the middle
// overwrites without growing.
TYPED_TEST(StreamKinds, MovesCountFromTheStartTheCurrentPlaceAndBackFromTheEnd)
{
    TypeParam kind;
    vSTREAM& stream = kind.stream;
    for (unsigned char i = 0; i < 100; ++i)
        stream << i;
    const struct {
        std::function<unsigned long(vSTREAM&)> move;
        unsigned long position;
    } moves[] = {{[](vSTREAM& s) { return s.MoveFromStart(10); }, 10}, {[](vSTREAM& s) { return s.MoveFromCur(5); }, 15},
                 {[](vSTREAM& s) { return s.MoveFromCur(-15); }, 0},   {[](vSTREAM& s) { return s.MoveFromEnd(10); }, 90},
                 {[](vSTREAM& s) { return s.MoveFromEnd(0); }, 100}};
    for (const auto& move : moves) {
        EXPECT_EQ(move.move(stream), move.position);
        EXPECT_EQ(stream.CurrentPos(), move.position);
        EXPECT_EQ(stream.AtEnd(), move.position == 100 ? 1 : 0) << move.position;
    }
    stream.MoveFromStart(42);
    EXPECT_EQ(stream.ReadUByte(), 42);
    stream.MoveFromStart(2);
    stream.WriteUWord(0xABCD);
    EXPECT_EQ(stream.CurrentPos(), 4UL);
    EXPECT_EQ(stream.Size(), 100UL);
    EXPECT_EQ(stream.Status(), vSTREAM_GOOD);
    Bytes stored = kind.Stored();
    EXPECT_EQ(Bytes(stored.begin(), stored.begin() + 5), (Bytes{0, 1, 0xCD, 0xAB, 4}));
}

class StreamTest : public zktest::LeakFreeTest {};

// The counts answer the value before the change; the copy holds the very
// name object of its source, which lives until the last of them ends.
TEST_F(StreamTest, ACopySharesTheNameObjectTheCountAndTheFlags)
{
    vMEMSTREAM* source = new vMEMSTREAM(vSTRING("PICTURE.BMP"), vSTREAM_READ);
    EXPECT_EQ(source->NoRef() + source->IncCount() + source->IncCount() + source->DecCount(), 1 + 0 + 1 + 2);
    source->Compress(1);
    vMEMSTREAM copy(*source);
    EXPECT_EQ(&copy.Name(), &source->Name());
    EXPECT_EQ(copy.NoRef() + copy.DecCount() + copy.NoRef(), 0 + 1 + 1);
    EXPECT_EQ(copy.Compressed(), 1);
    delete source;
    EXPECT_EQ(copy.Name(), vSTRING("PICTURE.BMP"));
}

// Swapping and compression are recorded for a stream that honours them;
// these streams still go in memory order. The signed reads pass on what
// the unsigned reads of a derived stream give. A plain archive is no stream.
TEST_F(StreamTest, ADerivedStreamDecidesTheOrderOfItsValues)
{
    struct ONEHIGHER : vMEMSTREAM {
        unsigned long ReadULong() override { return vMEMSTREAM::ReadULong() + 1; }
        unsigned short ReadUWord() override { return vMEMSTREAM::ReadUWord() + 1; }
        unsigned char ReadUByte() override { return vMEMSTREAM::ReadUByte() + 1; }
    } derived;
    vSTREAM& stream = derived;
    stream.SwapByteOrder(1);
    stream.Compress(7);
    EXPECT_EQ(stream.Compressed() + stream.UnCompressed(), 7);
    stream << -2L << static_cast<short>(-300) << static_cast<signed char>(-128);
    stream.MoveFromStart(0);
    long sl = 0;
    short sw = 0;
    signed char sb = 0;
    stream >> sl >> sw >> sb;
    EXPECT_EQ(std::vector<long>({sl, sw, sb}), std::vector<long>({-1, -299, -127}));
    stream.MoveFromStart(0);
    EXPECT_EQ(stream.ReadUByte(), 0xFE + 1) << "memory order";
    EXPECT_EQ(static_cast<vARCHIVE&>(stream).IsStream() - vARCHIVE().IsStream(), 1);
    EXPECT_EQ(stream.Close() + stream.ReOpen(), 0);
    EXPECT_TRUE(stream.Name().Null());
}

}  // namespace
