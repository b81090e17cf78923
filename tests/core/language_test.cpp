#include "support/zktest.h"

#include <set>
#include <string>

#include "base/resid.h"
#include "base/string.h"
#include "base/system.h"

namespace {

const unsigned short languages[] = {2057, 1033, 1031, 1036, 1053};

const unsigned short textIds[] = {31019, 31020, 31021, 31022, 31023, 31024, 31025, 31100,
                                  31101, 31105, 31106, 31127, 31128, 31131, 31200};

// The text as the system loads it: the number plus the language's offset, in
// the base library's resources.
std::string Load(unsigned short id, unsigned short language)
{
    return vSTRING(vRESID(id + vSTRING::LanguageOffset(language), vSYSTEM::Pointer()))();
}

TEST(LanguageTest, EveryTextExistsInEveryLanguage)
{
    for (unsigned short language : languages) {
        for (unsigned short id : textIds)
            EXPECT_FALSE(Load(id, language).empty()) << "text " << id << " in language " << language;
    }
}

TEST(LanguageTest, CascadeReadsDifferentlyInEachLanguage)
{
    std::set<std::string> texts;
    for (unsigned short language : languages)
        texts.insert(Load(31021, language));
    EXPECT_EQ(texts.size(), 5u);
}

TEST(LanguageTest, ClipboardFormatNameIsTheSameInEveryLanguage)
{
    std::string british = Load(31200, 2057);
    for (unsigned short language : languages)
        EXPECT_EQ(Load(31200, language), british) << "language " << language;
}

TEST(LanguageTest, AccentedLettersArriveInCodePage1252)
{
    EXPECT_EQ(Load(31021, 1031), "\xDC" "ber&lappend");
    EXPECT_EQ(Load(31106, 1031), "\xD6" "ffnen");
    EXPECT_EQ(Load(31022, 1036), "&Mosa\xEFque");
    EXPECT_EQ(Load(31019, 1053), "&Hj\xE4lp");
}

}  // namespace
