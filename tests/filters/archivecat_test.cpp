#include "support/zktest.h"

#include "filters/archivecat.h"

namespace {

// Each setter adds its flag and leaves the others, setting one twice changes nothing; a picture is a metafile or a
// bitmap; equal flags, equal categories.
TEST(ArchiveCatTest, SettersAddTheirFlagAndEqualityComparesTheFlags) {
    const std::pair<std::function<void(vARCHIVECAT&)>, std::vector<int>> rows[] = {
        {[](vARCHIVECAT&) {}, {0, 0, 0, 0}},
        {[](vARCHIVECAT& c) { c.Text(); }, {1, 0, 0, 0}},
        {[](vARCHIVECAT& c) { c.Metafile(); }, {0, 1, 0, 1}},
        {[](vARCHIVECAT& c) { c.Bitmap(); c.Text(); }, {1, 0, 1, 1}},
        {[](vARCHIVECAT& c) { c.Text(); c.Metafile(); c.Bitmap(); }, {1, 1, 1, 1}}};
    for (const auto& row : rows) {
        vARCHIVECAT kind, twice;
        for (vARCHIVECAT* each : {&kind, &twice, &twice})
            row.first(*each);
        EXPECT_EQ(std::vector<int>({kind.IsText(), kind.IsMetafile(), kind.IsBitmap(), kind.IsPicture()}), row.second);
        EXPECT_TRUE(kind == twice);
        EXPECT_EQ(kind == vARCHIVECAT(), &row == rows);
    }
}

}  // namespace
