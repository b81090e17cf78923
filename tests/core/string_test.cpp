#include "support/zktest.h"

#include <climits>
#include <set>
#include <string>
#include <utility>

#include "base/string.h"
#include "base/system.h"
#include "base/values.h"

namespace {

class StringTest : public zktest::LeakFreeTest {};

// A string as an operation left it, and the text it must hold.
struct Made { vSTRING got; std::string expected; };
template <size_t N> void ExpectTexts(const Made (&rows)[N]) {
    for (size_t n = 0; n < N; ++n)
        EXPECT_EQ(rows[n].got(), rows[n].expected) << "row " << n;
}

// Empty strings share one text and allocate nothing.
TEST_F(StringTest, CopiesOwnTheirTextMovesEmptyTheSourceAndJoinsMakeNewStrings) {
    unsigned long before = vMemLiveBlocks();
    vSTRING empty, formatted("");
    EXPECT_TRUE(vMemLiveBlocks() == before && formatted() == empty());
    EXPECT_TRUE(empty.Null() && !vSTRING("x").Null() && empty.Length() == 0 && *empty() == 0);
    vSTRING original("C:"), copy(original);
    EXPECT_NE(copy(), original());
    vSTRING moved(std::move(original)), target("old");
    target = std::move(moved);
    EXPECT_TRUE(original.Null() && moved.Null());
    vSTRING& alias = target;
    target = alias;
    vSTRING character("x"), none("y");
    character = vCHAR('z');
    none = vCHAR();
    ExpectTexts({{copy, "C:"}, {target, "C:"}, {target + vCHAR('\\'), "C:\\"}, {target + vSTRING("\\D"), "C:\\D"},
                 {target + vCHAR(), "C:"}, {character, "z"}, {none, ""}});
    EXPECT_TRUE(target.Char(1)() == ':' && target[0]() == 'C' && target.Char(2)() == 0);
    EXPECT_TRUE(vSTRING().Char(65535)() == 0 && vSTRING("\xE9").Char(0)() == '\xE9');
}

TEST_F(StringTest, FormatsLikeTheWindowsFormatter) {
    // A pointer shows all its digits: eight on the 32-bit build, sixteen on the 64-bit.
    const std::string zeros(2 * sizeof(void*) - 4, '0');
    void* pointer = reinterpret_cast<void*>(0x1234);
    const char* noText = nullptr;
    const wchar_t* noWide = nullptr;
    ExpectTexts({
        {vSTRING("%d", -42), "-42"}, {vSTRING("%i", 9), "9"}, {vSTRING("%5d", -42), "  -42"},
        {vSTRING("%05d", -42), "-0042"}, {vSTRING("%-05d|", -42), "-42  |"}, {vSTRING("%.5d", -42), "-0042"},
        {vSTRING("%08.5d", -42), "-0000042"}, {vSTRING("%.0d", 0), "0"}, {vSTRING("%d", INT_MIN), "-2147483648"},
        {vSTRING("%u", -1), "4294967295"}, {vSTRING("%lu", 7), "7"}, {vSTRING("%hd", 70000), "70000"},
        {vSTRING("%x", 255), "ff"}, {vSTRING("%lX", 255), "FF"}, {vSTRING("%#x", 255), "0xff"},
        {vSTRING("%#X", 0), "0X0"}, {vSTRING("%#08x", 255), "0x000000ff"}, {vSTRING("%-#8x|", 255), "0xff      |"},
        {vSTRING("%#.4x", 255), "0x00ff"}, {vSTRING("%I32x", -1), "ffffffff"}, {vSTRING("%c:", 'C'), "C:"},
        {vSTRING("%c|", 0), "|"}, {vSTRING("%3c|", 'A'), "  A|"}, {vSTRING("%03c|", 'A'), "  A|"},
        {vSTRING("%-3c|", 'A'), "A  |"}, {vSTRING("%C", 'W'), "W"}, {vSTRING("%lc", 0xE9), "\xE9"},
        {vSTRING("%hC", 'n'), "n"}, {vSTRING("%wc", 0x141), "A"}, {vSTRING("100%%%d", 5), "100%5"},
        {vSTRING("%z%d", 5), "z5"}, {vSTRING("%+d", 5), "+d"}, {vSTRING("%0-5d", 5), "-5d"}, {vSTRING("%d%", 5), "5"},
        {vSTRING("%ld%l", 5), "5"}, {vSTRING("%s", "100%"), "100%"}, {vSTRING("[%s]", ""), "[]"},
        {vSTRING("%5s", "abc"), "  abc"}, {vSTRING("%05s", "abc"), "  abc"}, {vSTRING("%-5s|", "abc"), "abc  |"},
        {vSTRING("%.2s", "abc"), "ab"}, {vSTRING("%5.2s", "abc"), "   ab"}, {vSTRING("%.0s", "abc"), "abc"},
        {vSTRING("%hS", "abc"), "abc"}, {vSTRING("%s", noText), "(null)"}, {vSTRING("%.3s", noText), "(nu"},
        {vSTRING("%S|%ls|%ws", L"S", L"ls", L"ws"), "S|ls|ws"}, {vSTRING("%.2S|%-6S|", L"wide", L"wide"), "wi|wide  |"},
        {vSTRING("%S", L"\u00E9t\u00E9"), "\xE9t\xE9"}, {vSTRING("%S", noWide), "(null)"},
        {vSTRING("%I64d", -5LL), "-5"}, {vSTRING("%I64u", ~0ULL), "18446744073709551615"},
        {vSTRING("%I64X|%d", 0x123456789ABLL, 7), "123456789AB|7"}, {vSTRING("%d %s %c", 1, "two", '3'), "1 two 3"},
        {vSTRING("%p", pointer), zeros + "1234"}, {vSTRING("%#p", pointer), "0X" + zeros + "1234"},
        {vSTRING("%20p", pointer), std::string(16 - zeros.size(), ' ') + zeros + "1234"},
    });
}

TEST_F(StringTest, TextsStopAtSixteenBitsOfLength) {
    std::string first(40000, 'x'), second(40000, 'y');
    vSTRING both("%s%s", first.c_str(), second.c_str());
    EXPECT_TRUE(both.Length() == 65535 && both.Char(39999)() == 'x' && both.Char(65534)() == 'y');
    EXPECT_TRUE(vSTRING("%70000d", 1).Length() == 65535 && (both + both).Length() == 65535);
}

// Reals show up to four rounded decimals.
TEST_F(StringTest, NumbersAndResourcesMakeTheirText) {
    ExpectTexts({{vSTRING(vINT(0)), "0"}, {vSTRING(vINT(-42)), "-42"}, {vSTRING(vINT(LONG_MIN)), "-2147483648"},
                 {vSTRING(vREAL(1.5)), "1.5"}, {vSTRING(vREAL(-0.25)), "-0.25"}, {vSTRING(vREAL(2.0)), "2"},
                 {vSTRING(vREAL(0.0)), "0"}, {vSTRING(vREAL(1.0 / 3)), "0.3333"}, {vSTRING(vREAL(2.0 / 3)), "0.6667"},
                 {vSTRING(vREAL(0.0001)), "0.0001"}, {vSTRING(vREAL(-1.0 / 65536)), "0"},
                 {vSTRING(vREAL(-32768.0)), "-32768"}, {vSTRING(vREAL(32767.99999)), "32768"},
                 {vSTRING(vRESID(31128, vSYSTEM::Pointer())), "OK"}, {vSTRING(vRESID(12345, vSYSTEM::Pointer())), ""}});
}

TEST_F(StringTest, CutsAtDelimiters) {
    struct Field { const char* text; unsigned short n; const char *field, *before; };
    const Field fields[] = {{"C:\\FOO\\BAR", 0, "C:", ""}, {"C:\\FOO\\BAR", 1, "FOO", "C:"},
                            {"C:\\FOO\\BAR", 2, "BAR", "C:\\FOO"}, {"C:\\FOO\\BAR", 3, "", "C:\\FOO\\BAR"},
                            {"\\\\S\\SHARE\\DIR", 1, "", ""}, {"\\\\S\\SHARE\\DIR", 2, "S", "\\"},
                            {"\\\\S\\SHARE\\DIR", 3, "SHARE", "\\\\S"}, {"\\\\S\\SHARE\\DIR", 4, "DIR", "\\\\S\\SHARE"},
                            {"C:\\", 1, "", "C:"}};
    for (const Field& row : fields) {
        SCOPED_TRACE(std::string(row.text) + " #" + std::to_string(row.n));
        EXPECT_STREQ(vSTRING(row.text).GetDelimitedSubString(vCHAR('\\'), row.n)(), row.field);
        EXPECT_STREQ(vSTRING(row.text).GetPreDelimitedSubString(vCHAR('\\'), row.n)(), row.before);
    }
    // Removing from the end keeps the text before the last delimiter and answers the rest.
    struct Cut { const char* text; char delimiter; const char *kept, *result; };
    const Cut cuts[] = {{"NAME.BMP", '.', "NAME", "BMP"}, {"NAME", '.', "NAME", "NAME"}, {"A.B.C", '.', "A.B", "C"},
                        {"C:\\DIR\\FILE.TXT", '\\', "C:\\DIR", "FILE.TXT"}, {"C:\\DIR\\", '\\', "C:\\DIR", ""},
                        {".", '.', "", ""}, {"", '.', "", ""}};
    for (const Cut& row : cuts) {
        vSTRING text(row.text);
        EXPECT_STREQ(text.RemoveFromEnd(vCHAR(row.delimiter))(), row.result) << row.text;
        EXPECT_STREQ(text(), row.kept) << row.text;
    }
    struct Trim { const char* text; char character; const char* expected; };
    const Trim trims[] = {{"  a b  ", ' ', "a b"}, {"    ", ' ', ""}, {"xax", 'x', "a"}, {"abc", ' ', "abc"},
                          {"", ' ', ""}};
    for (const Trim& row : trims) {
        vSTRING text(row.text);
        EXPECT_EQ(&text.RemoveLeadAndTrailing(vCHAR(row.character)), &text);
        EXPECT_STREQ(text(), row.expected) << row.text;
    }
}

TEST_F(StringTest, FindsAndCountsWithoutOverlapAndConvertsCase) {
    struct Search { const char *text, *needle, *found; unsigned short occurrences; };
    const Search searches[] = {{"BMP DIB", "DIB", "DIB", 1}, {"BMP", "M", "MP", 1}, {"BMP", "TIF", "", 0},
                               {"banana", "an", "anana", 2}, {"aaaa", "aa", "aaaa", 2}, {"abc", "abcd", "", 0},
                               {"abc", "", "abc", 0}, {"ABC", "abc", "", 0}};
    for (const Search& row : searches) {
        vSTRING text(row.text), needle(row.needle);
        EXPECT_STREQ(text.GetSubString(needle)(), row.found) << row.text << " / " << row.needle;
        EXPECT_EQ(text.NoOfOccurance(needle), row.occurrences) << row.text << " / " << row.needle;
    }
    EXPECT_TRUE(vSTRING("\\\\S\\D").NoOfOccurance(vCHAR('\\')) == 3 &&
                vSTRING("abc").NoOfOccurance(vCHAR()) + vSTRING().NoOfOccurance(vCHAR('a')) == 0);
    vSTRING name("abc.Txt \xE9");
    EXPECT_STREQ(name.ConvertUpper()(), "ABC.TXT \xC9");
    EXPECT_STREQ(name.ConvertLower()(), "abc.txt \xE9");
}

TEST_F(StringTest, ComparesBytesAsSignedCharactersWithCase) {
    struct Order { const char *left, *right; bool greater, equal; };
    const Order orders[] = {{"b", "a", 1, 0}, {"a", "b", 0, 0}, {"a", "a", 0, 1}, {"ab", "a", 1, 0}, {"a", "ab", 0, 0},
                            {"a", "B", 1, 0}, {"A", "\xE9", 1, 0}, {"a", "a\xE9", 0, 0}, {"", "", 0, 1}};
    for (const Order& row : orders) {
        vSTRING left(row.left), right(row.right);
        SCOPED_TRACE(std::string(row.left) + " / " + row.right);
        EXPECT_EQ(left > right, row.greater);
        EXPECT_TRUE(left == right ? row.equal && !(left != right) : !row.equal && left != right);
    }
}

// Each language's texts sit in a block of their own among the base library's
// resources; a language the library does not know takes the British ones.
std::string Load(unsigned short id, unsigned short language) {
    return vSTRING(vRESID(id + vSTRING::LanguageOffset(language), vSYSTEM::Pointer()))();
}

TEST(LanguageTest, EachLanguageHasItsBlockOfTexts) {
    const unsigned short languages[] = {2057, 1033, 1031, 1036, 1053}, offsets[] = {0, 1000, 2000, 3000, 4000};
    std::set<std::string> cascades;
    for (int n = 0; n < 5; ++n) {
        EXPECT_EQ(vSTRING::LanguageOffset(languages[n]), offsets[n]);
        for (unsigned short id : {31019, 31020, 31021, 31022, 31023, 31024, 31025, 31100, 31101, 31105, 31106, 31127,
                                  31128, 31131})
            EXPECT_FALSE(Load(id, languages[n]).empty()) << "text " << id << " in language " << languages[n];
        cascades.insert(Load(31021, languages[n]));
        EXPECT_EQ(Load(31200, languages[n]), Load(31200, 2057)) << "the clipboard format's name never changes";
    }
    EXPECT_EQ(cascades.size(), 5u);
    EXPECT_TRUE(vSTRING::LanguageOffset(1040) == 0 && vSTRING::LanguageOffset(0) == 0);
    EXPECT_EQ(std::vector<std::string>({Load(31021, 1031), Load(31106, 1031), Load(31022, 1036), Load(31019, 1053)}),
              std::vector<std::string>({"\xDC" "ber&lappend", "\xD6" "ffnen", "&Mosa\xEFque", "&Hj\xE4lp"}));
}

}  // namespace
