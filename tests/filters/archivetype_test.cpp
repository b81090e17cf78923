#include "support/zktest.h"

#include "filters/filter.h"

namespace {

class ArchiveTypeTest : public zktest::LeakFreeTest {};

TEST_F(ArchiveTypeTest, TheIdentifierComesSecondAndTheNameThird)
{
    vARCHIVETYPE type(vSTRING("Tagged Image"), vSTRING("TIF TIFF"), vSTRING("TIFF"));
    EXPECT_EQ(type.Description(), vSTRING("Tagged Image"));
    EXPECT_EQ(type.ID(), vSTRING("TIF TIFF"));
    EXPECT_EQ(type.Name(), vSTRING("TIFF"));
    EXPECT_FALSE(type.IsBitmap());
    EXPECT_FALSE(type.IsMetafile());
    type.ID() = vSTRING("TIF");
    EXPECT_EQ(type.ID(), vSTRING("TIF"));
    vARCHIVETYPE empty;
    EXPECT_TRUE(empty.ID().Null() && empty.Name().Null() && empty.Description().Null());
}

// Only the identifier and the category count.
TEST_F(ArchiveTypeTest, EqualityLooksAtTheIdentifierAndTheCategoryAlone)
{
    vARCHIVETYPE plain(vSTRING("one"), vSTRING("DIB"), vSTRING("x"));
    vARCHIVETYPE other(vSTRING("two"), vSTRING("DIB"), vSTRING("y"));
    EXPECT_TRUE(plain == other);
    EXPECT_FALSE(plain == DIBARCHIVE());
    DIBARCHIVE dib;
    dib.Description() = vSTRING("something else");
    EXPECT_TRUE(dib == DIBARCHIVE());
    EXPECT_FALSE(DIBARCHIVE() == ZKMARCHIVE());
}

TEST_F(ArchiveTypeTest, TheBuiltInTypesCarryTheirRecords)
{
    DIBARCHIVE dib;
    EXPECT_EQ(dib.ID(), vSTRING("DIB"));
    EXPECT_EQ(dib.Name(), vSTRING("DIB"));
    EXPECT_EQ(dib.Description(), vSTRING("Nerin Bitmap Format"));
    EXPECT_TRUE(dib.IsBitmap());
    EXPECT_FALSE(dib.IsMetafile());

    ZKMARCHIVE zkm;
    EXPECT_EQ(zkm.ID(), vSTRING("QXF"));
    EXPECT_TRUE(zkm.Name().Null());
    EXPECT_EQ(zkm.Description(), vSTRING("QXF"));
    EXPECT_TRUE(zkm.IsMetafile());
    EXPECT_FALSE(zkm.IsBitmap());
}

// A copy carries no name; an assignment carries everything.
TEST_F(ArchiveTypeTest, ACopyLosesTheNameAndAnAssignmentKeepsIt)
{
    DIBARCHIVE dib;
    DIBARCHIVE copied(dib);
    EXPECT_EQ(copied.ID(), vSTRING("DIB"));
    EXPECT_TRUE(copied.Name().Null());
    EXPECT_TRUE(copied.IsBitmap());
    EXPECT_TRUE(copied == dib);

    vARCHIVETYPE assigned;
    assigned = dib;
    EXPECT_EQ(assigned.Name(), vSTRING("DIB"));
    EXPECT_EQ(assigned.Description(), vSTRING("Nerin Bitmap Format"));
    EXPECT_TRUE(assigned.IsBitmap());
}

}  // namespace
