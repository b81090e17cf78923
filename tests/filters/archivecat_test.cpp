#include "support/zktest.h"

#include <functional>

#include "filters/archivecat.h"

namespace {

// Which flags a run of setters leaves, read through every question.
struct Flags {
    const char* what;
    std::function<void(vARCHIVECAT&)> set;
    int text, metafile, bitmap, picture;
};

class ArchiveCatFlagsTest : public ::testing::TestWithParam<Flags> {};

TEST_P(ArchiveCatFlagsTest, SettersAddTheirFlagAndLeaveTheOthers)
{
    vARCHIVECAT category;
    GetParam().set(category);
    EXPECT_EQ(category.IsText(), GetParam().text);
    EXPECT_EQ(category.IsMetafile(), GetParam().metafile);
    EXPECT_EQ(category.IsBitmap(), GetParam().bitmap);
    EXPECT_EQ(category.IsPicture(), GetParam().picture);
}

INSTANTIATE_TEST_SUITE_P(Table, ArchiveCatFlagsTest, ::testing::Values(
    Flags{"none", [](vARCHIVECAT&) {}, 0, 0, 0, 0},
    Flags{"text", [](vARCHIVECAT& c) { c.Text(); }, 1, 0, 0, 0},
    Flags{"metafile", [](vARCHIVECAT& c) { c.Metafile(); }, 0, 1, 0, 1},
    Flags{"bitmap", [](vARCHIVECAT& c) { c.Bitmap(); }, 0, 0, 1, 1},
    Flags{"bitmap then text", [](vARCHIVECAT& c) { c.Bitmap(); c.Text(); }, 1, 0, 1, 1},
    Flags{"all three", [](vARCHIVECAT& c) { c.Text(); c.Metafile(); c.Bitmap(); }, 1, 1, 1, 1}));

TEST(ArchiveCatTest, CategoriesAreEqualWhenTheirFlagsAre)
{
    vARCHIVECAT a;
    vARCHIVECAT b;
    EXPECT_TRUE(a == b);
    a.Bitmap();
    EXPECT_FALSE(a == b);
    b.Bitmap();
    b.Bitmap();
    EXPECT_TRUE(a == b);
    b = vARCHIVECAT();
    EXPECT_FALSE(b.IsBitmap());
}

}  // namespace
