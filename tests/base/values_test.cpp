#include <climits>
#include <cmath>

#include "base/system.h"
#include "base/values.h"
#include "support/streamform.h"
#include "support/zktest.h"

namespace {

using zktest::ReadStreamForm;
using zktest::StreamBytes;
using zktest::StreamForm;

// Whole numbers wrap at 32 bits, shift keeping the sign and divide toward zero; reals are raw 16.16 words, and a whole
// number mixed with a real goes through a wide intermediate. Division by zero answers 0.
TEST(ValuesTest, ArithmeticOnRawWords) {
    struct Row { long got, expected; };
    const Row rows[] = {
        {(vINT(LONG_MAX) + vINT(1))(), LONG_MIN}, {(-vINT(LONG_MIN))(), LONG_MIN}, {(vINT(-7) / vINT(2))(), -3},
        {(vINT(-8) >> 1)(), -4}, {(vINT(3) << 30)(), LONG_MIN + (1L << 30)}, {vINT(-1) < vINT(1), 1}, {!vINT(0), 1},
        {vINT(vREAL(-0.25))(), -1}, {(vINT(-3) * vREAL(0.5))(), -0x18000}, {(vINT(1) / vREAL(3))(), 0x5555},
        {(vINT(30000) / vREAL(2))(), 15000L << 16}, {(vINT(5) / vREAL())(), 0}, {vREAL(vINT(-2))(), -0x20000},
        {vREAL(1.9999999)(), 0x1FFFF}, {vREAL(-1.9999999)(), -0x1FFFF}, {vREAL(65537.0)(), 0x10000},
        {(vREAL(32767) + vREAL(1))(), LONG_MIN}, {(vREAL(1.5) * vREAL(-2.5))(), -0x3C000},
        {(vREAL(100) * vREAL(200))(), 20000L << 16}, {(vREAL(-3) / vREAL(2))(), -0x18000}, {(vREAL(5) / vREAL())(), 0},
        {vREAL(-0.5) < vREAL(0.25), 1}, {vANGLE(short(-390))(), -30L * 65536}, {vANGLE(short(360))(), 0},
        {vANGLE(-390.0)(), -390L * 65536},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.got, row.expected) << "row " << &row - rows;
}

// Zero rounds to -1, as it always has; the three land on the same pixels otherwise.
TEST(ValuesTest, FloorRoundAndCeilOfReals) {
    struct Row { double value; long floor, round, ceil; };
    for (const Row& row : {Row{2.0, 2, 2, 2}, Row{1.5, 1, 2, 2}, Row{1.25, 1, 1, 2}, Row{0.25, 0, 0, 1},
                           Row{0.0, 0, -1, 0}, Row{-0.25, -1, -1, -2}, Row{-0.5, -1, -1, -2}, Row{-1.0, -1, -2, -1},
                           Row{-1.25, -2, -2, -3}, Row{-1.5, -2, -2, -3}, Row{-1.75, -2, -3, -3}}) {
        vREAL value(row.value);
        EXPECT_EQ((std::vector<long>{value.Floor()(), value.Round()(), value.Ceil()()}),
                  (std::vector<long>{row.floor, row.round, row.ceil})) << row.value;
    }
}

TEST(ValuesTest, SineAndCosineAreExactAtQuarterTurnsAndCloseBetween) {
    for (double angle : {0.0, 90.0, 180.0, 270.0, -90.0, 450.0, 30.0, 45.5, 150.25, 200.0, 330.0, -60.0, 89.9}) {
        double radians = angle * 3.14159265358979 / 180.0, tolerance = std::fmod(angle, 90.0) == 0 ? 0.001 : 4.0;
        EXPECT_NEAR(vANGLE(angle).Sin()(), std::sin(radians) * 65536, tolerance) << angle;
        EXPECT_NEAR(vANGLE(angle).Cos()(), std::cos(radians) * 65536, tolerance) << angle;
    }
}

// A character is the low byte, ordered as a signed char, classified by plain ASCII.
TEST(ValuesTest, CharactersHoldTheLowByteAndClassifyByPlainAscii) {
    char out = 0;
    EXPECT_TRUE(vCHAR(0x126).Symbol(out) == '&' && out == '&' && vCHAR(0xFF).Next()() == 0);
    EXPECT_TRUE(vCHAR(0x80) < vCHAR('A') && !(vCHAR(0x80) >= vCHAR('A')) && vCHAR('A') > vCHAR(0x80));
    struct Row { unsigned short code; int alpha, numeric, upper, lower; };
    for (const Row& row : {Row{'A', 1, 0, 1, 0}, Row{'Z', 1, 0, 1, 0}, Row{'@', 0, 0, 0, 0}, Row{'[', 0, 0, 0, 0},
                           Row{'a', 1, 0, 0, 1}, Row{'z', 1, 0, 0, 1}, Row{'`', 0, 0, 0, 0}, Row{'{', 0, 0, 0, 0},
                           Row{'0', 0, 1, 0, 0}, Row{'9', 0, 1, 0, 0}, Row{'/', 0, 0, 0, 0}, Row{':', 0, 0, 0, 0},
                           Row{0xE9, 0, 0, 0, 0}, Row{0xC9, 0, 0, 0, 0}}) {
        vCHAR c(row.code);
        EXPECT_EQ((std::vector<int>{c.IsCharAlphaA(), c.IsCharNumeric(), c.IsCharUpperA(), c.IsCharLowerA()}),
                  (std::vector<int>{row.alpha, row.numeric, row.upper, row.lower})) << row.code;
    }
}

// Points add componentwise, scale flooring, and order by dominance: a < b only
// when both coordinates are less. Ranges do the same with their two ends.
TEST(ValuesTest, PointsAndRangesWorkOnBothParts) {
    EXPECT_TRUE(vPOINT(1, -2) + vPOINT(10, 20) == vPOINT(11, 18) && vPOINT(1, -2) - vPOINT(10, 20) == vPOINT(-9, -22));
    EXPECT_TRUE(vPOINT(3, -3) * vREAL(0.5) == vPOINT(1, -2) && vPOINT(7, -7) / vREAL(2) == vPOINT(3, -4));
    EXPECT_TRUE(vPOINT(1, 2) != vPOINT(0, 2) && !(vPOINT(1, 2) == vPOINT(1, 3)));
    EXPECT_FALSE(vPOINT(1, 5) < vPOINT(5, 1) || vPOINT(1, 5) > vPOINT(5, 1) || vPOINT(1, 5) <= vPOINT(5, 1) ||
                 vPOINT(1, 5) >= vPOINT(5, 1) || vPOINT(1, 2) < vPOINT(1, 3));
    EXPECT_TRUE(vPOINT(1, 1) < vPOINT(2, 2) && vPOINT(1, 2) <= vPOINT(1, 3) && vPOINT(3, 3) > vPOINT(2, 2) &&
                vPOINT(2, 3) >= vPOINT(2, 2));
    EXPECT_EQ(vPOINT(-3, 3).ManDist()(), 0);
    vRANGE range(vINT(1), vINT(5)), crossed(vINT(0), vINT(9));
    EXPECT_TRUE(range + vRANGE(vINT(1), vINT(1)) == vRANGE(vINT(2), vINT(6)));
    EXPECT_TRUE(range / vREAL(2) == vRANGE(vREAL(0.5), vREAL(2.5)));
    EXPECT_FALSE(range < crossed || range > crossed || range <= crossed || range >= crossed);
    EXPECT_TRUE(range < vRANGE(vINT(2), vINT(6)) && range != vRANGE(vINT(1), vINT(6)));
}

// Right and bottom are the last pixels inside for the edges and the width, which never normalises; capture and the hit
// test take them as the first pixel outside.
TEST(ValuesTest, RectanglesKeepTheirEdgesAndExcludeRightAndBottom) {
    vRECT rect(vPOINT(10, 10), 5, 5);
    EXPECT_TRUE(rect == vRECT(10, 10, 14, 14) && rect.Width()() == 4);
    rect.Right(vINT(4));
    EXPECT_TRUE(rect.Width()() == -6 && vRECT(10, 20, 4, 5).Height()() == -15);
    rect = vRECT(0, 0, 10, 10);
    rect.TopRight(vPOINT(20, -5));
    rect.BottomLeft(vPOINT(3, 30));
    EXPECT_TRUE(rect == vRECT(3, -5, 20, 30) && rect.TopRight() == vPOINT(20, -5));
    rect = vRECT(10, 20, 30, 40);
    EXPECT_TRUE(rect.Expand(6, -4) == vRECT(4, 24, 36, 36) && rect == vRECT(4, 24, 36, 36));
    EXPECT_TRUE(rect + vPOINT(1, 2) == vRECT(5, 26, 37, 38) && rect != vRECT(4, 24, 36, 37));
    const vRECT ten(0, 0, 10, 10), inverted(5, 5, 5, 5), sized(vPOINT(0, 0), 10, 10);
    struct Row { const vRECT& rect; vPOINT point, captured; bool inside; };
    for (const Row& row : {Row{ten, vPOINT(20, -5), vPOINT(9, 0), false}, Row{ten, vPOINT(10, 10), vPOINT(9, 9), false},
                           Row{ten, vPOINT(-3, 6), vPOINT(0, 6), false}, Row{ten, vPOINT(0, 0), vPOINT(0, 0), true},
                           Row{ten, vPOINT(9, 9), vPOINT(9, 9), true}, Row{ten, vPOINT(10, 5), vPOINT(9, 5), false},
                           Row{ten, vPOINT(5, 10), vPOINT(5, 9), false},
                           Row{sized, vPOINT(50, 50), vPOINT(8, 8), false},
                           Row{inverted, vPOINT(100, -100), vPOINT(4, 4), false}}) {
        SCOPED_TRACE(std::to_string(row.point.x()) + "," + std::to_string(row.point.y()));
        EXPECT_EQ(!!(row.rect ^ row.point), row.inside);
        vPOINT point = row.point;
        row.rect.capture(point);
        EXPECT_TRUE(point == row.captured);
    }
    EXPECT_FALSE(vRECT(10, 10, 0, 0) ^ vPOINT(5, 5));
}

// Years are cut to sixteen bits; subtraction changes the left field by field without borrowing; the
// order is chronological.
TEST(ValuesTest, DatesCountFieldByFieldAndWriteTheTimeFirst) {
    EXPECT_EQ(vDATETIME(1, 1, 0x10007, 0, 0, 0).Year()(), 7);
    vDATETIME a(1, 1, 2000, 5, 0, 30);
    EXPECT_EQ(&(a - vDATETIME(1, 1, 1990, 2, 1, 10)), &a);
    EXPECT_TRUE(a.Year()() == 10 && a.Hour()() == 3 && a.Minute()() == 65535);
    vDATETIME early(31, 12, 1995, 23, 59, 59), late(1, 1, 1996, 0, 0, 0), same = late, later(1, 1, 1996, 0, 0, 1);
    EXPECT_TRUE(late > early && early < late && early <= late && early != late && later > late);
    EXPECT_FALSE(early > late || early >= late || same > late || same < late);
    EXPECT_TRUE(same == late && same >= late && same <= late);
    EXPECT_STREQ(vDATETIME(24, 12, 1996, 23, 59, 58).Stamp()(), "11:59:58 pm 24 December 1996");
    EXPECT_STREQ(vDATETIME(1, 1, 2000, 0, 5, 9).Time12()(), "12:05:09 am");
    EXPECT_STREQ(vDATETIME(1, 1, 2000, 12, 0, 0).Time12()(), "12:00:00 pm");
}

// A resource number takes its module's handle but compares alone; the default is number 0 of the base library.
TEST(ValuesTest, ResourceIdentifiers) {
    struct Module : vMODULE {
        HINSTANCE GetInstance() const override { return reinterpret_cast<HINSTANCE>(0x4000); }
    } one;
    vRESID id(31019, &one);
    EXPECT_TRUE(id() == 31019 && id.Instance() == reinterpret_cast<HINSTANCE>(0x4000));
    EXPECT_TRUE(id == vRESID(31019, vSYSTEM::Pointer()) && !(id == vRESID(31020, &one)));
    EXPECT_TRUE(vRESID()() == 0 && vRESID().Instance() == vSYSTEM::Pointer()->GetInstance());
}

// Little-endian throughout, in field order; a date's order is not its constructor's. A resource identifier is its
// module handle, pointer wide, then its number in sixteen bits.
TEST(ValuesTest, StreamForms) {
    vRESID resid(0x1234, vSYSTEM::Pointer());
    StreamBytes handle;
    for (size_t at = 0; at < sizeof(HINSTANCE); ++at)
        handle.push_back(static_cast<unsigned char>(reinterpret_cast<uintptr_t>(resid.Instance()) >> (8 * at)));
    StreamBytes residBytes = handle;
    residBytes.insert(residBytes.end(), {0x34, 0x12});
    struct Row { StreamBytes got, expected; };
    const Row rows[] = {
        {StreamForm(vINT(-2)), {0xFE, 0xFF, 0xFF, 0xFF}}, {StreamForm(vREAL(1.5)), {0x00, 0x80, 0x01, 0x00}},
        {StreamForm(vREAL(-1)), {0x00, 0x00, 0xFF, 0xFF}}, {StreamForm(vCHAR(0xE9)), {0xE9}},
        {StreamForm(vCTRLID(0xFFFE)), {0xFE, 0xFF}}, {StreamForm(vPOINT(1, -2)), {1, 0, 0, 0, 0xFE, 0xFF, 0xFF, 0xFF}},
        {StreamForm(vRANGE(vREAL(0.5), vREAL(2))), {0x00, 0x80, 0, 0, 0, 0, 0x02, 0}},
        {StreamForm(vRECT(vINT(3), vINT(4), vINT(-1), vINT(2))),
         {3, 0, 0, 0, 4, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 2, 0, 0, 0}},
        {StreamForm(vDATETIME(24, 12, 1996, 23, 59, 58)), {0xCC, 0x07, 12, 0, 24, 0, 23, 0, 59, 0, 58, 0}},
        {StreamForm(resid), residBytes},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.got, row.expected) << "row " << &row - rows;
}

template <class T> void ExpectReadBack(const T& value) {
    T read;
    EXPECT_TRUE(ReadStreamForm(StreamForm(value), read) == vSTREAM_GOOD && read == value);
}

// Each value reads back what it wrote; a value that the bytes cannot fill whole ends the stream, a
// number coming back as 0 and a rectangle keeping the edges it read.
TEST(ValuesTest, StreamFormsReadBack) {
    ExpectReadBack(vINT(-2)), ExpectReadBack(vCHAR(0x80)), ExpectReadBack(vCTRLID(9));
    ExpectReadBack(vANGLE(-390.0)), ExpectReadBack(vRANGE(vREAL(0.5), vREAL(2)));
    ExpectReadBack(vDATETIME(24, 12, 1996, 23, 59, 58));
    vRESID resid;
    EXPECT_EQ(ReadStreamForm(StreamForm(vRESID(0x1234, vSYSTEM::Pointer())), resid), vSTREAM_GOOD);
    EXPECT_TRUE(resid() == 0x1234 && resid.Instance() == vSYSTEM::Pointer()->GetInstance());
    vSIZE size;
    EXPECT_EQ(ReadStreamForm(StreamForm(vPOINT(1, -2)), size), vSTREAM_GOOD);
    EXPECT_TRUE(size.Width()() == 1 && size.Height()() == -2);
    vINT number(5);
    vRECT rect;
    StreamBytes rectBytes = StreamForm(vRECT(vINT(3), vINT(4), vINT(-1), vINT(2)));
    EXPECT_TRUE(ReadStreamForm({0x01, 0x02}, number) == vSTREAM_END && number() == 0);
    EXPECT_EQ(ReadStreamForm(StreamBytes(rectBytes.begin(), rectBytes.begin() + 10), rect), vSTREAM_END);
    EXPECT_TRUE(rect.Left()() == 3 && rect.Top()() == 4 && rect.Right()() == 0);
}

}  // namespace
