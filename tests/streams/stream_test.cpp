#include "support/zktest.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "streams/streamkinds.h"

namespace {

using Bytes = std::vector<unsigned char>;

// Each concrete stream, and how it answers a primitive read past its end:
// the memory and file streams end, the platform stream reports nothing.
struct Kind {
    const char* name;
    std::function<std::unique_ptr<zktest::StreamKind>()> make;
    vSTREAMSTATUS afterShortRead;
};

const Kind Kinds[] = {
    {"memory", [] { return std::unique_ptr<zktest::StreamKind>(new zktest::MemoryKind); }, vSTREAM_END},
    {"file", [] { return std::unique_ptr<zktest::StreamKind>(new zktest::FileKind); }, vSTREAM_END},
    {"ole", [] { return std::unique_ptr<zktest::StreamKind>(new zktest::OleKind); }, vSTREAM_GOOD},
};

// One primitive: how it is written, the bytes it must leave, and whether it
// reads back the value it wrote.
struct Primitive {
    const char* name;
    std::function<unsigned long(vSTREAM&)> write;
    Bytes bytes;
    std::function<bool(vSTREAM&)> readsBack;
};

// An address as wide as the platform's pointer whose bytes, least
// significant first, count 1, 2, 3 and on: four of them on the 32-bit build,
// eight on the 64-bit.
Bytes TokenBytes()
{
    Bytes bytes;
    for (unsigned char at = 1; at <= sizeof(void*); ++at)
        bytes.push_back(at);
    return bytes;
}

vOBJECT* MakeToken()
{
    uintptr_t bits = 0;
    for (size_t at = 0; at < sizeof(void*); ++at)
        bits |= static_cast<uintptr_t>(at + 1) << (8 * at);
    return reinterpret_cast<vOBJECT*>(bits);
}

vOBJECT* const Token = MakeToken();
const unsigned char Text[] = "ABC";
const unsigned char Block[] = {0, 0xFF, 7};

const std::vector<Primitive>& Primitives()
{
    static const std::vector<Primitive> table = {
        {"ULong", [](vSTREAM& s) { return s.WriteULong(0x12345678UL); }, {0x78, 0x56, 0x34, 0x12},
         [](vSTREAM& s) { return s.ReadULong() == 0x12345678UL; }},
        {"UWord", [](vSTREAM& s) { return s.WriteUWord(0xBEEF); }, {0xEF, 0xBE},
         [](vSTREAM& s) { return s.ReadUWord() == 0xBEEF; }},
        {"UByte", [](vSTREAM& s) { return s.WriteUByte(0xA5); }, {0xA5},
         [](vSTREAM& s) { return s.ReadUByte() == 0xA5; }},
        {"SLong", [](vSTREAM& s) { return s.WriteSLong(-2); }, {0xFE, 0xFF, 0xFF, 0xFF},
         [](vSTREAM& s) { return s.ReadSLong() == -2; }},
        {"SWord", [](vSTREAM& s) { return s.WriteSWord(-300); }, {0xD4, 0xFE},
         [](vSTREAM& s) { return s.ReadSWord() == -300; }},
        {"SByte", [](vSTREAM& s) { return s.WriteSByte(-128); }, {0x80},
         [](vSTREAM& s) { return s.ReadSByte() == -128; }},
        {"Pointer", [](vSTREAM& s) { return s.WritePointer(Token); }, TokenBytes(),
         [](vSTREAM& s) { return s.ReadPointer() == Token; }},
        {"ByteString", [](vSTREAM& s) { return s.WriteByteString(Text); }, {'A', 'B', 'C'},
         [](vSTREAM& s) {
             unsigned char read[3] = {};
             return s.ReadByteString(read, 3) == 3 && read[0] == 'A' && read[2] == 'C';
         }},
        {"Block", [](vSTREAM& s) { return s.WriteBlock(Block, 3); }, {0, 0xFF, 7},
         [](vSTREAM& s) {
             unsigned char read[3] = {1, 1, 1};
             return s.ReadByteString(read, 3) == 3 && read[0] == 0 && read[1] == 0xFF && read[2] == 7;
         }},
    };
    return table;
}

class StreamKindTest : public zktest::LeakFreeTest, public ::testing::WithParamInterface<Kind> {};

TEST_P(StreamKindTest, EveryPrimitiveGoesLeastSignificantByteFirstWithNothingBetween)
{
    std::unique_ptr<zktest::StreamKind> kind = GetParam().make();
    vSTREAM& stream = kind->Stream();
    Bytes expected;
    for (const Primitive& primitive : Primitives()) {
        SCOPED_TRACE(primitive.name);
        EXPECT_EQ(primitive.write(stream), primitive.bytes.size());
        expected.insert(expected.end(), primitive.bytes.begin(), primitive.bytes.end());
        EXPECT_EQ(stream.CurrentPos(), expected.size());
    }
    EXPECT_EQ(kind->Stored(), expected);
    EXPECT_EQ(stream.Size(), expected.size());

    EXPECT_EQ(stream.MoveFromStart(0), 0UL);
    for (const Primitive& primitive : Primitives()) {
        SCOPED_TRACE(primitive.name);
        EXPECT_TRUE(primitive.readsBack(stream));
    }
    EXPECT_TRUE(stream.AtEnd());
    EXPECT_EQ(stream.Status(), vSTREAM_GOOD);
}

TEST_P(StreamKindTest, ArrowsWithTheStreamOnTheLeftWriteAndReadEachWidth)
{
    std::unique_ptr<zktest::StreamKind> kind = GetParam().make();
    vSTREAM& stream = kind->Stream();
    stream << 0x11223344UL << static_cast<unsigned short>(0x5566) << static_cast<unsigned char>(0x77)
           << -5L << static_cast<short>(-6) << static_cast<signed char>(-7);
    EXPECT_EQ(kind->Stored(), (Bytes{0x44, 0x33, 0x22, 0x11, 0x66, 0x55, 0x77, 0xFB, 0xFF, 0xFF, 0xFF, 0xFA,
                                     0xFF, 0xF9}));

    unsigned long ul = 0;
    unsigned short uw = 0;
    unsigned char ub = 0;
    long sl = 0;
    short sw = 0;
    signed char sb = 0;
    stream.MoveFromStart(0);
    stream >> ul >> uw >> ub >> sl >> sw >> sb;
    EXPECT_EQ(ul, 0x11223344UL);
    EXPECT_EQ(uw, 0x5566);
    EXPECT_EQ(ub, 0x77);
    EXPECT_EQ(sl, -5);
    EXPECT_EQ(sw, -6);
    EXPECT_EQ(sb, -7);
}

// A primitive that the stream cannot give whole answers 0, whatever of it
// was there.
TEST_P(StreamKindTest, APrimitiveReadPastTheEndAnswersZero)
{
    std::unique_ptr<zktest::StreamKind> kind = GetParam().make();
    vSTREAM& stream = kind->Stream();
    stream.WriteUWord(0xFFFF);
    stream.WriteUByte(0xFF);
    stream.MoveFromStart(0);
    EXPECT_EQ(stream.ReadULong(), 0UL);
    EXPECT_EQ(stream.Status(), GetParam().afterShortRead);

    stream.MoveFromStart(3);
    unsigned char buffer[4] = {9, 9, 9, 9};
    EXPECT_EQ(stream.ReadByteString(buffer, 4), 0);
    EXPECT_EQ(stream.ReadUByte(), 0);
    EXPECT_EQ(stream.ReadPointer(), nullptr);
    EXPECT_EQ(stream.ReadSWord(), 0);
}

// A byte string read with nowhere to put it takes nothing from the stream.
TEST_P(StreamKindTest, AByteStringReadWithoutABufferTakesNothing)
{
    std::unique_ptr<zktest::StreamKind> kind = GetParam().make();
    vSTREAM& stream = kind->Stream();
    stream.WriteULong(0x12345678UL);
    stream.MoveFromStart(0);
    EXPECT_EQ(stream.ReadByteString(nullptr, 4), 0);
    EXPECT_EQ(stream.CurrentPos(), 0UL);
    EXPECT_EQ(stream.ReadULong(), 0x12345678UL);
}

TEST_P(StreamKindTest, MovesCountFromTheStartTheCurrentPlaceAndBackFromTheEnd)
{
    std::unique_ptr<zktest::StreamKind> kind = GetParam().make();
    vSTREAM& stream = kind->Stream();
    Bytes hundred(100);
    for (unsigned i = 0; i < hundred.size(); ++i)
        hundred[i] = static_cast<unsigned char>(i);
    EXPECT_EQ(stream.WriteBlock(hundred.data(), hundred.size()), 100UL);

    struct Move {
        std::function<unsigned long(vSTREAM&)> move;
        unsigned long position;
    };
    const Move moves[] = {
        {[](vSTREAM& s) { return s.MoveFromStart(10); }, 10},
        {[](vSTREAM& s) { return s.MoveFromCur(5); }, 15},
        {[](vSTREAM& s) { return s.MoveFromCur(-15); }, 0},
        {[](vSTREAM& s) { return s.MoveFromEnd(10); }, 90},
        {[](vSTREAM& s) { return s.MoveFromEnd(0); }, 100},
    };
    for (const Move& move : moves) {
        EXPECT_EQ(move.move(stream), move.position);
        EXPECT_EQ(stream.CurrentPos(), move.position);
        EXPECT_EQ(stream.AtEnd(), move.position == 100 ? 1 : 0);
    }
    stream.MoveFromStart(42);
    EXPECT_EQ(stream.ReadUByte(), 42);
    EXPECT_EQ(stream.Size(), 100UL);
    EXPECT_EQ(stream.Status(), vSTREAM_GOOD);
}

TEST_P(StreamKindTest, AWriteInTheMiddleOverwritesWithoutGrowing)
{
    std::unique_ptr<zktest::StreamKind> kind = GetParam().make();
    vSTREAM& stream = kind->Stream();
    stream.WriteULong(0);
    stream.WriteULong(0);
    stream.MoveFromStart(2);
    stream.WriteUWord(0xABCD);
    EXPECT_EQ(kind->Stored(), (Bytes{0, 0, 0xCD, 0xAB, 0, 0, 0, 0}));
    EXPECT_EQ(stream.CurrentPos(), 4UL);
    EXPECT_EQ(stream.Size(), 8UL);
}

INSTANTIATE_TEST_SUITE_P(Kinds, StreamKindTest, ::testing::ValuesIn(Kinds),
                         [](const ::testing::TestParamInfo<Kind>& info) { return std::string(info.param.name); });

class StreamTest : public zktest::LeakFreeTest {};

TEST_F(StreamTest, CountsAnswerTheValueBeforeTheChange)
{
    vMEMSTREAM stream;
    EXPECT_TRUE(stream.NoRef());
    EXPECT_EQ(stream.IncCount(), 0);
    EXPECT_FALSE(stream.NoRef());
    EXPECT_EQ(stream.IncCount(), 1);
    EXPECT_EQ(stream.DecCount(), 2);
    EXPECT_EQ(stream.DecCount(), 1);
    EXPECT_TRUE(stream.NoRef());
}

// The copy holds the very name object of its source, which lives until the
// last of them ends.
TEST_F(StreamTest, ACopySharesTheNameObjectAndTheFlags)
{
    vMEMSTREAM* source = new vMEMSTREAM(vSTRING("PICTURE.BMP"), vSTREAM_READ);
    source->IncCount();
    source->Compress(1);
    vMEMSTREAM copy(*source);
    EXPECT_EQ(&copy.Name(), &source->Name());
    EXPECT_FALSE(copy.NoRef());
    EXPECT_EQ(copy.Compressed(), 1);
    delete source;
    EXPECT_EQ(copy.Name(), vSTRING("PICTURE.BMP"));
    copy.Name() = vSTRING("OTHER.BMP");
    EXPECT_EQ(copy.Name(), vSTRING("OTHER.BMP"));
}

// Swapping and compression are recorded for a stream that honours them;
// these streams still go in memory order.
TEST_F(StreamTest, FlagsAreRecordedButThePrimitivesKeepMemoryOrder)
{
    zktest::MemoryKind kind;
    vSTREAM& stream = kind.Stream();
    stream.SwapByteOrder(1);
    stream.Compress(7);
    EXPECT_EQ(stream.Compressed(), 7);
    EXPECT_EQ(stream.UnCompressed(), 0);
    stream.WriteUWord(0x0102);
    EXPECT_EQ(kind.Stored(), (Bytes{0x02, 0x01}));
    stream.MoveFromStart(0);
    EXPECT_EQ(stream.ReadUWord(), 0x0102);
}

// Reads every unsigned value one higher than it stands, as a stream that
// decodes its values its own way would.
template <class Base>
class OneHigher : public Base {
public:
    using Base::Base;
    unsigned long ReadULong() override { return Base::ReadULong() + 1; }
    unsigned short ReadUWord() override { return static_cast<unsigned short>(Base::ReadUWord() + 1); }
    unsigned char ReadUByte() override { return static_cast<unsigned char>(Base::ReadUByte() + 1); }
};

void ExpectSignedReadsOneHigher(vSTREAM& stream)
{
    stream.WriteSLong(-2);
    stream.WriteSWord(-300);
    stream.WriteSByte(-128);
    stream.MoveFromStart(0);
    EXPECT_EQ(stream.ReadSLong(), -1);
    EXPECT_EQ(stream.ReadSWord(), -299);
    EXPECT_EQ(stream.ReadSByte(), -127);
}

// A derived stream that reads its unsigned values another way reads its
// signed values that way too, on every kind of stream.
TEST_F(StreamTest, SignedReadsPassOnWhatTheUnsignedReadsOfADerivedStreamGive)
{
    {
        SCOPED_TRACE("memory");
        OneHigher<vMEMSTREAM> memory;
        ExpectSignedReadsOneHigher(memory);
    }
    std::string path = zktest::TemporaryPath("zks");
    {
        SCOPED_TRACE("file");
        OneHigher<vFILE> file(vSTRING("%s", path.c_str()), vSTREAM_CREATE);
        ExpectSignedReadsOneHigher(file);
    }
    DeleteFileA(path.c_str());
    IStream* platform = zktest::OleKind::Empty();
    {
        SCOPED_TRACE("ole");
        OneHigher<vOLESTREAM> ole(&platform, vSTRING(), 0);
        ExpectSignedReadsOneHigher(ole);
    }
    platform->Release();
}

TEST_F(StreamTest, AStreamSaysItIsOneAndTheBaseOperationsAnswerZero)
{
    vMEMSTREAM stream;
    vARCHIVE& archive = stream;
    EXPECT_EQ(archive.IsStream(), 1);
    EXPECT_EQ(stream.Close(), 0);
    EXPECT_EQ(stream.ReOpen(), 0);
    EXPECT_TRUE(stream.Name().Null());
}

}  // namespace
