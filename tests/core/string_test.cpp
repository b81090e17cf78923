#include "support/zktest.h"

#include <climits>
#include <string>
#include <utility>

#include "base/string.h"
#include "base/system.h"
#include "base/values.h"

namespace {

class StringTest : public zktest::LeakFreeTest {};

TEST_F(StringTest, EmptyStringsShareOneTextAndAllocateNothing)
{
    unsigned long before = vMemLiveBlocks();
    vSTRING empty;
    vSTRING formatted("");
    EXPECT_EQ(vMemLiveBlocks(), before);
    ASSERT_NE(empty(), nullptr);
    EXPECT_STREQ(empty(), "");
    EXPECT_EQ(formatted(), empty());
    EXPECT_TRUE(empty.Null());
    EXPECT_EQ(empty.Length(), 0);
    EXPECT_FALSE(vSTRING("x").Null());
}

TEST_F(StringTest, CopiesOwnTheirTextAndMovesLeaveTheSourceEmpty)
{
    vSTRING original("abc");
    vSTRING copy(original);
    EXPECT_NE(copy(), original());
    EXPECT_STREQ(copy(), "abc");

    vSTRING moved(std::move(original));
    EXPECT_STREQ(moved(), "abc");
    EXPECT_TRUE(original.Null());

    vSTRING target("old");
    target = std::move(moved);
    EXPECT_STREQ(target(), "abc");
    EXPECT_TRUE(moved.Null());

    vSTRING& alias = target;
    target = alias;
    EXPECT_STREQ(target(), "abc");
}

TEST_F(StringTest, JoinsAndAssignsCharacters)
{
    vSTRING path("C:");
    EXPECT_STREQ((path + vCHAR('\\'))(), "C:\\");
    EXPECT_STREQ((path + vSTRING("\\DIR"))(), "C:\\DIR");
    EXPECT_STREQ((path + vCHAR())(), "C:");
    EXPECT_STREQ(path(), "C:");
    path = vCHAR('x');
    EXPECT_STREQ(path(), "x");
    path = vCHAR();
    EXPECT_TRUE(path.Null());
}

TEST_F(StringTest, CharactersPastTheEndAreZero)
{
    vSTRING text("ab");
    EXPECT_EQ(text.Char(1)(), 'b');
    EXPECT_EQ(text[0](), 'a');
    EXPECT_EQ(text.Char(2)(), 0);
    EXPECT_EQ(text[3](), 0);
    EXPECT_EQ(vSTRING().Char(65535)(), 0);
    EXPECT_EQ(vSTRING("\xE9").Char(0)(), '\xE9');
}

struct IntegerRow {
    const char* format;
    int value;
    const char* expected;
};

class IntegerFormatTest : public StringTest, public ::testing::WithParamInterface<IntegerRow> {};

TEST_P(IntegerFormatTest, FormatsLikeTheWindowsFormatter)
{
    EXPECT_STREQ(vSTRING(GetParam().format, GetParam().value)(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Numbers, IntegerFormatTest, ::testing::Values(
    IntegerRow{"%d", -42, "-42"}, IntegerRow{"%i", 9, "9"}, IntegerRow{"%5d", -42, "  -42"},
    IntegerRow{"%05d", -42, "-0042"}, IntegerRow{"%-05d|", -42, "-42  |"},
    IntegerRow{"%.5d", -42, "-0042"}, IntegerRow{"%08.5d", -42, "-0000042"},
    IntegerRow{"%.0d", 0, "0"}, IntegerRow{"%d", INT_MIN, "-2147483648"},
    IntegerRow{"%u", -1, "4294967295"}, IntegerRow{"%lu", 7, "7"}, IntegerRow{"%hd", 70000, "70000"},
    IntegerRow{"%x", 255, "ff"}, IntegerRow{"%lX", 255, "FF"}, IntegerRow{"%#x", 255, "0xff"},
    IntegerRow{"%#X", 0, "0X0"}, IntegerRow{"%#08x", 255, "0x000000ff"},
    IntegerRow{"%-#8x|", 255, "0xff      |"}, IntegerRow{"%#.4x", 255, "0x00ff"},
    IntegerRow{"%I32x", -1, "ffffffff"}));

INSTANTIATE_TEST_SUITE_P(Characters, IntegerFormatTest, ::testing::Values(
    IntegerRow{"%c:", 'C', "C:"}, IntegerRow{"%c|", 0, "|"}, IntegerRow{"%3c|", 'A', "  A|"},
    IntegerRow{"%03c|", 'A', "  A|"}, IntegerRow{"%-3c|", 'A', "A  |"},
    IntegerRow{"%C", 'W', "W"}, IntegerRow{"%lc", 0xE9, "\xE9"}, IntegerRow{"%hC", 'n', "n"},
    IntegerRow{"%wc", 0x141, "A"}));

INSTANTIATE_TEST_SUITE_P(NotConversions, IntegerFormatTest, ::testing::Values(
    IntegerRow{"100%%%d", 5, "100%5"}, IntegerRow{"%z%d", 5, "z5"}, IntegerRow{"%+d", 5, "+d"},
    IntegerRow{"%0-5d", 5, "-5d"}, IntegerRow{"%d%", 5, "5"}, IntegerRow{"%ld%l", 5, "5"}));

struct TextRow {
    const char* format;
    const char* value;
    const char* expected;
};

class TextFormatTest : public StringTest, public ::testing::WithParamInterface<TextRow> {};

TEST_P(TextFormatTest, FormatsLikeTheWindowsFormatter)
{
    EXPECT_STREQ(vSTRING(GetParam().format, GetParam().value)(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Texts, TextFormatTest, ::testing::Values(
    TextRow{"%s", "100%", "100%"}, TextRow{"[%s]", "", "[]"}, TextRow{"%5s", "abc", "  abc"},
    TextRow{"%05s", "abc", "  abc"}, TextRow{"%-5s|", "abc", "abc  |"}, TextRow{"%.2s", "abc", "ab"},
    TextRow{"%5.2s", "abc", "   ab"}, TextRow{"%.0s", "abc", "abc"}, TextRow{"%hS", "abc", "abc"},
    TextRow{"%s", nullptr, "(null)"}, TextRow{"%.3s", nullptr, "(nu"}));

TEST_F(StringTest, WideTextsArriveInTheNarrowCharacterSet)
{
    EXPECT_STREQ(vSTRING("%S|%ls|%ws", L"S", L"ls", L"ws")(), "S|ls|ws");
    EXPECT_STREQ(vSTRING("%.2S|%-6S|", L"wide", L"wide")(), "wi|wide  |");
    EXPECT_STREQ(vSTRING("%S", L"\u00E9t\u00E9")(), "\xE9t\xE9");
    EXPECT_STREQ(vSTRING("%S", static_cast<const wchar_t*>(nullptr))(), "(null)");
}

TEST_F(StringTest, FormatsSixtyFourBitNumbersAndPointers)
{
    EXPECT_STREQ(vSTRING("%I64d", -5LL)(), "-5");
    EXPECT_STREQ(vSTRING("%I64u", ~0ULL)(), "18446744073709551615");
    EXPECT_STREQ(vSTRING("%I64X|%d", 0x123456789ABLL, 7)(), "123456789AB|7");
    // A pointer shows all its digits: eight on the 32-bit build, sixteen on the 64-bit.
    const std::string zeros(2 * sizeof(void*) - 4, '0');
    EXPECT_EQ(std::string(vSTRING("%p", reinterpret_cast<void*>(0x1234))()), zeros + "1234");
    EXPECT_EQ(std::string(vSTRING("%#p", reinterpret_cast<void*>(0x1234))()), "0X" + zeros + "1234");
    EXPECT_EQ(std::string(vSTRING("%20p", reinterpret_cast<void*>(0x1234))()),
              std::string(16 - zeros.size(), ' ') + zeros + "1234");
    EXPECT_STREQ(vSTRING("%d %s %c", 1, "two", '3')(), "1 two 3");
}

TEST_F(StringTest, FormatsPastTheWindowsLimitUpToSixteenBitsOfLength)
{
    std::string first(40000, 'x');
    std::string second(40000, 'y');
    EXPECT_EQ(vSTRING("%s", first.c_str()).Length(), 40000);
    vSTRING both("%s%s", first.c_str(), second.c_str());
    EXPECT_EQ(both.Length(), 65535);
    EXPECT_EQ(both.Char(39999)(), 'x');
    EXPECT_EQ(both.Char(65534)(), 'y');
    EXPECT_EQ(vSTRING("%70000d", 1).Length(), 65535);
    EXPECT_EQ((both + both).Length(), 65535);
}

TEST_F(StringTest, IntegersInDecimal)
{
    EXPECT_STREQ(vSTRING(vINT(0))(), "0");
    EXPECT_STREQ(vSTRING(vINT(-42))(), "-42");
    EXPECT_STREQ(vSTRING(vINT(LONG_MIN))(), "-2147483648");
}

struct RealRow {
    double value;
    const char* expected;
};

class RealTextTest : public StringTest, public ::testing::WithParamInterface<RealRow> {};

TEST_P(RealTextTest, ShowsUpToFourRoundedDecimals)
{
    EXPECT_STREQ(vSTRING(vREAL(GetParam().value))(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Reals, RealTextTest, ::testing::Values(
    RealRow{1.5, "1.5"}, RealRow{-0.25, "-0.25"}, RealRow{2.0, "2"}, RealRow{0.0, "0"},
    RealRow{1.0 / 3, "0.3333"}, RealRow{2.0 / 3, "0.6667"}, RealRow{0.0001, "0.0001"},
    RealRow{-1.0 / 65536, "0"}, RealRow{-32768.0, "-32768"}, RealRow{32767.99999, "32768"}));

TEST_F(StringTest, LoadsResourcesWhole)
{
    EXPECT_STREQ(vSTRING(vRESID(31128, vSYSTEM::Pointer()))(), "OK");
    vSTRING message(vRESID(31101, vSYSTEM::Pointer()));
    EXPECT_GT(message.Length(), 64);
    EXPECT_EQ(message.Char(message.Length() - 1)(), '.');
    EXPECT_TRUE(vSTRING(vRESID(12345, vSYSTEM::Pointer())).Null());
}

struct FieldRow {
    const char* text;
    unsigned short n;
    const char* field;
    const char* before;
};

class DelimitedTest : public StringTest, public ::testing::WithParamInterface<FieldRow> {};

TEST_P(DelimitedTest, TakesTheFieldAfterAndTheTextBeforeTheNthDelimiter)
{
    vSTRING text(GetParam().text);
    EXPECT_STREQ(text.GetDelimitedSubString(vCHAR('\\'), GetParam().n)(), GetParam().field);
    EXPECT_STREQ(text.GetPreDelimitedSubString(vCHAR('\\'), GetParam().n)(), GetParam().before);
}

INSTANTIATE_TEST_SUITE_P(Paths, DelimitedTest, ::testing::Values(
    FieldRow{"C:\\FOO\\BAR", 0, "C:", ""}, FieldRow{"C:\\FOO\\BAR", 1, "FOO", "C:"},
    FieldRow{"C:\\FOO\\BAR", 2, "BAR", "C:\\FOO"}, FieldRow{"C:\\FOO\\BAR", 3, "", "C:\\FOO\\BAR"},
    FieldRow{"\\\\SERVER\\SHARE\\DIR", 1, "", ""}, FieldRow{"\\\\SERVER\\SHARE\\DIR", 2, "SERVER", "\\"},
    FieldRow{"\\\\SERVER\\SHARE\\DIR", 3, "SHARE", "\\\\SERVER"},
    FieldRow{"\\\\SERVER\\SHARE\\DIR", 4, "DIR", "\\\\SERVER\\SHARE"}, FieldRow{"C:\\", 1, "", "C:"}));

struct CutRow {
    const char* text;
    char delimiter;
    const char* kept;
    const char* result;
};

class RemoveFromEndTest : public StringTest, public ::testing::WithParamInterface<CutRow> {};

TEST_P(RemoveFromEndTest, CutsAtTheLastDelimiter)
{
    vSTRING text(GetParam().text);
    vSTRING result = text.RemoveFromEnd(vCHAR(GetParam().delimiter));
    EXPECT_STREQ(result(), GetParam().result);
    EXPECT_STREQ(text(), GetParam().kept);
}

INSTANTIATE_TEST_SUITE_P(Names, RemoveFromEndTest, ::testing::Values(
    CutRow{"NAME.BMP", '.', "NAME", "BMP"}, CutRow{"NAME", '.', "NAME", "NAME"},
    CutRow{"A.B.C", '.', "A.B", "C"}, CutRow{"C:\\DIR\\FILE.TXT", '\\', "C:\\DIR", "FILE.TXT"},
    CutRow{"C:\\DIR\\", '\\', "C:\\DIR", ""}, CutRow{".", '.', "", ""}, CutRow{"", '.', "", ""}));

struct TrimRow {
    const char* text;
    char character;
    const char* expected;
};

class TrimTest : public StringTest, public ::testing::WithParamInterface<TrimRow> {};

TEST_P(TrimTest, StripsBothEndsInPlace)
{
    vSTRING text(GetParam().text);
    vSTRING& result = text.RemoveLeadAndTrailing(vCHAR(GetParam().character));
    EXPECT_EQ(&result, &text);
    EXPECT_STREQ(text(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Blanks, TrimTest, ::testing::Values(
    TrimRow{"  a b  ", ' ', "a b"}, TrimRow{"    ", ' ', ""}, TrimRow{"xax", 'x', "a"},
    TrimRow{"abc", ' ', "abc"}, TrimRow{"", ' ', ""}));

struct SearchRow {
    const char* text;
    const char* needle;
    const char* found;
    unsigned short occurrences;
};

class SearchTest : public StringTest, public ::testing::WithParamInterface<SearchRow> {};

TEST_P(SearchTest, FindsAndCountsWithoutOverlap)
{
    vSTRING text(GetParam().text);
    vSTRING needle(GetParam().needle);
    vSTRING found = text.GetSubString(needle);
    EXPECT_STREQ(found(), GetParam().found);
    EXPECT_EQ(found == vSTRING(), *GetParam().found == 0);
    EXPECT_EQ(text.NoOfOccurance(needle), GetParam().occurrences);
}

INSTANTIATE_TEST_SUITE_P(Texts, SearchTest, ::testing::Values(
    SearchRow{"BMP DIB", "DIB", "DIB", 1}, SearchRow{"BMP", "M", "MP", 1},
    SearchRow{"BMP", "TIF", "", 0}, SearchRow{"banana", "an", "anana", 2},
    SearchRow{"aaaa", "aa", "aaaa", 2}, SearchRow{"abc", "abcd", "", 0},
    SearchRow{"abc", "", "abc", 0}, SearchRow{"ABC", "abc", "", 0}));

TEST_F(StringTest, CountsCharacters)
{
    EXPECT_EQ(vSTRING("C:\\").NoOfOccurance(vCHAR('\\')), 1);
    EXPECT_EQ(vSTRING("\\\\S\\D").NoOfOccurance(vCHAR('\\')), 3);
    EXPECT_EQ(vSTRING("abc").NoOfOccurance(vCHAR()), 0);
    EXPECT_EQ(vSTRING().NoOfOccurance(vCHAR('a')), 0);
}

TEST_F(StringTest, ConvertsCaseByThePlatformRules)
{
    vSTRING name("abc.Txt \xE9");
    EXPECT_STREQ(name.ConvertUpper()(), "ABC.TXT \xC9");
    EXPECT_STREQ(name.ConvertLower()(), "abc.txt \xE9");
    EXPECT_TRUE(vSTRING().ConvertUpper().Null());
}

struct OrderRow {
    const char* left;
    const char* right;
    int greater;
    int equal;
};

class OrderTest : public StringTest, public ::testing::WithParamInterface<OrderRow> {};

TEST_P(OrderTest, ComparesBytesAsSignedCharactersWithCase)
{
    vSTRING left(GetParam().left);
    vSTRING right(GetParam().right);
    EXPECT_EQ(left > right, GetParam().greater);
    EXPECT_EQ(left == right, GetParam().equal);
    EXPECT_EQ(left != right, !GetParam().equal);
}

INSTANTIATE_TEST_SUITE_P(Pairs, OrderTest, ::testing::Values(
    OrderRow{"b", "a", 1, 0}, OrderRow{"a", "b", 0, 0}, OrderRow{"a", "a", 0, 1},
    OrderRow{"ab", "a", 1, 0}, OrderRow{"a", "ab", 0, 0}, OrderRow{"a", "B", 1, 0},
    OrderRow{"A", "\xE9", 1, 0}, OrderRow{"a", "a\xE9", 0, 0}, OrderRow{"", "", 0, 1}));

struct OffsetRow {
    unsigned short language;
    unsigned short offset;
};

class LanguageOffsetTest : public ::testing::TestWithParam<OffsetRow> {};

TEST_P(LanguageOffsetTest, PlacesEachLanguageInItsBlock)
{
    EXPECT_EQ(vSTRING::LanguageOffset(GetParam().language), GetParam().offset);
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageOffsetTest, ::testing::Values(
    OffsetRow{2057, 0}, OffsetRow{1033, 1000}, OffsetRow{1031, 2000}, OffsetRow{1036, 3000},
    OffsetRow{1053, 4000}, OffsetRow{1040, 0}, OffsetRow{0, 0}));

}  // namespace
