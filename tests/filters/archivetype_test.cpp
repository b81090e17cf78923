#include "support/zktest.h"

#include <functional>

#include "filters/archivecat.h"
#include "filters/filter.h"

namespace {

using Fields = std::vector<std::string>;
using ArchiveTypeTest = zktest::LeakFreeTest;

// Description, identifier, name ("-" when null), and whether a bitmap and a metafile.
Fields Of(vARCHIVETYPE& type) {
    Fields fields;
    for (vSTRING* field : {&type.Description(), &type.ID(), &type.Name()})
        fields.push_back(field->Null() ? "-" : (*field)());
    fields.push_back(std::to_string(type.IsBitmap()) + std::to_string(type.IsMetafile()));
    return fields;
}

// The identifier comes second and the name third; the built-in types carry their records; a copy carries no name, an
// assignment everything; only the identifier and the category count for equality.
TEST_F(ArchiveTypeTest, TypesCarryTheirRecordsAndCompareByIdentifierAndCategory) {
    vARCHIVETYPE tiff(vSTRING("Tagged Image"), vSTRING("TIF TIFF"), vSTRING("TIFF")), empty, assigned;
    DIBARCHIVE dib, copied(dib);
    ZKMARCHIVE zkm;
    assigned = dib;
    EXPECT_EQ(Of(tiff), Fields({"Tagged Image", "TIF TIFF", "TIFF", "00"}));
    EXPECT_EQ(Of(dib), Fields({"Nerin Bitmap Format", "DIB", "DIB", "10"}));
    EXPECT_EQ(Of(zkm), Fields({"QXF", "QXF", "-", "01"}));
    EXPECT_EQ(Of(empty), Fields({"-", "-", "-", "00"}));
    EXPECT_EQ(Of(copied), Fields({"Nerin Bitmap Format", "DIB", "-", "10"}));
    EXPECT_EQ(Of(assigned), Of(dib));
    vARCHIVETYPE one(vSTRING("one"), vSTRING("DIB"), vSTRING("x")), two(vSTRING("two"), vSTRING("DIB"), vSTRING("y"));
    dib.Description() = vSTRING("something else");
    EXPECT_TRUE(one == two && dib == DIBARCHIVE() && copied == dib);
    EXPECT_FALSE(one == dib || DIBARCHIVE() == ZKMARCHIVE());
}

}  // namespace
