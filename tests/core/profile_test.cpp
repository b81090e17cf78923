#include <cstdio>
#include <string>

#include "base/system.h"
#include "support/zktest.h"

namespace {

class ProfileTest : public zktest::LeakFreeTest {
protected:
    void SetUp() override
    {
        LeakFreeTest::SetUp();
        char directory[MAX_PATH];
        GetTempPathA(MAX_PATH, directory);
        path = std::string(directory) + "zkprofile_test.ini";
        std::FILE* file = std::fopen(path.c_str(), "w");
        std::fputs("[windows]\ndevice=Printer,winspool,LPT1:\n", file);
        std::fclose(file);
    }
    void TearDown() override
    {
        DeleteFileA(path.c_str());
        LeakFreeTest::TearDown();
    }
    std::string path;
};

TEST_F(ProfileTest, AnExistingFileIsValidAndAnswers)
{
    vPROFILE profile(vSTRING("%s", path.c_str()));
    EXPECT_TRUE(profile.Valid());
    EXPECT_STREQ(profile.Get(vSTRING("windows"), vSTRING("device"))(), "Printer,winspool,LPT1:");
    EXPECT_TRUE(profile.Get(vSTRING("windows"), vSTRING("missing")).Null());
}

TEST_F(ProfileTest, AMissingFileIsNotValidAndAnswersNothing)
{
    vPROFILE profile(vSTRING("%s", (path + ".absent").c_str()));
    EXPECT_FALSE(profile.Valid());
    EXPECT_TRUE(profile.Get(vSTRING("windows"), vSTRING("device")).Null());
}

TEST_F(ProfileTest, CopiesAndAssignmentKeepTheFileAndItsValidity)
{
    vPROFILE valid(vSTRING("%s", path.c_str()));
    vPROFILE invalid(vSTRING("nowhere.ini"));
    vPROFILE copy(valid);
    EXPECT_TRUE(copy.Valid());
    copy = invalid;
    EXPECT_FALSE(copy.Valid());
    invalid = valid;
    EXPECT_TRUE(invalid.Valid());
    EXPECT_STREQ(invalid.Get(vSTRING("windows"), vSTRING("device"))(), "Printer,winspool,LPT1:");
}

}  // namespace
